// What mouse and keyboard did, on its way from SendInput to a message.
#pragma once

#include <windows.h>

#include <cstdint>

namespace win32::user {

struct InputEvent {
    enum class Kind : uint8_t { MouseMove, MouseButton, MouseWheel, Key };
    Kind kind;
    bool isUp = false;       // of a button or key
    BYTE key = 0;            // virtual key of a button or key
    WORD scanCode = 0;       // of a key; of VK_PACKET the character
    bool isExtended = false; // of a key
    bool isRepeat = false;   // the key was down already
    bool hasAlt = false;     // Alt was down, and Control not: a system key
    short wheel = 0;
    POINT point{}; // screen
    DWORD time = 0;
    ULONG_PTR extraInfo = 0;
    uint64_t number = 0; // in the order of arrival; no two events have the same
};

// The state of all keys and buttons as input has left it: bit 7 down, bit 0 toggled.
class KeyStates {
public:
    bool isDown(int key) const { return (keys_[key & 0xff] & 0x80) != 0; }
    BYTE operator[](int key) const { return keys_[key & 0xff]; }
    void set(int key, bool isDown);
    void copyTo(BYTE *state) const;
    void copyFrom(const BYTE *state);

private:
    BYTE keys_[256]{};
};

POINT cursorPosition();
bool isMouseButtonDown();
// Whether a lock such as VK_CAPITAL is on, as all input so far has left it.
bool isToggled(BYTE key);
// MK_ bits of the buttons and modifiers.
WPARAM mouseKeys(const KeyStates &states);
// The character that a key gives with a state of the others; 0 for none, 0xFFFF for a key that only modifies.
WORD characterOf(UINT key, const KeyStates &states);

// Where the mouse's events go: what has the capture, or what lies under it.
void deliverMouseMove();

} // namespace win32::user
