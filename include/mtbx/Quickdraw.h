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

/* Transfer modes of the pen and of copied bits. */
enum {
    srcCopy = 0,
    srcOr = 1,
    srcXor = 2,
    srcBic = 3,
    notSrcCopy = 4,
    notSrcOr = 5,
    notSrcXor = 6,
    notSrcBic = 7,
    patCopy = 8,
    patOr = 9,
    patXor = 10,
    patBic = 11,
    notPatCopy = 12,
    notPatOr = 13,
    notPatXor = 14,
    notPatBic = 15,
    blend = 32,
    addOver = 34
};

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
typedef PatPtr *PatHandle;

typedef SInt16 Bits16[16];

typedef struct Cursor {
    Bits16 data;
    Bits16 mask;
    Point hotSpot;
} Cursor;
typedef Cursor *CursPtr;
typedef CursPtr *CursHandle;

typedef struct ColorSpec {
    UInt16 value; /* of a table's entry: its index */
    RGBColor rgb;
} ColorSpec;
typedef ColorSpec *ColorSpecPtr;

/* The header is longer than the published one. The entries follow it, one more than ctSize says. */
struct ColorTable {
    SInt32 ctSeed;
    UInt16 ctFlags;
    SInt16 ctSize;
    Handle ctHeader; /* a BITMAPINFO made for the table, or null */
    SInt32 ctReserved1;
    SInt32 ctReserved2;
    UInt16 ctUsage;
    ColorSpec ctTable[1];
};

/* The library makes none. */
typedef struct ITab {
    SInt32 iTabSeed;
    SInt16 iTabRes;
    UInt8 iTTable[1];
} ITab;
typedef ITab *ITabPtr;
typedef ITabPtr *ITabHandle;

/* The one screen, as the device calls give it. What stands before gdPMap is not filled. */
struct GDevice {
    SInt16 gdRefNum;
    SInt16 gdID;
    SInt16 gdType;
    Handle gdITable;
    SInt16 gdResPref;
    SInt16 gdFlags;
    PixMapHandle gdPMap;
    Rect gdRect;
};

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
MTBX_ASSERT(sizeof(ColorSpec) == 8);
MTBX_ASSERT_OFFSET_32(ColorTable, ctHeader, 8);
MTBX_ASSERT_OFFSET_32(ColorTable, ctUsage, 20);
MTBX_ASSERT_OFFSET_32(ColorTable, ctTable, 22);
MTBX_ASSERT_OFFSET_32(GDevice, gdPMap, 14);
MTBX_ASSERT_SIZE_32(GDevice, 26);
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

/* Starts the graphics layer, after hWndMain is set and before anything else here is called. The
   argument is ignored; the globals are always qd. Measures the screen's depth, opens a port on the
   main window and makes it current. It never fails: what could not be made is missing later on. Called
   again it begins anew. */
MTBX_API void InitGraf(void *globals);
/* Ends it. The host disposes its windows and offscreen worlds first; the current port is then none. */
MTBX_API void MTBX_ShutdownGraf(void);

/* Ports. A port's own coordinates begin at the top left of its portRect. They go to the native
   context as they are: the port's origin is the context's window origin, and its clip a region that is
   selected there. A window's port has a context only while it is current; drawing in a port without
   one does nothing. No call tests a port that it is given: it must be an open one. */

/* Fills a record as a colour port, with a black pen of one pixel, the widest clip, an empty PixMap of
   the screen's depth and no context; fields that have no start value keep what the record held. The
   port does not stay current unless it is the first. QDError is memFullErr when it could not be
   opened: the record must not be used then. A port that is to get a native window must be a whole
   WindowRecord, and portOffscreen tells the two apart: it is 0 for a window. */
MTBX_API void OpenCPort(CGrafPtr port);
/* Frees what the port owns: regions, PixMap with context, bitmap and native window, brush, and the
   block of its graphics hooks. qd.thePort is left alone, so another port should be current. */
MTBX_API void CloseCPort(CGrafPtr port);
/* The same for a basic port, which draws on a memory context of its own; OpenPort makes it current. */
MTBX_API void OpenPort(GrafPtr port);
MTBX_API void ClosePort(GrafPtr port);
/* A new colour port that is no window. Null when memory is short; when QDError is memFullErr too, the
   port could not be opened and only DisposePort may get it. */
MTBX_API CGrafPtr CreateNewPort(void);
/* Closes a port of CreateNewPort and frees it; null is allowed. The current port becomes the first
   port if it is this one. */
MTBX_API void DisposePort(CGrafPtr port);

/* Makes a port current: the former one gives its context back and the new one takes one, with its
   origin, colours, pen pattern, font and clip. The pen's transfer mode and position are not
   set in the context before the next PenMode or drawing call. Null stands for the first port.
   The port that is current already is left as it is. Clears QDError. */
MTBX_API void MacSetPort(GrafPtr port);
/* Clears QDError. */
MTBX_API void GetPort(GrafPtr *port);
/* The error of the last call that sets it, memFullErr or 0. Reading it clears it. */
MTBX_API SInt16 QDError(void);

/* Makes (h, v) the coordinates of the current port's top left corner and moves its clip along. The
   clip is computed before the context's origin changes, so it takes effect at its new place with the
   next call that sets a clip or a port. */
MTBX_API void SetOrigin(SInt16 h, SInt16 v);
/* Changes portRect only, of the current port: no region and no context. */
MTBX_API void PortSize(SInt16 width, SInt16 height);
/* Moves portRect so that its top left corner would come to lie at the global point. */
MTBX_API void MovePortTo(SInt16 leftGlobal, SInt16 topGlobal);
/* The region that limits drawing in the current port, in the port's coordinates. It is copied, and
   takes effect at once. */
MTBX_API void SetClip(RgnHandle rgn);
MTBX_API void ClipRect(const Rect *rect);
/* Copies the clip to the region. */
MTBX_API void GetClip(RgnHandle rgn);

/* Fills a table of graphics hooks with null slots, which stand for the library's own drawing. */
MTBX_API void SetStdCProcs(CQDProcsPtr procs);

/* Remembers the device, or none, and calls UseGDevPMap. */
MTBX_API void SetGDevice(GDHandle device);
/* The next port that is opened takes depth and format from the PixMap of the remembered device. */
MTBX_API void UseGDevPMap(void);

/* Between these two, new ports and windows take regions that the library shares among them, which
   saves native objects; they nest. The setting "MinimalGdiItemCreation" turns them off. */
MTBX_API void MTBX_BeginGdiMinimalisticWindowCreationMode(void);
MTBX_API void MTBX_EndGdiMinimalisticWindowCreationMode(void);
/* Kept for hosts that call them; nothing depends on them. */
MTBX_API void MTBX_BeginQuietMinGdiAsserts(void);
MTBX_API void MTBX_EndQuietMinGdiAsserts(void);

/* Fields of a port. Getters with a second argument copy to it and give it back. Setters change the
   field only: a clip or visible region takes effect with the next call that computes the clip, a pen
   mode with the next PenMode. */
/* The port as CopyBits takes it. */
MTBX_API const BitMap *GetPortBitMapForCopyBits(CGrafPtr port);
MTBX_API PixMapHandle GetPortPixMap(CGrafPtr port);
MTBX_API Rect *GetPortBounds(CGrafPtr port, Rect *rect);
MTBX_API void SetPortBounds(CGrafPtr port, const Rect *rect);
MTBX_API RgnHandle GetPortVisibleRegion(CGrafPtr port, RgnHandle rgn);
MTBX_API void SetPortVisibleRegion(CGrafPtr port, RgnHandle rgn);
MTBX_API RgnHandle GetPortClipRegion(CGrafPtr port, RgnHandle rgn);
MTBX_API void SetPortClipRegion(CGrafPtr port, RgnHandle rgn);
MTBX_API SInt16 GetPortTextFont(CGrafPtr port);
MTBX_API Style GetPortTextFace(CGrafPtr port);
MTBX_API SInt16 GetPortTextMode(CGrafPtr port);
MTBX_API SInt16 GetPortTextSize(CGrafPtr port);
/* The port owns the table from then on: closing it disposes the block with DisposePtr. */
MTBX_API CQDProcsPtr GetPortGrafProcs(CGrafPtr port);
MTBX_API void SetPortGrafProcs(CGrafPtr port, CQDProcsPtr procs);
MTBX_API Point *GetPortPenSize(CGrafPtr port, Point *size);
MTBX_API void SetPortPenSize(CGrafPtr port, Point size);
MTBX_API Point *GetPortPenLocation(CGrafPtr port, Point *location);
MTBX_API SInt32 GetPortPenMode(CGrafPtr port);
MTBX_API void SetPortPenMode(CGrafPtr port, SInt32 mode);
MTBX_API RGBColor *GetPortForeColor(CGrafPtr port, RGBColor *color);
MTBX_API RGBColor *GetPortBackColor(CGrafPtr port, RGBColor *color);
/* Pixel patterns are not drawn: setting one does nothing, and asking for one gives the argument back
   untouched. */
MTBX_API PixPatHandle GetPortPenPixPat(CGrafPtr port, PixPatHandle pattern);
MTBX_API void SetPortPenPixPat(CGrafPtr port, PixPatHandle pattern);
MTBX_API PixPatHandle GetPortBackPixPat(CGrafPtr port, PixPatHandle pattern);
MTBX_API void SetPortBackPixPat(CGrafPtr port, PixPatHandle pattern);
/* An empty record, owned by the caller. */
MTBX_API PixPatHandle NewPixPat(void);
MTBX_API void DisposePixPat(PixPatHandle pattern);

MTBX_API Rect *GetPixBounds(PixMapHandle pixMap, Rect *bounds);
MTBX_API SInt16 GetPixDepth(PixMapHandle pixMap);

/* Fields of qd, copied. */
MTBX_API CGrafPtr GetQDGlobalsThePort(void);
MTBX_API BitMap *GetQDGlobalsScreenBits(BitMap *bits);
MTBX_API Cursor *GetQDGlobalsArrow(Cursor *cursor);
MTBX_API Pattern *GetQDGlobalsDarkGray(Pattern *pattern);
MTBX_API Pattern *GetQDGlobalsLightGray(Pattern *pattern);
MTBX_API Pattern *GetQDGlobalsGray(Pattern *pattern);
MTBX_API Pattern *GetQDGlobalsBlack(Pattern *pattern);
MTBX_API Pattern *GetQDGlobalsWhite(Pattern *pattern);

/* The pen of the current port. It is kept in the port; HidePen and ShowPen count, down to 0 at least,
   and a hidden pen still draws. */
MTBX_API void HidePen(void);
MTBX_API void ShowPen(void);
MTBX_API void GetPen(Point *location);
MTBX_API void GetPenState(PenState *state);
/* Size, location, mode and pattern, in this order, so the pattern is the saved one in every mode. */
MTBX_API void SetPenState(const PenState *state);
MTBX_API void PenSize(SInt16 width, SInt16 height);
/* The transfer mode of drawing, a pattern or source mode. In the exclusive-or modes a black pen
   pattern becomes white. Modes 5 to 7 and those from 13 on are kept but leave the way of drawing. */
MTBX_API void PenMode(SInt16 mode);
/* Sets the pattern; asking for the present one costs nothing. In an offscreen world of one bit
   qd.gray becomes qd.ltGray. */
MTBX_API void PenPat(const Pattern *pattern);
/* Copies in black with a pen of one pixel. */
MTBX_API void PenNormal(void);
/* Moves the pen. While a region is recorded MoveTo adds a point to it instead, which Move never does. */
MTBX_API void MoveTo(SInt16 h, SInt16 v);
MTBX_API void Move(SInt16 dh, SInt16 dv);

/* Always null. */
MTBX_API PatHandle GetPattern(SInt16 patternID);
/* Of the system's list, 0, patterns 2 and 22. Any other request leaves the pattern as it was. */
MTBX_API void GetIndPattern(Pattern *pattern, SInt16 patternListID, SInt16 index);

/* Colours of the current port; each of the three values is rounded to 8 bits for the display. */
MTBX_API void RGBForeColor(const RGBColor *color);
MTBX_API void RGBBackColor(const RGBColor *color);
/* Copies the colour, and gives it to the context anew, with its values cut to 8 bits. */
MTBX_API void GetForeColor(RGBColor *color);
MTBX_API void GetBackColor(RGBColor *color);

/* The classic colours. Other numbers change nothing. */
enum {
    whiteColor = 30,
    blackColor = 33,
    yellowColor = 69,
    magentaColor = 137,
    redColor = 205,
    cyanColor = 273,
    greenColor = 341,
    blueColor = 409
};
MTBX_API void ForeColor(SInt32 color);
MTBX_API void BackColor(SInt32 color);
/* The weights with which PaintRect blends in mode 32 (blend). */
MTBX_API void OpColor(const RGBColor *color);
/* A table of 15 colours for bevelled controls, made from the system's colours at the first call and
   never refreshed. It belongs to the library. */
MTBX_API CTabHandle GetBevelColorsFromSystem(void);

/* Copies the pixels of a rectangle, scaled to the other rectangle's size. An image is a port, as
   GetPortBitMapForCopyBits gives it, with rectangles in its own coordinates; a dereferenced PixMap, with
   rectangles in the coordinates of its bounds; or, as the source only, a bitmap of one bit a pixel. Pixels
   outside of the source are not copied. Colours become those of the destination; there is no dithering.

   Modes 1 and 9 combine the pixels by OR, 2 and 34 by XOR, 7 by AND; 3 keeps what is not set in the
   source, 5 combines by OR with the source inverted, 27 paints white. All others copy: notSrcCopy does
   not invert, and there is no arithmetic. Between two images of one bit, 34 takes all of both if they
   are of one size.

   The mask limits what is drawn, in the destination's coordinates; null for none. A port is also limited
   by its clip, a PixMap by the mask alone. A window has pixels to read only while it is current, and only
   one-bit images and the setting "UseStretchBlt" read them. When memory is short nothing is drawn.

   With graphics hooks in the current port, copies to that port go to its bitsProc. */
MTBX_API void CopyBits(const BitMap *source, const BitMap *destination, const Rect *sourceRect,
                       const Rect *destinationRect, SInt16 mode, RgnHandle mask);
/* Copies the pixels of the source rectangle for which the mask, a bitmap of one bit a pixel in the
   coordinates of the source, has a set bit; the port's background is laid under them first. The mask is not
   scaled, and its rectangle does not count. The destination is a port. When memory is short nothing is
   drawn. */
MTBX_API void CopyMask(const BitMap *source, const BitMap *mask, const BitMap *destination, const Rect *sourceRect,
                       const Rect *maskRect, const Rect *destinationRect);
/* Kept as a flag, which no copy looks at. Gives the former value. */
MTBX_API Boolean MTBX_EnableCopyBitsDirectDraw(Boolean enable);

/* These do nothing. */
MTBX_API void SetDeviceAttribute(GDHandle device, SInt16 attribute, Boolean value);
MTBX_API void QDFlushPortBuffer(CGrafPtr port, RgnHandle rgn);
MTBX_API void StdBits(const BitMap *source, const Rect *sourceRect, const Rect *destinationRect, SInt16 mode,
                      RgnHandle mask);
MTBX_API void CalcMask(const void *source, void *destination, SInt16 sourceRow, SInt16 destinationRow, SInt16 height,
                       SInt16 words);
/* Always false: drawing is not buffered. */
MTBX_API Boolean QDIsPortBuffered(CGrafPtr port);
MTBX_API Boolean QDIsPortBufferDirty(CGrafPtr port);

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

/* Drawing goes to the current port in its own coordinates and is limited by its clip. A port without a
   context draws nothing, and pnVis is not looked at. None of these calls sets QDError.

   Rectangles, and lines that are level or upright, are exactly those of a Macintosh: the pen is a
   rectangle that hangs below and to the right of its point, and a frame lies inside. They know two modes,
   copying and, for the pen modes 2 and 10, exclusive-or; PaintRect knows more. Other lines, ovals and
   round rectangles are drawn as GDI draws them, in the raster mode that PenMode set in the context.
   Coordinates of rectangles and of the ends of lines are cut to +/-32000 before they go to GDI.

   When the port has graphics hooks, the hook for the kind of shape is called in the library's place. */

/* Draws from the pen to (h, v), with both ends, and moves the pen there; a line without length is one
   dot of the pen. Lines that slant are centred, as wide as pnSize.h, in the pattern, and in exclusive-or
   modes one pixel wide. Between OpenRgn and CloseRgn, OpenPoly and ClosePoly, OpenPoly2 and ClosePoly2 the
   line is recorded in place of being drawn. A line hook leaves the pen where it is. */
MTBX_API void MacLineTo(SInt16 h, SInt16 v);
MTBX_API void Line(SInt16 dh, SInt16 dv);
/* Draws through the points as slanting lines are drawn, with joins, and leaves the pen at the last one. It
   is never recorded, and no hook is called. Nothing happens when count is not above 0. */
MTBX_API void MTBX_PolyLine(SInt16 count, const Point *points);

/* Four bars of the pen's size inside the rectangle; none lies on another one. */
MTBX_API void MacFrameRect(const Rect *rect);
/* Copies the pen pattern in every mode but these: 3 (srcBic) makes white what is white in the pattern,
   9 (patOr) makes black what is black in it, and 32 (blend) paints the inverse of the colour of OpColor.
   In these the pattern is black and white, and its first row lies at the top of the rectangle. */
MTBX_API void PaintRect(const Rect *rect);
/* Fills with the background colour; bkPat plays no part. */
MTBX_API void EraseRect(const Rect *rect);
MTBX_API void MacInvertRect(const Rect *rect);
/* PaintRect in the pattern. The pen is the same afterwards. */
MTBX_API void MacFillRect(const Rect *rect, const Pattern *pattern);

/* Dots of the pen along the outline, inside the rectangle. The pen stays at the last dot. */
MTBX_API void FrameOval(const Rect *rect);
/* With the context's own outline, a black line of one pixel as long as the host selects no other pen. */
MTBX_API void PaintOval(const Rect *rect);
/* Fills with bkPat, without an outline. */
MTBX_API void EraseOval(const Rect *rect);
/* PaintOval in an exclusive-or mode, one pixel larger at each side. */
MTBX_API void InvertOval(const Rect *rect);
MTBX_API void FillOval(const Rect *rect, const Pattern *pattern);

/* A black line as wide as pnSize.h, whatever the port's colour and pattern are. */
MTBX_API void FrameRoundRect(const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight);
MTBX_API void InvertRoundRect(const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight);
/* These do nothing. */
MTBX_API void PaintRoundRect(const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight);
MTBX_API void EraseRoundRect(const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight);
MTBX_API void FillRoundRect(const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight, const Pattern *pattern);

/* Begins to record a polygon in the current port and gives its handle, which the caller owns; lines then
   draw nothing. Null when one is being recorded already, or memory is short. The ends of lines become
   vertices, the place where the first line begins does not, and MoveTo adds none. At most 8189 vertices
   are kept, and those for which there is memory. */
MTBX_API PolyHandle OpenPoly(void);
MTBX_API void ClosePoly(void);
MTBX_API void KillPoly(PolyHandle poly);
/* Moves the vertices; polyBBox keeps the place where they were recorded. */
MTBX_API void OffsetPoly(PolyHandle poly, SInt16 dh, SInt16 dv);
/* The polygon as a region, closed, with the parts inside that an odd number of outlines surround. FramePoly
   frames that region inside and has no hook. */
MTBX_API void FramePoly(PolyHandle poly);
MTBX_API void PaintPoly(PolyHandle poly);
MTBX_API void InvertPoly(PolyHandle poly);
MTBX_API void FillPoly(PolyHandle poly, const Pattern *pattern);

/* The same on the path of the native context, which keeps several outlines and curves of GDI apart. There
   is one path; the handle is a token that no call looks at, and drawing uses the path up. */
MTBX_API PolyHandle OpenPoly2(void);
MTBX_API void ClosePoly2(void);
MTBX_API void FramePoly2(PolyHandle poly);
MTBX_API void PaintPoly2(PolyHandle poly);
MTBX_API void InvertPoly2(PolyHandle poly);
MTBX_API void FillPoly2(PolyHandle poly, const Pattern *pattern);
/* These do nothing. */
MTBX_API void KillPoly2(PolyHandle poly);
MTBX_API void OffsetPoly2(PolyHandle poly, SInt16 dh, SInt16 dv);
MTBX_API void ErasePoly2(PolyHandle poly);

/* Regions of the port's coordinates. A frame lies inside, as wide and high as the pen. MacFillRgn leaves
   the pen alone; framing, painting and filling have no hook. */
MTBX_API void MacFrameRgn(RgnHandle rgn);
MTBX_API void MacPaintRgn(RgnHandle rgn);
MTBX_API void EraseRgn(RgnHandle rgn);
MTBX_API void MacInvertRgn(RgnHandle rgn);
MTBX_API void MacFillRgn(RgnHandle rgn, const Pattern *pattern);

/* Moves the pixels of the rectangle, as far as it lies within portRect. The region becomes the box of what
   that uncovers, and the box is erased: all of the rectangle when it moves in both directions. With a null
   region nothing is erased. */
MTBX_API void ScrollRect(const Rect *rect, SInt16 dh, SInt16 dv, RgnHandle update);

/* A pixel of the screen, in screen coordinates: neither port nor window counts. Outside of the screen the
   colour stays as it is. */
MTBX_API void GetCPixel(SInt16 h, SInt16 v, RGBColor *color);
/* Whether that pixel is not black; false outside of the screen. */
MTBX_API Boolean MacGetPixel(SInt16 h, SInt16 v);
/* Does nothing. */
MTBX_API void SetCPixel(SInt16 h, SInt16 v, const RGBColor *color);

/* Makes the region the set bits of a bitmap, in the coordinates of its bounds. Only address, row bytes
   and bounds are looked at, so a PixMap serves too; whether it is one bit deep is judged by its row
   bytes, and a bitmap that is 8 pixels wide needs other than 2. Set bits behind the right side count
   up to the end of their byte. 0, or -148 (pixmapTooDeepErr), memFullErr (-108), or -501
   (rgnTooBigErr) when GDI refuses the region; the region is then as it was. A null region frees the
   buffer that is kept between calls. */
MTBX_API OSErr BitMapToRegion(RgnHandle rgn, const BitMap *bitmap);

/* Global coordinates are those of the main window's client area, or of the screen (Displays.h). These
   turn a point of the current port into a global one and back, in place. Only a port with a native
   window is anywhere: in all other ports the point stays as it is. */
MTBX_API void LocalToGlobal(Point *point);
MTBX_API void GlobalToLocal(Point *point);

/* The one device, which stands for all monitors together; the library's own. Null when memory is short.
   Its gdRect is brought up to qd.screenBits.bounds by each call. */
MTBX_API GDHandle GetMainDevice(void);
MTBX_API GDHandle GetGDevice(void);
MTBX_API GDHandle GetDeviceList(void);
/* The rectangle does not count. */
MTBX_API GDHandle GetMaxDevice(const Rect *globalRect);
/* Always null: the list has one member. */
MTBX_API GDHandle GetNextDevice(GDHandle device);
enum { gdDevType = 0, screenDevice = 13, screenActive = 15 };
/* gdDevType: whether the device has more than one bit a pixel. screenDevice and screenActive: whether it
   is the main device. False for every other attribute. */
MTBX_API Boolean TestDeviceAttribute(GDHandle device, SInt16 attribute);

/* Colour tables. Colours become native ones without them; they are here for the host to read. */

/* A new table, owned by the caller: the entries of the resource 'clut' of that number, or without one
   a colour cube of that many levels a channel, white first and black last. 1 stands for 6 levels, with
   18 greys behind the cube. Entries are numbered from 0 whatever the resource says, and the seed is
   the number. Null when memory is short, and without a resource when the number is not from 1 to 32. */
MTBX_API CTabHandle GetCTable(SInt16 tableID);
/* Frees a table with its header; null is allowed. */
MTBX_API void DisposeCTable(CTabHandle table);
MTBX_API void DisposCTable(CTabHandle table);
/* A number that no call gave before: 2, then 3, and so on. */
MTBX_API SInt32 GetCTSeed(void);
/* Always 0: there is no inverse table. */
MTBX_API SInt32 Color2Index(const RGBColor *color);
/* Both only clear QDError. */
MTBX_API void MakeITable(CTabHandle table, ITabHandle inverse, SInt16 resolution);
MTBX_API void SetEntries(SInt16 start, SInt16 count, ColorSpec *entries);
/* Always false, and the colour stays. */
MTBX_API Boolean GetGray(GDHandle device, const RGBColor *background, RGBColor *foreground);

/* A pseudo-random number from -32767 to 32767, drawn from the C library's rand. qd.randSeed has no
   part in it: a host that wants its own sequence calls srand. */
MTBX_API SInt16 Random(void);

#ifdef __cplusplus
}
#endif

#endif
