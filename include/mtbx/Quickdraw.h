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

/* A set of pixels: a native region that the record owns, with its bounding box in front. There are no
   scan lines behind the box, and rgnSize is 10 whatever the shape. The native region may be replaced
   by CloseRgn, MapRgn and BitMapToRegion, so nothing may keep rgnNative across these. */
typedef struct MacRegion {
    SInt16 rgnSize;
    Rect rgnBBox;
    HRGN rgnNative;
    UInt16 rgnTag; /* kRegionTag while the record lives */
} MacRegion;
typedef MacRegion *RgnPtr;
typedef RgnPtr *RgnHandle;
enum { kRegionTag = 9094 };

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
MTBX_ASSERT(offsetof(MacRegion, rgnBBox) == 2 && offsetof(MacRegion, rgnNative) == 10);
MTBX_ASSERT_OFFSET_32(MacRegion, rgnTag, 14);
MTBX_ASSERT_SIZE_32(MacRegion, 16);
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

/* Rectangles and points. Coordinates are of no particular space, and sums wrap at 16 bits. No
   rectangle is put in order: one whose right is at most its left, or whose bottom is at most its top,
   is empty and keeps its coordinates. */

/* Sets the four sides. */
MTBX_API void MacSetRect(Rect *rect, SInt16 left, SInt16 top, SInt16 right, SInt16 bottom);
MTBX_API void MacOffsetRect(Rect *rect, SInt16 dh, SInt16 dv);
/* Moves each side inwards. A rectangle that is inset by more than its half turns inside out; it is not
   made (0, 0, 0, 0) as on a Macintosh. */
MTBX_API void MacInsetRect(Rect *rect, SInt16 dh, SInt16 dv);
/* The common part of two rectangles, which may be either of them. False, and (0, 0, 0, 0), when there
   is none. */
MTBX_API Boolean SectRect(const Rect *a, const Rect *b, Rect *result);
/* The smallest rectangle around both, which may be either of them. Empty rectangles count: one that
   lies outside pulls the result out to it. */
MTBX_API void MacUnionRect(const Rect *a, const Rect *b, Rect *result);
MTBX_API Boolean MacPtInRect(Point point, const Rect *rect);
/* Whether all four sides are equal; two empty rectangles may differ. */
MTBX_API Boolean MacEqualRect(const Rect *a, const Rect *b);
MTBX_API Boolean EmptyRect(const Rect *rect);
MTBX_API Boolean EqualPt(Point a, Point b);
MTBX_API void SetPt(Point *point, SInt16 h, SInt16 v);
MTBX_API void AddPt(Point source, Point *destination);
MTBX_API void SubPt(Point source, Point *destination);
/* The direction from the rectangle's centre to the point in whole degrees, clockwise: 360 is straight
   up, 90 right, 180 down, 270 left, and 90 for the centre itself. The rectangle's proportions do not
   count, as they do on a Macintosh. */
MTBX_API void PtToAngle(const Rect *rect, Point point, SInt16 *angle);

/* A pseudo-random number from -32767 to 32767, drawn from the C library's rand. qd.randSeed has no
   part in it: a host that wants its own sequence calls srand. */
MTBX_API SInt16 Random(void);

#ifdef __cplusplus
}
#endif

#endif
