// The loops at the bottom of all drawing: bytes of rows, combined by raster codes. They know nothing of
// formats; rows of one call do not overlap unless a function says so.
#pragma once

#include "box.h"
#include "raster_code.h"

#include <cstddef>

// The loops are compiled for plain and for newer processors, and chosen when the library is loaded.
#if defined(__x86_64__)
#define WIN32_FOR_EACH_PROCESSOR __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define WIN32_FOR_EACH_PROCESSOR
#endif

namespace win32::gdi {

// Rows of equal length in a surface or a buffer. A stride of 0 gives the same row again and again.
struct ByteRows {
    uint8_t *bytes;
    ptrdiff_t stride;
};
struct ConstByteRows {
    const uint8_t *bytes;
    ptrdiff_t stride;
};

// Repeats a word from the start of each row.
void fillRows(ByteRows rows, size_t length, int count, uint32_t word);
// The same for boxes of pixels of 1, 2 or 4 bytes, with one way for all: made for many boxes of a few rows.
void fillLowBoxes(ByteRows surface, int pixelSize, const Box *boxes, size_t count, uint32_t word);
// D = (D & keep) ^ flip, with both words repeated from the start of each row.
void andXorRows(ByteRows rows, size_t length, int count, uint32_t keep, uint32_t flip);

void copyRows(ByteRows rows, ConstByteRows source, size_t length, int count);
void combineRows(ByteRows rows, ConstByteRows source, size_t length, int count, BinaryCode code);
// Only bits that are set in the mask change.
void combineRowMasked(uint8_t *row, const uint8_t *source, const uint8_t *mask, size_t length, BinaryCode code);

void combineRow(uint8_t *row, const uint8_t *source, const uint8_t *pattern, size_t length, uint8_t ternary);
void combineRowMasked(uint8_t *row, const uint8_t *source, const uint8_t *pattern, const uint8_t *mask, size_t length,
                      uint8_t ternary);

// Copies a row with its bits moved to the left, or to the right by a negative distance, by less than a byte.
// Bits that come from nowhere are 0.
void shiftBits(uint8_t *row, const uint8_t *source, int bits, size_t sourceLength, size_t length);

} // namespace win32::gdi
