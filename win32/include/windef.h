// The types that every call uses: integers by their Win32 names, handles, points and rectangles.
#ifndef WIN32_WINDEF_H
#define WIN32_WINDEF_H

// A host may ask for strict conformance; Win32 needs what compilers add to the standard.
#pragma GCC system_header

#include <winnt.h>

#define MAX_PATH 260

#ifndef NULL
#define NULL 0
#endif
#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif

typedef unsigned char BYTE, *PBYTE, *LPBYTE, UCHAR, *PUCHAR;
typedef uint16_t WORD, *PWORD, *LPWORD, USHORT, *PUSHORT;
typedef uint32_t DWORD, *PDWORD, *LPDWORD;
typedef uint32_t ULONG, *PULONG;
typedef int INT, *PINT, *LPINT;
typedef unsigned int UINT, *PUINT;
typedef int BOOL, *PBOOL, *LPBOOL;
typedef float FLOAT, *PFLOAT;
typedef LONG *LPLONG;
typedef WORD ATOM;
typedef DWORD COLORREF, *LPCOLORREF;

typedef HANDLE HGLOBAL;
typedef HANDLE HLOCAL;
typedef HANDLE GLOBALHANDLE;
typedef HANDLE LOCALHANDLE;

DECLARE_HANDLE(HINSTANCE);
typedef HINSTANCE HMODULE;
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HACCEL);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HICON);
typedef HICON HCURSOR;
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HMONITOR);
typedef void *HGDIOBJ;

typedef INT_PTR(WINAPI *FARPROC)();
typedef INT_PTR(WINAPI *NEARPROC)();
typedef INT_PTR(WINAPI *PROC)();

typedef struct tagPOINT { LONG x; LONG y; } POINT, *PPOINT, *LPPOINT;
typedef struct tagSIZE { LONG cx; LONG cy; } SIZE, *PSIZE, *LPSIZE;
typedef struct tagRECT { LONG left; LONG top; LONG right; LONG bottom; } RECT, *PRECT, *LPRECT;
typedef const RECT *LPCRECT;
typedef struct tagPOINTS { SHORT x; SHORT y; } POINTS, *PPOINTS, *LPPOINTS;

typedef struct _FILETIME { DWORD dwLowDateTime; DWORD dwHighDateTime; } FILETIME, *PFILETIME, *LPFILETIME;

#define MAKEWORD(low, high) ((WORD)(((BYTE)((DWORD_PTR)(low) & 0xff)) | ((WORD)((BYTE)((DWORD_PTR)(high) & 0xff))) << 8))
#define MAKELONG(low, high) ((LONG)(((WORD)((DWORD_PTR)(low) & 0xffff)) | ((DWORD)((WORD)((DWORD_PTR)(high) & 0xffff))) << 16))
#define LOWORD(value) ((WORD)((DWORD_PTR)(value) & 0xffff))
#define HIWORD(value) ((WORD)(((DWORD_PTR)(value) >> 16) & 0xffff))
#define LOBYTE(value) ((BYTE)((DWORD_PTR)(value) & 0xff))
#define HIBYTE(value) ((BYTE)(((DWORD_PTR)(value) >> 8) & 0xff))

// C only: in C++ the macros would break the standard headers.
#if !defined(NOMINMAX) && !defined(__cplusplus)
#ifndef max
#define max(a, b) (((a) > (b)) ? (a) : (b))
#endif
#ifndef min
#define min(a, b) (((a) < (b)) ? (a) : (b))
#endif
#endif

#endif
