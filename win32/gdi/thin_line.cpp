#include "thin_line.h"

#include "fill.h"
#include "raster_code.h"

#include <climits>
#include <cstdlib>

namespace win32::gdi {
namespace {

using Wide = __int128;

int64_t floorDivision(Wide number, int64_t divisor)
{
    Wide quotient = number / divisor;
    return static_cast<int64_t>(number % divisor < 0 ? quotient - 1 : quotient);
}

int64_t ceilDivision(Wide number, int64_t divisor)
{
    return -floorDivision(-number, divisor);
}

// The pixel whose diamond a point lies in, if any.
bool isInDiamond(FixedPoint point, int64_t &x, int64_t &y)
{
    x = floorDivision(Wide{point.x} + fixedOne / 2, fixedOne);
    y = floorDivision(Wide{point.y} + fixedOne / 2, fixedOne);
    return std::llabs(point.x - x * fixedOne) + std::llabs(point.y - y * fixedOne) < fixedOne / 2;
}

} // namespace

ThinLine::ThinLine(POINT from, POINT to)
{
    int64_t width = int64_t{to.x} - from.x;
    int64_t height = int64_t{to.y} - from.y;
    isSteep_ = std::llabs(height) > std::llabs(width);
    int64_t major = isSteep_ ? height : width;
    int64_t minor = isSteep_ ? width : height;
    majorStart_ = isSteep_ ? from.y : from.x;
    minorStart_ = isSteep_ ? from.x : from.y;
    majorStep_ = major < 0 ? -1 : 1;
    minorStep_ = minor < 0 ? -1 : 1;
    count_ = std::llabs(major);
    slope_ = 2 * std::llabs(minor);
    length_ = std::max<int64_t>(2 * count_, 1);
    // Half a pixel, less a trifle where a tie is to fall back.
    error_ = std::max<int64_t>(minor < 0 ? count_ : count_ - 1, 0);
}

ThinLine::ThinLine(FixedPoint from, FixedPoint to)
{
    int64_t width = int64_t{to.x} - from.x;
    int64_t height = int64_t{to.y} - from.y;
    isSteep_ = std::llabs(height) > std::llabs(width);
    int64_t major = isSteep_ ? height : width;
    int64_t minor = isSteep_ ? width : height;
    int64_t majorFrom = isSteep_ ? from.y : from.x;
    int64_t majorTo = isSteep_ ? to.y : to.x;
    int64_t minorFrom = isSteep_ ? from.x : from.y;
    majorStep_ = major < 0 ? -1 : 1;
    minorStep_ = minor < 0 ? -1 : 1;

    // Whole columns from the start, up to but without the end.
    int64_t first = majorStep_ > 0 ? ceilDivision(majorFrom, fixedOne) : floorDivision(majorFrom, fixedOne);
    int64_t end = majorStep_ > 0 ? ceilDivision(majorTo, fixedOne) : floorDivision(majorTo, fixedOne);
    int64_t x, y;
    if (isInDiamond(from, x, y))
        first = isSteep_ ? y : x;
    if (isInDiamond(to, x, y))
        end = isSteep_ ? y : x;
    majorStart_ = first;
    count_ = std::max<int64_t>((end - first) * majorStep_, 0);

    length_ = std::max<int64_t>(std::llabs(major), 1);
    slope_ = std::llabs(minor);
    // How far the start of the first column lies behind the segment's, in sixteenths.
    int64_t lead = (first * fixedOne - majorFrom) * majorStep_;
    Wide offset =
        minorStep_ > 0 ? Wide{minorFrom + fixedOne / 2} * length_ - 1 : Wide{fixedOne / 2 - minorFrom} * length_;
    Wide start = floorDivision(offset + Wide{lead} * slope_, fixedOne);
    int64_t steps = floorDivision(start, length_);
    minorStart_ = minorStep_ > 0 ? steps : -steps;
    error_ = static_cast<int64_t>(start - Wide{steps} * length_);
}

POINT ThinLine::pixel(int64_t index) const
{
    auto major = static_cast<int>(majorStart_ + index * majorStep_);
    auto minor = static_cast<int>(minorStart_ + static_cast<int64_t>(minorSteps(index)) * minorStep_);
    return isSteep_ ? POINT{minor, major} : POINT{major, minor};
}

Box ThinLine::bounds() const
{
    if (count_ == 0)
        return {};
    POINT a = pixel(0);
    POINT b = pixel(count_ - 1);
    Box box = ordered({static_cast<int>(a.x), static_cast<int>(a.y), static_cast<int>(b.x), static_cast<int>(b.y)});
    // No surface reaches to the last coordinate.
    box.x2 = std::min(box.x2, INT_MAX - 1) + 1;
    box.y2 = std::min(box.y2, INT_MAX - 1) + 1;
    return box;
}

int64_t ThinLine::bounded(Wide index) const
{
    return static_cast<int64_t>(std::clamp<Wide>(index, 0, count_));
}

// Cuts a range of pixels to those within a box.
void ThinLine::narrow(int64_t &first, int64_t &last, const Box &box) const
{
    int64_t majorLow = isSteep_ ? box.y1 : box.x1;
    int64_t majorHigh = (isSteep_ ? box.y2 : box.x2) - int64_t{1};
    int64_t minorLow = isSteep_ ? box.x1 : box.y1;
    int64_t minorHigh = (isSteep_ ? box.x2 : box.y2) - int64_t{1};
    first = std::max(first, majorStep_ > 0 ? majorLow - majorStart_ : majorStart_ - majorHigh);
    last = std::min(last, (majorStep_ > 0 ? majorHigh - majorStart_ : majorStart_ - majorLow) + 1);

    int64_t fewest = minorStep_ > 0 ? minorLow - minorStart_ : minorStart_ - minorHigh;
    int64_t most = minorStep_ > 0 ? minorHigh - minorStart_ : minorStart_ - minorLow;
    if (slope_ == 0) {
        if (fewest > 0 || most < 0)
            last = first;
        return;
    }
    if (fewest > 0)
        first = bounded(std::max<Wide>(first, (Wide{fewest} * length_ - error_ + slope_ - 1) / slope_));
    last = most < 0 ? first : bounded(std::min<Wide>(last, (Wide{most + 1} * length_ - error_ - 1) / slope_ + 1));
}

template <class Pixel, class Mix>
void ThinLine::plot(const Surface &surface, int64_t first, int64_t last, Mix mix) const
{
    POINT start = pixel(first);
    uint8_t *at = surface.row(start.y) + start.x * ptrdiff_t{sizeof(Pixel)};
    ptrdiff_t major = isSteep_ ? surface.stride : ptrdiff_t{sizeof(Pixel)};
    ptrdiff_t minor = isSteep_ ? ptrdiff_t{sizeof(Pixel)} : surface.stride;
    major *= majorStep_;
    minor *= minorStep_;
    int64_t error = errorAt(first);

    // In 32 fractional bits each step is rounded down; over so few pixels the half of the smallest possible
    // distance that is added at the start outweighs that, and the steps do not wait for each other.
    if ((last - first) <= (int64_t{1} << 31) / length_) {
        uint64_t fraction =
            ((static_cast<uint64_t>(error) << 32) + (uint64_t{1} << 31)) / static_cast<uint64_t>(length_);
        uint64_t step = (static_cast<uint64_t>(slope_) << 32) / static_cast<uint64_t>(length_);
        for (int64_t i = first; i < last; ++i, at += major, fraction += step)
            mix(*reinterpret_cast<Pixel *>(at + static_cast<ptrdiff_t>(fraction >> 32) * minor));
        return;
    }
    for (int64_t i = first; i < last; ++i, at += major) {
        mix(*reinterpret_cast<Pixel *>(at));
        error += slope_;
        if (error >= length_) {
            error -= length_;
            at += minor;
        }
    }
}

template <class Pixel>
void ThinLine::plotSolid(const Surface &surface, int64_t first, int64_t last, uint32_t value, int rop2) const
{
    auto paint = static_cast<Pixel>(value);
    if (rop2 == R2_COPYPEN) {
        plot<Pixel>(surface, first, last, [paint](Pixel &pixel) { pixel = paint; });
        return;
    }
    BinaryCode code = binaryCodeOf(rop2);
    auto flip = static_cast<Pixel>(evaluate<uint32_t>(code, value, 0));
    auto keep = static_cast<Pixel>(flip ^ evaluate<uint32_t>(code, value, ~0u));
    plot<Pixel>(surface, first, last,
                [keep, flip](Pixel &pixel) { pixel = static_cast<Pixel>((pixel & keep) ^ flip); });
}

// Pixels as runs along the major axis, for what has no loop of its own.
void ThinLine::fillRuns(const Surface &surface, int64_t first, int64_t last, const Paint &paint, int rop2) const
{
    constexpr size_t mostRuns = 64;
    Box runs[mostRuns];
    size_t count = 0;
    POINT start = pixel(first);
    int major = isSteep_ ? start.y : start.x;
    int minor = isSteep_ ? start.x : start.y;
    int64_t error = errorAt(first);
    while (first < last) {
        int64_t room = slope_ ? (length_ - error + slope_ - 1) / slope_ : last - first;
        auto pixels = static_cast<int>(std::min(room, last - first));
        int low = majorStep_ > 0 ? major : major - pixels + 1;
        runs[count++] = isSteep_ ? Box{minor, low, minor + 1, low + pixels} : Box{low, minor, low + pixels, minor + 1};
        if (count == mostRuns) {
            fillBoxes(surface, runs, count, paint, rop2);
            count = 0;
        }
        error += slope_ * pixels - length_;
        major += pixels * majorStep_;
        minor += minorStep_;
        first += pixels;
    }
    fillBoxes(surface, runs, count, paint, rop2);
}

void ThinLine::draw(const Surface &surface, int64_t first, int64_t last, const Paint &paint, int rop2) const
{
    // Pixels in a row are better filled as such.
    bool isSolid = paint.kind == Paint::Kind::Solid && (slope_ != 0 || isSteep_);
    switch (isSolid ? surface.format.bitsPerPixel : 0) {
    case 32: plotSolid<uint32_t>(surface, first, last, paint.pixel, rop2); break;
    case 16: plotSolid<uint16_t>(surface, first, last, paint.pixel, rop2); break;
    case 8: plotSolid<uint8_t>(surface, first, last, paint.pixel, rop2); break;
    default: fillRuns(surface, first, last, paint, rop2);
    }
}

} // namespace win32::gdi
