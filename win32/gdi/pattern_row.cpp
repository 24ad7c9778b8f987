#include "pattern_row.h"

#include "convert.h"
#include "pixel_loops.h"

#include <cstring>

namespace win32::gdi {

PatternRow::PatternRow(const PixelFormat &format, const Paint &paint) : format_(format), paint_(paint)
{
    if (paint.kind != Paint::Kind::Tiled)
        return;
    int64_t period = paint.tile->width;
    while (period * format.bitsPerPixel % 8)
        period *= 2;
    if (static_cast<size_t>(period * format.bitsPerPixel / 8) <= room)
        periodPixels_ = static_cast<int>(period);
    else
        // A strip may begin within a byte.
        stripWidth_ = static_cast<int>(room * 8 / format.bitsPerPixel) - 8;
}

void PatternRow::build(int y, int x1, int x2, const RowSpan &span)
{
    if (paint_.kind == Paint::Kind::Tiled)
        buildTile(y, x1, x2, span);
    else
        buildSolid(span);
}

void PatternRow::buildSolid(const RowSpan &span)
{
    constexpr size_t wholePixels = room / 12 * 12;
    length_ = std::min(span.length, wholePixels);
    if (format_.layout != PixelLayout::Bgr24) {
        fillRows({bytes_, 0}, length_, 1, repeatedPixel(format_, paint_.pixel));
        return;
    }
    uint32_t pixels[4] = {paint_.pixel, paint_.pixel, paint_.pixel, paint_.pixel};
    packPixels(format_, pixels, 4, 0, bytes_);
    repeat(bytes_, 12);
}

void PatternRow::buildTile(int y, int x1, int x2, const RowSpan &span)
{
    const Tile &tile = *paint_.tile;
    int pixelsPerByte = std::max(1, 8 / format_.bitsPerPixel);
    int start = x1 - x1 % pixelsPerByte;
    int64_t wanted = int64_t{x2} - start;
    int count = static_cast<int>(periodPixels_ ? std::min<int64_t>(wanted, periodPixels_) : wanted);
    size_t row = static_cast<size_t>(floorModulo(int64_t{y} - paint_.originY, tile.height)) * tile.width;
    int phase = floorModulo(int64_t{start} - paint_.originX, tile.width);

    for (int at = 0; at < count; phase = 0) {
        int run = std::min(tile.width - phase, count - at);
        packPixels(format_, &tile.pixels[row + phase], run, at, bytes_);
        if (hasHoles())
            packCoverage(format_, &tile.coverage[row + phase], run, at, mask_);
        at += run;
    }

    length_ = span.length;
    if (count == wanted)
        return;
    size_t period = static_cast<size_t>(periodPixels_) * format_.bitsPerPixel / 8;
    length_ = std::min(span.length, room / period * period);
    repeat(bytes_, period);
    if (hasHoles())
        repeat(mask_, period);
}

void PatternRow::repeat(uint8_t *bytes, size_t period) const
{
    for (size_t filled = period; filled < length_; filled *= 2)
        memcpy(bytes + filled, bytes, std::min(filled, length_ - filled));
}

void PatternRow::combineWith(uint8_t *row, ptrdiff_t stride, int count, const RowSpan &span, BinaryCode code) const
{
    if (span.isMasked || hasHoles()) {
        for (; count > 0; --count, row += stride) {
            SpanEdges edges(row, span);
            for (size_t at = 0; at < span.length; at += length_) {
                size_t part = std::min(length_, span.length - at);
                if (hasHoles())
                    combineRowMasked(row + at, bytes_, mask_, part, code);
                else
                    combineRows({row + at, 0}, {bytes_, 0}, part, 1, code);
            }
        }
        return;
    }
    for (size_t at = 0; at < span.length; at += length_)
        combineRows({row + at, stride}, {bytes_, 0}, std::min(length_, span.length - at), count, code);
}

} // namespace win32::gdi
