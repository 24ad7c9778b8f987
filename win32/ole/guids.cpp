// The identifiers of the layer's classes and interfaces.
#include <shlobj.h>

#define OLE_GUID(number)                                                                                               \
    {                                                                                                                  \
        number, 0, 0,                                                                                                  \
        {                                                                                                              \
            0xc0, 0, 0, 0, 0, 0, 0, 0x46                                                                               \
        }                                                                                                              \
    }

const IID IID_IUnknown = OLE_GUID(0x00000000);
const IID IID_IPersist = OLE_GUID(0x0000010c);
const IID IID_IPersistFile = OLE_GUID(0x0000010b);
const IID IID_IShellLinkA = OLE_GUID(0x000214ee);
const CLSID CLSID_ShellLink = OLE_GUID(0x00021401);
