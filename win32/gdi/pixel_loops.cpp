// Plain loops over words, which the compiler turns into the processor's vector operations.
//
// Rows of many lengths come one after another when a clip has many boxes; so a row's end is not made of ever
// smaller pieces, whose branches cannot be predicted, but is a whole piece that overlaps the one before. Its
// result is formed before the row changes.
#include "pixel_loops.h"

#include <bit>
#include <cstring>
#include <cwchar>

namespace win32::gdi {

namespace {

using Word = uint32_t;
using Vector [[gnu::vector_size(16)]] = uint32_t;

#define ALWAYS_INLINE inline __attribute__((always_inline))

constexpr size_t blockSize = 64;

template <class Type> ALWAYS_INLINE Type load(const uint8_t *bytes)
{
    Type value;
    memcpy(&value, bytes, sizeof value);
    return value;
}

template <class Type> ALWAYS_INLINE void store(uint8_t *bytes, Type value)
{
    memcpy(bytes, &value, sizeof value);
}

// The last bytes of a row as vectors.
template <size_t count> struct Tail {
    template <class At> ALWAYS_INLINE explicit Tail(At at)
    {
        for (size_t i = 0; i < count; ++i)
            vectors[i] = at(16 * i);
    }
    ALWAYS_INLINE void storeTo(uint8_t *bytes) const
    {
        for (size_t i = 0; i < count; ++i)
            store<Vector>(bytes + 16 * i, vectors[i]);
    }
    Vector vectors[count];
};

template <int code, class Type> ALWAYS_INLINE Type combine(Type source, Type destination)
{
    Type result{};
    if constexpr (code & 1)
        result |= ~source & ~destination;
    if constexpr (code & 2)
        result |= ~source & destination;
    if constexpr (code & 4)
        result |= source & ~destination;
    if constexpr (code & 8)
        result |= source & destination;
    return result;
}

template <int code> ALWAYS_INLINE void combineWords(uint8_t *__restrict row, const uint8_t *__restrict source, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        store<Word>(row + 4 * i, combine<code>(load<Word>(source + 4 * i), load<Word>(row + 4 * i)));
}

template <int code>
ALWAYS_INLINE void combineShortRow(uint8_t *__restrict row, const uint8_t *__restrict source, size_t length)
{
    size_t whole = length & ~size_t{15};
    for (size_t i = 0; i < whole; i += 16)
        store<Vector>(row + i, combine<code>(load<Vector>(source + i), load<Vector>(row + i)));
    combineWords<code>(row + whole, source + whole, (length - whole) / 4);
    for (size_t i = length & ~size_t{3}; i < length; ++i)
        row[i] = static_cast<uint8_t>(combine<code, uint32_t>(source[i], row[i]));
}

template <int code>
ALWAYS_INLINE void combineOneRow(uint8_t *__restrict row, const uint8_t *__restrict source, size_t length)
{
    if (length < blockSize)
        return combineShortRow<code>(row, source, length);
    size_t end = length - blockSize;
    Tail<4> tail([row, source, end](size_t i) {
        return combine<code>(load<Vector>(source + end + i), load<Vector>(row + end + i));
    });
    for (size_t i = 0; i < end; i += blockSize)
        combineWords<code>(row + i, source + i, blockSize / 4);
    tail.storeTo(row + end);
}

template <int code> ALWAYS_INLINE void combineRowsBy(ByteRows rows, ConstByteRows source, size_t length, int count)
{
    for (int y = 0; y < count; ++y)
        combineOneRow<code>(rows.bytes + y * rows.stride, source.bytes + y * source.stride, length);
}

ALWAYS_INLINE uint8_t maskedByte(uint32_t before, uint32_t after, uint32_t mask)
{
    return static_cast<uint8_t>(before ^ ((before ^ after) & mask));
}

// The word as it stands at an offset, when it is repeated from offset 0 on.
ALWAYS_INLINE uint32_t wordAt(uint32_t word, size_t offset)
{
    return std::rotr(word, static_cast<int>(offset & 3) * 8);
}

ALWAYS_INLINE void fillWords(uint8_t *row, size_t count, uint32_t word)
{
    for (size_t i = 0; i < count; ++i)
        store<Word>(row + 4 * i, word);
}

ALWAYS_INLINE void fillOneRow(uint8_t *row, size_t length, uint32_t word)
{
    if (length < blockSize) {
        fillWords(row, length / 4, word);
        for (size_t i = length & ~size_t{3}; i < length; ++i)
            row[i] = static_cast<uint8_t>(wordAt(word, i));
        return;
    }
    size_t end = length - blockSize;
    for (size_t i = 0; i < end; i += blockSize)
        fillWords(row + i, blockSize / 4, word);
    fillWords(row + end, blockSize / 4, wordAt(word, end));
}

struct AndXor {
    uint32_t keep, flip;

    ALWAYS_INLINE uint32_t apply(uint32_t value) const { return (value & keep) ^ flip; }
    ALWAYS_INLINE void applyToWords(uint8_t *row, size_t count) const
    {
        for (size_t i = 0; i < count; ++i)
            store<Word>(row + 4 * i, apply(load<Word>(row + 4 * i)));
    }
    ALWAYS_INLINE AndXor at(size_t offset) const { return {wordAt(keep, offset), wordAt(flip, offset)}; }
};

ALWAYS_INLINE void andXorOneRow(uint8_t *row, size_t length, AndXor change)
{
    if (length < blockSize) {
        change.applyToWords(row, length / 4);
        for (size_t i = length & ~size_t{3}; i < length; ++i)
            row[i] = static_cast<uint8_t>(change.at(i).apply(row[i]));
        return;
    }
    size_t end = length - blockSize;
    AndXor last = change.at(end);
    Tail<4> tail([row, end, last](size_t i) { return (load<Vector>(row + end + i) & last.keep) ^ last.flip; });
    for (size_t i = 0; i < end; i += blockSize)
        change.applyToWords(row + i, blockSize / 4);
    tail.storeTo(row + end);
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
static void fillShortRows(ByteRows rows, size_t length, int count, uint32_t word)
{
    for (int y = 0; y < count; ++y)
        fillOneRow(rows.bytes + y * rows.stride, length, word);
}

void fillRows(ByteRows rows, size_t length, int count, uint32_t word)
{
    constexpr size_t longRow = 1024;
    static_assert(sizeof(wchar_t) == sizeof word);
    bool isAligned = (reinterpret_cast<uintptr_t>(rows.bytes) | static_cast<uintptr_t>(rows.stride)) % sizeof word == 0;
    if (length < longRow || !isAligned)
        return fillShortRows(rows, length, count, word);
    for (int y = 0; y < count; ++y) {
        uint8_t *row = rows.bytes + y * rows.stride;
        wmemset(reinterpret_cast<wchar_t *>(row), static_cast<wchar_t>(word), length / 4);
        memcpy(row + length / 4 * 4, &word, length % 4);
    }
}

WIN32_FOR_EACH_PROCESSOR
void andXorRows(ByteRows rows, size_t length, int count, uint32_t keep, uint32_t flip)
{
    for (int y = 0; y < count; ++y)
        andXorOneRow(rows.bytes + y * rows.stride, length, AndXor{keep, flip});
}

void copyRows(ByteRows rows, ConstByteRows source, size_t length, int count)
{
    // Rows that join without a gap, in both places.
    if (rows.stride == source.stride && rows.stride == static_cast<ptrdiff_t>(length)) {
        length *= static_cast<size_t>(count);
        count = 1;
    }
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
    for (size_t i = 0; i < length / 4; ++i)
        store<Word>(row + 4 * i, coefficients.apply(load<Word>(pattern + 4 * i), load<Word>(source + 4 * i),
                                                    load<Word>(row + 4 * i)));
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
