// How many objects of graphics and user interface the process has.
#include "gdi/gdi_object.h"
#include "kernel/kernel_internal.h"
#include "user_object.h"

DWORD GetGuiResources(HANDLE process, DWORD kind)
{
    using namespace win32;
    if (process != GetCurrentProcess())
        return fail(ERROR_INVALID_HANDLE, DWORD{0});
    switch (kind) {
    case GR_GDIOBJECTS:
        return gdi::objectCount();
    case GR_USEROBJECTS:
        return user::userObjectCount();
    default:
        return fail(ERROR_INVALID_PARAMETER, DWORD{0});
    }
}
