/* The Window Manager. */
#ifndef MTBX_MACWINDOWS_H
#define MTBX_MACWINDOWS_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef GrafPtr WindowPtr;
typedef WindowPtr WindowRef;

typedef struct ControlRecord ControlRecord;
typedef ControlRecord *ControlPtr;
typedef ControlPtr *ControlHandle;

#pragma pack(push, 2)

/* A port and what makes it a window. The native window, once the host has made it, stands in pmWindow
   of the port's PixMap. */
typedef struct WindowRecord {
    CGrafPort port;
    SInt16 windowKind;
    UInt8 visible;
    UInt8 hilited;
    UInt8 goAwayFlag;
    UInt8 spareFlag;
    RgnHandle strucRgn;
    RgnHandle contRgn;
    RgnHandle updateRgn;
    /* The window's procID; never called. */
    SInt32 windowDefProc;
    Handle dataHandle;
    StringHandle titleHandle;
    SInt16 titleWidth;
    ControlHandle controlList;
    WindowPtr nextWindow;
    /* 1 between BeginUpdate and EndUpdate; no picture. */
    SInt32 windowPic;
    SRefCon refCon;
    Handle windowExtra;
} WindowRecord;
typedef WindowRecord *WindowPeek;
typedef WindowRecord CWindowRecord;
typedef CWindowRecord *CWindowPeek;

#pragma pack(pop)

MTBX_ASSERT_OFFSET_32(WindowRecord, windowKind, 170);
MTBX_ASSERT_OFFSET_32(WindowRecord, strucRgn, 176);
MTBX_ASSERT_OFFSET_32(WindowRecord, windowDefProc, 188);
MTBX_ASSERT_OFFSET_32(WindowRecord, titleWidth, 200);
MTBX_ASSERT_OFFSET_32(WindowRecord, nextWindow, 206);
MTBX_ASSERT_OFFSET_32(WindowRecord, refCon, 214);
MTBX_ASSERT_SIZE_32(WindowRecord, 222);

/* The head of the window list, which the library keeps. */
extern MTBX_API WindowPtr gFrontWindow;
/* The Window Manager's own port, over the whole screen. */
extern MTBX_API WindowPtr gDesktopWindow;
/* Above 0 while MacShowWindow shows a native window. */
extern MTBX_API SInt32 gOpeningWindowL;

/* Does nothing; InitGraf does the work. */
MTBX_API void InitWindows(void);

/* The desktop below the menu bar in global coordinates, or all monitors while these are the screen's.
   The region is the library's and holds until the next call. */
MTBX_API RgnHandle GetGrayRgn(void);

/* gDesktopWindow, with its coordinates set to those of the main window's client area, to which
   drawing in it is limited. Both calls are the same. */
MTBX_API void GetWMgrPort(GrafPtr *port);
MTBX_API void GetCWMgrPort(CGrafPtr *port);
/* Sets strucRgn to the native window's outer rectangle and contRgn to its client area, in coordinates
   of the main window's client area. Does nothing while there is no native window. */
MTBX_API void AdjustStrucRgn(WindowPtr window);
/* These do nothing. */
MTBX_API void PaintOne(WindowPtr window, RgnHandle clobberedRgn);
MTBX_API void CalcVisBehind(WindowPtr startWindow, RgnHandle clobberedRgn);

#ifdef __cplusplus
}
#endif

#endif
