// Plays the replay that WIN32_REPLAY names, on a thread of its own.
#pragma once

#include <string>

namespace win32::screen {

// What the process ends with when a replay does. A program whose replay was played to its end ends with its own.
enum ReplayStatus { ReplayUnreadable = 120, ReplayFailed = 121, ReplayUnfinished = 122 };

// To be called when the program begins to use the user interface.
void startReplay();
// The mode that the replay's first step gives; empty for none.
std::string replayedScreenMode();

} // namespace win32::screen
