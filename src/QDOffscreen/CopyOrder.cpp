// Only the pixels that take part in the copy are turned around, and back afterwards: in a large world a
// small copy costs little.
#include "CopyOrder_internal.h"

#include "CopyImages_internal.h"
#include "CopySettings_internal.h"
#include "PixelOrder_internal.h"

#include <algorithm>

namespace {

// A rectangle with a negative size reaches back from its position. What is turned around beyond the
// rectangle is turned back, so a pixel more on each side is no harm.
void span(LONG position, SInt16 size, SInt32 limit, LONG &first, LONG &end)
{
    first = std::max<LONG>(size < 0 ? position + size - 1 : position, 0);
    end = std::min<LONG>(size < 0 ? position + 1 : position + size, limit);
}

RECT areaOf(const PixelRows &rows, HDC context, POINT corner, SInt16 width, SInt16 height)
{
    POINT origin = contextOrigin(context);
    RECT area;
    span(corner.x - origin.x, width, rows.width, area.left, area.right);
    span(corner.y - origin.y, height, rows.height, area.top, area.bottom);
    return area;
}

} // namespace

CopyOrder::Change CopyOrder::changeFor(const Copy &copy)
{
    PixMap &source = copy.source, &destination = copy.destination;
    if (copySettings.useBitfieldsIfPossible || source.pixelSize != 32 || source.pmFormat == destination.pmFormat)
        return {};
    if (source.pmFormat == kPixelFormatMasks)
        return {&source, kPixelFormatNative, kNativeMasks};
    if (destination.pmFormat != kPixelFormatMasks)
        return {};
    if (source.pmFormat == kPixelFormatNative)
        return {&destination, kPixelFormatNative, kNativeMasks};
    return {&source, kPixelFormatCustom, readMasks(destination.pmMasks)};
}

CopyOrder::CopyOrder(const Copy &copy)
{
    Change change = changeFor(copy);
    map_ = change.map;
    if (!map_)
        return;
    if (!isReversible(change.masks)) {
        map_ = nullptr;
        return;
    }
    area_ = map_ == &copy.source ? areaOf(rows_, map_->pmDC, copy.from, copy.sourceWidth, copy.sourceHeight)
                                 : areaOf(rows_, map_->pmDC, copy.to, copy.width, copy.height);
    formerFormat_ = map_->pmFormat;
    formerMasks_ = readMasks(map_->pmMasks);
    reverseArea();
    setFormat(*map_, change.format, change.masks);
}

CopyOrder::~CopyOrder()
{
    if (!map_)
        return;
    GdiFlush();
    reverseArea();
    setFormat(*map_, formerFormat_, formerMasks_);
}

bool CopyOrder::isReversible(const ChannelMasks &masks)
{
    return map_->pixelSize == 32 && readPixelRows(*map_, rows_) && rows_.depth == 32
           && !haveSameColors(masksOf(*map_), masks);
}

void CopyOrder::reverseArea() const
{
    ptrdiff_t rowBytes = rows_.rowBytes;
    if (area_.left >= area_.right)
        return;
    auto count = static_cast<size_t>(area_.right - area_.left);
    for (LONG row = area_.top; row < area_.bottom; ++row)
        reversePixels(reinterpret_cast<UInt32 *>(rows_.base + row * rowBytes) + area_.left, count);
}
