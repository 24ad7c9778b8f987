// Mouse and buttons as the program asks for them. The system's own answers do for neither: whether a button is down is
// asked again and again by a program that follows a drag, which the player wants to know; and where the desktop keeps a
// pointer of its own, as that of X for Wine, the place of the mouse is that again a while after a replay has moved it.
#pragma once

#include <windows.h>

namespace replay {

// To be called once, before main, on the program's thread.
void watchInputState();

// The mouse is where the replay, or the program since, has put it.
void noteMouseAt(POINT point);
POINT mousePlace();
void noteButton(int button, bool isHeld);
bool holdsButton();

// How often the program has asked for a button, in all and since it was last known to read messages or a button was
// pressed.
unsigned buttonLooks();
unsigned buttonLooksSinceMessages();
void noteMessagesAreRead();

} // namespace replay
