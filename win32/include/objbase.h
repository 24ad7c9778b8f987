// Starting COM in a thread, making objects, and memory that passes between their owners.
#ifndef WIN32_OBJBASE_H
#define WIN32_OBJBASE_H

#pragma GCC system_header

#include <objidl.h>
#include <unknwn.h>

#define CLSCTX_INPROC_SERVER 0x1
#define CLSCTX_INPROC_HANDLER 0x2
#define CLSCTX_LOCAL_SERVER 0x4
#define CLSCTX_INPROC (CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER)
#define CLSCTX_ALL (CLSCTX_INPROC | CLSCTX_LOCAL_SERVER)

#define COINIT_MULTITHREADED 0x0
#define COINIT_APARTMENTTHREADED 0x2
#define COINIT_DISABLE_OLE1DDE 0x4
#define COINIT_SPEED_OVER_MEMORY 0x8

// Objects of this layer are called directly from every thread; the kind of apartment decides only about
// RPC_E_CHANGED_MODE.
WINBASEAPI HRESULT WINAPI CoInitialize(LPVOID reserved);
WINBASEAPI HRESULT WINAPI CoInitializeEx(LPVOID reserved, DWORD flags);
WINBASEAPI void WINAPI CoUninitialize(void);

// The one class is CLSID_ShellLink; every other gives REGDB_E_CLASSNOTREG.
WINBASEAPI HRESULT WINAPI CoCreateInstance(REFCLSID classId, LPUNKNOWN outer, DWORD context, REFIID interfaceId,
                                           LPVOID *object);

WINBASEAPI LPVOID WINAPI CoTaskMemAlloc(SIZE_T size);
WINBASEAPI void WINAPI CoTaskMemFree(LPVOID memory);

#endif
