/* Text Utilities: conversions between C strings and Pascal strings. */
#ifndef MTBX_TEXTUTILS_H
#define MTBX_TEXTUTILS_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Turns a C string into a Pascal string in place and returns it; what is longer than 255 bytes is
   cut. The buffer needs one byte for the length, which the terminator gives. */
MTBX_API StringPtr c2pstr(char *text);
/* Turns a Pascal string into a C string in place and returns it. */
MTBX_API char *p2cstr(StringPtr text);
/* Copies a Pascal string and returns the destination; they may overlap. A null source makes the
   destination empty, a null destination gives null. */
MTBX_API StringPtr pstrcpy(StringPtr destination, ConstStr255Param source);

#ifdef __cplusplus
}
#endif

#endif
