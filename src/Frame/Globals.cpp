// The variables that host and library share.
#include <mtbx/MTBXGlobals.h>

HWND hWndMain;
HWND hWndTools;
HACCEL hAccel;
HINSTANCE hExeInst;
HINSTANCE hResInst;
HINSTANCE hCurInst;
HBRUSH hbrControl;
COLORREF rgbControl;
HMENU hMenuMain;

EventRecord gTheEvent;
SInt16 gEventMask;
UInt8 insideAlert;
UInt8 insideSetFocus;
SInt32 gMenuSelect;
SInt32 gAppIsActive;
POINT gCursorPos;
SInt32 gOpeningWindowL;

SInt32 gWin32S;
SInt32 gWin95;
SInt32 gWinNT3;
SInt32 gWinNT4;
SInt32 gWin2000;

SInt32 gInWindowsCommonDialog;
SInt32 gUseWindowsOLE;
UInt32 gZephantClipboardFormat;
SInt32 gEmbeddingOLE;
SInt32 gApplicationHidden;

WindowPtr gFrontWindow;
WindowPtr gDesktopWindow;
WindowPtr gEventWindow;
Point gEventWhere;

HPALETTE gworld_palette;
HPALETTE gcurrent_palette;
UInt8 S_use_DrawTextB;
RECT S_drawTextR;
QDGlobals qd;

SInt16 gscreen_planes;
SInt16 gbits_per_plane;
SInt16 gbits_per_pixel;

SInt32 gAnimCursor = 1;
UInt8 gCreate_DIB_B = 1;
UInt8 G_useSecondButton;
