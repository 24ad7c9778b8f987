#include "timers.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"

#include <algorithm>

namespace win32::user {
namespace {

constexpr UINT shortestPeriod = 10;

Timer *findTimer(MessageQueue &queue, HWND window, UINT_PTR id, bool isOfSystem)
{
    for (Timer &timer : queue.timers) {
        if (timer.window == window && timer.id == id && timer.isOfSystem == isOfSystem)
            return &timer;
    }
    return nullptr;
}

// Timers of no window have numbers of the system's.
UINT_PTR freeNumber(MessageQueue &queue)
{
    static UINT_PTR last = 0x7fff;
    do {
        last = last > 0x100 ? last - 1 : 0x7fff;
    } while (findTimer(queue, nullptr, last, false));
    return last;
}

UINT_PTR setTimer(HWND handle, UINT_PTR id, UINT period, TIMERPROC procedure, bool isOfSystem)
{
    UserLock lock;
    MessageQueue *queue = &MessageQueue::current();
    if (handle) {
        Window *window = findWindow(handle);
        if (!window || !window->queue)
            return 0;
        if (window->queue != queue)
            return fail(ERROR_ACCESS_DENIED, UINT_PTR{0});
    } else if (!findTimer(*queue, nullptr, id, isOfSystem)) {
        id = freeNumber(*queue);
    }
    period = std::clamp(period, shortestPeriod, UINT{0x7fffffff});
    Timer wanted{handle, id, period, ticks() + period, procedure, isOfSystem};
    if (Timer *timer = findTimer(*queue, handle, id, isOfSystem))
        *timer = wanted;
    else
        queue->timers.push_back(wanted);
    return id ? id : 1;
}

} // namespace

void setSystemTimer(HWND window, UINT_PTR id, UINT period)
{
    guarded(UINT_PTR{0}, [&] { return setTimer(window, id, period, nullptr, true); });
}

void killSystemTimer(HWND window, UINT_PTR id)
{
    UserLock lock;
    std::erase_if(MessageQueue::current().timers, [&](const Timer &timer) {
        return timer.window == window && timer.id == id && timer.isOfSystem;
    });
}

void forgetTimers(HWND window)
{
    UserLock lock;
    std::erase_if(MessageQueue::current().timers, [&](const Timer &timer) { return timer.window == window; });
}

uint64_t nextTimerOf(MessageQueue &queue)
{
    uint64_t due = UINT64_MAX;
    for (const Timer &timer : queue.timers)
        due = std::min(due, timer.due);
    return due;
}

bool isTimerProcedure(TIMERPROC procedure)
{
    UserLock lock;
    const std::vector<Timer> &timers = MessageQueue::current().timers;
    return std::any_of(timers.begin(), timers.end(), [&](const Timer &timer) { return timer.procedure == procedure; });
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    return guarded(UINT_PTR{0}, [&] { return setTimer(window, id, milliseconds, procedure, false); });
}

BOOL KillTimer(HWND window, UINT_PTR id)
{
    UserLock lock;
    std::vector<Timer> &timers = MessageQueue::current().timers;
    size_t killed = std::erase_if(
        timers, [&](const Timer &timer) { return timer.window == window && timer.id == id && !timer.isOfSystem; });
    return killed ? TRUE : fail(ERROR_INVALID_PARAMETER, FALSE);
}
