// Buttons, boxes and signs of the desktop's controls.
#include "draw_edge.h"
#include "frame_glyphs.h"

#include "gdi/scan.h"

#include "kernel/kernel_internal.h"

using namespace win32;
using namespace win32::gdi;
using namespace win32::user;

namespace {

constexpr int edgeWidth = 2;

void move(Glyph &glyph, int by)
{
    for (Box &box : glyph)
        box = translated(box, by, by);
}

// A sign on a button: it moves with a pushed one and is engraved on one that cannot be used.
void drawSign(SystemPainter &painter, Glyph glyph, UINT state)
{
    if (state & DFCS_PUSHED)
        move(glyph, 1);
    if (state & DFCS_INACTIVE) {
        Glyph light = glyph;
        move(light, 1);
        painter.fill(light, COLOR_BTNHIGHLIGHT);
    }
    painter.fill(glyph, state & DFCS_INACTIVE ? COLOR_BTNSHADOW : COLOR_BTNTEXT);
}

// The edge of a button and its face; gives the face.
Box drawButton(SystemPainter &painter, Box box, UINT state, UINT softness)
{
    bool isDown = (state & (DFCS_PUSHED | DFCS_CHECKED)) != 0;
    UINT flags = BF_RECT | softness | (state & (DFCS_FLAT | DFCS_MONO));
    drawEdge(painter, box, isDown ? EDGE_SUNKEN : EDGE_RAISED, flags | (isDown ? UINT{BF_SOFT} : 0u));
    if (state & DFCS_CHECKED)
        painter.fillMixed(box, COLOR_BTNHIGHLIGHT, COLOR_BTNFACE);
    else
        painter.fill(box, COLOR_BTNFACE);
    return box;
}

bool drawCaptionButton(SystemPainter &painter, const Box &box, UINT state)
{
    constexpr Glyph (*glyphs[])(const Box &) = {closeGlyph, minimizeGlyph, maximizeGlyph, restoreGlyph, helpGlyph};
    UINT kind = state & 0xff;
    if (kind >= std::size(glyphs))
        return false;
    drawButton(painter, box, state & ~UINT{DFCS_CHECKED}, BF_SOFT);
    drawSign(painter, glyphs[kind](box), state);
    return true;
}

// Lines that rise to the right, or to the left, in a corner of the box.
void drawSizeGrip(SystemPainter &painter, const Box &box, bool isOnRight)
{
    constexpr int step = 4, lines = 3;
    painter.fill(box, COLOR_BTNFACE);
    Box square = middleSquare(box);
    int side = square.x2 - square.x1, unit = std::max(1, side / 16);
    Box seen = painter.visibleBox();
    for (int i = 0; i < side; ++i) {
        int line = i / unit / step, part = i / unit % step; // 0 is the gap, 1 and 2 are shadow, 3 is light
        if (line >= lines || part == 0)
            continue;
        int color = part == step - 1 ? COLOR_BTNHIGHLIGHT : COLOR_BTNSHADOW;
        int start = isOnRight ? box.x2 - 1 - i : box.x1 + i;
        int first = std::max({0, box.y2 - seen.y2, isOnRight ? seen.x1 - start : start - seen.x2 + 1});
        int last = std::min({i, box.y2 - 1 - seen.y1, isOnRight ? seen.x2 - 1 - start : start - seen.x1});
        for (int j = first; j <= last; ++j)
            painter.fill(pixelBox(isOnRight ? start + j : start - j, box.y2 - 1 - j), color);
    }
}

bool drawScrollControl(SystemPainter &painter, const Box &box, UINT state)
{
    if (state & (DFCS_SCROLLSIZEGRIP | DFCS_SCROLLSIZEGRIPRIGHT)) {
        drawSizeGrip(painter, box, state & DFCS_SCROLLSIZEGRIP);
        return true;
    }
    constexpr Direction directions[] = {Direction::Up,    Direction::Down, Direction::Left,
                                        Direction::Right, Direction::Down, Direction::Down};
    static_assert(std::size(directions) == DFCS_SCROLLCOMBOBOX + 1);
    UINT kind = state & 0xff;
    if (kind >= std::size(directions))
        return false;
    drawButton(painter, box, state & ~UINT{DFCS_CHECKED}, 0);
    drawSign(painter, arrowGlyph(box, directions[kind]), state);
    return true;
}

// Black signs on white.
bool drawMenuSign(SystemPainter &painter, const Box &box, UINT state)
{
    constexpr COLORREF black = RGB(0, 0, 0), white = RGB(255, 255, 255);
    painter.fillPlain(box, white);
    switch (state & 0xff) {
    case DFCS_MENUARROW: painter.fillPlain(arrowGlyph(box, Direction::Right), black); return true;
    case DFCS_MENUARROWRIGHT: painter.fillPlain(arrowGlyph(box, Direction::Left), black); return true;
    case DFCS_MENUCHECK: painter.fillPlain(checkGlyph(box), black); return true;
    case DFCS_MENUBULLET:
        painter.fillPlain(discGlyph(box, std::max(2, (box.x2 - box.x1) * 4 / 13)), black);
        return true;
    default: return false;
    }
}

void fillInterior(SystemPainter &painter, const Box &box, UINT state)
{
    bool isMixed = (state & 0xff) == DFCS_BUTTON3STATE && (state & DFCS_CHECKED);
    if (isMixed)
        painter.fillMixed(box, COLOR_BTNHIGHLIGHT, COLOR_BTNFACE);
    else
        painter.fill(box, state & (DFCS_PUSHED | DFCS_INACTIVE) ? COLOR_BTNFACE : COLOR_WINDOW);
}

int markColor(UINT state)
{
    bool isMixed = (state & 0xff) == DFCS_BUTTON3STATE;
    return state & DFCS_INACTIVE || isMixed ? COLOR_BTNSHADOW : COLOR_WINDOWTEXT;
}

void drawCheckBox(SystemPainter &painter, const Box &box, UINT state)
{
    Box square = middleSquare(box), inside = square;
    drawEdge(painter, inside, EDGE_SUNKEN, BF_RECT | (state & (DFCS_FLAT | DFCS_MONO)));
    fillInterior(painter, inside, state);
    if (state & DFCS_CHECKED)
        painter.fill(checkGlyph(square), markColor(state));
}

// A disc whose upper left half has another colour than the lower right one.
void drawTwoColoredDisc(SystemPainter &painter, const Box &square, int diameter, int upperLeft, int lowerRight)
{
    int margin = (square.x2 - square.x1 - diameter) / 2, middle = square.x1 + square.y1 + 2 * margin + diameter;
    for (const Box &run : discGlyph(square, diameter)) {
        for (int y = run.y1; y < run.y2; ++y) {
            int turn = std::clamp(middle - y, run.x1, run.x2);
            painter.fill(Box{run.x1, y, turn, y + 1}, upperLeft);
            painter.fill(Box{turn, y, run.x2, y + 1}, lowerRight);
        }
    }
}

struct RadioColors {
    int outerUpperLeft, outerLowerRight, innerUpperLeft, innerLowerRight;
};

constexpr RadioColors radioColors(UINT state)
{
    if (state & DFCS_MONO)
        return {COLOR_WINDOWFRAME, COLOR_WINDOWFRAME, COLOR_WINDOW, COLOR_WINDOW};
    if (state & DFCS_FLAT)
        return {COLOR_BTNSHADOW, COLOR_BTNSHADOW, COLOR_BTNFACE, COLOR_BTNFACE};
    return {COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW, COLOR_3DLIGHT};
}

void drawRadioButton(SystemPainter &painter, const Box &box, UINT state)
{
    Box square = middleSquare(box);
    int diameter = std::max(1, square.x2 - square.x1 - std::max(1, (square.x2 - square.x1) / 8));
    RadioColors colors = radioColors(state);
    drawTwoColoredDisc(painter, square, diameter, colors.outerUpperLeft, colors.outerLowerRight);
    drawTwoColoredDisc(painter, square, diameter - 2, colors.innerUpperLeft, colors.innerLowerRight);
    bool isPlain = state & (DFCS_PUSHED | DFCS_INACTIVE);
    painter.fill(discGlyph(square, diameter - 4), isPlain ? COLOR_BTNFACE : COLOR_WINDOW);
    int dot = (diameter + 1) / 3;
    dot += (diameter - dot) % 2; // so that it stands in the middle
    if (state & DFCS_CHECKED)
        painter.fill(discGlyph(square, dot), markColor(state));
}

// An image on black, and the white mask with a black hole for it.
void drawRadioParts(SystemPainter &painter, const Box &box, UINT state)
{
    constexpr COLORREF black = RGB(0, 0, 0), white = RGB(255, 255, 255);
    if ((state & 0xff) == DFCS_BUTTONRADIOIMAGE) {
        painter.fillPlain(box, black);
        drawRadioButton(painter, box, state);
        return;
    }
    Box square = middleSquare(box);
    int side = square.x2 - square.x1;
    painter.fillPlain(box, white);
    painter.fillPlain(discGlyph(square, side - std::max(1, side / 8)), black);
}

bool drawButtonControl(SystemPainter &painter, const Box &box, UINT state)
{
    switch (state & 0xff) {
    case DFCS_BUTTONPUSH: drawButton(painter, box, state, BF_SOFT); return true;
    case DFCS_BUTTONCHECK:
    case DFCS_BUTTON3STATE: drawCheckBox(painter, box, state); return true;
    case DFCS_BUTTONRADIO: drawRadioButton(painter, box, state); return true;
    case DFCS_BUTTONRADIOIMAGE:
    case DFCS_BUTTONRADIOMASK: drawRadioParts(painter, box, state); return true;
    default: return false;
    }
}

bool drawControl(SystemPainter &painter, const Box &box, UINT type, UINT state)
{
    switch (type) {
    case DFC_CAPTION: return drawCaptionButton(painter, box, state);
    case DFC_MENU: return drawMenuSign(painter, box, state);
    case DFC_SCROLL: return drawScrollControl(painter, box, state);
    case DFC_BUTTON: return drawButtonControl(painter, box, state);
    default: return false;
    }
}

bool hasButtonEdge(UINT type, UINT state)
{
    return type == DFC_CAPTION || type == DFC_SCROLL || (type == DFC_BUTTON && (state & 0xff) == DFCS_BUTTONPUSH);
}

} // namespace

BOOL DrawFrameControl(HDC context, LPRECT rect, UINT type, UINT state)
{
    SystemPainter painter(context);
    if (!painter || !rect)
        return FALSE;
    return guarded(FALSE, [&] {
        Box box = painter.boxOf(*rect);
        bool isKnown = isEmpty(box) || drawControl(painter, box, type, state);
        if (isKnown && (state & DFCS_ADJUSTRECT) && hasButtonEdge(type, state))
            InflateRect(rect, -edgeWidth, -edgeWidth);
        return isKnown ? TRUE : FALSE;
    });
}
