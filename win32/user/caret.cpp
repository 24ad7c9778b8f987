#include "caret.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "timers.h"

namespace win32::user {
namespace {

constexpr UINT_PTR blinkTimer = 0xfff0;

struct Caret {
    HWND window = nullptr;
    HBITMAP bitmap = nullptr; // the program's; null for a bar of the size
    int width = 0;
    int height = 0;
    POINT position{};
    int hidden = 0;       // how often it was hidden and not shown again
    bool isDrawn = false; // its pixels are inverted now
};

thread_local Caret caret;
UINT blinkTime = 500;

// Drawing it twice leaves no trace.
void invert()
{
    HDC context = GetDC(caret.window);
    if (!context)
        return;
    if (caret.bitmap) {
        HDC memory = CreateCompatibleDC(context);
        HGDIOBJ old = memory ? SelectObject(memory, caret.bitmap) : nullptr;
        if (old) {
            BitBlt(context, caret.position.x, caret.position.y, caret.width, caret.height, memory, 0, 0, SRCINVERT);
            SelectObject(memory, old);
        }
        DeleteDC(memory);
    } else {
        PatBlt(context, caret.position.x, caret.position.y, caret.width, caret.height, DSTINVERT);
    }
    ReleaseDC(caret.window, context);
    caret.isDrawn = !caret.isDrawn;
}

void draw(bool isWanted)
{
    if (caret.window && caret.isDrawn != isWanted)
        invert();
}

bool isOwn(HWND window)
{
    return caret.window && (!window || window == caret.window);
}

} // namespace

void hideCaretForPainting(HWND window)
{
    if (window && window == caret.window)
        HideCaret(window);
}

void showCaretAfterPainting(HWND window)
{
    if (window && window == caret.window)
        ShowCaret(window);
}

bool blinkCaret(HWND window, UINT_PTR timer)
{
    if (timer != blinkTimer || window != caret.window)
        return false;
    if (caret.hidden == 0)
        invert();
    return true;
}

void forgetCaret(HWND window)
{
    if (window == caret.window)
        caret = {};
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL CreateCaret(HWND window, HBITMAP bitmap, int width, int height)
{
    if (!findWindow(window))
        return FALSE;
    DestroyCaret();
    BITMAP record{};
    bool isOfBitmap = reinterpret_cast<uintptr_t>(bitmap) > 1; // 0 is a solid bar, 1 a gray one
    if (isOfBitmap && !GetObjectA(bitmap, sizeof record, &record))
        return FALSE;
    caret.window = window;
    caret.bitmap = isOfBitmap ? bitmap : nullptr;
    caret.width = isOfBitmap ? record.bmWidth : width ? width : GetSystemMetrics(SM_CXBORDER);
    caret.height = isOfBitmap ? record.bmHeight : height ? height : GetSystemMetrics(SM_CYBORDER);
    caret.position = {0, 0};
    caret.hidden = 1;
    caret.isDrawn = false;
    return TRUE;
}

BOOL DestroyCaret()
{
    if (!caret.window)
        return fail(ERROR_ACCESS_DENIED, FALSE);
    draw(false);
    killSystemTimer(caret.window, blinkTimer);
    caret = {};
    return TRUE;
}

BOOL ShowCaret(HWND window)
{
    if (!isOwn(window))
        return fail(ERROR_ACCESS_DENIED, FALSE);
    if (caret.hidden > 0 && --caret.hidden == 0) {
        draw(true);
        setSystemTimer(caret.window, blinkTimer, blinkTime);
    }
    return TRUE;
}

BOOL HideCaret(HWND window)
{
    if (!isOwn(window))
        return fail(ERROR_ACCESS_DENIED, FALSE);
    if (caret.hidden++ == 0) {
        draw(false);
        killSystemTimer(caret.window, blinkTimer);
    }
    return TRUE;
}

BOOL SetCaretPos(int x, int y)
{
    if (!caret.window)
        return fail(ERROR_ACCESS_DENIED, FALSE);
    if (caret.position.x == x && caret.position.y == y)
        return TRUE;
    draw(false);
    caret.position = {x, y};
    if (caret.hidden == 0) {
        draw(true);
        setSystemTimer(caret.window, blinkTimer, blinkTime);
    }
    return TRUE;
}

BOOL GetCaretPos(LPPOINT point)
{
    if (!point)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    *point = caret.position;
    return TRUE;
}

UINT GetCaretBlinkTime()
{
    return blinkTime;
}

BOOL SetCaretBlinkTime(UINT milliseconds)
{
    blinkTime = milliseconds;
    return TRUE;
}
