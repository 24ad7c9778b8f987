// Shapes into boxes: which pixels a polygon or an ellipse covers, by GDI's rules.
#pragma once

#include "box.h"

#include <span>
#include <vector>

namespace win32::gdi {

// The boxes are disjoint and ordered from top to bottom, in each row from left to right; runs of equal rows
// may be joined to higher boxes. They are appended to the list. Only what lies within the bounds is made, so
// that shapes much larger than a surface cost what is seen of them.

// The interior of closed polygons, filled together: ALTERNATE or WINDING. Each count tells how many points
// belong to a polygon.
void scanPolygons(std::span<const POINT> points, std::span<const int> counts, int fillMode, const Box &bounds,
                  std::vector<Box> &boxes);

// The area that an ellipse with the box covers: its right and bottom sides do not belong to it.
void scanEllipse(const Box &box, const Box &bounds, std::vector<Box> &boxes);

// The same for a rectangle whose corners are quarters of an ellipse of the given size.
void scanRoundRect(const Box &box, int ellipseWidth, int ellipseHeight, const Box &bounds, std::vector<Box> &boxes);

} // namespace win32::gdi
