// Turning the bytes of 32-bit pixels around, in place.
#include "PixelOrder_internal.h"

#include <mtbx/QDOffscreen.h>

#include <cstring>

namespace {

using Words = UInt32 __attribute__((vector_size(16)));
using Halves = UInt16 __attribute__((vector_size(16)));
constexpr size_t wordsInVector = sizeof(Words) / sizeof(UInt32);

// The bytes of each half first, then the halves.
Words reversed(Words words)
{
    auto halves = reinterpret_cast<Halves>(words);
    words = reinterpret_cast<Words>(halves << 8 | halves >> 8);
    return words << 16 | words >> 16;
}

UInt32 *rowAt(void *baseAddr, SInt32 rowBytes, SInt32 top, SInt32 left)
{
    return reinterpret_cast<UInt32 *>(static_cast<char *>(baseAddr) + ptrdiff_t{top} * rowBytes) + left;
}

void putBits(UInt32 *pixels, size_t count, UInt32 mask, UInt32 value)
{
    for (size_t i = 0; i < count; ++i)
        pixels[i] = (pixels[i] & ~mask) | (mask & value);
}

} // namespace

void reversePixels(UInt32 *pixels, size_t count)
{
    size_t i = 0;
    for (; i + wordsInVector <= count; i += wordsInVector) {
        Words words;
        memcpy(&words, pixels + i, sizeof words);
        words = reversed(words);
        memcpy(pixels + i, &words, sizeof words);
    }
    for (; i < count; ++i)
        pixels[i] = __builtin_bswap32(pixels[i]);
}

void MTBX_ConvertBitsFast(void *baseAddr, SInt32 rows, SInt32 columns, SInt32 rowBytes)
{
    if (columns <= 0)
        return;
    for (SInt32 row = 0; row < rows; ++row)
        reversePixels(rowAt(baseAddr, rowBytes, row, 0), static_cast<size_t>(columns));
}

void MTBX_ConvertBitsFastRect(void *baseAddr, SInt32 rowBytes, const Rect *rect, UInt32 mask, UInt32 value)
{
    if (rect->right < rect->left)
        return;
    auto count = static_cast<size_t>(rect->right - rect->left + 1);
    for (SInt32 row = rect->top; row <= rect->bottom; ++row) {
        UInt32 *pixels = rowAt(baseAddr, rowBytes, row, rect->left);
        if (mask)
            putBits(pixels, count, mask, value);
        reversePixels(pixels, count);
    }
}
