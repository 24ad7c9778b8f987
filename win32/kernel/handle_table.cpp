#include "handle_table.h"

#include "control.h"
#include "kernel_internal.h"
#include "kernel_object.h"

#include <atomic>
#include <mutex>

namespace win32::handles {
namespace {

constexpr unsigned indexBits = 18;
constexpr unsigned generationBits = 11; // 31 bits in all: a handle kept in 32 bits widens to itself either way
constexpr uint32_t chunkSize = 1024;
constexpr uint32_t chunkCount = (1u << indexBits) / chunkSize;
constexpr uint32_t noEntry = ~0u;

struct Entry {
    std::atomic<void *> object{nullptr};
    std::atomic<uint32_t> tag{0}; // generation << 8 | kind
    uint32_t nextFree = noEntry;
};

std::mutex tableMutex;
std::atomic<Entry *> chunks[chunkCount];
uint32_t entriesMade = 1; // index 0 is never used: no handle is null
uint32_t firstFree = noEntry;
uint32_t lastFree = noEntry;
uint32_t liveCount = 0;

Entry *entryAt(uint32_t index)
{
    Entry *chunk = chunks[index / chunkSize].load(std::memory_order_acquire);
    return chunk ? &chunk[index % chunkSize] : nullptr;
}

uint32_t indexOf(HANDLE handle)
{
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(handle) >> 2) & ((1u << indexBits) - 1);
}

uint32_t generationOf(HANDLE handle)
{
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(handle) >> (2 + indexBits));
}

HANDLE handleOf(uint32_t index, uint32_t generation)
{
    return reinterpret_cast<HANDLE>(static_cast<uintptr_t>((generation << (2 + indexBits)) | (index << 2)));
}

Entry *liveEntry(HANDLE handle, HandleKind kind)
{
    uintptr_t value = reinterpret_cast<uintptr_t>(handle);
    if ((value & 3) != 0 || value > 0xffffffffu)
        return nullptr;
    Entry *entry = entryAt(indexOf(handle));
    uint32_t tag = (generationOf(handle) << 8) | static_cast<uint32_t>(kind);
    return entry && entry->tag.load(std::memory_order_acquire) == tag ? entry : nullptr;
}

uint32_t takeNewEntry()
{
    if (entriesMade == (1u << indexBits))
        return noEntry;
    std::atomic<Entry *> &chunk = chunks[entriesMade / chunkSize];
    if (!chunk.load(std::memory_order_relaxed)) {
        Entry *entries = new (std::nothrow) Entry[chunkSize];
        if (!entries)
            return noEntry;
        chunk.store(entries, std::memory_order_release);
    }
    return entriesMade++;
}

uint32_t takeFreeEntry()
{
    uint32_t index = firstFree;
    if (index == noEntry)
        return noEntry;
    firstFree = entryAt(index)->nextFree;
    if (firstFree == noEntry)
        lastFree = noEntry;
    return index;
}

// Free entries are used again in the order they became free, and only when a good number of them
// waits, so that a stale handle stays recognisable as long as possible.
uint32_t takeEntry()
{
    constexpr uint32_t waitingEntries = 256;
    if (entriesMade - 1 - liveCount >= waitingEntries)
        return takeFreeEntry();
    uint32_t index = takeNewEntry();
    return index != noEntry ? index : takeFreeEntry();
}

} // namespace

HANDLE insert(HandleKind kind, void *object)
{
    std::lock_guard lock(tableMutex);
    uint32_t index = takeEntry();
    if (index == noEntry)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HANDLE{});
    Entry *entry = entryAt(index);
    uint32_t generation = entry->tag.load(std::memory_order_relaxed) >> 8;
    entry->object.store(object, std::memory_order_relaxed);
    entry->tag.store((generation << 8) | static_cast<uint32_t>(kind), std::memory_order_release);
    ++liveCount;
    return handleOf(index, generation);
}

void *find(HANDLE handle, HandleKind kind)
{
    Entry *entry = liveEntry(handle, kind);
    return entry ? entry->object.load(std::memory_order_relaxed)
                 : fail(ERROR_INVALID_HANDLE, static_cast<void *>(nullptr));
}

void *remove(HANDLE handle, HandleKind kind)
{
    std::lock_guard lock(tableMutex);
    Entry *entry = liveEntry(handle, kind);
    if (!entry)
        return fail(ERROR_INVALID_HANDLE, static_cast<void *>(nullptr));
    void *object = entry->object.load(std::memory_order_relaxed);
    uint32_t generation = (generationOf(handle) + 1) & ((1u << generationBits) - 1);
    entry->tag.store(generation << 8, std::memory_order_release);
    entry->nextFree = noEntry;
    uint32_t index = indexOf(handle);
    if (lastFree == noEntry)
        firstFree = index;
    else
        entryAt(lastFree)->nextFree = index;
    lastFree = index;
    --liveCount;
    return object;
}

Ref<KernelObject> acquire(HANDLE handle)
{
    uintptr_t value = reinterpret_cast<uintptr_t>(handle);
    Entry *entry = (value & 3) == 0 && value <= 0xffffffffu ? entryAt(indexOf(handle)) : nullptr;
    // The lock keeps the object alive until it is counted as used.
    std::lock_guard lock(tableMutex);
    uint32_t tag = entry ? entry->tag.load(std::memory_order_relaxed) : 0;
    bool isLive = entry && tag >> 8 == generationOf(handle) && (tag & 0xff) >= static_cast<uint32_t>(HandleKind::Event);
    if (!isLive)
        return fail(ERROR_INVALID_HANDLE, Ref<KernelObject>());
    auto object = static_cast<KernelObject *>(entry->object.load(std::memory_order_relaxed));
    object->addReference();
    return Ref<KernelObject>(object);
}

DWORD count()
{
    std::lock_guard lock(tableMutex);
    return liveCount;
}

} // namespace win32::handles

HANDLE win32::handleFor(KernelObject *object)
{
    HANDLE handle = handles::insert(object->kind(), object);
    if (!handle)
        object->release();
    return handle;
}

// A search is closed by FindClose only, and other kinds have calls of their own too.
BOOL CloseHandle(HANDLE handle)
{
    using namespace win32;
    uintptr_t value = reinterpret_cast<uintptr_t>(handle);
    if (value >= static_cast<uintptr_t>(-6))
        return TRUE; // the pseudo handles of process and thread
    for (HandleKind kind : {HandleKind::File, HandleKind::Event}) {
        if (auto object = static_cast<KernelObject *>(handles::remove(handle, kind))) {
            object->closed();
            object->release();
            return TRUE;
        }
    }
    return FALSE;
}

DWORD Win32Control_OpenHandles()
{
    return win32::handles::count();
}
