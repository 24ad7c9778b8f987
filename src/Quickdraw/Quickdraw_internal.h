// What the drawing calls of all managers share: the current port's context, and the state that lives
// from InitGraf to MTBX_ShutdownGraf.
#pragma once

#include <mtbx/Quickdraw.h>

// The port to which MacSetPort(null) goes: the one that InitGraf opens on the main window.
extern GrafPtr firstPort;
// A context to measure with when a port has none.
extern HDC fallbackDC;

// Handed to ports and windows that are made in minimal mode; never disposed with them.
extern RgnHandle sharedClipRgn;
extern RgnHandle sharedVisRgn;
extern RgnHandle sharedStrucRgn;
extern RgnHandle sharedContRgn;
extern RgnHandle sharedUpdateRgn;

// Above 0 while new ports and windows take the shared regions.
extern SInt32 minimalCreationDepth;
// The value of QDError.
extern SInt16 qdErrorValue;

inline bool isColorPort(const GrafPort &port)
{
    return (port.portVersion & 0xC000) == 0xC000;
}

// The PixMap of a colour port; null for a basic port and for one that is closed or was never opened.
inline PixMapPtr pixMapOf(const GrafPort &port)
{
    return isColorPort(port) && port.portPixMap ? *port.portPixMap : nullptr;
}

// The context on which a port draws, or null: GDI refuses that, so drawing then does nothing.
inline HDC contextOf(const GrafPort &port)
{
    if (isColorPort(port)) [[likely]]
        return port.portPixMap ? (*port.portPixMap)->pmDC : nullptr;
    return port.portDC;
}

// The same for the current port. There is none before InitGraf.
inline HDC currentContext()
{
    return qd.thePort ? contextOf(*qd.thePort) : nullptr;
}
