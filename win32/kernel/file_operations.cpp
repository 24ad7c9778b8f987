// Attributes, deleting, renaming, folders, and the current directory.
#include "file_information.h"
#include "file_names.h"
#include "folder_cache.h"
#include "kernel_internal.h"
#include "paths.h"
#include "share_locks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

using namespace win32;

bool endsInSeparator(LPCSTR path)
{
    size_t length = strlen(path);
    return length > 0 && (path[length - 1] == '\\' || path[length - 1] == '/');
}

// The path of something new: its folder as it is on disk, its name as the caller spells it. False when
// something of the name is there already, in any case, or cannot be made.
bool newUnixPath(LPCSTR path, std::string &result)
{
    FullPath full;
    if (!fullPath(path, full))
        return false;
    size_t last = full.components.rfind('\\');
    if (last == std::string::npos)
        return fail(ERROR_ALREADY_EXISTS, false);
    if (!names::isAllowed(std::string_view(full.components).substr(last + 1)))
        return fail(ERROR_INVALID_NAME, false);
    result = unixPathOnDisk(full);
    struct stat status;
    return lstat(result.c_str(), &status) != 0 || fail(ERROR_ALREADY_EXISTS, false);
}

void noteMade(const std::string &unixPath)
{
    size_t slash = unixPath.rfind('/');
    noteMadeInFolder(slash ? unixPath.substr(0, slash) : "/", std::string_view(unixPath).substr(slash + 1));
}

DWORD deletionRefusal(const char *path)
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

// A change of case alone finds the old file under the new name, and is no obstacle.
bool isSameFile(const std::string &left, const std::string &right)
{
    struct stat first, second;
    return lstat(left.c_str(), &first) == 0 && lstat(right.c_str(), &second) == 0 && first.st_dev == second.st_dev
           && first.st_ino == second.st_ino;
}

BOOL moveFile(LPCSTR from, LPCSTR to)
{
    std::string source, target;
    struct stat status;
    if (!unixPath(from, source))
        return FALSE;
    if (lstat(source.c_str(), &status) != 0)
        return fail(pathError(errno, source), FALSE);
    if (S_ISREG(status.st_mode) && deniesDeletion(source.c_str()))
        return fail(ERROR_SHARING_VIOLATION, FALSE);
    if (!newUnixPath(to, target)) {
        if (GetLastError() != ERROR_ALREADY_EXISTS || !isSameFile(source, target))
            return FALSE;
        FullPath full;
        fullPath(to, full);
        size_t last = full.components.rfind('\\');
        target.resize(target.rfind('/') + 1);
        target += names::diskFromAnsi(std::string_view(full.components).substr(last + 1));
    }
    // Never over a file that another process has put there meanwhile, where the file system can promise it.
    int result = renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE);
    if (result != 0 && (errno == EINVAL || errno == ENOSYS))
        result = rename(source.c_str(), target.c_str());
    if (result != 0)
        return fail(pathError(errno, target), FALSE);
    noteMade(target);
    return TRUE;
}

// Runs an operation that works on folders only, and tells of a file in a folder's place.
BOOL onFolder(LPCSTR path, int (*operation)(const char *))
{
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

DWORD GetFileAttributesA(LPCSTR path)
{
    return guarded(INVALID_FILE_ATTRIBUTES, [&]() -> DWORD {
        if (strpbrk(path, "*?"))
            return fail(ERROR_INVALID_NAME, INVALID_FILE_ATTRIBUTES);
        FileInformation information;
        if (onPath(path, [&](const char *unixName) { return fileInformation(unixName, information) ? 0 : -1; }) < 0)
            return INVALID_FILE_ATTRIBUTES;
        // Only a folder can have a separator behind its name.
        if (endsInSeparator(path) && !(information.attributes & FILE_ATTRIBUTE_DIRECTORY))
            return fail(ERROR_PATH_NOT_FOUND, INVALID_FILE_ATTRIBUTES);
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
        if (!newUnixPath(path, target))
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
        if (endsInSeparator(path) && !full.components.empty())
            text += '\\';
        DWORD length = copyPathResult(text, buffer, size);
        if (namePart && length < size)
            *namePart = text.back() == '\\' ? nullptr : buffer + text.rfind('\\') + 1;
        return length;
    });
}
