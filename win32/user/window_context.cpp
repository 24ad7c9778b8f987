// Contexts of windows. Those that were given back wait for the next that asks, best for the same window: then
// nothing has to be found anew.
#include "window_context.h"

#include "kernel/kernel_internal.h"
#include "screen/screen.h"
#include "visibility.h"

#include <memory>
#include <vector>

namespace win32::user {

struct Links {
    WindowContext *next = nullptr;
    WindowContext *previous = nullptr;
};

class WindowContext final : public gdi::ScreenPlace {
public:
    void locate(gdi::DeviceContext &dc) override;
    void release(gdi::DeviceContext &dc) override;

    HDC context = nullptr;
    HWND window = nullptr;
    Window *record = nullptr; // of the window, until it ends
    DWORD flags = 0;
    bool isInUse = false;
    Links ofWindow;
    Links amongWaiting; // while it is not in use
    std::unique_ptr<gdi::RegionValue> within;  // DCX_INTERSECTRGN, screen coordinates
    std::unique_ptr<gdi::RegionValue> without; // DCX_EXCLUDERGN
};

namespace {

constexpr DWORD ownFlags = 0x10000000; // of a class or window that has a context of its own

// So many contexts are made before one that waits for a window is given to another.
constexpr size_t keptContexts = 16;

std::vector<std::unique_ptr<WindowContext>> &contexts()
{
    static auto *made = new std::vector<std::unique_ptr<WindowContext>>;
    return *made;
}

template <Links WindowContext::*links> void insertFirst(WindowContext *&first, WindowContext &context)
{
    (context.*links).next = first;
    (context.*links).previous = nullptr;
    if (first)
        (first->*links).previous = &context;
    first = &context;
}

template <Links WindowContext::*links> void remove(WindowContext *&first, WindowContext &context)
{
    Links &own = context.*links;
    (own.previous ? (own.previous->*links).next : first) = own.next;
    if (own.next)
        (own.next->*links).previous = own.previous;
    own = {};
}

// Those that were given back, the last one first.
WindowContext *firstWaiting;
WindowContext *lastWaiting;

void addWaiting(WindowContext &context)
{
    context.isInUse = false;
    insertFirst<&WindowContext::amongWaiting>(firstWaiting, context);
    if (!lastWaiting)
        lastWaiting = &context;
}

void removeWaiting(WindowContext &context)
{
    context.isInUse = true;
    if (lastWaiting == &context)
        lastWaiting = context.amongWaiting.previous;
    remove<&WindowContext::amongWaiting>(firstWaiting, context);
}

void detach(WindowContext &context)
{
    if (context.record)
        remove<&WindowContext::ofWindow>(context.record->firstContext, context);
    context.record = nullptr;
}

void attach(WindowContext &context, Window &window)
{
    if (context.record == &window)
        return;
    detach(context);
    context.record = &window;
    context.window = window.hwnd();
    insertFirst<&WindowContext::ofWindow>(window.firstContext, context);
}

void findVisible(const Window &window, const WindowContext &context, gdi::RegionValue &result)
{
    // Who draws on the desktop draws over all windows.
    if (window.isDesktop()) {
        result = gdi::RegionValue(screen::surface().box());
    } else {
        Area area = context.flags & DCX_WINDOW ? Area::Whole : Area::Client;
        Children children = context.flags & DCX_CLIPCHILDREN ? Children::CutOut : Children::Left;
        visibleRegion(window, area, children, result);
    }
    bool isFound = (!context.within || pixman_region32_intersect(&result.pixels, &result.pixels, &context.within->pixels))
                   && (!context.without || pixman_region32_subtract(&result.pixels, &result.pixels, &context.without->pixels));
    if (!isFound)
        throw std::bad_alloc();
}

} // namespace

// A context whose window is gone, or for which memory is short, shows nothing.
void WindowContext::locate(gdi::DeviceContext &dc)
{
    UserLock lock;
    pixman_region32_clear(&dc.visible.pixels);
    dc.surface = screen::surface();
    if (record) {
        const RECT &rect = flags & DCX_WINDOW ? record->windowRect : record->clientRect;
        dc.origin = {rect.left, rect.top};
        try {
            findVisible(*record, *this, dc.visible);
            gdi::Box bounds = dc.surface.box();
            pixman_region32_intersect_rect(&dc.visible.pixels, &dc.visible.pixels, 0, 0, static_cast<unsigned>(bounds.x2),
                                           static_cast<unsigned>(bounds.y2));
        } catch (const std::bad_alloc &) {
            pixman_region32_clear(&dc.visible.pixels);
        }
    }
    dc.clipChanged();
}

void WindowContext::release(gdi::DeviceContext &)
{
    ReleaseDC(window, context);
}

namespace {

DWORD styleFlags(const Window &window)
{
    DWORD flags = 0;
    UINT classStyle = window.windowClass->style;
    if (classStyle & (CS_OWNDC | CS_CLASSDC))
        flags |= ownFlags;
    if (window.style & WS_CLIPCHILDREN)
        flags |= DCX_CLIPCHILDREN;
    if (window.style & WS_CLIPSIBLINGS)
        flags |= DCX_CLIPSIBLINGS;
    return flags;
}

// In use; null when it cannot be made.
WindowContext *addContext(HWND window)
{
    auto made = std::make_unique<WindowContext>();
    contexts().reserve(contexts().size() + 1);
    made->context = gdi::createScreenContext(window, made.get());
    if (!made->context)
        return nullptr;
    made->isInUse = true;
    contexts().push_back(std::move(made));
    return contexts().back().get();
}

bool isPlain(const WindowContext &context)
{
    return !context.within && !context.without;
}

WindowContext *findOfWindow(const Window &window, DWORD flags, bool isInUse)
{
    for (WindowContext *context = window.firstContext; context; context = context->ofWindow.next) {
        if (context->isInUse == isInUse && context->flags == flags && (isInUse || isPlain(*context)))
            return context;
    }
    return nullptr;
}

// Best one that waits for this window. Null when none waits and none can be made.
WindowContext *takeContext(const Window &window, DWORD flags)
{
    WindowContext *waiting = findOfWindow(window, flags, false);
    if (!waiting && contexts().size() >= keptContexts)
        waiting = lastWaiting;
    if (!waiting) {
        if (WindowContext *added = addContext(window.hwnd()))
            return added;
        waiting = lastWaiting;
    }
    if (waiting)
        removeWaiting(*waiting);
    return waiting;
}

struct Limits {
    std::unique_ptr<gdi::RegionValue> within;
    std::unique_ptr<gdi::RegionValue> without;
};

HDC contextFor(Window &window, DWORD flags, Limits limits)
{
    HWND handle = window.hwnd();
    if (flags & ownFlags) {
        if (WindowContext *own = findOfWindow(window, flags, true))
            return own->context;
    }
    WindowContext *context = takeContext(window, flags);
    if (!context)
        return nullptr;
    auto dc = gdi::find<gdi::DeviceContext>(context->context);
    bool isPlaceKept = context->record == &window && context->flags == flags && isPlain(*context) && !limits.within
                       && !limits.without;
    attach(*context, window);
    dc->window = handle;
    context->flags = flags;
    context->within = std::move(limits.within);
    context->without = std::move(limits.without);
    if (!isPlaceKept)
        dc->layout = 0;
    gdi::findContext(context->context);
    return context->context;
}

HDC contextWithRegion(HWND handle, HRGN clip, DWORD flags)
{
    UserLock lock;
    Window *window = handle ? findWindow(handle) : desktop();
    if (!window)
        return nullptr;
    Limits limits;
    if (clip && (flags & (DCX_INTERSECTRGN | DCX_EXCLUDERGN))) {
        auto region = gdi::find<gdi::Region>(clip);
        if (!region)
            return nullptr;
        auto copy = std::make_unique<gdi::RegionValue>();
        copy->copyFrom(region->pixels);
        (flags & DCX_INTERSECTRGN ? limits.within : limits.without) = std::move(copy);
        DeleteObject(clip); // the system's from now on
    }
    return contextFor(*window, flags & (DCX_WINDOW | DCX_CLIPCHILDREN | DCX_CLIPSIBLINGS | ownFlags), std::move(limits));
}

WindowContext *findInUse(HDC handle)
{
    auto dc = gdi::find<gdi::DeviceContext>(handle);
    auto *context = dc ? static_cast<WindowContext *>(dc->place) : nullptr;
    return context && context->isInUse ? context : nullptr;
}

void giveBack(WindowContext &context)
{
    if (auto dc = gdi::find<gdi::DeviceContext>(context.context))
        dc->reset();
    addWaiting(context);
}

} // namespace

void releaseContextsOf(Window &window)
{
    if (!window.firstContext)
        return;
    while (WindowContext *context = window.firstContext) {
        // A cached context that the program still holds stays its own, on nothing.
        bool isOwn = context->isInUse && (context->flags & ownFlags);
        context->flags &= ~ownFlags;
        detach(*context);
        if (isOwn)
            giveBack(*context);
    }
    visibilityChanged();
}

HDC paintContext(Window &window, const pixman_region32_t &update)
{
    Limits limits;
    limits.within = std::make_unique<gdi::RegionValue>();
    limits.within->copyFrom(update);
    return contextFor(window, styleFlags(window) & ~ownFlags, std::move(limits));
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

HDC GetDCEx(HWND handle, HRGN clip, DWORD flags)
{
    return guarded(HDC{}, [&]() -> HDC {
        constexpr DWORD usesStyle = 0x00010000; // undocumented, yet passed by GetDC
        if (flags & usesStyle) {
            UserLock lock;
            if (Window *window = findWindowQuietly(handle))
                flags |= styleFlags(*window) & ~(flags & DCX_CACHE ? ownFlags : 0);
        }
        return contextWithRegion(handle, clip, flags);
    });
}

HDC GetDC(HWND handle)
{
    return guarded(HDC{}, [&]() -> HDC {
        UserLock lock;
        Window *window = handle ? findWindow(handle) : desktop();
        return window ? contextFor(*window, window->isDesktop() ? 0 : styleFlags(*window), {}) : nullptr;
    });
}

HDC GetWindowDC(HWND handle)
{
    return guarded(HDC{}, [&]() -> HDC {
        UserLock lock;
        Window *window = handle ? findWindow(handle) : desktop();
        if (!window)
            return nullptr;
        return contextFor(*window, DCX_WINDOW | (window->isDesktop() ? 0 : styleFlags(*window) & DCX_CLIPSIBLINGS), {});
    });
}

int ReleaseDC(HWND, HDC handle)
{
    UserLock lock;
    WindowContext *context = findInUse(handle);
    if (!context)
        return gdi::find<gdi::DeviceContext>(handle) ? 0 : fail(ERROR_INVALID_HANDLE, 0);
    if (!(context->flags & ownFlags))
        giveBack(*context);
    return 1;
}

HWND WindowFromDC(HDC handle)
{
    auto dc = gdi::findContext(handle);
    if (!dc || !dc->place)
        return nullptr;
    UserLock lock;
    WindowContext *context = findInUse(handle);
    return context ? context->window : nullptr;
}
