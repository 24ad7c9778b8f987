// Basic types, calling conventions and records below the level of the API calls.
#ifndef WIN32_WINNT_H
#define WIN32_WINNT_H

#pragma GCC system_header

#include <basetsd.h>
#include <stddef.h>
#include <string.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

// Calling conventions have no meaning here: one convention serves all.
#define WINAPI
#define APIENTRY WINAPI
#define CALLBACK
#define WINAPIV
#define PASCAL
#ifndef __cdecl
#define __cdecl
#endif
#ifndef __stdcall
#define __stdcall
#endif
#define CONST const
#define FAR
#define NEAR
#define IN
#define OUT
#define OPTIONAL

// __declspec(dllexport) and __declspec(dllimport) both mean visible to other modules.
#ifndef __declspec
#define __declspec(attribute) WIN32_DECLSPEC_##attribute
#define WIN32_DECLSPEC_dllexport __attribute__((visibility("default")))
#define WIN32_DECLSPEC_dllimport __attribute__((visibility("default")))
#define WIN32_DECLSPEC_noreturn __attribute__((noreturn))
#define WIN32_DECLSPEC_selectany __attribute__((weak))
#endif
#define DECLSPEC_IMPORT __declspec(dllimport)
#define DECLSPEC_NORETURN __declspec(noreturn)

#ifdef __cplusplus
#define EXTERN_C extern "C"
#else
#define EXTERN_C extern
#endif
#define WINBASEAPI EXTERN_C DECLSPEC_IMPORT
#define WINUSERAPI EXTERN_C DECLSPEC_IMPORT
#define WINGDIAPI EXTERN_C DECLSPEC_IMPORT

#define VOID void
typedef char CHAR, *PCHAR, *LPSTR, *PSTR;
typedef const char *LPCSTR, *PCSTR;
typedef char16_t WCHAR, *PWCHAR, *LPWSTR, *PWSTR;
typedef const char16_t *LPCWSTR, *PCWSTR;
typedef char TCHAR, *PTCHAR, *LPTSTR, *PTSTR;
typedef const char *LPCTSTR, *PCTSTR;
#ifndef TEXT
#define TEXT(text) text
#endif

typedef int16_t SHORT, *PSHORT;
typedef int32_t LONG, *PLONG;
typedef int64_t LONGLONG, *PLONGLONG;
typedef uint64_t ULONGLONG, *PULONGLONG;
typedef uint64_t DWORDLONG, *PDWORDLONG;
typedef uint8_t BOOLEAN, *PBOOLEAN;
typedef void *PVOID, *LPVOID;
typedef const void *LPCVOID;
typedef uint16_t LANGID;
typedef uint32_t LCID;

typedef void *HANDLE, **PHANDLE, **LPHANDLE;
#define DECLARE_HANDLE(name) struct name##__ { int unused; }; typedef struct name##__ *name

typedef union _LARGE_INTEGER {
    struct { uint32_t LowPart; LONG HighPart; };
    struct { uint32_t LowPart; LONG HighPart; } u;
    LONGLONG QuadPart;
} LARGE_INTEGER, *PLARGE_INTEGER;

typedef union _ULARGE_INTEGER {
    struct { uint32_t LowPart; uint32_t HighPart; };
    struct { uint32_t LowPart; uint32_t HighPart; } u;
    ULONGLONG QuadPart;
} ULARGE_INTEGER, *PULARGE_INTEGER;

#define VER_PLATFORM_WIN32s 0
#define VER_PLATFORM_WIN32_WINDOWS 1
#define VER_PLATFORM_WIN32_NT 2

typedef struct _OSVERSIONINFOA {
    uint32_t dwOSVersionInfoSize;
    uint32_t dwMajorVersion;
    uint32_t dwMinorVersion;
    uint32_t dwBuildNumber;
    uint32_t dwPlatformId;
    CHAR szCSDVersion[128];
} OSVERSIONINFOA, *POSVERSIONINFOA, *LPOSVERSIONINFOA;

typedef struct _OSVERSIONINFOEXA {
    uint32_t dwOSVersionInfoSize;
    uint32_t dwMajorVersion;
    uint32_t dwMinorVersion;
    uint32_t dwBuildNumber;
    uint32_t dwPlatformId;
    CHAR szCSDVersion[128];
    uint16_t wServicePackMajor;
    uint16_t wServicePackMinor;
    uint16_t wSuiteMask;
    uint8_t wProductType;
    uint8_t wReserved;
} OSVERSIONINFOEXA, *POSVERSIONINFOEXA, *LPOSVERSIONINFOEXA;
#define VER_NT_WORKSTATION 1

typedef OSVERSIONINFOA OSVERSIONINFO, *LPOSVERSIONINFO;
typedef OSVERSIONINFOEXA OSVERSIONINFOEX, *LPOSVERSIONINFOEX;

#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

#define HEAP_NO_SERIALIZE 0x00000001
#define HEAP_GROWABLE 0x00000002
#define HEAP_GENERATE_EXCEPTIONS 0x00000004
#define HEAP_ZERO_MEMORY 0x00000008
#define HEAP_REALLOC_IN_PLACE_ONLY 0x00000010

#define FIELD_OFFSET(type, field) ((LONG)offsetof(type, field))
#define RtlMoveMemory(destination, source, length) memmove((destination), (source), (length))
#define RtlCopyMemory(destination, source, length) memcpy((destination), (source), (length))
#define RtlZeroMemory(destination, length) memset((destination), 0, (length))
#define RtlFillMemory(destination, length, fill) memset((destination), (fill), (length))
#define MoveMemory RtlMoveMemory
#define CopyMemory RtlCopyMemory
#define ZeroMemory RtlZeroMemory
#define FillMemory RtlFillMemory

#endif
