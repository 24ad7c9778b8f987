// A font as it is drawn: glyphs and widths of one description at one size, made when they are first asked for.
#pragma once

#include "glyph_source.h"

#include "kernel/code_page_table.h"

#include <atomic>
#include <memory>
#include <string>

namespace win32::gdi {

// The direction of a text on its surface. Offsets along its base line and downwards from it become offsets to the
// right and downwards.
struct TextDirection {
    double cosine = 1;
    double sine = 0;

    bool isLevel() const { return sine == 0 && cosine == 1; }
    double x(double along, double down) const { return along * cosine + down * sine; }
    double y(double along, double down) const { return down * cosine - along * sine; }
};

// Of a description, counter-clockwise; the characters turn with their line.
TextDirection directionOf(const LOGFONTA &description);

// Characters have codes of 16 bits: the byte, or the lead byte with its trail byte; in UTF-8 the character.
class RealizedFont {
public:
    RealizedFont(const LOGFONTA &description, std::unique_ptr<GlyphSource> source, std::string faceName, int weight);
    ~RealizedFont();
    RealizedFont(const RealizedFont &) = delete;
    RealizedFont &operator=(const RealizedFont &) = delete;

    const LOGFONTA &description() const { return description_; }
    const FontMetrics &metrics() const { return source_->metrics(); }
    // Fonts of pictures are always level.
    const TextDirection &direction() const { return direction_; }
    int height() const { return metrics().ascent + metrics().descent; }
    // In the bytes of the active code page.
    const std::string &faceName() const { return faceName_; }
    int weight() const { return weight_; }
    BYTE charSet() const { return charSet_; }
    bool isSingleByte() const { return isSingleByte_; }

    // These may be called by several threads. Throw bad_alloc.
    int advance(uint16_t code)
    {
        if (code < 0x100) {
            int known = advances_[code].load(std::memory_order_relaxed);
            if (known >= 0)
                return known;
        }
        return glyph(code).advance;
    }
    const Glyph &glyph(uint16_t code)
    {
        if (Page *page = pages_[code >> 8].load(std::memory_order_acquire)) {
            if (const Glyph *known = page->glyphs[code & 0xff].load(std::memory_order_acquire))
                return *known;
        }
        return load(code);
    }

    // The edge of a character, for paths; false for a font that has pictures only.
    bool outline(uint16_t code, GlyphOutline &outline);

    // Takes one character off the front of a text that is not empty.
    uint16_t take(const uint8_t *&text, const uint8_t *end) const
    {
        return isSingleByte_ ? *text++ : takeLong(text, end);
    }

private:
    struct Page {
        std::atomic<const Glyph *> glyphs[256]{};
        ~Page();
    };

    const Glyph &load(uint16_t code);
    uint16_t takeLong(const uint8_t *&text, const uint8_t *end) const;
    char32_t characterOf(uint16_t code) const;
    Posture postureOf(uint16_t code) const;

    LOGFONTA description_;
    std::unique_ptr<GlyphSource> source_;
    TextDirection direction_;
    std::string faceName_;
    int weight_;
    bool isVertical_;
    BYTE charSet_;
    const CodePage *codePage_; // null for symbols, whose codes are their characters
    bool isSingleByte_;
    std::atomic<int> advances_[256]; // -1 for those not yet known
    std::atomic<Page *> pages_[256]{};
};

// The character set that a code page serves.
BYTE charSetOf(UINT codePage);

TEXTMETRICA textMetricsOf(const RealizedFont &font);

// The font of a description with sizes in pixels: a shared one, kept for the next who asks. Throws bad_alloc.
std::shared_ptr<RealizedFont> realize(const LOGFONTA &description);

} // namespace win32::gdi
