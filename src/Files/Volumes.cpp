// Volumes: drives and network shares, numbered as they are first seen, and the room on them.
#include "Files_internal.h"
#include "QuietErrors.h"

#include <mtbx/MacErrors.h>
#include <mtbx/MacMemory.h>

#include <winnetwk.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <mbstring.h>
#include <string.h>

namespace {

constexpr size_t nameSize = 80;

struct Volume {
    char name[nameSize]; // "C:" or "\\server\share"
};

Handle volumes = nullptr; // of Volume; a reference is the place plus 1
SInt16 volumeCount = 0;
SInt16 defaultVolume = 0;

Volume *volumeArray()
{
    return reinterpret_cast<Volume *>(*volumes);
}

bool isUncPath(const char *path)
{
    return path[0] == '\\' && path[1] == '\\';
}

const char *firstSeparator(const char *path)
{
    return reinterpret_cast<const char *>(_mbschr(reinterpret_cast<const unsigned char *>(path), '\\'));
}

// "\\server\share" of a longer path; a path with fewer parts stays whole. A name that is too long for the
// table is cut, so that shares with the same long beginning count as one volume.
void volumeName(const char *path, char *name)
{
    size_t length = 2;
    if (isUncPath(path)) {
        const char *share = firstSeparator(path + 2);
        const char *end = share ? firstSeparator(share + 1) : nullptr;
        length = end ? static_cast<size_t>(end - path) : strlen(path);
    }
    length = std::min(std::min(length, strlen(path)), nameSize - 1);
    memcpy(name, path, length);
    name[length] = 0;
}

SInt16 findVolume(const char *name)
{
    for (SInt16 place = 0; place < volumeCount; ++place) {
        if (_stricmp(volumeArray()[place].name, name) == 0)
            return static_cast<SInt16>(place + 1);
    }
    return 0;
}

// The host's grow-zone function may run meanwhile and enter volumes, so the table is made before it is searched.
bool makeTable()
{
    if (volumes)
        return true;
    Handle made = NewHandle(0);
    if (volumes)
        DisposeHandle(made);
    else
        volumes = made;
    return volumes != nullptr;
}

SInt16 addVolume(const char *name)
{
    if (volumeCount == INT16_MAX)
        return 0;
    SetHandleSize(volumes, (volumeCount + 1) * static_cast<Size>(sizeof(Volume)));
    if (MemError() != noErr)
        return 0;
    memcpy(volumeArray()[volumeCount].name, name, strlen(name) + 1);
    return ++volumeCount;
}

const char *volumeNameOf(SInt16 vRefNum)
{
    return vRefNum >= 1 && vRefNum <= volumeCount ? volumeArray()[vRefNum - 1].name : nullptr;
}

struct Room {
    DWORD sectorsPerCluster, bytesPerSector, freeClusters, totalClusters;
};

// The larger call gives bytes; clusters are made up so that their counts fit in 31 bits.
Room roomFromBytes(UInt64 freeBytes, UInt64 totalBytes)
{
    constexpr UInt64 highestCount = 0x7FFFFFFF;
    UInt64 sectors = 1, bytes = 4096;
    UInt64 freeClusters, totalClusters;
    do {
        if (sectors < 32767)
            sectors *= 2;
        else
            bytes *= 2;
        freeClusters = freeBytes / sectors / bytes;
        totalClusters = totalBytes / sectors / bytes;
    } while (freeClusters > highestCount || totalClusters > highestCount);
    return {static_cast<DWORD>(sectors), static_cast<DWORD>(bytes), static_cast<DWORD>(freeClusters),
            static_cast<DWORD>(totalClusters)};
}

// False with the last error.
bool roomOn(const char *root, Room &room)
{
    using FreeSpaceEx = BOOL(WINAPI *)(LPCSTR, PULARGE_INTEGER, PULARGE_INTEGER, PULARGE_INTEGER);
    auto freeSpaceEx =
        reinterpret_cast<FreeSpaceEx>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "GetDiskFreeSpaceExA"));
    if (!freeSpaceEx)
        return GetDiskFreeSpaceA(root, &room.sectorsPerCluster, &room.bytesPerSector, &room.freeClusters,
                                 &room.totalClusters);
    ULARGE_INTEGER freeToCaller, total, free;
    if (!freeSpaceEx(root, &freeToCaller, &total, &free))
        return false;
    room = roomFromBytes(freeToCaller.QuadPart, total.QuadPart);
    return true;
}

// Connects a share to the first free drive letter for as long as the question takes.
bool roomThroughConnection(char *share, Room &room)
{
    DWORD taken = GetLogicalDrives() | 3;
    char letter = 'A';
    while (letter <= 'Z' && (taken & 1u << (letter - 'A')))
        ++letter;
    if (letter > 'Z')
        return false;
    char localName[] = {letter, ':', 0};
    char root[] = {letter, ':', '\\', 0};
    NETRESOURCEA resource{};
    resource.dwType = RESOURCETYPE_DISK;
    resource.lpLocalName = localName;
    resource.lpRemoteName = share;
    if (WNetAddConnection2A(&resource, nullptr, nullptr, 0) != NO_ERROR)
        return false;
    bool found = roomOn(root, room);
    WNetCancelConnection2A(localName, 0, FALSE);
    return found;
}

// 0, or the result code; a drive without a medium has no room and is no failure.
OSErr roomOf(const char *name, Room &room)
{
    char root[nameSize + 2];
    snprintf(root, sizeof root, "%s\\", name);
    room = {};
    if (roomOn(root, room))
        return noErr;
    DWORD error = GetLastError();
    char share[nameSize];
    memcpy(share, name, strlen(name) + 1);
    if (isUncPath(name) && roomThroughConnection(share, room))
        return noErr;
    room = {};
    return error == ERROR_NOT_READY ? OSErr{noErr} : static_cast<OSErr>(MTBX_ConvertError(error));
}

// Block counts of a volume are 16 bits wide, so large volumes show large blocks.
void storeRoom(const Room &room, HVolumeParam &volume)
{
    UInt64 blockSize = UInt64{room.sectorsPerCluster} * room.bytesPerSector;
    UInt64 total = room.totalClusters, free = room.freeClusters;
    while (total > 65535 || free >= 65536) {
        blockSize *= 2;
        total /= 2;
        free /= 2;
    }
    volume.ioVNmAlBlks = static_cast<UInt16>(total);
    volume.ioVFrBlk = static_cast<UInt16>(free);
    volume.ioVAlBlkSiz = blockSize >= 0x80000000 ? 0x7FFFFFFF : static_cast<UInt32>(blockSize);
}

// The n-th drive, counted from 1, as "C:"; false past the last.
bool driveNumber(SInt16 number, char *name)
{
    char drives[1024] = "";
    GetLogicalDriveStringsA(sizeof drives, drives);
    const char *drive = drives;
    while (--number > 0 && *drive)
        drive += strlen(drive) + 1;
    volumeName(drive, name);
    return *drive != 0;
}

// Settles which volume is meant. nsvErr past the last drive.
OSErr chooseVolume(HVolumeParam &volume)
{
    char name[256];
    if (volume.ioVolIndex > 0) {
        if (!driveNumber(volume.ioVolIndex, name))
            return nsvErr;
        volume.ioVRefNum = MTBX_VolumeRefFromPath(name);
    } else if (volume.ioVolIndex < 0) {
        StringPtr given = volume.ioNamePtr;
        files::copyName(given, name);
        volume.ioVRefNum = MTBX_VolumeRefFromPath(name);
    } else if (StringPtr given = volume.ioNamePtr) {
        given[0] = 0;
    }
    return noErr;
}

} // namespace

SInt16 MTBX_VolumeRefFromPath(const char *path)
{
    char current[files::pathSize] = "", name[nameSize];
    bool isRelative = !(path[0] && path[1] == ':') && !isUncPath(path);
    if (isRelative)
        GetCurrentDirectoryA(sizeof current, current);
    volumeName(isRelative ? current : path, name);
    if (!makeTable())
        return 0;
    SInt16 found = findVolume(name);
    return found ? found : addVolume(name);
}

void MTBX_DisposeVolumeTable()
{
    DisposeHandle(volumes);
    volumes = nullptr;
    volumeCount = 0;
    defaultVolume = 0;
}

OSErr GetVol(StringPtr name, SInt16 *vRefNum)
{
    if (defaultVolume == 0) {
        char current[files::pathSize] = "";
        GetCurrentDirectoryA(sizeof current, current);
        defaultVolume = MTBX_VolumeRefFromPath(current);
    }
    const char *found = volumeNameOf(defaultVolume);
    if (!found)
        return noErr;
    if (name)
        files::copyPascal(found, name);
    *vRefNum = defaultVolume;
    return noErr;
}

OSErr FlushVol(ConstStr255Param, SInt16)
{
    return noErr;
}

OSErr PBHGetVInfoSync(HParmBlkPtr paramBlock)
{
    HVolumeParam &volume = paramBlock->volumeParam;
    volume.ioResult = chooseVolume(volume);
    if (volume.ioResult != noErr)
        return volume.ioResult;
    char name[nameSize] = "";
    if (const char *found = volumeNameOf(volume.ioVRefNum))
        memcpy(name, found, strlen(found) + 1);
    if (StringPtr told = volume.ioNamePtr)
        files::copyPascal(name, told);
    volume.ioVAtrb = 0;
    volume.ioVFSID = 0;
    volume.ioVNmAlBlks = 0;
    volume.ioVFrBlk = 0;
    volume.ioVAlBlkSiz = 0;
    if (volume.ioVolIndex != 0)
        return noErr;
    QuietErrors noDialogs;
    Room room;
    volume.ioResult = roomOf(name, room);
    if (volume.ioResult == noErr)
        storeRoom(room, volume);
    return volume.ioResult;
}
