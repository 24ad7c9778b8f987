// Paths: what drawing calls between BeginPath and EndPath record, and what becomes of it.
#pragma once

#include "device_context.h"
#include "outline.h"

#include <span>

namespace win32::gdi {

// Adds to the open path of a context. Points are logical ones where they are POINTs, and in device coordinates
// otherwise.
class PathRecorder {
public:
    explicit PathRecorder(DeviceContext &dc) : dc_(dc) {}

    DeviceContext &dc() const { return dc_; }

    // These go on from the last point, or begin a figure at the current position.
    void lineTo(POINT point);
    // Three points for each curve.
    void beziersTo(std::span<const POINT> points);

    // Figures of their own, which leave the current position alone. A row of curves has its start and three
    // points for each curve.
    void addLines(std::span<const POINT> points, bool isClosed);
    void addBeziers(std::span<const POINT> points, bool isClosed);
    void addLines(std::span<const FixedPoint> points, bool isClosed);
    void addBeziers(std::span<const FixedPoint> points, bool isClosed);

private:
    void add(FixedPoint point, uint8_t type);
    void add(POINT point, uint8_t type) { add(toFixed(dc_.toDevice(point)), type); }
    template <class Point> void addFigure(std::span<const Point> points, uint8_t type, bool isClosed);
    void continueFigure();

    DeviceContext &dc_;
};

// Closes the figure that the next line would go on with.
void closeFigure(Path &path);

// The figures of a path, curves as lines, moved by an offset in whole pixels.
std::vector<Figure> flattened(const Path &path, POINT offset);
Outline outlineOf(std::span<const Figure> figures);

} // namespace win32::gdi
