// Turning the bytes of 32-bit pixels around, in place.
#include "PixelOrder_internal.h"

#include <mtbx/QDOffscreen.h>

#include <cstring>

namespace {

constexpr size_t pixelsInVector = 4;

// The bytes of each half first, then the halves.
size_t reversePlainly(UInt32 *pixels, size_t count)
{
    using Words = UInt32 __attribute__((vector_size(16)));
    using Halves = UInt16 __attribute__((vector_size(16)));
    size_t i = 0;
    for (; i + pixelsInVector <= count; i += pixelsInVector) {
        Words words;
        memcpy(&words, pixels + i, sizeof words);
        auto halves = reinterpret_cast<Halves>(words);
        words = reinterpret_cast<Words>(halves << 8 | halves >> 8);
        words = words << 16 | words >> 16;
        memcpy(pixels + i, &words, sizeof words);
    }
    return i;
}

#if defined(__x86_64__) || defined(__i386__)

using Bytes = UInt8 __attribute__((vector_size(16)));

// Processors since about 2006 move all bytes in one step.
[[gnu::target("ssse3")]] inline Bytes reversedWords(Bytes bytes)
{
    return __builtin_shufflevector(bytes, bytes, 3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
}

[[gnu::target("ssse3")]] size_t reverseByShuffling(UInt32 *pixels, size_t count)
{
    size_t i = 0;
    for (; i + 2 * pixelsInVector <= count; i += 2 * pixelsInVector) {
        Bytes first, second;
        memcpy(&first, pixels + i, sizeof first);
        memcpy(&second, pixels + i + pixelsInVector, sizeof second);
        first = reversedWords(first);
        second = reversedWords(second);
        memcpy(pixels + i, &first, sizeof first);
        memcpy(pixels + i + pixelsInVector, &second, sizeof second);
    }
    return i;
}

size_t reverseMost(UInt32 *pixels, size_t count)
{
    static const bool canShuffle = __builtin_cpu_supports("ssse3");
    return canShuffle ? reverseByShuffling(pixels, count) : reversePlainly(pixels, count);
}

#else

size_t reverseMost(UInt32 *pixels, size_t count)
{
    return reversePlainly(pixels, count);
}

#endif

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
    for (size_t i = reverseMost(pixels, count); i < count; ++i)
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
