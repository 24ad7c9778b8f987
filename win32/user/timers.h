// Timers of windows and threads.
#pragma once

#include <windows.h>

#include <cstdint>

namespace win32::user {

class MessageQueue;

// Timers of the system's own on a window: they give WM_SYSTIMER.
void setSystemTimer(HWND window, UINT_PTR id, UINT milliseconds);
void killSystemTimer(HWND window, UINT_PTR id);

void forgetTimers(HWND window);

// When the next timer of the queue is due, in milliseconds of ticks(); the largest value for none.
uint64_t nextTimerOf(MessageQueue &queue);

// Whether a timer of the thread has the procedure: a message may name any.
bool isTimerProcedure(TIMERPROC procedure);

} // namespace win32::user
