// Network connections on a machine without a network provider.
#include "kernel/kernel_internal.h"

#include <winnetwk.h>

using namespace win32;

DWORD WNetAddConnection2A(LPNETRESOURCEA resource, LPCSTR, LPCSTR, DWORD)
{
    if (!resource || !resource->lpRemoteName || resource->dwType > RESOURCETYPE_PRINT)
        return fail(ERROR_INVALID_PARAMETER, DWORD{ERROR_INVALID_PARAMETER});
    return fail(ERROR_NO_NET_OR_BAD_PATH, DWORD{ERROR_NO_NET_OR_BAD_PATH});
}

DWORD WNetCancelConnection2A(LPCSTR name, DWORD, BOOL)
{
    DWORD error = name ? ERROR_NOT_CONNECTED : ERROR_INVALID_PARAMETER;
    return fail(error, error);
}
