// Overlapped transfers: done by threads of the layer in the order in which they were started, one at a
// time for each of the threads.
#include "faults.h"
#include "file_object.h"
#include "waits.h"

#include <pthread.h>

#include <condition_variable>
#include <csignal>
#include <iterator>
#include <list>
#include <mutex>
#include <thread>

namespace win32 {
namespace {

constexpr ULONG_PTR statusPending = 0x103;
constexpr ULONG_PTR statusEndOfFile = 0xC0000011;
constexpr ULONG_PTR statusFromWin32 = 0xC0070000;
constexpr unsigned maximumThreads = 4;

struct Transfer {
    Ref<FileObject> file;
    bool writes;
    void *buffer;
    DWORD size;
    LPOVERLAPPED overlapped;
    int64_t offset;
    Ref<KernelObject> event{};
    std::shared_ptr<ThreadState> caller{};
    std::unique_ptr<QueuedCall> call{}; // of a transfer with a completion routine
};

// The status of a transfer is written last: who sees it change may use the buffer and the count.
void publish(OVERLAPPED &overlapped, DWORD error, DWORD count)
{
    overlapped.InternalHigh = count;
    ULONG_PTR status = error == NO_ERROR ? 0 : error == ERROR_HANDLE_EOF ? statusEndOfFile : statusFromWin32 | error;
    __atomic_store_n(&overlapped.Internal, status, __ATOMIC_RELEASE);
}

DWORD errorOf(ULONG_PTR status)
{
    return status == 0                 ? DWORD{NO_ERROR}
           : status == statusEndOfFile ? DWORD{ERROR_HANDLE_EOF}
                                       : static_cast<DWORD>(status & 0xffff);
}

void finish(Transfer &transfer, DWORD error, DWORD count)
{
    // After this the caller may free the record, so nothing may touch it any more.
    publish(*transfer.overlapped, error, count);
    setSignaled(*transfer.file, true);
    if (transfer.event)
        setSignaled(*transfer.event, true);
    if (transfer.call) {
        transfer.call->error = error;
        transfer.call->count = count;
        queueCall(*transfer.caller, std::move(transfer.call));
    }
}

void perform(Transfer &transfer)
{
    DWORD count = 0;
    DWORD error = transferNow(*transfer.file, transfer.writes, transfer.buffer, transfer.size, transfer.offset, count);
    if (error == NO_ERROR && !transfer.writes && count == 0 && transfer.size > 0)
        error = ERROR_HANDLE_EOF;
    finish(transfer, error, count);
}

// Transfers travel as nodes of lists, so that only starting one needs memory.
class Engine {
public:
    // Throws std::system_error when there is no thread to do the work.
    void start(std::list<Transfer> one)
    {
        std::lock_guard lock(mutex_);
        if (threads_ == 0 || (idle_ == 0 && threads_ < maximumThreads))
            addThread();
        queue_.splice(queue_.end(), one);
        wake_.notify_one();
    }

    void cancel(const FileObject &file)
    {
        std::list<Transfer> cancelled;
        {
            std::unique_lock lock(mutex_);
            for (auto it = queue_.begin(); it != queue_.end();) {
                auto next = std::next(it);
                if (it->file.get() == &file)
                    cancelled.splice(cancelled.end(), queue_, it);
                it = next;
            }
            done_.wait(lock, [&] { return !isActive(file); });
        }
        for (Transfer &transfer : cancelled)
            finish(transfer, ERROR_OPERATION_ABORTED, 0);
    }

private:
    bool isActive(const FileObject &file) const
    {
        for (const FileObject *active : active_) {
            if (active == &file)
                return true;
        }
        return false;
    }

    // Signals are for the program's own threads.
    void addThread()
    {
        sigset_t all, previous;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &previous);
        unsigned place = threads_;
        try {
            std::thread([this, place] { work(place); }).detach();
            ++threads_;
        } catch (...) {
            pthread_sigmask(SIG_SETMASK, &previous, nullptr);
            if (threads_ == 0)
                throw;
            return;
        }
        pthread_sigmask(SIG_SETMASK, &previous, nullptr);
    }

    void work(unsigned place)
    {
        std::unique_lock lock(mutex_);
        for (;;) {
            ++idle_;
            wake_.wait(lock, [&] { return !queue_.empty(); });
            --idle_;
            std::list<Transfer> taken;
            taken.splice(taken.begin(), queue_, queue_.begin());
            active_[place] = taken.front().file.get();
            lock.unlock();
            perform(taken.front());
            // Lets go of the file before it is told that the transfer is over: whoever closes its last
            // handle then finds it closed.
            taken.clear();
            lock.lock();
            active_[place] = nullptr;
            done_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable wake_, done_;
    std::list<Transfer> queue_;
    const FileObject *active_[maximumThreads] = {};
    unsigned threads_ = 0;
    unsigned idle_ = 0;
};

// Never destroyed: its threads are not joined, since a program may end at any time.
union ImmortalEngine {
    ImmortalEngine() : engine() {}
    ~ImmortalEngine() {}
    Engine engine;
};
ImmortalEngine immortal;

} // namespace

bool startTransfer(Ref<FileObject> file, bool writes, void *buffer, DWORD size, LPOVERLAPPED overlapped,
                   LPOVERLAPPED_COMPLETION_ROUTINE routine)
{
    int64_t offset = static_cast<int64_t>(static_cast<uint64_t>(overlapped->OffsetHigh) << 32 | overlapped->Offset);
    if (!file->allows(buffer, size, offset))
        return fail(ERROR_INVALID_PARAMETER, false);
    std::list<Transfer> one;
    one.push_back({file, writes, buffer, size, overlapped, offset});
    Transfer &transfer = one.front();
    if (routine) {
        transfer.caller = currentThreadState();
        transfer.call.reset(new QueuedCall{.routine = routine, .overlapped = overlapped});
    } else if (overlapped->hEvent) {
        // The lowest bit only says that a completion port is not to be told.
        auto handle = reinterpret_cast<HANDLE>(reinterpret_cast<uintptr_t>(overlapped->hEvent) & ~uintptr_t{1});
        transfer.event = handles::acquire(handle);
        if (!transfer.event)
            return false;
        setSignaled(*transfer.event, false);
    }
    setSignaled(*file, false);
    overlapped->InternalHigh = 0;
    overlapped->Internal = statusPending;
    try {
        immortal.engine.start(std::move(one));
        return true;
    } catch (const std::exception &) {
        overlapped->Internal = statusFromWin32 | ERROR_NOT_ENOUGH_MEMORY;
        return fail(ERROR_NOT_ENOUGH_MEMORY, false);
    }
}

void cancelTransfers(const FileObject &file)
{
    immortal.engine.cancel(file);
}

} // namespace win32

using namespace win32;

BOOL GetOverlappedResult(HANDLE handle, LPOVERLAPPED overlapped, LPDWORD count, BOOL wait)
{
    auto status = [&] { return __atomic_load_n(&overlapped->Internal, __ATOMIC_ACQUIRE); };
    if (status() == statusPending && !wait)
        return fail(ERROR_IO_INCOMPLETE, FALSE);
    if (status() == statusPending) {
        HANDLE waited = overlapped->hEvent ? overlapped->hEvent : handle;
        while (status() == statusPending) {
            // The object may have been signalled by another transfer of the same file.
            if (WaitForSingleObject(waited, overlapped->hEvent ? INFINITE : 10) == WAIT_FAILED)
                return FALSE;
        }
    }
    *count = static_cast<DWORD>(overlapped->InternalHigh);
    DWORD error = errorOf(status());
    return error ? fail(error, FALSE) : TRUE;
}

BOOL CancelIo(HANDLE handle)
{
    Ref<FileObject> file = acquireFile(handle);
    if (!file)
        return FALSE;
    if (file->isOverlapped())
        guarded(0, [&] {
            cancelTransfers(*file);
            return 0;
        });
    return TRUE;
}
