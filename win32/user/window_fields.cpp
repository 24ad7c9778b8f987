// What a window carries: longs, text, properties, number.
#include "atoms.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "visibility.h"
#include "window.h"

#include <cstring>

using namespace win32;
using namespace win32::user;

namespace {

// Bytes that the window has for the program, behind an index of 0 or more.
LONG_PTR exchangeExtra(Window &window, int index, size_t byteCount, const LONG_PTR *value)
{
    if (static_cast<size_t>(index) + byteCount > window.extra.size())
        return fail(ERROR_INVALID_INDEX, LONG_PTR{0});
    LONG_PTR old = 0;
    BYTE *place = window.extra.data() + index;
    memcpy(&old, place, byteCount);
    if (byteCount == sizeof(LONG))
        old = static_cast<LONG>(old);
    if (value)
        memcpy(place, value, byteCount);
    return old;
}

LONG_PTR changeOwner(Window &window, HWND next)
{
    HWND old = window.owner ? window.owner->hwnd() : nullptr;
    Window *owner = topLevelOf(findWindowQuietly(next));
    bool isLoop = false;
    for (const Window *each = owner; each; each = each->owner)
        isLoop |= each == &window;
    if (!isLoop)
        setOwner(window, owner && !owner->isDesktop() ? owner : nullptr);
    return reinterpret_cast<LONG_PTR>(old);
}

LONG_PTR readField(const Window &window, int index)
{
    switch (index) {
    case GWL_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window.procedure);
    case GWL_HINSTANCE:
        return reinterpret_cast<LONG_PTR>(window.instance);
    case GWL_HWNDPARENT: {
        const Window *parent = window.isChild() ? window.parent : window.owner;
        return reinterpret_cast<LONG_PTR>(parent ? parent->hwnd() : nullptr);
    }
    case GWL_ID:
        return static_cast<LONG_PTR>(window.isChild() ? window.id : reinterpret_cast<UINT_PTR>(window.menu));
    case GWL_STYLE:
        return static_cast<LONG>(window.style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window.extendedStyle);
    case GWL_USERDATA:
        return window.userData;
    default:
        return fail(ERROR_INVALID_INDEX, LONG_PTR{0});
    }
}

LONG_PTR getLong(HWND handle, int index, size_t byteCount)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return 0;
    return index >= 0 ? exchangeExtra(*window, index, byteCount, nullptr) : readField(*window, index);
}

// Some bits of the styles are the system's: they follow what the window is.
LONG_PTR changeStyle(HWND handle, int index, DWORD value)
{
    STYLESTRUCT change;
    DWORD Window::*field = index == GWL_STYLE ? &Window::style : &Window::extendedStyle;
    {
        UserLock lock;
        Window *window = findWindow(handle);
        if (!window)
            return 0;
        change = {window->*field, value};
    }
    sendMessage(handle, WM_STYLECHANGING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&change));
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return 0;
        if (index == GWL_EXSTYLE) {
            constexpr DWORD kept = WS_EX_TOPMOST;
            change.styleNew = (change.styleNew & ~kept) | (window->extendedStyle & kept);
        }
        window->*field = change.styleNew;
        visibilityChanged();
    }
    sendMessage(handle, WM_STYLECHANGED, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&change));
    return static_cast<LONG>(change.styleOld);
}

LONG_PTR setLong(HWND handle, int index, size_t byteCount, LONG_PTR value)
{
    if (index == GWL_STYLE || index == GWL_EXSTYLE)
        return changeStyle(handle, index, static_cast<DWORD>(value));
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return 0;
    if (index >= 0)
        return exchangeExtra(*window, index, byteCount, &value);
    LONG_PTR old = readField(*window, index);
    switch (index) {
    case GWL_WNDPROC:
        window->procedure = reinterpret_cast<WNDPROC>(value);
        break;
    case GWL_HINSTANCE:
        window->instance = reinterpret_cast<HINSTANCE>(value);
        break;
    case GWL_HWNDPARENT:
        if (window->isChild())
            SetParent(handle, reinterpret_cast<HWND>(value));
        else
            changeOwner(*window, reinterpret_cast<HWND>(value));
        break;
    case GWL_ID:
        if (window->isChild())
            window->id = static_cast<UINT_PTR>(value);
        break;
    case GWL_USERDATA:
        window->userData = value;
        break;
    default:
        break;
    }
    return old;
}

} // namespace

LONG GetWindowLongA(HWND window, int index)
{
    return static_cast<LONG>(getLong(window, index, sizeof(LONG)));
}

LONG SetWindowLongA(HWND window, int index, LONG value)
{
    return static_cast<LONG>(setLong(window, index, sizeof(LONG), value));
}

LONG_PTR GetWindowLongPtrA(HWND window, int index)
{
    return getLong(window, index, sizeof(LONG_PTR));
}

LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value)
{
    return setLong(window, index, sizeof(LONG_PTR), value);
}

WORD GetWindowWord(HWND window, int index)
{
    return static_cast<WORD>(getLong(window, index, sizeof(WORD)));
}

WORD SetWindowWord(HWND window, int index, WORD value)
{
    return static_cast<WORD>(setLong(window, index, sizeof(WORD), value));
}

int GetWindowTextA(HWND handle, LPSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return 0;
    buffer[0] = 0;
    if (!findWindow(handle))
        return 0;
    return static_cast<int>(sendMessage(handle, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthA(HWND handle)
{
    return findWindow(handle) ? static_cast<int>(sendMessage(handle, WM_GETTEXTLENGTH, 0, 0)) : 0;
}

BOOL SetWindowTextA(HWND handle, LPCSTR text)
{
    return findWindow(handle) ? sendMessage(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0 : FALSE;
}

HANDLE GetPropA(HWND handle, LPCSTR name)
{
    UserLock lock;
    Window *window = findWindow(handle);
    ATOM atom = window && name ? atoms::findNameOrAtom(name) : ATOM{0};
    if (!atom)
        return nullptr;
    for (const WindowProperty &property : window->properties) {
        if (property.name == atom)
            return property.value;
    }
    return nullptr;
}

BOOL SetPropA(HWND handle, LPCSTR name, HANDLE value)
{
    return guarded(FALSE, [&]() -> BOOL {
        UserLock lock;
        Window *window = findWindow(handle);
        ATOM atom = window && name ? atoms::addNameOrAtom(name) : ATOM{0};
        if (!atom)
            return FALSE;
        for (WindowProperty &property : window->properties) {
            if (property.name == atom) {
                property.value = value;
                return TRUE;
            }
        }
        window->properties.push_back({atom, value});
        return TRUE;
    });
}

HANDLE RemovePropA(HWND handle, LPCSTR name)
{
    UserLock lock;
    Window *window = findWindow(handle);
    ATOM atom = window && name ? atoms::findNameOrAtom(name) : ATOM{0};
    for (size_t i = 0; atom && i < window->properties.size(); ++i) {
        if (window->properties[i].name != atom)
            continue;
        HANDLE value = window->properties[i].value;
        window->properties.erase(window->properties.begin() + static_cast<ptrdiff_t>(i));
        return value;
    }
    return nullptr;
}

int EnumPropsA(HWND handle, PROPENUMPROCA visit)
{
    return guarded(-1, [&] {
        std::vector<WindowProperty> properties;
        {
            UserLock lock;
            Window *window = findWindow(handle);
            if (!window || window->properties.empty())
                return -1;
            properties = window->properties;
        }
        int result = -1;
        for (const WindowProperty &property : properties) {
            std::string name = atoms::nameOf(property.name);
            LPCSTR shown = name.empty() ? MAKEINTATOM(property.name) : name.c_str();
            result = visit(handle, shown, property.value);
            if (!result)
                break;
        }
        return result;
    });
}

int GetDlgCtrlID(HWND handle)
{
    UserLock lock;
    Window *window = findWindow(handle);
    return window && window->isChild() ? static_cast<int>(window->id) : 0;
}

HWND GetDlgItem(HWND handle, int id)
{
    UserLock lock;
    Window *window = findWindow(handle);
    for (Window *child = window ? window->firstChild : nullptr; child; child = child->next) {
        if (static_cast<int>(child->id) == id)
            return child->hwnd();
    }
    return window ? fail(ERROR_CONTROL_ID_NOT_FOUND, HWND{}) : nullptr;
}
