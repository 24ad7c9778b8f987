#include "gdi_object.h"

#include "kernel/faults.h"
#include "kernel/kernel_internal.h"

#include <atomic>
#include <mutex>

namespace win32::gdi {

// A handle has the index in bits 0 to 15, the type in bits 16 to 20 and the generation above.
class ObjectTable {
public:
    HGDIOBJ enter(Object *object, bool isStock);
    void remove(Object *object);
    Object *find(HGDIOBJ handle, ObjectType type) const;
    Object *findAny(HGDIOBJ handle) const;

    std::atomic<DWORD> quota{defaultQuota};
    std::atomic<DWORD> count{0};

private:
    static constexpr uint32_t entryCount = 1u << 16;
    static constexpr uint32_t noEntry = 0;
    // A stale handle stays recognisable at least this many creations long.
    static constexpr uint32_t waitingEntries = 256;

    struct Entry {
        std::atomic<uint32_t> value{0}; // the live handle; 0 in a free entry
        uint32_t nextFree = noEntry;
        std::atomic<Object *> object{nullptr};
        uint16_t generation = 0;
    };

    const Entry *liveEntry(HGDIOBJ handle) const
    {
        auto value = reinterpret_cast<uintptr_t>(handle);
        const Entry &entry = entries_[value & 0xffff];
        bool isLive = value != 0 && value == entry.value.load(std::memory_order_acquire);
        return isLive ? &entry : nullptr;
    }
    uint32_t takeEntry();

    std::mutex mutex_;
    uint32_t made_ = 1; // entry 0 is never used: no handle is null
    uint32_t firstFree_ = noEntry;
    uint32_t lastFree_ = noEntry;
    uint32_t waiting_ = 0;
    Entry entries_[entryCount];
};

uint32_t ObjectTable::takeEntry()
{
    bool mayTakeNew = made_ < entryCount;
    if (waiting_ > waitingEntries || (!mayTakeNew && waiting_ > 0)) {
        uint32_t index = firstFree_;
        firstFree_ = entries_[index].nextFree;
        if (firstFree_ == noEntry)
            lastFree_ = noEntry;
        --waiting_;
        return index;
    }
    return mayTakeNew ? made_++ : noEntry;
}

HGDIOBJ ObjectTable::enter(Object *object, bool isStock)
{
    std::lock_guard lock(mutex_);
    uint32_t index = takeEntry();
    if (index == noEntry)
        return nullptr;
    Entry &entry = entries_[index];
    constexpr unsigned indexBits = 16, typeBits = 5;
    uint32_t generation = (entry.generation & 0x3ffu) + 1; // never 0, so that handles are no small numbers
    ++entry.generation;
    uint32_t value = generation << (indexBits + typeBits) | static_cast<uint32_t>(object->type) << indexBits | index;
    object->handle_ = reinterpret_cast<HGDIOBJ>(static_cast<uintptr_t>(value));
    object->isStock_ = isStock;
    entry.object.store(object, std::memory_order_relaxed);
    entry.value.store(value, std::memory_order_release);
    if (!isStock)
        count.fetch_add(1, std::memory_order_relaxed);
    return object->handle_;
}

void ObjectTable::remove(Object *object)
{
    std::lock_guard lock(mutex_);
    auto index = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(object->handle_)) & 0xffff;
    Entry &entry = entries_[index];
    entry.value.store(0, std::memory_order_release);
    entry.nextFree = noEntry;
    if (lastFree_ == noEntry)
        firstFree_ = index;
    else
        entries_[lastFree_].nextFree = index;
    lastFree_ = index;
    ++waiting_;
    count.fetch_sub(1, std::memory_order_relaxed);
}

Object *ObjectTable::find(HGDIOBJ handle, ObjectType type) const
{
    auto typeInHandle = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(handle)) >> 16 & 0x1f;
    const Entry *entry = liveEntry(handle);
    return entry && typeInHandle == static_cast<uint32_t>(type) ? entry->object.load(std::memory_order_relaxed) : nullptr;
}

Object *ObjectTable::findAny(HGDIOBJ handle) const
{
    const Entry *entry = liveEntry(handle);
    return entry ? entry->object.load(std::memory_order_relaxed) : nullptr;
}

namespace {

ObjectTable table;

} // namespace

void Object::deselect()
{
    if (--selections_ == 0 && isDoomed_)
        destroy(this);
}

bool refusesCreation(ObjectType type)
{
    static_assert(WIN32_ALLOCATION_REGION - WIN32_ALLOCATION_PEN
                  == static_cast<int>(ObjectType::Region) - static_cast<int>(ObjectType::Pen));
    int kind = WIN32_ALLOCATION_PEN + static_cast<int>(type) - static_cast<int>(ObjectType::Pen);
    bool isRefused = table.count.load(std::memory_order_relaxed) >= table.quota.load(std::memory_order_relaxed)
                     || faults::refuses(static_cast<Win32Allocation>(kind), 0);
    if (isRefused)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return isRefused;
}

HGDIOBJ enter(Object *object)
{
    if (!object)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HGDIOBJ{});
    if (HGDIOBJ handle = table.enter(object, false))
        return handle;
    delete object;
    return fail(ERROR_NOT_ENOUGH_MEMORY, HGDIOBJ{});
}

HGDIOBJ enterStock(Object *object)
{
    return table.enter(object, true);
}

Object *findObject(HGDIOBJ handle, ObjectType type)
{
    Object *object = table.find(handle, type);
    return object ? object : fail(ERROR_INVALID_HANDLE, object);
}

Object *findAny(HGDIOBJ handle)
{
    Object *object = table.findAny(handle);
    return object ? object : fail(ERROR_INVALID_HANDLE, object);
}

void destroy(Object *object)
{
    if (object->isStock_)
        return;
    if (object->selections_ > 0) {
        object->isDoomed_ = true;
        return;
    }
    table.remove(object);
    delete object;
}

DWORD objectCount()
{
    return table.count.load(std::memory_order_relaxed);
}

} // namespace win32::gdi

using namespace win32;

void Win32Control_LimitGdiObjects(DWORD count)
{
    gdi::table.quota = count ? count : gdi::defaultQuota;
}

DWORD Win32Control_GdiObjects()
{
    return gdi::objectCount();
}
