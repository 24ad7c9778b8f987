// The C library's calls that take a path, with Win32 paths. Programs reach them through this layer's
// stdio.h.
#include "kernel/file_information.h"
#include "kernel/kernel_internal.h"
#include "kernel/paths.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <type_traits>

extern "C" {
__declspec(dllexport) FILE *Win32Crt_fopen(const char *path, const char *mode);
__declspec(dllexport) FILE *Win32Crt_freopen(const char *path, const char *mode, FILE *file);
__declspec(dllexport) int Win32Crt_remove(const char *path);
__declspec(dllexport) int Win32Crt_rename(const char *from, const char *to);
}

namespace {

using namespace win32;

int errnoFromLastError()
{
    switch (GetLastError()) {
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS: return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION: return EACCES;
    case ERROR_NOT_ENOUGH_MEMORY: return ENOMEM;
    case ERROR_DISK_FULL: return ENOSPC;
    case ERROR_NOT_SAME_DEVICE: return EXDEV;
    default: return ENOENT;
    }
}

bool isWin32Path(const char *path)
{
    return strchr(path, '\\') || (path[0] && path[1] == ':');
}

bool knownUnixPath(const char *path, std::string &name)
{
    return path[0] != '/' && guarded(false, [&] { return unixPath(path, name); });
}

// Runs the operation with the Unix spelling of the path.
template <class Operation> auto withUnixPath(const char *path, Operation operation) -> decltype(operation(path))
{
    using Result = decltype(operation(path));
    const Result failure = std::is_pointer_v<Result> ? Result{} : Result(-1);
    if (!isWin32Path(path)) {
        Result result = operation(path);
        if (result != failure || errno != ENOENT || path[0] == '/')
            return result;
    }
    std::string name;
    bool known = guarded(false, [&] { return unixPath(path, name); });
    if (known)
        return operation(name.c_str());
    errno = errnoFromLastError();
    return failure;
}

} // namespace

FILE *Win32Crt_fopen(const char *path, const char *mode)
{
    auto opened = [&](const char *name) { return fopen(name, mode); };
    if (!mode || mode[0] == 'r')
        return withUnixPath(path, opened);
    // What would be made may be there under a name of other case.
    std::string name;
    return knownUnixPath(path, name) ? opened(name.c_str()) : withUnixPath(path, opened);
}

FILE *Win32Crt_freopen(const char *path, const char *mode, FILE *file)
{
    if (!path)
        return freopen(nullptr, mode, file);
    std::string name;
    return freopen(knownUnixPath(path, name) ? name.c_str() : path, mode, file);
}

int Win32Crt_remove(const char *path)
{
    return withUnixPath(path, [](const char *name) {
        DWORD refusal = deletionRefusal(name);
        if (!refusal)
            return unlink(name);
        errno = EACCES;
        return -1;
    });
}

// On Windows the C library hands both names to the system, which never replaces a file.
int Win32Crt_rename(const char *from, const char *to)
{
    if (MoveFileA(from, to))
        return 0;
    errno = errnoFromLastError();
    return -1;
}
