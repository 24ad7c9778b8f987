// Waiting for objects, and calls that are queued to a thread for its next alertable wait.
#pragma once

#include "kernel_object.h"

#include <memory>

namespace win32 {

// A thread as others see it: they queue calls to it. It may have ended meanwhile.
class ThreadState;
std::shared_ptr<ThreadState> currentThreadState();

// A call that the thread makes in an alertable wait. Made before its outcome is known, so that queueing
// it cannot fail.
struct QueuedCall {
    LPOVERLAPPED_COMPLETION_ROUTINE routine;
    LPOVERLAPPED overlapped;
    DWORD error = 0;
    DWORD count = 0;
    std::unique_ptr<QueuedCall> next{};
};

void queueCall(ThreadState &thread, std::unique_ptr<QueuedCall> call);

void setSignaled(KernelObject &object, bool signaled);

} // namespace win32
