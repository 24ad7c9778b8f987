// What the format of a PixMap's pixels says.
#pragma once

#include <mtbx/QDOffscreen.h>

#include <algorithm>
#include <array>
#include <cstring>

// Red, green, blue, alpha. Records hold them at any address.
using ChannelMasks = std::array<UInt32, 4>;

// Of the plain order of GDI.
constexpr ChannelMasks kNativeMasks = {0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};

inline ChannelMasks readMasks(const UInt32 *masks)
{
    ChannelMasks result;
    memcpy(result.data(), masks, sizeof result);
    return result;
}

inline ChannelMasks masksOf(const PixMap &map)
{
    return map.pmFormat == kPixelFormatNative ? kNativeMasks : readMasks(map.pmMasks);
}

inline void setFormat(PixMap &map, SInt32 format, const ChannelMasks &masks)
{
    memcpy(map.pmMasks, masks.data(), sizeof map.pmMasks);
    map.pmFormat = format;
}

// Alpha does not count.
inline bool haveSameColors(const ChannelMasks &a, const ChannelMasks &b)
{
    return std::equal(a.begin(), a.begin() + 3, b.begin());
}
