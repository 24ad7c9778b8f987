// Plain loops over words, which the compiler turns into the processor's vector operations.
//
// Rows of many lengths come one after another when a clip has many boxes; so a row's end is not made of ever
// smaller pieces, whose branches cannot be predicted, but is a whole piece that overlaps the one before. Its
// result is formed before the row changes.
#include "pixel_loops.h"

#include <bit>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <type_traits>
#include <utility>

namespace win32::gdi {

namespace {

using Word = uint32_t;
using Vector [[gnu::vector_size(16)]] = uint32_t;

#define ALWAYS_INLINE inline __attribute__((always_inline))

constexpr size_t blockSize = 64;

template <class Piece> ALWAYS_INLINE Piece load(const uint8_t *bytes)
{
    Piece piece;
    memcpy(&piece, bytes, sizeof piece);
    return piece;
}

template <class Piece> ALWAYS_INLINE void store(uint8_t *bytes, Piece piece)
{
    memcpy(bytes, &piece, sizeof piece);
}

// What a piece holds at an offset of a row in which a word is repeated from offset 0 on.
template <class Piece> ALWAYS_INLINE Piece repeated(Word word, size_t offset)
{
    word = std::rotr(word, static_cast<int>(offset & 3) * 8);
    if constexpr (std::is_same_v<Piece, Vector>)
        return Vector{word, word, word, word};
    else if constexpr (sizeof(Piece) == 8)
        return Piece{word} << 32 | word;
    else
        return static_cast<Piece>(word);
}

// Each of these tells what becomes of a piece of a row at an offset; pieces at multiples of 4 by atWord.
struct Fill {
    Word word;

    template <class Piece> ALWAYS_INLINE Piece at(size_t offset) const { return repeated<Piece>(word, offset); }
    ALWAYS_INLINE Word atWord(size_t) const { return word; }
};

struct AndXor {
    const uint8_t *row;
    Word keep;
    Word flip;

    template <class Piece> ALWAYS_INLINE Piece at(size_t offset) const
    {
        return static_cast<Piece>((load<Piece>(row + offset) & repeated<Piece>(keep, offset))
                                  ^ repeated<Piece>(flip, offset));
    }
    ALWAYS_INLINE Word atWord(size_t offset) const { return (load<Word>(row + offset) & keep) ^ flip; }
};

template <int code> struct Combine {
    const uint8_t *row;
    const uint8_t *source;

    template <class Piece> ALWAYS_INLINE Piece at(size_t offset) const
    {
        Piece s = load<Piece>(source + offset), d = load<Piece>(row + offset);
        Piece result{};
        if constexpr (code & 1)
            result |= ~s & ~d;
        if constexpr (code & 2)
            result |= ~s & d;
        if constexpr (code & 4)
            result |= s & ~d;
        if constexpr (code & 8)
            result |= s & d;
        return result;
    }
    ALWAYS_INLINE Word atWord(size_t offset) const { return at<Word>(offset); }
};

template <class Piece, class Change> ALWAYS_INLINE void changeInPieces(uint8_t *row, size_t length, Change change)
{
    size_t end = length - sizeof(Piece);
    Piece last = change.template at<Piece>(end);
    for (size_t i = 0; i < end; i += sizeof(Piece))
        store(row + i, change.template at<Piece>(i));
    store(row + end, last);
}

// The end first: its cache line is on its way while the rest is written.
ALWAYS_INLINE void changeInBlocks(uint8_t *row, size_t length, Fill fill)
{
    size_t end = length - blockSize;
    Fill last{repeated<Word>(fill.word, end)};
    for (size_t k = 0; k < blockSize; k += sizeof(Word))
        store(row + end + k, last.word);
    for (size_t i = 0; i < end; i += blockSize)
        for (size_t k = 0; k < blockSize; k += sizeof(Word))
            store(row + i + k, fill.word);
}

template <class Change> ALWAYS_INLINE void changeInBlocks(uint8_t *row, size_t length, Change change)
{
    size_t end = length - blockSize;
    Vector last[blockSize / sizeof(Vector)];
    for (size_t k = 0; k < std::size(last); ++k)
        last[k] = change.template at<Vector>(end + k * sizeof(Vector));
    for (size_t i = 0; i < end; i += blockSize)
        for (size_t k = 0; k < blockSize; k += sizeof(Word))
            store(row + i + k, change.atWord(i + k));
    for (size_t k = 0; k < std::size(last); ++k)
        store(row + end + k * sizeof(Vector), last[k]);
}

template <class Change> ALWAYS_INLINE void changeRow(uint8_t *row, size_t length, Change change)
{
    if (length >= blockSize)
        changeInBlocks(row, length, change);
    else if (length >= sizeof(Vector))
        changeInPieces<Vector>(row, length, change);
    else if (length >= 8)
        changeInPieces<uint64_t>(row, length, change);
    else if (length >= 4)
        changeInPieces<uint32_t>(row, length, change);
    else if (length >= 2)
        changeInPieces<uint16_t>(row, length, change);
    else if (length == 1)
        store(row, change.template at<uint8_t>(0));
}

template <int code> ALWAYS_INLINE void combineRowsBy(ByteRows rows, ConstByteRows source, size_t length, int count)
{
    for (int y = 0; y < count; ++y) {
        uint8_t *__restrict row = rows.bytes + y * rows.stride;
        const uint8_t *__restrict sourceRow = source.bytes + y * source.stride;
        changeRow(row, length, Combine<code>{row, sourceRow});
    }
}

ALWAYS_INLINE uint8_t maskedByte(uint32_t before, uint32_t after, uint32_t mask)
{
    return static_cast<uint8_t>(before ^ ((before ^ after) & mask));
}

// A ternary code as a sum of products of its operands: c0 ^ c1 P ^ S (c2 ^ c3 P) ^ D (c4 ^ c5 P ^ S (c6 ^ c7 P)).
struct Coefficients {
    explicit Coefficients(uint8_t ternary)
    {
        // The factor of a product is the parity of the results for all inputs within the product.
        constexpr int source = 2, pattern = 4, destination = 1;
        constexpr int order[8] = {0,
                                  pattern,
                                  source,
                                  source | pattern,
                                  destination,
                                  destination | pattern,
                                  destination | source,
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
        return c[0] ^ (c[1] & p) ^ (s & (c[2] ^ (c[3] & p))) ^ (d & (c[4] ^ (c[5] & p) ^ (s & (c[6] ^ (c[7] & p)))));
    }

    uint32_t c[8];
};

// Rows of up to this many blocks are filled and copied by straight code for the number of their blocks.
constexpr size_t mostBlocks = 16;

bool isMedium(size_t length)
{
    return length >= blockSize && length <= mostBlocks * blockSize;
}

// Calls Rows::run with the number of blocks before the last one.
template <class Rows, size_t... blocks> ALWAYS_INLINE void runByBlocks(Rows rows, std::index_sequence<blocks...>)
{
    size_t wanted = (rows.length - 1) / blockSize;
    (void)((wanted == blocks && (rows.template run<blocks>(), true)) || ...);
}

struct FillOfBlocks {
    ByteRows rows;
    size_t length;
    int count;
    Word word;

    template <size_t blocks> ALWAYS_INLINE void run() const
    {
        Word last = repeated<Word>(word, length - blockSize);
        uint8_t *row = rows.bytes;
        for (int y = 0; y < count; ++y, row += rows.stride) {
#pragma GCC unroll 16
            for (size_t block = 0; block < blocks; ++block)
                for (size_t k = 0; k < blockSize; k += sizeof(Word))
                    store(row + block * blockSize + k, word);
            for (size_t k = 0; k < blockSize; k += sizeof(Word))
                store(row + length - blockSize + k, last);
        }
    }
};

struct CopyOfBlocks {
    ByteRows rows;
    ConstByteRows source;
    size_t length;
    int count;

    // The rows to come are asked for early: a processor does not foresee them when they begin on other pages.
    template <size_t blocks> ALWAYS_INLINE void run() const
    {
        constexpr int ahead = 4;
        uint8_t *row = rows.bytes;
        const uint8_t *from = source.bytes;
        for (int y = 0; y < count; ++y, row += rows.stride, from += source.stride) {
#pragma GCC unroll 16
            for (size_t block = 0; block <= blocks; ++block)
                __builtin_prefetch(from + ahead * source.stride + block * blockSize);
#pragma GCC unroll 16
            for (size_t block = 0; block < blocks; ++block)
                memcpy(row + block * blockSize, from + block * blockSize, blockSize);
            memcpy(row + length - blockSize, from + length - blockSize, blockSize);
        }
    }
};

} // namespace

WIN32_FOR_EACH_PROCESSOR
static void fillMediumRows(ByteRows rows, size_t length, int count, uint32_t word)
{
    runByBlocks(FillOfBlocks{rows, length, count, word}, std::make_index_sequence<mostBlocks>());
}

WIN32_FOR_EACH_PROCESSOR
static void fillOtherRows(ByteRows rows, size_t length, int count, uint32_t word)
{
    for (int y = 0; y < count; ++y)
        changeRow(rows.bytes + y * rows.stride, length, Fill{word});
}

// Fills words from an aligned address on.
static void fillLongRow(uint8_t *row, size_t words, uint32_t word)
{
#if defined(__x86_64__)
    // The processor's own way overwrites whole cache lines without reading them first, which wmemset cannot.
    constexpr size_t worthStarting = 4096;
    if (words >= worthStarting) {
        auto target = reinterpret_cast<uint64_t *>(row);
        size_t pairs = words / 2;
        asm volatile("rep stosq" : "+D"(target), "+c"(pairs) : "a"(uint64_t{word} << 32 | word) : "memory");
        row = reinterpret_cast<uint8_t *>(target);
        words %= 2;
    }
#endif
    static_assert(sizeof(wchar_t) == sizeof word);
    wmemset(reinterpret_cast<wchar_t *>(row), static_cast<wchar_t>(word), words);
}

void fillRows(ByteRows rows, size_t length, int count, uint32_t word)
{
    bool isAligned = (reinterpret_cast<uintptr_t>(rows.bytes) | static_cast<uintptr_t>(rows.stride)) % sizeof word == 0;
    if (isMedium(length))
        return fillMediumRows(rows, length, count, word);
    if (length < blockSize || !isAligned)
        return fillOtherRows(rows, length, count, word);
    for (int y = 0; y < count; ++y) {
        uint8_t *row = rows.bytes + y * rows.stride;
        fillLongRow(row, length / 4, word);
        memcpy(row + length / 4 * 4, &word, length % 4);
    }
}

WIN32_FOR_EACH_PROCESSOR
void fillLowBoxes(ByteRows surface, int pixelSize, const Box *boxes, size_t count, uint32_t word)
{
    for (const Box *box = boxes; box != boxes + count; ++box) {
        uint8_t *row = surface.bytes + box->y1 * surface.stride + ptrdiff_t{box->x1} * pixelSize;
        size_t length = static_cast<size_t>(box->x2 - box->x1) * static_cast<size_t>(pixelSize);
        for (int y = box->y1; y < box->y2; ++y, row += surface.stride)
            changeRow(row, length, Fill{word});
    }
}

WIN32_FOR_EACH_PROCESSOR
void andXorRows(ByteRows rows, size_t length, int count, uint32_t keep, uint32_t flip)
{
    for (int y = 0; y < count; ++y) {
        uint8_t *row = rows.bytes + y * rows.stride;
        changeRow(row, length, AndXor{row, keep, flip});
    }
}

WIN32_FOR_EACH_PROCESSOR
static void copyMediumRows(ByteRows rows, ConstByteRows source, size_t length, int count)
{
    runByBlocks(CopyOfBlocks{rows, source, length, count}, std::make_index_sequence<mostBlocks>());
}

void copyRows(ByteRows rows, ConstByteRows source, size_t length, int count)
{
    if (isMedium(length))
        return copyMediumRows(rows, source, length, count);
    // Rows that join without a gap, in both places; within one surface the whole may overlap then.
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
