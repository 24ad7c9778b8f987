/* QuickDraw: its records and globals. */
#ifndef MTBX_QUICKDRAW_H
#define MTBX_QUICKDRAW_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A port and a window are the same record to a drawing call, and a basic port differs from a colour
   port only in what its first fields mean. */
typedef struct GrafPort GrafPort;
typedef GrafPort *GrafPtr;
typedef GrafPort CGrafPort;
typedef CGrafPort *CGrafPtr;

typedef struct MacRegion MacRegion;
typedef MacRegion *RgnPtr;
typedef RgnPtr *RgnHandle;

typedef struct ColorTable ColorTable;
typedef ColorTable *CTabPtr;
typedef CTabPtr *CTabHandle;

typedef struct GDevice GDevice;
typedef GDevice *GDPtr;
typedef GDPtr *GDHandle;

/* The library's record of one size and style of a font. */
struct FontInstance;

typedef SInt8 GrafVerb;
enum { kQDGrafVerbFrame = 0, kQDGrafVerbPaint = 1, kQDGrafVerbErase = 2, kQDGrafVerbInvert = 3 };

#pragma pack(push, 2)

typedef struct BitMap {
    Ptr baseAddr;
    SInt16 rowBytes;
    Rect bounds;
} BitMap;
typedef BitMap *BitMapPtr;

/* Red, green and blue, each from 0 to 65535. */
typedef struct RGBColor {
    UInt16 red;
    UInt16 green;
    UInt16 blue;
} RGBColor;
typedef RGBColor *RGBColorPtr;

/* The published fields, and behind them what the library keeps of the native side. */
typedef struct PixMap {
    Ptr baseAddr;
    SInt16 rowBytes;
    Rect bounds;
    SInt16 pmVersion;
    SInt16 packType;
    SInt32 packSize;
    Fixed hRes;
    Fixed vRes;
    SInt16 pixelType;
    SInt16 pixelSize;
    SInt16 cmpCount;
    SInt16 cmpSize;
    SInt32 planeBytes;
    CTabHandle pmTable;
    Handle pmReserved;
    /* The native window behind the port. Null for one that draws in memory only. */
    HWND pmWindow;
    /* The context on which the port draws; a window's port has one only while it is current. */
    HDC pmDC;
    /* The bitmap that holds the pixels of an offscreen world, and what its context held before. */
    HBITMAP pmBitmap;
    HBITMAP pmOldBitmap;
    SInt32 pmFormat;
    /* Red, green, blue, alpha. */
    UInt32 pmMasks[4];
    /* Of the present bitmap, in pixels; 0 before there is one. */
    SInt16 pmWidth;
    SInt16 pmHeight;
    SInt16 pmDepth;
    /* 1 when the context stays while the port is not current. */
    UInt8 pmPersistentDC;
} PixMap;
typedef PixMap *PixMapPtr;
typedef PixMapPtr *PixMapHandle;

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

/* Of a pixel pattern the library keeps the record only; it draws none. */
typedef struct PixPat {
    SInt16 patType;
    PixMapHandle patMap;
    Handle patData;
    Handle patXData;
    SInt16 patXValid;
    Handle patXMap;
    Pattern pat1Data;
} PixPat;
typedef PixPat *PixPatPtr;
typedef PixPatPtr *PixPatHandle;

/* The points follow the header, up to polySize bytes in all. */
typedef struct MacPolygon {
    SInt16 polySize;
    Rect polyBBox;
    Point polyPoints[1];
} MacPolygon;
typedef MacPolygon *PolyPtr;
typedef PolyPtr *PolyHandle;

/* Behind the four published fields stands a byte for the font's character set, which GetFontInfo
   writes too. */
typedef struct FontInfo {
    SInt16 ascent;
    SInt16 descent;
    SInt16 widMax;
    SInt16 leading;
    UInt8 charSet;
} FontInfo;

/* The pen, as GetPenState saves it. */
typedef struct PenState {
    Point pnLoc;
    Point pnSize;
    SInt16 pnMode;
    Pattern pnPat;
} PenState;

/* Colours that a colour port keeps behind grafVars; only rgbOpColor is used. */
typedef struct GrafVars {
    RGBColor rgbOpColor;
    RGBColor rgbHiliteColor;
    Handle pmFgColor;
    SInt16 pmFgIndex;
    Handle pmBkColor;
    SInt16 pmBkIndex;
    SInt16 pmFlags;
} GrafVars;

typedef void (*QDTextProcPtr)(SInt16 byteCount, const void *textBuf, Point numer, Point denom);
typedef void (*QDLineProcPtr)(Point newPt);
typedef void (*QDRectProcPtr)(GrafVerb verb, const Rect *r);
typedef void (*QDRRectProcPtr)(GrafVerb verb, const Rect *r, SInt16 ovalWidth, SInt16 ovalHeight);
typedef void (*QDOvalProcPtr)(GrafVerb verb, const Rect *r);
typedef void (*QDArcProcPtr)(GrafVerb verb, const Rect *r, SInt16 startAngle, SInt16 arcAngle);
typedef void (*QDPolyProcPtr)(GrafVerb verb, PolyHandle poly);
typedef void (*QDRgnProcPtr)(GrafVerb verb, RgnHandle rgn);
typedef void (*QDBitsProcPtr)(const BitMap *srcBits, const Rect *srcRect, const Rect *dstRect, SInt16 mode,
                              RgnHandle maskRgn);
typedef void (*QDCommentProcPtr)(SInt16 kind, SInt16 dataSize, Handle dataHandle);
typedef SInt16 (*QDTxMeasProcPtr)(SInt16 byteCount, const void *textAddr, Point *numer, Point *denom, FontInfo *info);
typedef void (*QDGetPicProcPtr)(void *dataPtr, SInt16 byteCount);
typedef void (*QDPutPicProcPtr)(const void *dataPtr, SInt16 byteCount);
typedef void (*QDOpcodeProcPtr)(const Rect *fromRect, const Rect *toRect, UInt16 opcode, SInt16 version);
typedef SInt32 (*QDStdProcPtr)(void);

/* Functions of the host that draw in the library's place. A null slot stands for the library's own
   drawing. The library calls those for text, lines, rectangles, rounded rectangles, ovals, polygons,
   regions and bits. */
typedef struct CQDProcs {
    QDTextProcPtr textProc;
    QDLineProcPtr lineProc;
    QDRectProcPtr rectProc;
    QDRRectProcPtr rRectProc;
    QDOvalProcPtr ovalProc;
    QDArcProcPtr arcProc;
    QDPolyProcPtr polyProc;
    QDRgnProcPtr rgnProc;
    QDBitsProcPtr bitsProc;
    QDCommentProcPtr commentProc;
    QDTxMeasProcPtr txMeasProc;
    QDGetPicProcPtr getPicProc;
    QDPutPicProcPtr putPicProc;
    QDOpcodeProcPtr opcodeProc;
    QDStdProcPtr newProc1;
    QDStdProcPtr newProc2;
    QDStdProcPtr newProc3;
    QDStdProcPtr newProc4;
    QDStdProcPtr newProc5;
    QDStdProcPtr newProc6;
} CQDProcs;
typedef CQDProcs *CQDProcsPtr;
typedef CQDProcs QDProcs;
typedef QDProcs *QDProcsPtr;

/* A port is a colour port when both top bits of portVersion are set. In a basic port the same bytes
   are portBits, whose rowBytes never has them.

   What stands behind grafProcs belongs to the library. */
struct GrafPort {
    SInt16 device;
    union {
        struct {
            PixMapHandle portPixMap;
            UInt16 portVersion;
            Handle grafVars;
            SInt16 chExtra;
            SInt16 pnLocHFrac;
        };
        BitMap portBits;
    };
    /* Its top left is the origin of the port's coordinates. */
    Rect portRect;
    RgnHandle visRgn;
    RgnHandle clipRgn;
    Pattern bkPat;
    Pattern fillPat;
    SInt32 reserved;
    RGBColor rgbFgColor;
    RGBColor rgbBkColor;
    Point pnLoc;
    Point pnSize;
    SInt16 pnMode;
    Pattern pnPat;
    SInt16 pnVis;
    SInt16 txFont;
    Style txFace;
    UInt8 filler;
    SInt16 txMode;
    SInt16 txSize;
    Fixed spExtra;
    /* The native forms, 0x00BBGGRR, of the two colours above. */
    UInt32 fgColor;
    UInt32 bkColor;
    SInt16 colrBit;
    SInt16 patStretch;
    Handle picSave;
    Handle rgnSave;
    Handle polySave;
    CQDProcsPtr grafProcs;

    UInt16 portLayerFlag;
    /* The pattern brush of pnPat, owned by the port. */
    HBRUSH portBrush;
    /* What the context held before; -1 for nothing. */
    HGDIOBJ portSavedBrush;
    HGDIOBJ portSavedFont;
    HFONT portFont;
    struct FontInstance *portFontInstance;
    UInt16 portFontDirty;
    SInt32 portColorStamp;
    SInt32 moveInMainClient;
    /* 1 for a port that is no window. */
    UInt8 portOffscreen;
    UInt8 portFiller;
    /* The context of a basic port. */
    HDC portDC;
    HBITMAP portBitmap;
    HBITMAP portOldBitmap;
};

/* A set of pixels: a native region that the record owns, with its bounding box in front. There are no
   scan lines behind the box, and rgnSize is 10 whatever the shape. The native region may be replaced
   by CloseRgn, MapRgn and BitMapToRegion, so nothing may keep rgnNative across these. */
struct MacRegion {
    SInt16 rgnSize;
    Rect rgnBBox;
    HRGN rgnNative;
    UInt16 rgnTag; /* kRegionTag while the record lives */
};
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
MTBX_ASSERT(sizeof(RGBColor) == 6);
MTBX_ASSERT_OFFSET_32(PixMap, pmVersion, 14);
MTBX_ASSERT_OFFSET_32(PixMap, hRes, 22);
MTBX_ASSERT_OFFSET_32(PixMap, pixelType, 30);
MTBX_ASSERT_OFFSET_32(PixMap, planeBytes, 38);
MTBX_ASSERT_OFFSET_32(PixMap, pmTable, 42);
MTBX_ASSERT_OFFSET_32(PixMap, pmReserved, 46);
MTBX_ASSERT_OFFSET_32(PixMap, pmWindow, 50);
MTBX_ASSERT_OFFSET_32(PixMap, pmDC, 54);
MTBX_ASSERT_OFFSET_32(PixMap, pmFormat, 66);
MTBX_ASSERT_OFFSET_32(PixMap, pmMasks, 70);
MTBX_ASSERT_OFFSET_32(PixMap, pmWidth, 86);
MTBX_ASSERT_OFFSET_32(PixMap, pmPersistentDC, 92);
MTBX_ASSERT_SIZE_32(PixMap, 94);
MTBX_ASSERT(sizeof(Pattern) == 8);
MTBX_ASSERT_SIZE_32(PixPat, 28);
MTBX_ASSERT(offsetof(MacPolygon, polyPoints) == 10);
MTBX_ASSERT(offsetof(FontInfo, charSet) == 8);
MTBX_ASSERT(sizeof(PenState) == 18 && offsetof(PenState, pnPat) == 10);
MTBX_ASSERT_SIZE_32(GrafVars, 26);
MTBX_ASSERT_OFFSET_32(CQDProcs, bitsProc, 32);
MTBX_ASSERT_SIZE_32(CQDProcs, 80);
MTBX_ASSERT(offsetof(GrafPort, portBits) == offsetof(GrafPort, portPixMap));
MTBX_ASSERT(offsetof(GrafPort, portBits.rowBytes) == offsetof(GrafPort, portVersion));
MTBX_ASSERT_OFFSET_32(GrafPort, grafVars, 8);
MTBX_ASSERT_OFFSET_32(GrafPort, portRect, 16);
MTBX_ASSERT_OFFSET_32(GrafPort, visRgn, 24);
MTBX_ASSERT_OFFSET_32(GrafPort, bkPat, 32);
MTBX_ASSERT_OFFSET_32(GrafPort, rgbFgColor, 52);
MTBX_ASSERT_OFFSET_32(GrafPort, pnLoc, 64);
MTBX_ASSERT_OFFSET_32(GrafPort, pnPat, 74);
MTBX_ASSERT_OFFSET_32(GrafPort, txFont, 84);
MTBX_ASSERT_OFFSET_32(GrafPort, txMode, 88);
MTBX_ASSERT_OFFSET_32(GrafPort, fgColor, 96);
MTBX_ASSERT_OFFSET_32(GrafPort, picSave, 108);
MTBX_ASSERT_OFFSET_32(GrafPort, grafProcs, 120);
MTBX_ASSERT_OFFSET_32(GrafPort, portBrush, 126);
MTBX_ASSERT_OFFSET_32(GrafPort, portFontDirty, 146);
MTBX_ASSERT_OFFSET_32(GrafPort, portOffscreen, 156);
MTBX_ASSERT_OFFSET_32(GrafPort, portDC, 158);
MTBX_ASSERT_SIZE_32(GrafPort, 170);
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

/* Regions. Their coordinates are those that the caller means by them. A source may also be the result.
   A null region, and a record that lost its native region, are taken as what cannot be changed and
   holds no pixel. */

/* A new, empty region, owned by the caller; null when memory or native objects have run out. */
MTBX_API RgnHandle NewRgn(void);
/* Frees the record with its native region. A handle that is no region is freed as a handle. */
MTBX_API void DisposeRgn(RgnHandle rgn);
/* Brings rgnBBox and rgnSize up to the native region, for a host that changed that itself. The box is
   cut to 16 bits. */
MTBX_API void CalcRgnBox(RgnHandle rgn);
/* Copies the bounding box; (0, 0, 0, 0) of an empty region. */
MTBX_API void GetRegionBounds(RgnHandle rgn, Rect *bounds);

/* Begins to record the points of MoveTo, Line and MacLineTo, which then draw nothing and leave the pen
   where it is; other drawing goes on as usual. There is one recording for all ports: one that is open
   is dropped. After 100 points further ones are not recorded. */
MTBX_API void OpenRgn(void);
/* Ends the recording and makes the region the polygon of all its points: MoveTo begins no new outline,
   as it does on a Macintosh. Parts that the line winds around count as inside. Empty when there are
   fewer than two points, or no polygon can be had. */
MTBX_API void CloseRgn(RgnHandle result);

MTBX_API void MacCopyRgn(RgnHandle source, RgnHandle destination);
/* Makes the region a rectangle; empty when that has no area. */
MTBX_API void RectRgn(RgnHandle rgn, const Rect *rect);
MTBX_API void MacSetRectRgn(RgnHandle rgn, SInt16 left, SInt16 top, SInt16 right, SInt16 bottom);
MTBX_API void SetEmptyRgn(RgnHandle rgn);
/* Moves the region. One that would leave the range from -32760 to 32760 stays where it is. */
MTBX_API void MacOffsetRgn(RgnHandle rgn, SInt16 dh, SInt16 dv);
/* Makes the region smaller at each side by dh and at top and bottom by dv, or larger with both negative:
   what its copies moved by (+-dh, +-dv) have in common, or have together. Unless both are positive or
   both negative the region only moves by (dh, dv). Unchanged when native objects have run out. */
MTBX_API void InsetRgn(RgnHandle rgn, SInt16 dh, SInt16 dv);
/* Scales the region about (0, 0) by the sizes of the two rectangles; their places do not count, as
   they do on a Macintosh. Unchanged when the source rectangle is empty, and when memory or native
   objects have run out. */
MTBX_API void MapRgn(RgnHandle rgn, const Rect *source, const Rect *destination);

MTBX_API void SectRgn(RgnHandle a, RgnHandle b, RgnHandle result);
MTBX_API void MacUnionRgn(RgnHandle a, RgnHandle b, RgnHandle result);
/* a without b. */
MTBX_API void DiffRgn(RgnHandle a, RgnHandle b, RgnHandle result);
/* What lies in one of both only. The result stays as it was when native objects have run out. */
MTBX_API void MacXorRgn(RgnHandle a, RgnHandle b, RgnHandle result);

MTBX_API Boolean PtInRgn(Point point, RgnHandle rgn);
/* Whether the rectangle and the region itself, not only its box, share a pixel. */
MTBX_API Boolean RectInRgn(const Rect *rect, RgnHandle rgn);
MTBX_API Boolean MacEqualRgn(RgnHandle a, RgnHandle b);
MTBX_API Boolean EmptyRgn(RgnHandle rgn);

/* Makes the region the set bits of a bitmap, in the coordinates of its bounds. Only address, row bytes
   and bounds are looked at, so a PixMap serves too; whether it is one bit deep is judged by its row
   bytes, and a bitmap that is 8 pixels wide needs other than 2. Set bits behind the right side count
   up to the end of their byte. 0, or -148 (pixmapTooDeepErr), memFullErr (-108), or -501
   (rgnTooBigErr) when GDI refuses the region; the region is then as it was. A null region frees the
   buffer that is kept between calls. */
MTBX_API OSErr BitMapToRegion(RgnHandle rgn, const BitMap *bitmap);

/* A pseudo-random number from -32767 to 32767, drawn from the C library's rand. qd.randSeed has no
   part in it: a host that wants its own sequence calls srand. */
MTBX_API SInt16 Random(void);

#ifdef __cplusplus
}
#endif

#endif
