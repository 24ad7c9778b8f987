// Interfaces of objects that keep themselves in files.
#ifndef WIN32_OBJIDL_H
#define WIN32_OBJIDL_H

#pragma GCC system_header

#include <unknwn.h>

typedef WCHAR OLECHAR;
typedef OLECHAR *LPOLESTR;
typedef const OLECHAR *LPCOLESTR;

EXTERN_C DECLSPEC_IMPORT const IID IID_IPersist;
EXTERN_C DECLSPEC_IMPORT const IID IID_IPersistFile;

#ifdef __cplusplus
struct IPersist : IUnknown {
    STDMETHOD(GetClassID)(CLSID *classId) PURE;
};

struct IPersistFile : IPersist {
    STDMETHOD(IsDirty)() PURE;
    STDMETHOD(Load)(LPCOLESTR path, DWORD mode) PURE;
    STDMETHOD(Save)(LPCOLESTR path, BOOL remember) PURE;
    STDMETHOD(SaveCompleted)(LPCOLESTR path) PURE;
    STDMETHOD(GetCurFile)(LPOLESTR *path) PURE;
};
#endif

#endif
