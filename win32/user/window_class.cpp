// Registering classes, and what is asked of them.
#include "window_class.h"

#include "atoms.h"
#include "kernel/kernel_internal.h"
#include "window.h"

#include <cstring>
#include <list>

namespace win32::user {
namespace {

// Few, and looked up once for a window: a list in which the last registered comes first.
std::list<WindowClass> &classes()
{
    static auto *made = new std::list<WindowClass>;
    return *made;
}

HINSTANCE ownModule()
{
    return GetModuleHandleA(nullptr);
}

constexpr int mostExtraBytes = 0x10000;

ATOM add(WindowClass &&windowClass)
{
    for (const WindowClass &other : classes()) {
        bool isSame = other.atom == windowClass.atom && other.instance == windowClass.instance
                      && other.isSystem == windowClass.isSystem;
        if (isSame)
            return fail(ERROR_CLASS_ALREADY_EXISTS, ATOM{0});
    }
    classes().push_front(std::move(windowClass));
    return classes().front().atom;
}

ATOM registerClass(const WNDCLASSEXA &wanted)
{
    bool isAllowed = wanted.lpfnWndProc && wanted.lpszClassName && wanted.cbClsExtra >= 0 && wanted.cbWndExtra >= 0
                     && wanted.cbClsExtra < mostExtraBytes && wanted.cbWndExtra < mostExtraBytes;
    if (!isAllowed)
        return fail(ERROR_INVALID_PARAMETER, ATOM{0});
    ATOM atom = atoms::addNameOrAtom(wanted.lpszClassName);
    if (!atom)
        return 0;
    WindowClass made;
    made.atom = atom;
    made.name = atoms::nameOf(atom);
    made.style = wanted.style;
    made.procedure = wanted.lpfnWndProc;
    made.extraBytes = wanted.cbClsExtra;
    made.windowBytes = wanted.cbWndExtra;
    made.instance = wanted.hInstance ? wanted.hInstance : ownModule();
    made.icon = wanted.hIcon;
    made.smallIcon = wanted.hIconSm;
    made.cursor = wanted.hCursor;
    made.background = wanted.hbrBackground;
    if (reinterpret_cast<uintptr_t>(wanted.lpszMenuName) < 0x10000)
        made.menuNumber = reinterpret_cast<ULONG_PTR>(wanted.lpszMenuName);
    else
        made.menuName = wanted.lpszMenuName;
    made.extra.resize(static_cast<size_t>(wanted.cbClsExtra));
    registerSystemClasses();
    UserLock lock;
    return add(std::move(made));
}

// The name points into the class record, which lasts as long as the class.
void describe(const WindowClass &windowClass, WNDCLASSEXA &result)
{
    LPCSTR menu = windowClass.menuName.empty() ? reinterpret_cast<LPCSTR>(windowClass.menuNumber)
                                               : windowClass.menuName.c_str();
    result = {sizeof result,         windowClass.style,      windowClass.procedure, windowClass.extraBytes,
              windowClass.windowBytes, windowClass.isSystem ? nullptr : windowClass.instance, windowClass.icon,
              windowClass.cursor,    windowClass.background, menu, windowClass.name.c_str(), windowClass.smallIcon};
}

struct PointerField {
    int index;
    ULONG_PTR (*exchange)(WindowClass &windowClass, const LONG_PTR *value);
};

template <auto field> ULONG_PTR exchangeField(WindowClass &windowClass, const LONG_PTR *value)
{
    using Field = std::remove_reference_t<decltype(windowClass.*field)>;
    auto old = reinterpret_cast<ULONG_PTR>(windowClass.*field);
    if (value)
        windowClass.*field = reinterpret_cast<Field>(*value);
    return old;
}

template <auto field> ULONG_PTR exchangeNumber(WindowClass &windowClass, const LONG_PTR *value)
{
    using Field = std::remove_reference_t<decltype(windowClass.*field)>;
    auto old = static_cast<ULONG_PTR>(windowClass.*field);
    if (value)
        windowClass.*field = static_cast<Field>(*value);
    return old;
}

constexpr PointerField pointerFields[] = {
    {GCL_WNDPROC, exchangeField<&WindowClass::procedure>},  {GCL_HBRBACKGROUND, exchangeField<&WindowClass::background>},
    {GCL_HCURSOR, exchangeField<&WindowClass::cursor>},     {GCL_HICON, exchangeField<&WindowClass::icon>},
    {GCL_HICONSM, exchangeField<&WindowClass::smallIcon>},  {GCL_HMODULE, exchangeField<&WindowClass::instance>},
    {GCL_STYLE, exchangeNumber<&WindowClass::style>},       {GCL_MENUNAME, exchangeNumber<&WindowClass::menuNumber>},
    {GCL_CBWNDEXTRA, exchangeNumber<&WindowClass::windowBytes>},
};

// Reads, and with a value replaces, what an index names: a field, or bytes that the class has for the program.
ULONG_PTR classValue(HWND handle, int index, int byteCount, const LONG_PTR *value)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return 0;
    WindowClass &windowClass = *window->windowClass;
    if (index >= 0) {
        if (static_cast<size_t>(index) + static_cast<size_t>(byteCount) > windowClass.extra.size())
            return fail(ERROR_INVALID_INDEX, ULONG_PTR{0});
        ULONG_PTR old = 0;
        memcpy(&old, &windowClass.extra[static_cast<size_t>(index)], static_cast<size_t>(byteCount));
        if (value)
            memcpy(&windowClass.extra[static_cast<size_t>(index)], value, static_cast<size_t>(byteCount));
        return old;
    }
    if (index == GCW_ATOM)
        return windowClass.atom;
    if (index == GCL_CBCLSEXTRA)
        return static_cast<ULONG_PTR>(windowClass.extraBytes);
    for (const PointerField &field : pointerFields) {
        if (field.index == index)
            return field.exchange(windowClass, value);
    }
    return fail(ERROR_INVALID_INDEX, ULONG_PTR{0});
}

} // namespace

WindowClass *findClass(LPCSTR name, HINSTANCE instance)
{
    registerSystemClasses();
    ATOM atom = name ? atoms::findNameOrAtom(name) : ATOM{0};
    HINSTANCE module = instance ? instance : ownModule();
    WindowClass *shared = nullptr;
    for (WindowClass &windowClass : classes()) {
        if (windowClass.atom != atom || atom == 0)
            continue;
        if (!windowClass.isSystem && windowClass.instance == module)
            return &windowClass;
        if (windowClass.isSystem || (windowClass.style & CS_GLOBALCLASS))
            shared = &windowClass;
    }
    return shared ? shared : fail(ERROR_CANNOT_FIND_WND_CLASS, shared);
}

void addSystemClass(LPCSTR name, UINT style, WNDPROC procedure, int windowBytes, HCURSOR cursor, HBRUSH background)
{
    WindowClass made;
    made.atom = atoms::addNameOrAtom(name);
    char number[8];
    snprintf(number, sizeof number, "#%u", static_cast<unsigned>(made.atom));
    made.name = reinterpret_cast<uintptr_t>(name) < 0x10000 ? number : name;
    made.style = style;
    made.procedure = procedure;
    made.windowBytes = windowBytes;
    made.cursor = cursor;
    made.background = background;
    made.isSystem = true;
    UserLock lock;
    add(std::move(made));
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

ATOM RegisterClassExA(const WNDCLASSEXA *windowClass)
{
    if (!windowClass || windowClass->cbSize != sizeof(WNDCLASSEXA))
        return fail(ERROR_INVALID_PARAMETER, ATOM{0});
    return guarded(ATOM{0}, [&] { return registerClass(*windowClass); });
}

ATOM RegisterClassA(const WNDCLASSA *windowClass)
{
    if (!windowClass)
        return fail(ERROR_INVALID_PARAMETER, ATOM{0});
    const WNDCLASSA &c = *windowClass;
    WNDCLASSEXA extended{sizeof extended, c.style,   c.lpfnWndProc,   c.cbClsExtra,   c.cbWndExtra,    c.hInstance,
                         c.hIcon,         c.hCursor, c.hbrBackground, c.lpszMenuName, c.lpszClassName, nullptr};
    return RegisterClassExA(&extended);
}

BOOL UnregisterClassA(LPCSTR name, HINSTANCE instance)
{
    return guarded(FALSE, [&]() -> BOOL {
        UserLock lock;
        WindowClass *found = findClass(name, instance);
        if (!found || found->isSystem)
            return fail(ERROR_CLASS_DOES_NOT_EXIST, FALSE);
        if (found->windowCount > 0)
            return fail(ERROR_CLASS_HAS_WINDOWS, FALSE);
        classes().remove_if([&](const WindowClass &windowClass) { return &windowClass == found; });
        return TRUE;
    });
}

BOOL GetClassInfoExA(HINSTANCE instance, LPCSTR name, LPWNDCLASSEXA result)
{
    return guarded(FALSE, [&]() -> BOOL {
        UserLock lock;
        WindowClass *found = result ? findClass(name, instance) : nullptr;
        if (!found)
            return fail(ERROR_CLASS_DOES_NOT_EXIST, FALSE);
        describe(*found, *result);
        result->hInstance = instance;
        result->lpszClassName = name;
        return TRUE;
    });
}

BOOL GetClassInfoA(HINSTANCE instance, LPCSTR name, LPWNDCLASSA result)
{
    WNDCLASSEXA extended;
    if (!result || !GetClassInfoExA(instance, name, &extended))
        return FALSE;
    *result = {extended.style,   extended.lpfnWndProc, extended.cbClsExtra,    extended.cbWndExtra,   extended.hInstance,
               extended.hIcon,   extended.hCursor,     extended.hbrBackground, extended.lpszMenuName, extended.lpszClassName};
    return TRUE;
}

int GetClassNameA(HWND handle, LPSTR buffer, int size)
{
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return 0;
    if (!buffer || size <= 0)
        return fail(ERROR_INSUFFICIENT_BUFFER, 0);
    const std::string &name = window->windowClass->name;
    int length = std::min(static_cast<int>(name.size()), size - 1);
    memcpy(buffer, name.data(), static_cast<size_t>(length));
    buffer[length] = 0;
    return length;
}

DWORD GetClassLongA(HWND window, int index)
{
    return static_cast<DWORD>(classValue(window, index, sizeof(LONG), nullptr));
}

DWORD SetClassLongA(HWND window, int index, LONG value)
{
    LONG_PTR wide = value;
    return static_cast<DWORD>(classValue(window, index, sizeof(LONG), &wide));
}

WORD GetClassWord(HWND window, int index)
{
    return static_cast<WORD>(classValue(window, index, sizeof(WORD), nullptr));
}

ULONG_PTR GetClassLongPtrA(HWND window, int index)
{
    return classValue(window, index, sizeof(LONG_PTR), nullptr);
}

ULONG_PTR SetClassLongPtrA(HWND window, int index, LONG_PTR value)
{
    return classValue(window, index, sizeof(LONG_PTR), &value);
}
