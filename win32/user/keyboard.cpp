// The keyboard's layout, that of the United States, and characters made of keys.
#include "input.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"

#include <iterator>

namespace win32::user {
namespace {

struct Key {
    BYTE key;
    BYTE scanCode;
    char plain;
    char shifted;
};

// Keys of the main block, and those of the number pad that give characters.
constexpr Key keys[] = {
    {VK_ESCAPE, 0x01, 27, 27},     {'1', 0x02, '1', '!'},          {'2', 0x03, '2', '@'},
    {'3', 0x04, '3', '#'},         {'4', 0x05, '4', '$'},          {'5', 0x06, '5', '%'},
    {'6', 0x07, '6', '^'},         {'7', 0x08, '7', '&'},          {'8', 0x09, '8', '*'},
    {'9', 0x0a, '9', '('},         {'0', 0x0b, '0', ')'},          {VK_OEM_MINUS, 0x0c, '-', '_'},
    {VK_OEM_PLUS, 0x0d, '=', '+'}, {VK_BACK, 0x0e, 8, 8},          {VK_TAB, 0x0f, 9, 9},
    {'Q', 0x10, 'q', 'Q'},         {'W', 0x11, 'w', 'W'},          {'E', 0x12, 'e', 'E'},
    {'R', 0x13, 'r', 'R'},         {'T', 0x14, 't', 'T'},          {'Y', 0x15, 'y', 'Y'},
    {'U', 0x16, 'u', 'U'},         {'I', 0x17, 'i', 'I'},          {'O', 0x18, 'o', 'O'},
    {'P', 0x19, 'p', 'P'},         {VK_OEM_4, 0x1a, '[', '{'},     {VK_OEM_6, 0x1b, ']', '}'},
    {VK_RETURN, 0x1c, 13, 13},     {VK_CONTROL, 0x1d, 0, 0},       {'A', 0x1e, 'a', 'A'},
    {'S', 0x1f, 's', 'S'},         {'D', 0x20, 'd', 'D'},          {'F', 0x21, 'f', 'F'},
    {'G', 0x22, 'g', 'G'},         {'H', 0x23, 'h', 'H'},          {'J', 0x24, 'j', 'J'},
    {'K', 0x25, 'k', 'K'},         {'L', 0x26, 'l', 'L'},          {VK_OEM_1, 0x27, ';', ':'},
    {VK_OEM_7, 0x28, '\'', '"'},   {VK_OEM_3, 0x29, '`', '~'},     {VK_SHIFT, 0x2a, 0, 0},
    {VK_OEM_5, 0x2b, '\\', '|'},   {'Z', 0x2c, 'z', 'Z'},          {'X', 0x2d, 'x', 'X'},
    {'C', 0x2e, 'c', 'C'},         {'V', 0x2f, 'v', 'V'},          {'B', 0x30, 'b', 'B'},
    {'N', 0x31, 'n', 'N'},         {'M', 0x32, 'm', 'M'},          {VK_OEM_COMMA, 0x33, ',', '<'},
    {VK_OEM_PERIOD, 0x34, '.', '>'}, {VK_OEM_2, 0x35, '/', '?'},   {VK_MULTIPLY, 0x37, '*', '*'},
    {VK_MENU, 0x38, 0, 0},         {VK_SPACE, 0x39, ' ', ' '},     {VK_CAPITAL, 0x3a, 0, 0},
    {VK_F1, 0x3b, 0, 0},           {VK_F2, 0x3c, 0, 0},            {VK_F3, 0x3d, 0, 0},
    {VK_F4, 0x3e, 0, 0},           {VK_F5, 0x3f, 0, 0},            {VK_F6, 0x40, 0, 0},
    {VK_F7, 0x41, 0, 0},           {VK_F8, 0x42, 0, 0},            {VK_F9, 0x43, 0, 0},
    {VK_F10, 0x44, 0, 0},          {VK_NUMLOCK, 0x45, 0, 0},       {VK_SCROLL, 0x46, 0, 0},
    {VK_HOME, 0x47, 0, 0},         {VK_UP, 0x48, 0, 0},            {VK_PRIOR, 0x49, 0, 0},
    {VK_SUBTRACT, 0x4a, '-', '-'}, {VK_LEFT, 0x4b, 0, 0},          {VK_CLEAR, 0x4c, 0, 0},
    {VK_RIGHT, 0x4d, 0, 0},        {VK_ADD, 0x4e, '+', '+'},       {VK_END, 0x4f, 0, 0},
    {VK_DOWN, 0x50, 0, 0},         {VK_NEXT, 0x51, 0, 0},          {VK_INSERT, 0x52, 0, 0},
    {VK_DELETE, 0x53, 0, 0},       {VK_OEM_102, 0x56, '\\', '|'},  {VK_F11, 0x57, 0, 0},
    {VK_F12, 0x58, 0, 0},          {VK_NUMPAD0, 0x52, '0', '0'},   {VK_NUMPAD1, 0x4f, '1', '1'},
    {VK_NUMPAD2, 0x50, '2', '2'},  {VK_NUMPAD3, 0x51, '3', '3'},   {VK_NUMPAD4, 0x4b, '4', '4'},
    {VK_NUMPAD5, 0x4c, '5', '5'},  {VK_NUMPAD6, 0x4d, '6', '6'},   {VK_NUMPAD7, 0x47, '7', '7'},
    {VK_NUMPAD8, 0x48, '8', '8'},  {VK_NUMPAD9, 0x49, '9', '9'},   {VK_DECIMAL, 0x53, '.', '.'},
    {VK_DIVIDE, 0x35, '/', '/'},   {VK_RSHIFT, 0x36, 0, 0},        {VK_LSHIFT, 0x2a, 0, 0},
    {VK_LCONTROL, 0x1d, 0, 0},     {VK_RCONTROL, 0x1d, 0, 0},      {VK_LMENU, 0x38, 0, 0},
    {VK_RMENU, 0x38, 0, 0},        {VK_LWIN, 0x5b, 0, 0},          {VK_RWIN, 0x5c, 0, 0},
    {VK_APPS, 0x5d, 0, 0},
};

const Key *findKey(UINT key)
{
    for (const Key &each : keys) {
        if (each.key == key)
            return &each;
    }
    return nullptr;
}

bool isLetter(UINT key)
{
    return key >= 'A' && key <= 'Z';
}

// Control with a letter or one of a few others gives the low characters.
WORD controlCharacter(const Key &key)
{
    if (isLetter(key.key))
        return static_cast<WORD>(key.key - 'A' + 1);
    switch (key.key) {
    case VK_OEM_4:
        return 0x1b;
    case VK_OEM_5:
        return 0x1c;
    case VK_OEM_6:
        return 0x1d;
    case VK_RETURN:
        return 0x0a;
    case VK_BACK:
        return 0x7f;
    case VK_ESCAPE:
        return 0x1b;
    case VK_SPACE:
        return ' ';
    default:
        return 0;
    }
}

// The bytes of a UTF-16 unit in the active code page; 0 for none.
WORD ansiCharacter(WORD unit)
{
    auto wide = static_cast<WCHAR>(unit);
    char bytes[2]{};
    int count = WideCharToMultiByte(CP_ACP, 0, &wide, 1, bytes, 2, nullptr, nullptr);
    if (count == 2)
        return static_cast<WORD>(static_cast<BYTE>(bytes[0]) | static_cast<BYTE>(bytes[1]) << 8);
    return count == 1 ? static_cast<BYTE>(bytes[0]) : WORD{0};
}

// The character of a key message; 0 for none.
WORD characterOfMessage(const MSG &message, const KeyStates &states)
{
    if ((message.wParam & 0xff) == VK_PACKET)
        return ansiCharacter(static_cast<WORD>(message.wParam >> 16));
    return characterOf(static_cast<UINT>(message.wParam), states);
}

} // namespace

WORD characterOf(UINT code, const KeyStates &states)
{
    const Key *key = findKey(code);
    if (!key || !key->plain)
        return 0;
    if (states.isDown(VK_CONTROL) && !states.isDown(VK_MENU))
        return controlCharacter(*key);
    bool isShifted = states.isDown(VK_SHIFT);
    if (isLetter(code) && (states[VK_CAPITAL] & 1))
        isShifted = !isShifted;
    return static_cast<BYTE>(isShifted ? key->shifted : key->plain);
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

UINT MapVirtualKeyA(UINT code, UINT kind)
{
    constexpr UINT toScanCode = 0, toKey = 1, toCharacter = 2, toKeyWithSide = 3;
    switch (kind) {
    case toScanCode: {
        const Key *key = findKey(code);
        return key ? key->scanCode : 0;
    }
    case toKey:
    case toKeyWithSide:
        for (const Key &key : keys) {
            if (key.scanCode != code)
                continue;
            if (kind == toKeyWithSide && key.key >= VK_SHIFT && key.key <= VK_MENU)
                return VK_LSHIFT + (key.key - VK_SHIFT) * 2u;
            return code == 0x36 ? (kind == toKey ? UINT{VK_SHIFT} : UINT{VK_RSHIFT}) : UINT{key.key};
        }
        return 0;
    case toCharacter: {
        const Key *key = findKey(code);
        return !key ? 0 : isLetter(code) ? code : static_cast<BYTE>(key->plain);
    }
    default:
        return 0;
    }
}

int ToAscii(UINT code, UINT scanCode, const BYTE *state, LPWORD characters, UINT)
{
    constexpr UINT released = 0x8000;
    if (!characters || (scanCode & released))
        return 0;
    KeyStates states;
    if (state)
        states.copyFrom(state);
    WORD character = characterOf(code, states);
    if (!character)
        return 0;
    *characters = character;
    return 1;
}

SHORT VkKeyScanA(CHAR character)
{
    for (const Key &key : keys) {
        if (key.plain && key.plain == character)
            return key.key;
        if (key.plain && key.shifted == character)
            return static_cast<SHORT>(0x100 | key.key);
    }
    return -1;
}

// The character is posted ahead of what waits already.
BOOL TranslateMessage(const MSG *message)
{
    if (!message)
        return FALSE;
    bool isDown = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    bool isKey = isDown || message->message == WM_KEYUP || message->message == WM_SYSKEYUP;
    if (!isDown)
        return isKey;
    MessageQueue &queue = MessageQueue::current();
    WORD character = characterOfMessage(*message, queue.keys);
    if (!character)
        return TRUE;
    UINT kind = message->message == WM_SYSKEYDOWN ? UINT{WM_SYSCHAR} : UINT{WM_CHAR};
    bool isDoubleByte = character > 0xff;
    PostMessageA(message->hwnd, kind, character & 0xffu, message->lParam);
    if (isDoubleByte)
        PostMessageA(message->hwnd, kind, character >> 8, message->lParam);
    return TRUE;
}
