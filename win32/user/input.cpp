// SendInput, and the state of mouse and keyboard at this moment.
#include "input.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "mouse_tracking.h"
#include "screen/display.h"
#include "screen/screen.h"
#include "visibility.h"

#include <algorithm>
#include <cstring>

namespace win32::user {
namespace {

struct Mouse {
    POINT position{};
    RECT clip{};
    bool isClipped = false;
    UINT doubleClickTime = 500;
};

// All guarded by the lock of the user interface.
Mouse mouse;
KeyStates keysNow;
bool pressedSinceAsked[256];
uint64_t lastNumber;

struct Button {
    DWORD down;
    DWORD up;
    BYTE key;
};
constexpr Button buttons[] = {{MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, VK_LBUTTON},
                              {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP, VK_RBUTTON},
                              {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP, VK_MBUTTON}};

// Keys of which there are two.
struct Pair {
    BYTE both;
    BYTE left;
    BYTE right;
};
constexpr Pair pairs[] = {{VK_SHIFT, VK_LSHIFT, VK_RSHIFT},
                          {VK_CONTROL, VK_LCONTROL, VK_RCONTROL},
                          {VK_MENU, VK_LMENU, VK_RMENU}};

RECT reachable()
{
    RECT all = gdi::rectOf(screen::surface().box());
    RECT clipped;
    return mouse.isClipped && IntersectRect(&clipped, &all, &mouse.clip) ? clipped : all;
}

void moveTo(int64_t x, int64_t y)
{
    RECT bounds = reachable();
    mouse.position = {static_cast<LONG>(std::clamp<int64_t>(x, bounds.left, bounds.right - 1)),
                      static_cast<LONG>(std::clamp<int64_t>(y, bounds.top, bounds.bottom - 1))};
}

MessageQueue *queueOfMouse()
{
    MessageQueue *front = MessageQueue::foreground;
    if (front && front->capture)
        return front;
    return windowAt(mouse.position)->queue;
}

InputEvent newEvent(InputEvent::Kind kind, DWORD time, ULONG_PTR extraInfo)
{
    InputEvent event{kind};
    event.point = mouse.position;
    event.time = time ? time : static_cast<DWORD>(ticks());
    event.extraInfo = extraInfo;
    event.number = ++lastNumber;
    return event;
}

void deliver(const InputEvent &event, MessageQueue *queue)
{
    if (queue)
        queue->addInput(event);
}

void note(BYTE key, bool isUp)
{
    keysNow.set(key, !isUp);
    if (!isUp)
        pressedSinceAsked[key] = true;
}

// For those who want to know whether a program follows the mouse without reading its messages.
void noteLook(int key)
{
    bool isButton = key == VK_LBUTTON || key == VK_RBUTTON || key == VK_MBUTTON;
    if (MessageQueue *queue = isButton ? MessageQueue::ofThread(GetCurrentThreadId()) : nullptr)
        queue->buttonLooks.fetch_add(1, std::memory_order_relaxed);
}

BYTE logicalButton(BYTE physical)
{
    if (!screen::areButtonsSwapped() || physical == VK_MBUTTON)
        return physical;
    return physical == VK_LBUTTON ? BYTE{VK_RBUTTON} : BYTE{VK_LBUTTON};
}

void injectMove(const MOUSEINPUT &input)
{
    if (input.dwFlags & MOUSEEVENTF_ABSOLUTE) {
        const gdi::Box area = input.dwFlags & MOUSEEVENTF_VIRTUALDESK ? screen::surface().box()
                                                                       : screen::monitors().front().bounds;
        moveTo(area.x1 + (int64_t{input.dx} * (area.x2 - area.x1) >> 16),
               area.y1 + (int64_t{input.dy} * (area.y2 - area.y1) >> 16));
    } else {
        moveTo(int64_t{mouse.position.x} + input.dx, int64_t{mouse.position.y} + input.dy);
    }
    deliver(newEvent(InputEvent::Kind::MouseMove, input.time, input.dwExtraInfo), queueOfMouse());
    mouseIsOver(windowAt(mouse.position)->hwnd());
}

void injectButton(BYTE key, bool isUp, const MOUSEINPUT &input)
{
    note(key, isUp);
    InputEvent event = newEvent(InputEvent::Kind::MouseButton, input.time, input.dwExtraInfo);
    event.key = logicalButton(key);
    event.isUp = isUp;
    deliver(event, queueOfMouse());
}

void inject(const MOUSEINPUT &input)
{
    if (input.dwFlags & MOUSEEVENTF_MOVE)
        injectMove(input);
    for (const Button &button : buttons) {
        if (input.dwFlags & button.down)
            injectButton(button.key, false, input);
        if (input.dwFlags & button.up)
            injectButton(button.key, true, input);
    }
    if (input.dwFlags & MOUSEEVENTF_WHEEL) {
        InputEvent event = newEvent(InputEvent::Kind::MouseWheel, input.time, input.dwExtraInfo);
        event.wheel = static_cast<short>(input.mouseData);
        deliver(event, MessageQueue::foreground);
    }
}

// The side of a key that comes without one: the extended one is at the right, but of Shift, which its scan code
// tells.
BYTE sideOf(const Pair &pair, const KEYBDINPUT &input)
{
    constexpr WORD rightShift = 0x36;
    bool isRight = pair.both == VK_SHIFT ? input.wScan == rightShift : (input.dwFlags & KEYEVENTF_EXTENDEDKEY) != 0;
    return isRight ? pair.right : pair.left;
}

void noteKey(BYTE key, const KEYBDINPUT &input, bool isUp)
{
    note(key, isUp);
    for (const Pair &pair : pairs) {
        if (key == pair.both) {
            note(sideOf(pair, input), isUp);
        } else if (key == pair.left || key == pair.right) {
            bool isOtherDown = keysNow.isDown(key == pair.left ? pair.right : pair.left);
            note(pair.both, isUp && !isOtherDown);
        }
    }
}

void inject(const KEYBDINPUT &input)
{
    bool isUp = (input.dwFlags & KEYEVENTF_KEYUP) != 0;
    BYTE key = static_cast<BYTE>(input.wVk);
    if (input.dwFlags & KEYEVENTF_UNICODE)
        key = VK_PACKET; // the scan code is the character
    else if (input.dwFlags & KEYEVENTF_SCANCODE)
        key = static_cast<BYTE>(MapVirtualKeyA(input.wScan, 1));
    InputEvent event = newEvent(InputEvent::Kind::Key, input.time, input.dwExtraInfo);
    event.isRepeat = !isUp && keysNow.isDown(key);
    noteKey(key, input, isUp);
    event.key = key;
    event.isUp = isUp;
    event.scanCode = input.wScan;
    event.isExtended = (input.dwFlags & KEYEVENTF_EXTENDEDKEY) != 0;
    event.hasAlt = keysNow.isDown(VK_MENU);
    deliver(event, MessageQueue::foreground);
}

} // namespace

void KeyStates::set(int key, bool isDown)
{
    BYTE &state = keys_[key & 0xff];
    if (isDown && !(state & 0x80))
        state ^= 0x01;
    state = static_cast<BYTE>(isDown ? state | 0x80 : state & ~0x80);
}

void KeyStates::copyTo(BYTE *state) const
{
    memcpy(state, keys_, sizeof keys_);
}

void KeyStates::copyFrom(const BYTE *state)
{
    memcpy(keys_, state, sizeof keys_);
}

POINT cursorPosition()
{
    return mouse.position;
}

bool isMouseButtonDown()
{
    UserLock lock;
    return keysNow.isDown(VK_LBUTTON) || keysNow.isDown(VK_RBUTTON) || keysNow.isDown(VK_MBUTTON);
}

bool isToggled(BYTE key)
{
    UserLock lock;
    return (keysNow[key] & 1) != 0;
}

WPARAM mouseKeys(const KeyStates &states)
{
    WPARAM keys = 0;
    for (auto [key, bit] : {std::pair{VK_LBUTTON, MK_LBUTTON}, {VK_RBUTTON, MK_RBUTTON}, {VK_MBUTTON, MK_MBUTTON},
                            {VK_SHIFT, MK_SHIFT}, {VK_CONTROL, MK_CONTROL}}) {
        if (states.isDown(key))
            keys |= static_cast<WPARAM>(bit);
    }
    return keys;
}

void deliverMouseMove()
{
    UserLock lock;
    deliver(newEvent(InputEvent::Kind::MouseMove, 0, 0), queueOfMouse());
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

UINT SendInput(UINT count, LPINPUT events, int size)
{
    if (size != sizeof(INPUT) || (count && !events))
        return fail(ERROR_INVALID_PARAMETER, 0u);
    return guarded(0u, [&] {
        UserLock lock;
        for (UINT i = 0; i < count; ++i) {
            if (events[i].type == INPUT_MOUSE)
                inject(events[i].mi);
            else if (events[i].type == INPUT_KEYBOARD)
                inject(events[i].ki);
        }
        return count;
    });
}

void mouse_event(DWORD flags, DWORD x, DWORD y, DWORD data, ULONG_PTR extraInfo)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi = {static_cast<LONG>(x), static_cast<LONG>(y), data, flags, 0, extraInfo};
    SendInput(1, &input, sizeof input);
}

void keybd_event(BYTE key, BYTE scanCode, DWORD flags, ULONG_PTR extraInfo)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki = {key, scanCode, flags, 0, extraInfo};
    SendInput(1, &input, sizeof input);
}

SHORT GetAsyncKeyState(int key)
{
    if (key < 0 || key > 255)
        return 0;
    UserLock lock;
    noteLook(key);
    bool wasPressed = std::exchange(pressedSinceAsked[key], false);
    return static_cast<SHORT>((keysNow.isDown(key) ? 0x8000 : 0) | (wasPressed ? 1 : 0));
}

SHORT GetKeyState(int key)
{
    BYTE state = MessageQueue::current().keys[key];
    return static_cast<SHORT>((state & 0x80 ? 0xff80 : 0) | (state & 1));
}

BOOL GetKeyboardState(PBYTE state)
{
    if (!state)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    MessageQueue::current().keys.copyTo(state);
    return TRUE;
}

BOOL SetKeyboardState(LPBYTE state)
{
    if (!state)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    MessageQueue::current().keys.copyFrom(state);
    return TRUE;
}

BOOL GetCursorPos(LPPOINT point)
{
    if (!point)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    UserLock lock;
    *point = mouse.position;
    return TRUE;
}

BOOL SetCursorPos(int x, int y)
{
    POINT point;
    {
        UserLock lock;
        moveTo(x, y);
        deliver(newEvent(InputEvent::Kind::MouseMove, 0, 0), queueOfMouse());
        point = mouse.position;
    }
    screen::pointerWasMoved(point);
    return TRUE;
}

BOOL ClipCursor(const RECT *rect)
{
    UserLock lock;
    mouse.isClipped = rect != nullptr;
    if (rect)
        mouse.clip = *rect;
    moveTo(mouse.position.x, mouse.position.y);
    return TRUE;
}

BOOL GetClipCursor(LPRECT rect)
{
    if (!rect)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    UserLock lock;
    *rect = reachable();
    return TRUE;
}

UINT GetDoubleClickTime()
{
    return mouse.doubleClickTime;
}

BOOL SetDoubleClickTime(UINT milliseconds)
{
    constexpr UINT usual = 500, longest = 5000;
    mouse.doubleClickTime = milliseconds == 0 ? usual : std::min(milliseconds, longest);
    return TRUE;
}

BOOL SwapMouseButton(BOOL swap)
{
    UserLock lock;
    BOOL old = screen::areButtonsSwapped();
    screen::swapButtons(swap != FALSE);
    return old;
}
