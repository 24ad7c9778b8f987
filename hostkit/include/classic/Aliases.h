/* Aliases.h of a Macintosh source; where file names have no case, it is the system's aliases.h as well. */
#pragma GCC system_header
#include <mtbx/Aliases.h>
#if __has_include_next(<Aliases.h>)
#include_next <Aliases.h>
#endif
