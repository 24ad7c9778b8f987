// Making objects by the identifier of their class.
#include "apartments.h"
#include "shell/shell_link.h"

#include <shlobj.h>

using namespace win32;

namespace {

struct Class {
    const CLSID *id;
    IUnknown *(*make)(); // null without memory
};

constexpr Class classes[] = {
    {&CLSID_ShellLink, makeShellLink},
};

} // namespace

HRESULT CoCreateInstance(REFCLSID classId, LPUNKNOWN outer, DWORD context, REFIID interfaceId, LPVOID *result)
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    if (!isInApartment())
        return CO_E_NOTINITIALIZED;
    for (const Class &known : classes) {
        if (!(context & CLSCTX_INPROC_SERVER) || classId != *known.id)
            continue;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        IUnknown *object = known.make();
        if (!object)
            return E_OUTOFMEMORY;
        HRESULT answer = object->QueryInterface(interfaceId, result);
        object->Release();
        return answer;
    }
    return REGDB_E_CLASSNOTREG;
}
