// A ternary raster code with its paint, applied to rows that have a source.
#pragma once

#include "pattern_row.h"

#include <optional>

namespace win32::gdi {

enum class RowOrder : uint8_t { TopDown, BottomUp };

class RasterOperation {
public:
    // The paint outlives the operation.
    RasterOperation(const Surface &destination, DWORD ternaryCode, const Paint &paint);

    // Whether nothing changes, whatever the source.
    bool isNothing() const { return isNothing_; }
    // Whether the source replaces the destination.
    bool isCopy() const { return !pattern_ && binary_ == BinaryCode::CopySource; }

    // Changes a box of the destination. The source's rows have their pixels in the destination's format and
    // at the same bit positions within bytes; the first of them belongs to the top of the box. Rows are taken
    // in the order given; a source row never overlaps its destination row.
    void apply(const Box &box, const uint8_t *source, ptrdiff_t sourceStride, RowOrder order = RowOrder::TopDown);

private:
    void applyBinary(const RowSpan &span, uint8_t *row, ptrdiff_t stride, const uint8_t *source, ptrdiff_t sourceStride,
                     int count);
    void applyTernary(const Box &box, const uint8_t *source, ptrdiff_t sourceStride, RowOrder order);
    void applyTernaryRow(const RowSpan &span, uint8_t *row, const uint8_t *source) const;

    const Surface &destination_;
    uint8_t ternary_;
    BinaryCode binary_;
    bool isNothing_;
    std::optional<PatternRow> pattern_;
};

} // namespace win32::gdi
