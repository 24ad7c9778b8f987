// Rows of a paint as bytes of a surface, ready to be combined with the surface's own rows.
#pragma once

#include "paint.h"
#include "pixel_rows.h"
#include "raster_code.h"

namespace win32::gdi {

inline int floorModulo(int64_t value, int modulus)
{
    auto rest = static_cast<int>(value % modulus);
    return rest < 0 ? rest + modulus : rest;
}

// One row of a paint, built in place for a span of pixels. A paint that repeats soon is built for a part of
// the span and repeats from there; for one that does not, boxes are cut into strips of stripWidth().
class PatternRow {
public:
    PatternRow(const PixelFormat &format, const Paint &paint);

    int stripWidth() const { return stripWidth_; }
    // Rows whose distance is a multiple of this look the same.
    int height() const { return paint_.kind == Paint::Kind::Tiled ? paint_.tile->height : 1; }
    bool hasHoles() const { return paint_.kind == Paint::Kind::Tiled && !paint_.tile->coverage.empty(); }

    // Makes the row that the paint has at y, from x1 to x2.
    void build(int y, int x1, int x2, const RowSpan &span);

    const uint8_t *bytes() const { return bytes_; }
    // With holes: the bits that the paint covers.
    const uint8_t *mask() const { return mask_; }
    // Of what was built: the span, or whole periods of it.
    size_t length() const { return length_; }

    // Combines rows of a surface, from the first byte of the span on, with this row.
    void combineWith(uint8_t *row, ptrdiff_t stride, int count, const RowSpan &span, BinaryCode code) const;

private:
    static constexpr size_t room = 8192; // a row of a large screen

    void buildSolid(const RowSpan &span);
    void buildTile(int y, int x1, int x2, const RowSpan &span);
    void repeat(uint8_t *bytes, size_t period) const;

    const PixelFormat &format_;
    const Paint &paint_;
    int periodPixels_ = 0; // the least that is whole tiles and whole bytes; 0 when there is no room for it
    int stripWidth_ = INT32_MAX;
    size_t length_ = 0;
    alignas(32) uint8_t bytes_[room];
    alignas(32) uint8_t mask_[room];
};

} // namespace win32::gdi
