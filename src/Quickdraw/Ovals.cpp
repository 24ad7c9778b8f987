// Ovals that are filled, and rectangles with round corners: GDI's geometry.
#include "GdiGuard_internal.h"
#include "Regions_internal.h"
#include "Shapes_internal.h"

void PaintOval(const Rect *rect)
{
    HDC context = currentContext();
    if (!MTBX_OvalHook(kQDGrafVerbPaint, rect) && context)
        Ellipse(context, rect->left, rect->top, rect->right, rect->bottom);
}

void EraseOval(const Rect *rect)
{
    HDC context = currentContext();
    if (MTBX_OvalHook(kQDGrafVerbErase, rect) || !context)
        return;
    Selection noPen(context, GetStockObject(NULL_PEN));
    FillOval(rect, &qd.thePort->bkPat);
}

void InvertOval(const Rect *rect)
{
    if (MTBX_OvalHook(kQDGrafVerbInvert, rect) || !qd.thePort)
        return;
    Rect outset = *rect;
    MacInsetRect(&outset, -1, -1);
    constexpr Pattern white = {{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};
    FillPatternScope fill(&white);
    PenSize(1, 1);
    PenMode(srcXor);
    PaintOval(&outset);
}

void FillOval(const Rect *rect, const Pattern *pattern)
{
    FillPatternScope fill(pattern);
    PaintOval(rect);
}

void FrameRoundRect(const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight)
{
    HDC context = currentContext();
    if (MTBX_RoundRectHook(kQDGrafVerbFrame, rect, ovalWidth, ovalHeight) || !context)
        return;
    OwnObject pen(MTBX_CreatePen(PS_SOLID, qd.thePort->pnSize.h, 0));
    Selection noBrush(context, GetStockObject(NULL_BRUSH)), penSelection(context, pen);
    RoundRect(context, rect->left, rect->top, rect->right, rect->bottom, ovalWidth, ovalHeight);
}

void InvertRoundRect(const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight)
{
    if (MTBX_RoundRectHook(kQDGrafVerbInvert, rect, ovalWidth, ovalHeight) || !qd.thePort)
        return;
    RgnHandle rgn = NewRgn();
    if (!rgn)
        return;
    HRGN shape =
        MTBX_CreateRoundRectRgn(rect->left, rect->top, rect->right + 1, rect->bottom + 1, ovalWidth, ovalHeight);
    if (shape) {
        replaceNativeRegion(rgn, shape);
        MacInvertRgn(rgn);
    }
    DisposeRgn(rgn);
}

void PaintRoundRect(const Rect *, SInt16, SInt16)
{
}

void EraseRoundRect(const Rect *, SInt16, SInt16)
{
}

void FillRoundRect(const Rect *, SInt16, SInt16, const Pattern *)
{
}
