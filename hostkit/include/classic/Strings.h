/* Strings.h of a Macintosh source; where file names have no case, it is the system's strings.h as well. */
#pragma GCC system_header
#include <mtbx/TextUtils.h>
#if __has_include_next(<Strings.h>)
#include_next <Strings.h>
#endif
