// Raised and sunken edges.
#pragma once

#include "system_painter.h"

namespace win32::user {

// Draws an edge of BDR_ parts along the sides of BF_ flags; the box becomes what is left within.
// False for parts that contradict each other: then nothing is drawn, but the box shrinks all the same.
bool drawEdge(SystemPainter &painter, gdi::Box &box, UINT edge, UINT flags);

} // namespace win32::user
