/* Errors.h of a Macintosh source; where file names have no case, it is the system's errors.h as well. */
#pragma GCC system_header
#include <mtbx/MacErrors.h>
#if __has_include_next(<Errors.h>)
#include_next <Errors.h>
#endif
