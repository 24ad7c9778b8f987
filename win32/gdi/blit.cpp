#include "blit_internal.h"

#include "fill.h"
#include "kernel/kernel_internal.h"

#include <cstring>
#include <functional>
#include <optional>
#include <vector>

namespace win32::gdi {

namespace {

// From the first to behind the last byte of a surface.
std::pair<const uint8_t *, const uint8_t *> bytesOf(const Surface &surface)
{
    const uint8_t *top = surface.row(0);
    const uint8_t *bottom = surface.row(surface.height - 1);
    size_t length = RowSpan(surface.format, 0, surface.width).length;
    return surface.stride < 0 ? std::pair{bottom, top + length} : std::pair{top, bottom + length};
}

bool shareMemory(const Surface &a, const Surface &b)
{
    auto [beginOfA, endOfA] = bytesOf(a);
    auto [beginOfB, endOfB] = bytesOf(b);
    std::less<> isBefore; // also for pointers into different objects
    return isBefore(beginOfA, endOfB) && isBefore(beginOfB, endOfA);
}

bool haveSameRows(const Surface &a, const Surface &b)
{
    return a.bits == b.bits && a.stride == b.stride && a.format == b.format && a.colors == b.colors;
}

// A copy of a box of a surface. Its left side is moved to the start of a byte.
struct Snapshot {
    Snapshot(const Surface &original, const Box &box) : x(box.x1 & ~7), y(box.y1), surface(original)
    {
        RowSpan span(original.format, x, box.x2);
        surface.width = box.x2 - x;
        surface.height = box.y2 - box.y1;
        bytes.resize(span.length * static_cast<size_t>(surface.height));
        surface.bits = bytes.data();
        surface.stride = static_cast<ptrdiff_t>(span.length);
        for (int row = 0; row < surface.height; ++row)
            memcpy(surface.row(row), original.row(y + row) + span.first, span.length);
    }

    int x;
    int y;
    Surface surface;
    std::vector<uint8_t> bytes;
};

void blitBetween(const BlitJob &job, int stretchMode)
{
    if (job.x.isPlain() && job.y.isPlain())
        blitPlain(job, false);
    else
        blitStretched(job, stretchMode);
}

void blitFromSnapshot(const BlitJob &job, int stretchMode)
{
    Box used = cutTo(job.source.box(), job.x.sourceBegin(), job.y.sourceBegin(), job.x.sourceEnd(), job.y.sourceEnd());
    if (isEmpty(used))
        return;
    Snapshot snapshot(job.source, used);
    BlitJob moved{job.destination, job.clip, snapshot.surface, job.colors, job.operation, job.x, job.y};
    moved.x.moveSource(-int64_t{snapshot.x});
    moved.y.moveSource(-int64_t{snapshot.y});
    blitBetween(moved, stretchMode);
}

void run(const BlitJob &job, int stretchMode)
{
    if (job.operation.isNothing() || isEmpty(job.source.box()) || isEmpty(job.clip.extents))
        return;
    if (!shareMemory(job.destination, job.source))
        return blitBetween(job, stretchMode);
    if (haveSameRows(job.destination, job.source) && job.x.isPlain() && job.y.isPlain())
        return blitPlain(job, true);
    blitFromSnapshot(job, stretchMode);
}

} // namespace

bool blit(const Surface &destination, const ClipBoxes &clip, const BlitGeometry &geometry, const Surface &source,
          const BlitColors &colors, DWORD ternaryCode, const Paint &paint, int stretchMode)
{
    const BlitGeometry &g = geometry;
    if (g.width == 0 || g.height == 0 || g.sourceWidth == 0 || g.sourceHeight == 0)
        return true;
    StretchAxis x(g.x, g.width, g.sourceX, g.sourceWidth);
    StretchAxis y(g.y, g.height, g.sourceY, g.sourceHeight);
    if (int rop2 = rop2Of(ternaryCode)) {
        fillClipped(destination, clip, cutTo(destination.box(), x.begin(), y.begin(), x.end(), y.end()), paint, rop2);
        return true;
    }
    return guarded(false, [&] {
        RasterOperation operation(destination, ternaryCode, paint);
        run({destination, clip, source, colors, operation, x, y}, stretchMode);
        return true;
    });
}

} // namespace win32::gdi
