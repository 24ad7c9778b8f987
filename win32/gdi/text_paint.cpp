#include "text_paint.h"

#include "pixel_codec.h"

#include <cstring>

namespace win32::gdi {
namespace {

// Ways to write pixels of a row, one for each size. A blend takes coverages of 0 to 255.
template <class Word> struct WordWriter {
    Word pixel;
    explicit WordWriter(uint32_t value) : pixel(static_cast<Word>(value)) {}

    void fill(uint8_t *row, int x, int length) const
    {
        Word *place = reinterpret_cast<Word *>(row) + x;
        do
            *place++ = pixel;
        while (--length > 0);
    }
};

struct Bgr24Writer {
    uint8_t bytes[3];
    explicit Bgr24Writer(uint32_t value)
        : bytes{static_cast<uint8_t>(value), static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value >> 16)}
    {
    }

    void fill(uint8_t *row, int x, int length) const
    {
        for (uint8_t *place = row + ptrdiff_t{x} * 3; length > 0; --length, place += 3)
            memcpy(place, bytes, 3);
    }
};

struct Index4Writer {
    uint8_t byte; // the pixel in both halves
    explicit Index4Writer(uint32_t value) : byte(static_cast<uint8_t>((value & 15) * 0x11)) {}

    void fill(uint8_t *row, int x, int length) const
    {
        for (int end = x + length; x < end; ++x) {
            uint8_t mask = x & 1 ? 0x0f : 0xf0;
            row[x >> 1] = static_cast<uint8_t>((row[x >> 1] & ~mask) | (byte & mask));
        }
    }
};

struct Index1Writer {
    uint8_t byte; // the pixel in all bits
    explicit Index1Writer(uint32_t value) : byte(value & 1 ? 0xff : 0) {}

    void fill(uint8_t *row, int x, int length) const
    {
        int end = x + length;
        int first = x >> 3, last = (end - 1) >> 3;
        int firstMask = 0xff >> (x & 7), lastMask = 0xff << (-end & 7) & 0xff;
        if (first == last) {
            put(row[first], firstMask & lastMask);
            return;
        }
        put(row[first], firstMask);
        memset(row + first + 1, byte, static_cast<size_t>(last - first - 1));
        put(row[last], lastMask);
    }
    void put(uint8_t &place, int mask) const { place = static_cast<uint8_t>((place & ~mask) | (byte & mask)); }
};

template <class Writer> void drawWhole(const Surface &surface, const PlacedGlyph &placed, const Writer &writer)
{
    for (const GlyphRun &run : placed.glyph->runs)
        writer.fill(surface.row(placed.y + run.y), placed.x + run.x, run.length);
}

template <class Writer>
void drawClipped(const Surface &surface, const Box &piece, const PlacedGlyph &placed, const Writer &writer)
{
    for (const GlyphRun &run : placed.glyph->runs) {
        int y = placed.y + run.y;
        int from = std::max(placed.x + run.x, piece.x1);
        int to = std::min(placed.x + run.x + run.length, piece.x2);
        if (y >= piece.y1 && y < piece.y2 && from < to)
            writer.fill(surface.row(y), from, to - from);
    }
}

// A pixel's three colours with room above each, to be weighted by one multiplication.
inline uint64_t spread(uint32_t pixel)
{
    return (pixel & 0xff00ff) | static_cast<uint64_t>(pixel & 0xff00) << 24;
}

// A coverage of 255 gives the colour itself, and one of 0 what was there.
inline uint32_t mixed(uint32_t from, uint64_t spreadTo, uint32_t coverage)
{
    uint64_t spreadFrom = spread(from);
    uint64_t weight = coverage + (coverage >> 7);
    uint64_t sum = (spreadFrom << 8) + (spreadTo - spreadFrom) * weight;
    return static_cast<uint32_t>((sum >> 8 & 0xff00ff) | (sum >> 32 & 0xff00));
}

struct XrgbBlender {
    uint64_t spreadPixel;

    void mix(uint8_t *row, int x, uint32_t coverage) const
    {
        uint32_t &place = reinterpret_cast<uint32_t *>(row)[x];
        place = mixed(place, spreadPixel, coverage);
    }
};

struct Bgr24Blender {
    uint64_t spreadPixel;

    void mix(uint8_t *row, int x, uint32_t coverage) const
    {
        uint8_t *place = row + ptrdiff_t{x} * 3;
        uint32_t before = 0;
        memcpy(&before, place, 3);
        uint32_t result = mixed(before, spreadPixel, coverage);
        memcpy(place, &result, 3);
    }
};

template <class Word> struct ChannelBlender {
    ColorCodec codec;
    uint64_t spreadColor;

    void mix(uint8_t *row, int x, uint32_t coverage) const
    {
        Word &place = reinterpret_cast<Word *>(row)[x];
        place = static_cast<Word>(codec.encode(mixed(codec.decode(place), spreadColor, coverage)));
    }
};

// Where colours cannot be mixed: what is covered by half is drawn.
template <class Writer> struct HardEdges {
    Writer writer;

    void mix(uint8_t *row, int x, uint32_t coverage) const
    {
        if (coverage >= 128)
            writer.fill(row, x, 1);
    }
};

template <class Blender>
void blend(const Surface &surface, const Box &piece, const PlacedGlyph &placed, const Blender &blender)
{
    Box all = placed.box();
    Box seen = intersected(all, piece);
    if (isEmpty(seen))
        return;
    int width = all.x2 - all.x1;
    for (int y = seen.y1; y < seen.y2; ++y) {
        uint8_t *row = surface.row(y);
        const uint8_t *coverage = placed.glyph->coverage.data() + ptrdiff_t{y - all.y1} * width - all.x1;
        // Without a test for what is not covered: its outcome could not be foreseen.
        for (int x = seen.x1; x < seen.x2; ++x)
            blender.mix(row, x, coverage[x]);
    }
}

template <class Writer, class Blender>
void paintPiece(const Surface &surface, const Box &piece, std::span<const PlacedGlyph> glyphs, const Writer &writer,
                const Blender &blender)
{
    for (const PlacedGlyph &placed : glyphs) {
        if (placed.glyph->isSmooth())
            blend(surface, piece, placed, blender);
        else if (contains(piece, placed.box()))
            drawWhole(surface, placed, writer);
        else
            drawClipped(surface, piece, placed, writer);
    }
}

template <class Writer>
void paintIndexed(const Surface &surface, const Box &piece, std::span<const PlacedGlyph> glyphs, uint32_t pixel)
{
    Writer writer(pixel);
    paintPiece(surface, piece, glyphs, writer, HardEdges<Writer>{writer});
}

void paintPiece(const Surface &surface, const Box &piece, std::span<const PlacedGlyph> glyphs, uint32_t pixel,
                COLORREF color)
{
    switch (surface.format.layout) {
    case PixelLayout::Index1: return paintIndexed<Index1Writer>(surface, piece, glyphs, pixel);
    case PixelLayout::Index4: return paintIndexed<Index4Writer>(surface, piece, glyphs, pixel);
    case PixelLayout::Index8: return paintIndexed<WordWriter<uint8_t>>(surface, piece, glyphs, pixel);
    case PixelLayout::Direct16:
        return paintPiece(surface, piece, glyphs, WordWriter<uint16_t>(pixel),
                          ChannelBlender<uint16_t>{ColorCodec(surface.format), spread(color)});
    case PixelLayout::Bgr24: return paintPiece(surface, piece, glyphs, Bgr24Writer(pixel), Bgr24Blender{spread(pixel)});
    case PixelLayout::Direct32:
        if (surface.format.isXrgb32())
            return paintPiece(surface, piece, glyphs, WordWriter<uint32_t>(pixel), XrgbBlender{spread(pixel)});
        return paintPiece(surface, piece, glyphs, WordWriter<uint32_t>(pixel),
                          ChannelBlender<uint32_t>{ColorCodec(surface.format), spread(color)});
    }
}

} // namespace

void paintGlyphs(const Surface &surface, const ClipBoxes &clip, const Box &within, std::span<const PlacedGlyph> glyphs,
                 uint32_t pixel, COLORREF color)
{
    eachVisible(clip, within, [&](const Box &piece) { paintPiece(surface, piece, glyphs, pixel, color); });
}

} // namespace win32::gdi
