// The clipboard, for windows that end and for the display, which shares its text with the desktop.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace win32::user::clipboard {

// To be called before a window gets WM_DESTROY: what it promised is asked for now.
void ownerIsEnding(HWND window);
// To be called when nobody can ask the window any more.
void forget(HWND window);

// Called after each change by the program, without a lock. Set once.
void setChangeListener(void (*listener)());
// Grows with each change, by whomever.
DWORD generation();
// The text as it is now. False when there is none; also when it is only promised and promises are not to be called in,
// which needs the owner's thread and waits for it no longer than half a second.
enum class Promises { Left, CalledIn };
bool text(std::u16string &result, Promises promises);
// Everything replaced by a text that comes from outside. False while the program has the clipboard open.
bool replaceByText(const std::u16string &text);

} // namespace win32::user::clipboard
