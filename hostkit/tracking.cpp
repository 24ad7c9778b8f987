// Following the mouse: where it was pressed, and what moves with it until it is released.
#include "hostkit_internal.h"

#include <algorithm>
#include <utility>

namespace hostkit {
namespace {

constexpr SInt16 sizeBoxSide = 16;

// What the system's own loop is moving, sizing or pressing.
struct Tracked {
    WindowPtr window = nullptr;
    UINT command = 0; // SC_MOVE, SC_SIZE or that of the box
    bool isConfirmed = false;
    const Rect *bounds = nullptr; // of the mouse, or of the size
    Point start{};
    RECT frame{};
};
Tracked tracked;

bool isBox(UINT command)
{
    return command != SC_MOVE && command != SC_SIZE;
}

bool hasCaption(WindowPtr window)
{
    return (GetWindowLongA(nativeOf(window), GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
}

bool isGrowable(WindowPtr window)
{
    HWND native = nativeOf(window);
    return native && (GetWindowLongA(native, GWL_STYLE) & WS_THICKFRAME) && !IsZoomed(native);
}

// The box is there in the active window only: a press in another one selects it.
bool isInSizeBox(WindowPtr window, Point where)
{
    Rect content = contentOf(window);
    return recordOf(window)->hilited && isGrowable(window) && where.h >= content.right - sizeBoxSide && where.v >= content.bottom - sizeBoxSide;
}

SInt16 zoomPartOf(WindowPtr window)
{
    Rect content = contentOf(window);
    const Rect *states = zoomStatesOf(window);
    return states && MacEqualRect(&content, &states[1]) ? SInt16{inZoomIn} : SInt16{inZoomOut};
}

SInt16 framePart(WindowPtr window, int hit)
{
    if (!hasCaption(window))
        return inContent; // a dialog's edge, by which it cannot be dragged
    switch (hit) {
    case HTCLOSE:
        return recordOf(window)->goAwayFlag ? SInt16{inGoAway} : SInt16{inDrag};
    case HTMAXBUTTON:
        return zoomPartOf(window);
    case HTLEFT:
    case HTRIGHT:
    case HTTOP:
    case HTBOTTOM:
    case HTTOPLEFT:
    case HTTOPRIGHT:
    case HTBOTTOMLEFT:
    case HTBOTTOMRIGHT:
    case HTGROWBOX:
        return isGrowable(window) ? SInt16{inGrow} : SInt16{inDrag};
    default:
        return inDrag;
    }
}

int hitAt(HWND native, Point where)
{
    return static_cast<int>(SendMessageA(native, WM_NCHITTEST, 0, packedOf(screenOf(where))));
}

Point mouseNow()
{
    Point mouse;
    GetGlobalMouse(&mouse);
    return mouse;
}

// Runs the system's loop for one command; the mouse must still be down, or it would wait for the next click. The
// program's event procedure may do anything meanwhile. False when the window is gone, or the box not confirmed.
bool runLoop(const Tracked &what, UINT message, WPARAM wParam)
{
    if (isTracking())
        return false;
    tracked = what;
    HWND native = nativeOf(what.window);
    GetWindowRect(native, &tracked.frame);
    {
        SystemLoop loop;
        ReleaseCapture();
        DefWindowProcA(native, message, wParam, packedOf(screenOf(what.start)));
    }
    Tracked done = std::exchange(tracked, {});
    return isStill(what.window, native) && (done.isConfirmed || !isBox(done.command));
}

bool trackBox(WindowPtr window, Point start, int hit, UINT command)
{
    HWND native = nativeOf(window);
    if (takePostedPress(window))
        return true;
    if (!native)
        return false;
    if (!isButtonHeld())
        return hitAt(native, mouseNow()) == hit;
    Tracked box;
    box.window = window;
    box.command = command;
    box.start = start;
    return runLoop(box, WM_NCLBUTTONDOWN, static_cast<WPARAM>(hit));
}

// Moves the rectangle so that the mouse counts as inside the bounds.
void keepInside(RECT &rect)
{
    POINT mouse = screenOf(tracked.start);
    mouse.x += rect.left - tracked.frame.left;
    mouse.y += rect.top - tracked.frame.top;
    const Rect &bounds = *tracked.bounds;
    POINT corner = screenOf({bounds.top, bounds.left}), end = screenOf({bounds.bottom, bounds.right});
    OffsetRect(&rect, std::clamp<int>(mouse.x, corner.x, std::max(corner.x, end.x - 1)) - mouse.x,
               std::clamp<int>(mouse.y, corner.y, std::max(corner.y, end.y - 1)) - mouse.y);
}

void setLimits(MINMAXINFO &limits)
{
    RECT frame = {}, client = {};
    HWND native = nativeOf(tracked.window);
    GetWindowRect(native, &frame);
    GetClientRect(native, &client);
    int width = frame.right - frame.left - client.right, height = frame.bottom - frame.top - client.bottom;
    const Rect &sizes = *tracked.bounds;
    limits.ptMinTrackSize = {sizes.left + width, sizes.top + height};
    limits.ptMaxTrackSize = {sizes.right + width, sizes.bottom + height};
}

// Where the system's loop does not run, because the button is up again: the window goes to where that happened.
void moveBy(WindowPtr window, Point start, const Rect *bounds)
{
    Point mouse = mouseNow();
    if (bounds)
        mouse = {std::clamp(mouse.v, bounds->top, std::max(bounds->top, static_cast<SInt16>(bounds->bottom - 1))),
                 std::clamp(mouse.h, bounds->left, std::max(bounds->left, static_cast<SInt16>(bounds->right - 1)))};
    Rect content = contentOf(window);
    MacMoveWindow(window, static_cast<SInt16>(content.left + mouse.h - start.h),
                  static_cast<SInt16>(content.top + mouse.v - start.v), false);
}

SInt32 packedSize(WindowPtr window)
{
    const Rect &port = window->portRect;
    return static_cast<SInt32>(static_cast<UInt32>(port.bottom - port.top) << 16 | static_cast<UInt16>(port.right - port.left));
}

// An outline in the current port, drawn and taken away by inverting.
class Outline {
public:
    explicit Outline(RgnHandle region) : region_(NewRgn())
    {
        if (region_)
            MacCopyRgn(region, region_);
        GetPenState(&pen_);
        PenNormal();
        PenMode(patXor);
        PenPat(&qd.gray);
    }
    ~Outline()
    {
        hide();
        SetPenState(&pen_);
        if (region_)
            DisposeRgn(region_);
    }
    Outline(const Outline &) = delete;
    Outline &operator=(const Outline &) = delete;

    void show()
    {
        if (!isShown_)
            flip();
    }
    void hide()
    {
        if (isShown_)
            flip();
    }
    void moveTo(Point offset)
    {
        if (region_)
            MacOffsetRgn(region_, static_cast<SInt16>(offset.h - offset_.h), static_cast<SInt16>(offset.v - offset_.v));
        offset_ = offset;
    }
    Point offset() const { return offset_; }

private:
    void flip()
    {
        if (region_)
            MacFrameRgn(region_);
        isShown_ = !isShown_;
    }

    RgnHandle region_;
    PenState pen_{};
    Point offset_{};
    bool isShown_ = false;
};

Point offsetFor(Point mouse, Point start, const Rect *limit, SInt16 axis)
{
    if (limit)
        mouse = {std::clamp(mouse.v, limit->top, std::max(limit->top, limit->bottom)),
                 std::clamp(mouse.h, limit->left, std::max(limit->left, limit->right))};
    enum { horizontalOnly = 1, verticalOnly = 2 };
    return {static_cast<SInt16>(axis == horizontalOnly ? 0 : mouse.v - start.v),
            static_cast<SInt16>(axis == verticalOnly ? 0 : mouse.h - start.h)};
}

void follow(Outline &outline, Point mouse, Point start, const Rect *limit, const Rect *slop, SInt16 axis)
{
    bool isAway = slop && !MacPtInRect(mouse, slop);
    Point offset = offsetFor(mouse, start, limit, axis);
    if (isAway || offset.h != outline.offset().h || offset.v != outline.offset().v)
        outline.hide();
    outline.moveTo(offset);
    if (!isAway)
        outline.show();
}

} // namespace

bool trackMessage(WindowPtr window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT &result)
{
    if (window != tracked.window || !window)
        return false;
    result = 0;
    switch (message) {
    case WM_SYSCOMMAND: {
        // The box was released inside: the program does what it means.
        UINT command = wParam & 0xFFF0;
        bool isPressed = isBox(tracked.command) && (command == SC_CLOSE || command == SC_MAXIMIZE || command == SC_RESTORE);
        tracked.isConfirmed = tracked.isConfirmed || isPressed;
        return isPressed;
    }
    case WM_MOVING:
        if (tracked.bounds && tracked.command == SC_MOVE)
            keepInside(*reinterpret_cast<RECT *>(lParam));
        result = TRUE;
        return true;
    case WM_GETMINMAXINFO:
        // Without limits the system's hold, which leave something to take hold of.
        if (tracked.command == SC_SIZE && tracked.bounds)
            setLimits(*reinterpret_cast<MINMAXINFO *>(lParam));
        return tracked.command == SC_SIZE;
    default:
        return false;
    }
}

bool isTracking()
{
    return tracked.window != nullptr;
}

void forgetTracking(WindowPtr window)
{
    if (tracked.window == window)
        tracked = {};
}

} // namespace hostkit

using namespace hostkit;

SInt16 HostKitFindWindow(Point where, WindowPtr *window)
{
    SInt16 part = inDesk;
    if (findPostedPress(where, window, &part))
        return part;
    if (SendMessageA(hWndMain, WM_NCHITTEST, 0, packedOf(screenOf(where))) == HTMENU) {
        *window = nullptr;
        return inMenuBar;
    }
    part = MacFindWindow(where, window);
    HWND native = nativeOf(*window);
    if (!native) {
        *window = nullptr;
        return inDesk;
    }
    if (part == inContent)
        return isInSizeBox(*window, where) ? SInt16{inGrow} : part;
    return framePart(*window, hitAt(native, where));
}

void HostKitDragWindow(WindowPtr window, Point start, const Rect *boundsRect)
{
    HWND native = nativeOf(window);
    if (native && !(GetModifiersState() & cmdKey))
        HostKitSelectWindow(window);
    if (!isStill(window, native))
        return;
    Tracked move;
    move.window = window;
    move.command = SC_MOVE;
    move.start = start;
    move.bounds = boundsRect;
    if (!isButtonHeld())
        moveBy(window, start, boundsRect);
    else if (!runLoop(move, WM_SYSCOMMAND, SC_MOVE | HTCAPTION))
        return;
    noteUserState(window);
}

SInt32 HostKitGrowWindow(WindowPtr window, Point start, const Rect *limits)
{
    if (!isGrowable(window))
        return 0;
    HWND native = nativeOf(window);
    HostKitSelectWindow(window);
    if (!isStill(window, native) || !isButtonHeld())
        return 0;
    int hit = hitAt(native, start);
    bool isEdge = hit >= HTLEFT && hit <= HTBOTTOMRIGHT;
    Tracked size;
    size.window = window;
    size.command = SC_SIZE;
    size.start = start;
    size.bounds = limits;
    SInt32 before = packedSize(window);
    auto edge = static_cast<WPARAM>((isEdge ? hit : HTBOTTOMRIGHT) - HTLEFT + WMSZ_LEFT);
    if (!runLoop(size, WM_SYSCOMMAND, SC_SIZE | edge) || packedSize(window) == before)
        return 0;
    noteUserState(window);
    return packedSize(window);
}

Boolean HostKitTrackGoAway(WindowPtr window, Point start)
{
    return trackBox(window, start, HTCLOSE, SC_CLOSE);
}

Boolean HostKitTrackBox(WindowPtr window, Point start, SInt16 part)
{
    if (!trackBox(window, start, HTMAXBUTTON, SC_MAXIMIZE))
        return false;
    // The state to come back to is that from before the window was zoomed out.
    if (part == inZoomOut)
        noteUserState(window);
    return true;
}

SInt32 HostKitDragGrayRgn(RgnHandle region, Point start, const Rect *limit, const Rect *slop, SInt16 axis,
                          DragGrayRgnProcPtr actionProc)
{
    constexpr auto isOutside = static_cast<SInt32>(0x80008000);
    Outline outline(region);
    Point mouse = start;
    outline.show();
    while (HostKitStillDown()) {
        GetMouse(&mouse);
        follow(outline, mouse, start, limit, slop, axis);
        if (actionProc)
            actionProc();
    }
    GetMouse(&mouse);
    if (slop && !MacPtInRect(mouse, slop))
        return isOutside;
    Point offset = offsetFor(mouse, start, limit, axis);
    return static_cast<SInt32>(static_cast<UInt32>(static_cast<UInt16>(offset.v)) << 16 | static_cast<UInt16>(offset.h));
}
