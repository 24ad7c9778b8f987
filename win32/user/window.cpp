#include "window.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "screen/screen.h"
#include "update.h"
#include "visibility.h"

#include <memory>

namespace win32::user {
namespace {

// The two roots belong to no thread and are never destroyed.
Window *makeRoot(LPCSTR className, const RECT &rect)
{
    WindowClass *windowClass = findClass(className, nullptr);
    auto root = std::make_unique<Window>(*windowClass);
    root->procedure = windowClass->procedure;
    root->windowRect = root->clientRect = rect;
    root->style = WS_POPUP | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    if (!enterObject(root.get()))
        throw std::bad_alloc();
    return root.release();
}

bool isTopmost(const Window &window)
{
    return (window.extendedStyle & WS_EX_TOPMOST) != 0;
}

} // namespace

Window *findWindowQuietly(HWND handle)
{
    return static_cast<Window *>(findUserObject(handle, UserObjectType::Window));
}

Window *findWindow(HWND handle)
{
    Window *window = findWindowQuietly(handle);
    return window ? window : fail(ERROR_INVALID_WINDOW_HANDLE, window);
}

Window *desktop()
{
    static Window *made = [] {
        Window *root = makeRoot(MAKEINTATOM(32769), gdi::rectOf(screen::surface().box()));
        root->style |= WS_VISIBLE;
        fillWithDesktop(gdi::RegionValue(screen::surface().box()));
        return root;
    }();
    return made;
}

// Windows stay where they are; what they show is painted anew.
void screenChanged()
{
    UserLock lock;
    Window *root = desktop();
    root->windowRect = root->clientRect = gdi::rectOf(screen::surface().box());
    visibilityChanged();
    changeUpdate(*root, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    LPARAM size = MAKELPARAM(root->windowRect.right, root->windowRect.bottom);
    for (Window *window = root->firstChild; window; window = window->next)
        PostMessageA(window->hwnd(), WM_DISPLAYCHANGE, screen::surface().format.bitsPerPixel, size);
}

Window *messageRoot()
{
    static Window *made = makeRoot("Message", {0, 0, 0, 0});
    return made;
}

bool isShown(const Window &window)
{
    for (const Window *each = &window; each; each = each->parent) {
        if (!each->isVisible())
            return false;
    }
    return true;
}

bool isDescendant(const Window &ancestor, const Window &window)
{
    for (const Window *each = window.parent; each; each = each->parent) {
        if (each == &ancestor)
            return true;
    }
    return false;
}

Window *topLevelOf(Window *window)
{
    while (window && window->parent && !window->parent->isDesktop())
        window = window->parent;
    return window;
}

void linkBelow(Window &window, Window *after)
{
    Window &parent = *window.parent;
    // The lists of topmost windows and of the others do not mix.
    if (parent.isDesktop()) {
        if (!isTopmost(window)) {
            Window *below = after ? after->next : parent.firstChild;
            for (; below && isTopmost(*below); below = below->next)
                after = below;
        } else {
            while (after && !isTopmost(*after))
                after = after->previous;
        }
    }
    window.previous = after;
    window.next = after ? after->next : parent.firstChild;
    (window.previous ? window.previous->next : parent.firstChild) = &window;
    (window.next ? window.next->previous : parent.lastChild) = &window;
    if (window.isVisible())
        visibilityChanged();
}

void unlink(Window &window)
{
    Window &parent = *window.parent;
    (window.previous ? window.previous->next : parent.firstChild) = window.next;
    (window.next ? window.next->previous : parent.lastChild) = window.previous;
    window.previous = window.next = nullptr;
    if (window.isVisible())
        visibilityChanged();
}

void setOwner(Window &window, Window *owner)
{
    if (window.owner) {
        (window.previousOwned ? window.previousOwned->nextOwned : window.owner->firstOwned) = window.nextOwned;
        if (window.nextOwned)
            window.nextOwned->previousOwned = window.previousOwned;
        window.previousOwned = window.nextOwned = nullptr;
    }
    window.owner = owner;
    if (!owner)
        return;
    window.nextOwned = owner->firstOwned;
    if (window.nextOwned)
        window.nextOwned->previousOwned = &window;
    owner->firstOwned = &window;
}

std::vector<HWND> ownedBy(const Window &window)
{
    std::vector<HWND> owned;
    for (const Window *each = window.firstOwned; each; each = each->nextOwned)
        owned.push_back(each->hwnd());
    return owned;
}

std::vector<HWND> childrenOf(const Window &window)
{
    std::vector<HWND> children;
    for (const Window *child = window.firstChild; child; child = child->next)
        children.push_back(child->hwnd());
    return children;
}

POINT clientOrigin(const Window &window)
{
    return {window.clientRect.left, window.clientRect.top};
}

RECT moved(const RECT &rect, POINT by)
{
    return gdi::rectOf(gdi::translated(gdi::boxOf(rect), by.x, by.y));
}

RECT movedBack(const RECT &rect, POINT by)
{
    return gdi::rectOf(gdi::translatedBack(gdi::boxOf(rect), by.x, by.y));
}

void moveWithChildren(Window &window, int x, int y)
{
    window.windowRect = moved(window.windowRect, {x, y});
    window.clientRect = moved(window.clientRect, {x, y});
    pixman_region32_translate(&window.update.pixels, x, y);
    for (Window *child = window.firstChild; child; child = child->next)
        moveWithChildren(*child, x, y);
}

} // namespace win32::user
