// Identifiers of 128 bits for classes and interfaces.
#ifndef WIN32_GUIDDEF_H
#define WIN32_GUIDDEF_H

#pragma GCC system_header

#include <winnt.h>

typedef struct _GUID {
    uint32_t Data1;
    uint16_t Data2;
    uint16_t Data3;
    uint8_t Data4[8];
} GUID, *LPGUID;
typedef const GUID *LPCGUID;
typedef GUID IID, *LPIID;
typedef GUID CLSID, *LPCLSID;

#ifdef __cplusplus
typedef const GUID &REFGUID;
typedef const IID &REFIID;
typedef const CLSID &REFCLSID;
inline int IsEqualGUID(REFGUID left, REFGUID right) { return memcmp(&left, &right, sizeof(GUID)) == 0; }
inline bool operator==(REFGUID left, REFGUID right) { return IsEqualGUID(left, right); }
#if __cplusplus < 202002L
inline bool operator!=(REFGUID left, REFGUID right) { return !IsEqualGUID(left, right); }
#endif
#else
typedef const GUID *REFGUID;
typedef const IID *REFIID;
typedef const CLSID *REFCLSID;
#define IsEqualGUID(left, right) (memcmp((left), (right), sizeof(GUID)) == 0)
#endif
#define IsEqualIID(left, right) IsEqualGUID(left, right)
#define IsEqualCLSID(left, right) IsEqualGUID(left, right)

#endif

// Declares an identifier of the host's own; defines it in a file that includes <initguid.h> before.
#undef DEFINE_GUID
#if defined(INITGUID) && defined(__cplusplus)
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
    extern "C" const GUID name __attribute__((weak)) = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}
#elif defined(INITGUID)
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
    const GUID name __attribute__((weak)) = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}
#else
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) EXTERN_C const GUID name
#endif
