#include "link_disk.h"

#include "kernel/file_information.h"
#include "kernel/kernel_internal.h"
#include "kernel/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

namespace win32 {
namespace {

constexpr off_t maximumSize = 4 << 20;

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    operator int() const { return number_; }

    bool close()
    {
        int number = number_;
        number_ = -1;
        return number < 0 || ::close(number) == 0;
    }

private:
    int number_;
};

bool readAll(int file, std::string &bytes)
{
    size_t length = 0;
    while (length < bytes.size()) {
        ssize_t count = read(file, bytes.data() + length, bytes.size() - length);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return fail(errorFromErrno(errno), false);
        if (count == 0)
            break;
        length += static_cast<size_t>(count);
    }
    bytes.resize(length);
    return true;
}

bool writeAll(int file, const std::string &bytes)
{
    for (size_t written = 0; written < bytes.size();) {
        ssize_t count = write(file, bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += static_cast<size_t>(count);
    }
    return true;
}

bool keepsOwner(int file, const struct stat &old)
{
    if (fchmod(file, old.st_mode & 07777) != 0)
        return false;
    return (old.st_uid == geteuid() && old.st_gid == getegid()) || fchown(file, old.st_uid, old.st_gid) == 0;
}

std::string temporaryName(const std::string &path)
{
    static std::atomic<unsigned> counter{0};
    char suffix[48];
    snprintf(suffix, sizeof suffix, ".%ld.%u.tmp", static_cast<long>(getpid()), counter++);
    return path + suffix;
}

bool replaceFile(const std::string &path, const std::string &bytes)
{
    struct stat old;
    bool existed = stat(path.c_str(), &old) == 0;
    if (existed && (!S_ISREG(old.st_mode) || isReadOnly(old.st_mode) || access(path.c_str(), W_OK) != 0))
        return fail(ERROR_ACCESS_DENIED, false);
    std::string temporary = temporaryName(path);
    Descriptor file(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (file < 0)
        return fail(errno == ENOENT ? DWORD{ERROR_PATH_NOT_FOUND} : errorFromErrno(errno), false);
    if (writeAll(file, bytes) && (!existed || keepsOwner(file, old)) && file.close()
        && rename(temporary.c_str(), path.c_str()) == 0)
        return true;
    int reason = errno;
    unlink(temporary.c_str());
    return fail(errorFromErrno(reason), false);
}

} // namespace

bool loadLinkBytes(const std::string &path, std::string &bytes)
{
    int number = onPath(path.c_str(), [](const char *name) { return open(name, O_RDONLY | O_CLOEXEC | O_NONBLOCK); });
    if (number < 0)
        return false;
    Descriptor file(number);
    struct stat status;
    if (fstat(file, &status) != 0)
        return fail(errorFromErrno(errno), false);
    if (!S_ISREG(status.st_mode))
        return fail(ERROR_ACCESS_DENIED, false);
    if (status.st_size > maximumSize)
        return fail(ERROR_INVALID_DATA, false);
    bytes.resize(static_cast<size_t>(status.st_size));
    return readAll(file, bytes);
}

bool saveLinkBytes(const std::string &path, const std::string &bytes)
{
    std::string name;
    if (!unixPath(path.c_str(), name))
        return false;
    char target[PATH_MAX];
    return replaceFile(realpath(name.c_str(), target) ? target : name, bytes);
}

} // namespace win32
