// The mouse's pointer on a desktop that keeps one of its own, as that of X does for Wine: what SendInput moves is not
// it, and programs would be told its place again after a while.
#pragma once

#include <windows.h>

namespace replay {

// Moves the mouse, and soon the desktop's pointer too: not at once, since what the desktop tells of that comes late and
// would get among the moves that follow.
void moveMouse(POINT point);

} // namespace replay
