// Calls of the shell: folders with a purpose, and shell links.
#ifndef WIN32_SHLOBJ_H
#define WIN32_SHLOBJ_H

#pragma GCC system_header

#include <objbase.h>
#include <shobjidl.h>

#define CSIDL_DESKTOP 0x0000
#define CSIDL_PERSONAL 0x0005
#define CSIDL_DESKTOPDIRECTORY 0x0010
#define CSIDL_FONTS 0x0014
#define CSIDL_APPDATA 0x001a
#define CSIDL_LOCAL_APPDATA 0x001c
#define CSIDL_COMMON_APPDATA 0x0023
#define CSIDL_WINDOWS 0x0024
#define CSIDL_SYSTEM 0x0025
#define CSIDL_PROGRAM_FILES 0x0026
#define CSIDL_PROFILE 0x0028
#define CSIDL_FLAG_DONT_VERIFY 0x4000
#define CSIDL_FLAG_CREATE 0x8000

#define SHGFP_TYPE_CURRENT 0
#define SHGFP_TYPE_DEFAULT 1

// All folders lie below drive C:. The path has room for MAX_PATH bytes. A folder that is missing gives
// S_FALSE and an empty path, unless it is to be made or not to be looked for.
WINBASEAPI HRESULT WINAPI SHGetFolderPathA(HWND window, int folder, HANDLE token, DWORD type, LPSTR path);
#define SHGetFolderPath SHGetFolderPathA

#endif
