#include "mapped_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <mutex>

namespace win32 {
namespace {

// The mappings as the signal handler sees them: it may take no lock.
struct Range {
    std::atomic<uintptr_t> begin{0}; // 0: free
    std::atomic<uintptr_t> end{0};
};

std::array<Range, 256> ranges;
struct sigaction previousAction;
uintptr_t pageSize;

bool isMapped(uintptr_t address)
{
    for (const Range &range : ranges) {
        uintptr_t begin = range.begin.load(std::memory_order_acquire);
        if (begin != 0 && address >= begin && address < range.end.load(std::memory_order_acquire))
            return true;
    }
    return false;
}

void passOn(int signal, siginfo_t *info, void *context)
{
    if (previousAction.sa_flags & SA_SIGINFO) {
        previousAction.sa_sigaction(signal, info, context);
    } else if (previousAction.sa_handler != SIG_DFL && previousAction.sa_handler != SIG_IGN) {
        previousAction.sa_handler(signal);
    } else {
        // The fault comes again after the return, and ends the process as it would have without us.
        sigaction(signal, &previousAction, nullptr);
    }
}

void onBusError(int signal, siginfo_t *info, void *context)
{
    int savedErrno = errno;
    auto page = reinterpret_cast<uintptr_t>(info->si_addr) & ~(pageSize - 1);
    constexpr int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED;
    bool mended =
        isMapped(page) && mmap(reinterpret_cast<void *>(page), pageSize, PROT_READ, flags, -1, 0) != MAP_FAILED;
    errno = savedErrno;
    if (!mended)
        passOn(signal, info, context);
}

void installHandler()
{
    static std::once_flag once;
    std::call_once(once, [] {
        pageSize = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
        struct sigaction action {};
        action.sa_sigaction = onBusError;
        action.sa_flags = SA_SIGINFO | SA_NODEFER;
        sigemptyset(&action.sa_mask);
        sigaction(SIGBUS, &action, &previousAction);
    });
}

std::mutex rangeMutex;

void enterRange(void *address, size_t size)
{
    std::lock_guard lock(rangeMutex);
    for (Range &range : ranges) {
        if (range.begin.load(std::memory_order_relaxed) != 0)
            continue;
        range.end.store(reinterpret_cast<uintptr_t>(address) + size, std::memory_order_release);
        range.begin.store(reinterpret_cast<uintptr_t>(address), std::memory_order_release);
        return;
    }
}

void leaveRange(void *address)
{
    std::lock_guard lock(rangeMutex);
    for (Range &range : ranges) {
        if (range.begin.load(std::memory_order_relaxed) == reinterpret_cast<uintptr_t>(address))
            range.begin.store(0, std::memory_order_release);
    }
}

} // namespace

bool MappedFile::map(const char *unixPath)
{
    int file = open(unixPath, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return false;
    struct stat status;
    bool isRegular = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    void *address = MAP_FAILED;
    errno = EISDIR;
    if (isRegular) {
        installHandler();
        address = mmap(nullptr, static_cast<size_t>(status.st_size), PROT_READ, MAP_PRIVATE, file, 0);
    }
    int reason = errno;
    close(file);
    errno = reason;
    if (address == MAP_FAILED)
        return false;
    address_ = address;
    size_ = static_cast<size_t>(status.st_size);
    device_ = status.st_dev;
    inode_ = status.st_ino;
    enterRange(address_, size_);
    return true;
}

MappedFile::~MappedFile()
{
    if (!address_)
        return;
    leaveRange(address_);
    munmap(address_, size_);
}

} // namespace win32
