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

ContextState::ContextState()
    : pen(stock::pen(BLACK_PEN)), brush(stock::brush(WHITE_BRUSH)), font(stock::font(SYSTEM_FONT)),
      palette(stock::defaultPalette())
{
}

DeviceContext::DeviceContext() : Object(objectType)
{
}

void DeviceContext::reset()
{
    ContextState fresh;
    std::swap(state, fresh);
    saved.clear();
    path = {};
    mappingChanged();
    clipChanged();
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
    isTranslation_ =
        s.mapMode == MM_TEXT || (s.windowExtent.cx == s.viewportExtent.cx && s.windowExtent.cy == s.viewportExtent.cy);
    offset_ = {wrappingDifference(s.viewportOrigin.x, s.windowOrigin.x),
               wrappingDifference(s.viewportOrigin.y, s.windowOrigin.y)};
    if (!wasTranslation || !isTranslation_)
        realizedStamp_ = 0;
}

// The factors are single-precision numbers, as in the published transform records: halves fall by them.
double DeviceContext::scaleX() const
{
    return static_cast<float>(double{1} * state.viewportExtent.cx / state.windowExtent.cx);
}

double DeviceContext::scaleY() const
{
    return static_cast<float>(double{1} * state.viewportExtent.cy / state.windowExtent.cy);
}

POINT DeviceContext::scaled(POINT logical) const
{
    const ContextState &s = state;
    return {roundedToInt((double{1} * logical.x - s.windowOrigin.x) * scaleX() + s.viewportOrigin.x),
            roundedToInt((double{1} * logical.y - s.windowOrigin.y) * scaleY() + s.viewportOrigin.y)};
}

POINT DeviceContext::toLogical(POINT device) const
{
    const ContextState &s = state;
    if (isTranslation_)
        return {wrappingDifference(device.x, offset_.x), wrappingDifference(device.y, offset_.y)};
    return {roundedToInt((double{1} * device.x - s.viewportOrigin.x) / scaleX() + s.windowOrigin.x),
            roundedToInt((double{1} * device.y - s.viewportOrigin.y) / scaleY() + s.windowOrigin.y)};
}

Box DeviceContext::toSurface(int left, int top, int right, int bottom) const
{
    POINT first = toSurface({left, top});
    POINT second = toSurface({right, bottom});
    return ordered({first.x, first.y, second.x, second.y});
}

int DeviceContext::deviceWidth(int logical) const
{
    double scale = isTranslation_ ? 1.0 : scaleX();
    return roundedToInt(std::fabs(logical * scale));
}

int DeviceContext::deviceHeight(int logical) const
{
    double scale = isTranslation_ ? 1.0 : scaleY();
    return roundedToInt(std::fabs(logical * scale));
}

// Whatever cannot be made for lack of memory leaves an empty clip: nothing is drawn where it must not be.
void DeviceContext::updateClip()
{
    isClipCurrent_ = true;
    if (state.isClipped) {
        pixman_region32_t &clip = clipOnSurface_.pixels;
        bool isMade = pixman_region32_copy(&clip, &state.clip.pixels) && translate(clip, origin.x, origin.y)
                      && pixman_region32_intersect(&clip, &clip, &visible.pixels);
        clipBoxes_ = isMade ? clipBoxesOf(clip) : ClipBoxes{};
    } else {
        clipBoxes_ = clipBoxesOf(visible.pixels);
    }
    constexpr int worthJoining = 16;
    if (clipBoxes_.count >= worthJoining)
        joinClipBoxes();
}

void DeviceContext::joinClipBoxes()
{
    try {
        joinBoxes(clipBoxes_, tallBoxes_);
        clipBoxes_.tallBoxes = tallBoxes_.data();
        clipBoxes_.tallCount = static_cast<int>(tallBoxes_.size());
    } catch (const std::bad_alloc &) {
        // Drawing goes on with the boxes as they are.
    }
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
    default: return color & rgbBits;
    }
}

BrushColors DeviceContext::brushColors(const Brush &brush) const
{
    return {plainColor(state.textColor), plainColor(state.backgroundColor), state.backgroundMode == OPAQUE,
            ownColorOf(brush)};
}

COLORREF DeviceContext::ownColorOf(const Brush &brush) const
{
    switch (brush.colorSource) {
    case ColorSource::ContextBrush: return plainColor(state.dcBrushColor);
    case ColorSource::ContextPen: return plainColor(state.dcPenColor);
    default: return plainColor(brush.color);
    }
}

bool DeviceContext::solidPaintOf(const Brush &brush, Paint &paint) const
{
    if (brush.style == BS_NULL) {
        paint = Paint{};
        return true;
    }
    if (brush.style != BS_SOLID)
        return false;
    COLORREF color = ownColorOf(brush);
    if (isDithered(surface, color))
        return false;
    paint = solidPaint(linePixelFor(surface, color, plainColor(state.backgroundColor)));
    return true;
}

Paint DeviceContext::penPaint()
{
    const Brush &brush = state.pen->brush;
    if (brush.style == BS_SOLID)
        return solidPaint(linePixelFor(surface, ownColorOf(brush), plainColor(state.backgroundColor)));
    return paintOf(brush, penTile_);
}

// A tile of one colour is laid as that colour, which takes less.
Paint DeviceContext::paintOf(const Tile &tile) const
{
    if (tile.isUniform)
        return solidPaint(tile.pixels.front());
    return {Paint::Kind::Tiled, 0, &tile, wrappingSum(origin.x, state.brushOrigin.x),
            wrappingSum(origin.y, state.brushOrigin.y)};
}

Paint DeviceContext::paintOf(const Brush &brush, Tile &scratch) const
{
    Paint paint;
    if (solidPaintOf(brush, paint))
        return paint;
    makeTile(brush, surface, brushColors(brush), scratch);
    return paintOf(scratch);
}

Paint DeviceContext::paintOf(const Brush &brush, CachedTile &cached)
{
    Paint paint;
    if (solidPaintOf(brush, paint))
        return paint;
    BrushColors colors = brushColors(brush);
    bool isCurrent = cached.brushStamp == brush.stamp && cached.tableStamp == stampOf(surface)
                     && cached.colors == colors && cached.format == surface.format;
    if (!isCurrent) {
        cached.brushStamp = 0; // making the tile may throw
        makeTile(brush, surface, colors, cached.tile);
        cached.brushStamp = brush.stamp;
        cached.format = surface.format;
        cached.tableStamp = stampOf(surface);
        cached.colors = colors;
    }
    return paintOf(cached.tile);
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
