// Code pages and locales.
#ifndef WIN32_WINNLS_H
#define WIN32_WINNLS_H

#pragma GCC system_header

#include <windef.h>

#define MB_PRECOMPOSED 0x00000001
#define MB_COMPOSITE 0x00000002
#define MB_USEGLYPHCHARS 0x00000004
#define MB_ERR_INVALID_CHARS 0x00000008
#define WC_ERR_INVALID_CHARS 0x00000080
#define WC_NO_BEST_FIT_CHARS 0x00000400

#define CP_ACP 0
#define CP_OEMCP 1
#define CP_MACCP 2
#define CP_THREAD_ACP 3
#define CP_UTF8 65001

// US English.
WINBASEAPI LCID WINAPI GetThreadLocale(void);

// The active code page is that of the environment variable WIN32_CODEPAGE, 1252 when there is
// none or the layer has no such page.
WINBASEAPI UINT WINAPI GetACP(void);
WINBASEAPI BOOL WINAPI IsValidCodePage(UINT codePage);
WINBASEAPI BOOL WINAPI IsDBCSLeadByte(BYTE byte);
WINBASEAPI BOOL WINAPI IsDBCSLeadByteEx(UINT codePage, BYTE byte);

// The pages are 874, 932, 936, 949, 950, 1250 to 1258 and UTF-8. A character that a page lacks is
// replaced by the given one or a question mark, never by one that looks alike.
WINBASEAPI int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int textSize, LPWSTR buffer,
                                          int bufferSize);
WINBASEAPI int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textSize, LPSTR buffer,
                                          int bufferSize, LPCSTR replaceBy, LPBOOL replaced);

#endif
