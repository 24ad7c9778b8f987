#include "ResourceMap.h"

#include <mtbx/MacErrors.h>

#include <algorithm>
#include <cstring>

namespace resources {
namespace {

constexpr SInt32 initialCapacity = 32;
constexpr SInt32 initialBuckets = 64;
constexpr SInt32 none = -1;

ResourceEntry &entryAt(const ResourceMap &map, SInt32 place)
{
    return reinterpret_cast<ResourceEntry *>(*map.entries)[place];
}

SInt32 &keyChain(const ResourceMap &map, ResType type, SInt16 id)
{
    UInt32 hash = (static_cast<UInt32>(type) * 0x9e3779b1u) ^ (static_cast<UInt16>(id) * 0x85ebca6bu);
    hash ^= hash >> 15;
    return reinterpret_cast<SInt32 *>(*map.buckets)[hash & static_cast<UInt32>(map.bucketCount - 1)];
}

SInt32 &handleChain(const ResourceMap &map, Handle handle)
{
    auto value = static_cast<UInt64>(reinterpret_cast<UINT_PTR>(handle));
    auto hash = static_cast<UInt32>(value * 0x9e3779b97f4a7c15u >> 32);
    return reinterpret_cast<SInt32 *>(
        *map.buckets)[map.bucketCount + static_cast<SInt32>(hash & static_cast<UInt32>(map.bucketCount - 1))];
}

void enter(ResourceMap &map, SInt32 place)
{
    ResourceEntry &entry = entryAt(map, place);
    SInt32 &ofKey = keyChain(map, entry.type, entry.id);
    entry.nextOfKey = ofKey;
    ofKey = place;
    SInt32 &ofHandle = handleChain(map, entry.handle);
    entry.nextOfHandle = ofHandle;
    ofHandle = place;
}

void unlink(ResourceMap &map, SInt32 *chain, SInt32 place, SInt32 ResourceEntry::*next)
{
    while (*chain != place)
        chain = &(entryAt(map, *chain).*next);
    *chain = entryAt(map, place).*next;
}

Size bucketBytes(SInt32 bucketCount)
{
    return bucketCount * 2 * static_cast<Size>(sizeof(SInt32)); // chains by key and by handle
}

void emptyChains(Handle buckets, SInt32 bucketCount)
{
    memset(*buckets, 0xff, static_cast<size_t>(bucketBytes(bucketCount)));
}

// Longer chains serve as well when there is no memory for more of them.
void growBuckets(ResourceMap &map)
{
    SetHandleSize(map.buckets, bucketBytes(map.bucketCount * 2));
    if (MemError() != noErr)
        return;
    map.bucketCount *= 2;
    emptyChains(map.buckets, map.bucketCount);
    for (SInt32 place = 0; place < map.count; ++place) {
        if (entryAt(map, place).handle)
            enter(map, place);
    }
}

OSErr growEntries(ResourceMap &map)
{
    SInt32 capacity = map.capacity + std::max(16, map.capacity / 2);
    SetHandleSize(map.entries, capacity * static_cast<Size>(sizeof(ResourceEntry)));
    OSErr error = MemError();
    if (error == noErr)
        map.capacity = capacity;
    return error;
}

} // namespace

OSErr openMap(ResourceMap &map)
{
    map = {};
    map.entries = NewHandleClear(initialCapacity * static_cast<Size>(sizeof(ResourceEntry)));
    if (!map.entries)
        return MemError();
    map.buckets = NewHandle(bucketBytes(initialBuckets));
    if (!map.buckets) {
        OSErr error = MemError();
        disposeMap(map);
        return error;
    }
    emptyChains(map.buckets, initialBuckets);
    map.capacity = initialCapacity;
    map.bucketCount = initialBuckets;
    return noErr;
}

void disposeMap(ResourceMap &map)
{
    eachEntry(map, [](ResourceEntry &entry) {
        if (entry.name)
            DisposePtr(entry.name);
    });
    DisposeHandle(map.entries);
    DisposeHandle(map.buckets);
    map = {};
}

ResourceEntry *findByKey(const ResourceMap &map, ResType type, SInt16 id)
{
    if (!map.entries)
        return nullptr;
    for (SInt32 place = keyChain(map, type, id); place != none; place = entryAt(map, place).nextOfKey) {
        ResourceEntry &entry = entryAt(map, place);
        if (entry.type == type && entry.id == id)
            return &entry;
    }
    return nullptr;
}

ResourceEntry *findByHandle(const ResourceMap &map, Handle handle)
{
    if (!map.entries || !handle)
        return nullptr;
    for (SInt32 place = handleChain(map, handle); place != none; place = entryAt(map, place).nextOfHandle) {
        if (entryAt(map, place).handle == handle)
            return &entryAt(map, place);
    }
    return nullptr;
}

OSErr addEntry(ResourceMap &map, ResType type, SInt16 id, Handle handle, Ptr name)
{
    if (map.firstFree == none && map.count == map.capacity) {
        if (OSErr error = growEntries(map))
            return error;
    }
    if (map.count >= map.bucketCount)
        growBuckets(map);
    SInt32 place = map.firstFree != none ? map.firstFree : map.count++;
    ResourceEntry &entry = entryAt(map, place);
    if (place == map.firstFree)
        map.firstFree = entry.nextOfHandle;
    entry = {handle, type, id, name, none, none};
    enter(map, place);
    return noErr;
}

void removeEntry(ResourceMap &map, ResourceEntry &entry)
{
    auto place = static_cast<SInt32>(&entry - reinterpret_cast<ResourceEntry *>(*map.entries));
    unlink(map, &keyChain(map, entry.type, entry.id), place, &ResourceEntry::nextOfKey);
    unlink(map, &handleChain(map, entry.handle), place, &ResourceEntry::nextOfHandle);
    if (entry.name)
        DisposePtr(entry.name);
    entry = {nullptr, 0, 0, nullptr, none, map.firstFree};
    map.firstFree = place;
}

} // namespace resources
