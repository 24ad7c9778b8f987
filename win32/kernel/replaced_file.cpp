#include "replaced_file.h"

#include "descriptor.h"
#include "file_information.h"
#include "kernel_internal.h"
#include "share_locks.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

namespace win32 {
namespace {

bool writeAll(int file, std::string_view content)
{
    size_t written = 0;
    while (written < content.size()) {
        ssize_t count = write(file, content.data() + written, content.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += static_cast<size_t>(count);
    }
    return true;
}

// A file left by a program that crashed may have the name already.
Descriptor openTemporary(const std::string &path, mode_t mode, std::string &temporary)
{
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < 100; ++attempt) {
        char suffix[48];
        snprintf(suffix, sizeof suffix, ".%ld.%u.tmp", static_cast<long>(getpid()), counter++);
        temporary = path + suffix;
        int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (file >= 0 || errno != EEXIST)
            return Descriptor(file);
    }
    return {};
}

DWORD refusal(const std::string &path, const struct stat &old)
{
    if (!S_ISREG(old.st_mode) || isReadOnly(old.st_mode) || access(path.c_str(), W_OK) != 0)
        return ERROR_ACCESS_DENIED;
    return deniesWriting(path.c_str()) ? ERROR_SHARING_VIOLATION : NO_ERROR;
}

// The mode given at creation passes through the mask; the old file's mode is to stay as it is.
bool takeAfter(const std::string &path, const struct stat &old, int file)
{
    bool taken = fchmod(file, old.st_mode & 07777) == 0;
    if (old.st_uid != geteuid() || old.st_gid != getegid())
        taken = fchown(file, old.st_uid, old.st_gid) == 0 && taken;
    copyKeptAttributes(path.c_str(), file);
    return taken;
}

} // namespace

std::string withoutLinks(std::string path)
{
    char target[PATH_MAX];
    if (realpath(path.c_str(), target))
        return target;
    constexpr int longestChain = 40;
    for (int link = 0; link < longestChain; ++link) {
        ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length <= 0)
            break;
        size_t folder = target[0] == '/' ? 0 : path.rfind('/') + 1;
        path = path.substr(0, folder) + std::string(target, static_cast<size_t>(length));
    }
    return path;
}

bool replaceFile(const std::string &path, std::string_view content, struct stat &made,
                 const std::function<bool()> &mayReplace)
{
    struct stat old;
    bool existed = stat(path.c_str(), &old) == 0;
    if (DWORD error = existed ? refusal(path, old) : DWORD{NO_ERROR})
        return fail(error, false);
    std::string temporary;
    Descriptor file = openTemporary(path, existed ? old.st_mode & 0777 : 0666, temporary);
    if (file < 0)
        return fail(errno == ENOENT ? DWORD{ERROR_PATH_NOT_FOUND} : errorFromErrno(errno), false);
    bool ready =
        (!existed || takeAfter(path, old, file)) && writeAll(file, content) && fstat(file, &made) == 0 && file.close();
    if (ready && mayReplace() && rename(temporary.c_str(), path.c_str()) == 0)
        return true;
    int reason = errno;
    unlink(temporary.c_str());
    return fail(errorFromErrno(reason), false);
}

} // namespace win32
