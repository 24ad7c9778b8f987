/* QuickDraw: its records and globals. */
#ifndef MTBX_QUICKDRAW_H
#define MTBX_QUICKDRAW_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A port and a window are the same record to a drawing call. */
typedef struct GrafPort GrafPort;
typedef GrafPort *GrafPtr;
typedef GrafPort CGrafPort;
typedef CGrafPort *CGrafPtr;

#pragma pack(push, 2)

typedef struct BitMap {
    Ptr baseAddr;
    SInt16 rowBytes;
    Rect bounds;
} BitMap;
typedef BitMap *BitMapPtr;

typedef struct Pattern {
    UInt8 pat[8];
} Pattern;
typedef Pattern *PatPtr;

typedef SInt16 Bits16[16];

typedef struct Cursor {
    Bits16 data;
    Bits16 mask;
    Point hotSpot;
} Cursor;
typedef Cursor *CursPtr;
typedef CursPtr *CursHandle;

/* The globals of QuickDraw. Patterns have the sense of a native monochrome brush, where a 0 bit takes
   the foreground colour: black is all 0. screenBits keeps only its bounds. The first four bytes of
   arrow hold the native arrow cursor. */
typedef struct QDGlobals {
    char privates[76];
    SInt32 randSeed;
    BitMap screenBits;
    Cursor arrow;
    Pattern dkGray;
    Pattern ltGray;
    Pattern gray;
    Pattern black;
    Pattern white;
    GrafPtr thePort;
} QDGlobals;

#pragma pack(pop)

MTBX_ASSERT_OFFSET_32(BitMap, rowBytes, 4);
MTBX_ASSERT_OFFSET_32(BitMap, bounds, 6);
MTBX_ASSERT_SIZE_32(BitMap, 14);
MTBX_ASSERT(sizeof(Pattern) == 8);
MTBX_ASSERT(sizeof(Cursor) == 68 && offsetof(Cursor, mask) == 32 && offsetof(Cursor, hotSpot) == 64);
MTBX_ASSERT(offsetof(QDGlobals, randSeed) == 76);
MTBX_ASSERT(offsetof(QDGlobals, screenBits) == 80);
MTBX_ASSERT_OFFSET_32(QDGlobals, arrow, 94);
MTBX_ASSERT_OFFSET_32(QDGlobals, dkGray, 162);
MTBX_ASSERT_OFFSET_32(QDGlobals, ltGray, 170);
MTBX_ASSERT_OFFSET_32(QDGlobals, gray, 178);
MTBX_ASSERT_OFFSET_32(QDGlobals, black, 186);
MTBX_ASSERT_OFFSET_32(QDGlobals, white, 194);
MTBX_ASSERT_OFFSET_32(QDGlobals, thePort, 202);
MTBX_ASSERT_SIZE_32(QDGlobals, 206);

extern MTBX_API QDGlobals qd;

#ifdef __cplusplus
}
#endif

#endif
