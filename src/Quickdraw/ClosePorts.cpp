// Closing of ports: what a port owns goes with it.
#include "Ports_internal.h"
#include "Regions_internal.h"

#include <mtbx/MacMemory.h>

namespace {

void disposeRegions(GrafPtr port)
{
    disposeUnlessShared(port->visRgn, sharedRegions.vis);
    disposeUnlessShared(port->clipRgn, sharedRegions.clip);
    port->visRgn = port->clipRgn = nullptr;
}

// Takes the port's brush out of its context and deletes it.
void disposeBrush(GrafPtr port)
{
    if (HDC context = contextOf(*port)) {
        HGDIOBJ former = port->portSavedBrush;
        bool stays = former != nothingSaved && former != port->portBrush;
        SelectObject(context, stays ? former : GetStockObject(WHITE_BRUSH));
    }
    port->portSavedBrush = nothingSaved;
    if (port->portBrush)
        DeleteObject(port->portBrush);
    port->portBrush = nullptr;
}

} // namespace

void CloseCPort(CGrafPtr port)
{
    if (!isColorPort(*port)) {
        ClosePort(port);
        return;
    }
    qdErrorValue = noErr;
    disposeRegions(port);
    disposeBrush(port);
    unselectPortFont(*port);
    if (port->portPixMap)
        disposePixMap(port->portPixMap);
    port->portPixMap = nullptr;
    DisposeHandle(port->grafVars);
    port->grafVars = nullptr;
    if (port->grafProcs)
        DisposePtr(reinterpret_cast<Ptr>(port->grafProcs));
    port->grafProcs = nullptr;
}

void ClosePort(GrafPtr port)
{
    if (isColorPort(*port)) {
        CloseCPort(port);
        return;
    }
    qdErrorValue = noErr;
    disposeRegions(port);
    disposeBrush(port);
    unselectPortFont(*port);
    if (port->portDC)
        DeleteDC(port->portDC);
    port->portDC = nullptr;
}

void DisposePort(CGrafPtr port)
{
    if (!port)
        return;
    // A pointer to freed memory must not stay current.
    if (port == qd.thePort)
        MacSetPort(nullptr);
    CloseCPort(port);
    if (port == qd.thePort)
        qd.thePort = nullptr;
    DisposePtr(reinterpret_cast<Ptr>(port));
}
