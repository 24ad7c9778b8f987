// Opening files, moving their bytes, their position and size.
#include "file_object.h"

#include "descriptor.h"
#include "faults.h"
#include "file_information.h"
#include "file_names.h"
#include "file_time.h"
#include "folder_cache.h"
#include "paths.h"
#include "share_locks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <string>

namespace win32 {
namespace {

constexpr DWORD sectorSize = 512;

bool wantsRead(DWORD access)
{
    return access & (GENERIC_READ | GENERIC_EXECUTE | GENERIC_ALL);
}

bool wantsWrite(DWORD access)
{
    return access & (GENERIC_WRITE | GENERIC_ALL);
}

// Share modes are shown by locks, which need a descriptor that can read.
Descriptor openForAccess(const char *path, DWORD access, int extra, mode_t mode)
{
    int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK | extra;
    if (!wantsWrite(access))
        return Descriptor(open(path, flags | O_RDONLY, mode));
    int file = open(path, flags | O_RDWR, mode);
    bool mayOnlyWrite = file < 0 && errno == EACCES && !wantsRead(access);
    return Descriptor(mayOnlyWrite ? open(path, flags | O_WRONLY, mode) : file);
}

struct Opening {
    DWORD access;
    DWORD share;
    DWORD disposition;
    DWORD flags;
    bool existed = false;
    std::string made; // the Unix path of a file that was not there before
};

bool empties(const Opening &opening)
{
    return opening.existed && (opening.disposition == CREATE_ALWAYS || opening.disposition == TRUNCATE_EXISTING);
}

DWORD refusal(int file, const Opening &opening)
{
    struct stat status;
    if (fstat(file, &status) != 0)
        return errorFromErrno(errno);
    if (S_ISDIR(status.st_mode))
        return ERROR_ACCESS_DENIED;
    if (opening.existed && (empties(opening) || wantsWrite(opening.access)) && isReadOnly(status.st_mode))
        return ERROR_ACCESS_DENIED;
    if (S_ISREG(status.st_mode) && !enterShareModes(file, opening.access, opening.share))
        return ERROR_SHARING_VIOLATION;
    return NO_ERROR;
}

// The device that swallows everything, in every folder and with any extension.
bool isNullDevice(std::string_view name)
{
    return name.size() >= 3 && _strnicmp(name.data(), "NUL", 3) == 0 && (name.size() == 3 || name[3] == '.');
}

// A new file is made under the literal name; an existing one of another case is found before.
Descriptor openOrCreate(const char *path, Opening &opening)
{
    FullPath full;
    std::string target;
    if (!fullPath(path, full) || !namesOneThing(full, target))
        return {};
    bool mayCreate = opening.disposition != OPEN_EXISTING && opening.disposition != TRUNCATE_EXISTING;
    std::string_view name = full.name();
    if (!names::isAllowed(name) || (full.mustBeFolder && mayCreate))
        return fail(ERROR_INVALID_NAME, Descriptor());
    if (isNullDevice(name))
        return openForAccess("/dev/null", opening.access, 0, 0);
    DWORD access = opening.disposition == CREATE_ALWAYS ? opening.access | GENERIC_WRITE : opening.access;
    bool mayExist = opening.disposition != CREATE_NEW;
    for (int attempt = 0; attempt < 3; ++attempt) {
        Descriptor file = openForAccess(target.c_str(), access, 0, 0);
        if (file < 0 && (errno == ENOENT || errno == ENOTDIR)) {
            target = unixPathOnDisk(full);
            file = openForAccess(target.c_str(), access, 0, 0);
        }
        if (file >= 0 || (errno != ENOENT && errno != ENOTDIR)) {
            opening.existed = true;
            if (!mayExist)
                return fail(ERROR_FILE_EXISTS, Descriptor());
            if (file < 0)
                SetLastError(errorFromErrno(errno));
            return file;
        }
        if (!mayCreate || errno == ENOTDIR)
            return fail(missingError(target), Descriptor());
        mode_t mode = opening.flags & FILE_ATTRIBUTE_READONLY ? 0444 : 0666;
        file = openForAccess(target.c_str(), GENERIC_READ | GENERIC_WRITE, O_CREAT | O_EXCL, mode);
        if (file >= 0) {
            noteMade(target);
            if (opening.flags & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM))
                setFileAttributes(target.c_str(), opening.flags);
            opening.made = std::move(target);
            return file;
        }
        // Somebody else has made it in between: then it is there to be opened.
        if (errno != EEXIST)
            return fail(pathError(errno, target), Descriptor());
    }
    return fail(ERROR_SHARING_VIOLATION, Descriptor());
}

// The old content goes last, when nothing else can fail any more.
HANDLE handleOf(Descriptor descriptor, const Opening &opening)
{
    if (DWORD reason = refusal(descriptor, opening))
        return fail(reason, INVALID_HANDLE_VALUE);
    int number = descriptor;
    HANDLE handle = handleFor(new FileObject(descriptor.release(), opening.access, opening.flags));
    if (!handle)
        return INVALID_HANDLE_VALUE;
    struct stat status;
    if (empties(opening) && fstat(number, &status) == 0 && S_ISREG(status.st_mode) && ftruncate(number, 0) != 0) {
        DWORD reason = errorFromErrno(errno);
        CloseHandle(handle);
        return fail(reason, INVALID_HANDLE_VALUE);
    }
    return handle;
}

HANDLE createFile(LPCSTR path, Opening opening)
{
    Descriptor descriptor = openOrCreate(path, opening);
    if (descriptor < 0)
        return INVALID_HANDLE_VALUE;
    HANDLE handle = guarded(INVALID_HANDLE_VALUE, [&] { return handleOf(std::move(descriptor), opening); });
    if (handle == INVALID_HANDLE_VALUE) {
        if (!opening.made.empty())
            unlink(opening.made.c_str());
        return handle;
    }
    bool tellsExisted = opening.existed && (opening.disposition == CREATE_ALWAYS || opening.disposition == OPEN_ALWAYS);
    SetLastError(tellsExisted ? ERROR_ALREADY_EXISTS : NO_ERROR);
    return handle;
}

int64_t offsetOf(const OVERLAPPED &overlapped)
{
    return static_cast<int64_t>(static_cast<uint64_t>(overlapped.OffsetHigh) << 32 | overlapped.Offset);
}

// A transfer at the file's position, or at the place that an OVERLAPPED names, done before the call
// returns. Reading at the end of the file is an error only for the latter.
BOOL transferInCall(FileObject &file, bool writes, void *buffer, DWORD size, LPDWORD count, LPOVERLAPPED overlapped)
{
    std::lock_guard lock(file.mutex);
    int64_t offset = overlapped ? offsetOf(*overlapped) : file.position;
    DWORD moved = 0;
    DWORD reason = transferNow(file, writes, buffer, size, offset, moved);
    file.position = offset + moved;
    if (count)
        *count = moved;
    if (overlapped) {
        overlapped->InternalHigh = moved;
        overlapped->Internal = 0;
        if (!reason && !writes && moved == 0 && size > 0)
            reason = ERROR_HANDLE_EOF;
    }
    return reason ? fail(reason, FALSE) : TRUE;
}

BOOL transfer(HANDLE handle, bool writes, void *buffer, DWORD size, LPDWORD count, LPOVERLAPPED overlapped)
{
    if (count)
        *count = 0;
    Ref<FileObject> file = acquireFile(handle);
    if (!file)
        return FALSE;
    if (writes ? !file->canWrite() : !file->canRead())
        return fail(ERROR_ACCESS_DENIED, FALSE);
    bool isAsynchronous = file->isOverlapped();
    if (isAsynchronous && !overlapped)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    if (!isAsynchronous)
        return transferInCall(*file, writes, buffer, size, count, overlapped);
    if (!startTransfer(std::move(file), writes, buffer, size, overlapped, nullptr))
        return FALSE;
    return fail(ERROR_IO_PENDING, FALSE);
}

BOOL transferWithRoutine(HANDLE handle, bool writes, void *buffer, DWORD size, LPOVERLAPPED overlapped,
                         LPOVERLAPPED_COMPLETION_ROUTINE routine)
{
    Ref<FileObject> file = acquireFile(handle);
    if (!file)
        return FALSE;
    if (writes ? !file->canWrite() : !file->canRead())
        return fail(ERROR_ACCESS_DENIED, FALSE);
    if (!file->isOverlapped() || !overlapped || !routine)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    if (!startTransfer(std::move(file), writes, buffer, size, overlapped, routine))
        return FALSE;
    SetLastError(NO_ERROR);
    return TRUE;
}

bool fileSize(const FileObject &file, int64_t &size)
{
    struct stat status;
    if (fstat(file.descriptor(), &status) != 0)
        return fail(errorFromErrno(errno), false);
    size = status.st_size;
    return true;
}

// The new position, -1 with the last error.
int64_t moveTo(FileObject &file, int64_t distance, DWORD method, int64_t furthest = INT64_MAX)
{
    std::lock_guard lock(file.mutex);
    int64_t base = 0;
    if (method == FILE_CURRENT)
        base = file.position;
    else if (method == FILE_END && !fileSize(file, base))
        return -1;
    else if (method > FILE_END)
        return fail(ERROR_INVALID_PARAMETER, int64_t{-1});
    int64_t target;
    if (__builtin_add_overflow(base, distance, &target))
        return fail(ERROR_INVALID_PARAMETER, int64_t{-1});
    if (target < 0)
        return fail(ERROR_NEGATIVE_SEEK, int64_t{-1});
    if (target > furthest || !file.allows(nullptr, 0, target))
        return fail(ERROR_INVALID_PARAMETER, int64_t{-1});
    file.position = target;
    return target;
}

// All bits clear, or all set, stand for no change, as a null pointer does.
timespec timeToSet(const FILETIME *time)
{
    bool none = !time || (time->dwLowDateTime == 0 && time->dwHighDateTime == 0)
                || (time->dwLowDateTime & time->dwHighDateTime) == 0xffffffff;
    return none ? timespec{0, UTIME_OMIT} : timespecFrom(*time);
}

} // namespace

FileObject::~FileObject()
{
    close(descriptor_);
}

void FileObject::closed()
{
    if (isOverlapped())
        cancelTransfers(*this);
}

bool FileObject::allows(const void *buffer, DWORD size, int64_t offset) const
{
    if (!(flags_ & FILE_FLAG_NO_BUFFERING))
        return true;
    return (reinterpret_cast<uintptr_t>(buffer) | size | static_cast<uint64_t>(offset)) % sectorSize == 0;
}

DWORD transferNow(const FileObject &file, bool writes, void *buffer, DWORD size, int64_t offset, DWORD &count)
{
    count = 0;
    if (!file.allows(buffer, size, offset))
        return ERROR_INVALID_PARAMETER;
    if (writes && faults::fails("WriteFile"))
        return GetLastError();
    if (!writes && faults::fails("ReadFile"))
        return GetLastError();
    auto bytes = static_cast<char *>(buffer);
    while (count < size) {
        ssize_t moved = writes ? pwrite(file.descriptor(), bytes + count, size - count, offset + count)
                               : pread(file.descriptor(), bytes + count, size - count, offset + count);
        if (moved < 0 && errno == EINTR)
            continue;
        if (moved < 0)
            return count > 0 && !writes ? DWORD{NO_ERROR} : errorFromErrno(errno);
        if (moved == 0)
            break;
        count += static_cast<DWORD>(moved);
    }
    return NO_ERROR;
}

} // namespace win32

using namespace win32;

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES, DWORD disposition, DWORD flags,
                   HANDLE)
{
    if (faults::fails("CreateFileA"))
        return INVALID_HANDLE_VALUE;
    bool mayNotEmpty = disposition == TRUNCATE_EXISTING && !wantsWrite(access);
    if (disposition < CREATE_NEW || disposition > TRUNCATE_EXISTING || mayNotEmpty)
        return fail(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    return guarded(INVALID_HANDLE_VALUE, [&] {
        return createFile(path, {access, share, disposition, flags, false, {}});
    });
}

BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD count, LPOVERLAPPED overlapped)
{
    return guarded(FALSE, [&] { return transfer(file, false, buffer, size, count, overlapped); });
}

BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD count, LPOVERLAPPED overlapped)
{
    return guarded(FALSE, [&] { return transfer(file, true, const_cast<LPVOID>(buffer), size, count, overlapped); });
}

BOOL ReadFileEx(HANDLE file, LPVOID buffer, DWORD size, LPOVERLAPPED overlapped,
                LPOVERLAPPED_COMPLETION_ROUTINE routine)
{
    return guarded(FALSE, [&] { return transferWithRoutine(file, false, buffer, size, overlapped, routine); });
}

BOOL WriteFileEx(HANDLE file, LPCVOID buffer, DWORD size, LPOVERLAPPED overlapped,
                 LPOVERLAPPED_COMPLETION_ROUTINE routine)
{
    return guarded(
        FALSE, [&] { return transferWithRoutine(file, true, const_cast<LPVOID>(buffer), size, overlapped, routine); });
}

DWORD SetFilePointer(HANDLE handle, LONG distance, PLONG distanceHigh, DWORD method)
{
    Ref<FileObject> file = acquireFile(handle);
    if (!file)
        return INVALID_SET_FILE_POINTER;
    int64_t whole = distance;
    if (distanceHigh)
        whole = static_cast<int64_t>(static_cast<uint64_t>(static_cast<DWORD>(*distanceHigh)) << 32
                                     | static_cast<DWORD>(distance));
    // A position that the caller could not be told is not taken.
    int64_t position = moveTo(*file, whole, method, distanceHigh ? INT64_MAX : int64_t{UINT32_MAX});
    if (position < 0)
        return INVALID_SET_FILE_POINTER;
    if (distanceHigh)
        *distanceHigh = static_cast<LONG>(position >> 32);
    // A low half of all ones is told from a failure by the last error.
    if (static_cast<DWORD>(position) == INVALID_SET_FILE_POINTER)
        SetLastError(NO_ERROR);
    return static_cast<DWORD>(position);
}

BOOL SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, PLARGE_INTEGER position, DWORD method)
{
    Ref<FileObject> file = acquireFile(handle);
    int64_t moved = file ? moveTo(*file, distance.QuadPart, method) : -1;
    if (moved >= 0 && position)
        position->QuadPart = moved;
    return moved >= 0;
}

BOOL SetEndOfFile(HANDLE handle)
{
    Ref<FileObject> file = acquireFile(handle);
    if (!file)
        return FALSE;
    if (!file->canWrite())
        return fail(ERROR_ACCESS_DENIED, FALSE);
    std::lock_guard lock(file->mutex);
    return ftruncate(file->descriptor(), file->position) == 0 ? TRUE : fail(errorFromErrno(errno), FALSE);
}

BOOL FlushFileBuffers(HANDLE handle)
{
    Ref<FileObject> file = acquireFile(handle);
    if (!file)
        return FALSE;
    if (!file->canWrite())
        return fail(ERROR_ACCESS_DENIED, FALSE);
    return fsync(file->descriptor()) == 0 ? TRUE : fail(errorFromErrno(errno), FALSE);
}

BOOL GetFileSizeEx(HANDLE handle, PLARGE_INTEGER size)
{
    Ref<FileObject> file = acquireFile(handle);
    int64_t bytes;
    if (!file || !fileSize(*file, bytes))
        return FALSE;
    size->QuadPart = bytes;
    return TRUE;
}

DWORD GetFileSize(HANDLE handle, LPDWORD sizeHigh)
{
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle, &size))
        return INVALID_FILE_SIZE;
    if (sizeHigh)
        *sizeHigh = static_cast<DWORD>(size.HighPart);
    if (size.LowPart == INVALID_FILE_SIZE)
        SetLastError(NO_ERROR);
    return size.LowPart;
}

BOOL GetFileTime(HANDLE handle, LPFILETIME created, LPFILETIME accessed, LPFILETIME written)
{
    Ref<FileObject> file = acquireFile(handle);
    if (!file)
        return FALSE;
    char path[32];
    snprintf(path, sizeof path, "/proc/self/fd/%d", file->descriptor());
    FileInformation information;
    if (!fileInformation(path, information))
        return fail(errorFromErrno(errno), FALSE);
    if (created)
        *created = information.created;
    if (accessed)
        *accessed = information.accessed;
    if (written)
        *written = information.written;
    return TRUE;
}

// The time of creation is the file system's own and cannot be set.
BOOL SetFileTime(HANDLE handle, const FILETIME *, const FILETIME *accessed, const FILETIME *written)
{
    Ref<FileObject> file = acquireFile(handle);
    if (!file)
        return FALSE;
    timespec times[2] = {timeToSet(accessed), timeToSet(written)};
    return futimens(file->descriptor(), times) == 0 ? TRUE : fail(errorFromErrno(errno), FALSE);
}
