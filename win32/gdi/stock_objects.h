// The objects that every program has.
#pragma once

#include "brush.h"
#include "font.h"
#include "palette.h"
#include "pen.h"

namespace win32::gdi::stock {

// Null for a number that no stock object has.
Object *object(int index);

Brush *brush(int index);
Pen *pen(int index);
Font *font(int index);
Palette *defaultPalette();

} // namespace win32::gdi::stock
