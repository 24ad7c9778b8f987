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

// Input of a thread's message queue as something to wait for: over when both sets of bits have one of the mask,
// or when a flag is set.
struct InputWait {
    const std::atomic<DWORD> &currentBits;
    const std::atomic<DWORD> &countingBits;
    DWORD mask;
    const std::atomic<bool> *flag = nullptr;

    bool isOver() const { return (currentBits.load() & countingBits.load() & mask) != 0 || (flag && flag->load()); }
};

// WAIT_OBJECT_0 and the number of the object, or the count for input. A wait for all ends when all objects are
// signalled and input is there.
DWORD waitForObjectsOrInput(const HANDLE *objects, DWORD count, bool all, DWORD milliseconds, bool alertable,
                            const InputWait &input);
// To be called after a change of what an InputWait looks at. Costs next to nothing when the thread does not wait.
void wakeForInput(ThreadState &thread);
// Whether the thread is in such a wait now.
bool isWaitingForInput(const ThreadState &thread);

} // namespace win32
