#include "device_context.h"

#include "font_catalog.h"
#include "realized_font.h"

#include "stock_objects.h"

#include <cmath>

namespace win32::gdi {
namespace {

uint32_t stampOf(const Surface &surface)
{
    return surface.colors ? surface.colors->stamp : 0;
}

} // namespace

void RegionValue::copyFrom(const pixman_region32_t &region)
{
    if (!pixman_region32_copy(&pixels, const_cast<pixman_region32_t *>(&region)))
        throw std::bad_alloc();
}

DeviceContext::DeviceContext() : Object(objectType)
{
    state.pen.set(stock::pen(BLACK_PEN));
    state.brush.set(stock::brush(WHITE_BRUSH));
    state.font.set(stock::font(SYSTEM_FONT));
    state.palette.set(stock::defaultPalette());
}

DeviceContext::~DeviceContext()
{
    if (bitmap)
        letGo(*bitmap);
}

// The default bitmap may be in any number of contexts.
void DeviceContext::setBitmap(Bitmap &next)
{
    if (bitmap == &next)
        return;
    next.select();
    if (&next != defaultBitmap())
        next.context = this;
    if (bitmap)
        letGo(*bitmap);
    bitmap = &next;
    surface = next.surface;
    Box bounds = surface.box();
    pixman_region32_reset(&visible.pixels, &bounds);
    clipChanged();
}

void DeviceContext::letGo(Bitmap &old)
{
    old.context = nullptr;
    old.deselect();
}

void DeviceContext::mappingChanged()
{
    const ContextState &s = state;
    bool wasTranslation = isTranslation_;
    isTranslation_ = s.mapMode == MM_TEXT
                     || (s.windowExtent.cx == s.viewportExtent.cx && s.windowExtent.cy == s.viewportExtent.cy);
    offset_ = {wrappingDifference(s.viewportOrigin.x, s.windowOrigin.x),
               wrappingDifference(s.viewportOrigin.y, s.windowOrigin.y)};
    if (!wasTranslation || !isTranslation_)
        realizedStamp_ = 0;
}

POINT DeviceContext::scaled(POINT logical) const
{
    const ContextState &s = state;
    return {roundedToInt((double{1} * logical.x - s.windowOrigin.x) * s.viewportExtent.cx / s.windowExtent.cx
                         + s.viewportOrigin.x),
            roundedToInt((double{1} * logical.y - s.windowOrigin.y) * s.viewportExtent.cy / s.windowExtent.cy
                         + s.viewportOrigin.y)};
}

POINT DeviceContext::toLogical(POINT device) const
{
    const ContextState &s = state;
    if (isTranslation_)
        return {wrappingDifference(device.x, offset_.x), wrappingDifference(device.y, offset_.y)};
    return {roundedToInt((double{1} * device.x - s.viewportOrigin.x) * s.windowExtent.cx / s.viewportExtent.cx
                         + s.windowOrigin.x),
            roundedToInt((double{1} * device.y - s.viewportOrigin.y) * s.windowExtent.cy / s.viewportExtent.cy
                         + s.windowOrigin.y)};
}

Box DeviceContext::toSurface(int left, int top, int right, int bottom) const
{
    POINT first = toSurface({left, top});
    POINT second = toSurface({right, bottom});
    return ordered({first.x, first.y, second.x, second.y});
}

int DeviceContext::deviceWidth(int logical) const
{
    double scale = isTranslation_ ? 1.0 : double{1} * state.viewportExtent.cx / state.windowExtent.cx;
    return roundedToInt(std::fabs(logical * scale));
}

int DeviceContext::deviceHeight(int logical) const
{
    double scale = isTranslation_ ? 1.0 : double{1} * state.viewportExtent.cy / state.windowExtent.cy;
    return roundedToInt(std::fabs(logical * scale));
}

// Whatever cannot be made for lack of memory leaves an empty clip: nothing is drawn where it must not be.
void DeviceContext::updateClip()
{
    isClipCurrent_ = true;
    if (!state.isClipped) {
        clipBoxes_ = clipBoxesOf(visible.pixels);
        return;
    }
    pixman_region32_t &clip = clipOnSurface_.pixels;
    bool isMade = pixman_region32_copy(&clip, &state.clip.pixels) && translate(clip, origin.x, origin.y)
                  && pixman_region32_intersect(&clip, &clip, &visible.pixels);
    clipBoxes_ = isMade ? clipBoxesOf(clip) : ClipBoxes{};
}

COLORREF DeviceContext::plainColor(COLORREF color) const
{
    constexpr COLORREF rgbBits = 0xffffff;
    switch (color >> 24) {
    case 0x01: { // PALETTEINDEX
        const std::vector<PALETTEENTRY> &entries = state.palette->entries;
        size_t index = color & 0xffff;
        if (entries.empty())
            return 0;
        const PALETTEENTRY &entry = entries[index < entries.size() ? index : 0];
        return RGB(entry.peRed, entry.peGreen, entry.peBlue);
    }
    case 0x10: // DIBINDEX
        if ((color & 0xff0000) == 0xff0000 && surface.format.isIndexed())
            return colorOf(surface, color & 0xff);
        return color & rgbBits;
    default:
        return color & rgbBits;
    }
}

BrushColors DeviceContext::brushColors() const
{
    return {plainColor(state.textColor), plainColor(state.backgroundColor), state.backgroundMode == OPAQUE};
}

bool DeviceContext::solidPaintOf(const Brush &brush, Paint &paint) const
{
    if (brush.style == BS_NULL) {
        paint = Paint{};
        return true;
    }
    if (brush.style != BS_SOLID)
        return false;
    COLORREF color = brush.colorSource == ColorSource::Own            ? brush.color
                     : brush.colorSource == ColorSource::ContextBrush ? state.dcBrushColor
                                                                      : state.dcPenColor;
    paint = solidPaint(pixelFor(surface, plainColor(color)));
    return true;
}

Paint DeviceContext::paintOf(const Brush &brush, Tile &scratch) const
{
    Paint paint;
    if (solidPaintOf(brush, paint))
        return paint;
    makeTile(brush, surface, brushColors(), scratch);
    return {Paint::Kind::Tiled, 0, &scratch, wrappingSum(origin.x, state.brushOrigin.x),
            wrappingSum(origin.y, state.brushOrigin.y)};
}

Paint DeviceContext::paintOf(const Brush &brush, CachedTile &cached)
{
    Paint paint;
    if (solidPaintOf(brush, paint))
        return paint;
    BrushColors colors = brushColors();
    bool isCurrent = cached.brushStamp == brush.stamp && cached.tableStamp == stampOf(surface) && cached.colors == colors
                     && cached.format == surface.format;
    if (!isCurrent) {
        cached.brushStamp = 0; // making the tile may throw
        makeTile(brush, surface, colors, cached.tile);
        cached.brushStamp = brush.stamp;
        cached.format = surface.format;
        cached.tableStamp = stampOf(surface);
        cached.colors = colors;
    }
    return {Paint::Kind::Tiled, 0, &cached.tile, wrappingSum(origin.x, state.brushOrigin.x),
            wrappingSum(origin.y, state.brushOrigin.y)};
}

uint32_t DeviceContext::fontGeneration()
{
    return catalogGeneration.load(std::memory_order_relaxed);
}

void DeviceContext::realizeFont()
{
    uint32_t generation = fontGeneration();
    LOGFONTA description = state.font->description;
    if (!isTranslation_) {
        int height = deviceHeight(std::max<LONG>(description.lfHeight, -INT_MAX));
        if (description.lfHeight != 0)
            description.lfHeight = std::max(height, 1) * (description.lfHeight < 0 ? -1 : 1);
        if (description.lfWidth != 0)
            description.lfWidth = std::max(deviceWidth(std::max<LONG>(description.lfWidth, -INT_MAX)), 1);
    }
    realized_ = realize(description);
    realizedStamp_ = state.font->stamp;
    realizedGeneration_ = generation;
}

} // namespace win32::gdi
