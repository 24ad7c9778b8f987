// The system's colour dialog.
#include "Quickdraw_internal.h"

#include <mtbx/ColorPicker.h>
#include <mtbx/MTBXGlobals.h>

#include <commdlg.h>

#include <algorithm>
#include <iterator>

HWND (*modalOwnerCall)();

namespace {

// The user's own colours in the dialog, from call to call.
COLORREF customColors[16];

// Black is what an empty place holds, so it is there as long as one is.
void addCustomColor(COLORREF color)
{
    if (std::find(std::begin(customColors), std::end(customColors), color) != std::end(customColors))
        return;
    auto *empty = std::find(std::begin(customColors), std::end(customColors), COLORREF{0});
    if (empty != std::end(customColors))
        *empty = color;
}

void centreOnPrimaryScreen(HWND dialog)
{
    RECT rect = {};
    GetWindowRect(dialog, &rect);
    int x = (GetSystemMetrics(SM_CXSCREEN) - (rect.right - rect.left)) / 2;
    int y = (GetSystemMetrics(SM_CYSCREEN) - (rect.bottom - rect.top)) / 2;
    SetWindowPos(dialog, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

UINT_PTR CALLBACK colorDialogHook(HWND dialog, UINT message, WPARAM, LPARAM)
{
    if (message == WM_INITDIALOG)
        centreOnPrimaryScreen(dialog);
    return 0;
}

RGBColor widened(COLORREF color)
{
    auto channel = [color](int shift) { return static_cast<UInt16>((color >> shift & 0xFF) * 257); };
    return {channel(0), channel(8), channel(16)};
}

} // namespace

Boolean GetColor(Point, ConstStr255Param, const RGBColor *first, RGBColor *chosen)
{
    COLORREF color = roundedColor(*first);
    addCustomColor(color);
    CHOOSECOLORA dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = modalOwnerCall ? modalOwnerCall() : hWndMain;
    // The dialog's own template: the handle names the host, as for its other dialogs.
    dialog.hInstance = reinterpret_cast<decltype(dialog.hInstance)>(hResInst);
    dialog.rgbResult = color;
    dialog.lpCustColors = customColors;
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ENABLEHOOK | CC_ANYCOLOR;
    dialog.lpfnHook = colorDialogHook;
    if (!ChooseColorA(&dialog))
        return false;
    *chosen = widened(dialog.rgbResult);
    return true;
}
