// Code pages and locales.
#ifndef WIN32_WINNLS_H
#define WIN32_WINNLS_H

#include <windef.h>

#define CP_ACP 0
#define CP_OEMCP 1
#define CP_MACCP 2
#define CP_THREAD_ACP 3
#define CP_UTF8 65001

// The active code page is that of the environment variable WIN32_CODEPAGE, 1252 when there is
// none or the layer has no such page.
WINBASEAPI UINT WINAPI GetACP(void);
WINBASEAPI BOOL WINAPI IsDBCSLeadByte(BYTE byte);
WINBASEAPI BOOL WINAPI IsDBCSLeadByteEx(UINT codePage, BYTE byte);

#endif
