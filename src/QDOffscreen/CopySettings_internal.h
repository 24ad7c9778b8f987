// The settings of offscreen worlds and of copying bits, read by InitGraf.
#pragma once

#include <mtbx/MacTypes.h>

struct CopySettings {
    // Every copy goes through StretchBlt.
    UInt8 useStretchBlt;
    // Bitmaps of 16 and 32 bits are made with masks, and no world is reversed around a copy.
    UInt8 useBitfieldsIfPossible;
    // The last row of a copy of a bitmap's corner is copied by itself.
    UInt8 workaroundStretchDIBitsBug;
    // Kept; no copy asks for them.
    UInt8 useDirectDraw;
    UInt8 directDrawMoniker;
};
extern CopySettings copySettings;

void MTBX_ReadCopySettings();
