/* Memory.h of a Macintosh source; where file names have no case, it is the system's memory.h as well. */
#pragma GCC system_header
#include <mtbx/MacMemory.h>
#if __has_include_next(<Memory.h>)
#include_next <Memory.h>
#endif
