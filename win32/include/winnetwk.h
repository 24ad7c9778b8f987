// Network connections. This system has no network provider, and the calls answer so.
#ifndef WIN32_WINNETWK_H
#define WIN32_WINNETWK_H

#pragma GCC system_header

#include <windef.h>
#include <winerror.h>

#define RESOURCETYPE_ANY 0x00000000
#define RESOURCETYPE_DISK 0x00000001
#define RESOURCETYPE_PRINT 0x00000002
#define CONNECT_UPDATE_PROFILE 0x00000001

typedef struct _NETRESOURCEA {
    DWORD dwScope;
    DWORD dwType;
    DWORD dwDisplayType;
    DWORD dwUsage;
    LPSTR lpLocalName;
    LPSTR lpRemoteName;
    LPSTR lpComment;
    LPSTR lpProvider;
} NETRESOURCEA, *LPNETRESOURCEA;

// The result is the error itself: a name that no provider knows, or no connection of that name.
WINBASEAPI DWORD WINAPI WNetAddConnection2A(LPNETRESOURCEA resource, LPCSTR password, LPCSTR user, DWORD flags);
WINBASEAPI DWORD WINAPI WNetCancelConnection2A(LPCSTR name, DWORD flags, BOOL force);

#endif
