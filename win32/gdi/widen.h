// Wide lines: the outlines of what a pen covers when it runs along a figure.
#pragma once

#include "dash_pattern.h"
#include "outline.h"

#include <span>

namespace win32::gdi {

// A pen's point and how its lines end and meet.
struct PenShape {
    double radius = 0.5; // half the width, in pixels
    // A pen of even width lies half a pixel up and to the left of the line, so that it covers whole pixels.
    bool isEven = false;
    DWORD cap = PS_ENDCAP_ROUND;
    DWORD join = PS_JOIN_ROUND;
    double miterLimit = 10;
};

// All outlines run around what they cover in one direction, and none has a winding of less than 0 anywhere:
// filled with WINDING, they cover each pixel that the pen touches, however they overlap.
class Widener {
public:
    Widener(const PenShape &shape, Outline &outline) : shape_(shape), outline_(outline) {}

    void add(std::span<const FixedPoint> points, bool isClosed);
    // The same with a broken line; what lies outside the bounds by more than the pen reaches is left out.
    void addDashes(std::span<const FixedPoint> points, bool isClosed, const DashPattern &pattern, const Box &bounds);

private:
    struct Vector {
        double x;
        double y;
        Vector operator+(Vector other) const { return {x + other.x, y + other.y}; }
        Vector operator-(Vector other) const { return {x - other.x, y - other.y}; }
        Vector operator*(double factor) const { return {x * factor, y * factor}; }
        double dot(Vector other) const { return x * other.x + y * other.y; }
        double cross(Vector other) const { return x * other.y - y * other.x; }
        double length() const;
    };

    void take(std::span<const FixedPoint> points, bool isClosed);
    void outlineVertices(bool isClosed);
    void turnAround(bool isClosed);
    void openSide();
    void closedSide();
    void join(size_t vertex, size_t before, size_t after);
    void outerJoin(Vector center, Vector from, Vector to, double cosine);
    void cap(Vector center, Vector direction);
    void dot();
    void arc(Vector center, Vector from, double angle);
    void emit(Vector point);
    Vector offset(size_t segment) const;
    void finishDash(std::vector<Vector> &dash, Vector direction);

    struct Window {
        double left, top, right, bottom;
    };
    static void cutToWindow(Vector start, Vector direction, const Window &window, double &from, double &to);

    const PenShape &shape_;
    Outline &outline_;
    std::vector<Vector> vertices_;
    std::vector<Vector> directions_; // of the segment behind each vertex
    std::vector<double> lengths_;
};

} // namespace win32::gdi
