// The pen of the current port: place, size, transfer mode and visibility.
#include "Quickdraw_internal.h"
#include "Regions_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>

#include <cstring>
#include <iterator>

namespace {

// The setting "UseSafeXorMode".
UInt8 useSafeXorMode;

// By pen mode, with the transfer that PatBlt makes.
constexpr DWORD rasterTable[16] = {PATCOPY, PATCOPY, PATINVERT, PATCOPY, PATCOPY, PATCOPY, PATCOPY, PATCOPY,
                                   PATCOPY, PATCOPY, PATINVERT, PATCOPY, PATCOPY, PATCOPY, PATCOPY, PATCOPY};

// 0 for a mode that leaves the context as it is.
int rasterMode(SInt16 mode)
{
    switch (mode) {
    case srcCopy:
    case patCopy: return R2_COPYPEN;
    case srcOr:
    case patOr: return R2_MERGEPEN;
    case srcXor:
    case patXor: return MTBX_XorRasterMode();
    case srcBic:
    case patBic: return R2_NOTMASKPEN;
    case notSrcCopy:
    case notPatCopy: return R2_NOTCOPYPEN;
    default: return 0;
    }
}

bool isBlack(const Pattern &pattern)
{
    constexpr Pattern black = {};
    return memcmp(&pattern, &black, sizeof black) == 0;
}

void movePen(GrafPort &port, SInt16 h, SInt16 v)
{
    port.pnLoc = {v, h};
    if (HDC context = contextOf(port))
        MoveToEx(context, h, v, nullptr);
}

} // namespace

void MTBX_ReadXorSetting()
{
    useSafeXorMode = static_cast<UInt8>(MTBX_GetRequiredProfileInt("UseSafeXorMode", 0));
}

DWORD MTBX_PatternRaster(SInt16 penMode)
{
    return penMode >= 0 && penMode < std::ssize(rasterTable) ? rasterTable[penMode] : PATCOPY;
}

int MTBX_XorRasterMode()
{
    if (!useSafeXorMode)
        return R2_NOTXORPEN;
    return gWin95 ? R2_NOT : R2_XORPEN;
}

void PenSize(SInt16 width, SInt16 height)
{
    if (qd.thePort)
        qd.thePort->pnSize = {height, width};
}

void PenMode(SInt16 mode)
{
    GrafPtr port = qd.thePort;
    if (!port)
        return;
    HDC context = contextOf(*port);
    int raster = rasterMode(mode);
    if (context && raster != 0)
        SetROP2(context, raster);
    // Black would leave all that it crosses as it is.
    if (isXorMode(mode) && isBlack(port->pnPat)) {
        Pattern white;
        memset(&white, 0xFF, sizeof white);
        PenPat(&white);
    }
    port->pnMode = mode;
}

void PenNormal()
{
    PenMode(patCopy);
    PenSize(1, 1);
    PenPat(&qd.black);
}

void HidePen()
{
    if (qd.thePort)
        ++qd.thePort->pnVis;
}

void ShowPen()
{
    if (qd.thePort && qd.thePort->pnVis > 0)
        --qd.thePort->pnVis;
}

void GetPen(Point *location)
{
    if (qd.thePort)
        *location = qd.thePort->pnLoc;
}

void GetPenState(PenState *state)
{
    if (GrafPtr port = qd.thePort)
        *state = {port->pnLoc, port->pnSize, port->pnMode, port->pnPat};
}

void SetPenState(const PenState *state)
{
    PenSize(state->pnSize.h, state->pnSize.v);
    MoveTo(state->pnLoc.h, state->pnLoc.v);
    PenMode(state->pnMode);
    PenPat(&state->pnPat);
}

void MoveTo(SInt16 h, SInt16 v)
{
    if (!recordRegionPoint(h, v) && qd.thePort)
        movePen(*qd.thePort, h, v);
}

void Move(SInt16 dh, SInt16 dv)
{
    if (GrafPtr port = qd.thePort)
        movePen(*port, static_cast<SInt16>(port->pnLoc.h + dh), static_cast<SInt16>(port->pnLoc.v + dv));
}
