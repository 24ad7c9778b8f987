// The classes of native windows that dialogs make for items that are the program's to draw.
#include "hostkit_internal.h"

namespace hostkit {
namespace {

constexpr const char *classNames[] = {"UserItemClass", "PictItemClass", "ZP_Overlay_Cls"};

// An item's mouse goes to its dialog, whose program follows it; what is below shows through until it draws.
LRESULT CALLBACK itemProcedure(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCHITTEST)
        return HTTRANSPARENT;
    return DefWindowProcA(native, message, wParam, lParam);
}

} // namespace

bool registerDialogClasses()
{
    for (const char *name : classNames) {
        WNDCLASSA description = {};
        description.lpfnWndProc = itemProcedure;
        description.cbWndExtra = 2 * sizeof(LONG_PTR);
        description.hInstance = hExeInst;
        description.lpszClassName = name;
        if (!RegisterClassA(&description))
            return false;
    }
    return true;
}

void unregisterDialogClasses()
{
    for (const char *name : classNames)
        UnregisterClassA(name, hExeInst);
}

} // namespace hostkit
