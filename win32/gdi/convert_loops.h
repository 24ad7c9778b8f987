// The loops under the conversions between formats.
#pragma once

#include "surface.h"

namespace win32::gdi {

// Bits that stand for one of two pixels, from a bit position on.
void spreadBits(const uint8_t *row, int x, int count, uint32_t clear, uint32_t set, uint32_t *pixels);

// Pixels of 4 or 8 bits, through a table.
void lookUpNibbles(const uint8_t *row, int x, int count, const uint32_t *table, uint32_t *pixels);
void lookUpBytes(const uint8_t *bytes, int count, const uint32_t *table, uint32_t *pixels);

// Ways between formats with channels that are worth a loop of their own.
enum class ChannelChange : uint8_t {
    None, // the same channels in pixels of another size
    Xrgb1555ToXrgb32,
    Rgb565ToXrgb32,
    Xrgb32ToXrgb1555,
    Xrgb32ToRgb565,
    SwapRedAndBlue,
};
void changeChannels(ChannelChange change, PixelLayout layout, const uint8_t *bytes, int count, uint32_t *pixels);

} // namespace win32::gdi
