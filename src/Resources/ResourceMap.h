// The resources of one file that were handed out: an entry for each, found by type and ID or by handle in a
// time that does not grow with their number.
#pragma once

#include <mtbx/MacMemory.h>
#include <mtbx/MacTypes.h>

namespace resources {

struct ResourceEntry {
    Handle handle; // null in a free entry
    ResType type;
    SInt16 id;
    Ptr name; // a C string of its own, or null
    SInt32 nextOfKey;
    SInt32 nextOfHandle; // of a free entry, the next free one
};

struct ResourceMap {
    Handle entries = nullptr; // of ResourceEntry; so they count in the memory budget
    Handle buckets = nullptr; // of SInt32: the first places of the chains by key, then of those by handle
    SInt32 count = 0;         // used length, cleared entries included
    SInt32 capacity = 0;
    SInt32 bucketCount = 0;
    SInt32 firstFree = -1;
};

// An empty map with room for 32. The result code of the memory calls, which may run the host's grow-zone
// function.
OSErr openMap(ResourceMap &map);
// Frees the entries with their names, but not their handles.
void disposeMap(ResourceMap &map);

// Null when there is none. Valid until an entry is added.
ResourceEntry *findByKey(const ResourceMap &map, ResType type, SInt16 id);
ResourceEntry *findByHandle(const ResourceMap &map, Handle handle);

// Enters a handle under a type and ID that are not in the map, and takes over the name, a block of its own or
// null. On failure the map is as it was and the name the caller's. The host is not asked for memory: its
// grow-zone function could change the map meanwhile.
OSErr addEntry(ResourceMap &map, ResType type, SInt16 id, Handle handle, Ptr name);
// Takes an entry out and frees its name; the handle stays alive.
void removeEntry(ResourceMap &map, ResourceEntry &entry);

template <class Visit> void eachEntry(const ResourceMap &map, Visit visit)
{
    for (SInt32 place = 0; place < map.count; ++place) {
        ResourceEntry &entry = reinterpret_cast<ResourceEntry *>(*map.entries)[place];
        if (entry.handle)
            visit(entry);
    }
}

} // namespace resources
