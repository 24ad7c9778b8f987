// Input from outside: from the display and from replays. All of it goes through SendInput, and through the recorder
// on its way when one is wanted.
#pragma once

#include "send_input.h"

#include <windows.h>

namespace win32::screen {

void injectMove(POINT screenPoint);
void injectButton(MouseButton button, Press press);
void injectWheel(int notches);
void injectKey(const Key &key, Press press);
// A character that no key gives, down and up.
void injectCharacter(char16_t unit);
void injectClose();

} // namespace win32::screen
