// Only the pixels that can be seen of the copy are turned around, and back afterwards: in a large world a
// small copy costs little, and so does a small update of a large window.
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

// What a copy comes to within the clip of its destination.
Copy visiblePart(const Copy &copy)
{
    Copy part = copy;
    RECT clip;
    if (copy.isStretched() || copy.width < 1 || !copy.hasRows() || GetClipBox(copy.destination.pmDC, &clip) == ERROR)
        return part;
    LONG left = std::max(copy.to.x, clip.left), right = std::min(copy.to.x + copy.width, clip.right);
    LONG top = std::max(copy.to.y, clip.top), bottom = std::min(copy.to.y + copy.height, clip.bottom);
    part.from = {copy.from.x + left - copy.to.x, copy.from.y + top - copy.to.y};
    part.to = {left, top};
    part.width = part.sourceWidth = static_cast<SInt16>(std::max<LONG>(right - left, 0));
    part.height = part.sourceHeight = static_cast<SInt16>(std::max<LONG>(bottom - top, 0));
    return part;
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
    Copy part = visiblePart(copy);
    area_ = map_ == &copy.source ? areaOf(rows_, map_->pmDC, part.from, part.sourceWidth, part.sourceHeight)
                                 : areaOf(rows_, map_->pmDC, part.to, part.width, part.height);
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
