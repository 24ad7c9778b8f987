/* How the library's names are seen by a host's compiler. */
#ifndef MTBX_CONFIG_H
#define MTBX_CONFIG_H

#include <windows.h>

/* The build of the library itself defines MTBX_API; for a host every name is imported. */
#ifndef MTBX_API
#define MTBX_API __declspec(dllimport)
#endif

/* A record that shares its place with others, which the compiler must expect. */
#define MTBX_MAY_ALIAS __attribute__((may_alias))

/* A check of a record's layout in the 32-bit build, which fixes the widths of all records. In a
   64-bit build fields with a pointer, a native handle or a host's reference value are wider. */
#ifdef __cplusplus
#define MTBX_ASSERT(condition) static_assert(condition, #condition)
#else
#define MTBX_ASSERT(condition) _Static_assert(condition, #condition)
#endif
#define MTBX_IS_32_BIT (sizeof(void *) == 4)
#define MTBX_ASSERT_SIZE_32(type, size) MTBX_ASSERT(!MTBX_IS_32_BIT || sizeof(type) == (size))
#define MTBX_ASSERT_OFFSET_32(type, field, offset) MTBX_ASSERT(!MTBX_IS_32_BIT || offsetof(type, field) == (offset))

#endif
