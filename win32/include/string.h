// The C library's header, with what the Microsoft C library has beside it. Letters A to Z only
// are matched without regard to case, as in the "C" locale.
#ifndef WIN32_STRING_H
#define WIN32_STRING_H

#pragma GCC system_header

#include_next <string.h>

#ifdef __cplusplus
extern "C" {
#endif

__attribute__((visibility("default"))) int _stricmp(const char *left, const char *right);
__attribute__((visibility("default"))) int _strnicmp(const char *left, const char *right, size_t count);

#ifdef __cplusplus
}
#endif

#endif
