/* Dragging between windows and programs, and the links that are dragged. */
#ifndef MTBX_DRAG_H
#define MTBX_DRAG_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Replaces the path of a shortcut by the path of what it points to. A path is a shortcut's when it is at
   least 5 bytes long and ends in ".lnk", in any case; another path stays as it is, with the result 0.
   path is a C string in a buffer of 260 bytes. wasLink, which may be null, tells whether the path was a
   shortcut's. The thread must have called CoInitialize. The result is 0 or a failure of the system, not
   a Toolbox code; after a failure the path is as it was, or empty when only the last step failed. When
   the target is missing, Windows may ask the user for it. */
MTBX_API HRESULT ResolveLink(char *path, Boolean *wasLink);
/* The same without any user interface: a missing target is searched for a second and is then a failure. */
MTBX_API HRESULT ResolveLinkQuiet(char *path, Boolean *wasLink);

#ifdef __cplusplus
}
#endif

#endif
