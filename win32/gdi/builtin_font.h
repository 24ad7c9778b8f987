// The font that every machine has: fixed, 8 by 13 pixels, with the characters of code page 1252.
#pragma once

#include "glyph_source.h"

#include <windows.h>

#include <memory>
#include <span>

namespace win32::gdi {

// The face name that selects it, whatever else is installed.
constexpr char builtinFaceName[] = "Builtin Fixed";

struct BuiltinMeasures {
    static constexpr int width = 8;
    static constexpr int ascent = 10;
    static constexpr int height = 13;
    static constexpr int internalLeading = 2;
};

// Sizes are whole multiples of the drawn one.
std::unique_ptr<GlyphSource> builtinSource(const LOGFONTA &description);

// Rows of a drawn character from the third row of its cell on; the leftmost pixel is the highest bit.
struct BuiltinDrawing {
    char16_t character;
    uint8_t rows[11];
};
// A letter with a mark above or below it.
struct BuiltinComposition {
    char16_t character;
    char16_t letter;
    uint8_t mark; // index of builtinMarks
};
struct BuiltinMark {
    int capitalRow; // row of the cell at which the mark begins, above capitals and above small letters
    int smallRow;
    uint8_t rows[3];
};
std::span<const BuiltinDrawing> builtinDrawings();         // sorted by character
std::span<const BuiltinComposition> builtinCompositions(); // sorted by character
const BuiltinMark &builtinMark(int index);

} // namespace win32::gdi
