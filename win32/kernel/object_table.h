// A table of objects behind 32-bit handles. A handle is made of an entry's index, the object's type and the
// entry's generation, so a stale or foreign one is recognised. Look-ups take no lock.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <mutex>

namespace win32 {

// Object has a type that converts to a small number from 1 on.
template <class Object> class ObjectTable {
public:
    // Null when the table is full.
    HANDLE enter(Object *object)
    {
        std::lock_guard lock(mutex_);
        uint32_t index = takeEntry();
        if (index == noEntry)
            return nullptr;
        Entry &entry = entries_[index];
        // Never 0, so that handles are no small numbers.
        uint32_t generation = (entry.generation++ & generationMask) + 1;
        uint32_t value =
            generation << (indexBits + typeBits) | static_cast<uint32_t>(object->type) << indexBits | index;
        entry.object.store(object, std::memory_order_relaxed);
        entry.value.store(value, std::memory_order_release);
        return reinterpret_cast<HANDLE>(static_cast<uintptr_t>(value));
    }

    void remove(HANDLE handle)
    {
        std::lock_guard lock(mutex_);
        uint32_t index = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(handle)) & indexMask;
        entries_[index].value.store(0, std::memory_order_release);
        entries_[index].nextFree = noEntry;
        if (lastFree_ == noEntry)
            firstFree_ = index;
        else
            entries_[lastFree_].nextFree = index;
        lastFree_ = index;
        ++waiting_;
    }

    // Null for what is no live handle.
    Object *find(HANDLE handle) const
    {
        auto value = reinterpret_cast<uintptr_t>(handle);
        const Entry &entry = entries_[value & indexMask];
        bool isLive = value != 0 && value == entry.value.load(std::memory_order_acquire);
        return isLive ? entry.object.load(std::memory_order_relaxed) : nullptr;
    }

    Object *find(HANDLE handle, uint32_t type) const
    {
        auto typeInHandle = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(handle)) >> indexBits & typeMask;
        return typeInHandle == type ? find(handle) : nullptr;
    }

private:
    static constexpr unsigned indexBits = 16;
    static constexpr unsigned typeBits = 5;
    static constexpr uint32_t indexMask = (1u << indexBits) - 1;
    static constexpr uint32_t typeMask = (1u << typeBits) - 1;
    static constexpr uint32_t generationMask = (1u << 10) - 1;
    static constexpr uint32_t noEntry = 0; // entry 0 is never used
    // A stale handle stays recognisable at least this many creations long.
    static constexpr uint32_t waitingEntries = 256;

    struct Entry {
        std::atomic<uint32_t> value{0}; // the live handle; 0 in a free entry
        uint32_t nextFree = noEntry;
        std::atomic<Object *> object{nullptr};
        uint16_t generation = 0;
    };

    uint32_t takeEntry()
    {
        bool mayTakeNew = made_ <= indexMask;
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

    std::mutex mutex_;
    uint32_t made_ = 1;
    uint32_t firstFree_ = noEntry;
    uint32_t lastFree_ = noEntry;
    uint32_t waiting_ = 0;
    Entry entries_[indexMask + 1];
};

} // namespace win32
