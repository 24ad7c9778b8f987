#include "message_queue.h"

#include "kernel/kernel_internal.h"
#include "kernel/waits.h"
#include "placement.h"
#include "screen/replay_player.h"
#include "timers.h"
#include "update.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <map>

namespace win32::user {
namespace {

constexpr size_t mostPosted = 10000;

std::map<DWORD, MessageQueue *> &queues()
{
    static auto *made = new std::map<DWORD, MessageQueue *>;
    return *made;
}

MSG newMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return {window, message, wParam, lParam, static_cast<DWORD>(ticks()), cursorPosition()};
}

} // namespace

MessageQueue *MessageQueue::foreground = nullptr;

uint64_t ticks()
{
    using namespace std::chrono;
    return static_cast<uint64_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

bool MessageFilter::takesWindow(HWND target) const
{
    if (!window)
        return true;
    if (window == reinterpret_cast<HWND>(-1))
        return target == nullptr;
    if (target == window)
        return true;
    Window *parent = findWindowQuietly(window);
    Window *child = findWindowQuietly(target);
    return parent && child && isDescendant(*parent, *child);
}

MessageQueue::MessageQueue() : threadId(GetCurrentThreadId()), thread(currentThreadState())
{
    {
        UserLock lock;
        queues()[threadId] = this;
        cursor = LoadCursorA(nullptr, IDC_ARROW);
    }
    screen::startReplay();
}

// A thread that ends leaves its windows to nobody: what is sent to them is answered with 0.
MessageQueue::~MessageQueue()
{
    UserLock lock;
    queues().erase(threadId);
    if (foreground == this)
        foreground = nullptr;
    for (const auto &message : sent_)
        message->isAnswered = true;
    abandonWindowsOf(*this);
}

MessageQueue &MessageQueue::current()
{
    thread_local MessageQueue queue;
    return queue;
}

MessageQueue *MessageQueue::ofThread(DWORD id)
{
    auto found = queues().find(id);
    return found != queues().end() ? found->second : nullptr;
}

void MessageQueue::setBits(DWORD bits)
{
    currentBits.fetch_or(bits);
    changedBits.fetch_or(bits);
    wakeForInput(*thread);
}

bool MessageQueue::post(const MSG &message)
{
    UserLock lock;
    if (posted_.size() >= mostPosted)
        return fail(ERROR_NOT_ENOUGH_QUOTA, false);
    return guarded(false, [&] {
        posted_.push_back(message);
        setBits(QS_POSTMESSAGE | QS_ALLPOSTMESSAGE);
        return true;
    });
}

void MessageQueue::postQuit(int exitCode)
{
    UserLock lock;
    hasQuit_ = true;
    exitCode_ = exitCode;
    setBits(QS_POSTMESSAGE | QS_ALLPOSTMESSAGE);
}

void MessageQueue::send(std::shared_ptr<SentMessage> message)
{
    UserLock lock;
    sent_.push_back(std::move(message));
    setBits(QS_SENDMESSAGE);
}

void MessageQueue::addInput(const InputEvent &event)
{
    UserLock lock;
    DWORD bit = event.kind == InputEvent::Kind::Key         ? DWORD{QS_KEY}
                : event.kind == InputEvent::Kind::MouseMove ? DWORD{QS_MOUSEMOVE}
                                                            : DWORD{QS_MOUSEBUTTON};
    bool movesAgain = event.kind == InputEvent::Kind::MouseMove && !input_.empty()
                      && input_.back().kind == InputEvent::Kind::MouseMove;
    if (movesAgain)
        input_.back() = event;
    else if (input_.size() < mostPosted)
        input_.push_back(event);
    setBits(bit);
}

void MessageQueue::inputChanged()
{
    DWORD bits = 0;
    for (const InputEvent &event : input_)
        bits |= event.kind == InputEvent::Kind::Key         ? DWORD{QS_KEY}
                : event.kind == InputEvent::Kind::MouseMove ? DWORD{QS_MOUSEMOVE}
                                                            : DWORD{QS_MOUSEBUTTON};
    currentBits.fetch_and(~static_cast<DWORD>(QS_INPUT), std::memory_order_relaxed);
    currentBits.fetch_or(bits, std::memory_order_relaxed);
}

void MessageQueue::paintCountChanged(int difference)
{
    UserLock lock;
    paintCount_ += difference;
    if (paintCount_ > 0 && difference > 0)
        setBits(QS_PAINT);
    else if (paintCount_ <= 0)
        currentBits.fetch_and(~static_cast<DWORD>(QS_PAINT), std::memory_order_relaxed);
}

void MessageQueue::forget(HWND window)
{
    UserLock lock;
    std::erase_if(posted_, [&](const MSG &message) { return message.hwnd == window; });
    if (posted_.empty() && !hasQuit_)
        currentBits.fetch_and(~static_cast<DWORD>(QS_POSTMESSAGE | QS_ALLPOSTMESSAGE), std::memory_order_relaxed);
    for (HWND *role : {&active, &focus, &capture, &moveSizeWindow, &lastClickWindow_}) {
        if (*role == window)
            *role = nullptr;
    }
}

DWORD MessageQueue::bitsNow()
{
    UserLock lock;
    bool isTimerDue = nextTimerOf(*this) <= ticks();
    if (isTimerDue && !(currentBits.load(std::memory_order_relaxed) & QS_TIMER))
        setBits(QS_TIMER);
    else if (!isTimerDue)
        currentBits.fetch_and(~static_cast<DWORD>(QS_TIMER), std::memory_order_relaxed);
    return currentBits.load(std::memory_order_relaxed);
}

void MessageQueue::answerSent()
{
    while (currentBits.load(std::memory_order_relaxed) & QS_SENDMESSAGE) {
        std::shared_ptr<SentMessage> message;
        {
            UserLock lock;
            if (sent_.empty()) {
                currentBits.fetch_and(~static_cast<DWORD>(QS_SENDMESSAGE), std::memory_order_relaxed);
                return;
            }
            message = std::move(sent_.front());
            sent_.pop_front();
            answering.push_back(message);
        }
        LRESULT result = sendMessage(message->window, message->message, message->wParam, message->lParam);
        UserLock lock;
        answering.pop_back();
        if (message->isAnswered.load())
            continue; // ReplyMessage was earlier
        message->result = result;
        message->isAnswered = true;
        if (message->sender && !message->isAbandoned)
            wakeForInput(*message->sender->thread);
    }
}

bool MessageQueue::takePosted(MSG &message, const MessageFilter &filter, bool remove)
{
    UserLock lock;
    auto found = posted_.begin();
    bool takesAll = !filter.window && filter.first == 0 && filter.last == 0;
    if (!takesAll)
        found = std::find_if(posted_.begin(), posted_.end(), [&](const MSG &each) { return filter.takes(each); });
    if (found == posted_.end())
        return false;
    message = *found;
    if (!remove)
        return true;
    posted_.erase(found);
    if (posted_.empty() && !hasQuit_)
        currentBits.fetch_and(~static_cast<DWORD>(QS_POSTMESSAGE | QS_ALLPOSTMESSAGE), std::memory_order_relaxed);
    return true;
}

// The order to quit waits until nothing posted does.
bool MessageQueue::takeQuit(MSG &message, bool remove)
{
    UserLock lock;
    if (!hasQuit_ || !posted_.empty())
        return false;
    message = newMessage(nullptr, WM_QUIT, static_cast<WPARAM>(exitCode_), 0);
    if (remove) {
        hasQuit_ = false;
        currentBits.fetch_and(~static_cast<DWORD>(QS_POSTMESSAGE | QS_ALLPOSTMESSAGE), std::memory_order_relaxed);
    }
    return true;
}

bool MessageQueue::takePaint(MSG &message, const MessageFilter &filter, bool remove)
{
    if (paintCount_ <= 0 || !filter.takesMessage(WM_PAINT))
        return false;
    UserLock lock;
    Window *window = nextToPaint(*this, filter);
    if (!window)
        return false;
    message = newMessage(window->hwnd(), WM_PAINT, 0, 0);
    if (remove)
        setInternalPaint(*window, false);
    return true;
}

bool MessageQueue::takeTimer(MSG &message, const MessageFilter &filter, bool remove)
{
    if (timers.empty())
        return false;
    UserLock lock;
    uint64_t now = ticks();
    for (Timer &timer : timers) {
        UINT kind = timer.isOfSystem ? UINT{WM_SYSTIMER} : UINT{WM_TIMER};
        if (timer.due > now || !filter.takesMessage(kind) || !filter.takesWindow(timer.window))
            continue;
        message = newMessage(timer.window, kind, timer.id, reinterpret_cast<LPARAM>(timer.procedure));
        if (remove)
            timer.due = now + timer.period;
        return true;
    }
    return false;
}

bool MessageQueue::next(MSG &message, const MessageFilter &filter, bool remove)
{
    // What came before this look counts as seen; what comes during it does not.
    changedBits.fetch_and(~filter.kinds);
    answerSent();
    bool found = false;
    if (filter.kinds & (QS_POSTMESSAGE | QS_ALLPOSTMESSAGE))
        found = takePosted(message, filter, remove) || takeQuit(message, remove);
    if (!found && (filter.kinds & QS_INPUT))
        found = takeInput(message, filter, remove);
    if (!found && (filter.kinds & QS_PAINT))
        found = takePaint(message, filter, remove);
    if (!found && (filter.kinds & QS_TIMER))
        found = takeTimer(message, filter, remove);
    if (found && remove) {
        messageTime = static_cast<LONG>(message.time);
        messagePoint = message.pt;
        looksWhenTaken.store(buttonLooks.load(std::memory_order_relaxed), std::memory_order_relaxed);
    }
    if (!found && !filter.window && filter.first == 0 && filter.last == 0)
        emptyLooks.store(emptyLooks.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    return found;
}

} // namespace win32::user
