// What the format of a PixMap's pixels says.
#pragma once

#include <mtbx/QDOffscreen.h>

#include <algorithm>

// Red, green, blue, alpha in the plain order of GDI.
constexpr UInt32 kNativeMasks[4] = {0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};

inline const UInt32 *masksOf(const PixMap &map)
{
    return map.pmFormat == kPixelFormatNative ? kNativeMasks : map.pmMasks;
}

// Alpha does not count.
inline bool haveSameColors(const UInt32 *masks, const UInt32 *others)
{
    return std::equal(masks, masks + 3, others);
}

inline bool haveSameColors(const PixMap &a, const PixMap &b)
{
    return haveSameColors(masksOf(a), masksOf(b));
}
