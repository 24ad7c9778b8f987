// Only the pixels that take part in the copy are turned around, and back afterwards: in a large world a
// small copy costs little.
#include "CopyOrder_internal.h"

#include "CopyImages_internal.h"
#include "CopySettings_internal.h"
#include "PixelFormats_internal.h"
#include "PixelOrder_internal.h"

#include "Quickdraw/RowBytes_internal.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// A rectangle with a negative size reaches back from its position. What is turned around beyond the
// rectangle is turned back, so a pixel more on each side is no harm.
void span(LONG position, SInt16 size, SInt32 limit, LONG &first, LONG &end)
{
    first = std::max<LONG>(size < 0 ? position + size - 1 : position, 0);
    end = std::min<LONG>(size < 0 ? position + 1 : position + size, limit);
}

RECT areaOf(const PixMap &map, POINT corner, SInt16 width, SInt16 height)
{
    POINT origin = contextOrigin(map.pmDC);
    RECT area;
    span(corner.x - origin.x, width, map.pmWidth, area.left, area.right);
    span(corner.y - origin.y, height, std::abs(map.pmHeight), area.top, area.bottom);
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
    return {&source, kPixelFormatCustom, destination.pmMasks};
}

CopyOrder::CopyOrder(const Copy &copy)
{
    Change change = changeFor(copy);
    map_ = change.map;
    if (map_ && (map_->pixelSize != 32 || !map_->baseAddr || haveSameColors(masksOf(*map_), change.masks)))
        map_ = nullptr;
    if (!map_)
        return;
    area_ = map_ == &copy.source ? areaOf(*map_, copy.from, copy.sourceWidth, copy.sourceHeight)
                                 : areaOf(*map_, copy.to, copy.width, copy.height);
    formerFormat_ = map_->pmFormat;
    memcpy(formerMasks_, map_->pmMasks, sizeof formerMasks_);
    reverseArea();
    map_->pmFormat = change.format;
    memcpy(map_->pmMasks, change.masks, sizeof map_->pmMasks);
}

CopyOrder::~CopyOrder()
{
    if (!map_)
        return;
    GdiFlush();
    reverseArea();
    map_->pmFormat = formerFormat_;
    memcpy(map_->pmMasks, formerMasks_, sizeof map_->pmMasks);
}

void CopyOrder::reverseArea() const
{
    ptrdiff_t rowBytes = rowBytesOf(*map_);
    if (area_.left >= area_.right)
        return;
    auto count = static_cast<size_t>(area_.right - area_.left);
    for (LONG row = area_.top; row < area_.bottom; ++row)
        reversePixels(reinterpret_cast<UInt32 *>(map_->baseAddr + row * rowBytes) + area_.left, count);
}
