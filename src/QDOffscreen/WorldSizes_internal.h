// Giving an offscreen world the bitmap of its size.
#pragma once

#include <mtbx/QDOffscreen.h>

// The world gets a bitmap of the rectangle's size unless it has one, and its origin from the rectangle. A
// depth of 0 is the screen's. False when that cannot be: the world then has neither bitmap nor context,
// so that drawing in it does nothing.
bool sizeWorld(GWorldPtr world, SInt16 depth, const Rect &rect);
// Takes bitmap and context from a world.
void disposeWorldPixels(PixMap &map);
