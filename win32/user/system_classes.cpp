// The window classes that every program finds.
#include "kernel/kernel_internal.h"
#include "window_class.h"

#include <mutex>

namespace win32::user {
namespace {

LRESULT CALLBACK desktopProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CLOSE:
    case WM_SYSCOMMAND:
        return 0; // the desktop stays
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

void registerSystemClasses()
{
    static std::once_flag once;
    std::call_once(once, [] {
        LPCSTR desktopClass = MAKEINTATOM(32769);
        addSystemClass(desktopClass, CS_DBLCLKS, desktopProcedure, 0, nullptr, reinterpret_cast<HBRUSH>(COLOR_BACKGROUND + 1));
        addSystemClass("Message", 0, DefWindowProcA, 0, nullptr, nullptr);
        registerStaticClass();
        registerButtonClass();
        registerMenuClass();
    });
}

} // namespace win32::user
