// The thread on which the program began, and which has its windows. A window of ours that only takes messages lives on
// it, so that questions can be asked there without the program's windows hearing of it.
#pragma once

#include <windows.h>

#include <chrono>

namespace replay {

// To be called on that thread.
void takeProgramThread();
DWORD programThread();

// These are answered when the thread asks for messages; false when it does not within the time.

// Whether it finds nothing to do then: no input, message or painting waits.
bool hasNothingToDo(std::chrono::milliseconds longest);
bool isLockOnInProgram(BYTE virtualKey);
void postQuitToProgram();

} // namespace replay
