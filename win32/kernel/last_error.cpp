// The last error of each thread.
#include "kernel_internal.h"

#include <cerrno>

namespace {

thread_local DWORD lastError __attribute__((tls_model("initial-exec"))) = NO_ERROR;

} // namespace

DWORD GetLastError()
{
    return lastError;
}

void SetLastError(DWORD error)
{
    lastError = error;
}

DWORD win32::errorFromErrno(int errnoValue)
{
    switch (errnoValue) {
    case 0: return NO_ERROR;
    case ENOENT: return ERROR_FILE_NOT_FOUND;
    case ENOTDIR: return ERROR_PATH_NOT_FOUND;
    case ELOOP: return ERROR_PATH_NOT_FOUND;
    case EACCES: return ERROR_ACCESS_DENIED;
    case EPERM: return ERROR_ACCESS_DENIED;
    case EISDIR: return ERROR_ACCESS_DENIED;
    case EROFS: return ERROR_WRITE_PROTECT;
    case EEXIST: return ERROR_ALREADY_EXISTS;
    case ENOTEMPTY: return ERROR_DIR_NOT_EMPTY;
    case ENOSPC: return ERROR_DISK_FULL;
    case EDQUOT: return ERROR_DISK_FULL;
    case EFBIG: return ERROR_DISK_FULL;
    case ENOMEM: return ERROR_NOT_ENOUGH_MEMORY;
    case EMFILE: return ERROR_TOO_MANY_OPEN_FILES;
    case ENFILE: return ERROR_TOO_MANY_OPEN_FILES;
    case ENAMETOOLONG: return ERROR_FILENAME_EXCED_RANGE;
    case EBUSY: return ERROR_BUSY;
    case ETXTBSY: return ERROR_SHARING_VIOLATION;
    case EAGAIN: return ERROR_LOCK_VIOLATION;
    case EXDEV: return ERROR_NOT_SAME_DEVICE;
    case EIO: return ERROR_IO_DEVICE;
    case EINVAL: return ERROR_INVALID_PARAMETER;
    case EBADF: return ERROR_INVALID_HANDLE;
    default: return ERROR_GEN_FAILURE;
    }
}
