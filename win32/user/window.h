// The record behind an HWND, and the tree of windows.
#pragma once

#include "gdi/device_context.h"
#include "user_object.h"
#include "window_class.h"

#include <memory>
#include <string>
#include <vector>

namespace win32::user {

class MessageQueue;
class WindowContext;

struct WindowProperty {
    ATOM name;
    HANDLE value;
};

struct ScrollBar {
    int minimum = 0;
    int maximum = 100;
    UINT page = 0;
    int position = 0;
    int trackPosition = 0;
    bool isDisabledUp = false;
    bool isDisabledDown = false;
};

// A normal position and the corner of the icon, as WINDOWPLACEMENT has them.
struct Placement {
    RECT normal{};
    POINT minimized{-1, -1};
    POINT maximized{-1, -1};
    bool restoresToMaximized = false;
};

class Window final : public UserObject {
public:
    explicit Window(WindowClass &windowClassOf) : UserObject(UserObjectType::Window), windowClass(&windowClassOf) {}

    HWND hwnd() const { return static_cast<HWND>(handle()); }
    bool isChild() const { return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD; }
    bool isVisible() const { return (style & WS_VISIBLE) != 0; }
    bool isDesktop() const { return parent == nullptr; }
    bool isTopLevel() const { return parent && parent->isDesktop(); }
    int width() const { return windowRect.right - windowRect.left; }
    int height() const { return windowRect.bottom - windowRect.top; }

    WindowClass *windowClass;
    MessageQueue *queue = nullptr; // of the thread that made it
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD extendedStyle = 0;
    LONG_PTR userData = 0;
    UINT_PTR id = 0; // of a child; of others the menu
    HMENU menu = nullptr;
    int menuBarHeight = 0;      // as laid out last
    HMENU systemMenu = nullptr; // holds the menu that GetSystemMenu gives; made when first needed
    std::string text;
    std::vector<BYTE> extra;
    std::vector<WindowProperty> properties;
    HICON icon = nullptr;
    HICON smallIcon = nullptr;

    // The tree. The first child lies on top of its siblings. Null parent: the desktop.
    Window *parent = nullptr;
    Window *firstChild = nullptr;
    Window *lastChild = nullptr;
    Window *next = nullptr; // the sibling below
    Window *previous = nullptr;

    // A window and those that it owns, in no order. setOwner alone writes these.
    Window *owner = nullptr;
    Window *firstOwned = nullptr;
    Window *nextOwned = nullptr;
    Window *previousOwned = nullptr;

    // Screen coordinates, as those of all children.
    RECT windowRect{};
    RECT clientRect{};
    Placement placement;
    ScrollBar scrollBars[2]; // SB_HORZ, SB_VERT

    // What is to be painted, in screen coordinates. A frame that is to be painted is noted apart.
    gdi::RegionValue update;
    bool needsErase = false;
    bool needsFramePaint = false;
    bool isRedrawOff = false; // WM_SETREDRAW
    bool hasInternalPaint = false;

    bool isDestroyed = false;  // its destruction has begun
    bool isToldOfEnd = false;  // WM_DESTROY was sent
    bool isActiveFrame = false; // how the caption is shown
    HWND lastActivePopup = nullptr; // maybe of a window that is no more
    WindowContext *firstContext = nullptr; // of those that the window has or had last
    int captionButtonDown = 0;
};

// Null, with ERROR_INVALID_WINDOW_HANDLE, for what is no window.
Window *findWindow(HWND handle);
// The same without an error, for handles that may well be stale.
Window *findWindowQuietly(HWND handle);

Window *desktop();
// To be called when the screen has another mode.
void screenChanged();
// The parent of windows that only take messages.
Window *messageRoot();

// Whether the window and all its parents are visible.
bool isShown(const Window &window);
bool isDescendant(const Window &ancestor, const Window &window);
// The window's ancestor, or itself, that is a child of the desktop.
Window *topLevelOf(Window *window);

// Puts a window among its siblings: below `after`, or on top for null. It has a parent already and is in no
// list. Topmost windows stay above the others.
void linkBelow(Window &window, Window *after);
void unlink(Window &window);

// Null makes it nobody's.
void setOwner(Window &window, Window *owner);
// Handles of the windows that it owns, as they were at the time. Throws bad_alloc.
std::vector<HWND> ownedBy(const Window &window);

// The client area's corner on the screen, and rectangles to and from coordinates that begin at a point.
POINT clientOrigin(const Window &window);
RECT moved(const RECT &rect, POINT by);
RECT movedBack(const RECT &rect, POINT by);
void moveWithChildren(Window &window, int x, int y);

// Handles of a window's children, from top to bottom, as they were at the time: the program may destroy any of
// them meanwhile. Throws bad_alloc.
std::vector<HWND> childrenOf(const Window &window);

} // namespace win32::user
