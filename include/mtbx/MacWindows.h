/* The Window Manager. */
#ifndef MTBX_MACWINDOWS_H
#define MTBX_MACWINDOWS_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef GrafPtr WindowPtr;
typedef WindowPtr WindowRef;

/* The head of the window list, which the library keeps. */
extern MTBX_API WindowPtr gFrontWindow;
/* The Window Manager's own port, over the whole screen. */
extern MTBX_API WindowPtr gDesktopWindow;
/* Above 0 while MacShowWindow shows a native window. */
extern MTBX_API SInt32 gOpeningWindowL;

/* Does nothing; InitGraf does the work. */
MTBX_API void InitWindows(void);

#ifdef __cplusplus
}
#endif

#endif
