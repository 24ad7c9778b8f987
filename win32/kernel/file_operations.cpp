// Attributes, deleting, renaming, folders, and the current directory.
#include "descriptor.h"
#include "file_information.h"
#include "file_names.h"
#include "folder_cache.h"
#include "kernel_internal.h"
#include "paths.h"
#include "share_locks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

using namespace win32;

enum class NewThing { File, Folder };

// The path of something new: its folder as it is on disk, its name as the caller spells it. False when
// something of the name is there already, in any case, or cannot be made.
bool newUnixPath(LPCSTR path, NewThing kind, std::string &result)
{
    FullPath full;
    if (!fullPath(path, full))
        return false;
    if (full.components.empty())
        return fail(ERROR_ALREADY_EXISTS, false);
    if (full.hasWildcard() || !names::isAllowed(full.name()) || (full.mustBeFolder && kind == NewThing::File))
        return fail(ERROR_INVALID_NAME, false);
    result = unixPathOnDisk(full);
    struct stat status;
    return lstat(result.c_str(), &status) != 0 || fail(ERROR_ALREADY_EXISTS, false);
}

// A change of case alone finds the old file under the new name, and is no obstacle.
bool isSameFile(const std::string &left, const std::string &right)
{
    struct stat first, second;
    return lstat(left.c_str(), &first) == 0 && lstat(right.c_str(), &second) == 0 && first.st_dev == second.st_dev
           && first.st_ino == second.st_ino;
}

// Never over a file that another process has put there meanwhile, where the file system can promise it.
int renameWithoutReplacing(const std::string &from, const std::string &to)
{
    int result = renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
    if (result != 0 && (errno == EINVAL || errno == ENOSYS))
        result = rename(from.c_str(), to.c_str());
    return result;
}

bool copyBytes(int from, int to)
{
    char buffer[65536];
    for (;;) {
        ssize_t count = read(from, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count == 0;
        for (ssize_t done = 0; done < count;) {
            ssize_t written = write(to, buffer + done, static_cast<size_t>(count - done));
            if (written < 0 && errno != EINTR)
                return false;
            done += std::max<ssize_t>(written, 0);
        }
    }
}

// The copy bears its name only when it is whole, and only then the old file goes.
bool moveToOtherDisk(const std::string &source, const std::string &target, const struct stat &status)
{
    std::string temporary = target + ".moving-" + std::to_string(getpid());
    Descriptor from(open(source.c_str(), O_RDONLY | O_CLOEXEC));
    if (from < 0)
        return fail(errorFromErrno(errno), false);
    Descriptor to(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, status.st_mode & 0777));
    if (to < 0)
        return fail(pathError(errno, temporary), false);
    const timespec times[2] = {status.st_atim, status.st_mtim};
    bool moved = copyBytes(from, to) && fchmod(to, status.st_mode & 0777) == 0 && copyKeptAttributes(from, to)
                 && futimens(to, times) == 0 && to.close() && renameWithoutReplacing(temporary, target) == 0;
    if (!moved) {
        DWORD error = errorFromErrno(errno);
        unlink(temporary.c_str());
        return fail(error, false);
    }
    return unlink(source.c_str()) == 0 || fail(errorFromErrno(errno), false);
}

BOOL moveFile(LPCSTR from, LPCSTR to)
{
    std::string source, target;
    struct stat status;
    FullPath full;
    if (!fullPath(from, full) || !namesOneThing(full, source))
        return FALSE;
    if (lstat(source.c_str(), &status) != 0) {
        source = unixPathOnDisk(full);
        if (lstat(source.c_str(), &status) != 0)
            return fail(pathError(errno, source), FALSE);
    }
    if (S_ISREG(status.st_mode) && deniesDeletion(source.c_str()))
        return fail(ERROR_SHARING_VIOLATION, FALSE);
    if (!newUnixPath(to, S_ISDIR(status.st_mode) ? NewThing::Folder : NewThing::File, target)) {
        if (GetLastError() != ERROR_ALREADY_EXISTS || !isSameFile(source, target))
            return FALSE;
        fullPath(to, full);
        target.resize(target.rfind('/') + 1);
        target += names::diskFromAnsi(full.name());
    }
    if (renameWithoutReplacing(source, target) != 0) {
        if (errno != EXDEV)
            return fail(pathError(errno, target), FALSE);
        if (!S_ISREG(status.st_mode))
            return fail(ERROR_NOT_SAME_DEVICE, FALSE);
        if (!moveToOtherDisk(source, target, status))
            return FALSE;
    }
    noteMade(target);
    return TRUE;
}

// Runs an operation that works on folders only, and tells of a file in a folder's place.
BOOL onFolder(LPCSTR path, int (*operation)(const char *))
{
    if (!path || !*path)
        return fail(ERROR_INVALID_NAME, FALSE);
    return guarded(FALSE, [&]() -> BOOL {
        bool isNoFolder = false;
        int result = onPath(path, [&](const char *unixName) {
            int outcome = operation(unixName);
            struct stat status;
            isNoFolder = outcome != 0 && errno == ENOTDIR && lstat(unixName, &status) == 0;
            return isNoFolder ? 0 : outcome;
        });
        return isNoFolder ? fail(ERROR_DIRECTORY, FALSE) : result >= 0;
    });
}

} // namespace

DWORD win32::deletionRefusal(const char *path)
{
    struct stat status;
    if (lstat(path, &status) != 0)
        return NO_ERROR; // unlink tells why
    if (S_ISDIR(status.st_mode))
        return ERROR_ACCESS_DENIED;
    if (S_ISREG(status.st_mode) && isReadOnly(status.st_mode))
        return ERROR_ACCESS_DENIED;
    return S_ISREG(status.st_mode) && deniesDeletion(path) ? ERROR_SHARING_VIOLATION : NO_ERROR;
}

DWORD GetFileAttributesA(LPCSTR path)
{
    return guarded(INVALID_FILE_ATTRIBUTES, [&]() -> DWORD {
        FileInformation information;
        if (onPath(path, [&](const char *unixName) { return fileInformation(unixName, information) ? 0 : -1; }) < 0)
            return INVALID_FILE_ATTRIBUTES;
        return information.attributes;
    });
}

BOOL SetFileAttributesA(LPCSTR path, DWORD attributes)
{
    return guarded(FALSE, [&]() -> BOOL {
        return onPath(path, [&](const char *unixName) { return setFileAttributes(unixName, attributes) ? 0 : -1; })
               >= 0;
    });
}

BOOL DeleteFileA(LPCSTR path)
{
    return guarded(FALSE, [&]() -> BOOL {
        DWORD refusal = NO_ERROR;
        int result = onPath(path, [&](const char *unixName) {
            refusal = deletionRefusal(unixName);
            return refusal ? 0 : unlink(unixName);
        });
        return refusal ? fail(refusal, FALSE) : result >= 0;
    });
}

BOOL MoveFileA(LPCSTR from, LPCSTR to)
{
    return guarded(FALSE, [&] { return moveFile(from, to); });
}

BOOL CreateDirectoryA(LPCSTR path, LPSECURITY_ATTRIBUTES)
{
    return guarded(FALSE, [&]() -> BOOL {
        std::string target;
        if (!newUnixPath(path, NewThing::Folder, target))
            return FALSE;
        if (mkdir(target.c_str(), 0777) != 0)
            return fail(errno == ENOENT || errno == ENOTDIR ? DWORD{ERROR_PATH_NOT_FOUND} : errorFromErrno(errno),
                        FALSE);
        noteMade(target);
        return TRUE;
    });
}

BOOL RemoveDirectoryA(LPCSTR path)
{
    return onFolder(path, rmdir);
}

BOOL SetCurrentDirectoryA(LPCSTR path)
{
    return onFolder(path, chdir);
}

DWORD GetFullPathNameA(LPCSTR path, DWORD size, LPSTR buffer, LPSTR *namePart)
{
    return guarded(DWORD{0}, [&]() -> DWORD {
        FullPath full;
        if (!fullPath(path, full))
            return 0;
        std::string text = full.text();
        if (full.mustBeFolder)
            text += '\\';
        DWORD length = copyPathResult(text, buffer, size);
        bool hasName = !full.mustBeFolder && !full.components.empty();
        if (namePart && length < size)
            *namePart = hasName ? buffer + 2 + full.lastSeparator() + 1 : nullptr;
        return length;
    });
}
