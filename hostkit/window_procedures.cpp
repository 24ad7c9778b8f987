// The procedures of the main window and of the windows on its desktop.
#include "hostkit_internal.h"

namespace hostkit {
namespace {

// Null for the system's colour of a workspace. The class has no brush of the program's, which would go with it.
HBRUSH desktopBrush;

WindowPtr madeFor(HWND native)
{
    return reinterpret_cast<WindowPtr>(GetWindowLongPtrA(native, GWLP_USERDATA));
}

// The library has unlinked the record before it closes the native window.
void close(HWND native)
{
    forgetWindow(madeFor(native), native);
    DestroyWindow(native);
    followFront();
}

// A native window that goes without its record, as with its parent: the record has none from here on.
void release(WindowPtr window, HWND native)
{
    forgetWindow(window, native);
    SetHwndMacWindowPtr(native, nullptr);
    (**GetPortPixMap(window)).pmWindow = nullptr;
}

void pressGoAway(WindowPtr window)
{
    if (recordOf(window)->goAwayFlag)
        postPressIn(window, inGoAway);
}

// A box of the frame, by the system menu or its keys; the mouse comes as a press.
bool takeSystemCommand(WindowPtr window, WPARAM command)
{
    switch (command & 0xFFF0) {
    case SC_CLOSE:
        pressGoAway(window);
        return true;
    case SC_MAXIMIZE:
        postPressIn(window, inZoomOut);
        return true;
    case SC_RESTORE:
        postPressIn(window, inZoomIn);
        return true;
    case SC_KEYMENU:
        return wasAltUsed();
    default:
        return false;
    }
}

// What the system does on its own may take as long as the user wants.
LRESULT leaveToSystem(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_SYSCOMMAND && message != WM_NCLBUTTONDOWN)
        return DefWindowProcA(native, message, wParam, lParam);
    SystemLoop loop;
    return DefWindowProcA(native, message, wParam, lParam);
}

bool eraseDesktop(HWND native, HDC context)
{
    RECT client;
    GetClientRect(native, &client);
    return desktopBrush && FillRect(context, &client, desktopBrush);
}

bool isWheel(WindowPtr window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_MOUSEWHEEL && turnWheel(window, pointOf(lParam), static_cast<SInt16>(HIWORD(wParam)));
}

} // namespace

LRESULT CALLBACK windowProcedure(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    WindowPtr window = GetHwndMacWindowPtr(native);
    LRESULT result = 0;
    if (message == WM_NCCREATE)
        SetWindowLongPtrA(native, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTA *>(lParam)->lpCreateParams));
    if (window && trackMessage(window, message, wParam, lParam, result))
        return result;
    if (takeInput(native, message, wParam, lParam) || isWheel(window, message, wParam, lParam))
        return 0;
    switch (message) {
    case WM_PAINT:
        takeUpdate(native, window);
        return 0;
    case WM_MOVE:
    case WM_SIZE:
        if (window)
            noteGeometry(window);
        return 0;
    case WM_GETMINMAXINFO:
        // A program may make a window smaller than the system lets its user.
        reinterpret_cast<MINMAXINFO *>(lParam)->ptMinTrackSize = {};
        return 0;
    case WM_SETCURSOR:
        return setCursor(native, wParam, lParam);
    case WM_SYSCOMMAND:
        if (window && takeSystemCommand(window, wParam))
            return 0;
        break;
    case WM_CLOSE:
        window ? pressGoAway(window) : close(native);
        return 0;
    case WM_NCDESTROY:
        if (window)
            release(window, native);
        break;
    default:
        break;
    }
    return leaveToSystem(native, message, wParam, lParam);
}

void setDesktopBrush(HBRUSH brush)
{
    desktopBrush = brush;
}

LRESULT CALLBACK mainProcedure(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (native != hWndMain) // being made, or gone for the program
        return DefWindowProcA(native, message, wParam, lParam);
    if (takeInput(native, message, wParam, lParam) || isWheel(nullptr, message, wParam, lParam))
        return 0;
    switch (message) {
    case WM_ACTIVATEAPP:
        showActive(wParam != 0);
        return 0;
    case WM_SETFOCUS:
        if (keyboardWindow() != native)
            SetFocus(keyboardWindow());
        return 0;
    case WM_SIZE:
        gApplicationHidden = wParam == SIZE_MINIMIZED;
        if (!gApplicationHidden)
            noteDesktopSize();
        return 0;
    case WM_SETCURSOR:
        if (reinterpret_cast<HWND>(wParam) == native)
            return setCursor(native, wParam, lParam);
        break;
    case WM_ERASEBKGND:
        if (eraseDesktop(native, reinterpret_cast<HDC>(wParam)))
            return TRUE;
        break;
    case WM_ENTERMENULOOP:
        enterSystemLoop();
        return 0;
    case WM_EXITMENULOOP:
        leaveSystemLoop();
        return 0;
    case WM_ENABLE:
        // A dialog of the system's runs while the main window takes no input.
        wParam ? leaveSystemLoop() : enterSystemLoop();
        return 0;
    case WM_SYSCOMMAND:
        if ((wParam & 0xFFF0) == SC_KEYMENU && wasAltUsed())
            return 0;
        break;
    case WM_QUERYENDSESSION: // the session may end when the program has asked its user
    case WM_CLOSE:
        askToQuit();
        return FALSE;
    default:
        break;
    }
    return leaveToSystem(native, message, wParam, lParam);
}

} // namespace hostkit
