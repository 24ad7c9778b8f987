// Regions, drawn as GDI draws them.
#include "EraseBrush.h"
#include "Regions_internal.h"
#include "Shapes_internal.h"

void MacFrameRgn(RgnHandle rgn)
{
    HDC context = currentContext();
    if (!context)
        return;
    const GrafPort &port = *qd.thePort;
    FrameRgn(context, nativeRegion(rgn), port.portBrush, port.pnSize.h, port.pnSize.v);
}

void MacPaintRgn(RgnHandle rgn)
{
    if (HDC context = currentContext())
        FillRgn(context, nativeRegion(rgn), qd.thePort->portBrush);
}

void EraseRgn(RgnHandle rgn)
{
    HDC context = currentContext();
    if (MTBX_RegionHook(kQDGrafVerbErase, rgn) || !context)
        return;
    EraseBrush brush(*qd.thePort, context);
    if (brush)
        FillRgn(context, nativeRegion(rgn), brush);
}

void MacInvertRgn(RgnHandle rgn)
{
    HDC context = currentContext();
    if (!MTBX_RegionHook(kQDGrafVerbInvert, rgn) && context)
        InvertRgn(context, nativeRegion(rgn));
}

void MacFillRgn(RgnHandle rgn, const Pattern *pattern)
{
    HDC context = currentContext();
    if (!context)
        return;
    OwnObject brush(MTBX_NewPatternBrush(*pattern));
    FillRgn(context, nativeRegion(rgn), static_cast<HBRUSH>(static_cast<HGDIOBJ>(brush)));
}
