// The interface that all others are made of, and how methods are declared.
#ifndef WIN32_UNKNWN_H
#define WIN32_UNKNWN_H

#pragma GCC system_header

#include <guiddef.h>
#include <windef.h>
#include <winerror.h>

#define STDMETHODCALLTYPE
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#define STDMETHOD(method) virtual HRESULT STDMETHODCALLTYPE method
#define STDMETHOD_(type, method) virtual type STDMETHODCALLTYPE method
#define PURE = 0

EXTERN_C DECLSPEC_IMPORT const IID IID_IUnknown;

#ifdef __cplusplus
struct IUnknown {
    STDMETHOD(QueryInterface)(REFIID interfaceId, void **object) PURE;
    STDMETHOD_(ULONG, AddRef)() PURE;
    STDMETHOD_(ULONG, Release)() PURE;
};
#else
typedef struct IUnknown IUnknown;
#endif
typedef IUnknown *LPUNKNOWN;

#endif
