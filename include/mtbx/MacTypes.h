/* Base types of the Toolbox, and the debugging calls.

   Records that the library shares with its host are packed on 2-byte boundaries. */
#ifndef MTBX_MACTYPES_H
#define MTBX_MACTYPES_H

#include <mtbx/MTBXConfig.h>

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef uint8_t UInt8;
typedef int8_t SInt8;
typedef uint16_t UInt16;
typedef int16_t SInt16;
typedef uint32_t UInt32;
typedef int32_t SInt32;
typedef uint64_t UInt64;
typedef int64_t SInt64;

/* The library writes 0 or 1 and tests for non-zero. */
typedef unsigned char Boolean;
/* 0 is success, a negative value a Toolbox result code, a positive one a Win32 error for which
   the Toolbox has none. */
typedef SInt16 OSErr;
typedef SInt32 OSStatus;
/* A count of bytes. */
typedef SInt32 Size;
/* A value that the host keeps in a record of the library; wide enough for a pointer. */
typedef intptr_t SRefCon;
typedef uintptr_t URefCon;

/* A block that stays where it is (NewPtr). */
typedef char *Ptr;
/* The address of a pointer to a block. The block moves when its size changes, and only then, so
   the pointer must not be kept across SetHandleSize. */
typedef Ptr *Handle;

/* Four characters, the first in the highest byte: 'TEXT' is 0x54455854. */
typedef UInt32 FourCharCode;
typedef FourCharCode OSType;
typedef FourCharCode ResType;

/* A length byte and that many characters, without a terminator. */
typedef unsigned char Str255[256];
typedef unsigned char Str63[64];
typedef unsigned char Str31[32];
typedef unsigned char *StringPtr;
typedef StringPtr *StringHandle;
typedef const unsigned char *ConstStr255Param;

typedef SInt32 Fixed;
typedef SInt32 Fract;
typedef SInt16 ScriptCode;
typedef SInt16 LangCode;
typedef UInt8 Style;

#pragma pack(push, 2)

/* Passed by value as one 32-bit word with v in its low half. Old sources take the corners of a Rect for Points. */
typedef struct MTBX_MAY_ALIAS Point {
    SInt16 v;
    SInt16 h;
} Point;
typedef Point *PointPtr;

/* Half-open: right and bottom are the first coordinates outside. */
typedef struct Rect {
    SInt16 top;
    SInt16 left;
    SInt16 bottom;
    SInt16 right;
} Rect;
typedef Rect *RectPtr;

#pragma pack(pop)

MTBX_ASSERT(sizeof(Point) == 4);
MTBX_ASSERT(sizeof(Rect) == 8);

enum { noErr = 0 };

/* Writes the Pascal string to the debug output, then a line end as a text of its own. The program
   goes on. */
MTBX_API void DebugStr(ConstStr255Param text);

/* Breaks into the debugger. Without one the process ends, as at any break point. */
MTBX_API void Debugger(void);

#ifdef __cplusplus
}
#endif

#endif
