// Rectangles, drawn exactly as QuickDraw does.
#include "EraseBrush.h"
#include "Shapes_internal.h"

namespace {

// From the first corner to the second, if there is anything between them.
void paintBar(HDC context, SInt32 left, SInt32 top, SInt32 right, SInt32 bottom, DWORD raster)
{
    if (left < right && top < bottom)
        PatBlt(context, left, top, right - left, bottom - top, raster);
}

bool looksAtPixelsBelow(SInt16 penMode)
{
    return penMode == srcBic || penMode == patOr || penMode == blend;
}

RECT inBasicPort(const GrafPort &port, RECT rect)
{
    OffsetRect(&rect, -port.portRect.left, -port.portRect.top);
    return rect;
}

} // namespace

void MacFrameRect(const Rect *rect)
{
    HDC context = currentContext();
    if (MTBX_RectHook(kQDGrafVerbFrame, rect) || !context)
        return;
    Point pen = qd.thePort->pnSize;
    DWORD raster = MTBX_PatternRaster(qd.thePort->pnMode);
    auto [left, top, right, bottom] = clampedRect(*rect);
    // No bar lies on another one, so that exclusive-or gives clean corners.
    paintBar(context, left, top, right, top + pen.v, raster);
    paintBar(context, right - pen.h, top + pen.v, right, bottom - pen.v, raster);
    paintBar(context, left, bottom - pen.v, right, bottom, raster);
    paintBar(context, left, top + pen.v, left + pen.h, bottom - pen.v, raster);
}

void PaintRect(const Rect *rect)
{
    HDC context = currentContext();
    if (MTBX_RectHook(kQDGrafVerbPaint, rect) || !context)
        return;
    if (looksAtPixelsBelow(qd.thePort->pnMode)) [[unlikely]] {
        MTBX_PaintMergedRect(*rect);
        return;
    }
    RECT area = clampedRect(*rect);
    if (HBRUSH brush = qd.thePort->portBrush)
        FillRect(context, &area, brush);
}

void EraseRect(const Rect *rect)
{
    HDC context = currentContext();
    if (EmptyRect(rect) || MTBX_RectHook(kQDGrafVerbErase, rect) || !context)
        return;
    const GrafPort &port = *qd.thePort;
    RECT area = clampedRect(*rect);
    EraseBrush brush(port, context);
    if (!isColorPort(port))
        area = inBasicPort(port, area);
    if (brush)
        FillRect(context, &area, brush);
}

void MacInvertRect(const Rect *rect)
{
    HDC context = currentContext();
    if (!MTBX_RectHook(kQDGrafVerbInvert, rect) && context)
        PatBlt(context, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, DSTINVERT);
}

void MacFillRect(const Rect *rect, const Pattern *pattern)
{
    FillPatternScope fill(pattern);
    PaintRect(rect);
}
