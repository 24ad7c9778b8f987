// Calling window procedures: at once within a thread, through its queue from another.
#include "kernel/kernel_internal.h"
#include "kernel/waits.h"
#include "message_queue.h"

namespace win32::user {
namespace {

bool isAnsweredOrGone(const SentMessage &message, HWND window)
{
    return message.isAnswered.load() || !findWindowQuietly(window);
}

// Waits for another thread, and answers meanwhile what others send to this one. False when the time is over.
bool waitForAnswer(MessageQueue &own, const SentMessage &message, DWORD milliseconds)
{
    uint64_t end = milliseconds == INFINITE ? UINT64_MAX : ticks() + milliseconds;
    while (!isAnsweredOrGone(message, message.window)) {
        own.answerSent();
        if (isAnsweredOrGone(message, message.window))
            break;
        uint64_t now = ticks();
        if (now >= end)
            return false;
        // A window that is destroyed gives no answer: look now and then.
        constexpr uint64_t longestNap = 50;
        InputWait input{own.currentBits, own.currentBits, QS_SENDMESSAGE, &message.isAnswered};
        waitForObjectsOrInput(nullptr, 0, false, static_cast<DWORD>(std::min(end - now, longestNap)), false, input);
    }
    return true;
}

bool sendToThread(MessageQueue &queue, HWND window, UINT message, WPARAM wParam, LPARAM lParam, DWORD milliseconds,
                  LRESULT &result)
{
    MessageQueue &own = MessageQueue::current();
    auto sent = std::make_shared<SentMessage>(window, message, wParam, lParam, &own);
    queue.send(sent);
    bool isOver = waitForAnswer(own, *sent, milliseconds);
    UserLock lock;
    sent->isAbandoned = true;
    result = sent->isAnswered.load() ? sent->result : 0;
    return isOver;
}

// The queue of a window of another thread; null for one of the calling thread, or of none.
MessageQueue *foreignQueue(HWND handle)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    return window && window->queue && window->queue != &MessageQueue::current() ? window->queue : nullptr;
}

bool isPlainHandle(HWND window)
{
    return window != HWND_BROADCAST;
}

std::vector<HWND> topLevelWindows()
{
    UserLock lock;
    return childrenOf(*desktop());
}

} // namespace

WNDPROC procedureOf(HWND handle)
{
    Window *window = findWindowQuietly(handle);
    return window ? window->procedure : nullptr;
}

// A window of the calling thread cannot go away between the look-up and the call.
LRESULT sendMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window *window = findWindow(handle);
    if (!window)
        return 0;
    if (!window->queue || window->queue == &MessageQueue::current())
        return window->procedure(handle, message, wParam, lParam);
    MessageQueue *queue = foreignQueue(handle);
    LRESULT result = 0;
    if (queue)
        sendToThread(*queue, handle, message, wParam, lParam, INFINITE, result);
    return result;
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (isPlainHandle(window))
        return sendMessage(window, message, wParam, lParam);
    return guarded(LRESULT{0}, [&]() -> LRESULT {
        for (HWND each : topLevelWindows()) {
            if (IsWindow(each))
                sendMessage(each, message, wParam, lParam);
        }
        return TRUE;
    });
}

LRESULT SendMessageTimeoutA(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT, UINT milliseconds,
                            DWORD_PTR *result)
{
    return guarded(LRESULT{0}, [&]() -> LRESULT {
        if (!findWindow(window))
            return 0;
        LRESULT answer = 0;
        bool isAnswered = true;
        if (MessageQueue *queue = foreignQueue(window))
            isAnswered = sendToThread(*queue, window, message, wParam, lParam, milliseconds, answer);
        else
            answer = sendMessage(window, message, wParam, lParam);
        if (result)
            *result = static_cast<DWORD_PTR>(answer);
        return isAnswered ? TRUE : fail(ERROR_TIMEOUT, LRESULT{0});
    });
}

BOOL SendNotifyMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return guarded(FALSE, [&]() -> BOOL {
        if (!findWindow(window))
            return FALSE;
        MessageQueue *queue = foreignQueue(window);
        if (queue)
            queue->send(std::make_shared<SentMessage>(window, message, wParam, lParam, nullptr));
        else
            sendMessage(window, message, wParam, lParam);
        return TRUE;
    });
}

LRESULT SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    HWND item = GetDlgItem(dialog, id);
    return item ? SendMessageA(item, message, wParam, lParam) : 0;
}

BOOL InSendMessage()
{
    return !MessageQueue::current().answering.empty();
}

BOOL ReplyMessage(LRESULT result)
{
    UserLock lock;
    MessageQueue &own = MessageQueue::current();
    if (own.answering.empty() || own.answering.back()->isAnswered.load())
        return FALSE;
    SentMessage &message = *own.answering.back();
    message.result = result;
    message.isAnswered = true;
    if (message.sender && !message.isAbandoned)
        wakeForInput(*message.sender->thread);
    return TRUE;
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}
