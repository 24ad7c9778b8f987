// Making windows.
#include "focus.h"
#include "kernel/kernel_internal.h"
#include "menu.h"
#include "message_queue.h"
#include "placement.h"
#include "screen/screen.h"
#include "window.h"

#include <cstring>
#include <memory>

namespace win32::user {
namespace {

struct Creation {
    CREATESTRUCTA record; // as the program's procedure sees it
    WindowClass *windowClass;
    Window *parent;
    Window *owner;
};

bool isOverlapped(DWORD style)
{
    return (style & (WS_CHILD | WS_POPUP)) == 0;
}

// A child needs a parent; any other window belongs to the desktop and may have an owner, the top window of what
// was named.
bool settleFamily(Creation &creation)
{
    HWND named = creation.record.hwndParent;
    bool isChild = (creation.record.style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
    if (named == HWND_MESSAGE) {
        creation.parent = messageRoot();
        return true;
    }
    Window *given = named ? findWindow(named) : nullptr;
    if (named && !given)
        return false;
    if (isChild && !given)
        return fail(ERROR_TLW_WITH_WSCHILD, false);
    creation.parent = isChild ? given : desktop();
    creation.owner = !isChild && given && !given->isDesktop() ? topLevelOf(given) : nullptr;
    return true;
}

void settleStyles(CREATESTRUCTA &record)
{
    auto style = static_cast<DWORD>(record.style);
    if (isOverlapped(style))
        style |= WS_CAPTION;
    if (!(style & WS_CHILD) || (style & WS_POPUP))
        style |= WS_CLIPSIBLINGS;
    bool hasEdge = (style & WS_THICKFRAME) || (record.dwExStyle & WS_EX_DLGMODALFRAME)
                   || ((style & WS_DLGFRAME) && !(record.dwExStyle & WS_EX_STATICEDGE));
    if (hasEdge && (!(style & WS_CHILD) || (style & WS_DLGFRAME)))
        record.dwExStyle |= WS_EX_WINDOWEDGE;
    else
        record.dwExStyle &= ~static_cast<DWORD>(WS_EX_WINDOWEDGE);
    record.style = static_cast<LONG>(style);
}

// Overlapped windows without a place step down from the corner of the screen, one caption at a time, and take
// three quarters of it.
void settleDefaults(CREATESTRUCTA &record)
{
    static int step = 0;
    bool isFree = isOverlapped(static_cast<DWORD>(record.style));
    RECT area = workArea(MonitorFromWindow(nullptr, MONITOR_DEFAULTTOPRIMARY));
    if (record.x == CW_USEDEFAULT) {
        int offset = step * (GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYFRAME));
        record.x = isFree ? area.left + offset : 0;
        record.y = isFree ? area.top + offset : 0;
        if (isFree)
            step = (step + 1) % 8;
    }
    if (record.cx == CW_USEDEFAULT) {
        record.cx = isFree ? (area.right - area.left) * 3 / 4 : 0;
        record.cy = isFree ? (area.bottom - area.top) * 3 / 4 : 0;
    }
}

// The menu that the class names, for a window that was given none: the window's once it is made.
class ClassMenu {
public:
    explicit ClassMenu(const Creation &creation)
    {
        const WindowClass &windowClass = *creation.windowClass;
        bool isChild = (creation.record.style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
        if (isChild || creation.record.hMenu)
            return;
        if (!windowClass.menuName.empty())
            menu_ = LoadMenuA(windowClass.instance, windowClass.menuName.c_str());
        else if (windowClass.menuNumber)
            menu_ = LoadMenuA(windowClass.instance, reinterpret_cast<LPCSTR>(windowClass.menuNumber));
    }
    ~ClassMenu() { destroyMenuTree(menu_); }
    ClassMenu(const ClassMenu &) = delete;
    ClassMenu &operator=(const ClassMenu &) = delete;

    HMENU get() const { return menu_; }
    void release() { menu_ = nullptr; }

private:
    HMENU menu_ = nullptr;
};

// The handle of the new window, in the tree but without a word to its procedure yet.
HWND enterWindow(const Creation &creation)
{
    ClassMenu classMenu(creation);
    const CREATESTRUCTA &record = creation.record;
    auto window = std::make_unique<Window>(*creation.windowClass);
    window->procedure = creation.windowClass->procedure;
    window->instance = record.hInstance;
    window->style = static_cast<DWORD>(record.style) & ~static_cast<DWORD>(WS_VISIBLE);
    window->extendedStyle = record.dwExStyle;
    window->extra.resize(static_cast<size_t>(creation.windowClass->windowBytes));
    window->icon = creation.windowClass->icon;
    window->parent = creation.parent;
    window->queue = &MessageQueue::current();
    if (window->isChild())
        window->id = reinterpret_cast<UINT_PTR>(record.hMenu);
    else if (record.hMenu && !findMenu(record.hMenu))
        return nullptr;
    else
        window->menu = record.hMenu ? record.hMenu : classMenu.get();
    POINT origin = window->isChild() ? clientOrigin(*creation.parent) : POINT{0, 0};
    gdi::Box box{record.x, record.y, gdi::wrappingSum(record.x, std::max(record.cx, 0)),
                 gdi::wrappingSum(record.y, std::max(record.cy, 0))};
    window->windowRect = window->clientRect = moved(gdi::rectOf(box), origin);
    window->placement.normal = window->windowRect;
    if (!enterObject(window.get()))
        return nullptr;
    ++creation.windowClass->windowCount;
    setOwner(*window, creation.owner);
    linkBelow(*window, window->isChild() ? creation.parent->lastChild : nullptr);
    classMenu.release();
    return window.release()->hwnd();
}

// Lets the program bound the size of a window that the user may size.
void boundSize(HWND window, CREATESTRUCTA &record)
{
    auto style = static_cast<DWORD>(record.style);
    if (!(style & WS_THICKFRAME) && !isOverlapped(style))
        return;
    MINMAXINFO limits = askLimits(window);
    record.cx = std::max<int>(std::min<int>(record.cx, limits.ptMaxTrackSize.x), limits.ptMinTrackSize.x);
    record.cy = std::max<int>(std::min<int>(record.cy, limits.ptMaxTrackSize.y), limits.ptMinTrackSize.y);
    UserLock lock;
    if (Window *made = findWindowQuietly(window)) {
        made->windowRect.right = made->windowRect.left + std::max(record.cx, 0);
        made->windowRect.bottom = made->windowRect.top + std::max(record.cy, 0);
        made->clientRect = made->windowRect;
        made->placement.normal = made->windowRect;
    }
}

void sendFirstSize(HWND handle)
{
    WPARAM kind;
    RECT client;
    POINT corner;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return;
        kind = window->style & WS_MINIMIZE ? SIZE_MINIMIZED : window->style & WS_MAXIMIZE ? SIZE_MAXIMIZED : SIZE_RESTORED;
        client = window->clientRect;
        POINT origin = window->isChild() ? clientOrigin(*window->parent) : POINT{0, 0};
        corner = {client.left - origin.x, client.top - origin.y};
    }
    sendMessage(handle, WM_SIZE, kind, MAKELPARAM(client.right - client.left, client.bottom - client.top));
    sendMessage(handle, WM_MOVE, 0, MAKELPARAM(corner.x, corner.y));
}

bool wantsParentNotice(HWND handle, HWND &parent)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window || !window->isChild() || (window->extendedStyle & WS_EX_NOPARENTNOTIFY))
        return false;
    parent = window->parent->hwnd();
    return true;
}

int firstShowCommand(DWORD style)
{
    return style & WS_MINIMIZE ? SW_SHOWMINIMIZED : style & WS_MAXIMIZE ? SW_SHOWMAXIMIZED : SW_SHOW;
}

// The messages that a new window gets. False when its procedure wants no window: it is gone then.
bool introduce(HWND window, Creation &creation)
{
    CREATESTRUCTA &record = creation.record;
    boundSize(window, record);
    if (!sendMessage(window, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&record))) {
        abandonWindow(window);
        return false;
    }
    calculateFirstClientArea(window);
    if (sendMessage(window, WM_CREATE, 0, reinterpret_cast<LPARAM>(&record)) == -1) {
        DestroyWindow(window);
        return false;
    }
    return IsWindow(window);
}

} // namespace

void notifyParent(HWND window, UINT event)
{
    HWND parent;
    if (!wantsParentNotice(window, parent))
        return;
    WPARAM id = static_cast<WPARAM>(GetWindowLongPtrA(window, GWLP_ID)) & 0xffff;
    WPARAM what = (id << 16) | event;
    // Every ancestor up to the top hears of it.
    while (parent) {
        sendMessage(parent, WM_PARENTNOTIFY, what, reinterpret_cast<LPARAM>(window));
        if (!wantsParentNotice(parent, parent))
            break;
    }
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

HWND CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y, int width,
                     int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter)
{
    return guarded(HWND{}, [&]() -> HWND {
        HINSTANCE module = instance ? instance : GetModuleHandleA(nullptr);
        Creation creation{{parameter, module, menu, parent, height, width, y, x, static_cast<LONG>(style), title, className,
                           extendedStyle},
                          nullptr, nullptr, nullptr};
        HWND window;
        {
            UserLock lock;
            creation.windowClass = findClass(className, module);
            if (!creation.windowClass || !settleFamily(creation))
                return nullptr;
            settleStyles(creation.record);
            settleDefaults(creation.record);
            window = enterWindow(creation);
        }
        if (!window || !introduce(window, creation))
            return nullptr;
        sendFirstSize(window);
        notifyParent(window, WM_CREATE);
        if ((style & WS_VISIBLE) && IsWindow(window))
            ShowWindow(window, firstShowCommand(style));
        return IsWindow(window) ? window : nullptr;
    });
}
