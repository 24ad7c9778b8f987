#include "fill.h"

#include "convert.h"
#include "pattern_row.h"
#include "pixel_loops.h"

namespace win32::gdi {

namespace {

// One pixel value through a raster code: what stays of a destination word, and what is turned over then.
struct SolidFill {
    SolidFill(const PixelFormat &format, uint32_t pixel, BinaryCode code)
    {
        uint32_t word = repeatedPixel(format, pixel);
        flip = evaluate<uint32_t>(code, word, 0);
        keep = flip ^ evaluate<uint32_t>(code, word, ~0u);
    }

    void apply(uint8_t *row, ptrdiff_t stride, size_t length, int count) const
    {
        if (keep == 0)
            fillRows({row, stride}, length, count, flip);
        else
            andXorRows({row, stride}, length, count, keep, flip);
    }

    uint32_t keep;
    uint32_t flip;
};

void fillSolidBox(const Surface &surface, const Box &box, const SolidFill &fill)
{
    RowSpan span(surface.format, box.x1, box.x2);
    uint8_t *row = surface.row(box.y1) + span.first;
    int count = box.y2 - box.y1;
    if (!span.isMasked) {
        // Rows that join without a gap are one long row, if words repeat evenly across the joints.
        if (surface.stride == static_cast<ptrdiff_t>(span.length) && span.length % 4 == 0)
            fill.apply(row, 0, span.length * static_cast<size_t>(count), 1);
        else
            fill.apply(row, surface.stride, span.length, count);
        return;
    }
    for (; count > 0; --count, row += surface.stride) {
        SpanEdges edges(row, span);
        fill.apply(row, 0, span.length, 1);
    }
}

// Boxes of a few pixels a row are many where lines and curves are drawn: for them the way to the loops for
// long rows would be longer than the work.
constexpr int narrow = 16;

bool isSmall(const Box &box)
{
    return std::max(box.x2 - box.x1, box.y2 - box.y1) <= narrow;
}

template <class Pixel> void fillNarrowBox(const Surface &surface, const Box &box, const SolidFill &fill)
{
    auto keep = static_cast<Pixel>(fill.keep);
    auto flip = static_cast<Pixel>(fill.flip);
    uint8_t *row = surface.row(box.y1);
    for (int y = box.y1; y < box.y2; ++y, row += surface.stride) {
        auto *pixels = reinterpret_cast<Pixel *>(row);
        for (int x = box.x1; x < box.x2 && keep == 0; ++x)
            pixels[x] = flip;
        for (int x = box.x1; x < box.x2 && keep != 0; ++x)
            pixels[x] = static_cast<Pixel>((pixels[x] & keep) ^ flip);
    }
}

template <class Pixel> void fillOneSolid(const Surface &surface, const Box &box, const SolidFill &fill)
{
    if (isSmall(box))
        fillNarrowBox<Pixel>(surface, box, fill);
    else
        fillSolidBox(surface, box, fill);
}

template <class Pixel, class EachBox> void fillEachSolid(const Surface &surface, const SolidFill &fill, EachBox eachBox)
{
    eachBox([&](const Box &box) { fillOneSolid<Pixel>(surface, box, fill); });
}

// All boxes of an array, as fillEach takes them.
struct BoxArray {
    const Box *boxes;
    size_t count;

    template <class Visit> void operator()(Visit visit) const
    {
        for (const Box *box = boxes; box != boxes + count; ++box)
            visit(*box);
    }
};

bool isLow(const Box &box)
{
    return box.y2 - box.y1 <= narrow && box.x2 - box.x1 > narrow;
}

// The rows of a round shape are an array of low boxes, which a single loop fills.
template <class Pixel> void fillEachSolid(const Surface &surface, const SolidFill &fill, BoxArray array)
{
    const Box *end = array.boxes + array.count;
    for (const Box *box = array.boxes; box != end;) {
        const Box *lowEnd = fill.keep == 0 ? std::find_if_not(box, end, isLow) : box;
        if (lowEnd == box) {
            fillOneSolid<Pixel>(surface, *box++, fill);
            continue;
        }
        fillLowBoxes({surface.bits, surface.stride}, sizeof(Pixel), box, static_cast<size_t>(lowEnd - box), fill.flip);
        box = lowEnd;
    }
}

// A binary code as sums of products: D = (D & (a P ^ b)) ^ (c P ^ d).
struct TileFill {
    explicit TileFill(BinaryCode code)
    {
        auto bit = [code](int index) { return -(static_cast<uint32_t>(code) >> index & 1); };
        flip = bit(0);
        flipByPen = bit(0) ^ bit(2);
        keep = bit(0) ^ bit(1);
        keepByPen = keep ^ bit(2) ^ bit(3);
    }

    uint32_t apply(uint32_t pen, uint32_t pixel) const
    {
        return (pixel & ((pen & keepByPen) ^ keep)) ^ (pen & flipByPen) ^ flip;
    }

    uint32_t keep, keepByPen, flip, flipByPen;
};

template <class Pixel>
void fillNarrowTile(const Surface &surface, const Box &box, const Paint &paint, const TileFill &fill)
{
    const Tile &tile = *paint.tile;
    int start = floorModulo(int64_t{box.x1} - paint.originX, tile.width);
    int tileRow = floorModulo(int64_t{box.y1} - paint.originY, tile.height);
    uint8_t *row = surface.row(box.y1);
    for (int y = box.y1; y < box.y2; ++y, row += surface.stride) {
        const uint32_t *pens = &tile.pixels[static_cast<size_t>(tileRow) * static_cast<size_t>(tile.width)];
        auto *pixels = reinterpret_cast<Pixel *>(row);
        for (int x = box.x1, column = start; x < box.x2; ++x) {
            pixels[x] = static_cast<Pixel>(fill.apply(pens[column], pixels[x]));
            column = column + 1 == tile.width ? 0 : column + 1;
        }
        tileRow = tileRow + 1 == tile.height ? 0 : tileRow + 1;
    }
}

void fillPatternBox(const Surface &surface, const Box &box, PatternRow &pattern, BinaryCode code)
{
    RowSpan span(surface.format, box.x1, box.x2);
    int height = pattern.height();
    for (int first = box.y1; first < box.y2 && first - box.y1 < height; ++first) {
        pattern.build(first, box.x1, box.x2, span);
        int count = (box.y2 - first - 1) / height + 1;
        pattern.combineWith(surface.row(first) + span.first, surface.stride * height, count, span, code);
    }
}

void fillStrips(const Surface &surface, Box box, PatternRow &pattern, BinaryCode code)
{
    int end = box.x2;
    for (; box.x1 < end; box.x1 = box.x2) {
        box.x2 = end - box.x1 > pattern.stripWidth() ? box.x1 + pattern.stripWidth() : end;
        fillPatternBox(surface, box, pattern, code);
    }
}

template <class EachBox>
void fillEachPattern(const Surface &surface, const Paint &paint, BinaryCode code, EachBox eachBox)
{
    PatternRow pattern(surface.format, paint);
    int bits = surface.format.bitsPerPixel;
    bool hasNarrowWay =
        paint.kind == Paint::Kind::Tiled && !pattern.hasHoles() && (bits == 8 || bits == 16 || bits == 32);
    TileFill fill(code);
    eachBox([&](const Box &box) {
        if (!hasNarrowWay || !isSmall(box))
            fillStrips(surface, box, pattern, code);
        else if (bits == 32)
            fillNarrowTile<uint32_t>(surface, box, paint, fill);
        else if (bits == 16)
            fillNarrowTile<uint16_t>(surface, box, paint, fill);
        else
            fillNarrowTile<uint8_t>(surface, box, paint, fill);
    });
}

// Calls fill(Box) with each box once the way of filling is chosen.
template <class EachBox> void fillEach(const Surface &surface, const Paint &paint, int rop2, EachBox eachBox)
{
    BinaryCode code = binaryCodeOf(rop2);
    if (paint.kind == Paint::Kind::Nothing || code == BinaryCode::KeepDestination)
        return;
    bool isTiled = paint.kind == Paint::Kind::Tiled;
    // A code that takes no notice of the paint needs no pattern but for its holes.
    if (isTiled && paint.tile->coverage.empty() && !usesSource(static_cast<uint8_t>(code)))
        isTiled = false;
    if (isTiled || (surface.format.layout == PixelLayout::Bgr24 && !isGray(paint.pixel)))
        return fillEachPattern(surface, paint, code, eachBox);
    SolidFill fill(surface.format, paint.pixel, code);
    switch (surface.format.bitsPerPixel) {
    case 32: return fillEachSolid<uint32_t>(surface, fill, eachBox);
    case 16: return fillEachSolid<uint16_t>(surface, fill, eachBox);
    case 8: return fillEachSolid<uint8_t>(surface, fill, eachBox);
    default: eachBox([&](const Box &box) { fillSolidBox(surface, box, fill); });
    }
}

} // namespace

void fillBoxes(const Surface &surface, const Box *boxes, size_t count, const Paint &paint, int rop2)
{
    fillEach(surface, paint, rop2, BoxArray{boxes, count});
}

void fillClipped(const Surface &surface, const ClipBoxes &clip, const Box &box, const Paint &paint, int rop2)
{
    fillEach(surface, paint, rop2, [&clip, &box](auto fill) { eachVisibleInAnyOrder(clip, box, fill); });
}

void fillManyClipped(const Surface &surface, const ClipBoxes &clip, std::span<const Box> boxes, const Paint &paint,
                     int rop2)
{
    fillEach(surface, paint, rop2, [&clip, boxes](auto fill) {
        for (const Box &box : boxes)
            eachVisible(clip, box, fill);
    });
}

int rop2Of(DWORD ternaryCode)
{
    uint8_t table = truthTableOf(ternaryCode);
    return usesSource(table) ? 0 : static_cast<int>(withoutSource(table)) + 1;
}

} // namespace win32::gdi
