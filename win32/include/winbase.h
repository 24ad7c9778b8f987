// Kernel calls: last error, memory, modules, profile files, system queries.
//
// Behaviour, arguments and errors are those of the published Win32 documentation; the
// comments here tell only what this layer adds to it or fixes where it leaves room.
#ifndef WIN32_WINBASE_H
#define WIN32_WINBASE_H

#include <windef.h>
#include <winerror.h>

#define INVALID_HANDLE_VALUE ((HANDLE)(LONG_PTR)-1)

// Errors and diagnostics. Debug text goes to standard error when the environment variable
// WIN32_DEBUG_OUTPUT is set, and is dropped otherwise.
WINBASEAPI DWORD WINAPI GetLastError(void);
WINBASEAPI void WINAPI SetLastError(DWORD error);
WINBASEAPI void WINAPI OutputDebugStringA(LPCSTR text);
WINBASEAPI void WINAPI DebugBreak(void);

// Process.
WINBASEAPI DECLSPEC_NORETURN void WINAPI ExitProcess(UINT exitCode);
WINBASEAPI HANDLE WINAPI GetCurrentProcess(void);
WINBASEAPI HANDLE WINAPI GetCurrentThread(void);
WINBASEAPI DWORD WINAPI GetCurrentProcessId(void);
WINBASEAPI DWORD WINAPI GetCurrentThreadId(void);
WINBASEAPI void WINAPI Sleep(DWORD milliseconds);
WINBASEAPI DWORD WINAPI GetTickCount(void);
// Sizes are advice that the system may ignore; a minimum above the machine's memory is refused
// with ERROR_NO_SYSTEM_RESOURCES.
WINBASEAPI BOOL WINAPI SetProcessWorkingSetSize(HANDLE process, SIZE_T minimumSize, SIZE_T maximumSize);

// Modules. The layer's own modules (kernel32, user32, psapi and so on) are found by name in any
// case, with or without ".dll". The null name is the program itself.
WINBASEAPI HMODULE WINAPI LoadLibraryA(LPCSTR name);
WINBASEAPI BOOL WINAPI FreeLibrary(HMODULE module);
WINBASEAPI FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);
WINBASEAPI HMODULE WINAPI GetModuleHandleA(LPCSTR name);
WINBASEAPI DWORD WINAPI GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size);
WINBASEAPI BOOL WINAPI DisableThreadLibraryCalls(HMODULE module);

// Resources of a module, as a resource compiler wrote them.
#define MAKEINTRESOURCEA(id) ((LPSTR)(ULONG_PTR)(WORD)(id))
#define IS_INTRESOURCE(name) (((ULONG_PTR)(name) >> 16) == 0)
WINBASEAPI HRSRC WINAPI FindResourceA(HMODULE module, LPCSTR name, LPCSTR type);
WINBASEAPI HRSRC WINAPI FindResourceExA(HMODULE module, LPCSTR type, LPCSTR name, WORD language);
WINBASEAPI HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource);
WINBASEAPI LPVOID WINAPI LockResource(HGLOBAL data);
WINBASEAPI DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource);

// Movable and fixed global memory.
#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_NOCOMPACT 0x0010
#define GMEM_NODISCARD 0x0020
#define GMEM_ZEROINIT 0x0040
#define GMEM_MODIFY 0x0080
#define GMEM_DISCARDABLE 0x0100
#define GMEM_SHARE 0x2000
#define GMEM_DDESHARE 0x2000
#define GMEM_DISCARDED 0x4000
#define GMEM_LOCKCOUNT 0x00ff
#define GMEM_INVALID_HANDLE 0x8000
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)
WINBASEAPI HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size);
WINBASEAPI HGLOBAL WINAPI GlobalReAlloc(HGLOBAL memory, SIZE_T size, UINT flags);
WINBASEAPI HGLOBAL WINAPI GlobalFree(HGLOBAL memory);
WINBASEAPI LPVOID WINAPI GlobalLock(HGLOBAL memory);
WINBASEAPI BOOL WINAPI GlobalUnlock(HGLOBAL memory);
WINBASEAPI SIZE_T WINAPI GlobalSize(HGLOBAL memory);
WINBASEAPI UINT WINAPI GlobalFlags(HGLOBAL memory);
WINBASEAPI HGLOBAL WINAPI GlobalHandle(LPCVOID pointer);

// Private heaps. A heap with a maximum size refuses what goes beyond it; one without grows up to
// the memory that the machine can still commit.
WINBASEAPI HANDLE WINAPI HeapCreate(DWORD options, SIZE_T initialSize, SIZE_T maximumSize);
WINBASEAPI BOOL WINAPI HeapDestroy(HANDLE heap);
WINBASEAPI LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size);
WINBASEAPI LPVOID WINAPI HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size);
WINBASEAPI BOOL WINAPI HeapFree(HANDLE heap, DWORD flags, LPVOID block);
WINBASEAPI SIZE_T WINAPI HeapSize(HANDLE heap, DWORD flags, LPCVOID block);
WINBASEAPI HANDLE WINAPI GetProcessHeap(void);

// Memory of the machine: physical memory is what the kernel gives to this process, so the limit
// of a control group counts where it is lower than the memory that is fitted.
typedef struct _MEMORYSTATUS {
    DWORD dwLength;
    DWORD dwMemoryLoad;
    SIZE_T dwTotalPhys;
    SIZE_T dwAvailPhys;
    SIZE_T dwTotalPageFile;
    SIZE_T dwAvailPageFile;
    SIZE_T dwTotalVirtual;
    SIZE_T dwAvailVirtual;
} MEMORYSTATUS, *LPMEMORYSTATUS;

typedef struct _MEMORYSTATUSEX {
    DWORD dwLength;
    DWORD dwMemoryLoad;
    DWORDLONG ullTotalPhys;
    DWORDLONG ullAvailPhys;
    DWORDLONG ullTotalPageFile;
    DWORDLONG ullAvailPageFile;
    DWORDLONG ullTotalVirtual;
    DWORDLONG ullAvailVirtual;
    DWORDLONG ullAvailExtendedVirtual;
} MEMORYSTATUSEX, *LPMEMORYSTATUSEX;
WINBASEAPI void WINAPI GlobalMemoryStatus(LPMEMORYSTATUS status);
WINBASEAPI BOOL WINAPI GlobalMemoryStatusEx(LPMEMORYSTATUSEX status);

// System. The version is that of the environment variable WIN32_VERSION ("major.minor.build"),
// 5.1.2600 when there is none.
WINBASEAPI BOOL WINAPI GetVersionExA(LPOSVERSIONINFOA version);
WINBASEAPI UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size);
WINBASEAPI UINT WINAPI GetWindowsDirectoryA(LPSTR buffer, UINT size);
WINBASEAPI DWORD WINAPI GetTempPathA(DWORD size, LPSTR buffer);
WINBASEAPI DWORD WINAPI GetCurrentDirectoryA(DWORD size, LPSTR buffer);

// Profile files. A file is parsed once and kept until its size, time or identity changes. It is
// written whole beside the old one and renamed over it. Comments, blank lines and lines that are
// no assignment stay where they are; line ends keep the file's own form.
WINBASEAPI DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer,
                                                 DWORD size, LPCSTR file);
WINBASEAPI UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR file);
WINBASEAPI BOOL WINAPI GetPrivateProfileStructA(LPCSTR section, LPCSTR key, LPVOID data, UINT size, LPCSTR file);
WINBASEAPI BOOL WINAPI WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR file);
WINBASEAPI BOOL WINAPI WritePrivateProfileStructA(LPCSTR section, LPCSTR key, LPVOID data, UINT size, LPCSTR file);
WINBASEAPI DWORD WINAPI GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size);

// Strings and arithmetic.
WINBASEAPI int WINAPI lstrlenA(LPCSTR text);
WINBASEAPI LPSTR WINAPI lstrcpyA(LPSTR destination, LPCSTR source);
WINBASEAPI LPSTR WINAPI lstrcpynA(LPSTR destination, LPCSTR source, int size);
WINBASEAPI LPSTR WINAPI lstrcatA(LPSTR destination, LPCSTR source);
WINBASEAPI int WINAPI MulDiv(int number, int numerator, int denominator);

#define OutputDebugString OutputDebugStringA
#define LoadLibrary LoadLibraryA
#define GetModuleHandle GetModuleHandleA
#define GetModuleFileName GetModuleFileNameA
#define FindResource FindResourceA
#define FindResourceEx FindResourceExA
#define MAKEINTRESOURCE MAKEINTRESOURCEA
#define GetVersionEx GetVersionExA
#define GetSystemDirectory GetSystemDirectoryA
#define GetWindowsDirectory GetWindowsDirectoryA
#define GetTempPath GetTempPathA
#define GetCurrentDirectory GetCurrentDirectoryA
#define GetPrivateProfileString GetPrivateProfileStringA
#define GetPrivateProfileInt GetPrivateProfileIntA
#define GetPrivateProfileStruct GetPrivateProfileStructA
#define WritePrivateProfileString WritePrivateProfileStringA
#define WritePrivateProfileStruct WritePrivateProfileStructA
#define GetProfileString GetProfileStringA
#define lstrlen lstrlenA
#define lstrcpy lstrcpyA
#define lstrcpyn lstrcpynA
#define lstrcat lstrcatA

#endif
