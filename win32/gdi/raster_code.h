// Raster codes as truth tables. Bit P*4 + S*2 + D of a ternary code, bit S*2 + D of a binary one, tells
// what becomes of a destination bit D under a source bit S and a pattern bit P.
#pragma once

#include <windows.h>

#include <cstdint>

namespace win32::gdi {

inline uint8_t truthTableOf(DWORD ternaryCode)
{
    return static_cast<uint8_t>(ternaryCode >> 16);
}

inline bool usesPattern(uint8_t ternary)
{
    return (ternary >> 4) != (ternary & 0x0f);
}

inline bool usesSource(uint8_t ternary)
{
    return (ternary >> 2 & 0x33) != (ternary & 0x33);
}

inline bool usesDestination(uint8_t ternary)
{
    return (ternary >> 1 & 0x55) != (ternary & 0x55);
}

// The codes of two operands by name, for those that have ways of their own. An R2_ code less one is such a
// code, with the pen as the source.
enum class BinaryCode : uint8_t { Black = 0, InvertDestination = 5, KeepDestination = 10, CopySource = 12, White = 15 };

inline BinaryCode binaryCodeOf(int rop2)
{
    return static_cast<BinaryCode>((rop2 - 1) & 15);
}

// Of a ternary code that uses no pattern.
inline BinaryCode withoutPattern(uint8_t ternary)
{
    return static_cast<BinaryCode>(ternary & 15);
}

// Of a ternary code that uses no source: the pattern takes its place.
inline BinaryCode withoutSource(uint8_t ternary)
{
    return static_cast<BinaryCode>((ternary & 3) | (ternary >> 2 & 12));
}

// Applies a code to all bits of words.
template <class Word> constexpr Word evaluate(BinaryCode code, Word source, Word destination)
{
    auto bit = [code](int index) { return static_cast<Word>(-(static_cast<int>(code) >> index & 1)); };
    return static_cast<Word>((bit(0) & ~source & ~destination) | (bit(1) & ~source & destination)
                             | (bit(2) & source & ~destination) | (bit(3) & source & destination));
}

} // namespace win32::gdi
