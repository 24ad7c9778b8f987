/* The host's share of a program that uses the Toolbox, written once.

   The library translates Toolbox calls; what a Macintosh did by itself it leaves to its host: the main window,
   native windows for window records, events, painting, activation, and giving memory back. These functions do
   it with the library's public calls and Win32 only. A program may use all of them, some, or none:

       int main(void)
       {
           HostKitOptions options = {0};
           options.title = "Sampler";
           if (HostKitStart(&options) != noErr)
               return 1;
           ... windows by HostKitNewWindow, events by HostKitWaitNextEvent ...
           HostKitStop();
           return 0;
       }

   <hostkit/classic.h> gives the same functions under the names that Macintosh sources use. Everything here is
   called on the thread that called HostKitStart. */
#ifndef HOSTKIT_HOSTKIT_H
#define HOSTKIT_HOSTKIT_H

#include <mtbx/MTBX.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Called when the user or the system wants the program to end. */
typedef void (*HostKitQuitProcPtr)(void);
/* Handles an event outside the program's own loop: see HostKitSetEventProc. */
typedef void (*HostKitEventProcPtr)(const EventRecord *event);
/* The wheel was turned over a window, by notches away from the user; where is in global coordinates. */
typedef void (*HostKitWheelProcPtr)(WindowPtr window, Point where, SInt16 notches);
/* Frees memory that the program can do without, at least bytesWanted if it can, and returns how much it freed.
   Runs in the midst of an allocation: a shortage inside it fails at once. */
typedef SInt32 (*HostKitPurgeProcPtr)(Size bytesWanted);

/* What HostKitStart is told. All fields may be 0. Strings are copied. */
typedef struct HostKitOptions {
    /* The main window's caption; null takes the program's file name. */
    const char *title;
    /* The full path of the settings file, under 260 bytes; null takes the program's own path with the extension
       .ini. */
    const char *settingsFile;
    /* The module with the resources; null is the program itself. */
    HINSTANCE resources;
    /* The size in pixels of the main window's client area, which is the desktop of the program's windows; 0
       fills the screen's work area. */
    SInt16 width;
    SInt16 height;
    /* The brush of that desktop; null takes the system's colour of a program's workspace. It stays the
       caller's. */
    HBRUSH background;
    /* Null makes a wish to quit a Command-Q key event. The end of the session is refused meanwhile, so that
       nothing is lost. */
    HostKitQuitProcPtr quitProc;
    /* Limits in bytes for the memory that the program uses: above the first it is asked to purge, above the
       second large allocations are refused. 0 leaves the library's own, by the memory of the machine. */
    UInt64 purgeAbove;
    UInt64 refuseAbove;
} HostKitOptions;

/* Starts the library in the right order, with a main window on the screen, and makes the classes that dialog items
   need. Null options are as all 0. After an error (paramErr: it is started already, or a path is too long;
   memFullErr) nothing is started. */
OSErr HostKitStart(const HostKitOptions *options);
/* Disposes the windows that are left, stops the library and destroys the main window. Nothing is left of it, and
   it can be started again. */
void HostKitStop(void);

/* Windows. Native windows are children of the main window: they stay on its desktop, and global coordinates are
   those of its client area.

   Makes a record and its native window, whose frame follows procID; above 16 it is a palette that floats above the
   others. A visible window with behind (WindowPtr)-1 becomes the active one; null puts it behind all others. Null
   when memory or native objects are short, and storage of the caller's stays the caller's. DisposeWindow ends it,
   at any time: inside its own events, and while it is dragged. */
WindowPtr HostKitNewWindow(void *wStorage, const Rect *boundsRect, ConstStr255Param title, Boolean visible,
                           SInt16 procID, WindowPtr behind, Boolean goAwayFlag, SRefCon refCon);
/* The same from a WIND resource. */
WindowPtr HostKitGetNewWindow(SInt16 windowID, void *wStorage, WindowPtr behind);
/* Makes the native window for a record of NewCWindow that has none. It is not shown. */
OSErr HostKitAttachWindow(WindowPtr window);
/* Ends a window whose record lies in storage of the caller's, which DisposeWindow would free. */
void HostKitCloseWindow(WindowPtr window);

/* What the library's calls of these names leave out: the native order and the frames follow, and the window that
   comes to the front and the one that was there get activate events. */
void HostKitSelectWindow(WindowPtr window);
void HostKitBringToFront(WindowPtr window);
/* Null is behind all others. */
void HostKitSendBehind(WindowPtr window, WindowPtr behindWindow);
void HostKitMoveWindow(WindowPtr window, SInt16 h, SInt16 v, Boolean front);
/* The standard state is the whole desktop until the program sets another in the window's dataHandle. */
void HostKitZoomWindow(WindowPtr window, SInt16 part, Boolean front);
void HostKitShowWindow(WindowPtr window);
void HostKitHideWindow(WindowPtr window);
/* The visible window that is in front of the others, floating ones left aside; null when there is none. */
WindowPtr HostKitFrontWindow(void);

/* Where the mouse was pressed: the parts of a frame, too (inGoAway, inZoomIn, inZoomOut, inGrow), and the size
   box in the lower right corner of an active window that can grow. A close or zoom box that was asked for by
   keys comes as a press in it. */
SInt16 HostKitFindWindow(Point where, WindowPtr *window);

/* These follow the mouse until the button is released. The window moves as a whole or as an outline, by the user's
   setting. boundsRect and limits may be null: limits holds the least and the greatest width (left, right) and
   height (top, bottom). HostKitGrowWindow returns the new height (high word) and width, 0 when nothing changed;
   the window has that size already. */
void HostKitDragWindow(WindowPtr window, Point start, const Rect *boundsRect);
SInt32 HostKitGrowWindow(WindowPtr window, Point start, const Rect *limits);
Boolean HostKitTrackGoAway(WindowPtr window, Point start);
Boolean HostKitTrackBox(WindowPtr window, Point start, SInt16 part);
/* Drags an outline of the region, in local coordinates of the current port, and returns how far it was moved
   (vertical in the high word): 0x80008000 when the mouse was released outside slop. Both rectangles may be null.
   axis: 0 none, 1 horizontal only, 2 vertical only. */
SInt32 HostKitDragGrayRgn(RgnHandle region, Point start, const Rect *limit, const Rect *slop, SInt16 axis,
                          DragGrayRgnProcPtr actionProc);

/* Events.

   Takes the next event of the mask. With none it waits, up to sleep ticks, for input or a message; the processor
   is idle meanwhile, and asynchronous transfers complete. A null event is given when the time is over. Outside
   mouseRgn (global coordinates; null or empty for none) movements of the mouse are events. Events of other kinds
   wait their turn; gEventMask keeps kinds from happening at all (at the start: the release of keys). What comes
   first: an event that the program has put into gTheEvent, activation, the user's input, updates, and that the
   program was suspended or resumed. */
Boolean HostKitWaitNextEvent(EventMask mask, EventRecord *event, UInt32 sleep, RgnHandle mouseRgn);
/* The next event, without waiting. */
Boolean HostKitGetNextEvent(EventMask mask, EventRecord *event);
/* The same, and the event stays. */
Boolean HostKitEventAvail(EventMask mask, EventRecord *event);
void HostKitFlushEvents(EventMask which, EventMask stop);
/* Whether the program has no event left and waits for the next: for what drives it from a message or another thread. */
Boolean HostKitIsWaiting(void);
/* Whether the button is still down from the press that was taken last; WaitMouseUp also removes the release when it
   is not. Both yield the processor for a moment while the mouse rests. */
Boolean HostKitStillDown(void);
Boolean HostKitWaitMouseUp(void);

/* While the system follows the mouse on its own (moving a window, in a menu, a message box) the program's loop does
   not run. This procedure gets the updates and activations that happen then; without one, uncovered windows are
   only erased until the loop goes on. It may dispose of windows, and take further events: of the user's input
   none while the button is down. Null removes it. */
void HostKitSetEventProc(HostKitEventProcPtr proc);
/* Null (as at the start) makes each notch three presses of an arrow key. */
void HostKitSetWheelProc(HostKitWheelProcPtr proc);

/* Shows the title of a menu in the bar (hMenuMain) as chosen, and those of all others not; 0 shows none so. The system
   does that itself for menus that the user opens: this is for their keys. */
void HostKitHiliteMenu(SInt16 menuID);

/* Memory. Up to 16 procedures, asked in the order of their arrival until enough is free. False when there is
   no room for one more. */
Boolean HostKitAddPurgeProc(HostKitPurgeProcPtr proc);
void HostKitRemovePurgeProc(HostKitPurgeProcPtr proc);
/* The one procedure of a program that knows only of one: it takes the place of the last that was set so. Null
   removes it. */
void HostKitSetGrowZone(HostKitPurgeProcPtr proc);

#ifdef __cplusplus
}
#endif

#endif
