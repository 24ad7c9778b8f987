// Posting, looking at and taking messages; waiting for them.
#include "caret.h"
#include "kernel/faults.h"
#include "kernel/kernel_internal.h"
#include "kernel/waits.h"
#include "message_queue.h"
#include "mouse_tracking.h"
#include "timers.h"
#include "update.h"

namespace win32::user {
namespace {

// How long a wait may last before a timer is due. One that is due already has been told of.
DWORD boundedByTimers(MessageQueue &queue, DWORD milliseconds, DWORD wakeMask)
{
    uint64_t due = wakeMask & QS_TIMER ? nextTimerOf(queue) : UINT64_MAX;
    uint64_t now = ticks();
    if (due == UINT64_MAX || due <= now)
        return milliseconds;
    return static_cast<DWORD>(std::min<uint64_t>(due - now, milliseconds));
}

// Waits until one of the objects is signalled, input is there, or the time is over. Timers come due in between.
DWORD waitForInput(DWORD count, const HANDLE *objects, bool all, DWORD milliseconds, DWORD wakeMask, bool isAlertable,
                   bool countsSeen)
{
    MessageQueue &queue = MessageQueue::current();
    uint64_t end = milliseconds == INFINITE ? UINT64_MAX : ticks() + milliseconds;
    InputWait input{queue.currentBits, countsSeen ? queue.currentBits : queue.changedBits, wakeMask};
    for (;;) {
        queue.bitsNow();
        uint64_t now = ticks();
        uint64_t left = end == UINT64_MAX ? uint64_t{INFINITE} : end > now ? end - now : 0;
        DWORD nap = boundedByTimers(queue, static_cast<DWORD>(left), wakeMask);
        DWORD result = waitForObjectsOrInput(objects, count, all, nap, isAlertable, input);
        bool isNapOver = result == WAIT_TIMEOUT && nap != static_cast<DWORD>(left);
        if (!isNapOver)
            return result;
    }
}

MSG postedMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return {window, message, wParam, lParam, static_cast<DWORD>(ticks()), cursorPosition()};
}


} // namespace
} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL PostMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (faults::fails("PostMessageA"))
        return FALSE;
    if (!handle)
        return PostThreadMessageA(GetCurrentThreadId(), message, wParam, lParam);
    return guarded(FALSE, [&]() -> BOOL {
        UserLock lock;
        if (handle == HWND_BROADCAST) {
            for (Window *window = desktop()->firstChild; window; window = window->next)
                window->queue->post(postedMessage(window->hwnd(), message, wParam, lParam));
            return TRUE;
        }
        Window *window = findWindow(handle);
        if (!window)
            return FALSE;
        return !window->queue || window->queue->post(postedMessage(handle, message, wParam, lParam));
    });
}

BOOL PostThreadMessageA(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam)
{
    MessageQueue *queue = thread == GetCurrentThreadId() ? &MessageQueue::current() : nullptr;
    UserLock lock;
    if (!queue)
        queue = MessageQueue::ofThread(thread);
    if (!queue)
        return fail(ERROR_INVALID_THREAD_ID, FALSE);
    return queue->post(postedMessage(nullptr, message, wParam, lParam));
}

void PostQuitMessage(int exitCode)
{
    MessageQueue::current().postQuit(exitCode);
}

BOOL PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT flags)
{
    if (!message)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    if (window && window != reinterpret_cast<HWND>(-1) && !findWindow(window))
        return FALSE;
    DWORD kinds = flags >> 16;
    MessageFilter filter{window, first, last, kinds ? kinds : DWORD{QS_ALLINPUT | QS_ALLPOSTMESSAGE}};
    return guarded(FALSE, [&]() -> BOOL { return MessageQueue::current().next(*message, filter, (flags & PM_REMOVE) != 0); });
}

BOOL GetMessageA(LPMSG message, HWND window, UINT first, UINT last)
{
    if (!message)
        return fail(ERROR_INVALID_PARAMETER, -1);
    if (window && window != reinterpret_cast<HWND>(-1) && !findWindow(window))
        return -1;
    MessageFilter filter{window, first, last, QS_ALLINPUT | QS_ALLPOSTMESSAGE};
    MessageQueue &queue = MessageQueue::current();
    return guarded(-1, [&]() -> BOOL {
        while (!queue.next(*message, filter, true))
            waitForInput(0, nullptr, false, INFINITE, QS_ALLINPUT | QS_ALLPOSTMESSAGE, false, false);
        return message->message != WM_QUIT;
    });
}

LRESULT DispatchMessageA(const MSG *message)
{
    if (!message)
        return 0;
    bool isTimer = message->message == WM_TIMER || message->message == WM_SYSTIMER;
    if (isTimer && message->lParam) {
        auto procedure = reinterpret_cast<TIMERPROC>(message->lParam);
        if (isTimerProcedure(procedure))
            procedure(message->hwnd, message->message, message->wParam, static_cast<DWORD>(ticks()));
        return 0;
    }
    if (!message->hwnd)
        return 0;
    bool isOfSystem = message->message == WM_SYSTIMER
                      && (blinkCaret(message->hwnd, message->wParam) || mouseRests(message->hwnd, message->wParam));
    if (isOfSystem)
        return 0;
    return sendMessage(message->hwnd, message->message, message->wParam, message->lParam);
}

DWORD GetQueueStatus(UINT flags)
{
    MessageQueue &queue = MessageQueue::current();
    DWORD now = queue.bitsNow() & flags;
    DWORD changed = queue.changedBits.fetch_and(~flags, std::memory_order_relaxed) & flags;
    return static_cast<DWORD>(MAKELONG(changed & now, now));
}

BOOL GetInputState()
{
    return (MessageQueue::current().bitsNow() & (QS_KEY | QS_MOUSEBUTTON)) != 0;
}

LONG GetMessageTime()
{
    return MessageQueue::current().messageTime;
}

DWORD GetMessagePos()
{
    POINT point = MessageQueue::current().messagePoint;
    return static_cast<DWORD>(MAKELONG(point.x, point.y));
}

LPARAM GetMessageExtraInfo()
{
    return MessageQueue::current().messageExtraInfo;
}

BOOL WaitMessage()
{
    return guarded(FALSE, [&]() -> BOOL {
        waitForInput(0, nullptr, false, INFINITE, QS_ALLINPUT | QS_ALLPOSTMESSAGE, false, false);
        return TRUE;
    });
}

DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE *objects, BOOL all, DWORD milliseconds, DWORD wakeMask)
{
    if (count >= MAXIMUM_WAIT_OBJECTS || (count && !objects))
        return fail(ERROR_INVALID_PARAMETER, DWORD{WAIT_FAILED});
    return guarded(DWORD{WAIT_FAILED},
                   [&] { return waitForInput(count, objects, all != FALSE, milliseconds, wakeMask, false, false); });
}

DWORD MsgWaitForMultipleObjectsEx(DWORD count, const HANDLE *objects, DWORD milliseconds, DWORD wakeMask, DWORD flags)
{
    if (count >= MAXIMUM_WAIT_OBJECTS || (count && !objects))
        return fail(ERROR_INVALID_PARAMETER, DWORD{WAIT_FAILED});
    return guarded(DWORD{WAIT_FAILED}, [&] {
        return waitForInput(count, objects, (flags & MWMO_WAITALL) != 0, milliseconds, wakeMask,
                            (flags & MWMO_ALERTABLE) != 0, (flags & MWMO_INPUTAVAILABLE) != 0);
    });
}
