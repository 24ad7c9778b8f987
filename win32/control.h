// The control panel: makes the layer refuse, fail or pretend, and shows what goes through it.
//
// For tests and for the curious. No program needs it to run, and nothing here has a counterpart
// on Windows. Everything it does lasts until the matching call with a neutral value, or until
// Win32Control_Reset. All calls may come from any thread.
#ifndef WIN32_CONTROL_H
#define WIN32_CONTROL_H

#include <windef.h>

#ifdef __cplusplus
extern "C" {
#endif

// Who asks for memory.
typedef enum Win32Allocation {
    WIN32_ALLOCATION_C_HEAP, // malloc, calloc, realloc and new of a module linked with win32_c_heap
    WIN32_ALLOCATION_GLOBAL, // GlobalAlloc, GlobalReAlloc
    WIN32_ALLOCATION_HEAP,   // HeapAlloc, HeapReAlloc
    WIN32_ALLOCATION_LAYER,  // what the layer itself needs to do its work
    WIN32_ALLOCATION_PEN,    // from here on: creations of graphics objects, whose size counts as 0
    WIN32_ALLOCATION_BRUSH,
    WIN32_ALLOCATION_CONTEXT,
    WIN32_ALLOCATION_PALETTE,
    WIN32_ALLOCATION_FONT,
    WIN32_ALLOCATION_BITMAP,
    WIN32_ALLOCATION_REGION,
    WIN32_ALLOCATION_KINDS
} Win32Allocation;

#define WIN32_WITHOUT_END 0xffffffffu

// Counts the allocations of one kind that ask for at least minimumSize bytes, beginning at 1 with
// the next one, and refuses those numbered first to first + count - 1. A first of 0 refuses none:
// it only counts. A refused allocation fails as it does on a machine without memory.
__declspec(dllimport) void Win32Control_RefuseAllocations(Win32Allocation kind, DWORD first, DWORD count,
                                                          SIZE_T minimumSize);
// How many were counted since then, the refused ones included.
__declspec(dllimport) DWORD Win32Control_AllocationsCounted(Win32Allocation kind);
// Ends counting and refusing for the kind; the count stays readable.
__declspec(dllimport) void Win32Control_AllowAllocations(Win32Allocation kind);

// Makes calls of one function fail with the given error, by the function's name: the calls
// numbered first to first + count - 1, counted from now on. A count of 0 ends it. The result is
// FALSE for a name that the layer does not let fail.
__declspec(dllimport) BOOL Win32Control_FailCalls(LPCSTR function, DWORD error, DWORD first, DWORD count);

// The physical memory of the machine in bytes; 0 is the real figure.
__declspec(dllimport) void Win32Control_PretendPhysicalMemory(DWORDLONG bytes);
// The memory that the process uses by itself, as GetProcessMemoryInfo gives it in PagefileUsage;
// 0 is the real figure.
__declspec(dllimport) void Win32Control_PretendProcessUsage(DWORDLONG bytes);
// What GetVersionExA answers; a major version of 0 is the configured one.
__declspec(dllimport) void Win32Control_PretendVersion(DWORD platform, DWORD major, DWORD minor, DWORD build);
// Makes LoadLibraryA and GetModuleHandleA lack one of the layer's modules, or GetProcAddress one
// function of it; a null function means the whole module.
__declspec(dllimport) void Win32Control_HideModule(LPCSTR module, LPCSTR function);

// Hands every text of OutputDebugStringA to the receiver as well; null ends it.
typedef void (*Win32DebugOutputReceiver)(LPCSTR text, void *context);
__declspec(dllimport) void Win32Control_ReceiveDebugOutput(Win32DebugOutputReceiver receiver, void *context);

// Answers message boxes instead of a person: they do not show, and the call gives what the answerer says. Null ends
// it.
typedef int (*Win32MessageBoxAnswerer)(LPCSTR text, LPCSTR caption, UINT type, void *context);
__declspec(dllimport) void Win32Control_AnswerMessageBoxes(Win32MessageBoxAnswerer answerer, void *context);

// How many handles are open in the process, of all kinds: for tests that look for leaks.
__declspec(dllimport) DWORD Win32Control_OpenHandles(void);
// Bytes and blocks held by GlobalAlloc, HeapAlloc and bitmaps.
__declspec(dllimport) void Win32Control_HeldMemory(SIZE_T *bytes, SIZE_T *blocks);

// How many graphics objects the process may have; 0 is the usual 10,000.
__declspec(dllimport) void Win32Control_LimitGdiObjects(DWORD count);
// How many it has, stock objects aside.
__declspec(dllimport) DWORD Win32Control_GdiObjects(void);
// Counts, and can refuse, creations of all kinds of graphics objects together, numbered as above.
__declspec(dllimport) void Win32Control_RefuseGdiCreations(DWORD first, DWORD count);
__declspec(dllimport) DWORD Win32Control_GdiCreationsCounted(void);

// The screen anew in another mode, such as "800x600x8" or "1024x768x32,800x600x32" for two monitors side
// by side; what is on it is lost. FALSE for a mode that cannot be.
__declspec(dllimport) BOOL Win32Control_SetScreenMode(LPCSTR mode);
// Pictures as PNG files under a Win32 path: of the screen, of a part of it, of a bitmap.
__declspec(dllimport) BOOL Win32Control_SaveScreen(LPCSTR path, const RECT *part);
// The same with the cursor, when it shows.
__declspec(dllimport) BOOL Win32Control_SaveScreenWithCursor(LPCSTR path, const RECT *part);
__declspec(dllimport) BOOL Win32Control_SaveBitmap(LPCSTR path, HBITMAP bitmap);

// Everything back to normal; the screen keeps its mode.
__declspec(dllimport) void Win32Control_Reset(void);

#ifdef __cplusplus
}
#endif

#endif
