// The tools: what the mouse leaves in a painting.
#include "sampler.h"

#include <algorithm>
#include <cstdlib>

Brush brush;

namespace {

// The port as a drawing of the program's finds it again afterwards.
class InPort {
public:
    explicit InPort(GrafPtr port)
    {
        GetPort(&old_);
        SetPort(port);
        PenNormal();
    }
    ~InPort()
    {
        PenNormal();
        SetPort(old_);
    }
    InPort(const InPort &) = delete;
    InPort &operator=(const InPort &) = delete;

private:
    GrafPtr old_;
};

Rect rectOf(Point a, Point b)
{
    return {std::min(a.v, b.v), std::min(a.h, b.h), static_cast<SInt16>(std::max(a.v, b.v) + 1),
            static_cast<SInt16>(std::max(a.h, b.h) + 1)};
}

Rect wholeOf(const Document &document)
{
    return {0, 0, document.size.v, document.size.h};
}

bool keepForUndo(Document &document)
{
    Rect whole = wholeOf(document);
    if (!document.before && NewGWorld(&document.before, 32, &whole, nullptr, nullptr, 0) != noErr) {
        document.before = nullptr;
        return false;
    }
    CopyBits(GetPortBitMapForCopyBits(document.world), GetPortBitMapForCopyBits(document.before), &whole, &whole,
             srcCopy, nullptr);
    return true;
}

void noteChange(Document &document)
{
    document.isChanged = true;
}

// The mouse in the document.
Point mouseIn(const Document &document)
{
    SetPort(document.window);
    Point mouse;
    GetMouse(&mouse);
    return documentPoint(document, mouse);
}

void setPen(int width)
{
    RGBColor color = chosenColor();
    RGBForeColor(&color);
    PenPat(&chosenPattern());
    PenMode(chosenMode());
    PenSize(static_cast<SInt16>(width), static_cast<SInt16>(width));
}

void resetPen()
{
    constexpr RGBColor black = {0, 0, 0};
    RGBForeColor(&black);
    PenNormal();
}

// Pencil, brush and eraser draw while the mouse moves.
void drawStroke(Document &document, Point from, Point to, int width, bool isEraser)
{
    {
        InPort world(document.world);
        setPen(width);
        if (brush.tool == pencilTool)
            PenPat(&qd.black);
        if (isEraser) {
            PenPat(&qd.white);
            PenMode(patCopy);
        }
        MoveTo(static_cast<SInt16>(from.h - width / 2), static_cast<SInt16>(from.v - width / 2));
        LineTo(static_cast<SInt16>(to.h - width / 2), static_cast<SInt16>(to.v - width / 2));
        resetPen();
    }
    Rect touched = rectOf(from, to);
    InsetRect(&touched, static_cast<SInt16>(-width), static_cast<SInt16>(-width));
    showPart(document, touched);
}

void follow(Document &document, Point start, int width, bool isEraser)
{
    Point last = start;
    drawStroke(document, start, start, width, isEraser);
    while (StillDown()) {
        Point mouse = mouseIn(document);
        if (mouse.h == last.h && mouse.v == last.v)
            continue;
        drawStroke(document, last, mouse, width, isEraser);
        last = mouse;
    }
}

// Shapes are drawn as outlines in the window until the button is released.
void drawShape(int tool, Point from, Point to, bool isOutline)
{
    Rect rect = rectOf(from, to);
    constexpr SInt16 corner = 24;
    switch (tool) {
    case lineTool:
        MoveTo(from.h, from.v);
        LineTo(to.h, to.v);
        break;
    case roundTool:
        FrameRoundRect(&rect, corner, corner); // an outline, in the pen's width
        break;
    case ovalTool: isOutline ? FrameOval(&rect) : PaintOval(&rect); break;
    default: isOutline ? FrameRect(&rect) : PaintRect(&rect); break;
    }
}

Point windowPoint(const Document &document, Point point)
{
    return {static_cast<SInt16>(point.v - document.scrolled.v), static_cast<SInt16>(point.h - document.scrolled.h)};
}

void drawRubber(const Document &document, int tool, Point from, Point to)
{
    InPort window(document.window);
    Rect view = viewOf(document);
    ClipRect(&view);
    PenPat(&qd.gray);
    PenMode(patXor);
    drawShape(tool, windowPoint(document, from), windowPoint(document, to), true);
    ClipRect(&document.window->portRect);
}

Point followRubber(const Document &document, int tool, Point start)
{
    Point last = start;
    drawRubber(document, tool, start, last);
    while (StillDown()) {
        Point mouse = mouseIn(document);
        if (mouse.h == last.h && mouse.v == last.v)
            continue;
        drawRubber(document, tool, start, last);
        last = mouse;
        drawRubber(document, tool, start, last);
    }
    drawRubber(document, tool, start, last);
    return last;
}

void paintShape(Document &document, Point start)
{
    Point end = followRubber(document, brush.tool, start);
    {
        InPort world(document.world);
        setPen(brush.width);
        drawShape(brush.tool, start, end, false);
        resetPen();
    }
    Rect touched = rectOf(start, end);
    InsetRect(&touched, static_cast<SInt16>(-brush.width), static_cast<SInt16>(-brush.width));
    showPart(document, touched);
}

// A free outline, recorded as a region and filled.
void paintRegion(Document &document, Point start)
{
    RgnHandle region = NewRgn();
    if (!region)
        return;
    std::vector<Point> points(1, start);
    while (StillDown()) {
        Point mouse = mouseIn(document), last = points.back();
        if (mouse.h == last.h && mouse.v == last.v)
            continue;
        drawRubber(document, lineTool, last, mouse);
        points.push_back(mouse);
    }
    {
        InPort world(document.world);
        OpenRgn();
        MoveTo(start.h, start.v);
        for (Point each : points)
            LineTo(each.h, each.v);
        LineTo(start.h, start.v);
        CloseRgn(region);
        setPen(1);
        PaintRgn(region);
        resetPen();
    }
    Rect whole = wholeOf(document);
    showPart(document, whole);
    DisposeRgn(region);
}

void setSelection(Document &document, Rect selection)
{
    Rect old = document.selection, whole = wholeOf(document);
    if (!SectRect(&selection, &whole, &selection))
        selection = {};
    document.selection = selection;
    InsetRect(&old, -1, -1);
    showPart(document, old);
    InsetRect(&selection, -1, -1);
    showPart(document, selection);
}

// The selected pixels follow as an outline, and land where it is let go.
void dragSelection(Document &document, Point start)
{
    Rect from = document.selection;
    RgnHandle outline = NewRgn();
    if (!outline)
        return;
    SetPort(document.window);
    Point first = windowPoint(document, start);
    Rect shown = from;
    OffsetRect(&shown, static_cast<SInt16>(-document.scrolled.h), static_cast<SInt16>(-document.scrolled.v));
    RectRgn(outline, &shown);
    Rect view = viewOf(document);
    SInt32 moved = DragGrayRgn(outline, first, &view, &view, 0, nullptr);
    DisposeRgn(outline);
    if (static_cast<UInt32>(moved) == 0x80008000 || moved == 0)
        return;
    Rect to = from;
    OffsetRect(&to, LoWord(moved), HiWord(moved));
    if (!keepForUndo(document))
        return;
    CopyBits(GetPortBitMapForCopyBits(document.before), GetPortBitMapForCopyBits(document.world), &from, &to,
             chosenMode() == patXor ? srcXor : srcCopy, nullptr);
    noteChange(document);
    showPart(document, to);
    setSelection(document, to);
}

void select(Document &document, Point start)
{
    if (PtInRect(start, &document.selection)) {
        dragSelection(document, start);
        return;
    }
    setSelection(document, {});
    Point end = followRubber(document, rectTool, start);
    bool isClick = std::abs(end.h - start.h) < 3 && std::abs(end.v - start.v) < 3;
    if (!isClick)
        setSelection(document, rectOf(start, end));
}

} // namespace

void paintAt(Document &document, Point where)
{
    constexpr int brushWidth = 8, eraserWidth = 16;
    if (!havePixels(document))
        return;
    if (brush.tool == selectTool) {
        select(document, where);
        return;
    }
    keepForUndo(document);
    switch (brush.tool) {
    case pencilTool: follow(document, where, brush.width, false); break;
    case brushTool: follow(document, where, brushWidth * brush.width, false); break;
    case eraserTool: follow(document, where, eraserWidth, true); break;
    case regionTool: paintRegion(document, where); break;
    default: paintShape(document, where); break;
    }
    noteChange(document);
}

void invertSelection(Document &document)
{
    Rect selection = document.selection;
    if (document.kind != Kind::Painting || EmptyRect(&selection) || !havePixels(document))
        return;
    keepForUndo(document);
    {
        InPort world(document.world);
        InvertRect(&selection);
    }
    noteChange(document);
    showPart(document, selection);
}

void selectAll(Document &document)
{
    if (document.kind == Kind::Painting)
        setSelection(document, wholeOf(document));
}

void undo(Document &document)
{
    if (!document.before || !document.world)
        return;
    std::swap(document.before, document.world);
    showPart(document, wholeOf(document));
}

void drawSelection(const Document &document)
{
    Rect outline = document.selection;
    if (EmptyRect(&outline))
        return;
    OffsetRect(&outline, static_cast<SInt16>(-document.scrolled.h), static_cast<SInt16>(-document.scrolled.v));
    constexpr Pattern ants = {{0xF0, 0x78, 0x3C, 0x1E, 0x0F, 0x87, 0xC3, 0xE1}};
    PenNormal();
    PenPat(&ants);
    FrameRect(&outline);
    PenNormal();
}
