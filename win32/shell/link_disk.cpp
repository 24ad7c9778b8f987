#include "link_disk.h"

#include "kernel/descriptor.h"
#include "kernel/kernel_internal.h"
#include "kernel/paths.h"
#include "kernel/replaced_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace win32 {
namespace {

constexpr off_t maximumSize = 4 << 20;

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
    struct stat made;
    return replaceFile(withoutLinks(name), bytes, made, [] { return true; });
}

} // namespace win32
