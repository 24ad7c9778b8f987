/* A program in the style of old sources, in C and under the classic names. It stands in the tests to be compiled and
   played: classicProgram returns the events that it counted. */
#include <hostkit/classic.h>

typedef struct Document {
    WindowRecord window;
    RgnHandle area;
    short lines;
} Document;

static Boolean gDone;
static short gCounts[16];
static Rect gDragArea;

pascal void DrawDocument(WindowPtr window);
pascal void DoTrack(void);

pascal void DrawDocument(WindowPtr window)
{
    Document *document = (Document *)window;
    Rect box;
    SetRect(&box, 10, 10, 60, 40);
    InsetRect(&box, 2, 2);
    OffsetRect(&box, 1, 1);
    FrameRect(&box);
    FillRect(&box, &qd.gray);
    InvertRect(&box);
    MoveTo(10, 50);
    LineTo(60, 50);
    DrawText("text", 0, 4);
    SetRectRgn(document->area, 0, 0, 20, 20);
    OffsetRgn(document->area, 5, 5);
    FrameRgn(document->area);
    PaintRgn(document->area);
    InvertRgn(document->area);
    FillRgn(document->area, &qd.white);
}

pascal void DoTrack(void)
{
    ++gCounts[0];
}

static void DoPress(const EventRecord *event)
{
    WindowPtr window;
    switch (FindWindow(event->where, &window)) {
    case inDrag:
        DragWindow(window, event->where, &gDragArea);
        break;
    case inGrow: {
        Rect limits;
        long size;
        SetRect(&limits, 50, 50, 400, 300);
        size = GrowWindow(window, event->where, &limits);
        if (size != 0) {
            SizeWindow(window, LoWord(size), HiWord(size), true);
            InvalRect(&window->portRect);
        }
        break;
    }
    case inZoomIn:
    case inZoomOut:
        if (TrackBox(window, event->where, inZoomOut))
            ZoomWindow(window, inZoomOut, true);
        break;
    case inGoAway:
        if (TrackGoAway(window, event->where))
            HideWindow(window);
        break;
    case inContent:
        if (window != FrontWindow())
            SelectWindow(window);
        break;
    default:
        SysBeep(1);
        break;
    }
}

static void DoEvent(const EventRecord *event)
{
    WindowPtr window = (WindowPtr)event->message;
    GrafPtr port;
    ++gCounts[event->what];
    switch (event->what) {
    case mouseDown:
        DoPress(event);
        break;
    case keyDown:
        gDone = (event->modifiers & cmdKey) && (event->message & charCodeMask) == 'q';
        break;
    case updateEvt:
        GetPort(&port);
        SetPort(window);
        BeginUpdate(window);
        EraseRect(&window->portRect);
        DrawDocument(window);
        EndUpdate(window);
        SetPort(port);
        break;
    case activateEvt:
        if (event->modifiers & activeFlag)
            SetPortWindowPort(window);
        break;
    default:
        break;
    }
}

static short CheckAccessors(WindowPtr window)
{
    Rect bounds;
    RgnHandle first = NewRgn(), second = NewRgn();
    RGBColor color;
    Boolean isRight;
    SetRectRgn(first, 0, 0, 10, 10);
    CopyRgn(first, second);
    UnionRgn(first, second, second);
    XorRgn(first, second, first);
    isRight = !EqualRgn(first, second) && EmptyRgn(first);
    DisposeRgn(first);
    DisposeRgn(second);
    Index2Color(0x00FF00, &color);
    isRight = isRight && color.green == 0xFFFF && HasDepth(GetMainDevice(), (**(**GetMainDevice()).gdPMap).pixelSize, 0, 0);
    SetWindowKind(window, userKind + 1);
    GetWindowPortBounds(window, &bounds);
    return isRight && GetWindowPort(window) == (CGrafPtr)window && GetWindowKind(window) == userKind + 1
        && EqualRect(&bounds, &window->portRect) && IsWindowHilited(window) && GetNextWindow(window) == NULL
        && topLeft(bounds).h == bounds.left && botRight(bounds).v == bounds.bottom;
}

short classicProgram(void (*play)(WindowPtr window, short step));
short classicProgram(void (*play)(WindowPtr window, short step))
{
    Document *document = (Document *)NewPtrClear(sizeof(Document));
    EventRecord event;
    Rect bounds;
    WindowPtr window;
    Point mouse;
    DragGrayRgnUPP track = NewDragGrayRgnUPP(DoTrack);
    short step = 0, total = 0;
    InitGraf(&qd.thePort);
    InitFonts();
    InitWindows();
    TEInit();
    InitDialogs(nil);
    InitCursor();
    SetEventMask(everyEvent - keyUpMask);
    FlushEvents(everyEvent, 0);
    gDragArea = qd.screenBits.bounds;
    SetRect(&bounds, 50, 60, 250, 200);
    document->area = NewRgn();
    window = NewCWindow(document, &bounds, (ConstStr255Param)"\007Classic", true, zoomDocProc, (WindowPtr)-1L, true, 0);
    if (window == nil)
        return -1;
    SetPort(window);
    ShowWindow(window);
    MoveWindow(window, 60, 70, true);
    if (!CheckAccessors(window))
        return -2;
    GetMouse(&mouse);
    if (StillDown() || WaitMouseUp() || DragGrayRgn(document->area, mouse, nil, nil, 0, track) != 0)
        return -3;
    while (!gDone && step < 100) {
        play(window, step++);
        if (WaitNextEvent(everyEvent, &event, 2, nil))
            DoEvent(&event);
    }
    for (step = 1; step < 16; ++step)
        total += gCounts[step];
    DisposeDragGrayRgnUPP(track);
    DisposeRgn(document->area);
    CloseWindow(window);
    DisposePtr((Ptr)document);
    return gDone ? total : -4;
}
