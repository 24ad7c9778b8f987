// Plain loops over words, which the compiler turns into the processor's vector operations.
#include "pixel_loops.h"

#include <cstring>

namespace win32::gdi {

namespace {

// A word at any address, of whatever the bytes are.
using Word [[gnu::may_alias, gnu::aligned(1)]] = uint32_t;

#define ALWAYS_INLINE inline __attribute__((always_inline))

// Calls change(uint32_t) or change(uint8_t) for each word and the last bytes of a row.
template <class Change> ALWAYS_INLINE void changeEach(uint8_t *__restrict row, size_t length, Change change)
{
    auto *words = reinterpret_cast<Word *>(row);
    for (size_t i = 0; i < length / 4; ++i)
        words[i] = change(words[i], 0);
    for (size_t i = length & ~size_t{3}; i < length; ++i)
        row[i] = static_cast<uint8_t>(change(row[i], (i & 3) * 8));
}

template <class Combine>
ALWAYS_INLINE void combineEach(uint8_t *__restrict row, const uint8_t *__restrict source, size_t length, Combine combine)
{
    auto *words = reinterpret_cast<Word *>(row);
    auto *sourceWords = reinterpret_cast<const Word *>(source);
    for (size_t i = 0; i < length / 4; ++i)
        words[i] = combine(sourceWords[i], words[i]);
    for (size_t i = length & ~size_t{3}; i < length; ++i)
        row[i] = static_cast<uint8_t>(combine(source[i], row[i]));
}

ALWAYS_INLINE uint8_t maskedByte(uint32_t before, uint32_t after, uint32_t mask)
{
    return static_cast<uint8_t>(before ^ ((before ^ after) & mask));
}

template <int code> ALWAYS_INLINE void combineRowsBy(ByteRows rows, ConstByteRows source, size_t length, int count)
{
    for (int y = 0; y < count; ++y)
        combineEach(rows.bytes + y * rows.stride, source.bytes + y * source.stride, length,
                    [](uint32_t s, uint32_t d) { return evaluate<uint32_t>(BinaryCode{code}, s, d); });
}

// A ternary code as a sum of products of its operands: c0 ^ c1 P ^ S (c2 ^ c3 P) ^ D (c4 ^ c5 P ^ S (c6 ^ c7 P)).
struct Coefficients {
    explicit Coefficients(uint8_t ternary)
    {
        // The factor of a product is the parity of the results for all inputs within the product.
        constexpr int source = 2, pattern = 4, destination = 1;
        constexpr int order[8] = {0,           pattern,           source,           source | pattern,
                                  destination, destination | pattern, destination | source,
                                  destination | source | pattern};
        for (int i = 0; i < 8; ++i) {
            int parity = 0;
            for (int inputs = 0; inputs < 8; ++inputs)
                if ((inputs & order[i]) == inputs)
                    parity ^= ternary >> inputs & 1;
            c[i] = parity ? ~0u : 0u;
        }
    }

    ALWAYS_INLINE uint32_t apply(uint32_t p, uint32_t s, uint32_t d) const
    {
        return c[0] ^ (c[1] & p) ^ (s & (c[2] ^ (c[3] & p)))
               ^ (d & (c[4] ^ (c[5] & p) ^ (s & (c[6] ^ (c[7] & p)))));
    }

    uint32_t c[8];
};

} // namespace

WIN32_FOR_EACH_PROCESSOR
void fillRows(ByteRows rows, size_t length, int count, uint32_t word)
{
    for (int y = 0; y < count; ++y)
        changeEach(rows.bytes + y * rows.stride, length,
                   [word](uint32_t, size_t shift) { return word >> shift; });
}

WIN32_FOR_EACH_PROCESSOR
void andXorRows(ByteRows rows, size_t length, int count, uint32_t keep, uint32_t flip)
{
    for (int y = 0; y < count; ++y)
        changeEach(rows.bytes + y * rows.stride, length,
                   [keep, flip](uint32_t d, size_t shift) { return (d & keep >> shift) ^ flip >> shift; });
}

void copyRows(ByteRows rows, ConstByteRows source, size_t length, int count)
{
    for (int y = 0; y < count; ++y)
        memmove(rows.bytes + y * rows.stride, source.bytes + y * source.stride, length);
}

WIN32_FOR_EACH_PROCESSOR
void combineRows(ByteRows rows, ConstByteRows source, size_t length, int count, BinaryCode code)
{
    switch (static_cast<int>(code)) {
    case 0: return combineRowsBy<0>(rows, source, length, count);
    case 1: return combineRowsBy<1>(rows, source, length, count);
    case 2: return combineRowsBy<2>(rows, source, length, count);
    case 3: return combineRowsBy<3>(rows, source, length, count);
    case 4: return combineRowsBy<4>(rows, source, length, count);
    case 5: return combineRowsBy<5>(rows, source, length, count);
    case 6: return combineRowsBy<6>(rows, source, length, count);
    case 7: return combineRowsBy<7>(rows, source, length, count);
    case 8: return combineRowsBy<8>(rows, source, length, count);
    case 9: return combineRowsBy<9>(rows, source, length, count);
    case 10: return;
    case 11: return combineRowsBy<11>(rows, source, length, count);
    case 12: return copyRows(rows, source, length, count);
    case 13: return combineRowsBy<13>(rows, source, length, count);
    case 14: return combineRowsBy<14>(rows, source, length, count);
    default: return combineRowsBy<15>(rows, source, length, count);
    }
}

WIN32_FOR_EACH_PROCESSOR
void combineRowMasked(uint8_t *__restrict row, const uint8_t *__restrict source, const uint8_t *__restrict mask,
                      size_t length, BinaryCode code)
{
    for (size_t i = 0; i < length; ++i)
        row[i] = maskedByte(row[i], evaluate<uint8_t>(code, source[i], row[i]), mask[i]);
}

WIN32_FOR_EACH_PROCESSOR
void combineRow(uint8_t *__restrict row, const uint8_t *__restrict source, const uint8_t *__restrict pattern,
                size_t length, uint8_t ternary)
{
    Coefficients coefficients(ternary);
    auto *words = reinterpret_cast<Word *>(row);
    auto *sourceWords = reinterpret_cast<const Word *>(source);
    auto *patternWords = reinterpret_cast<const Word *>(pattern);
    for (size_t i = 0; i < length / 4; ++i)
        words[i] = coefficients.apply(patternWords[i], sourceWords[i], words[i]);
    for (size_t i = length & ~size_t{3}; i < length; ++i)
        row[i] = static_cast<uint8_t>(coefficients.apply(pattern[i], source[i], row[i]));
}

WIN32_FOR_EACH_PROCESSOR
void combineRowMasked(uint8_t *__restrict row, const uint8_t *__restrict source, const uint8_t *__restrict pattern,
                      const uint8_t *__restrict mask, size_t length, uint8_t ternary)
{
    Coefficients coefficients(ternary);
    for (size_t i = 0; i < length; ++i)
        row[i] = maskedByte(row[i], coefficients.apply(pattern[i], source[i], row[i]), mask[i]);
}

WIN32_FOR_EACH_PROCESSOR
static void shiftLeft(uint8_t *__restrict row, const uint8_t *__restrict source, int bits, size_t sourceLength,
                      size_t length)
{
    // The last byte may have no successor in the source.
    size_t whole = length < sourceLength ? length : sourceLength - 1;
    for (size_t i = 0; i < whole; ++i)
        row[i] = static_cast<uint8_t>(source[i] << bits | source[i + 1] >> (8 - bits));
    if (whole < length)
        row[whole] = static_cast<uint8_t>(source[whole] << bits);
}

void shiftBits(uint8_t *row, const uint8_t *source, int bits, size_t sourceLength, size_t length)
{
    if (bits == 0) {
        memcpy(row, source, length);
    } else if (bits > 0) {
        shiftLeft(row, source, bits, sourceLength, length);
    } else {
        row[0] = static_cast<uint8_t>(source[0] >> -bits);
        if (length > 1)
            shiftLeft(row + 1, source, 8 + bits, sourceLength, length - 1);
    }
}

} // namespace win32::gdi
