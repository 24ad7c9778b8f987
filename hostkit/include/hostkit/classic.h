/* The names that Macintosh sources use and the library leaves to its host.

   Included behind or instead of <mtbx/MTBX.h>, by those sources only:

   - calls of the library that leave part of their work to the host (WaitNextEvent, NewWindow, DragWindow, ...) become
     the host kit's, which do the whole of it;
   - calls that the library exports with the prefix Mac since Win32 has the name (MacSetRect, MacShowWindow, ...) have
     their own name again. In C++ both meanings live side by side, told apart by their arguments. In C these names
     are the Toolbox's alone in a source that includes this header;
   - small calls, accessors and makers of procedure pointers that need no library.

   HostKitStart has done what InitGraf and its like do; sources may go on calling them. */
#ifndef HOSTKIT_CLASSIC_H
#define HOSTKIT_CLASSIC_H

#include <hostkit/hostkit.h>
#include <hostkit/pascal_literals.h>

#ifndef __cplusplus
#include <stdbool.h>
#endif
#include <string.h>

/* The system's headers make it a calling convention, which procedures for the Toolbox do not have here. */
#undef pascal
#define pascal
#ifndef nil
#define nil NULL
#endif

/* Done by HostKitStart. */
#define InitGraf(port) ((void)(port))
#define InitFonts() ((void)0)
#define InitWindows() ((void)0)
#define TEInit() ((void)0)
#define InitDialogs(resumeProc) ((void)(resumeProc))

/* The host kit's part. */
#define WaitNextEvent HostKitWaitNextEvent
#define GetNextEvent HostKitGetNextEvent
#define GetOSEvent HostKitGetNextEvent
#define EventAvail HostKitEventAvail
#define OSEventAvail HostKitEventAvail
#define FlushEvents HostKitFlushEvents
#define StillDown HostKitStillDown
#define WaitMouseUp HostKitWaitMouseUp
#define NewWindow HostKitNewWindow
#define NewCWindow HostKitNewWindow
#define GetNewWindow HostKitGetNewWindow
#define GetNewCWindow HostKitGetNewWindow
#define SelectWindow HostKitSelectWindow
#define BringToFront HostKitBringToFront
#define SendBehind HostKitSendBehind
#define HideWindow HostKitHideWindow
#define FrontWindow HostKitFrontWindow
#define DragWindow HostKitDragWindow
#define GrowWindow HostKitGrowWindow
#define ZoomWindow HostKitZoomWindow
#define TrackGoAway HostKitTrackGoAway
#define TrackBox HostKitTrackBox
#define DragGrayRgn HostKitDragGrayRgn
#define SetGrowZone HostKitSetGrowZone
#define HiliteMenu HostKitHiliteMenu

/* Names that Win32 has, too. */
#ifdef __cplusplus
inline void ShowWindow(WindowPtr window)
{
    HostKitShowWindow(window);
}
inline void MoveWindow(WindowPtr window, SInt16 h, SInt16 v, Boolean front)
{
    HostKitMoveWindow(window, h, v, front);
}
inline void CloseWindow(WindowPtr window)
{
    HostKitCloseWindow(window);
}
inline SInt16 FindWindow(Point where, WindowPtr *window)
{
    return HostKitFindWindow(where, window);
}
inline void SetPort(GrafPtr port)
{
    MacSetPort(port);
}
inline void SetRect(Rect *rect, SInt16 left, SInt16 top, SInt16 right, SInt16 bottom)
{
    MacSetRect(rect, left, top, right, bottom);
}
inline void OffsetRect(Rect *rect, SInt16 h, SInt16 v)
{
    MacOffsetRect(rect, h, v);
}
inline void InsetRect(Rect *rect, SInt16 h, SInt16 v)
{
    MacInsetRect(rect, h, v);
}
inline void UnionRect(const Rect *first, const Rect *second, Rect *result)
{
    MacUnionRect(first, second, result);
}
inline Boolean EqualRect(const Rect *first, const Rect *second)
{
    return MacEqualRect(first, second);
}
inline Boolean PtInRect(Point point, const Rect *rect)
{
    return MacPtInRect(point, rect);
}
inline void FrameRect(const Rect *rect)
{
    MacFrameRect(rect);
}
inline void InvertRect(const Rect *rect)
{
    MacInvertRect(rect);
}
inline void FillRect(const Rect *rect, const Pattern *pattern)
{
    MacFillRect(rect, pattern);
}
inline void LineTo(SInt16 h, SInt16 v)
{
    MacLineTo(h, v);
}
inline Boolean GetPixel(SInt16 h, SInt16 v)
{
    return MacGetPixel(h, v);
}
inline void CopyRgn(RgnHandle source, RgnHandle destination)
{
    MacCopyRgn(source, destination);
}
inline void SetRectRgn(RgnHandle rgn, SInt16 left, SInt16 top, SInt16 right, SInt16 bottom)
{
    MacSetRectRgn(rgn, left, top, right, bottom);
}
inline void OffsetRgn(RgnHandle rgn, SInt16 h, SInt16 v)
{
    MacOffsetRgn(rgn, h, v);
}
inline void UnionRgn(RgnHandle first, RgnHandle second, RgnHandle result)
{
    MacUnionRgn(first, second, result);
}
inline void XorRgn(RgnHandle first, RgnHandle second, RgnHandle result)
{
    MacXorRgn(first, second, result);
}
inline Boolean EqualRgn(RgnHandle first, RgnHandle second)
{
    return MacEqualRgn(first, second);
}
inline void FrameRgn(RgnHandle rgn)
{
    MacFrameRgn(rgn);
}
inline void PaintRgn(RgnHandle rgn)
{
    MacPaintRgn(rgn);
}
inline void InvertRgn(RgnHandle rgn)
{
    MacInvertRgn(rgn);
}
inline void FillRgn(RgnHandle rgn, const Pattern *pattern)
{
    MacFillRgn(rgn, pattern);
}
inline void DrawText(const void *text, SInt16 firstByte, SInt16 byteCount)
{
    MacDrawText(text, firstByte, byteCount);
}
inline CursHandle GetCursor(SInt16 cursorID)
{
    return MacGetCursor(cursorID);
}
inline void SetCursor(const Cursor *cursor)
{
    MacSetCursor(cursor);
}
inline void ShowCursor()
{
    MacShowCursor();
}
inline void LoadResource(Handle resource)
{
    MacLoadResource(resource);
}
#else
#undef FindWindow
#undef DrawText
#undef SetPort
#define ShowWindow HostKitShowWindow
#define MoveWindow HostKitMoveWindow
#define CloseWindow HostKitCloseWindow
#define FindWindow HostKitFindWindow
#define SetPort MacSetPort
#define SetRect MacSetRect
#define OffsetRect MacOffsetRect
#define InsetRect MacInsetRect
#define UnionRect MacUnionRect
#define EqualRect MacEqualRect
#define PtInRect MacPtInRect
#define FrameRect MacFrameRect
#define InvertRect MacInvertRect
#define FillRect MacFillRect
#define LineTo MacLineTo
#define GetPixel MacGetPixel
#define CopyRgn MacCopyRgn
#define SetRectRgn MacSetRectRgn
#define OffsetRgn MacOffsetRgn
#define UnionRgn MacUnionRgn
#define XorRgn MacXorRgn
#define EqualRgn MacEqualRgn
#define FrameRgn MacFrameRgn
#define PaintRgn MacPaintRgn
#define InvertRgn MacInvertRgn
#define FillRgn MacFillRgn
#define DrawText MacDrawText
#define GetCursor MacGetCursor
#define SetCursor MacSetCursor
#define ShowCursor MacShowCursor
#define LoadResource MacLoadResource
#endif

/* Old spellings. */
#define DisposHandle DisposeHandle
#define DisposPtr DisposePtr
#define DisposeRgnHandle DisposeRgn
#define topLeft(rect) (*(Point *)&(rect).top)
#define botRight(rect) (*(Point *)&(rect).bottom)

/* Events and the mouse. */
static inline void SetEventMask(EventMask mask)
{
    gEventMask = (SInt16)mask;
}
static inline void SysBeep(SInt16 duration)
{
    (void)duration;
    MessageBeep(MB_OK);
}

/* What is to be drawn of the current port's window. */
static inline void InvalRect(const Rect *rect)
{
    if (qd.thePort)
        InvalWindowRect((WindowPtr)qd.thePort, rect);
}
static inline void ValidRect(const Rect *rect)
{
    if (qd.thePort)
        ValidWindowRect((WindowPtr)qd.thePort, rect);
}
static inline void InvalRgn(RgnHandle rgn)
{
    if (qd.thePort)
        InvalWindowRgn((WindowPtr)qd.thePort, rgn);
}
static inline void ValidRgn(RgnHandle rgn)
{
    if (qd.thePort)
        ValidWindowRgn((WindowPtr)qd.thePort, rgn);
}

/* Windows, dialogs and ports are one record here. */
static inline CGrafPtr GetWindowPort(WindowPtr window)
{
    return (CGrafPtr)window;
}
static inline void SetPortWindowPort(WindowPtr window)
{
    MacSetPort((GrafPtr)window);
}
static inline WindowPtr GetDialogWindow(WindowPtr dialog)
{
    return dialog;
}
static inline WindowPtr GetDialogFromWindow(WindowPtr window)
{
    return window;
}
static inline CGrafPtr GetDialogPort(WindowPtr dialog)
{
    return (CGrafPtr)dialog;
}
static inline void SetPortDialogPort(WindowPtr dialog)
{
    MacSetPort((GrafPtr)dialog);
}
static inline SInt16 GetWindowKind(WindowPtr window)
{
    return ((WindowPeek)window)->windowKind;
}
static inline void SetWindowKind(WindowPtr window, SInt16 kind)
{
    ((WindowPeek)window)->windowKind = kind;
}
/* Null at the end of the list. Win32 has a macro of this name. */
#undef GetNextWindow
#ifdef __cplusplus
inline HWND GetNextWindow(HWND window, UINT which)
{
    return GetWindow(window, which);
}
#endif
static inline WindowPtr GetNextWindow(WindowPtr window)
{
    WindowPtr next = ((WindowPeek)window)->nextWindow;
    return next == gDesktopWindow ? NULL : next;
}
static inline Boolean IsWindowHilited(WindowPtr window)
{
    return ((WindowPeek)window)->hilited;
}
static inline Rect *GetWindowPortBounds(WindowPtr window, Rect *bounds)
{
    *bounds = window->portRect;
    return bounds;
}

/* Memory. */
/* Adds bytes behind a handle's block; memFullErr leaves it as it was. The bytes may be of the block itself. */
static inline OSErr PtrAndHand(const void *bytes, Handle hand, Size size)
{
    Size old = GetHandleSize(hand);
    const char *from = (const char *)bytes;
    Size inside = old && from >= *hand && from < *hand + old ? (Size)(from - *hand) : -1;
    if (size <= 0)
        return noErr;
    if (size > 0x7FFFFFFF - old)
        return memFullErr;
    SetHandleSize(hand, old + size);
    if (MemError() != noErr)
        return MemError();
    memmove(*hand + old, inside >= 0 ? *hand + inside : from, (size_t)size);
    return noErr;
}

/* Files. */
/* A file beyond 2 GB counts as 2 GB less one byte. */
static inline OSErr GetEOF(SInt16 refNum, SInt32 *logEOF)
{
    HANDLE file = MTBX_GetFileHandle(refNum);
    DWORD high = 0;
    DWORD low = GetFileSize(file, &high);
    if (low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR)
        return rfNumErr;
    *logEOF = high || low > 0x7FFFFFFF ? 0x7FFFFFFF : (SInt32)low;
    return noErr;
}
static inline OSErr FSpCreate(const FSSpec *spec, OSType creator, OSType fileType, ScriptCode script)
{
    (void)script;
    return HCreate(spec->vRefNum, spec->parID, spec->name, creator, fileType);
}
static inline OSErr FSpDelete(const FSSpec *spec)
{
    HParamBlockRec block;
    memset(&block, 0, sizeof block);
    block.fileParam.ioVRefNum = spec->vRefNum;
    block.fileParam.ioDirID = spec->parID;
    block.fileParam.ioNamePtr = (StringPtr)spec->name;
    return PBHDeleteSync(&block);
}
static inline OSErr FSpOpenDF(const FSSpec *spec, SInt8 permission, SInt16 *refNum)
{
    return HOpen(spec->vRefNum, spec->parID, spec->name, permission, refNum);
}
static inline OSErr FSpRename(const FSSpec *spec, ConstStr255Param newName)
{
    return HRename(spec->vRefNum, spec->parID, spec->name, newName);
}
static inline OSErr FSpSetFInfo(const FSSpec *spec, const FInfo *info)
{
    return HSetFInfo(spec->vRefNum, spec->parID, spec->name, info);
}

/* Colours and screens. */
/* The colour of a pixel value of the main device: of its colour table if it has one. */
static inline void Index2Color(SInt32 index, RGBColor *color)
{
    GDHandle device = GetMainDevice();
    PixMapHandle map = device ? (**device).gdPMap : NULL;
    CTabHandle table = map ? (**map).pmTable : NULL;
    if (table && (**map).pixelSize <= 8) {
        const ColorTable *colors = *table;
        memset(color, 0, sizeof *color);
        if (index >= 0 && index <= colors->ctSize)
            *color = colors->ctTable[index].rgb;
        return;
    }
    color->red = (UInt16)((index >> 16 & 0xFF) * 257);
    color->green = (UInt16)((index >> 8 & 0xFF) * 257);
    color->blue = (UInt16)((index & 0xFF) * 257);
}
/* Non-zero when the device has this depth, which a program cannot change here. */
static inline SInt16 HasDepth(GDHandle device, SInt16 depth, SInt16 whichFlags, SInt16 flags)
{
    PixMapHandle map = device ? (**device).gdPMap : NULL;
    (void)whichFlags;
    (void)flags;
    return (SInt16)(map && (**map).pixelSize == depth);
}

/* Procedure pointers are handed through: a universal procedure pointer is the procedure. */
#define GrowZoneProcPtr HostKitPurgeProcPtr
#define GrowZoneUPP HostKitPurgeProcPtr
#define DragGrayRgnUPP DragGrayRgnProcPtr
#define ControlActionUPP ControlActionProcPtr
#define QDTextUPP QDTextProcPtr
#define QDLineUPP QDLineProcPtr
#define QDRectUPP QDRectProcPtr
#define QDRRectUPP QDRRectProcPtr
#define QDOvalUPP QDOvalProcPtr
#define QDArcUPP QDArcProcPtr
#define QDPolyUPP QDPolyProcPtr
#define QDRgnUPP QDRgnProcPtr
#define QDBitsUPP QDBitsProcPtr
#define QDCommentUPP QDCommentProcPtr
#define QDTxMeasUPP QDTxMeasProcPtr
#define QDGetPicUPP QDGetPicProcPtr
#define QDPutPicUPP QDPutPicProcPtr
#define NewModalFilterUPP(proc) (proc)
#define NewUserItemUPP(proc) (proc)
#define NewControlActionUPP(proc) (proc)
#define NewControlDefUPP(proc) (proc)
#define NewGrowZoneUPP(proc) (proc)
#define NewDragGrayRgnUPP(proc) (proc)
#define NewWindowDefUPP(proc) (proc)
#define NewMenuDefUPP(proc) (proc)
#define NewListSearchUPP(proc) (proc)
#define NewTEClickLoopUPP(proc) (proc)
#define NewFileFilterUPP(proc) (proc)
#define NewDlgHookUPP(proc) (proc)
#define NewModalFilterYDUPP(proc) (proc)
#define NewAEEventHandlerUPP(proc) (proc)
#define NewDragTrackingHandlerUPP(proc) (proc)
#define NewDragReceiveHandlerUPP(proc) (proc)
#define NewDragSendDataUPP(proc) (proc)
#define NewDeviceLoopDrawingUPP(proc) (proc)
#define NewColorSearchUPP(proc) (proc)
#define NewTimerUPP(proc) (proc)
#define NewQDTextUPP(proc) (proc)
#define NewQDLineUPP(proc) (proc)
#define NewQDRectUPP(proc) (proc)
#define NewQDOvalUPP(proc) (proc)
#define NewQDRRectUPP(proc) (proc)
#define NewQDArcUPP(proc) (proc)
#define NewQDPolyUPP(proc) (proc)
#define NewQDRgnUPP(proc) (proc)
#define NewQDBitsUPP(proc) (proc)
#define NewQDCommentUPP(proc) (proc)
#define NewQDTxMeasUPP(proc) (proc)
#define NewQDGetPicUPP(proc) (proc)
#define NewQDPutPicUPP(proc) (proc)
#define DisposeModalFilterUPP(proc) ((void)(proc))
#define DisposeUserItemUPP(proc) ((void)(proc))
#define DisposeControlActionUPP(proc) ((void)(proc))
#define DisposeControlDefUPP(proc) ((void)(proc))
#define DisposeGrowZoneUPP(proc) ((void)(proc))
#define DisposeDragGrayRgnUPP(proc) ((void)(proc))
#define DisposeWindowDefUPP(proc) ((void)(proc))
#define DisposeMenuDefUPP(proc) ((void)(proc))
#define DisposeListSearchUPP(proc) ((void)(proc))
#define DisposeTEClickLoopUPP(proc) ((void)(proc))
#define DisposeFileFilterUPP(proc) ((void)(proc))
#define DisposeDlgHookUPP(proc) ((void)(proc))
#define DisposeModalFilterYDUPP(proc) ((void)(proc))
#define DisposeAEEventHandlerUPP(proc) ((void)(proc))
#define DisposeDragTrackingHandlerUPP(proc) ((void)(proc))
#define DisposeDragReceiveHandlerUPP(proc) ((void)(proc))
#define DisposeDragSendDataUPP(proc) ((void)(proc))
#define DisposeDeviceLoopDrawingUPP(proc) ((void)(proc))
#define DisposeColorSearchUPP(proc) ((void)(proc))
#define DisposeTimerUPP(proc) ((void)(proc))
#define DisposeQDTextUPP(proc) ((void)(proc))
#define DisposeQDLineUPP(proc) ((void)(proc))
#define DisposeQDRectUPP(proc) ((void)(proc))
#define DisposeQDOvalUPP(proc) ((void)(proc))
#define DisposeQDRRectUPP(proc) ((void)(proc))
#define DisposeQDArcUPP(proc) ((void)(proc))
#define DisposeQDPolyUPP(proc) ((void)(proc))
#define DisposeQDRgnUPP(proc) ((void)(proc))
#define DisposeQDBitsUPP(proc) ((void)(proc))
#define DisposeQDCommentUPP(proc) ((void)(proc))
#define DisposeQDTxMeasUPP(proc) ((void)(proc))
#define DisposeQDGetPicUPP(proc) ((void)(proc))
#define DisposeQDPutPicUPP(proc) ((void)(proc))

#endif
