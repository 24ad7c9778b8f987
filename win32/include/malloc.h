// The C library's header, with what the Microsoft C library has beside it.
#ifndef WIN32_MALLOC_H
#define WIN32_MALLOC_H

#pragma GCC system_header

#include_next <malloc.h>

#ifdef __cplusplus
extern "C" {
#endif

// Gives unused memory of the C heap back to the system. The result is 0.
__attribute__((visibility("default"))) int _heapmin(void);

#ifdef __cplusplus
}
#endif

#endif
