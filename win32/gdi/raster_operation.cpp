#include "raster_operation.h"

#include "pixel_loops.h"

namespace win32::gdi {

RasterOperation::RasterOperation(const Surface &destination, DWORD ternaryCode, const Paint &paint)
    : destination_(destination), ternary_(truthTableOf(ternaryCode)), binary_(withoutPattern(ternary_))
{
    bool isPatternUsed = usesPattern(ternary_);
    isNothing_ = isPatternUsed ? paint.kind == Paint::Kind::Nothing : binary_ == BinaryCode::KeepDestination;
    if (isPatternUsed)
        pattern_.emplace(destination.format, paint);
}

void RasterOperation::apply(const Box &box, const uint8_t *source, ptrdiff_t sourceStride, RowOrder order)
{
    if (pattern_)
        return applyTernary(box, source, sourceStride, order);
    RowSpan span(destination_.format, box.x1, box.x2);
    int count = box.y2 - box.y1;
    if (order == RowOrder::TopDown)
        return applyBinary(span, destination_.row(box.y1) + span.first, destination_.stride, source, sourceStride,
                           count);
    applyBinary(span, destination_.row(box.y2 - 1) + span.first, -destination_.stride,
                source + (count - 1) * sourceStride, -sourceStride, count);
}

void RasterOperation::applyBinary(const RowSpan &span, uint8_t *row, ptrdiff_t stride, const uint8_t *source,
                                  ptrdiff_t sourceStride, int count)
{
    if (!span.isMasked)
        return combineRows({row, stride}, {source, sourceStride}, span.length, count, binary_);
    for (; count > 0; --count, row += stride, source += sourceStride) {
        SpanEdges edges(row, span);
        combineRows({row, 0}, {source, 0}, span.length, 1, binary_);
    }
}

void RasterOperation::applyTernary(const Box &box, const uint8_t *source, ptrdiff_t sourceStride, RowOrder order)
{
    size_t first = RowSpan(destination_.format, box.x1, box.x2).first;
    bool isSameForAllRows = pattern_->height() == 1;
    for (int x1 = box.x1, x2; x1 < box.x2; x1 = x2) {
        // Strips end where bytes do.
        x2 = box.x2 - x1 > pattern_->stripWidth() ? (x1 + pattern_->stripWidth()) & ~7 : box.x2;
        RowSpan span(destination_.format, x1, x2);
        for (int i = 0; i < box.y2 - box.y1; ++i) {
            int y = order == RowOrder::TopDown ? box.y1 + i : box.y2 - 1 - i;
            if (i == 0 || !isSameForAllRows)
                pattern_->build(y, x1, x2, span);
            applyTernaryRow(span, destination_.row(y) + span.first,
                            source + (y - box.y1) * sourceStride + (span.first - first));
        }
    }
}

void RasterOperation::applyTernaryRow(const RowSpan &span, uint8_t *row, const uint8_t *source) const
{
    SpanEdges edges(row, span);
    for (size_t at = 0; at < span.length; at += pattern_->length()) {
        size_t part = std::min(pattern_->length(), span.length - at);
        if (pattern_->hasHoles())
            combineRowMasked(row + at, source + at, pattern_->bytes(), pattern_->mask(), part, ternary_);
        else
            combineRow(row + at, source + at, pattern_->bytes(), part, ternary_);
    }
}

} // namespace win32::gdi
