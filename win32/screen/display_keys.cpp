#include "display_keys.h"

#include "injection.h"
#include "kernel/code_pages.h"
#include "user/input.h"

#include <SDL_keycode.h>

#include <utility>

namespace win32::screen {
namespace {

constexpr unsigned commandModifiers = KMOD_CTRL | KMOD_LALT | KMOD_GUI;
constexpr int firstPadKey = 89, lastPadKey = 99; // digits and the point, by usage

bool isLetterOrDigit(int code)
{
    return (code >= 'a' && code <= 'z') || (code >= '0' && code <= '9');
}

char plainCharacter(BYTE virtualKey)
{
    return static_cast<char>(MapVirtualKeyA(virtualKey, 2) & 0xff);
}

bool makesText(const Key &key)
{
    return static_cast<unsigned char>(plainCharacter(key.virtualKey)) >= ' ';
}

// The key of a place that gives letters, digits or signs, which layouts move: its number follows the layout.
Key keyByLayout(Key key, int code)
{
    SHORT found = code > ' ' && code < 0x7f ? VkKeyScanA(static_cast<CHAR>(code)) : SHORT{-1};
    bool isUnshifted = found != -1 && (found & 0xff00) == 0;
    if (isLetterOrDigit(code) || isUnshifted)
        key.virtualKey = static_cast<BYTE>(found);
    return key;
}

// Without Num Lock the pad moves the cursor.
Key padKey(const Key &key, unsigned modifiers)
{
    constexpr BYTE unlocked[] = {VK_END,  VK_DOWN, VK_NEXT,  VK_LEFT,   VK_CLEAR, VK_RIGHT,
                                 VK_HOME, VK_UP,   VK_PRIOR, VK_INSERT, VK_DELETE};
    if (modifiers & KMOD_NUM)
        return key;
    Key result = key;
    result.virtualKey = unlocked[key.usage - firstPadKey];
    return result;
}

Key keyOf(const Key &place, int code, unsigned modifiers)
{
    if (place.usage >= firstPadKey && place.usage <= lastPadKey)
        return padKey(place, modifiers);
    bool isMoved = place.usage < 57 || place.usage == 100;
    return isMoved && makesText(place) ? keyByLayout(place, code) : place;
}

// Whether the layer makes this character of the key itself.
bool isOwnText(const Key &key, unsigned modifiers, const std::u16string &units)
{
    if (units.size() != 1 || units[0] < ' ' || units[0] >= 0x7f)
        return false;
    auto character = static_cast<char>(units[0]);
    bool isPadKey = key.usage >= firstPadKey - 5 && key.usage <= lastPadKey;
    if (isPadKey)
        return plainCharacter(key.virtualKey) == character;
    SHORT found = VkKeyScanA(character);
    bool isLetter = key.virtualKey >= 'A' && key.virtualKey <= 'Z';
    bool isShifted = ((modifiers & KMOD_SHIFT) != 0) != (isLetter && (modifiers & KMOD_CAPS));
    return found != -1 && (found & 0xff) == key.virtualKey && ((found & 0x100) != 0) == isShifted;
}

void bringLock(const char *name, BYTE virtualKey, bool isOn)
{
    if (user::isToggled(virtualKey) == isOn)
        return;
    injectKey(*keyNamed(name), Press::Down);
    injectKey(*keyNamed(name), Press::Up);
}

// The locks may have changed while others had the keyboard.
void bringLocks(unsigned modifiers)
{
    bringLock("CapsLock", VK_CAPITAL, (modifiers & KMOD_CAPS) != 0);
    bringLock("NumLock", VK_NUMLOCK, (modifiers & KMOD_NUM) != 0);
}

} // namespace

void DisplayKeys::press(int usage, const Key &key)
{
    down_[usage] = key;
    injectKey(key, Press::Down);
}

void DisplayKeys::keyDown(int usage, int code, unsigned modifiers)
{
    settle();
    bringLocks(modifiers);
    const Key *place = keyOfUsage(usage);
    bool isLock = place && (place->virtualKey == VK_CAPITAL || place->virtualKey == VK_NUMLOCK);
    if (!place || isLock)
        return;
    Key key = keyOf(*place, code, modifiers);
    ignoresText_ = (modifiers & commandModifiers) != 0;
    if (makesText(key) && !ignoresText_)
        waiting_ = {usage, key, modifiers};
    else
        press(usage, key);
}

void DisplayKeys::keyUp(int usage, unsigned modifiers)
{
    settle();
    bringLocks(modifiers);
    auto found = down_.find(usage);
    if (found == down_.end())
        return;
    Key key = found->second;
    down_.erase(found);
    injectKey(key, Press::Up);
}

void DisplayKeys::text(const std::string &utf8)
{
    hasSeenText_ = true;
    std::u16string units;
    if (ignoresText_ || !utf16FromUtf8(utf8, units))
        return;
    Waiting waiting = std::exchange(waiting_, Waiting{});
    if (waiting.usage && isOwnText(waiting.key, waiting.modifiers, units))
        press(waiting.usage, waiting.key);
    else
        sendText(units, (waiting.modifiers & KMOD_RALT) != 0);
}

// The right Alt that chooses the third sign of a key goes with Control on Windows, so that its characters are no
// commands.
void DisplayKeys::sendText(const std::u16string &units, bool isRightAltDown)
{
    if (isRightAltDown)
        injectKey(*keyNamed("Ctrl"), Press::Down);
    for (char16_t unit : units)
        injectCharacter(unit);
    if (isRightAltDown)
        injectKey(*keyNamed("Ctrl"), Press::Up);
}

void DisplayKeys::settle()
{
    Waiting waiting = std::exchange(waiting_, Waiting{});
    bool isCommand = (waiting.modifiers & KMOD_RALT) != 0;
    if (waiting.usage && (isCommand || !hasSeenText_))
        press(waiting.usage, waiting.key);
}

void DisplayKeys::releaseAll()
{
    settle();
    for (const auto &[usage, key] : down_)
        injectKey(key, Press::Up);
    down_.clear();
}

} // namespace win32::screen
