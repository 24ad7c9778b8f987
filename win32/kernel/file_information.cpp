#include "file_information.h"

#include "file_time.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <mutex>

namespace win32 {
namespace {

constexpr char attributeName[] = "user.DOSATTRIB";
constexpr DWORD keptAttributes =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_READONLY;

// Most files have no extended attribute, and each question costs a call of the system, so answers are
// kept. Setting the attribute changes the file's time of change; while that time is so young that a change
// might not show in it, nothing is kept.
struct KeptAttributes {
    uint64_t inode = 0;
    uint64_t device = 0;
    int64_t changed = 0;
    DWORD attributes = 0;
};

constexpr size_t keptCount = 1024;
constexpr int64_t youngNanoseconds = 20'000'000;
std::mutex keptMutex;
KeptAttributes kept[keptCount];

DWORD readExtendedAttributes(const char *path)
{
    char text[32];
    ssize_t length = getxattr(path, attributeName, text, sizeof text - 1);
    if (length <= 0)
        return 0;
    text[length] = 0;
    return static_cast<DWORD>(strtoul(text, nullptr, 0)) & keptAttributes;
}

DWORD extendedAttributes(const char *path, const struct statx &status)
{
    int64_t changed = status.stx_ctime.tv_sec * int64_t{1'000'000'000} + status.stx_ctime.tv_nsec;
    uint64_t device = static_cast<uint64_t>(status.stx_dev_major) << 32 | status.stx_dev_minor;
    KeptAttributes &slot = kept[(status.stx_ino ^ status.stx_ino >> 10) % keptCount];
    {
        std::lock_guard lock(keptMutex);
        if (slot.inode == status.stx_ino && slot.device == device && slot.changed == changed)
            return slot.attributes;
    }
    DWORD attributes = readExtendedAttributes(path);
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    if (now.tv_sec * int64_t{1'000'000'000} + now.tv_nsec - changed > youngNanoseconds) {
        std::lock_guard lock(keptMutex);
        slot = {status.stx_ino, device, changed, attributes};
    }
    return attributes;
}

void storeAttributes(const char *path, DWORD attributes)
{
    char text[16];
    snprintf(text, sizeof text, "0x%x", attributes);
    if (attributes)
        setxattr(path, attributeName, text, strlen(text), 0);
    else
        removexattr(path, attributeName);
}

bool copyText(ssize_t length, const char *text, int to)
{
    return length <= 0 || fsetxattr(to, attributeName, text, static_cast<size_t>(length), 0) == 0 || errno == ENOTSUP;
}

bool isDotName(const char *path)
{
    const char *slash = strrchr(path, '/');
    const char *name = slash ? slash + 1 : path;
    return name[0] == '.' && name[1] != 0 && strcmp(name, "..") != 0;
}

FILETIME fileTime(const statx_timestamp &time)
{
    return fileTimeFrom({static_cast<time_t>(time.tv_sec), static_cast<long>(time.tv_nsec)});
}

} // namespace

bool isReadOnly(unsigned mode)
{
    return (mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

bool fileInformation(const char *path, FileInformation &result)
{
    struct statx status;
    constexpr unsigned wanted = STATX_BASIC_STATS | STATX_BTIME;
    if (statx(AT_FDCWD, path, 0, wanted, &status) != 0
        && statx(AT_FDCWD, path, AT_SYMLINK_NOFOLLOW, wanted, &status) != 0)
        return false;
    bool isFolder = S_ISDIR(status.stx_mode);
    result.attributes = isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    result.attributes |= extendedAttributes(path, status)
                         & (isFolder ? keptAttributes : keptAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    if (isDotName(path))
        result.attributes |= FILE_ATTRIBUTE_HIDDEN;
    if (isReadOnly(status.stx_mode))
        result.attributes |= FILE_ATTRIBUTE_READONLY;
    result.accessed = fileTime(status.stx_atime);
    result.written = fileTime(status.stx_mtime);
    // A file system that keeps no time of creation has the last change of any kind at least.
    result.created = fileTime(status.stx_mask & STATX_BTIME ? status.stx_btime : status.stx_ctime);
    result.size = isFolder ? 0 : status.stx_size;
    return true;
}

bool setFileAttributes(const char *path, DWORD attributes)
{
    struct stat status;
    if (stat(path, &status) != 0)
        return false;
    if (S_ISDIR(status.st_mode)) {
        storeAttributes(path, attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY));
        return true;
    }
    mode_t mode = status.st_mode & 07777;
    mode_t writable = mode | S_IWUSR;
    mode_t readOnly = mode & ~static_cast<mode_t>(S_IWUSR | S_IWGRP | S_IWOTH);
    mode_t wanted = attributes & FILE_ATTRIBUTE_READONLY ? readOnly : isReadOnly(mode) ? writable : mode;
    // The extended attribute can only be changed while the file may be written.
    if (isReadOnly(mode) && chmod(path, writable) != 0)
        return false;
    storeAttributes(path, attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM));
    return chmod(path, wanted) == 0;
}

bool copyKeptAttributes(const char *fromUnixPath, int to)
{
    char text[32];
    return copyText(getxattr(fromUnixPath, attributeName, text, sizeof text), text, to);
}

bool copyKeptAttributes(int from, int to)
{
    char text[32];
    return copyText(fgetxattr(from, attributeName, text, sizeof text), text, to);
}

} // namespace win32
