// Turns what mouse and keyboard did into messages, when a thread asks for them.
#include "focus.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "visibility.h"

#include <optional>

namespace win32::user {
namespace {

struct MouseTarget {
    HWND window = nullptr;
    int hit = HTCLIENT;
    bool isCaptured = false;
};

// Asks the windows under a point where it hits them; transparent ones hand on to what lies below in the thread.
MouseTarget hitTest(MessageQueue &queue, POINT point)
{
    HWND window;
    {
        UserLock lock;
        if (queue.capture)
            return {queue.capture, HTCLIENT, true};
        window = windowAt(point)->hwnd();
    }
    for (;;) {
        DWORD style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
        if (style & WS_DISABLED)
            return {window, HTERROR};
        auto hit = static_cast<int>(sendMessage(window, WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y)));
        if (hit != HTTRANSPARENT)
            return {window, hit ? hit : static_cast<int>(HTNOWHERE)};
        UserLock lock;
        Window *record = findWindowQuietly(window);
        Window *below = record ? nextBelow(*record, point) : nullptr;
        if (!below || below->queue != &queue)
            return {nullptr, HTNOWHERE};
        window = below->hwnd();
    }
}

UINT clientMessage(const InputEvent &event)
{
    switch (event.kind) {
    case InputEvent::Kind::MouseWheel:
        return WM_MOUSEWHEEL;
    case InputEvent::Kind::MouseButton: {
        UINT down = event.key == VK_LBUTTON   ? UINT{WM_LBUTTONDOWN}
                    : event.key == VK_RBUTTON ? UINT{WM_RBUTTONDOWN}
                                              : UINT{WM_MBUTTONDOWN};
        return event.isUp ? down + 1 : down;
    }
    default:
        return WM_MOUSEMOVE;
    }
}

constexpr UINT frameMessage(UINT message)
{
    return message - WM_MOUSEMOVE + WM_NCMOUSEMOVE;
}

bool isButtonDown(UINT message)
{
    return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
}

MSG mouseMessage(const InputEvent &event, const MouseTarget &target, const KeyStates &keys)
{
    MSG message{target.window, clientMessage(event), mouseKeys(keys), MAKELPARAM(event.point.x, event.point.y),
                event.time, event.point};
    if (event.kind == InputEvent::Kind::MouseWheel) {
        message.wParam = MAKEWPARAM(message.wParam, event.wheel);
    } else if (target.hit != HTCLIENT) {
        message.message = frameMessage(message.message);
        message.wParam = static_cast<WPARAM>(target.hit);
    } else {
        POINT point = event.point;
        ScreenToClient(target.window, &point);
        message.lParam = MAKELPARAM(point.x, point.y);
    }
    return message;
}

UINT keyMessage(const InputEvent &event, const KeyStates &keys, bool hasFocus)
{
    bool isAlt = event.key == VK_MENU || event.key == VK_LMENU || event.key == VK_RMENU;
    bool isSystem = (keys.isDown(VK_MENU) && !keys.isDown(VK_CONTROL)) || (isAlt && !keys.isDown(VK_CONTROL))
                    || event.key == VK_F10 || !hasFocus;
    UINT down = isSystem ? UINT{WM_SYSKEYDOWN} : UINT{WM_KEYDOWN};
    return event.isUp ? down + 1 : down;
}

WPARAM publishedKey(const InputEvent &event)
{
    switch (event.key) {
    case VK_LSHIFT:
    case VK_RSHIFT:
        return VK_SHIFT;
    case VK_LCONTROL:
    case VK_RCONTROL:
        return VK_CONTROL;
    case VK_LMENU:
    case VK_RMENU:
        return VK_MENU;
    case VK_PACKET: // the character travels with the key
        return MAKEWPARAM(event.key, event.scanCode);
    default:
        return event.key;
    }
}

LPARAM keyParameter(const InputEvent &event, const KeyStates &keys)
{
    DWORD value = 1 | static_cast<DWORD>(event.scanCode & 0xff) << 16;
    if (event.isExtended)
        value |= 1u << 24;
    if (keys.isDown(VK_MENU))
        value |= 1u << 29;
    if (event.isRepeat || event.isUp)
        value |= 1u << 30;
    if (event.isUp)
        value |= 1u << 31;
    return static_cast<LPARAM>(static_cast<LONG>(value));
}

// WM_MOUSEACTIVATE, and what its answer asks for. False when the click is eaten.
bool activateByClick(const MSG &message, const MouseTarget &target, UINT button)
{
    HWND top;
    {
        UserLock lock;
        Window *window = findWindowQuietly(message.hwnd);
        Window *root = topLevelOf(window);
        if (!root || root->isDesktop())
            return true;
        top = root->hwnd();
    }
    auto answer = sendMessage(message.hwnd, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(top), MAKELPARAM(target.hit, button));
    bool wantsActivation = answer == MA_ACTIVATE || answer == MA_ACTIVATEANDEAT || answer == 0;
    if (wantsActivation && GetActiveWindow() != top)
        activate(top, true);
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT;
}

// Every ancestor of a child that is clicked hears of it.
void notifyOfClick(HWND window, UINT button, POINT point)
{
    for (;;) {
        HWND parent;
        {
            UserLock lock;
            Window *record = findWindowQuietly(window);
            if (!record || !record->isChild() || (record->extendedStyle & WS_EX_NOPARENTNOTIFY))
                return;
            parent = record->parent->hwnd();
        }
        POINT inParent = point;
        ScreenToClient(parent, &inParent);
        sendMessage(parent, WM_PARENTNOTIFY, button, MAKELPARAM(inParent.x, inParent.y));
        window = parent;
    }
}

bool wantsDoubleClicks(HWND handle, int hit)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    return window && (hit != HTCLIENT || (window->windowClass->style & CS_DBLCLKS));
}

} // namespace

// Reads one thread's input. What a window procedure does meanwhile may change the queue, so events are known by
// their numbers.
class InputReader {
public:
    InputReader(MessageQueue &queue, const MessageFilter &filter, bool remove)
        : queue_(queue), filter_(filter), remove_(remove)
    {
    }

    bool read(MSG &message)
    {
        uint64_t last = 0;
        for (InputEvent event; nextEvent(last, event);) {
            last = event.number;
            if (event.kind == InputEvent::Kind::Key ? readKey(event, message) : readMouse(event, message))
                return true;
        }
        return false;
    }

private:
    bool nextEvent(uint64_t after, InputEvent &result)
    {
        UserLock lock;
        for (const InputEvent &event : queue_.input_) {
            if (event.number > after && isOfKind(event)) {
                result = event;
                return true;
            }
        }
        return false;
    }

    bool isOfKind(const InputEvent &event) const
    {
        DWORD kind = event.kind == InputEvent::Kind::Key ? DWORD{QS_KEY} : DWORD{QS_MOUSE};
        return (filter_.kinds & kind) != 0;
    }

    bool drop(const InputEvent &event)
    {
        UserLock lock;
        bool isThere = std::erase_if(queue_.input_, [&](const InputEvent &each) { return each.number == event.number; });
        queue_.inputChanged();
        return isThere;
    }

    bool readKey(const InputEvent &event, MSG &message)
    {
        HWND window;
        bool hasFocus;
        {
            UserLock lock;
            hasFocus = queue_.focus != nullptr;
            window = hasFocus ? queue_.focus : queue_.active;
        }
        if (!window) {
            drop(event);
            queue_.keys.set(event.key, !event.isUp);
            return false;
        }
        MSG made{window, keyMessage(event, queue_.keys, hasFocus), publishedKey(event), 0, event.time, event.point};
        if (!filter_.takes(made))
            return false;
        KeyStates keys = queue_.keys;
        setKey(keys, event);
        made.lParam = keyParameter(event, event.isUp ? queue_.keys : keys);
        message = made;
        if (!remove_)
            return true;
        if (!drop(event))
            return false;
        queue_.keys = keys;
        queue_.messageExtraInfo = static_cast<LPARAM>(event.extraInfo);
        if (!event.isUp && publishedKey(event) != queue_.menuKey)
            queue_.menuKey = 0;
        return true;
    }

    static void setKey(KeyStates &keys, const InputEvent &event)
    {
        bool isDown = !event.isUp;
        keys.set(event.key, isDown);
        auto both = static_cast<BYTE>(publishedKey(event));
        if (both != event.key)
            keys.set(both, isDown);
    }

    bool readMouse(const InputEvent &event, MSG &message)
    {
        bool isWheel = event.kind == InputEvent::Kind::MouseWheel;
        MouseTarget target = isWheel ? MouseTarget{queue_.focus ? queue_.focus : queue_.active} : hitTest(queue_, event.point);
        if (!target.window) {
            drop(event);
            return false;
        }
        if (handOver(event, target))
            return false;
        KeyStates keys = queue_.keys;
        if (event.kind == InputEvent::Kind::MouseButton)
            keys.set(event.key, !event.isUp);
        MSG made = mouseMessage(event, target, keys);
        if (target.hit == HTERROR || target.hit == HTNOWHERE)
            return refuse(event, target, made, keys);
        made.message = withDoubleClick(event, target, made.message);
        if (!filter_.takes(made))
            return false;
        if (!remove_) {
            message = made;
            return true;
        }
        if (!drop(event))
            return false;
        queue_.keys = keys;
        queue_.messageExtraInfo = static_cast<LPARAM>(event.extraInfo);
        if (event.kind == InputEvent::Kind::MouseButton)
            queue_.menuKey = 0;
        return finish(event, target, made, message);
    }

    // Input over a window of another thread goes to that thread.
    bool handOver(const InputEvent &event, const MouseTarget &target)
    {
        MessageQueue *owner;
        {
            UserLock lock;
            Window *window = findWindowQuietly(target.window);
            owner = window ? window->queue : nullptr;
        }
        if (owner == &queue_)
            return false;
        if (drop(event) && owner)
            owner->addInput(event);
        return true;
    }

    // A disabled window takes no mouse, but beeps and shows the arrow.
    bool refuse(const InputEvent &event, const MouseTarget &target, const MSG &made, const KeyStates &keys)
    {
        if (!remove_)
            return false;
        if (drop(event)) {
            queue_.keys = keys;
            sendMessage(target.window, WM_SETCURSOR, reinterpret_cast<WPARAM>(target.window),
                        MAKELPARAM(target.hit, made.message));
        }
        return false;
    }

    UINT withDoubleClick(const InputEvent &event, const MouseTarget &target, UINT message)
    {
        UINT plain = target.hit == HTCLIENT ? message : message - WM_NCMOUSEMOVE + WM_MOUSEMOVE;
        if (!isButtonDown(plain))
            return message;
        const InputEvent &last = queue_.lastClick_;
        int reachX = GetSystemMetrics(SM_CXDOUBLECLK) / 2, reachY = GetSystemMetrics(SM_CYDOUBLECLK) / 2;
        bool isSecond = queue_.lastClickMessage_ == message && queue_.lastClickWindow_ == target.window
                        && event.time - last.time <= GetDoubleClickTime()
                        && std::abs(event.point.x - last.point.x) <= reachX
                        && std::abs(event.point.y - last.point.y) <= reachY;
        bool isDouble = isSecond && wantsDoubleClicks(target.window, target.hit);
        if (remove_) {
            queue_.lastClick_ = event;
            queue_.lastClickWindow_ = target.window;
            queue_.lastClickMessage_ = isDouble ? 0 : message;
        }
        return isDouble ? message + 2 : message;
    }

    // What the program is told before it gets the message itself.
    bool finish(const InputEvent &event, const MouseTarget &target, const MSG &made, MSG &message)
    {
        UINT button = clientMessage(event);
        bool isWheel = event.kind == InputEvent::Kind::MouseWheel;
        if (!target.isCaptured && !isWheel) {
            if (isButtonDown(button)) {
                notifyOfClick(made.hwnd, button, event.point);
                if (!activateByClick(made, target, button))
                    return false;
            }
            sendMessage(made.hwnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(made.hwnd), MAKELPARAM(target.hit, button));
        }
        message = made;
        return true;
    }

    MessageQueue &queue_;
    const MessageFilter &filter_;
    const bool remove_;
};

bool MessageQueue::takeInput(MSG &message, const MessageFilter &filter, bool remove)
{
    if (!(currentBits.load() & QS_INPUT))
        return false;
    return InputReader(*this, filter, remove).read(message);
}

} // namespace win32::user
