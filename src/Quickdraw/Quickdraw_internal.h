// What the drawing calls of all managers share: the current port's context, the hooks, the clip, and
// the state that lives from InitGraf to MTBX_ShutdownGraf.
#pragma once

#include <mtbx/Quickdraw.h>

// The port to which MacSetPort(null) goes: the one that InitGraf opens on the main window.
extern GrafPtr firstPort;
// A context to measure with when a port has none.
extern HDC fallbackDC;
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

// The context for measuring text: that of the current port, or the spare one.
inline HDC measuringContext()
{
    HDC context = currentContext();
    return context ? context : fallbackDC;
}

// In portSavedBrush and portSavedFont: nothing was saved.
inline const HGDIOBJ nothingSaved = reinterpret_cast<HGDIOBJ>(intptr_t{-1});

// What the text manager does as ports take contexts and give them back. Until it has put its functions
// here, a port's font is none of the context's.
struct PortFontCalls {
    SInt16 (*select)(GrafPtr port);
    SInt16 (*unselect)(GrafPtr port);
};
extern PortFontCalls portFontCalls;

inline void unselectPortFont(GrafPort &port)
{
    if (portFontCalls.unselect)
        portFontCalls.unselect(&port);
}

// The window that owns the library's dialogs. Until the Dialog Manager has put its function here, that is
// hWndMain.
extern HWND (*modalOwnerCall)();

// Gives a port its context, with its origin, brush, font, bitmap and colours selected there.
void MTBX_TakeContext(GrafPort &port);
// Takes a port's brush and font out of its context; a window's is released.
void MTBX_GiveBackContext(GrafPort &port);

// Selects the port's clip into its context, limited to the extra region unless that is null; for a
// window's port it is limited to visRgn. Sets the value of QDError when it had to leave the former clip.
void MTBX_ComputePortClip(GrafPort &port, RgnHandle extraRgn);

// The native colour of three 16-bit channels, rounded, and with the low bytes cut off.
inline COLORREF roundedColor(const RGBColor &color)
{
    auto rounded = [](UInt16 channel) { return (UInt32{channel} + 128) / 257; };
    return rounded(color.red) | rounded(color.green) << 8 | rounded(color.blue) << 16;
}
inline COLORREF cutColor(const RGBColor &color)
{
    return UInt32{color.red} >> 8 | (color.green & 0xFF00U) | (color.blue & 0xFF00U) << 8;
}

// A brush that paints the pattern in the context's text and background colours, or null. The caller
// deletes it.
HBRUSH MTBX_NewPatternBrush(const Pattern &pattern);

// A pen of that width, from 0, that draws the pattern likewise; for diagonal lines. Null when GDI refuses it.
HPEN MTBX_NewPatternPen(const Pattern &pattern, SInt16 width);

inline bool isXorMode(SInt16 penMode)
{
    return penMode == srcXor || penMode == patXor;
}

// The raster operation of PatBlt for a pen mode.
DWORD MTBX_PatternRaster(SInt16 penMode);
// The raster mode of lines and shapes that stands for the exclusive-or modes.
int MTBX_XorRasterMode();

// The host's graphics hooks, if the current port has any. True when a hook drew, so that the library
// draws nothing.
bool MTBX_TextHook(SInt16 byteCount, const void *text, Point numerator, Point denominator);
bool MTBX_LineHook(Point newPoint);
bool MTBX_RectHook(GrafVerb verb, const Rect *rect);
bool MTBX_RoundRectHook(GrafVerb verb, const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight);
bool MTBX_OvalHook(GrafVerb verb, const Rect *rect);
bool MTBX_PolyHook(GrafVerb verb, PolyHandle poly);
bool MTBX_RegionHook(GrafVerb verb, RgnHandle rgn);
// For a copy to the current port; to other images the hook is not called.
bool MTBX_BitsHook(const BitMap *source, const BitMap *destination, const Rect *sourceRect,
                   const Rect *destinationRect, SInt16 mode, RgnHandle mask);

// Regions that ports and windows of minimal mode take instead of regions of their own; never disposed
// with them.
struct SharedRegions {
    RgnHandle clip, vis;
    RgnHandle struc, cont, update;
};
extern SharedRegions sharedRegions;
// While above 0, minimal mode is on.
extern SInt32 minimalCreationDepth;

inline void disposeUnlessShared(RgnHandle rgn, RgnHandle shared)
{
    if (rgn && rgn != shared)
        DisposeRgn(rgn);
}

// Start and end of the parts of QuickDraw, for InitGraf and MTBX_ShutdownGraf.
void MTBX_StartClipping();
void MTBX_StopClipping();
void MTBX_StartSharedRegions();
void MTBX_StopSharedRegions();
void MTBX_StartPatterns();
void MTBX_StopPatterns();
void MTBX_ForgetDevice();
// The settings "UseSafeXorMode" and "MinimalGdiItemCreation".
void MTBX_ReadXorSetting();
void MTBX_ReadMinimalModeSetting();
