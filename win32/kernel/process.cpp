// The process, its thread and its time.
#include "process.h"

#include "handle_table.h"
#include "kernel_internal.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <sched.h>

void ExitProcess(UINT exitCode)
{
    exit(static_cast<int>(exitCode));
}

HANDLE GetCurrentProcess()
{
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1));
}

HANDLE GetCurrentThread()
{
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-2));
}

DWORD GetCurrentProcessId()
{
    return static_cast<DWORD>(getpid());
}

DWORD GetCurrentThreadId()
{
    thread_local const DWORD id = static_cast<DWORD>(syscall(SYS_gettid));
    return id;
}

void Sleep(DWORD milliseconds)
{
    if (milliseconds == 0) {
        sched_yield();
        return;
    }
    timespec left{static_cast<time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1000000};
    bool forever = milliseconds == 0xffffffffu;
    while (clock_nanosleep(CLOCK_MONOTONIC, 0, &left, &left) == EINTR || forever) {
    }
}

DWORD GetTickCount()
{
    // The coarse clock needs no system call, and its few milliseconds are what callers expect.
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<DWORD>(static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1000000);
}
