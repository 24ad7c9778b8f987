// What the files of QuickDraw that open and close ports share among themselves.
#pragma once

#include "Quickdraw_internal.h"

// A cleared record of the screen's depth, or of the format of the device that UseGDevPMap asked for;
// null when memory is short.
PixMapHandle newPixMap();
// With its context, bitmap and native window.
void disposePixMap(PixMapHandle handle);
