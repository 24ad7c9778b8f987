// The thread on which the program began, and which has its windows. A window of ours that only takes messages lives on
// it, so that questions can be asked there without the program's windows hearing of it.
#pragma once

#include <windows.h>

#include <chrono>

namespace replay {

// To be called on that thread.
void takeProgramThread();
DWORD programThread();

// What the thread finds when it asks for messages within the time: whether input, messages or painting wait.
enum class Found { NoAnswer, Work, Nothing };
Found workOfProgram(std::chrono::milliseconds longest);
// False too when it does not answer.
bool isLockOnInProgram(BYTE virtualKey);
void postQuitToProgram();

} // namespace replay
