// The row size of a PixMap, which may be more than its 14 bits of rowBytes can say.
#pragma once

#include <mtbx/QDOffscreen.h>

SInt32 rowBytesOf(const PixMap &map);

// Marks the record as a PixMap and not a port's. False, with the old size, when memory is short.
bool setRowBytes(PixMap &map, UInt32 rowBytes);
