// Entries of directories, by name or by number.
//
// Win32 only walks a directory forward, so the walk of the last answer is kept: the next number costs one
// step of it.
#include "Files_internal.h"

#include <mtbx/MacErrors.h>
#include <mtbx/OSUtils.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr DWORD searchLifetime = 2000; // milliseconds

struct IndexedSearch {
    HANDLE search = nullptr;
    WIN32_FIND_DATAA found;
    DWORD time;
    SInt32 directory;
    SInt16 index;
};

IndexedSearch cache;

bool isDots(const char *name)
{
    return strcmp(name, ".") == 0 || strcmp(name, "..") == 0;
}

// Goes on to the next entry that is no link to the directory itself or the one above.
bool step(IndexedSearch &search)
{
    do {
        if (!FindNextFileA(search.search, &search.found))
            return false;
    } while (isDots(search.found.cFileName));
    return true;
}

bool cacheServes(SInt32 directory, SInt16 index)
{
    return cache.search && cache.directory == directory && index == cache.index + 1
           && GetTickCount() - cache.time < searchLifetime;
}

// Begins a walk and stands on its first entry.
bool beginWalk(const char *pattern)
{
    MTBX_ClearIndexedFileNameCache();
    HANDLE search = FindFirstFileA(pattern, &cache.found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    cache.search = search;
    return !isDots(cache.found.cFileName) || step(cache);
}

// The path of the n-th entry; false past the last. A directory that is not known stands for the root of the
// current drive, here and by name.
bool indexedPath(SInt32 directory, SInt16 index, char *path)
{
    const char *folder = files::directoryPath(directory);
    char pattern[files::pathSize + 2] = "";
    files::appendBounded(pattern, sizeof pattern, folder ? folder : "");
    files::appendBounded(pattern, sizeof pattern, "\\*");
    bool found = cacheServes(directory, index);
    SInt16 steps = found ? SInt16{1} : static_cast<SInt16>(index - 1);
    if (!found)
        found = beginWalk(pattern);
    for (; found && steps > 0; --steps)
        found = step(cache);
    if (!found) {
        MTBX_ClearIndexedFileNameCache();
        return false;
    }
    cache.time = GetTickCount();
    cache.directory = directory;
    cache.index = index;
    pattern[strlen(pattern) - 1] = 0;
    path[0] = 0;
    files::appendBounded(path, files::pathSize, pattern);
    files::appendBounded(path, files::pathSize, cache.found.cFileName);
    return true;
}

// The path of a name, which may be a full path itself; a backslash at its end does not count.
void namedPath(SInt32 directory, ConstStr255Param name, char *path)
{
    char text[256];
    files::copyName(name, text);
    const char *separator = files::lastSeparator(text);
    if (separator && separator[1] == 0)
        text[separator - text] = 0;
    path[0] = 0;
    if (!files::lastSeparator(text)) {
        const char *folder = files::directoryPath(directory);
        files::appendBounded(path, files::pathSize, folder ? folder : "");
        files::appendBounded(path, files::pathSize, "\\");
    }
    files::appendBounded(path, files::pathSize, text);
}

// Leaves the result alone when the time cannot be converted.
template <class Seconds> void storeTime(const FILETIME &time, Seconds &result)
{
    FILETIME local;
    SYSTEMTIME parts;
    if (!FileTimeToLocalFileTime(&time, &local) || !FileTimeToSystemTime(&local, &parts))
        return;
    DateTimeRec record = {static_cast<SInt16>(parts.wYear),         static_cast<SInt16>(parts.wMonth),
                          static_cast<SInt16>(parts.wDay),          static_cast<SInt16>(parts.wHour),
                          static_cast<SInt16>(parts.wMinute),       static_cast<SInt16>(parts.wSecond),
                          static_cast<SInt16>(parts.wDayOfWeek + 1)};
    UInt32 seconds;
    DateToSeconds(&record, &seconds);
    result = seconds;
}

bool isLater(const FILETIME &left, const FILETIME &right)
{
    return CompareFileTime(&left, &right) > 0;
}

// A null entry is looked for on the disk.
OSErr describeFile(const char *path, const WIN32_FIND_DATAA *known, HFileInfo &file)
{
    constexpr UInt16 invisible = 0x4000;
    WIN32_FIND_DATAA found{};
    // Entering the parent may run the host's grow-zone function, which may walk a directory itself.
    if (known)
        found = *known;
    file.ioFlAttrib = 0;
    file.ioDirID = 0;
    file.ioFRefNum = 0;
    file.ioFlParID = GetParentDirectoryID(path);
    if (!known) {
        HANDLE search = FindFirstFileA(path, &found);
        if (search == INVALID_HANDLE_VALUE)
            return static_cast<OSErr>(MTBX_GetLastError());
        FindClose(search);
    }
    file.ioFlLgLen = file.ioFlPyLen = static_cast<SInt32>(found.nFileSizeLow);
    file.ioFlRLgLen = file.ioFlRPyLen = 0;
    file.ioFlFndrInfo.fdType = 0;
    file.ioFlFndrInfo.fdCreator = 0;
    if (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN)
        file.ioFlFndrInfo.fdFlags |= invisible;
    UInt32 created = file.ioFlCrDat, written = file.ioFlMdDat;
    storeTime(found.ftCreationTime, created);
    storeTime(found.ftLastWriteTime, written);
    file.ioFlCrDat = created;
    file.ioFlMdDat = written;
    return noErr;
}

struct DirectoryDetails {
    FILETIME created{}, written{};
    UInt32 entries = 0;
};

DirectoryDetails directoryDetails(const char *path)
{
    DirectoryDetails details;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(path, &found);
    if (search != INVALID_HANDLE_VALUE) {
        FindClose(search);
        details.created = found.ftCreationTime;
        details.written = found.ftLastWriteTime;
    }
    char pattern[files::pathSize + 2] = "";
    files::appendBounded(pattern, sizeof pattern, path);
    files::appendBounded(pattern, sizeof pattern, "\\*");
    search = FindFirstFileA(pattern, &found);
    if (search == INVALID_HANDLE_VALUE)
        return details;
    do {
        if (isDots(found.cFileName))
            continue;
        ++details.entries;
        if (isLater(found.ftLastWriteTime, details.written))
            details.written = found.ftLastWriteTime;
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return details;
}

OSErr describeDirectory(const char *path, DirInfo &directory)
{
    constexpr SInt8 isDirectory = 16;
    directory.ioFlAttrib = isDirectory;
    directory.ioACUser = 0;
    directory.ioDrDirID = GetDirectoryID(path);
    directory.ioDrParID = GetParentDirectoryID(path);
    DirectoryDetails details = directoryDetails(path);
    UInt32 created = directory.ioDrCrDat, written = directory.ioDrMdDat;
    storeTime(details.created, created);
    storeTime(details.written, written);
    directory.ioDrCrDat = created;
    directory.ioDrMdDat = written;
    directory.ioDrNmFls = static_cast<UInt16>(std::min<UInt32>(details.entries, 65535));
    return noErr;
}

// Which entry is meant, and whether it is a directory without a look at the disk. fnfErr past the last.
OSErr findPath(const HFileInfo &file, char *path, bool &isDirectory)
{
    isDirectory = false;
    if (file.ioFDirIndex > 0)
        return indexedPath(file.ioDirID, file.ioFDirIndex, path) ? OSErr{noErr} : OSErr{fnfErr};
    if (file.ioFDirIndex == 0) {
        namedPath(file.ioDirID, file.ioNamePtr, path);
        return noErr;
    }
    isDirectory = true;
    path[0] = 0;
    if (file.ioDirID == 0)
        GetCurrentDirectoryA(files::pathSize, path);
    else if (const char *found = files::directoryPath(file.ioDirID))
        files::appendBounded(path, files::pathSize, found);
    return noErr;
}

// A name that the system cannot look up is taken for a file, and reported when that is not found.
OSErr askKind(const char *path, bool &isDirectory)
{
    DWORD attributes = GetFileAttributesA(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        DWORD error = GetLastError();
        bool isOpen = error == ERROR_INVALID_NAME || error == NO_ERROR;
        return isOpen ? OSErr{noErr} : static_cast<OSErr>(MTBX_ConvertError(error));
    }
    isDirectory = attributes & FILE_ATTRIBUTE_DIRECTORY;
    return noErr;
}

OSErr describe(CInfoPBRec &block)
{
    char path[files::pathSize], leaf[files::pathSize];
    bool isDirectory;
    OSErr error = findPath(block.hFileInfo, path, isDirectory);
    if (error)
        return error;
    if (StringPtr name = block.hFileInfo.ioNamePtr) {
        MTBX_LeafName(path, leaf);
        files::copyPascal(leaf, name);
    }
    // The step of the walk that found an entry has told all about it.
    const WIN32_FIND_DATAA *known = block.hFileInfo.ioFDirIndex > 0 ? &cache.found : nullptr;
    if (known)
        isDirectory = known->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
    else if (!isDirectory)
        error = askKind(path, isDirectory);
    if (error)
        return error;
    return isDirectory ? describeDirectory(path, block.dirInfo) : describeFile(path, known, block.hFileInfo);
}

} // namespace

OSErr PBGetCatInfoSync(CInfoPBPtr paramBlock)
{
    return paramBlock->hFileInfo.ioResult = describe(*paramBlock);
}

OSErr MTBX_ClearIndexedFileNameCache()
{
    HANDLE search = cache.search;
    cache.search = nullptr;
    if (search && !FindClose(search))
        return static_cast<OSErr>(MTBX_GetLastError());
    return noErr;
}
