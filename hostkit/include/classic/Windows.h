/* Windows.h of a Macintosh source; where file names have no case, it is the system's windows.h as well. */
#pragma GCC system_header
#if __has_include_next(<Windows.h>)
#include_next <Windows.h>
#endif
/* The library's headers ask for the system's before they are ready. */
#if !defined(MTBX_CONFIG_H) || defined(MTBX_API)
#include <mtbx/MacWindows.h>
#endif
