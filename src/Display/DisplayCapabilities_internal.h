// The judgement on a display, apart from the question to its driver.
#pragma once

#include <mtbx/Displays.h>

// Tells the user what is missing. The capabilities are those of RASTERCAPS.
bool judgeDisplay(UInt16 rasterCapabilities, int bitsPerPixel, bool shortCheck);
