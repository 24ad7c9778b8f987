/* Font Manager: font numbers, and the native fonts behind them.

   A font is a family, a size and a style. Families have numbers: 0 and 1 are the host's interface font,
   numbers that the classic Macintosh gave away are places without a face, and every further name gets the
   lowest free number. Native fonts are made when they are first asked for and kept until the end. */
#ifndef MTBX_FONTS_H
#define MTBX_FONTS_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef SInt16 FMFontFamily;

/* Results of the calls below whose names begin with MTBX_. */
enum {
    kFontNoError = 0,
    kFontNoMemory = 1,
    kFontBadMemory = 2,      /* memory that could not be freed */
    kFontBadParameter = 3,   /* a null instance */
    kFontNotLocked = 4,      /* unlocked more often than locked */
    kFontNameTooLong = 5,    /* a native font has at most 31 bytes of name */
    kFontBadNumber = 6,      /* no such family, or one without a face */
    kFontNotCreated = 7,     /* refused by the system */
    kFontLocked = 8,         /* cannot be deleted while it is locked */
    kFontSelected = 9        /* could not be deleted */
};

#pragma pack(push, 2)

/* A family in one size and style. It belongs to the library. */
typedef struct FontInstance {
    HFONT hFont;
    SInt16 size;  /* as asked for */
    UInt16 style; /* as asked for */
    SInt16 lockCount;
} FontInstance;

/* Heights and widths of the current port's font, and a handle to a WidthTable. */
typedef struct FMetricRec {
    Fixed ascent;
    Fixed descent;
    Fixed leading;
    Fixed widMax;
    Handle wTabHandle;
} FMetricRec;

typedef struct WidthTable {
    Fixed tabData[256];
    Handle tabFont;
    Fixed sExtra;
    SInt32 style;
    SInt16 fID;
    SInt16 fSize;
    SInt16 face;
    SInt16 device;
    Point inNumer;
    Point inDenom;
    SInt16 aFID;
    Handle fHand;
    Boolean usedFam;
    UInt8 aFace;
    SInt16 vOutput;
    SInt16 hOutput;
    SInt16 vFactor;
    SInt16 hFactor;
    SInt16 aSize;
    SInt16 tabSize; /* big-endian, and 1 */
} WidthTable;

#pragma pack(pop)

MTBX_ASSERT_OFFSET_32(FontInstance, size, 4);
MTBX_ASSERT_SIZE_32(FontInstance, 10);
MTBX_ASSERT_OFFSET_32(FMetricRec, wTabHandle, 16);
MTBX_ASSERT_SIZE_32(FMetricRec, 20);
MTBX_ASSERT_OFFSET_32(WidthTable, tabFont, 1024);
MTBX_ASSERT_OFFSET_32(WidthTable, inNumer, 1044);
MTBX_ASSERT_OFFSET_32(WidthTable, vOutput, 1060);
MTBX_ASSERT_SIZE_32(WidthTable, 1072);

/* Makes the table; to be called before text is drawn or measured. Without memory for it there are no fonts,
   and text is drawn in what the context holds. Called again it changes nothing. */
MTBX_API void InitFonts(void);
/* Deletes all fonts. kFontLocked when one is still locked, by the host or by a port that is not current: that
   instance stays for its holder, until the fonts are started or ended again after it was unlocked. */
MTBX_API SInt16 MTBX_ShutdownFonts(void);

/* The number of the first family of that name, which is told by case. One that is not known gets a number
   here, whether the system has such a font or not; 0 when there is no memory. An empty name leaves the number
   as it was. */
MTBX_API void GetFNum(ConstStr255Param name, SInt16 *familyID);
/* The same; 0 for an empty name. */
MTBX_API FMFontFamily FMGetFontFamilyFromName(ConstStr255Param name);
/* The name of a family; empty for a number without one. */
MTBX_API void GetFontName(SInt16 familyID, unsigned char *name);
/* The font and size of the current port, not those of the system. */
MTBX_API SInt16 GetSysFont(void);
MTBX_API SInt16 GetDefFontSize(void);
/* Kept and never looked at: widths are whole pixels. */
MTBX_API void SetFractEnable(Boolean isFractional);

/* The instance of a family, made when it is not there yet. The size is the height of the characters in
   pixels; of the style, bold, italic and underline count. On an error the place stays as it was. */
MTBX_API SInt16 MTBX_GetHFntFromFNum(SInt16 familyID, SInt16 size, UInt16 style, FontInstance **instance);
/* The same by name, for a new family too. The last argument is the address of the place's address. */
MTBX_API SInt16 MTBX_GetHFntFromFacename(const char *faceName, SInt16 size, UInt16 style, FontInstance ***instance);
/* Gives the native font; while it is locked it is not deleted. */
MTBX_API SInt16 MTBX_LockHFnt(FontInstance **instance, HFONT *font);
MTBX_API SInt16 MTBX_UnlockHFnt(FontInstance **instance);

/* The fonts of small and of usual texts in the interface. They are fetched once, so setting them later has no
   effect. */
MTBX_API void MTBX_SetSmallFont(SInt16 familyID, SInt16 size, UInt16 style);
MTBX_API void MTBX_SetAppFont(SInt16 familyID, SInt16 size, UInt16 style);
/* The native font, which the library keeps locked. */
MTBX_API SInt16 MTBX_GetSmallHFnt(HFONT *font);

/* On a system with a double-byte font, makes it the face of all fonts, without styles, in sizes that can be
   read: 9, 10 and 12 become those of the settings "SmallInterfaceFontSize", "MediumInterfaceFontSize" and
   "LargeInterfaceFontSize". The setting "InterfaceFontName" names another face. To be called after InitFonts;
   a port's selected font stays until its text state changes. There is no way back. */
MTBX_API void MTBX_SetDBCSSafeModeFonts(void);

/* Measures the font of the current port, in pixels. The width table is one for all callers, the library's
   own, and filled by each call; null when there is no memory for it. */
MTBX_API void FontMetrics(FMetricRec *metrics);

#ifdef __cplusplus
}
#endif

#endif
