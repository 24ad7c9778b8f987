// The start, the event loop, and what each event leads to.
#include "sampler.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifdef SAMPLER_PLAYS_REPLAYS
#include <replay.h>
#endif

bool isOver;
UInt32 handled[16];

namespace {

struct Arguments {
    std::vector<std::string> documents;
    UInt64 memory = 0; // bytes, 0 for the library's own limit
    int redraws = 0;
    bool isReporting = false;
};

Arguments readArguments(int count, char **values)
{
    constexpr UInt64 megabyte = 1 << 20;
    Arguments arguments;
    for (int i = 1; i < count; ++i) {
        if (strncmp(values[i], "--memory=", 9) == 0)
            arguments.memory = strtoull(values[i] + 9, nullptr, 10) * megabyte;
        else if (strncmp(values[i], "--redraws=", 10) == 0)
            arguments.redraws = atoi(values[i] + 10);
        else if (strcmp(values[i], "--report") == 0)
            arguments.isReporting = true;
        else
            arguments.documents.push_back(fullPath(values[i]));
    }
    return arguments;
}

// The cursor that the place under the mouse asks for, and the region in which it stays right.
void adjustCursor(Point mouse, RgnHandle region)
{
    constexpr SInt16 pencilCursor = 128;
    MacSetRectRgn(region, -32767, -32767, 32767, 32767);
    Document *document = frontDocument();
    WindowPtr under = nullptr;
    bool isInView = false;
    if (document && FindWindow(mouse, &under) == inContent && under == document->window) {
        SetPort(document->window);
        GlobalToLocal(&mouse);
        Rect view = viewOf(*document);
        isInView = PtInRect(mouse, &view);
    }
    CursHandle cursor = nullptr;
    if (isInView && document->kind == Kind::Text)
        cursor = GetCursor(iBeamCursor);
    else if (isInView && document->kind == Kind::Painting)
        cursor = GetCursor(brush.tool == pencilTool ? pencilCursor : SInt16{crossCursor});
    SetCursor(cursor ? *cursor : &qd.arrow);
    // A small region asks for an event as soon as the mouse moves on.
    GetGlobalMouse(&mouse);
    MacSetRectRgn(region, mouse.h, mouse.v, static_cast<SInt16>(mouse.h + 1), static_cast<SInt16>(mouse.v + 1));
}

void clickInFrame(WindowPtr window, SInt16 part, Point where)
{
    Document *document = documentOf(window);
    switch (part) {
    case inDrag: DragWindow(window, where, nullptr); break;
    case inGrow: {
        Rect limits = {100, 160, 4000, 4000};
        if (SInt32 size = GrowWindow(window, where, &limits)) {
            SizeWindow(window, LoWord(size), HiWord(size), true);
            if (document)
                sizeDocument(*document);
        }
        break;
    }
    case inZoomIn:
    case inZoomOut:
        if (TrackBox(window, where, part)) {
            ZoomWindow(window, part, true);
            if (document)
                sizeDocument(*document);
        }
        break;
    case inGoAway:
        if (!TrackGoAway(window, where))
            break;
        if (document)
            closeDocument(*document);
        else
            closeNotices();
        break;
    default: break;
    }
}

void clickInContent(WindowPtr window, const EventRecord &event)
{
    if (isPalette(window)) {
        SetPort(window);
        Point local = event.where;
        GlobalToLocal(&local);
        clickInPalette(local);
    } else if (window != FrontWindow()) {
        SelectWindow(window);
    } else if (isNotice(window)) {
        closeNotices();
    } else if (Document *document = documentOf(window)) {
        clickInDocument(*document, event.where);
    }
}

void click(const EventRecord &event)
{
    WindowPtr window = nullptr;
    SInt16 part = FindWindow(event.where, &window);
    if (part == inContent)
        clickInContent(window, event);
    else if (window)
        clickInFrame(window, part, event.where);
}

// What the menus will choose.
void command(char key)
{
    Document *document = frontDocument();
    switch (key) {
    case 'n': newPainting(); return;
    case 'q': quit(); return;
    case 'b': showAbout(); return;
    case 'p': purgeDocuments(0x7FFFFFFF); return;
    default: break;
    }
    if (!document)
        return;
    switch (key) {
    case 'w': closeDocument(*document); break;
    case 's': saveDocument(*document); break;
    case 'z': undo(*document); break;
    case 'a': selectAll(*document); break;
    case 'i': invertSelection(*document); break;
    default: break;
    }
}

void pressKey(const EventRecord &event)
{
    auto character = static_cast<UInt8>(event.message & charCodeMask);
    if (event.modifiers & cmdKey)
        command(static_cast<char>(character));
    else if (isNotice(FrontWindow()))
        closeNotices();
    else if (Document *document = frontDocument())
        scrollByKey(*document, character);
}

void update(WindowPtr window)
{
    BeginUpdate(window);
    SetPort(window);
    if (isPalette(window))
        drawPalette();
    else if (isNotice(window))
        drawNotice(window);
    else if (Document *document = documentOf(window))
        drawDocument(*document);
    EndUpdate(window);
}

void run()
{
    constexpr UInt32 sleep = 60;
    RgnHandle mouseRegion = NewRgn();
    while (!isOver) {
        EventRecord event;
        if (WaitNextEvent(everyEvent, &event, sleep, mouseRegion))
            handleEvent(event);
        adjustCursor(event.where, mouseRegion);
    }
    DisposeRgn(mouseRegion);
}

} // namespace

void handleEvent(const EventRecord &event)
{
    if (event.what < 16)
        ++handled[event.what];
    switch (event.what) {
    case mouseDown: click(event); break;
    case keyDown:
    case autoKey: pressKey(event); break;
    case updateEvt: update(reinterpret_cast<WindowPtr>(event.message)); break;
    case activateEvt:
        if (Document *document = documentOf(reinterpret_cast<WindowPtr>(event.message)))
            drawDocument(*document);
        break;
    default: break;
    }
}

void quit()
{
    isOver = true;
}

int main(int count, char **values)
{
    Arguments arguments = readArguments(count, values);
    HostKitOptions options = {};
    options.title = "Sampler";
    options.quitProc = quit;
    options.purgeAbove = arguments.memory;
    options.refuseAbove = arguments.memory + arguments.memory / 4;
    if (HostKitStart(&options) != noErr) {
        fputs("sampler: the main window cannot be made\n", stderr);
        return 1;
    }
#ifdef SAMPLER_PLAYS_REPLAYS
    Replay_SetIdleTest([] { return HostKitIsWaiting() != 0; });
#endif
    HostKitAddPurgeProc(purgeDocuments);
    HostKitSetEventProc([](const EventRecord *event) { handleEvent(*event); });
    openPalette();
    for (const std::string &path : arguments.documents)
        openDocument(path);
    if (arguments.redraws > 0)
        measureRedraws(arguments.redraws);
    else
        run();
    closeAllDocuments();
    if (arguments.isReporting)
        report();
    closePalette();
    HostKitStop();
    return 0;
}
