/* The File Manager. */
#ifndef MTBX_FILES_H
#define MTBX_FILES_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The directory ID of a Win32 path, with or without a backslash at its end; letters are matched
   without regard to case. IDs count from 3 in the order in which paths are first seen, live as long as
   the process, and the directory need not exist. A null or empty path gives the first ID, or 0 while
   there is none, and 0 is also the answer when memory is too short to enter the path. */
MTBX_API SInt32 GetDirectoryID(const char *path);

#ifdef __cplusplus
}
#endif

#endif
