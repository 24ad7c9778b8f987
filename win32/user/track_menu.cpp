// What opens menus: TrackPopupMenu, and the default answers to presses and keys in frames.
#include "kernel/kernel_internal.h"
#include "menu_bar.h"
#include "menu_loop.h"
#include "message_queue.h"
#include "system_menu.h"

namespace win32::user {
namespace {

bool isOfThread(HWND handle)
{
    UserLock lock;
    const Window *window = findWindow(handle);
    if (!window)
        return false;
    return window->queue == &MessageQueue::current() || fail(ERROR_ACCESS_DENIED, false);
}

bool mayTrack(HMENU menu, UINT flags, HWND owner)
{
    {
        UserLock lock;
        if (!findMenu(menu))
            return false;
    }
    if (!isOfThread(owner))
        return false;
    return !MenuLoop::current() || (flags & TPM_RECURSE) || fail(ERROR_POPUP_ALREADY_ACTIVE, false);
}

// Opening may find no memory; running then ends what has begun.
template <class Open> void work(MenuLoop &loop, Open open)
{
    guarded(false, [&] {
        open();
        return true;
    });
    loop.run();
    loop.postChoice();
}

BOOL track(HMENU menu, UINT flags, const PopupPlace &place, HWND owner)
{
    if (!mayTrack(menu, flags, owner))
        return FALSE;
    MenuLoop loop(owner, menu, MenuLoop::Kind::Popup, flags);
    work(loop, [&] { loop.openAt(place); });
    return flags & TPM_RETURNCMD ? static_cast<BOOL>(loop.chosenCommand()) : loop.hasOpened();
}

// The window whose menu a child's key or press is for.
HWND menuWindowOf(HWND handle)
{
    UserLock lock;
    const Window *window = findWindowQuietly(handle);
    while (window && window->isChild() && !window->parent->isDesktop())
        window = window->parent;
    return window ? window->hwnd() : nullptr;
}

bool canBegin(HWND window)
{
    return !MenuLoop::current() && isOfThread(window);
}

} // namespace

void trackMenuByMouse(HWND handle, int hit, POINT point)
{
    HWND window = menuWindowOf(handle);
    bool isSystem = hit == HTSYSMENU;
    HMENU root = guarded(HMENU{}, [&] { return isSystem ? preparedSystemMenu(window) : usableMenuBar(window); });
    if (!root || !canBegin(window))
        return;
    MenuLoop loop(window, root, isSystem ? MenuLoop::Kind::System : MenuLoop::Kind::Bar, 0);
    work(loop, [&] { loop.pressAt(point); });
}

void trackMenuByKey(HWND handle, WORD character)
{
    HWND window = menuWindowOf(handle);
    HMENU bar = character == ' ' ? nullptr : usableMenuBar(window);
    bool isForSystem = !bar && (character == 0 || character == ' ');
    HMENU root = bar ? bar : guarded(HMENU{}, [&] { return isForSystem ? preparedSystemMenu(window) : nullptr; });
    if (!root) {
        if (character)
            MessageBeep(0);
        return;
    }
    if (!canBegin(window))
        return;
    MenuLoop loop(window, root, bar ? MenuLoop::Kind::Bar : MenuLoop::Kind::System, 0);
    work(loop, [&] { loop.openByKey(character); });
}

void trackSystemMenuAt(HWND window, POINT point)
{
    HMENU holder = guarded(HMENU{}, [&] { return preparedSystemMenu(window); });
    HMENU popup = holder ? GetSubMenu(holder, 0) : nullptr;
    if (!popup || !canBegin(window))
        return;
    MenuLoop loop(window, popup, MenuLoop::Kind::Popup, TPM_RIGHTBUTTON);
    loop.treatAsSystemMenu();
    work(loop, [&] { loop.openAt({point, TPM_LEFTALIGN, {}, false}); });
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT *)
{
    return track(menu, flags, {{x, y}, flags, {}, false}, owner);
}

BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, LPTPMPARAMS parameters)
{
    if (parameters && parameters->cbSize != sizeof *parameters)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    RECT kept = parameters ? parameters->rcExclude : RECT{};
    return track(menu, flags, {{x, y}, flags, kept, !(flags & TPM_VERTICAL)}, owner);
}

BOOL EndMenu(void)
{
    MenuLoop *loop = MenuLoop::current();
    if (!loop)
        return FALSE;
    loop->end();
    // The loop may be waiting while another thread's message is served.
    PostThreadMessageA(GetCurrentThreadId(), WM_NULL, 0, 0);
    return TRUE;
}
