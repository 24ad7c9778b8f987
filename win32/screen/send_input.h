// Mouse and keyboard as SendInput takes them.
#pragma once

#include "key_table.h"
#include "replay_script.h"

namespace win32::screen {

enum class Press : uint8_t { Down, Up };

// screen: all of it, in whose coordinates the point is too.
void sendMove(POINT point, const RECT &screen);
void sendButton(MouseButton button, Press press);
void sendWheel(int notches);
void sendKey(const Key &key, Press press);
// A character that no key gives, down and up.
void sendCharacter(char16_t unit);

} // namespace win32::screen
