// Moves with stretching or mirroring.
#include "stretched_rows.h"

#include <cstring>

namespace win32::gdi {

namespace {

Merge mergeOf(int stretchMode, const BlitJob &job)
{
    if (!job.x.isShrunk() && !job.y.isShrunk())
        return Merge::PickOne;
    switch (stretchMode) {
    case BLACKONWHITE: return Merge::And;
    case WHITEONBLACK: return Merge::Or;
    case HALFTONE: return Merge::Average;
    default: return Merge::PickOne;
    }
}

// Without a clip rows are made where they belong, and equal ones are copied.
void copyWhole(const BlitJob &job, const Box &box, const SourceRanges &rows, StretchedRows &stretched)
{
    RowSpan span(job.destination.format, box.x1, box.x2);
    SourceRange last;
    for (int y = box.y1; y < box.y2; ++y) {
        uint8_t *row = job.destination.row(y) + span.first;
        SourceRange range = rows.at(y);
        if (range == last)
            memcpy(row, row - job.destination.stride, span.length);
        else
            stretched.make(range, row);
        last = range;
    }
}

void applyToPieces(const BlitJob &job, const Box &box, const SourceRanges &rows, StretchedRows &stretched)
{
    size_t origin = RowSpan(job.destination.format, box.x1, box.x2).first;
    std::vector<uint8_t> bytes(RowSpan(job.destination.format, box.x1, box.x2).length);
    SourceRange last;
    eachBand(job.clip, box, [&](const Box *first, const Box *end) {
        for (int y = std::max(first->y1, box.y1); y < std::min(first->y2, box.y2); ++y) {
            if (SourceRange range = rows.at(y); range != last) {
                stretched.make(range, bytes.data());
                last = range;
            }
            for (const Box *piece = first; piece != end; ++piece) {
                Box visible{std::max(piece->x1, box.x1), y, std::min(piece->x2, box.x2), y + 1};
                if (visible.x1 < visible.x2)
                    job.operation.apply(
                        visible, &bytes[RowSpan(job.destination.format, visible.x1, visible.x2).first - origin], 0);
            }
        }
    });
}

} // namespace

void blitStretched(const BlitJob &job, int stretchMode)
{
    Merge merge = mergeOf(stretchMode, job);
    SourceRanges columns(job.x, merge, SourceRanges::Pick::Last, job.source.width);
    SourceRanges rows(job.y, merge, SourceRanges::Pick::First, job.source.height);
    Box box = intersected(job.destination.box(), job.clip.extents);
    columns.cut(box.x1, box.x2);
    rows.cut(box.y1, box.y2);
    if (isEmpty(box))
        return;
    StretchedRows stretched(job, columns, box, merge);
    if (job.operation.isCopy() && job.clip.count == 1 && job.destination.format.bitsPerPixel >= 8)
        copyWhole(job, box, rows, stretched);
    else
        applyToPieces(job, box, rows, stretched);
}

} // namespace win32::gdi
