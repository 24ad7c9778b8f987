// Calls of the user interface.
#ifndef WIN32_WINUSER_H
#define WIN32_WINUSER_H

#include <windef.h>

#define RT_STRING ((LPSTR)6)

// The text of a string resource, cut to the size; 0 when there is none.
WINUSERAPI int WINAPI LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size);

#define LoadString LoadStringA

#endif
