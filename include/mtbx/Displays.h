/* Displays: monitors, the mode of global coordinates, and what the library needs of the screen.

   To the Toolbox there is one screen, the main device of Quickdraw.h. */
#ifndef MTBX_DISPLAYS_H
#define MTBX_DISPLAYS_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

struct tagMONITORINFO;
typedef BOOL(CALLBACK *MTBXMonitorProcPtr)(HMONITOR monitor, HDC context, RECT *rect, LPARAM data);

/* The monitor that stands for the screen where the system knows nothing of several monitors. */
#define kSolePrimaryMonitor ((HMONITOR)(ULONG_PTR)0x12340042)

/* The Win32 calls of the same names, looked up at run time. Where the system lacks one of them, all answer
   for a single monitor. */
MTBX_API int MTBX_GetSystemMetrics(int index);
MTBX_API HMONITOR MTBX_MonitorFromWindow(HWND window, DWORD flags);
MTBX_API HMONITOR MTBX_MonitorFromRect(const RECT *rect, DWORD flags);
MTBX_API HMONITOR MTBX_MonitorFromPoint(LONG x, LONG y, DWORD flags);
/* A MONITORINFO, or a MONITORINFOEXA that says so by its cbSize of 72; any other cbSize is set to 40
   first. */
MTBX_API Boolean MTBX_GetMonitorInfo(HMONITOR monitor, struct tagMONITORINFO *info);
MTBX_API Boolean MTBX_EnumDisplayMonitors(HDC context, const RECT *clip, MTBXMonitorProcPtr procedure, LPARAM data);

/* The rectangle of all monitors together, in screen coordinates. */
MTBX_API void MTBX_GetGrayRect(Rect *rect);

/* What global coordinates mean: with mode 0 the client area of hWndMain, with mode 1 the screen. The mode
   begins as 0. Setting another one brings qd.screenBits.bounds up to date: the client area, or the
   rectangle of all monitors. */
MTBX_API SInt32 GetGlobalMode(void);
MTBX_API void SetGlobalMode(SInt32 mode);
/* Brings the bounds up to date, after the main window or the monitors changed. */
MTBX_API void UpdateGlobalMode(void);
/* The place of the cursor in global coordinates. */
MTBX_API void GetGlobalMouse(Point *point);

/* Whether the display's driver can do what the library needs, and has more than 256 colours. Tells the
   user what is missing; with 256 colours it asks whether to go on. The short check looks neither at
   stretching nor at colours. On false the host is to shut down. */
MTBX_API Boolean MTBX_VerifyDisplayCapabilities(Boolean shortCheck);

#ifdef __cplusplus
}
#endif

#endif
