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

enum { dialogKind = 2, userKind = 8 };

/* What a procID asks for; the host's native windows decide what it gives. Above 16 a window stays out of
   the window list. */
enum {
    documentProc = 0,
    dBoxProc = 1,
    plainDBox = 2,
    altDBoxProc = 3,
    noGrowDocProc = 4,
    movableDBoxProc = 5,
    zoomDocProc = 8,
    zoomNoGrow = 12,
    rDocProc = 16
};

/* The parts that MacFindWindow and ZoomWindow know. */
enum { inDesk = 0, inMenuBar = 1, inSysWindow = 2, inContent = 3, inDrag = 4, inGrow = 5, inGoAway = 6, inZoomIn = 7, inZoomOut = 8 };

typedef SInt16 WindowPartCode;
typedef UInt32 WindowAttributes;
typedef UInt16 WindowRegionCode;
/* The regions that a window is asked for. */
enum { kWindowStructureRgn = 32, kWindowContentRgn = 33, kWindowUpdateRgn = 34 };

typedef void (*DragGrayRgnProcPtr)(void);

/* The head of the window list, which the library keeps. */
extern MTBX_API WindowPtr gFrontWindow;
/* The Window Manager's own port, over the whole screen. */
extern MTBX_API WindowPtr gDesktopWindow;
/* Above 0 while MacShowWindow shows a native window. */
extern MTBX_API SInt32 gOpeningWindowL;

/* Does nothing; InitGraf does the work. */
MTBX_API void InitWindows(void);

/* Making and disposing.

   A new window is a record at the head of the window list (behind is not looked at). The host makes the
   native window, stores its handle in pmWindow of the port's PixMap, ties the record to it with
   SetHwndMacWindowPtr, and calls AdjustWindow or SizeWindow. Until then portRect is boundsRect as it is.
   wStorage is a WindowRecord of the caller's or null; title may be null. Null when memory or native objects
   are short: storage of the caller's is then the caller's to free. */
MTBX_API WindowPtr NewCWindow(void *wStorage, const Rect *boundsRect, ConstStr255Param title, Boolean visible,
                              SInt16 procID, WindowPtr behind, Boolean goAwayFlag, SRefCon refCon);
MTBX_API WindowPtr NewWindow(void *wStorage, const Rect *boundsRect, ConstStr255Param title, Boolean visible,
                             SInt16 procID, WindowPtr behind, Boolean goAwayFlag, SRefCon refCon);
/* From a WIND resource: bounds, procID, visible, goAwayFlag (16 bits each), refCon (32 bits), and the title
   with a NUL behind it. Null when there is none or it is too short. */
MTBX_API WindowPtr GetNewCWindow(SInt16 windowID, void *wStorage, WindowPtr behind);
MTBX_API WindowPtr GetNewWindow(SInt16 windowID, void *wStorage, WindowPtr behind);
/* Takes the window out of the list, sends WM_CLOSE to its native window, which the host destroys (what it
   leaves is destroyed with the port; hWndMain too, without WM_CLOSE), and frees the record, be it the
   library's or the caller's, and all that belongs to it, its controls' records too. */
MTBX_API void DisposeWindow(WindowPtr window);

/* The window list, which is the library's own order of windows: only SendBehind changes the native one. */
MTBX_API WindowPtr FrontWindow(void);
MTBX_API void BringToFront(WindowPtr window);
/* To the head of the list, shown and hilited. Other windows stay hilited, and the native window is not
   activated. */
MTBX_API void SelectWindow(WindowPtr window);
/* Puts the window right behind the other; nothing happens unless both are in the list. */
MTBX_API void SendBehind(WindowPtr window, WindowPtr behindWindow);

/* Showing. The native window is shown without becoming active. */
MTBX_API void MacShowWindow(WindowPtr window);
MTBX_API void HideWindow(WindowPtr window);
MTBX_API void ShowHide(WindowPtr window, Boolean showFlag);
/* Stores the flag only. */
MTBX_API void HiliteWindow(WindowPtr window, Boolean fHilite);

/* Place and size.

   Moves the client area, not the frame, to a point of the screen; of the main window's client area if the
   port's moveInMainClient is 1 and coordinates are not the screen's. front is not looked at. */
MTBX_API void MacMoveWindow(WindowPtr window, SInt16 hGlobal, SInt16 vGlobal, Boolean front);
/* Sizes the client area; portRect becomes what the system gave. Without fUpdate nothing is redrawn. */
MTBX_API void SizeWindow(WindowPtr window, SInt16 w, SInt16 h, Boolean fUpdate);
/* To the first rectangle of dataHandle for inZoomIn, else to the second; the host keeps both. */
MTBX_API void ZoomWindow(WindowPtr window, WindowPartCode partCode, Boolean front);
/* Does not track: the message of the event in gTheEvent if that is this window's size event, else 0. */
MTBX_API SInt32 GrowWindow(WindowPtr window, Point startPt, const Rect *bBox);
/* Sets strucRgn to the native window's outer rectangle and contRgn to its client area, in coordinates
   of the main window's client area. Does nothing while there is no native window. */
MTBX_API void AdjustStrucRgn(WindowPtr window);
/* The same, and what follows from it: the PixMap's bounds, and visRgn, which becomes portRect. */
MTBX_API void AdjustWindow(WindowPtr window);
/* The size box, at the lower right corner of the current port, as wide as the box of its clip. The window is
   not looked at. */
MTBX_API void DrawGrowIcon(WindowPtr window);

/* The part at a point of the main window's client area: inDesk, inContent or inDrag, which stands for the
   whole frame. whichWindow becomes the window, the Window Manager's port over the main window's own client
   area, or null. */
MTBX_API WindowPartCode MacFindWindow(Point thePoint, WindowPtr *whichWindow);

/* Updates. Regions and rectangles are in the window's own coordinates. The native update region and
   updateRgn are changed together; nothing happens while there is no native window. */
MTBX_API OSStatus InvalWindowRgn(WindowPtr window, RgnHandle rgn);
MTBX_API OSStatus InvalWindowRect(WindowPtr window, const Rect *rect);
MTBX_API OSStatus ValidWindowRgn(WindowPtr window, RgnHandle rgn);
MTBX_API OSStatus ValidWindowRect(WindowPtr window, const Rect *rect);
/* Limits visRgn to what is to be updated, until EndUpdate. The native BeginPaint is the host's. */
MTBX_API void BeginUpdate(WindowPtr window);
MTBX_API void EndUpdate(WindowPtr window);
MTBX_API Boolean IsWindowUpdatePending(WindowPtr window);
/* Stops the native window's drawing, or lets it go on and repaints the frame. Null is allowed. */
MTBX_API void SetRedraw(WindowPtr window, Boolean flag);

/* What a window is. */
MTBX_API SRefCon GetWRefCon(WindowPtr window);
MTBX_API void SetWRefCon(WindowPtr window, SRefCon data);
MTBX_API void SetWTitle(WindowPtr window, ConstStr255Param title);
MTBX_API void GetWTitle(WindowPtr window, Str255 title);
/* False for null and for an offscreen world. */
MTBX_API Boolean IsValidWindowPtr(WindowPtr window);
/* These give paramErr for what is no window and unimpErr for an unknown code. The attributes are 0. */
MTBX_API OSStatus GetWindowAttributes(WindowPtr window, WindowAttributes *attributes);
MTBX_API OSStatus GetWindowBounds(WindowPtr window, WindowRegionCode code, Rect *bounds);
MTBX_API OSStatus GetWindowRegion(WindowPtr window, WindowRegionCode code, RgnHandle rgn);
MTBX_API WindowPtr GetWindowFromPort(CGrafPtr port);

/* The native window of a port, or null. */
MTBX_API HWND GetMacWindowPtrHwnd(CGrafPtr port);
/* The record of a native window, or null. Setting null unties them. */
MTBX_API WindowPtr GetHwndMacWindowPtr(HWND nativeWindow);
MTBX_API void SetHwndMacWindowPtr(HWND nativeWindow, WindowPtr window);
/* The host's own reference for the dialog of a native window. */
MTBX_API void *GetHwndVdmDlgRef(HWND nativeWindow);
MTBX_API void SetHwndVdmDlgRef(HWND nativeWindow, void *reference);

/* The desktop below the menu bar in global coordinates, or all monitors while these are the screen's.
   The region is the library's and holds until the next call. */
MTBX_API RgnHandle GetGrayRgn(void);

/* gDesktopWindow, with its coordinates set to those of the main window's client area, to which
   drawing in it is limited. Both calls are the same. */
MTBX_API void GetWMgrPort(GrafPtr *port);
MTBX_API void GetCWMgrPort(CGrafPtr *port);

/* Inverts the region in the current port for a tenth of a second, if a debugger has switched that on. */
MTBX_API void MTBX_FlashRgn(RgnHandle rgn);

/* These do nothing: frames are the system's. */
MTBX_API void PaintOne(WindowPtr window, RgnHandle clobberedRgn);
MTBX_API void CalcVisBehind(WindowPtr startWindow, RgnHandle clobberedRgn);
MTBX_API void ClipAbove(WindowPtr window);
MTBX_API void DragWindow(WindowPtr window, Point startPt, const Rect *boundsRect);
/* False, and true: the system tracks the boxes of a frame. */
MTBX_API Boolean TrackBox(WindowPtr window, Point thePt, WindowPartCode partCode);
MTBX_API Boolean TrackGoAway(WindowPtr window, Point thePt);
/* Not implemented; returns 0. */
MTBX_API SInt32 DragGrayRgn(RgnHandle theRgn, Point startPt, const Rect *limitRect, const Rect *slopRect, SInt16 axis,
                            DragGrayRgnProcPtr actionProc);

#ifdef __cplusplus
}
#endif

#endif
