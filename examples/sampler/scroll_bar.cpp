// Scroll bars in QuickDraw.
#include "sampler.h"

#include <algorithm>

namespace {

enum class Part { None, Up, Down, PageUp, PageDown, Thumb };

constexpr SInt16 line = 16;

// Along the bar's own direction.
struct Extent {
    SInt16 begin, end;
};

Extent extentOf(const ScrollBar &bar, const Rect &rect)
{
    return bar.isVertical ? Extent{rect.top, rect.bottom} : Extent{rect.left, rect.right};
}

Rect slice(const ScrollBar &bar, int begin, int end)
{
    Rect part = bar.box;
    (bar.isVertical ? part.top : part.left) = static_cast<SInt16>(begin);
    (bar.isVertical ? part.bottom : part.right) = static_cast<SInt16>(end);
    return part;
}

Rect upArrow(const ScrollBar &bar)
{
    SInt16 begin = extentOf(bar, bar.box).begin;
    return slice(bar, begin, begin + scrollBarWidth);
}

Rect downArrow(const ScrollBar &bar)
{
    SInt16 end = extentOf(bar, bar.box).end;
    return slice(bar, end - scrollBarWidth, end);
}

Extent trackOf(const ScrollBar &bar)
{
    Extent whole = extentOf(bar, bar.box);
    return {static_cast<SInt16>(whole.begin + scrollBarWidth - 1), static_cast<SInt16>(whole.end - scrollBarWidth + 1)};
}

int thumbLength(const ScrollBar &bar)
{
    Extent track = trackOf(bar);
    int length = track.end - track.begin;
    return std::clamp(length * bar.page / std::max(bar.page + bar.most, 1), std::min<int>(scrollBarWidth, length),
                      length);
}

Rect thumbOf(const ScrollBar &bar)
{
    Extent track = trackOf(bar);
    int length = thumbLength(bar), room = track.end - track.begin - length;
    int begin = track.begin + (bar.most > 0 ? room * bar.value / bar.most : 0);
    return slice(bar, begin, begin + length);
}

void drawArrow(const Rect &box, bool isVertical, bool isFirst)
{
    auto h = static_cast<SInt16>((box.left + box.right) / 2), v = static_cast<SInt16>((box.top + box.bottom) / 2);
    for (SInt16 i = 0; i < 4; ++i) {
        auto away = static_cast<SInt16>(isFirst ? i - 2 : 1 - i);
        if (isVertical) {
            MoveTo(static_cast<SInt16>(h - i), static_cast<SInt16>(v + away));
            LineTo(static_cast<SInt16>(h + i), static_cast<SInt16>(v + away));
        } else {
            MoveTo(static_cast<SInt16>(h + away), static_cast<SInt16>(v - i));
            LineTo(static_cast<SInt16>(h + away), static_cast<SInt16>(v + i));
        }
    }
}

void drawThumb(Rect thumb)
{
    constexpr RGBColor face = {0xCCCC, 0xCCCC, 0xFFFF}, black = {0, 0, 0};
    RGBForeColor(&face);
    PaintRect(&thumb);
    RGBForeColor(&black);
    FrameRect(&thumb);
}

Part partAt(const ScrollBar &bar, Point point)
{
    Rect up = upArrow(bar), down = downArrow(bar), thumb = thumbOf(bar);
    SInt16 along = bar.isVertical ? point.v : point.h;
    if (!PtInRect(point, &bar.box) || bar.most <= 0)
        return Part::None;
    if (PtInRect(point, &up))
        return Part::Up;
    if (PtInRect(point, &down))
        return Part::Down;
    if (PtInRect(point, &thumb))
        return Part::Thumb;
    return along < extentOf(bar, thumb).begin ? Part::PageUp : Part::PageDown;
}

void setValue(ScrollBar &bar, int value, const std::function<void(SInt16)> &scroll)
{
    auto bounded = static_cast<SInt16>(std::clamp<int>(value, 0, bar.most));
    if (bounded == bar.value)
        return;
    bar.value = bounded;
    scroll(bounded);
}

void dragThumb(ScrollBar &bar, Point start, const std::function<void(SInt16)> &scroll)
{
    Extent track = trackOf(bar);
    int room = std::max(track.end - track.begin - thumbLength(bar), 1), first = bar.value;
    while (StillDown()) {
        Point mouse;
        GetMouse(&mouse);
        int moved = bar.isVertical ? mouse.v - start.v : mouse.h - start.h;
        setValue(bar, first + moved * bar.most / room, scroll);
    }
}

int stepOf(const ScrollBar &bar, Part part)
{
    int page = std::max<int>(bar.page - line, line);
    switch (part) {
    case Part::Up: return -line;
    case Part::Down: return line;
    case Part::PageUp: return -page;
    case Part::PageDown: return page;
    default: return 0;
    }
}

} // namespace

void drawScrollBar(const ScrollBar &bar, bool isActive)
{
    constexpr RGBColor black = {0, 0, 0};
    Rect box = bar.box;
    RGBForeColor(&black);
    FillRect(&box, isActive && bar.most > 0 ? &qd.ltGray : &qd.white);
    FrameRect(&box);
    if (!isActive)
        return;
    for (bool isFirst : {true, false}) {
        Rect arrow = isFirst ? upArrow(bar) : downArrow(bar);
        EraseRect(&arrow);
        FrameRect(&arrow);
        drawArrow(arrow, bar.isVertical, isFirst);
    }
    if (bar.most > 0)
        drawThumb(thumbOf(bar));
}

void trackScrollBar(ScrollBar &bar, Point start, const std::function<void(SInt16 value)> &scroll)
{
    constexpr UInt32 delay = 3; // ticks between two steps
    Part part = partAt(bar, start);
    if (part == Part::Thumb) {
        dragThumb(bar, start, scroll);
        return;
    }
    UInt32 next = TickCount();
    do {
        Point mouse;
        GetMouse(&mouse);
        if (TickCount() < next || partAt(bar, mouse) != part)
            continue;
        setValue(bar, bar.value + stepOf(bar, part), scroll);
        next = TickCount() + delay;
    } while (StillDown());
}
