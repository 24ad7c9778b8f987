/* Memory.h of a Macintosh source. Where file names have no case it is the system's memory.h as well, and that
   alone until a header of the library has been included: before, it may be a system header that asks, half read. */
#pragma GCC system_header
#if __has_include_next(<Memory.h>)
#include_next <Memory.h>
#define MTBX_CLASSIC_NAMES_HAVE_NO_CASE
#endif
#if !defined(MTBX_CLASSIC_NAMES_HAVE_NO_CASE) || defined(MTBX_API)
#include <mtbx/MacMemory.h>
#endif
