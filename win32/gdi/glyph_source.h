// Where a realized font takes its glyphs and its measures from: the built-in font or a file's face.
#pragma once

#include "glyph.h"

namespace win32::gdi {

// Lengths are in pixels; descent and the depths count downwards from the baseline.
struct FontMetrics {
    int ascent = 0;
    int descent = 0;
    int internalLeading = 0;
    int externalLeading = 0;
    int averageWidth = 0;
    int maximalWidth = 0;
    int overhang = 0;
    int underlineTop = 1;
    int strikeoutTop = 0;
    int lineThickness = 1;
    int weight = 400;
    int unitsPerEm = 0;
    bool isItalic = false;
    bool isFixedPitch = false;
    bool isScalable = false;
    uint8_t family = 0; // FF_
};

// How a character stands: with its line, or on its back, in the text of a vertical face.
enum class Posture { WithLine, OnItsBack };

class GlyphSource {
public:
    virtual ~GlyphSource() = default;

    const FontMetrics &metrics() const { return metrics_; }
    // The picture of a character, or of the box for characters that nothing has. Throws bad_alloc.
    virtual GlyphImage load(char32_t character, Posture posture) = 0;
    // The same as an outline; false for a font that has pictures only. Throws bad_alloc.
    virtual bool loadOutline(char32_t, Posture, GlyphOutline &) { return false; }

protected:
    FontMetrics metrics_;
};

} // namespace win32::gdi
