// A document in its window: the view of its pixels, the scroll bars, and what the mouse does there.
#include "sampler.h"

#include <algorithm>

namespace {

SInt16 mostScroll(SInt16 size, SInt16 seen)
{
    return static_cast<SInt16>(std::max(size - seen, 0));
}

ScrollBar verticalBar(const Document &document)
{
    const Rect &port = document.window->portRect;
    Rect view = viewOf(document);
    auto seen = static_cast<SInt16>(view.bottom - view.top);
    Rect box = {-1, static_cast<SInt16>(port.right - scrollBarWidth + 1),
                static_cast<SInt16>(port.bottom - scrollBarWidth + 2), static_cast<SInt16>(port.right + 1)};
    return {box, true, document.scrolled.v, mostScroll(document.size.v, seen), seen};
}

ScrollBar horizontalBar(const Document &document)
{
    const Rect &port = document.window->portRect;
    Rect view = viewOf(document);
    auto seen = static_cast<SInt16>(view.right - view.left);
    Rect box = {static_cast<SInt16>(port.bottom - scrollBarWidth + 1), -1, static_cast<SInt16>(port.bottom + 1),
                static_cast<SInt16>(port.right - scrollBarWidth + 2)};
    return {box, false, document.scrolled.h, mostScroll(document.size.h, seen), seen};
}

// The document's part of a rectangle of its own, in the window.
Rect windowRect(const Document &document, Rect rect)
{
    OffsetRect(&rect, static_cast<SInt16>(-document.scrolled.h), static_cast<SInt16>(-document.scrolled.v));
    return rect;
}

void clipTo(const Rect &rect, const std::function<void()> &draw)
{
    RgnHandle old = NewRgn();
    if (!old)
        return;
    GetClip(old);
    ClipRect(&rect);
    draw();
    SetClip(old);
    DisposeRgn(old);
}

void drawRow(const Rect &view, const char *text)
{
    TextFont(GetSysFont());
    TextSize(12);
    TextFace(normal);
    MoveTo(static_cast<SInt16>(view.left + 12), static_cast<SInt16>(view.top + 24));
    DrawString(PascalText(text));
}

// The view without pixels to show.
void drawMissing(const Document &document)
{
    Rect view = viewOf(document);
    EraseRect(&view);
    drawRow(view, "This document cannot be shown: its file or the memory is missing.");
}

void copyPixels(Document &document, const Rect &from)
{
    Rect to = windowRect(document, from);
    CopyBits(GetPortBitMapForCopyBits(document.world), GetPortBitMapForCopyBits(document.window), &from, &to, srcCopy,
             nullptr);
}

// What lies beside a document that is smaller than its window.
void drawBeside(const Document &document)
{
    Rect view = viewOf(document);
    Rect whole = windowRect(document, {0, 0, document.size.v, document.size.h});
    Rect right = {view.top, std::max(view.left, whole.right), view.bottom, view.right};
    Rect below = {std::max(view.top, whole.bottom), view.left, view.bottom, std::min(view.right, whole.right)};
    for (const Rect &rect : {right, below}) {
        if (!EmptyRect(&rect))
            FillRect(&rect, &qd.ltGray);
    }
}

void drawBars(const Document &document)
{
    bool isActive = document.window == FrontWindow();
    drawScrollBar(verticalBar(document), isActive);
    drawScrollBar(horizontalBar(document), isActive);
    const Rect &port = document.window->portRect;
    Rect corner = {static_cast<SInt16>(port.bottom - scrollBarWidth + 1),
                   static_cast<SInt16>(port.right - scrollBarWidth + 1), static_cast<SInt16>(port.bottom + 1),
                   static_cast<SInt16>(port.right + 1)};
    EraseRect(&corner);
    FrameRect(&corner);
    if (isActive)
        clipTo(corner, [&] { DrawGrowIcon(document.window); });
}

void scrollBy(Document &document, int h, int v)
{
    scrollTo(document, {static_cast<SInt16>(std::clamp(document.scrolled.v + v, -32000, 32000)),
                        static_cast<SInt16>(std::clamp(document.scrolled.h + h, -32000, 32000))});
}

// True when the press was in a bar.
bool followBars(Document &document, Point local)
{
    ScrollBar vertical = verticalBar(document), horizontal = horizontalBar(document);
    if (PtInRect(local, &vertical.box)) {
        trackScrollBar(vertical, local, [&](SInt16 value) { scrollTo(document, {value, document.scrolled.h}); });
        return true;
    }
    if (!PtInRect(local, &horizontal.box))
        return false;
    trackScrollBar(horizontal, local, [&](SInt16 value) { scrollTo(document, {document.scrolled.v, value}); });
    return true;
}

} // namespace

Rect viewOf(const Document &document)
{
    Rect view = document.window->portRect;
    view.right = static_cast<SInt16>(view.right - scrollBarWidth + 1);
    view.bottom = static_cast<SInt16>(view.bottom - scrollBarWidth + 1);
    return view;
}

Point documentPoint(const Document &document, Point local)
{
    return {static_cast<SInt16>(local.v + document.scrolled.v), static_cast<SInt16>(local.h + document.scrolled.h)};
}

void showPart(Document &document, const Rect &part)
{
    bool hasPixels = havePixels(document);
    SetPort(document.window);
    Rect view = viewOf(document), seen = view;
    OffsetRect(&seen, document.scrolled.h, document.scrolled.v);
    Rect from;
    Rect whole = {0, 0, document.size.v, document.size.h};
    if (!SectRect(&part, &seen, &from) || !SectRect(&from, &whole, &from))
        return;
    if (!hasPixels) {
        drawMissing(document);
        return;
    }
    copyPixels(document, from);
    clipTo(view, [&] { drawSelection(document); });
}

void drawDocument(Document &document)
{
    SetPort(document.window);
    PenNormal();
    drawBars(document);
    drawBeside(document);
    showPart(document, {0, 0, document.size.v, document.size.h});
}

void scrollTo(Document &document, Point place)
{
    Rect view = viewOf(document);
    SInt16 mostV = mostScroll(document.size.v, static_cast<SInt16>(view.bottom - view.top));
    SInt16 mostH = mostScroll(document.size.h, static_cast<SInt16>(view.right - view.left));
    place = {std::clamp(place.v, SInt16{0}, mostV), std::clamp(place.h, SInt16{0}, mostH)};
    if (place.h == document.scrolled.h && place.v == document.scrolled.v)
        return;
    SetPort(document.window);
    RgnHandle uncovered = NewRgn();
    if (!uncovered) {
        document.scrolled = place;
        drawDocument(document);
        return;
    }
    ScrollRect(&view, static_cast<SInt16>(document.scrolled.h - place.h),
               static_cast<SInt16>(document.scrolled.v - place.v), uncovered);
    document.scrolled = place;
    Rect part = (**uncovered).rgnBBox;
    DisposeRgn(uncovered);
    // The two strips of a slanting scroll lie in one box that is drawn whole.
    OffsetRect(&part, place.h, place.v);
    showPart(document, part);
    SetPort(document.window);
    PenNormal();
    drawBars(document);
}

void scrollByKey(Document &document, UInt8 character)
{
    constexpr int line = 16;
    constexpr UInt8 home = 1, end = 4, pageUp = 11, pageDown = 12, left = 28, right = 29, up = 30, down = 31;
    Rect view = viewOf(document);
    int page = view.bottom - view.top - line;
    switch (character) {
    case home: scrollBy(document, 0, -32000); break;
    case end: scrollBy(document, 0, 32000); break;
    case pageUp: scrollBy(document, 0, -page); break;
    case pageDown: scrollBy(document, 0, page); break;
    case left: scrollBy(document, -line, 0); break;
    case right: scrollBy(document, line, 0); break;
    case up: scrollBy(document, 0, -line); break;
    case down: scrollBy(document, 0, line); break;
    default: break;
    }
}

void sizeDocument(Document &document)
{
    scrollBy(document, 0, 0);
    SetPort(document.window);
    InvalRect(&document.window->portRect);
}

void clickInDocument(Document &document, Point where)
{
    SetPort(document.window);
    Point local = where;
    GlobalToLocal(&local);
    if (followBars(document, local))
        return;
    Rect view = viewOf(document);
    if (document.kind == Kind::Painting && PtInRect(local, &view))
        paintAt(document, documentPoint(document, local));
}
