// Curves: Bézier curves and parts of ellipses as rows of points.
#pragma once

#include "box.h"
#include "fixed_point.h"

namespace win32::gdi {

// Appends points along the curve, its end included, its start not. They leave it by less than an eighth of
// a pixel.
void flattenBezier(FixedPoint start, FixedPoint control1, FixedPoint control2, FixedPoint end,
                   std::vector<FixedPoint> &points);

// An ellipse that touches the centres of the outermost pixels of a box, and a part of it from an angle on,
// counter-clockwise as seen.
struct EllipseArc {
    double centerX; // pixels
    double centerY;
    double radiusX;
    double radiusY;
    double start; // radians of the circle that the ellipse is a view of, 0 to the right
    double sweep; // more than 0, up to a full turn

    FixedPoint at(double angle) const;
    // Appends points along the arc, both its ends included.
    void flatten(std::vector<FixedPoint> &points) const;
    // Appends the control points of Bézier curves for it: first its start, then three for each curve.
    void toBeziers(std::vector<FixedPoint> &points) const;
};

// The whole ellipse of a box.
EllipseArc wholeEllipse(const Box &box);
// The part between the rays from its centre through two points; all of it when they have one direction.
EllipseArc arcBetween(const Box &box, POINT start, POINT end);

} // namespace win32::gdi
