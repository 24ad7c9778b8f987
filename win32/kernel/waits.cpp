#include "waits.h"

#include "faults.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

namespace win32 {

// One lock guards the state of all objects and threads: waits are rare and short.
static std::mutex waitMutex;

class ThreadState {
public:
    std::atomic<bool> isWaitingForInput{false};
    std::condition_variable wake;
    std::unique_ptr<QueuedCall> firstCall;
    QueuedCall *lastCall = nullptr;
};

namespace {

using Clock = std::chrono::steady_clock;

std::vector<ThreadState *> waitingThreads;

struct Wait {
    KernelObject *const *objects;
    DWORD count;
    bool all;
    bool alertable;
    const InputWait *input = nullptr;
};

// Takes the signal of one object, as the end of a wait does.
void consume(KernelObject &object)
{
    if (object.resetsItself)
        object.signaled = false;
}

// With the lock held: the result of the wait if it is over now.
bool isOver(const Wait &wait, DWORD &result)
{
    bool allSignaled = wait.count > 0;
    for (DWORD place = 0; place < wait.count; ++place) {
        allSignaled = allSignaled && wait.objects[place]->signaled;
        if (!wait.all && wait.objects[place]->signaled) {
            consume(*wait.objects[place]);
            result = WAIT_OBJECT_0 + place;
            return true;
        }
    }
    if (wait.input && wait.input->isOver() && (!wait.all || allSignaled || wait.count == 0)) {
        for (DWORD place = 0; wait.all && place < wait.count; ++place)
            consume(*wait.objects[place]);
        result = WAIT_OBJECT_0 + wait.count;
        return true;
    }
    if (!wait.all || !allSignaled || wait.input)
        return false;
    for (DWORD place = 0; place < wait.count; ++place)
        consume(*wait.objects[place]);
    result = WAIT_OBJECT_0;
    return true;
}

void runCalls(ThreadState &thread)
{
    std::unique_ptr<QueuedCall> call;
    {
        std::lock_guard lock(waitMutex);
        call = std::move(thread.firstCall);
    }
    while (call) {
        call->routine(call->error, call->count, call->overlapped);
        call = std::move(call->next);
    }
}

// Waits until the objects are signalled, the time is over, or (when alertable) calls were made.
DWORD waitFor(const Wait &wait, DWORD milliseconds)
{
    std::shared_ptr<ThreadState> thread = currentThreadState();
    Clock::time_point end = Clock::now() + std::chrono::milliseconds(milliseconds);
    std::unique_lock lock(waitMutex);
    DWORD result = WAIT_TIMEOUT;
    waitingThreads.push_back(thread.get());
    thread->isWaitingForInput = wait.input != nullptr;
    bool timedOut = false;
    bool called = false;
    while (!isOver(wait, result)) {
        called = wait.alertable && thread->firstCall;
        if (called || timedOut)
            break;
        if (milliseconds == INFINITE)
            thread->wake.wait(lock);
        else
            timedOut = thread->wake.wait_until(lock, end) == std::cv_status::timeout;
    }
    thread->isWaitingForInput = false;
    std::erase(waitingThreads, thread.get());
    lock.unlock();
    if (!called)
        return result;
    runCalls(*thread);
    return WAIT_IO_COMPLETION;
}

// The process and the thread itself, by their pseudo handles: they are never over while somebody waits.
class Caller final : public KernelObject {
public:
    Caller() : KernelObject(HandleKind::Event) {}
};

bool isPseudoHandle(HANDLE handle)
{
    return handle == GetCurrentProcess() || handle == GetCurrentThread();
}

Ref<KernelObject> acquireForWait(HANDLE handle)
{
    if (!isPseudoHandle(handle))
        return handles::acquire(handle);
    static Caller *caller = new Caller;
    caller->addReference();
    return Ref<KernelObject>(caller);
}

DWORD waitForHandles(const HANDLE *handles, DWORD count, bool all, DWORD milliseconds, bool alertable,
                     const InputWait *input = nullptr)
{
    return guarded(DWORD{WAIT_FAILED}, [&]() -> DWORD {
        std::vector<Ref<KernelObject>> held;
        std::vector<KernelObject *> objects;
        held.reserve(count);
        objects.reserve(count);
        for (DWORD place = 0; place < count; ++place) {
            held.push_back(acquireForWait(handles[place]));
            if (!held.back())
                return WAIT_FAILED;
            objects.push_back(held.back().get());
        }
        return waitFor({objects.data(), count, all, alertable, input}, milliseconds);
    });
}

class Event : public KernelObject {
public:
    Event() : KernelObject(HandleKind::Event) {}
};

BOOL changeEvent(HANDLE handle, bool signaled)
{
    Ref<Event> event = acquireObject<Event>(handle, HandleKind::Event);
    if (event)
        setSignaled(*event, signaled);
    return static_cast<bool>(event);
}

} // namespace

std::shared_ptr<ThreadState> currentThreadState()
{
    thread_local const std::shared_ptr<ThreadState> state = std::make_shared<ThreadState>();
    return state;
}

void queueCall(ThreadState &thread, std::unique_ptr<QueuedCall> call)
{
    std::lock_guard lock(waitMutex);
    QueuedCall *last = call.get();
    if (thread.firstCall)
        thread.lastCall->next = std::move(call);
    else
        thread.firstCall = std::move(call);
    thread.lastCall = last;
    thread.wake.notify_all();
}

void setSignaled(KernelObject &object, bool signaled)
{
    std::lock_guard lock(waitMutex);
    object.signaled = signaled;
    if (signaled) {
        for (ThreadState *thread : waitingThreads)
            thread->wake.notify_all();
    }
}

DWORD waitForObjectsOrInput(const HANDLE *objects, DWORD count, bool all, DWORD milliseconds, bool alertable,
                            const InputWait &input)
{
    return waitForHandles(objects, count, all, milliseconds, alertable, &input);
}

void wakeForInput(ThreadState &thread)
{
    if (!thread.isWaitingForInput.load())
        return;
    std::lock_guard lock(waitMutex);
    thread.wake.notify_all();
}

bool isWaitingForInput(const ThreadState &thread)
{
    return thread.isWaitingForInput.load();
}

} // namespace win32

using namespace win32;

HANDLE CreateEventA(LPSECURITY_ATTRIBUTES, BOOL manualReset, BOOL initialState, LPCSTR name)
{
    if (faults::fails("CreateEventA"))
        return nullptr;
    // Events are known by handle only: a name would have to reach other processes.
    if (name)
        return fail(ERROR_NOT_SUPPORTED, HANDLE{});
    auto event = new (std::nothrow) Event;
    if (!event)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HANDLE{});
    event->signaled = initialState != FALSE;
    event->resetsItself = !manualReset;
    return handleFor(event);
}

BOOL SetEvent(HANDLE event)
{
    return changeEvent(event, true);
}

BOOL ResetEvent(HANDLE event)
{
    return changeEvent(event, false);
}

DWORD WaitForSingleObjectEx(HANDLE object, DWORD milliseconds, BOOL alertable)
{
    return waitForHandles(&object, 1, false, milliseconds, alertable);
}

DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds)
{
    return WaitForSingleObjectEx(object, milliseconds, FALSE);
}

DWORD WaitForMultipleObjectsEx(DWORD count, const HANDLE *objects, BOOL all, DWORD milliseconds, BOOL alertable)
{
    if (count == 0 || count > MAXIMUM_WAIT_OBJECTS)
        return fail(ERROR_INVALID_PARAMETER, DWORD{WAIT_FAILED});
    return waitForHandles(objects, count, all, milliseconds, alertable);
}

DWORD WaitForMultipleObjects(DWORD count, const HANDLE *objects, BOOL all, DWORD milliseconds)
{
    return WaitForMultipleObjectsEx(count, objects, all, milliseconds, FALSE);
}

DWORD SleepEx(DWORD milliseconds, BOOL alertable)
{
    if (!alertable) {
        Sleep(milliseconds);
        return 0;
    }
    return guarded(DWORD{0}, [&]() -> DWORD {
        DWORD result = waitFor({nullptr, 0, false, true}, milliseconds);
        return result == WAIT_IO_COMPLETION ? result : 0;
    });
}
