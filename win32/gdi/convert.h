// Pixels of one format as those of another.
#pragma once

#include "blit.h"
#include "convert_loops.h"

namespace win32::gdi {

// Pixels as words of the surface: a word that holds the pixel again and again, for all formats but 24 bits,
// where only grays repeat so.
uint32_t repeatedPixel(const PixelFormat &format, uint32_t pixel);
inline bool isGray(uint32_t pixel)
{
    return (pixel & 0xffffff) == (pixel & 0xff) * 0x010101;
}

// Writes pixels into a row from position x on; other pixels stay.
void packPixels(const PixelFormat &format, const uint32_t *pixels, int count, int x, uint8_t *row);
// The same with all bits of a pixel set where the coverage is not 0, and clear elsewhere.
void packCoverage(const PixelFormat &format, const uint8_t *coverage, int count, int x, uint8_t *row);

// Pixels of a row from position x on, as they are.
void unpackPixels(const PixelFormat &format, const uint8_t *row, int x, int count, uint32_t *pixels);

// The way from one surface's pixel numbers to another's, found once for a drawing.
class PixelConverter {
public:
    PixelConverter(const Surface &destination, const Surface &source, const BlitColors &colors);

    // Whether the bits can be copied as they are.
    bool isIdentity() const { return way_ == Way::Identity; }

    void convert(const uint8_t *row, int x, int count, uint32_t *pixels) const;

private:
    enum class Way : uint8_t { Identity, Table, ChangedChannels, AnyChannels, Nearest, IsBackground };

    void makeTable(const BlitColors &colors);
    void fillTable(const BlitColors &colors);
    Way directWay();
    void convertIndexed(const uint8_t *row, int x, int count, uint32_t *pixels) const;
    void convertRemembering(uint32_t *pixels, int count) const;

    const Surface &destination_;
    const Surface &source_;
    Way way_;
    ChannelChange change_ = ChannelChange::None;
    uint32_t background_ = 0; // pixel of the source that becomes 1 in a monochrome destination
    uint32_t channels_ = 0;   // bits of a source pixel that mean something
    uint32_t table_[256];
};

} // namespace win32::gdi
