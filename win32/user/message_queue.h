// A thread's queue: messages that were posted, sent from other threads, made of input, of timers and of what
// needs painting.
#pragma once

#include "input.h"
#include "window.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <vector>

namespace win32 {
class ThreadState;
}

namespace win32::user {

// A message from another thread, which waits for the answer.
struct SentMessage {
    SentMessage(HWND to, UINT number, WPARAM first, LPARAM second, MessageQueue *from)
        : window(to), message(number), wParam(first), lParam(second), sender(from)
    {
    }

    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    MessageQueue *sender; // null: nobody waits
    LRESULT result = 0;
    std::atomic<bool> isAnswered{false};
    bool isAbandoned = false; // nobody waits any more
};

struct Timer {
    HWND window;
    UINT_PTR id;
    UINT period;
    uint64_t due;
    TIMERPROC procedure;
    bool isOfSystem; // WM_SYSTIMER
};

// Which messages a caller wants.
struct MessageFilter {
    HWND window = nullptr; // and its children; -1: messages of the thread only
    UINT first = 0;
    UINT last = 0; // both 0: all
    DWORD kinds = QS_ALLINPUT;

    bool takesMessage(UINT message) const { return (first == 0 && last == 0) || (message >= first && message <= last); }
    bool takesWindow(HWND target) const;
    bool takes(const MSG &message) const { return takesMessage(message.message) && takesWindow(message.hwnd); }
};

class MessageQueue {
public:
    // The queue of the calling thread, made at first use.
    static MessageQueue &current();
    // Null when the thread has none.
    static MessageQueue *ofThread(DWORD thread);
    static MessageQueue *foreground;

    MessageQueue();
    ~MessageQueue();

    // False with ERROR_NOT_ENOUGH_QUOTA when 10,000 messages wait.
    bool post(const MSG &message);
    void postQuit(int exitCode);
    void send(std::shared_ptr<SentMessage> message);
    // Input for a window of the thread; it becomes a message when the thread asks for it.
    void addInput(const InputEvent &event);
    // Tells that a window came to need painting, or needs it no more.
    void paintCountChanged(int difference);
    // Forgets what waits for a window that is gone.
    void forget(HWND window);

    // The next message that the filter takes, in the order of the system: posted, quit, input, paint, timers. Sent
    // messages are answered meanwhile. False when there is none.
    bool next(MSG &message, const MessageFilter &filter, bool remove);
    // Calls the procedures for messages that other threads have sent.
    void answerSent();

    void setBits(DWORD bits);
    DWORD bitsNow();

    const DWORD threadId;
    const std::shared_ptr<ThreadState> thread;

    // What belongs to the thread's windows together.
    HWND active = nullptr;
    HWND focus = nullptr;
    HWND capture = nullptr;
    HWND moveSizeWindow = nullptr;
    KeyStates keys; // as of the last message taken
    BYTE menuKey = 0; // Alt or F10 while it is down and nothing else has been pressed since
    std::vector<Timer> timers;
    int cursorLevel = 0;
    HCURSOR cursor = nullptr; // the arrow until the thread chooses another

    LONG messageTime = 0;
    POINT messagePoint{};
    LPARAM messageExtraInfo = 0;
    std::vector<std::shared_ptr<SentMessage>> answering; // innermost last

    // QS_ bits of what waits now, and of what came since they were asked for last.
    std::atomic<DWORD> currentBits{0};
    std::atomic<DWORD> changedBits{0};
    // How often the thread looked at all that there is and found nothing.
    std::atomic<unsigned> emptyLooks{0};
    // How many messages it took, and how often it looked at the mouse's buttons without.
    std::atomic<unsigned> taken{0};
    std::atomic<unsigned> buttonLooks{0};

private:
    bool takePosted(MSG &message, const MessageFilter &filter, bool remove);
    bool takeQuit(MSG &message, bool remove);
    bool takeInput(MSG &message, const MessageFilter &filter, bool remove);
    bool takePaint(MSG &message, const MessageFilter &filter, bool remove);
    bool takeTimer(MSG &message, const MessageFilter &filter, bool remove);
    void inputChanged();

    std::deque<MSG> posted_;
    std::deque<InputEvent> input_;
    std::deque<std::shared_ptr<SentMessage>> sent_;
    int paintCount_ = 0;
    bool hasQuit_ = false;
    int exitCode_ = 0;
    InputEvent lastClick_{};
    HWND lastClickWindow_ = nullptr;
    UINT lastClickMessage_ = 0;

    friend class InputReader;
};

// Calls the window's procedure, on its own thread: at once for a window of the calling thread.
LRESULT sendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// What a window's procedure is, for a message that is dispatched; null for a window that is gone.
WNDPROC procedureOf(HWND window);

uint64_t ticks();

} // namespace win32::user
