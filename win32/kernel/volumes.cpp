// Drives and the room on them.
#include "drives.h"
#include "faults.h"
#include "kernel_internal.h"
#include "paths.h"

#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <string>

namespace {

using namespace win32;

struct Room {
    uint64_t blockSize, total, free, freeToCaller; // counts of blocks
};

// A null path is the current directory.
bool roomAt(LPCSTR path, Room &room)
{
    struct statvfs status;
    if (onPath(path ? path : ".", [&](const char *unixName) { return statvfs(unixName, &status); }) < 0) {
        // A drive or folder that is not there is a path that is not there.
        return GetLastError() == ERROR_FILE_NOT_FOUND ? fail(ERROR_PATH_NOT_FOUND, false) : false;
    }
    room = {status.f_frsize ? status.f_frsize : status.f_bsize, status.f_blocks, status.f_bfree, status.f_bavail};
    return true;
}

void store(PULARGE_INTEGER result, uint64_t value)
{
    if (result)
        result->QuadPart = value;
}

void store(LPDWORD result, uint64_t value)
{
    if (result)
        *result = static_cast<DWORD>(std::min<uint64_t>(value, 0xffffffff));
}

} // namespace

DWORD GetLogicalDrives()
{
    return guarded(DWORD{0}, [] { return driveMask(); });
}

DWORD GetLogicalDriveStringsA(DWORD size, LPSTR buffer)
{
    return guarded(DWORD{0}, [&]() -> DWORD {
        std::string text;
        DWORD mask = driveMask();
        for (char letter = 'A'; letter <= 'Z'; ++letter) {
            if (mask & 1u << (letter - 'A'))
                text.append({letter, ':', '\\', '\0'});
        }
        if (!buffer || size <= text.size())
            return static_cast<DWORD>(text.size() + 1);
        std::copy_n(text.c_str(), text.size() + 1, buffer);
        return static_cast<DWORD>(text.size());
    });
}

UINT GetDriveTypeA(LPCSTR root)
{
    return guarded(UINT{DRIVE_UNKNOWN}, [&]() -> UINT {
        struct stat status;
        DWORD before = GetLastError();
        bool exists = onPath(root ? root : "\\", [&](const char *unixName) { return stat(unixName, &status); }) >= 0;
        SetLastError(before);
        return exists && S_ISDIR(status.st_mode) ? DRIVE_FIXED : DRIVE_NO_ROOT_DIR;
    });
}

BOOL GetDiskFreeSpaceExA(LPCSTR folder, PULARGE_INTEGER freeToCaller, PULARGE_INTEGER total, PULARGE_INTEGER totalFree)
{
    if (faults::fails("GetDiskFreeSpaceExA"))
        return FALSE;
    return guarded(FALSE, [&]() -> BOOL {
        Room room;
        if (!roomAt(folder, room))
            return FALSE;
        store(freeToCaller, room.freeToCaller * room.blockSize);
        store(total, room.total * room.blockSize);
        store(totalFree, room.free * room.blockSize);
        return TRUE;
    });
}

// The product of the three is right as far as the counts fit; a larger disk shows larger clusters.
BOOL GetDiskFreeSpaceA(LPCSTR root, LPDWORD sectorsPerCluster, LPDWORD bytesPerSector, LPDWORD freeClusters,
                       LPDWORD totalClusters)
{
    return guarded(FALSE, [&]() -> BOOL {
        constexpr uint64_t sector = 512;
        Room room;
        if (!roomAt(root, room))
            return FALSE;
        uint64_t sectors = std::max<uint64_t>(room.blockSize / sector, 1);
        for (; room.total > 0xffffffff; sectors *= 2) {
            room.total /= 2;
            room.freeToCaller /= 2;
        }
        store(sectorsPerCluster, sectors);
        store(bytesPerSector, sector);
        store(freeClusters, room.freeToCaller);
        store(totalClusters, room.total);
        return TRUE;
    });
}
