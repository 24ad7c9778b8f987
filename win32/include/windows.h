// The Win32 API of this layer, ANSI calls only.
#ifndef WIN32_WINDOWS_H
#define WIN32_WINDOWS_H

#pragma GCC system_header

#if defined(UNICODE) || defined(_UNICODE)
#error "this layer has the ANSI calls of Win32; compile without UNICODE"
#endif

#include <windef.h>
#include <winerror.h>
#include <winbase.h>
#include <wingdi.h>
#include <winnls.h>
#include <winuser.h>

#endif
