// Turning the bytes of 32-bit pixels around.
#pragma once

#include <mtbx/MacTypes.h>

#include <cstddef>

void reversePixels(UInt32 *pixels, size_t count);
