#include "key_table.h"

#include "kernel/kernel_internal.h"

#include <algorithm>

namespace win32::screen {
namespace {

constexpr Key keys[] = {
    {"A", 'A', 0x1e, false, 4},
    {"B", 'B', 0x30, false, 5},
    {"C", 'C', 0x2e, false, 6},
    {"D", 'D', 0x20, false, 7},
    {"E", 'E', 0x12, false, 8},
    {"F", 'F', 0x21, false, 9},
    {"G", 'G', 0x22, false, 10},
    {"H", 'H', 0x23, false, 11},
    {"I", 'I', 0x17, false, 12},
    {"J", 'J', 0x24, false, 13},
    {"K", 'K', 0x25, false, 14},
    {"L", 'L', 0x26, false, 15},
    {"M", 'M', 0x32, false, 16},
    {"N", 'N', 0x31, false, 17},
    {"O", 'O', 0x18, false, 18},
    {"P", 'P', 0x19, false, 19},
    {"Q", 'Q', 0x10, false, 20},
    {"R", 'R', 0x13, false, 21},
    {"S", 'S', 0x1f, false, 22},
    {"T", 'T', 0x14, false, 23},
    {"U", 'U', 0x16, false, 24},
    {"V", 'V', 0x2f, false, 25},
    {"W", 'W', 0x11, false, 26},
    {"X", 'X', 0x2d, false, 27},
    {"Y", 'Y', 0x15, false, 28},
    {"Z", 'Z', 0x2c, false, 29},
    {"1", '1', 0x02, false, 30},
    {"2", '2', 0x03, false, 31},
    {"3", '3', 0x04, false, 32},
    {"4", '4', 0x05, false, 33},
    {"5", '5', 0x06, false, 34},
    {"6", '6', 0x07, false, 35},
    {"7", '7', 0x08, false, 36},
    {"8", '8', 0x09, false, 37},
    {"9", '9', 0x0a, false, 38},
    {"0", '0', 0x0b, false, 39},
    {"Enter", VK_RETURN, 0x1c, false, 40},
    {"Escape", VK_ESCAPE, 0x01, false, 41},
    {"Backspace", VK_BACK, 0x0e, false, 42},
    {"Tab", VK_TAB, 0x0f, false, 43},
    {"Space", VK_SPACE, 0x39, false, 44},
    {"Minus", VK_OEM_MINUS, 0x0c, false, 45},
    {"Equal", VK_OEM_PLUS, 0x0d, false, 46},
    {"LeftBracket", VK_OEM_4, 0x1a, false, 47},
    {"RightBracket", VK_OEM_6, 0x1b, false, 48},
    {"Backslash", VK_OEM_5, 0x2b, false, 49},
    {"Semicolon", VK_OEM_1, 0x27, false, 51},
    {"Quote", VK_OEM_7, 0x28, false, 52},
    {"Grave", VK_OEM_3, 0x29, false, 53},
    {"Comma", VK_OEM_COMMA, 0x33, false, 54},
    {"Period", VK_OEM_PERIOD, 0x34, false, 55},
    {"Slash", VK_OEM_2, 0x35, false, 56},
    {"CapsLock", VK_CAPITAL, 0x3a, false, 57},
    {"F1", VK_F1, 0x3b, false, 58},
    {"F2", VK_F2, 0x3c, false, 59},
    {"F3", VK_F3, 0x3d, false, 60},
    {"F4", VK_F4, 0x3e, false, 61},
    {"F5", VK_F5, 0x3f, false, 62},
    {"F6", VK_F6, 0x40, false, 63},
    {"F7", VK_F7, 0x41, false, 64},
    {"F8", VK_F8, 0x42, false, 65},
    {"F9", VK_F9, 0x43, false, 66},
    {"F10", VK_F10, 0x44, false, 67},
    {"F11", VK_F11, 0x57, false, 68},
    {"F12", VK_F12, 0x58, false, 69},
    {"PrintScreen", VK_SNAPSHOT, 0x37, true, 70},
    {"ScrollLock", VK_SCROLL, 0x46, false, 71},
    {"Pause", VK_PAUSE, 0x45, false, 72},
    {"Insert", VK_INSERT, 0x52, true, 73},
    {"Home", VK_HOME, 0x47, true, 74},
    {"PageUp", VK_PRIOR, 0x49, true, 75},
    {"Delete", VK_DELETE, 0x53, true, 76},
    {"End", VK_END, 0x4f, true, 77},
    {"PageDown", VK_NEXT, 0x51, true, 78},
    {"Right", VK_RIGHT, 0x4d, true, 79},
    {"Left", VK_LEFT, 0x4b, true, 80},
    {"Down", VK_DOWN, 0x50, true, 81},
    {"Up", VK_UP, 0x48, true, 82},
    {"NumLock", VK_NUMLOCK, 0x45, true, 83},
    {"NumDivide", VK_DIVIDE, 0x35, true, 84},
    {"NumMultiply", VK_MULTIPLY, 0x37, false, 85},
    {"NumSubtract", VK_SUBTRACT, 0x4a, false, 86},
    {"NumAdd", VK_ADD, 0x4e, false, 87},
    {"NumEnter", VK_RETURN, 0x1c, true, 88},
    {"Num1", VK_NUMPAD1, 0x4f, false, 89},
    {"Num2", VK_NUMPAD2, 0x50, false, 90},
    {"Num3", VK_NUMPAD3, 0x51, false, 91},
    {"Num4", VK_NUMPAD4, 0x4b, false, 92},
    {"Num5", VK_NUMPAD5, 0x4c, false, 93},
    {"Num6", VK_NUMPAD6, 0x4d, false, 94},
    {"Num7", VK_NUMPAD7, 0x47, false, 95},
    {"Num8", VK_NUMPAD8, 0x48, false, 96},
    {"Num9", VK_NUMPAD9, 0x49, false, 97},
    {"Num0", VK_NUMPAD0, 0x52, false, 98},
    {"NumDecimal", VK_DECIMAL, 0x53, false, 99},
    {"Angle", VK_OEM_102, 0x56, false, 100},
    {"Menu", VK_APPS, 0x5d, true, 101},
    {"Ctrl", VK_LCONTROL, 0x1d, false, 224},
    {"Shift", VK_LSHIFT, 0x2a, false, 225},
    {"Alt", VK_LMENU, 0x38, false, 226},
    {"Win", VK_LWIN, 0x5b, true, 227},
    {"RightCtrl", VK_RCONTROL, 0x1d, true, 228},
    {"RightShift", VK_RSHIFT, 0x36, false, 229},
    {"RightAlt", VK_RMENU, 0x38, true, 230},
    {"RightWin", VK_RWIN, 0x5c, true, 231},
    // The pad without Num Lock, which no keyboard has as keys of their own.
    {"NumEnd", VK_END, 0x4f, false, 0},
    {"NumDown", VK_DOWN, 0x50, false, 0},
    {"NumPageDown", VK_NEXT, 0x51, false, 0},
    {"NumLeft", VK_LEFT, 0x4b, false, 0},
    {"NumClear", VK_CLEAR, 0x4c, false, 0},
    {"NumRight", VK_RIGHT, 0x4d, false, 0},
    {"NumHome", VK_HOME, 0x47, false, 0},
    {"NumUp", VK_UP, 0x48, false, 0},
    {"NumPageUp", VK_PRIOR, 0x49, false, 0},
    {"NumInsert", VK_INSERT, 0x52, false, 0},
    {"NumDelete", VK_DELETE, 0x53, false, 0},
};

bool isSameName(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lowerAscii(a) == lowerAscii(b); });
}

template <class Test> const Key *find(Test test)
{
    auto found = std::find_if(std::begin(keys), std::end(keys), test);
    return found != std::end(keys) ? found : nullptr;
}

} // namespace

std::span<const Key> allKeys()
{
    return keys;
}

const Key *keyNamed(std::string_view name)
{
    return find([&](const Key &key) { return isSameName(key.name, name); });
}

const Key *keyOfUsage(int usage)
{
    return usage ? find([&](const Key &key) { return key.usage == usage; }) : nullptr;
}

const Key *keyOfVirtualKey(BYTE virtualKey, bool isExtended)
{
    const Key *exact = find([&](const Key &key) { return key.virtualKey == virtualKey && key.isExtended == isExtended; });
    return exact ? exact : find([&](const Key &key) { return key.virtualKey == virtualKey; });
}

} // namespace win32::screen
