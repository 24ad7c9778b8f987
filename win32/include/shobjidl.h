// Shell links.
#ifndef WIN32_SHOBJIDL_H
#define WIN32_SHOBJIDL_H

#pragma GCC system_header

#include <objidl.h>
#include <winbase.h>

// A place in the shell's name space: items one behind the other, each with its size in front, and a size
// of 0 at the end.
#pragma pack(push, 1)
typedef struct _SHITEMID {
    USHORT cb;
    BYTE abID[1];
} SHITEMID;
typedef struct _ITEMIDLIST {
    SHITEMID mkid;
} ITEMIDLIST;
#pragma pack(pop)
typedef ITEMIDLIST *LPITEMIDLIST, *PIDLIST_ABSOLUTE;
typedef const ITEMIDLIST *LPCITEMIDLIST, *PCIDLIST_ABSOLUTE;

// Names have no short form here, so SLGP_SHORTPATH gives the name as it is. SLGP_RAWPATH keeps names of
// environment variables; without it they are replaced.
#define SLGP_SHORTPATH 0x1
#define SLGP_UNCPRIORITY 0x2
#define SLGP_RAWPATH 0x4

#define SLR_NO_UI 0x1
#define SLR_ANY_MATCH 0x2
#define SLR_UPDATE 0x4
#define SLR_NOUPDATE 0x8
#define SLR_NOSEARCH 0x10
#define SLR_NOTRACK 0x20

EXTERN_C DECLSPEC_IMPORT const CLSID CLSID_ShellLink;
EXTERN_C DECLSPEC_IMPORT const IID IID_IShellLinkA;
#define IID_IShellLink IID_IShellLinkA

#ifdef __cplusplus
struct IShellLinkA : IUnknown {
    STDMETHOD(GetPath)(LPSTR path, int size, WIN32_FIND_DATAA *data, DWORD flags) PURE;
    STDMETHOD(GetIDList)(PIDLIST_ABSOLUTE *list) PURE;
    STDMETHOD(SetIDList)(PCIDLIST_ABSOLUTE list) PURE;
    STDMETHOD(GetDescription)(LPSTR text, int size) PURE;
    STDMETHOD(SetDescription)(LPCSTR text) PURE;
    STDMETHOD(GetWorkingDirectory)(LPSTR path, int size) PURE;
    STDMETHOD(SetWorkingDirectory)(LPCSTR path) PURE;
    STDMETHOD(GetArguments)(LPSTR text, int size) PURE;
    STDMETHOD(SetArguments)(LPCSTR text) PURE;
    STDMETHOD(GetHotkey)(WORD *key) PURE;
    STDMETHOD(SetHotkey)(WORD key) PURE;
    STDMETHOD(GetShowCmd)(int *command) PURE;
    STDMETHOD(SetShowCmd)(int command) PURE;
    STDMETHOD(GetIconLocation)(LPSTR path, int size, int *index) PURE;
    STDMETHOD(SetIconLocation)(LPCSTR path, int index) PURE;
    STDMETHOD(SetRelativePath)(LPCSTR path, DWORD reserved) PURE;
    // Looks where the link points and, with the same relative path, beside the link; searches no further
    // and never shows anything, so no time-out runs out. A target that is not there gives a failure.
    STDMETHOD(Resolve)(HWND window, DWORD flags) PURE;
    STDMETHOD(SetPath)(LPCSTR path) PURE;
};
typedef IShellLinkA IShellLink;
#endif

#endif
