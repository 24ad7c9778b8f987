// The C library's header, with files named as Win32 names them: fopen, freopen, remove and rename take
// paths with drives and backslashes, and find names in any case. A path that has neither a drive nor a
// backslash is looked for as it stands first.
#ifndef WIN32_STDIO_H
#define WIN32_STDIO_H

#pragma GCC system_header

// The C library would give fopen another symbol for large files, which all files are here anyway.
#include <features.h>
#pragma push_macro("__USE_FILE_OFFSET64")
#undef __USE_FILE_OFFSET64
#include_next <stdio.h>
#pragma pop_macro("__USE_FILE_OFFSET64")

// The layer's own sources keep the C library's calls.
#ifndef WIN32_LAYER_SOURCE

#ifdef __cplusplus
extern "C" {
#endif

// rename never replaces an existing file, as on Windows.
extern FILE *fopen(const char *path, const char *mode) __asm__("Win32Crt_fopen");
extern FILE *freopen(const char *path, const char *mode, FILE *file) __asm__("Win32Crt_freopen");
extern int remove(const char *path) __asm__("Win32Crt_remove");
extern int rename(const char *from, const char *to) __asm__("Win32Crt_rename");

#ifdef __cplusplus
}
#endif

#endif
#endif
