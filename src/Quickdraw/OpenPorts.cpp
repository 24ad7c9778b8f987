// Opening of ports.
#include "GdiGuard_internal.h"
#include "Ports_internal.h"

#include <mtbx/MacErrors.h>
#include <mtbx/MacMemory.h>

namespace {

constexpr RGBColor startForeColor = {0, 0, 0};
constexpr RGBColor startBackColor = {65535, 65535, 65535};
constexpr SInt16 defaultTextSize = 12;

// -32768 would be the next wider clip, but moving it by one would leave the range of coordinates.
void makeWidest(RgnHandle clip)
{
    MacSetRectRgn(clip, -32767, -32767, 32767, 32767);
}

bool takeRegions(CGrafPtr port)
{
    bool shared = minimalCreationDepth != 0;
    port->visRgn = shared ? sharedRegions.vis : NewRgn();
    port->clipRgn = shared ? sharedRegions.clip : NewRgn();
    return port->visRgn && port->clipRgn;
}

void clearSelections(GrafPtr port)
{
    port->portBrush = nullptr;
    port->portFont = nullptr;
    port->portFontInstance = nullptr;
    port->portSavedBrush = port->portSavedFont = nothingSaved;
    port->moveInMainClient = 0;
}

void giveBackParts(CGrafPtr port)
{
    disposeUnlessShared(port->visRgn, sharedRegions.vis);
    disposeUnlessShared(port->clipRgn, sharedRegions.clip);
    port->visRgn = port->clipRgn = nullptr;
    if (port->portPixMap)
        disposePixMap(port->portPixMap);
    port->portPixMap = nullptr;
    DisposeHandle(port->grafVars);
    port->grafVars = nullptr;
    // Whatever the record held, closing it is to be safe.
    port->portDC = nullptr;
    clearSelections(port);
}

bool takeParts(CGrafPtr port)
{
    bool complete = takeRegions(port);
    port->portPixMap = newPixMap();
    port->grafVars = NewHandleClear(sizeof(GrafVars));
    return complete && port->portPixMap && port->grafVars;
}

void setPenAndText(CGrafPtr port)
{
    port->pnMode = patCopy;
    port->pnSize = {1, 1};
    port->portFontDirty = 1;
    port->txFont = 0;
    port->txFace = 0;
    port->txMode = srcCopy;
    port->txSize = defaultTextSize;
}

void setColors(CGrafPtr port)
{
    port->rgbFgColor = startForeColor;
    port->rgbBkColor = startBackColor;
    port->fgColor = cutColor(startForeColor);
    port->bkColor = cutColor(startBackColor);
}

void setBasicPenAndText(GrafPtr port)
{
    port->bkPat = qd.white;
    port->fillPat = qd.black;
    port->pnLoc = {0, 0};
    port->pnSize = {1, 1};
    port->pnMode = patCopy;
    port->pnPat = qd.black;
    port->pnVis = 0;
    port->txFont = 0;
    port->txFace = 0;
    port->txSize = 0;
    port->spExtra = 0;
    port->txMode = srcOr;
    port->fgColor = blackColor;
    port->bkColor = whiteColor;
}

// The first brush needs the port to be current. The very first port stays current.
void makeFirstBrush(CGrafPtr port)
{
    GrafPtr former = qd.thePort;
    MacSetPort(port);
    port->bkPat = qd.white;
    port->fillPat = qd.black;
    PenPat(&qd.black);
    if (firstPort)
        MacSetPort(former);
}

HDC newMemoryContext()
{
    HWND desktop = GetDesktopWindow();
    HDC screen = GetDC(desktop);
    HDC context = MTBX_CreateCompatibleDC(screen);
    ReleaseDC(desktop, screen);
    return context;
}

} // namespace

void OpenCPort(CGrafPtr port)
{
    qdErrorValue = noErr;
    port->device = 0;
    port->portBrush = nullptr;
    port->grafProcs = nullptr;
    if (!takeParts(port)) {
        giveBackParts(port);
        qdErrorValue = memFullErr;
        return;
    }
    port->portVersion = 0xC000;
    makeWidest(port->clipRgn);
    SetEmptyRgn(port->visRgn);
    setPenAndText(port);
    setColors(port);
    port->picSave = port->rgnSave = port->polySave = nullptr;
    port->portColorStamp = 0;
    clearSelections(port);
    makeFirstBrush(port);
}

CGrafPtr CreateNewPort()
{
    auto port = reinterpret_cast<CGrafPtr>(NewPtrClear(sizeof(CGrafPort)));
    if (port) {
        port->portOffscreen = 1;
        OpenCPort(port);
    }
    return port;
}

void OpenPort(GrafPtr port)
{
    qdErrorValue = noErr;
    port->device = 0;
    port->portBits = qd.screenBits;
    port->portRect = qd.screenBits.bounds;
    // Whatever the record held, closing it is to be safe.
    port->portDC = nullptr;
    clearSelections(port);
    port->visRgn = NewRgn();
    port->clipRgn = NewRgn();
    if (!port->visRgn || !port->clipRgn) {
        disposeUnlessShared(port->visRgn, nullptr);
        disposeUnlessShared(port->clipRgn, nullptr);
        port->visRgn = port->clipRgn = nullptr;
        qdErrorValue = memFullErr;
        return;
    }
    MacSetRectRgn(port->clipRgn, -32768, -32768, 32767, 32767);
    RectRgn(port->visRgn, &port->portRect);
    setBasicPenAndText(port);
    port->colrBit = port->patStretch = 0;
    port->picSave = port->rgnSave = port->polySave = nullptr;
    port->grafProcs = nullptr;
    port->portOffscreen = 1;
    port->portDC = newMemoryContext();
    port->portBitmap = port->portOldBitmap = nullptr;
    MacSetPort(port);
}
