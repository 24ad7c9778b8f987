// Opening, closing and making files, and the position in them.
#include "OpenFiles_internal.h"

#include <mtbx/MacErrors.h>

#include <cstring>

namespace files {
namespace {

std::array<FileSlot, 64> openFiles;

struct Permission {
    DWORD access;
    DWORD share;
};

constexpr Permission permissions[] = {
    {GENERIC_READ | GENERIC_WRITE, 0},                                  // fsCurPerm
    {GENERIC_READ, FILE_SHARE_READ},                                    // fsRdPerm
    {GENERIC_WRITE, FILE_SHARE_READ},                                   // fsWrPerm
    {GENERIC_READ | GENERIC_WRITE, 0},                                  // fsRdWrPerm
    {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE}, // fsRdWrShPerm
};

HANDLE openNative(const char *path, Permission permission, DWORD disposition, DWORD flags)
{
    SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), nullptr, FALSE};
    HANDLE file = CreateFileA(path, permission.access, permission.share, &attributes, disposition, flags, nullptr);
    return file == INVALID_HANDLE_VALUE ? nullptr : file;
}

// The number of the slot that the file takes; 0 when all are taken.
SInt16 takeSlot(HANDLE file, const char *path, bool isOverlapped)
{
    FileSlot *slot = nullptr;
    for (FileSlot &candidate : openFiles) {
        if (candidate.file == file)
            return candidate.refNum;
        // A write that is still to be told of keeps its slot, although the file is closed.
        if (!slot && !candidate.file && !candidate.transfer.inUse)
            slot = &candidate;
    }
    if (!slot)
        return 0;
    *slot = {};
    slot->file = file;
    slot->refNum = static_cast<SInt16>(slot - openFiles.data() + 1);
    slot->isOverlapped = isOverlapped;
    appendBounded(slot->path, sizeof slot->path, path);
    return slot->refNum;
}

// A null file stands for a failure that the last error tells.
OSErr enterFile(HANDLE file, const char *path, bool isOverlapped, SInt16 *refNum)
{
    if (!file)
        return convertedLastError();
    *refNum = takeSlot(file, path, isOverlapped);
    if (*refNum != 0)
        return noErr;
    CloseHandle(file);
    return tmfoErr;
}

} // namespace

FileSlot *findOpenFile(SInt16 refNum)
{
    bool isSlot = refNum >= 1 && static_cast<size_t>(refNum) <= openFiles.size();
    FileSlot *slot = isSlot ? &openFiles[static_cast<size_t>(refNum - 1)] : nullptr;
    return slot && slot->file ? slot : nullptr;
}

const char *openFilePath(SInt16 refNum)
{
    FileSlot *file = findOpenFile(refNum);
    return file ? file->path : nullptr;
}

bool nativePosition(const FileSlot &file, UInt64 &position)
{
    LARGE_INTEGER distance{}, found;
    if (!SetFilePointerEx(file.file, distance, &found, FILE_CURRENT))
        return false;
    position = static_cast<UInt64>(found.QuadPart);
    return true;
}

OSErr convertedLastError()
{
    return static_cast<OSErr>(MTBX_GetLastError());
}

} // namespace files

using namespace files;

OSErr MTBX_FSOpen(ConstStr255Param path, SInt16, Boolean overlapped, SInt16 *refNum)
{
    char name[256];
    copyName(path, name);
    *refNum = 0;
    DWORD flags = FILE_FLAG_RANDOM_ACCESS | FILE_ATTRIBUTE_NORMAL;
    if (overlapped)
        flags |= FILE_FLAG_OVERLAPPED | FILE_FLAG_NO_BUFFERING;
    HANDLE file = openNative(name, {GENERIC_READ | GENERIC_WRITE, 0}, OPEN_EXISTING, flags);
    // A file that is read-only, or open elsewhere, can still be read.
    if (!file)
        file = openNative(name, {GENERIC_READ, FILE_SHARE_READ}, OPEN_EXISTING, flags);
    return enterFile(file, name, overlapped, refNum);
}

OSErr MTBX_HOpen(SInt16, SInt32 dirID, ConstStr255Param name, SInt8 permission, Boolean overlapped, SInt16 *refNum)
{
    char path[pathSize];
    *refNum = 0;
    if (OSErr error = buildPath(dirID, name, path))
        return error;
    DWORD flags = FILE_FLAG_RANDOM_ACCESS | FILE_ATTRIBUTE_NORMAL;
    if (overlapped)
        flags |= FILE_FLAG_OVERLAPPED;
    bool isKnown = permission >= fsCurPerm && permission <= fsRdWrShPerm;
    Permission wanted = isKnown ? permissions[permission] : Permission{0, 0};
    return enterFile(openNative(path, wanted, OPEN_EXISTING, flags), path, overlapped, refNum);
}

OSErr HOpen(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, SInt8 permission, SInt16 *refNum)
{
    return MTBX_HOpen(vRefNum, dirID, name, permission, false, refNum);
}

OSErr MTBX_FSpOpenForRead(const FSSpec *spec, SInt8, SInt16 *refNum)
{
    Str255 path;
    FSSpecToPathName(spec, path, sizeof path);
    return MTBX_FSOpen(path, 0, false, refNum);
}

OSErr HCreate(SInt16, SInt32 dirID, ConstStr255Param name, OSType, OSType)
{
    char path[pathSize];
    if (OSErr error = buildPath(dirID, name, path))
        return error;
    HANDLE file = openNative(path, permissions[fsRdWrPerm], CREATE_NEW, FILE_ATTRIBUTE_NORMAL);
    if (!file)
        return convertedLastError();
    CloseHandle(file);
    return noErr;
}

OSErr FSClose(SInt16 refNum)
{
    FileSlot *slot = findOpenFile(refNum);
    if (!slot)
        return rfNumErr;
    CloseHandle(slot->file);
    slot->file = nullptr;
    slot->refNum = 0;
    slot->path[0] = 0;
    return noErr;
}

HANDLE MTBX_GetFileHandle(SInt16 refNum)
{
    FileSlot *slot = findOpenFile(refNum);
    return slot ? slot->file : nullptr;
}

OSErr SetFPos(SInt16 refNum, SInt16 mode, SInt32 offset)
{
    constexpr DWORD methods[] = {FILE_CURRENT, FILE_BEGIN, FILE_END, FILE_CURRENT};
    FileSlot *slot = findOpenFile(refNum);
    if (!slot)
        return convertedLastError();
    bool isKnown = mode >= fsAtMark && mode <= fsFromMark;
    DWORD method = isKnown ? methods[mode] : static_cast<DWORD>(mode);
    SetLastError(NO_ERROR);
    DWORD position = SetFilePointer(slot->file, mode == fsAtMark ? 0 : offset, nullptr, method);
    bool failed = position == INVALID_SET_FILE_POINTER && GetLastError() != NO_ERROR;
    return failed ? convertedLastError() : OSErr{noErr};
}

OSErr GetFPos(SInt16 refNum, SInt32 *position)
{
    FileSlot *slot = findOpenFile(refNum);
    UInt64 found;
    if (!slot || !nativePosition(*slot, found))
        return rfNumErr;
    *position = static_cast<SInt32>(found);
    return noErr;
}

OSErr SetEOF(SInt16 refNum, SInt32 length)
{
    FileSlot *slot = findOpenFile(refNum);
    if (!slot)
        return rfNumErr;
    SetLastError(NO_ERROR);
    DWORD position = SetFilePointer(slot->file, length, nullptr, FILE_BEGIN);
    // A length that cannot be reached must not cut the file where it happens to be.
    if (position != INVALID_SET_FILE_POINTER || GetLastError() == NO_ERROR)
        SetEndOfFile(slot->file);
    return noErr;
}
