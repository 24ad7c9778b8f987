// The user's input as events: mouse, wheel, keys, and the cursor over content.
#include "hostkit_internal.h"

#include <algorithm>
#include <cstdlib>

namespace hostkit {
namespace {

HostKitWheelProcPtr wheelProc;

constexpr LPARAM wasDown = LPARAM{1} << 30;

// Since Alt was pressed.
bool isAltUsed;
int wheelRest; // fine wheels turn by parts of a notch

// The program's cursor, while the system's shows over a frame.
HCURSOR programsCursor, framesCursor;

// A Macintosh key's number and the character that it gives without a native one; 0 for none.
struct MacKey {
    UInt8 code;
    UInt8 character;
};

MacKey letterKey(WPARAM key)
{
    static constexpr UInt8 codes[] = {0, 11, 8, 2, 14, 3, 5, 4, 34, 38, 40, 37, 46, 45, 31, 35, 12, 15, 1, 17, 32, 9, 13, 7, 16, 6};
    return {codes[key - 'A'], static_cast<UInt8>(key - 'A' + 'a')};
}

MacKey digitKey(WPARAM key)
{
    static constexpr UInt8 codes[] = {29, 18, 19, 20, 21, 23, 22, 26, 28, 25};
    return {codes[key - '0'], static_cast<UInt8>(key)};
}

MacKey padKey(WPARAM key)
{
    static constexpr UInt8 codes[] = {82, 83, 84, 85, 86, 87, 88, 89, 91, 92};
    return {codes[key - VK_NUMPAD0], static_cast<UInt8>(key - VK_NUMPAD0 + '0')};
}

MacKey functionKey(WPARAM key)
{
    static constexpr UInt8 codes[] = {122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103, 111, 105, 107, 113};
    return {codes[key - VK_F1], 16};
}

MacKey otherKey(WPARAM key, bool isExtended)
{
    switch (key) {
    case VK_RETURN: return isExtended ? MacKey{76, 3} : MacKey{36, 13};
    case VK_TAB: return {48, 9};
    case VK_SPACE: return {49, ' '};
    case VK_BACK: return {51, 8};
    case VK_ESCAPE: return {53, 27};
    case VK_HELP:
    case VK_INSERT: return {114, 5};
    case VK_HOME: return {115, 1};
    case VK_PRIOR: return {116, 11};
    case VK_DELETE: return {117, 127};
    case VK_END: return {119, 4};
    case VK_NEXT: return {121, 12};
    case VK_LEFT: return {123, 28};
    case VK_RIGHT: return {124, 29};
    case VK_DOWN: return {125, 31};
    case VK_UP: return {126, 30};
    case VK_CLEAR: return {71, 27};
    case VK_DECIMAL: return {65, '.'};
    case VK_MULTIPLY: return {67, '*'};
    case VK_ADD: return {69, '+'};
    case VK_DIVIDE: return {75, '/'};
    case VK_SUBTRACT: return {78, '-'};
    case VK_OEM_1: return {41, ';'};
    case VK_OEM_PLUS: return {24, '='};
    case VK_OEM_COMMA: return {43, ','};
    case VK_OEM_MINUS: return {27, '-'};
    case VK_OEM_PERIOD: return {47, '.'};
    case VK_OEM_2: return {44, '/'};
    case VK_OEM_3: return {50, '`'};
    case VK_OEM_4: return {33, '['};
    case VK_OEM_5: return {42, '\\'};
    case VK_OEM_6: return {30, ']'};
    case VK_OEM_7: return {39, '\''};
    default: return {127, 0};
    }
}

MacKey macKeyOf(WPARAM key, bool isExtended)
{
    if (key >= 'A' && key <= 'Z')
        return letterKey(key);
    if (key >= '0' && key <= '9')
        return digitKey(key);
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9)
        return padKey(key);
    if (key >= VK_F1 && key <= VK_F15)
        return functionKey(key);
    return otherKey(key, isExtended);
}

// A key that gives no event of its own: the modifiers', and Alt+F4 and Alt+Space, which are the system's.
bool isSystemKey(UINT message, WPARAM key)
{
    bool isModifier = key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU || key == VK_CAPITAL || key == VK_NUMLOCK
                   || key == VK_SCROLL || key == VK_LWIN || key == VK_RWIN;
    bool isWithAlt = message == WM_SYSKEYDOWN || message == WM_SYSKEYUP;
    return isModifier || key == VK_PACKET || key == VK_PROCESSKEY || (isWithAlt && (key == VK_F4 || key == VK_SPACE));
}

// Keys whose native character, if any, is not the Macintosh's: arrows, Enter of the pad, and the like.
bool hasMacCharacterOnly(const MacKey &key)
{
    return key.character < ' ' || key.character == 127;
}

bool isDown(int key)
{
    return GetKeyState(key) < 0;
}

// The message that the system made of the key press, which is in the queue already.
bool takeMessageOf(HWND native, UINT number, WPARAM &character)
{
    MSG message;
    if (!PeekMessageA(&message, native, number, number, PM_REMOVE))
        return false;
    character = message.wParam;
    return true;
}

// What a key press says natively: a character, 0 for none. A dead key waits for the next one.
struct NativeCharacter {
    UInt8 character = 0;
    bool isDead = false;
};

NativeCharacter takeNativeCharacter(HWND native, bool isWithAlt)
{
    WPARAM character = 0;
    if (takeMessageOf(native, isWithAlt ? UINT{WM_SYSCHAR} : UINT{WM_CHAR}, character))
        return {static_cast<UInt8>(character), false};
    return {0, takeMessageOf(native, isWithAlt ? UINT{WM_SYSDEADCHAR} : UINT{WM_DEADCHAR}, character)};
}

// With Control as the command key, the letter itself counts.
UInt8 characterOf(const MacKey &key, UInt8 native)
{
    if (!native || hasMacCharacterOnly(key) || (isDown(VK_CONTROL) && native < ' '))
        return key.character;
    return native;
}

// The right Alt of many keyboards is Control and Alt, to type a third sign: no command.
UInt16 withoutThirdShift(UInt16 modifiers, UInt8 native)
{
    bool isSign = native >= ' ' && native != 127;
    return isSign && (modifiers & cmdKey) && (modifiers & optionKey) ? static_cast<UInt16>(modifiers & ~cmdKey) : modifiers;
}

// When the user did it, and not when the program came to look.
EventRecord inputEvent(UInt16 what, HWND native, UINT message)
{
    EventRecord event = eventOf(what, native, message);
    event.when = ticksOf(static_cast<DWORD>(GetMessageTime()));
    return event;
}

void postKey(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    bool isPress = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    bool isRepeat = isPress && (lParam & wasDown);
    MacKey key = macKeyOf(wParam, (HIWORD(lParam) & KF_EXTENDED) != 0);
    NativeCharacter typed = isPress ? takeNativeCharacter(native, message == WM_SYSKEYDOWN) : NativeCharacter{};
    EventRecord event = inputEvent(!isPress ? UInt16{keyUp} : isRepeat ? UInt16{autoKey} : UInt16{keyDown}, native, message);
    event.modifiers = withoutThirdShift(event.modifiers, typed.character);
    event.message = UInt32{key.code} << 8 | characterOf(key, typed.character);
    bool isUnknown = !(event.message & charCodeMask) && key.code == 127; // a key that a Macintosh has not
    // Repeats that the program is too slow for are none.
    bool isTooFast = isRepeat && hasInput(autoKeyMask);
    if (!typed.isDead && !isUnknown && !isTooFast)
        postInput(event);
}

// A character that no key gave.
void postCharacter(HWND native, UINT message, WPARAM character)
{
    EventRecord event = inputEvent(keyDown, native, message);
    event.message = static_cast<UInt8>(character);
    postInput(event);
}

bool takeKey(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
        if (message == WM_SYSKEYDOWN)
            isAltUsed = wParam != VK_MENU || (isAltUsed && (lParam & wasDown));
        if (isSystemKey(message, wParam))
            return false;
        postKey(native, message, wParam, lParam);
        return true;
    case WM_CHAR:
        postCharacter(native, message, wParam);
        return true;
    default:
        return false;
    }
}

struct MouseKind {
    UInt16 what = nullEvent;
    bool isSecond = false;
    bool isInFrame = false;
};

MouseKind mouseKindOf(UINT message)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: return {mouseDown, false, false};
    case WM_LBUTTONUP: return {mouseUp, false, false};
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK: return {mouseDown, true, false};
    case WM_RBUTTONUP: return {mouseUp, true, false};
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK: return {mouseDown, false, true};
    case WM_NCLBUTTONUP: return {mouseUp, false, true};
    default: return {};
    }
}

// The main window's frame and the system menus are the system's to follow.
bool takeMouse(HWND native, UINT message, WPARAM hit)
{
    MouseKind kind = mouseKindOf(message);
    if (kind.what == nullEvent || (kind.isInFrame && (native == hWndMain || hit == HTSYSMENU)))
        return false;
    isAltUsed = true;
    if (kind.what == mouseDown)
        SetCapture(native);
    else if (GetCapture() == native)
        ReleaseCapture();
    EventRecord event = inputEvent(kind.what, native, message);
    // A press of the second button is one with the Control key of a Macintosh: it asks for a menu.
    if (kind.isSecond)
        event.modifiers |= controlKey;
    postInput(event);
    return true;
}

} // namespace

bool takeInput(HWND native, UINT message, WPARAM wParam, LPARAM lParam)
{
    return takeMouse(native, message, wParam) || takeKey(native, message, wParam, lParam);
}

void convertKeyMessage(const MSG *message, EventRecord *event)
{
    if (isSystemKey(message->message, message->wParam)) {
        event->what = nullEvent;
        return;
    }
    bool isPress = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    MacKey key = macKeyOf(message->wParam, (HIWORD(message->lParam) & KF_EXTENDED) != 0);
    BYTE keys[256];
    WORD native = 0;
    GetKeyboardState(keys);
    bool isCharacter = ToAscii(static_cast<UINT>(message->wParam), HIWORD(message->lParam), keys, &native, 0) == 1;
    auto character = static_cast<UInt8>(isCharacter ? native : 0);
    event->what = isPress ? UInt16{keyDown} : UInt16{keyUp};
    event->when = ticksOf(message->time);
    event->where = globalOf(message->pt);
    event->message = UInt32{key.code} << 8 | characterOf(key, character);
    event->modifiers = withoutThirdShift(event->modifiers, character);
    event->nativeWindow = message->hwnd;
    event->nativeMessage = message->message;
}

bool turnWheel(WindowPtr window, POINT screenPoint, int delta)
{
    wheelRest += delta;
    auto notches = static_cast<SInt16>(wheelRest / WHEEL_DELTA);
    wheelRest %= WHEEL_DELTA;
    // It goes to the window under the mouse, not to the one with the keyboard.
    Point where = globalOf(screenPoint);
    WindowPtr under = nullptr;
    if (HostKitFindWindow(where, &under) == inDesk)
        under = window;
    if (notches && wheelProc) {
        wheelProc(under, where, notches);
        return true;
    }
    constexpr int linesForNotch = 3;
    EventRecord event = eventOf(keyDown, nativeOf(under), WM_MOUSEWHEEL);
    event.message = notches > 0 ? 126u << 8 | 30 : 125u << 8 | 31;
    for (int i = 0; i < std::abs(notches) * linesForNotch && !isInputFull(); ++i)
        postInput(event);
    return true;
}

LRESULT setCursor(HWND native, WPARAM wParam, LPARAM lParam)
{
    if (static_cast<SInt16>(LOWORD(lParam)) == HTCLIENT) {
        if (programsCursor && GetCursor() == framesCursor)
            SetCursor(programsCursor);
        programsCursor = nullptr;
        return TRUE;
    }
    if (!programsCursor)
        programsCursor = GetCursor();
    LRESULT result = DefWindowProcA(native, WM_SETCURSOR, wParam, lParam);
    framesCursor = GetCursor();
    return result;
}

bool wasAltUsed()
{
    return isAltUsed;
}

void forgetInput()
{
    wheelProc = nullptr;
    isAltUsed = false;
    wheelRest = 0;
    programsCursor = framesCursor = nullptr;
}

} // namespace hostkit

void HostKitSetWheelProc(HostKitWheelProcPtr proc)
{
    hostkit::wheelProc = proc;
}
