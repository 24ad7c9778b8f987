// Fields of ports and of qd as calls, and the calls that have nothing to do here.
#include "Quickdraw_internal.h"

#include <mtbx/MacMemory.h>
#include <mtbx/MacWindows.h>
#include <mtbx/OSUtils.h>

#include <algorithm>

namespace {

template <class Record> Record *copied(const Record &field, Record *out)
{
    *out = field;
    return out;
}

// In a 64-bit build the published fields alone take more.
constexpr Size pixPatSize = std::max<Size>(32, sizeof(PixPat));

} // namespace

const BitMap *GetPortBitMapForCopyBits(CGrafPtr port)
{
    return &port->portBits;
}

PixMapHandle GetPortPixMap(CGrafPtr port)
{
    return port->portPixMap;
}

Rect *GetPortBounds(CGrafPtr port, Rect *rect)
{
    return copied(port->portRect, rect);
}

void SetPortBounds(CGrafPtr port, const Rect *rect)
{
    port->portRect = *rect;
}

RgnHandle GetPortVisibleRegion(CGrafPtr port, RgnHandle rgn)
{
    MacCopyRgn(port->visRgn, rgn);
    return rgn;
}

void SetPortVisibleRegion(CGrafPtr port, RgnHandle rgn)
{
    MacCopyRgn(rgn, port->visRgn);
}

RgnHandle GetPortClipRegion(CGrafPtr port, RgnHandle rgn)
{
    MacCopyRgn(port->clipRgn, rgn);
    return rgn;
}

void SetPortClipRegion(CGrafPtr port, RgnHandle rgn)
{
    MacCopyRgn(rgn, port->clipRgn);
}

SInt16 GetPortTextFont(CGrafPtr port)
{
    return port->txFont;
}

Style GetPortTextFace(CGrafPtr port)
{
    return port->txFace;
}

SInt16 GetPortTextMode(CGrafPtr port)
{
    return port->txMode;
}

SInt16 GetPortTextSize(CGrafPtr port)
{
    return port->txSize;
}

CQDProcsPtr GetPortGrafProcs(CGrafPtr port)
{
    return port->grafProcs;
}

void SetPortGrafProcs(CGrafPtr port, CQDProcsPtr procs)
{
    port->grafProcs = procs;
}

Point *GetPortPenSize(CGrafPtr port, Point *size)
{
    return copied(port->pnSize, size);
}

void SetPortPenSize(CGrafPtr port, Point size)
{
    port->pnSize = size;
}

Point *GetPortPenLocation(CGrafPtr port, Point *location)
{
    return copied(port->pnLoc, location);
}

SInt32 GetPortPenMode(CGrafPtr port)
{
    return port->pnMode;
}

void SetPortPenMode(CGrafPtr port, SInt32 mode)
{
    port->pnMode = static_cast<SInt16>(mode);
}

RGBColor *GetPortForeColor(CGrafPtr port, RGBColor *color)
{
    return copied(port->rgbFgColor, color);
}

RGBColor *GetPortBackColor(CGrafPtr port, RGBColor *color)
{
    return copied(port->rgbBkColor, color);
}

PixPatHandle GetPortPenPixPat(CGrafPtr, PixPatHandle pattern)
{
    return pattern;
}

void SetPortPenPixPat(CGrafPtr, PixPatHandle)
{
}

PixPatHandle GetPortBackPixPat(CGrafPtr, PixPatHandle pattern)
{
    return pattern;
}

void SetPortBackPixPat(CGrafPtr, PixPatHandle)
{
}

PixPatHandle NewPixPat()
{
    return reinterpret_cast<PixPatHandle>(NewHandleClear(pixPatSize));
}

void DisposePixPat(PixPatHandle pattern)
{
    DisposeHandle(reinterpret_cast<Handle>(pattern));
}

CGrafPtr GetQDGlobalsThePort()
{
    return qd.thePort;
}

BitMap *GetQDGlobalsScreenBits(BitMap *bits)
{
    return copied(qd.screenBits, bits);
}

Cursor *GetQDGlobalsArrow(Cursor *cursor)
{
    return copied(qd.arrow, cursor);
}

Pattern *GetQDGlobalsDarkGray(Pattern *pattern)
{
    return copied(qd.dkGray, pattern);
}

Pattern *GetQDGlobalsLightGray(Pattern *pattern)
{
    return copied(qd.ltGray, pattern);
}

Pattern *GetQDGlobalsGray(Pattern *pattern)
{
    return copied(qd.gray, pattern);
}

Pattern *GetQDGlobalsBlack(Pattern *pattern)
{
    return copied(qd.black, pattern);
}

Pattern *GetQDGlobalsWhite(Pattern *pattern)
{
    return copied(qd.white, pattern);
}

void SetDeviceAttribute(GDHandle, SInt16, Boolean)
{
}

void QDFlushPortBuffer(CGrafPtr, RgnHandle)
{
}

Boolean QDIsPortBuffered(CGrafPtr)
{
    return false;
}

Boolean QDIsPortBufferDirty(CGrafPtr)
{
    return false;
}

void StdBits(const BitMap *, const Rect *, const Rect *, SInt16, RgnHandle)
{
}

void CalcMask(const void *, void *, SInt16, SInt16, SInt16, SInt16)
{
}
