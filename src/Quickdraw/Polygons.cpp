// Polygons: recording their vertices from lines, and drawing them through native regions.
#include "GdiGuard_internal.h"
#include "Regions_internal.h"
#include "Shapes_internal.h"

#include <mtbx/MacMemory.h>

#include <cstddef>
#include <iterator>

namespace {

constexpr SInt32 headerSize = offsetof(MacPolygon, polyPoints);
constexpr SInt32 highestPolySize = 32767;
constexpr Size growthStep = 40;

// The polygons that ports record. One that is killed leaves it, whatever port is current, so that no recording
// goes on into freed memory. The oldest of too many is dropped: its port may be gone.
Handle recorded[16];

void beginRecording(Handle poly)
{
    std::move_backward(std::begin(recorded), std::end(recorded) - 1, std::end(recorded));
    recorded[0] = poly;
}

void endRecording(Handle poly)
{
    std::replace(std::begin(recorded), std::end(recorded), poly, Handle{});
}

Handle handleOf(PolyHandle poly)
{
    return reinterpret_cast<Handle>(poly);
}

// The vertices that polySize tells of, as far as the handle really holds them.
SInt32 countPoints(PolyHandle poly)
{
    if (!poly || poly == pathToken() || !*poly)
        return 0;
    SInt32 size = std::min<SInt32>((*poly)->polySize, GetHandleSize(handleOf(poly)));
    return std::max<SInt32>((size - headerSize) / static_cast<SInt32>(sizeof(Point)), 0);
}

bool growFor(PolyHandle poly, SInt32 neededSize)
{
    if (neededSize > highestPolySize)
        return false;
    if (GetHandleSize(handleOf(poly)) >= neededSize)
        return true;
    SetHandleSize(handleOf(poly), neededSize + growthStep);
    return MemError() == noErr;
}

// Each side on its own: the first vertex leaves right and bottom as they start.
void widen(Rect &box, SInt16 h, SInt16 v)
{
    if (h < box.left)
        box.left = h;
    else if (h > box.right)
        box.right = h;
    if (v < box.top)
        box.top = v;
    else if (v > box.bottom)
        box.bottom = v;
}

// The polygon's inside. Fewer than two vertices have none, and GDI would refuse them as in a shortage.
HRGN newRegion(PolyHandle poly)
{
    constexpr SInt32 usualCount = 64, fewestPoints = 2;
    SInt32 count = countPoints(poly);
    if (count < fewestPoints)
        return nullptr;
    POINT few[usualCount];
    Ptr many = count > usualCount ? NewPtr(count * static_cast<Size>(sizeof(POINT))) : nullptr;
    if (!many && count > usualCount)
        return nullptr;
    // The host may have purged the polygon when it was asked for memory.
    count = std::min(count, countPoints(poly));
    POINT *corners = many ? reinterpret_cast<POINT *>(many) : few;
    for (SInt32 i = 0; i < count; ++i) {
        Point vertex = (*poly)->polyPoints[i];
        corners[i] = {vertex.h, vertex.v};
    }
    HRGN region = count < fewestPoints ? nullptr : MTBX_CreatePolygonRgn(corners, count, ALTERNATE);
    if (many)
        DisposePtr(many);
    return region;
}

template <class Draw> void drawThroughRegion(PolyHandle poly, Draw draw)
{
    HDC context = currentContext();
    if (!context)
        return;
    ScratchNativeRegion region(newRegion(poly));
    if (region)
        draw(context, region);
}

void stopRecording(GrafPort &port)
{
    endRecording(port.polySave);
    port.polySave = nullptr;
    if (port.pnVis > 0)
        --port.pnVis;
}

} // namespace

bool MTBX_RecordsPoly(GrafPort &port)
{
    if (!port.polySave) [[likely]]
        return false;
    Handle poly = port.polySave;
    if (std::count(std::begin(recorded), std::end(recorded), poly))
        return true;
    stopRecording(port);
    return false;
}

void MTBX_AppendPolyPoint(GrafPort &port, SInt16 h, SInt16 v)
{
    auto poly = reinterpret_cast<PolyHandle>(port.polySave);
    if (!*poly)
        return;
    SInt32 size = (*poly)->polySize;
    SInt32 neededSize = size + static_cast<SInt32>(sizeof(Point));
    if (!growFor(poly, neededSize))
        return;
    Point vertex = {v, h};
    std::copy_n(reinterpret_cast<const char *>(&vertex), sizeof vertex, reinterpret_cast<char *>(*poly) + size);
    widen((*poly)->polyBBox, h, v);
    (*poly)->polySize = static_cast<SInt16>(neededSize);
}

PolyHandle OpenPoly()
{
    GrafPtr port = qd.thePort;
    if (!port || MTBX_RecordsPoly(*port))
        return nullptr;
    Handle handle = NewHandle(sizeof(MacPolygon));
    if (!handle)
        return nullptr;
    auto poly = reinterpret_cast<PolyHandle>(handle);
    **poly = {static_cast<SInt16>(headerSize), {32767, 32767, -32768, -32768}, {}};
    port->polySave = handle;
    beginRecording(handle);
    HidePen();
    return poly;
}

void ClosePoly()
{
    if (qd.thePort && qd.thePort->polySave)
        stopRecording(*qd.thePort);
}

void KillPoly(PolyHandle poly)
{
    if (!poly || poly == pathToken())
        return;
    if (qd.thePort && qd.thePort->polySave == handleOf(poly))
        ClosePoly();
    endRecording(handleOf(poly));
    DisposeHandle(handleOf(poly));
}

void OffsetPoly(PolyHandle poly, SInt16 dh, SInt16 dv)
{
    SInt32 count = countPoints(poly);
    for (SInt32 i = 0; i < count; ++i) {
        Point &vertex = (*poly)->polyPoints[i];
        vertex = {static_cast<SInt16>(vertex.v + dv), static_cast<SInt16>(vertex.h + dh)};
    }
}

void FramePoly(PolyHandle poly)
{
    drawThroughRegion(poly, [](HDC context, HRGN region) {
        const GrafPort &port = *qd.thePort;
        FrameRgn(context, region, port.portBrush, port.pnSize.h, port.pnSize.v);
    });
}

void PaintPoly(PolyHandle poly)
{
    if (!MTBX_PolyHook(kQDGrafVerbPaint, poly))
        drawThroughRegion(poly, [](HDC context, HRGN region) { FillRgn(context, region, qd.thePort->portBrush); });
}

void InvertPoly(PolyHandle poly)
{
    if (!MTBX_PolyHook(kQDGrafVerbInvert, poly))
        drawThroughRegion(poly, [](HDC context, HRGN region) { InvertRgn(context, region); });
}

void FillPoly(PolyHandle poly, const Pattern *pattern)
{
    FillPatternScope fill(pattern);
    PaintPoly(poly);
}
