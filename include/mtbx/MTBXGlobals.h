/* Variables that the host and the library share. Unless a comment says otherwise the host owns a
   variable and the library only reads it, or does not even read it; all begin as 0 or null. */
#ifndef MTBX_MTBXGLOBALS_H
#define MTBX_MTBXGLOBALS_H

#include <mtbx/Events.h>
#include <mtbx/MacWindows.h>
#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The main frame window, set before InitGraf: owner of the library's windows and dialogs, and origin
   of global coordinates. */
extern MTBX_API HWND hWndMain;
extern MTBX_API HWND hWndTools;
extern MTBX_API HACCEL hAccel;
/* The module of the host's executable. */
extern MTBX_API HINSTANCE hExeInst;
/* The module that holds the resources, set before InitResources. */
extern MTBX_API HINSTANCE hResInst;
extern MTBX_API HINSTANCE hCurInst;
extern MTBX_API HBRUSH hbrControl;
extern MTBX_API COLORREF rgbControl;
/* The native menu bar. */
extern MTBX_API HMENU hMenuMain;

extern MTBX_API SInt16 gEventMask;
extern MTBX_API UInt8 insideAlert;
/* Written by the library: 1 while SelectDialogItemText moves the focus. */
extern MTBX_API UInt8 insideSetFocus;
/* Written by the host's menu command, taken and cleared by MenuSelect and PopUpMenuSelect. */
extern MTBX_API SInt32 gMenuSelect;
extern MTBX_API SInt32 gAppIsActive;
extern MTBX_API POINT gCursorPos;

/* The platform, told by the host. gWin32S selects the behaviour for small memory. */
extern MTBX_API SInt32 gWin32S;
extern MTBX_API SInt32 gWin95;
extern MTBX_API SInt32 gWinNT3;
extern MTBX_API SInt32 gWinNT4;
extern MTBX_API SInt32 gWin2000;

extern MTBX_API SInt32 gInWindowsCommonDialog;
extern MTBX_API SInt32 gUseWindowsOLE;
extern MTBX_API UInt32 gZephantClipboardFormat;
/* Non-zero keeps MTBX_InitMem from changing the working set. */
extern MTBX_API SInt32 gEmbeddingOLE;
extern MTBX_API SInt32 gApplicationHidden;
extern MTBX_API WindowPtr gEventWindow;
extern MTBX_API Point gEventWhere;

/* Written by the library: the palette that it made, and the one that is in force. */
extern MTBX_API HPALETTE gworld_palette;
extern MTBX_API HPALETTE gcurrent_palette;

/* Non-zero makes MacDrawText draw with DrawTextA into S_drawTextR, on one line and centred in its
   height. */
extern MTBX_API UInt8 S_use_DrawTextB;
extern MTBX_API RECT S_drawTextR;

/* Written by InitGraf: planes, bits in each plane, and bits per pixel of the screen, the last 32 for
   all screens of 16 bits and more. */
extern MTBX_API SInt16 gscreen_planes;
extern MTBX_API SInt16 gbits_per_plane;
extern MTBX_API SInt16 gbits_per_pixel;

/* Begins as 1: MacGetCursor looks for an animated cursor file. */
extern MTBX_API SInt32 gAnimCursor;
/* Begins as 1: a one-bit offscreen world is a DIB section; 0 makes it a plain bitmap. */
extern MTBX_API UInt8 gCreate_DIB_B;
/* Button asks for the left button when this equals what the system says of swapped buttons, else for
   the right one. */
extern MTBX_API UInt8 G_useSecondButton;

#ifdef __cplusplus
}
#endif

#endif
