// Win32 errors as result codes.
#include <mtbx/MacErrors.h>

namespace {

struct ErrorMapping {
    UInt16 win32Error;
    SInt16 result;
};

constexpr ErrorMapping errorMappings[] = {
    {ERROR_FILE_NOT_FOUND, fnfErr},
    {ERROR_PATH_NOT_FOUND, fnfErr},
    {ERROR_NOT_ENOUGH_MEMORY, memFullErr},
    {ERROR_OUTOFMEMORY, memFullErr},
    {ERROR_WRITE_PROTECT, wPrErr},
    {ERROR_SHARING_VIOLATION, fBsyErr},
    {ERROR_LOCK_VIOLATION, permErr},
    {ERROR_HANDLE_EOF, eofErr},
    {ERROR_HANDLE_DISK_FULL, dskFulErr},
    {ERROR_DUP_NAME, dupFNErr},
    {ERROR_FILE_EXISTS, dupFNErr},
    {ERROR_DISK_FULL, dskFulErr},
    {ERROR_ALREADY_EXISTS, dupFNErr},
    {ERROR_STACK_OVERFLOW, stackOverflowErr},
    {ERROR_IO_DEVICE, ioErr},
};

} // namespace

SInt32 MTBX_ConvertError(UInt32 win32Error)
{
    UInt16 value = LOWORD(win32Error);
    if (value == 0)
        return mtbxUnknownErr;
    for (const ErrorMapping &mapping : errorMappings) {
        if (mapping.win32Error == value)
            return mapping.result;
    }
    return value;
}

SInt32 MTBX_GetLastError()
{
    return MTBX_ConvertError(GetLastError());
}
