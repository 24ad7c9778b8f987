// What the calls that draw shapes share.
#pragma once

#include "Quickdraw_internal.h"

#include <algorithm>

// Coordinates go to GDI within this range only.
inline SInt16 clampedCoordinate(SInt16 coordinate)
{
    constexpr SInt16 limit = 32000;
    return std::clamp(coordinate, static_cast<SInt16>(-limit), limit);
}

inline RECT clampedRect(const Rect &rect)
{
    return {clampedCoordinate(rect.left), clampedCoordinate(rect.top), clampedCoordinate(rect.right),
            clampedCoordinate(rect.bottom)};
}

// An object in a context for the time of a scope. A null one, as a refused creation gives it, leaves the
// context with what it holds.
class Selection {
public:
    Selection(HDC context, HGDIOBJ object) : context_(context), former_(SelectObject(context, object)) {}
    ~Selection()
    {
        if (former_)
            SelectObject(context_, former_);
    }
    Selection(const Selection &) = delete;
    Selection &operator=(const Selection &) = delete;

    bool isMade() const { return former_ != nullptr; }

private:
    HDC context_;
    HGDIOBJ former_;
};

// An object of the call's own; to be declared before its selection, so that it is deleted after that.
class OwnObject {
public:
    explicit OwnObject(HGDIOBJ object) : object_(object) {}
    ~OwnObject()
    {
        if (object_)
            DeleteObject(object_);
    }
    OwnObject(const OwnObject &) = delete;
    OwnObject &operator=(const OwnObject &) = delete;

    operator HGDIOBJ() const { return object_; }

private:
    HGDIOBJ object_;
};

// Another raster mode for the time of a scope.
class RasterModeScope {
public:
    RasterModeScope(HDC context, int mode) : context_(context), former_(SetROP2(context, mode)) {}
    ~RasterModeScope()
    {
        if (former_ != 0)
            SetROP2(context_, former_);
    }
    RasterModeScope(const RasterModeScope &) = delete;
    RasterModeScope &operator=(const RasterModeScope &) = delete;

private:
    HDC context_;
    int former_;
};

// Another pattern in the current port for the time of a scope, at whose end the pen is as before. The port's own
// brush is kept meanwhile, so that getting it back needs no new one.
class FillPatternScope {
public:
    explicit FillPatternScope(const Pattern *pattern);
    ~FillPatternScope();
    FillPatternScope(const FillPatternScope &) = delete;
    FillPatternScope &operator=(const FillPatternScope &) = delete;

private:
    GrafPtr port_;
    PenState state_{};
    HBRUSH ownBrush_ = nullptr;
};

// Above 0 between OpenPoly2 and ClosePoly2, while lines go to the context's path.
extern SInt32 polyPathDepth;

// What OpenPoly2 gives in place of a handle.
inline PolyHandle pathToken()
{
    return reinterpret_cast<PolyHandle>(intptr_t{-1});
}

// Whether the port records a polygon; not any more when that was killed meanwhile.
bool MTBX_RecordsPoly(GrafPort &port);
// Adds a vertex to it.
void MTBX_AppendPolyPoint(GrafPort &port, SInt16 h, SInt16 v);

// Paints a rectangle of the current port, which has a context, in the modes that look at the pixels below.
void MTBX_PaintMergedRect(const Rect &rect);
