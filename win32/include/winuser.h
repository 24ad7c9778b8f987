// Calls of the user interface.
#ifndef WIN32_WINUSER_H
#define WIN32_WINUSER_H

#pragma GCC system_header

#include <windef.h>

#define RT_BITMAP ((LPSTR)2)
#define RT_STRING ((LPSTR)6)

// The text of a string resource, cut to the size; 0 when there is none.
WINUSERAPI int WINAPI LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size);

// A bitmap resource: monochrome when it is black and white, otherwise in the screen's format. The caller
// deletes it. Windows' own bitmaps, of a null module, are not there.
WINUSERAPI HBITMAP WINAPI LoadBitmapA(HINSTANCE module, LPCSTR name);

// Steps through text of one- and two-byte characters.
WINUSERAPI LPSTR WINAPI CharNextA(LPCSTR text);
WINUSERAPI LPSTR WINAPI CharPrevA(LPCSTR start, LPCSTR place);
WINUSERAPI LPSTR WINAPI CharNextExA(WORD codePage, LPCSTR text, DWORD flags);
WINUSERAPI LPSTR WINAPI CharPrevExA(WORD codePage, LPCSTR start, LPCSTR place, DWORD flags);

WINUSERAPI BOOL WINAPI ScrollDC(HDC context, int x, int y, const RECT *area, const RECT *clip, HRGN update,
                                LPRECT updateBox);

#define LoadBitmap LoadBitmapA
#define LoadString LoadStringA
#define CharNext CharNextA
#define CharPrev CharPrevA

#endif
