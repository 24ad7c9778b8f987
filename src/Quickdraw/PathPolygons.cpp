// Polygons in the native path of the context. There is one at a time, so their handle is a token only.
#include "Shapes_internal.h"

SInt32 polyPathDepth;

PolyHandle OpenPoly2()
{
    BeginPath(currentContext());
    ++polyPathDepth;
    return pathToken();
}

void ClosePoly2()
{
    EndPath(currentContext());
    if (polyPathDepth > 0)
        --polyPathDepth;
}

void FramePoly2(PolyHandle)
{
    StrokePath(currentContext());
}

void PaintPoly2(PolyHandle)
{
    FillPath(currentContext());
}

void InvertPoly2(PolyHandle)
{
    HDC context = currentContext();
    RasterModeScope raster(context, MTBX_XorRasterMode());
    FillPath(context);
}

void FillPoly2(PolyHandle poly, const Pattern *pattern)
{
    FillPatternScope fill(pattern);
    PaintPoly2(poly);
}

void KillPoly2(PolyHandle)
{
}

void OffsetPoly2(PolyHandle, SInt16, SInt16)
{
}

void ErasePoly2(PolyHandle)
{
}
