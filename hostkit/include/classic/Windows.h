/* Windows.h of a Macintosh source. Where file names have no case it is the system's windows.h as well, and that
   alone until a header of the library has been included: before, it may be a system header that asks, half read. */
#pragma GCC system_header
#if __has_include_next(<Windows.h>)
#include_next <Windows.h>
#define MTBX_CLASSIC_NAMES_HAVE_NO_CASE
#endif
#if !defined(MTBX_CLASSIC_NAMES_HAVE_NO_CASE) || defined(MTBX_API)
#include <mtbx/MacWindows.h>
#endif
