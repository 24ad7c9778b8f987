// Directory IDs: handed out in the order in which paths are first seen.
//
// The paths lie in handles, so that they count in the memory budget. An index by hash stands beside
// them, so that finding a path takes the same time however many there are.
#include "Files_internal.h"

#include <mtbx/MacErrors.h>
#include <mtbx/MacMemory.h>

#include <cctype>
#include <cstring>
#include <mbstring.h>
#include <string.h>
#include <utility>

namespace {

constexpr SInt32 firstDirectoryID = 3;
constexpr SInt32 initialCapacity = 64;
constexpr SInt32 highestCapacity = 1 << 22; // more would not fit a handle

struct Directory {
    UInt32 hash;
    char path[MAX_PATH]; // without a backslash at its end
};

struct DirectoryTable {
    Handle directories = nullptr; // of Directory, in the order of their IDs
    Handle slots = nullptr;       // of SInt32: open addressing, place of a directory plus 1, 0 when free
    SInt32 count = 0;
    SInt32 capacity = 0;

    Directory &at(SInt32 place) const { return reinterpret_cast<Directory *>(*directories)[place]; }
    SInt32 *slotArray() const { return reinterpret_cast<SInt32 *>(*slots); }
    UInt32 slotMask() const { return static_cast<UInt32>(capacity) * 2 - 1; }
};

DirectoryTable table;

UInt32 hashOf(const char *path, size_t length)
{
    UInt32 hash = 2166136261u;
    for (size_t place = 0; place < length; ++place)
        hash = (hash ^ static_cast<UInt32>(tolower(static_cast<unsigned char>(path[place])))) * 16777619u;
    return hash;
}

// A backslash may be the second byte of a character, which is no separator.
size_t lengthWithoutSeparator(const char *path)
{
    size_t length = strnlen(path, MAX_PATH);
    if (length == MAX_PATH)
        return MAX_PATH - 1;
    auto bytes = reinterpret_cast<const unsigned char *>(path);
    bool endsInSeparator = length > 0 && _mbsrchr(bytes, '\\') == bytes + length - 1;
    return endsInSeparator ? length - 1 : length;
}

// The place of the path, -1 when it has none.
SInt32 findDirectory(UInt32 hash, const char *path, size_t length)
{
    if (table.count == 0)
        return -1;
    for (UInt32 slot = hash & table.slotMask(); table.slotArray()[slot] != 0; slot = (slot + 1) & table.slotMask()) {
        SInt32 place = table.slotArray()[slot] - 1;
        const Directory &directory = table.at(place);
        if (directory.hash == hash && _strnicmp(directory.path, path, length) == 0 && directory.path[length] == 0)
            return place;
    }
    return -1;
}

void enterSlot(SInt32 *slots, UInt32 mask, UInt32 hash, SInt32 place)
{
    UInt32 slot = hash & mask;
    while (slots[slot] != 0)
        slot = (slot + 1) & mask;
    slots[slot] = place + 1;
}

// A table with the same directories and another capacity; false when memory is short.
bool copyTable(SInt32 capacity, DirectoryTable &copy)
{
    copy.slots = NewHandleClear(capacity * 2 * static_cast<SInt32>(sizeof(SInt32)));
    copy.directories = copy.slots ? NewHandle(capacity * static_cast<SInt32>(sizeof(Directory))) : nullptr;
    if (!copy.directories || table.count > capacity)
        return false;
    copy.capacity = capacity;
    copy.count = table.count;
    if (copy.count > 0)
        memcpy(*copy.directories, *table.directories, static_cast<size_t>(copy.count) * sizeof(Directory));
    for (SInt32 place = 0; place < copy.count; ++place)
        enterSlot(copy.slotArray(), copy.slotMask(), copy.at(place).hash, place);
    return true;
}

void disposeTable(const DirectoryTable &disposed)
{
    DisposeHandle(disposed.directories);
    DisposeHandle(disposed.slots);
}

// Makes room for one directory more; on failure the table is as it was. The host's grow-zone function may run
// meanwhile and enter directories.
bool growTable()
{
    while (table.count >= table.capacity) {
        if (table.capacity >= highestCapacity)
            return false;
        DirectoryTable grown;
        SInt32 capacity = table.capacity ? table.capacity * 2 : initialCapacity;
        bool isCopied = copyTable(capacity, grown);
        bool isOutrun = table.capacity >= capacity;
        if (isCopied && !isOutrun)
            std::swap(table, grown);
        disposeTable(grown);
        if (!isCopied && !isOutrun)
            return false;
    }
    return true;
}

} // namespace

SInt32 GetDirectoryID(const char *path)
{
    if (!path || !*path)
        return table.count > 0 ? firstDirectoryID : 0;
    size_t length = lengthWithoutSeparator(path);
    UInt32 hash = hashOf(path, length);
    SInt32 place = findDirectory(hash, path, length);
    if (place >= 0)
        return place + firstDirectoryID;
    SInt32 known = table.count;
    if (!growTable())
        return 0;
    if (table.count != known)
        return GetDirectoryID(path);
    place = table.count++;
    Directory &directory = table.at(place);
    directory.hash = hash;
    memcpy(directory.path, path, length);
    directory.path[length] = 0;
    enterSlot(table.slotArray(), table.slotMask(), hash, place);
    return place + firstDirectoryID;
}

const char *files::directoryPath(SInt32 dirID)
{
    SInt32 place = dirID - firstDirectoryID;
    return place >= 0 && place < table.count ? table.at(place).path : nullptr;
}

void MTBX_DirPathFromID(SInt32 dirID, StringPtr path)
{
    const char *found = files::directoryPath(dirID);
    files::copyPascal(found ? found : "", path);
}

OSErr OpenWD(SInt16, SInt32 dirID, SInt32, SInt16 *wdRefNum)
{
    if (files::directoryPath(dirID))
        *wdRefNum = static_cast<SInt16>(dirID);
    return noErr;
}

// The reference is the low half of the ID; of several directories with the same low half the first counts.
OSErr GetWDInfo(SInt16 wdRefNum, SInt16 *vRefNum, SInt32 *dirID, SInt32 *procID)
{
    SInt32 found = static_cast<UInt16>(wdRefNum);
    if (found < firstDirectoryID)
        found += 0x10000;
    const char *path = files::directoryPath(found);
    if (!path)
        return noErr;
    *dirID = found;
    *procID = 0;
    *vRefNum = MTBX_VolumeRefFromPath(path);
    return noErr;
}

void MTBX_DisposeDirectoryTable()
{
    disposeTable(table);
    table = {};
}
