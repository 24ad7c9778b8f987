// Kernel calls: last error, memory, modules, profile files, system queries.
//
// Behaviour, arguments and errors are those of the published Win32 documentation; the
// comments here tell only what this layer adds to it or fixes where it leaves room.
#ifndef WIN32_WINBASE_H
#define WIN32_WINBASE_H

#pragma GCC system_header

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

WINBASEAPI BOOL WINAPI CloseHandle(HANDLE object);

// Events and waits. A wait for a file ends when its last overlapped transfer is over. Events have no
// names: a name gives ERROR_NOT_SUPPORTED.
#define INFINITE 0xFFFFFFFF
#define WAIT_OBJECT_0 0x00000000
#define WAIT_ABANDONED 0x00000080
#define WAIT_IO_COMPLETION 0x000000C0
#define WAIT_TIMEOUT 258
#define WAIT_FAILED 0xFFFFFFFF
#define MAXIMUM_WAIT_OBJECTS 64
typedef struct _SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
} SECURITY_ATTRIBUTES, *PSECURITY_ATTRIBUTES, *LPSECURITY_ATTRIBUTES;
WINBASEAPI HANDLE WINAPI CreateEventA(LPSECURITY_ATTRIBUTES attributes, BOOL manualReset, BOOL initialState, LPCSTR name);
WINBASEAPI BOOL WINAPI SetEvent(HANDLE event);
WINBASEAPI BOOL WINAPI ResetEvent(HANDLE event);
WINBASEAPI DWORD WINAPI WaitForSingleObject(HANDLE object, DWORD milliseconds);
WINBASEAPI DWORD WINAPI WaitForSingleObjectEx(HANDLE object, DWORD milliseconds, BOOL alertable);
WINBASEAPI DWORD WINAPI WaitForMultipleObjects(DWORD count, const HANDLE *objects, BOOL all, DWORD milliseconds);
WINBASEAPI DWORD WINAPI WaitForMultipleObjectsEx(DWORD count, const HANDLE *objects, BOOL all, DWORD milliseconds,
                                                 BOOL alertable);
WINBASEAPI DWORD WINAPI SleepEx(DWORD milliseconds, BOOL alertable);

// Files. Share modes hold within the process and, by advisory locks, against other processes that open
// files through the layer. Overlapped transfers are done by threads of the layer.
#define GENERIC_READ 0x80000000
#define GENERIC_WRITE 0x40000000
#define GENERIC_EXECUTE 0x20000000
#define GENERIC_ALL 0x10000000
#define FILE_SHARE_READ 0x00000001
#define FILE_SHARE_WRITE 0x00000002
#define FILE_SHARE_DELETE 0x00000004
#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define OPEN_ALWAYS 4
#define TRUNCATE_EXISTING 5
#define FILE_ATTRIBUTE_READONLY 0x00000001
#define FILE_ATTRIBUTE_HIDDEN 0x00000002
#define FILE_ATTRIBUTE_SYSTEM 0x00000004
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020
#define FILE_ATTRIBUTE_NORMAL 0x00000080
#define FILE_ATTRIBUTE_TEMPORARY 0x00000100
#define FILE_FLAG_WRITE_THROUGH 0x80000000
#define FILE_FLAG_OVERLAPPED 0x40000000
#define FILE_FLAG_NO_BUFFERING 0x20000000
#define FILE_FLAG_RANDOM_ACCESS 0x10000000
#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000
#define INVALID_FILE_ATTRIBUTES ((DWORD)-1)
#define INVALID_FILE_SIZE ((DWORD)0xFFFFFFFF)
#define INVALID_SET_FILE_POINTER ((DWORD)-1)
#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2

typedef struct _OVERLAPPED {
    ULONG_PTR Internal;
    ULONG_PTR InternalHigh;
    union {
        struct {
            DWORD Offset;
            DWORD OffsetHigh;
        };
        PVOID Pointer;
    };
    HANDLE hEvent;
} OVERLAPPED, *LPOVERLAPPED;
typedef void(WINAPI *LPOVERLAPPED_COMPLETION_ROUTINE)(DWORD error, DWORD count, LPOVERLAPPED overlapped);
#define HasOverlappedIoCompleted(overlapped) ((DWORD)(overlapped)->Internal != 0x103)

WINBASEAPI HANDLE WINAPI CreateFileA(LPCSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES attributes,
                                     DWORD disposition, DWORD flags, HANDLE templateFile);
WINBASEAPI BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD count, LPOVERLAPPED overlapped);
WINBASEAPI BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD count, LPOVERLAPPED overlapped);
WINBASEAPI BOOL WINAPI ReadFileEx(HANDLE file, LPVOID buffer, DWORD size, LPOVERLAPPED overlapped,
                                  LPOVERLAPPED_COMPLETION_ROUTINE routine);
WINBASEAPI BOOL WINAPI WriteFileEx(HANDLE file, LPCVOID buffer, DWORD size, LPOVERLAPPED overlapped,
                                   LPOVERLAPPED_COMPLETION_ROUTINE routine);
WINBASEAPI BOOL WINAPI GetOverlappedResult(HANDLE file, LPOVERLAPPED overlapped, LPDWORD count, BOOL wait);
WINBASEAPI BOOL WINAPI CancelIo(HANDLE file);
WINBASEAPI DWORD WINAPI SetFilePointer(HANDLE file, LONG distance, PLONG distanceHigh, DWORD method);
WINBASEAPI BOOL WINAPI SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, PLARGE_INTEGER position, DWORD method);
WINBASEAPI BOOL WINAPI SetEndOfFile(HANDLE file);
WINBASEAPI BOOL WINAPI FlushFileBuffers(HANDLE file);
WINBASEAPI DWORD WINAPI GetFileSize(HANDLE file, LPDWORD sizeHigh);
WINBASEAPI BOOL WINAPI GetFileSizeEx(HANDLE file, PLARGE_INTEGER size);
WINBASEAPI BOOL WINAPI GetFileTime(HANDLE file, LPFILETIME created, LPFILETIME accessed, LPFILETIME written);
WINBASEAPI BOOL WINAPI SetFileTime(HANDLE file, const FILETIME *created, const FILETIME *accessed, const FILETIME *written);

// Names on disk. A name that starts with a dot is hidden; the other attributes but read-only are kept in
// the extended attribute "user.DOSATTRIB".
WINBASEAPI DWORD WINAPI GetFileAttributesA(LPCSTR path);
WINBASEAPI BOOL WINAPI SetFileAttributesA(LPCSTR path, DWORD attributes);
WINBASEAPI BOOL WINAPI DeleteFileA(LPCSTR path);
WINBASEAPI BOOL WINAPI MoveFileA(LPCSTR from, LPCSTR to);
WINBASEAPI BOOL WINAPI CreateDirectoryA(LPCSTR path, LPSECURITY_ATTRIBUTES attributes);
WINBASEAPI BOOL WINAPI RemoveDirectoryA(LPCSTR path);
WINBASEAPI BOOL WINAPI SetCurrentDirectoryA(LPCSTR path);
WINBASEAPI DWORD WINAPI GetFullPathNameA(LPCSTR path, DWORD size, LPSTR buffer, LPSTR *namePart);

typedef struct _WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    CHAR cFileName[MAX_PATH];
    CHAR cAlternateFileName[14];
} WIN32_FIND_DATAA, *PWIN32_FIND_DATAA, *LPWIN32_FIND_DATAA;
typedef WIN32_FIND_DATAA WIN32_FIND_DATA, *PWIN32_FIND_DATA, *LPWIN32_FIND_DATA;
// Entries come by name without regard to case, "." and ".." first.
WINBASEAPI HANDLE WINAPI FindFirstFileA(LPCSTR pattern, LPWIN32_FIND_DATAA data);
WINBASEAPI BOOL WINAPI FindNextFileA(HANDLE search, LPWIN32_FIND_DATAA data);
WINBASEAPI BOOL WINAPI FindClose(HANDLE search);

#define SCS_32BIT_BINARY 0
#define SCS_DOS_BINARY 1
#define SCS_WOW_BINARY 2
#define SCS_64BIT_BINARY 6
// Windows programs and programs of this system both count.
WINBASEAPI BOOL WINAPI GetBinaryTypeA(LPCSTR path, LPDWORD type);

// Drives.
#define DRIVE_UNKNOWN 0
#define DRIVE_NO_ROOT_DIR 1
#define DRIVE_FIXED 3
WINBASEAPI DWORD WINAPI GetLogicalDrives(void);
WINBASEAPI DWORD WINAPI GetLogicalDriveStringsA(DWORD size, LPSTR buffer);
WINBASEAPI UINT WINAPI GetDriveTypeA(LPCSTR root);
WINBASEAPI BOOL WINAPI GetDiskFreeSpaceA(LPCSTR root, LPDWORD sectorsPerCluster, LPDWORD bytesPerSector,
                                         LPDWORD freeClusters, LPDWORD totalClusters);
WINBASEAPI BOOL WINAPI GetDiskFreeSpaceExA(LPCSTR folder, PULARGE_INTEGER freeToCaller, PULARGE_INTEGER total,
                                           PULARGE_INTEGER totalFree);

// Time.
typedef struct _SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
} SYSTEMTIME, *PSYSTEMTIME, *LPSYSTEMTIME;
WINBASEAPI void WINAPI GetLocalTime(LPSYSTEMTIME time);
WINBASEAPI void WINAPI GetSystemTime(LPSYSTEMTIME time);
WINBASEAPI void WINAPI GetSystemTimeAsFileTime(LPFILETIME time);
WINBASEAPI BOOL WINAPI FileTimeToSystemTime(const FILETIME *fileTime, LPSYSTEMTIME systemTime);
WINBASEAPI BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME *systemTime, LPFILETIME fileTime);
WINBASEAPI BOOL WINAPI FileTimeToLocalFileTime(const FILETIME *fileTime, LPFILETIME localFileTime);
WINBASEAPI BOOL WINAPI LocalFileTimeToFileTime(const FILETIME *localFileTime, LPFILETIME fileTime);
WINBASEAPI LONG WINAPI CompareFileTime(const FILETIME *left, const FILETIME *right);

// Modules. The layer's own modules (kernel32, user32, psapi and so on) are found by name in any
// case, with or without ".dll". The null name is the program itself.
// A Windows module or a compiled .res file is loaded for its resources; its code does not run here. A
// shared object of this system is loaded for its functions. A name without a folder is looked for beside
// the program, in the current directory and in the system folder.
#define DONT_RESOLVE_DLL_REFERENCES 0x00000001
#define LOAD_LIBRARY_AS_DATAFILE 0x00000002
WINBASEAPI HMODULE WINAPI LoadLibraryA(LPCSTR name);
WINBASEAPI HMODULE WINAPI LoadLibraryExA(LPCSTR name, HANDLE file, DWORD flags);
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
typedef BOOL(CALLBACK *ENUMRESTYPEPROCA)(HMODULE module, LPSTR type, LONG_PTR parameter);
typedef BOOL(CALLBACK *ENUMRESNAMEPROCA)(HMODULE module, LPCSTR type, LPSTR name, LONG_PTR parameter);
typedef BOOL(CALLBACK *ENUMRESLANGPROCA)(HMODULE module, LPCSTR type, LPCSTR name, WORD language, LONG_PTR parameter);
WINBASEAPI BOOL WINAPI EnumResourceTypesA(HMODULE module, ENUMRESTYPEPROCA procedure, LONG_PTR parameter);
WINBASEAPI BOOL WINAPI EnumResourceNamesA(HMODULE module, LPCSTR type, ENUMRESNAMEPROCA procedure, LONG_PTR parameter);
WINBASEAPI BOOL WINAPI EnumResourceLanguagesA(HMODULE module, LPCSTR type, LPCSTR name, ENUMRESLANGPROCA procedure,
                                              LONG_PTR parameter);

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

// How the system reports failures to the user. This one never does; the mode is only kept.
#define SEM_FAILCRITICALERRORS 0x0001
#define SEM_NOGPFAULTERRORBOX 0x0002
#define SEM_NOOPENFILEERRORBOX 0x8000
WINBASEAPI UINT WINAPI SetErrorMode(UINT mode);
WINBASEAPI UINT WINAPI GetErrorMode(void);

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
// By characters: signs, digits, letters; a capital comes behind its small letter, or equals it. A null text comes
// first.
WINBASEAPI int WINAPI lstrcmpA(LPCSTR left, LPCSTR right);
WINBASEAPI int WINAPI lstrcmpiA(LPCSTR left, LPCSTR right);
WINBASEAPI int WINAPI MulDiv(int number, int numerator, int denominator);

#define OutputDebugString OutputDebugStringA
#define LoadLibrary LoadLibraryA
#define LoadLibraryEx LoadLibraryExA
#define EnumResourceTypes EnumResourceTypesA
#define EnumResourceNames EnumResourceNamesA
#define EnumResourceLanguages EnumResourceLanguagesA
#define ENUMRESTYPEPROC ENUMRESTYPEPROCA
#define ENUMRESNAMEPROC ENUMRESNAMEPROCA
#define ENUMRESLANGPROC ENUMRESLANGPROCA
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
#define CreateEvent CreateEventA
#define CreateFile CreateFileA
#define GetFileAttributes GetFileAttributesA
#define SetFileAttributes SetFileAttributesA
#define DeleteFile DeleteFileA
#define MoveFile MoveFileA
#define CreateDirectory CreateDirectoryA
#define RemoveDirectory RemoveDirectoryA
#define SetCurrentDirectory SetCurrentDirectoryA
#define GetFullPathName GetFullPathNameA
#define FindFirstFile FindFirstFileA
#define FindNextFile FindNextFileA
#define GetBinaryType GetBinaryTypeA
#define GetLogicalDriveStrings GetLogicalDriveStringsA
#define GetDriveType GetDriveTypeA
#define GetDiskFreeSpace GetDiskFreeSpaceA
#define GetDiskFreeSpaceEx GetDiskFreeSpaceExA
#define lstrlen lstrlenA
#define lstrcpy lstrcpyA
#define lstrcpyn lstrcpynA
#define lstrcat lstrcatA
#define lstrcmp lstrcmpA
#define lstrcmpi lstrcmpiA

#endif
