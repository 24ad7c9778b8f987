// The signs on the system's buttons: captions, scroll bars, check boxes.
#include "gdi/box.h"

#include <algorithm>

namespace {

void fill(HDC context, int left, int top, int right, int bottom, int color)
{
    RECT rect{left, top, right, bottom};
    FillRect(context, &rect, GetSysColorBrush(color));
}

// A sign is drawn in a colour; one that is not available has a light shadow at its lower right.
template <class Draw> void drawSign(UINT state, Draw draw)
{
    if (state & DFCS_INACTIVE) {
        draw(1, COLOR_3DHILIGHT);
        draw(0, COLOR_3DSHADOW);
    } else {
        draw(0, COLOR_BTNTEXT);
    }
}

void drawButtonFace(HDC context, RECT &rect, UINT state)
{
    UINT edge = state & DFCS_PUSHED ? UINT{EDGE_SUNKEN} : UINT{EDGE_RAISED};
    if (state & DFCS_FLAT) {
        FillRect(context, &rect, GetSysColorBrush(COLOR_3DFACE));
        FrameRect(context, &rect, GetSysColorBrush(COLOR_3DSHADOW));
        InflateRect(&rect, -1, -1);
        return;
    }
    DrawEdge(context, &rect, edge, BF_RECT | BF_MIDDLE | BF_ADJUST | BF_SOFT);
}

RECT signRect(const RECT &button, UINT state, int width, int height)
{
    int x = (button.left + button.right - width) / 2, y = (button.top + button.bottom - height) / 2;
    int shift = state & DFCS_PUSHED ? 1 : 0;
    return {x + shift, y + shift, x + shift + width, y + shift + height};
}

// A cross of strokes that are two pixels wide.
void drawCross(HDC context, const RECT &box, int shift, int color)
{
    int size = box.bottom - box.top;
    for (int i = 0; i < size; ++i) {
        int y = box.top + i + shift;
        fill(context, box.left + i + shift, y, box.left + i + 2 + shift, y + 1, color);
        fill(context, box.left + size - 1 - i + shift, y, box.left + size + 1 - i + shift, y + 1, color);
    }
}

void drawWindow(HDC context, const RECT &box, int shift, int color)
{
    RECT frame = box;
    OffsetRect(&frame, shift, shift);
    FrameRect(context, &frame, GetSysColorBrush(color));
    fill(context, frame.left, frame.top, frame.right, frame.top + 2, color);
}

BOOL drawCaptionButton(HDC context, RECT rect, UINT state)
{
    drawButtonFace(context, rect, state);
    int size = std::max<int>(std::min(rect.right - rect.left, rect.bottom - rect.top) - 4, 3);
    switch (state & 0xf) {
    case DFCS_CAPTIONCLOSE: {
        int height = std::max(size - 1, 3);
        RECT box = signRect(rect, state, height + 1, height);
        drawSign(state, [&](int shift, int color) { drawCross(context, box, shift, color); });
        return TRUE;
    }
    case DFCS_CAPTIONMIN: {
        RECT box = signRect(rect, state, size, size);
        drawSign(state, [&](int shift, int color) {
            fill(context, box.left + shift, box.bottom - 2 + shift, box.left + size * 2 / 3 + shift, box.bottom + shift, color);
        });
        return TRUE;
    }
    case DFCS_CAPTIONMAX: {
        RECT box = signRect(rect, state, size, size);
        drawSign(state, [&](int shift, int color) { drawWindow(context, box, shift, color); });
        return TRUE;
    }
    case DFCS_CAPTIONRESTORE: {
        RECT box = signRect(rect, state, size, size);
        int part = size * 2 / 3;
        drawSign(state, [&](int shift, int color) {
            drawWindow(context, {box.right - part, box.top, box.right, box.top + part}, shift, color);
            fill(context, box.left + shift, box.bottom - part + shift, box.left + part + shift, box.bottom + shift, COLOR_3DFACE);
            drawWindow(context, {box.left, box.bottom - part, box.left + part, box.bottom}, shift, color);
        });
        return TRUE;
    }
    default:
        return FALSE;
    }
}

// A triangle of rows or columns, the tip first.
void drawArrow(HDC context, const RECT &box, UINT direction, int shift, int color)
{
    int depth = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLDOWN ? box.bottom - box.top : box.right - box.left;
    int centerX = (box.left + box.right) / 2 + shift, centerY = (box.top + box.bottom) / 2 + shift;
    for (int i = 0; i < depth; ++i) {
        switch (direction) {
        case DFCS_SCROLLUP:
            fill(context, centerX - i, box.top + i + shift, centerX + i + 1, box.top + i + 1 + shift, color);
            break;
        case DFCS_SCROLLDOWN:
            fill(context, centerX - i, box.bottom - i - 1 + shift, centerX + i + 1, box.bottom - i + shift, color);
            break;
        case DFCS_SCROLLLEFT:
            fill(context, box.left + i + shift, centerY - i, box.left + i + 1 + shift, centerY + i + 1, color);
            break;
        default:
            fill(context, box.right - i - 1 + shift, centerY - i, box.right - i + shift, centerY + i + 1, color);
            break;
        }
    }
}

// Ridges that run to the lower right corner.
void drawSizeGrip(HDC context, const RECT &rect)
{
    FillRect(context, &rect, GetSysColorBrush(COLOR_3DFACE));
    int size = std::min(rect.right - rect.left, rect.bottom - rect.top);
    int reach = std::min(size - 1, 13);
    for (int i = 1; i <= reach; ++i) {
        int color = i % 4 == 0 ? int{COLOR_3DHILIGHT} : i % 4 == 1 ? int{COLOR_3DFACE} : int{COLOR_3DSHADOW};
        for (int k = 0; k < i; ++k) {
            int x = rect.right - 1 - i + k, y = rect.bottom - 2 - k;
            fill(context, x, y, x + 1, y + 1, color);
        }
    }
}

BOOL drawScrollButton(HDC context, RECT rect, UINT state)
{
    UINT direction = state & 0xf;
    if (direction == DFCS_SCROLLSIZEGRIP) {
        drawSizeGrip(context, rect);
        return TRUE;
    }
    if (direction == DFCS_SCROLLCOMBOBOX)
        direction = DFCS_SCROLLDOWN;
    if (direction > DFCS_SCROLLRIGHT)
        return FALSE;
    if (state & DFCS_FLAT)
        drawButtonFace(context, rect, state);
    else
        DrawEdge(context, &rect, state & DFCS_PUSHED ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT | BF_MIDDLE | BF_ADJUST);
    int depth = std::max<int>((std::min(rect.right - rect.left, rect.bottom - rect.top) + 1) / 3, 2);
    bool isUpright = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLDOWN;
    RECT box = signRect(rect, state, isUpright ? 2 * depth - 1 : depth, isUpright ? depth : 2 * depth - 1);
    drawSign(state, [&](int shift, int color) { drawArrow(context, box, direction, shift, color); });
    return TRUE;
}

void drawCheckMark(HDC context, const RECT &box, int color)
{
    constexpr struct {
        int x, y;
    } columns[] = {{0, 2}, {1, 3}, {2, 4}, {3, 3}, {4, 2}, {5, 1}, {6, 0}};
    int left = (box.left + box.right - 7) / 2, top = (box.top + box.bottom - 7) / 2;
    for (auto [x, y] : columns)
        fill(context, left + x, top + y, left + x + 1, top + y + 3, color);
}

void drawRound(HDC context, const RECT &rect, UINT state)
{
    auto ellipse = [&](int inset, int fillColor, int lineColor) {
        HPEN pen = CreatePen(PS_SOLID, 1, GetSysColor(lineColor));
        HGDIOBJ oldPen = SelectObject(context, pen);
        HGDIOBJ oldBrush = SelectObject(context, GetSysColorBrush(fillColor));
        Ellipse(context, rect.left + inset, rect.top + inset, rect.right - inset, rect.bottom - inset);
        SelectObject(context, oldBrush);
        SelectObject(context, oldPen);
        DeleteObject(pen);
    };
    int field = state & (DFCS_PUSHED | DFCS_INACTIVE) ? COLOR_3DFACE : COLOR_WINDOW;
    ellipse(0, field, COLOR_3DSHADOW);
    ellipse(1, field, COLOR_3DDKSHADOW);
    if (state & DFCS_CHECKED)
        ellipse(4, state & DFCS_INACTIVE ? COLOR_3DSHADOW : COLOR_WINDOWTEXT,
                state & DFCS_INACTIVE ? COLOR_3DSHADOW : COLOR_WINDOWTEXT);
}

BOOL drawButton(HDC context, RECT rect, UINT state)
{
    switch (state & 0x1f) {
    case DFCS_BUTTONPUSH:
        drawButtonFace(context, rect, state);
        return TRUE;
    case DFCS_BUTTONCHECK:
    case DFCS_BUTTON3STATE: {
        DrawEdge(context, &rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
        int field = state & (DFCS_PUSHED | DFCS_INACTIVE) ? COLOR_3DFACE : COLOR_WINDOW;
        FillRect(context, &rect, GetSysColorBrush(field));
        if (state & DFCS_CHECKED)
            drawCheckMark(context, rect, state & DFCS_INACTIVE ? COLOR_3DSHADOW : COLOR_WINDOWTEXT);
        return TRUE;
    }
    case DFCS_BUTTONRADIO:
        drawRound(context, rect, state);
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace

BOOL DrawFrameControl(HDC context, LPRECT rect, UINT type, UINT state)
{
    if (!rect || !GetObjectType(context))
        return FALSE;
    RECT copy = *rect;
    if (state & DFCS_ADJUSTRECT)
        InflateRect(rect, -2, -2);
    switch (type) {
    case DFC_CAPTION:
        return drawCaptionButton(context, copy, state);
    case DFC_SCROLL:
        return drawScrollButton(context, copy, state);
    case DFC_BUTTON:
        return drawButton(context, copy, state);
    default:
        return FALSE;
    }
}
