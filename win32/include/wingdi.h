// Graphics: objects, contexts, regions, pixels and shapes.
//
// Behaviour, arguments and errors are those of the published Win32 documentation; the
// comments here tell only what this layer adds to it or fixes where it leaves room.
// A context, and the objects that are selected into it, serve one thread at a time.
#ifndef WIN32_WINGDI_H
#define WIN32_WINGDI_H

#pragma GCC system_header

#include <windef.h>

#ifndef GDI_ERROR
#define GDI_ERROR 0xFFFFFFFFL
#endif
#define HGDI_ERROR ((HGDIOBJ)(LONG_PTR)-1)
#define CLR_INVALID 0xFFFFFFFF

#define RGB(r, g, b) ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define PALETTERGB(r, g, b) (0x02000000 | RGB(r, g, b))
#define PALETTEINDEX(i) ((COLORREF)(0x01000000 | (DWORD)(WORD)(i)))
#define DIBINDEX(i) ((COLORREF)(0x10FF0000 | (DWORD)(WORD)(i)))
#define GetRValue(color) ((BYTE)(color))
#define GetGValue(color) ((BYTE)(((WORD)((color) & 0xffff)) >> 8))
#define GetBValue(color) ((BYTE)((color) >> 16))

// Objects.
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_DC 3
#define OBJ_METADC 4
#define OBJ_PAL 5
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define OBJ_REGION 8
#define OBJ_METAFILE 9
#define OBJ_MEMDC 10
#define OBJ_EXTPEN 11

#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE 15
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17
#define DC_BRUSH 18
#define DC_PEN 19

#define BS_SOLID 0
#define BS_NULL 1
#define BS_HOLLOW BS_NULL
#define BS_HATCHED 2
#define BS_PATTERN 3
#define BS_INDEXED 4
#define BS_DIBPATTERN 5
#define BS_DIBPATTERNPT 6
#define BS_PATTERN8X8 7
#define BS_DIBPATTERN8X8 8

#define HS_HORIZONTAL 0
#define HS_VERTICAL 1
#define HS_FDIAGONAL 2
#define HS_BDIAGONAL 3
#define HS_CROSS 4
#define HS_DIAGCROSS 5

typedef struct tagLOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
} LOGBRUSH, *PLOGBRUSH, *LPLOGBRUSH;

#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_DASHDOT 3
#define PS_DASHDOTDOT 4
#define PS_NULL 5
#define PS_INSIDEFRAME 6
#define PS_USERSTYLE 7
#define PS_ALTERNATE 8
#define PS_STYLE_MASK 0x0000000F
#define PS_ENDCAP_ROUND 0x00000000
#define PS_ENDCAP_SQUARE 0x00000100
#define PS_ENDCAP_FLAT 0x00000200
#define PS_ENDCAP_MASK 0x00000F00
#define PS_JOIN_ROUND 0x00000000
#define PS_JOIN_BEVEL 0x00001000
#define PS_JOIN_MITER 0x00002000
#define PS_JOIN_MASK 0x0000F000
#define PS_COSMETIC 0x00000000
#define PS_GEOMETRIC 0x00010000
#define PS_TYPE_MASK 0x000F0000

typedef struct tagLOGPEN {
    UINT lopnStyle;
    POINT lopnWidth;
    COLORREF lopnColor;
} LOGPEN, *PLOGPEN, *LPLOGPEN;

typedef struct tagEXTLOGPEN {
    DWORD elpPenStyle;
    DWORD elpWidth;
    UINT elpBrushStyle;
    COLORREF elpColor;
    ULONG_PTR elpHatch;
    DWORD elpNumEntries;
    DWORD elpStyleEntry[1];
} EXTLOGPEN, *PEXTLOGPEN, *LPEXTLOGPEN;

typedef struct tagBITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
} BITMAP, *PBITMAP, *LPBITMAP;

typedef struct tagRGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
} RGBQUAD, *LPRGBQUAD;

typedef struct tagRGBTRIPLE {
    BYTE rgbtBlue;
    BYTE rgbtGreen;
    BYTE rgbtRed;
} RGBTRIPLE;

#define BI_RGB 0
#define BI_RLE8 1
#define BI_RLE4 2
#define BI_BITFIELDS 3

typedef struct tagBITMAPCOREHEADER {
    DWORD bcSize;
    WORD bcWidth;
    WORD bcHeight;
    WORD bcPlanes;
    WORD bcBitCount;
} BITMAPCOREHEADER, *PBITMAPCOREHEADER, *LPBITMAPCOREHEADER;

typedef struct tagBITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
} BITMAPINFOHEADER, *PBITMAPINFOHEADER, *LPBITMAPINFOHEADER;

typedef struct tagBITMAPCOREINFO {
    BITMAPCOREHEADER bmciHeader;
    RGBTRIPLE bmciColors[1];
} BITMAPCOREINFO, *PBITMAPCOREINFO, *LPBITMAPCOREINFO;

typedef LONG FXPT2DOT30;

typedef struct tagCIEXYZ {
    FXPT2DOT30 ciexyzX;
    FXPT2DOT30 ciexyzY;
    FXPT2DOT30 ciexyzZ;
} CIEXYZ, *LPCIEXYZ;

typedef struct tagCIEXYZTRIPLE {
    CIEXYZ ciexyzRed;
    CIEXYZ ciexyzGreen;
    CIEXYZ ciexyzBlue;
} CIEXYZTRIPLE, *LPCIEXYZTRIPLE;

// What these two have beyond a BITMAPINFOHEADER and the masks is read over: colours are not calibrated.
typedef struct {
    DWORD bV4Size;
    LONG bV4Width;
    LONG bV4Height;
    WORD bV4Planes;
    WORD bV4BitCount;
    DWORD bV4V4Compression;
    DWORD bV4SizeImage;
    LONG bV4XPelsPerMeter;
    LONG bV4YPelsPerMeter;
    DWORD bV4ClrUsed;
    DWORD bV4ClrImportant;
    DWORD bV4RedMask;
    DWORD bV4GreenMask;
    DWORD bV4BlueMask;
    DWORD bV4AlphaMask;
    DWORD bV4CSType;
    CIEXYZTRIPLE bV4Endpoints;
    DWORD bV4GammaRed;
    DWORD bV4GammaGreen;
    DWORD bV4GammaBlue;
} BITMAPV4HEADER, *PBITMAPV4HEADER, *LPBITMAPV4HEADER;

typedef struct {
    DWORD bV5Size;
    LONG bV5Width;
    LONG bV5Height;
    WORD bV5Planes;
    WORD bV5BitCount;
    DWORD bV5Compression;
    DWORD bV5SizeImage;
    LONG bV5XPelsPerMeter;
    LONG bV5YPelsPerMeter;
    DWORD bV5ClrUsed;
    DWORD bV5ClrImportant;
    DWORD bV5RedMask;
    DWORD bV5GreenMask;
    DWORD bV5BlueMask;
    DWORD bV5AlphaMask;
    DWORD bV5CSType;
    CIEXYZTRIPLE bV5Endpoints;
    DWORD bV5GammaRed;
    DWORD bV5GammaGreen;
    DWORD bV5GammaBlue;
    DWORD bV5Intent;
    DWORD bV5ProfileData;
    DWORD bV5ProfileSize;
    DWORD bV5Reserved;
} BITMAPV5HEADER, *PBITMAPV5HEADER, *LPBITMAPV5HEADER;

typedef struct tagBITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
} BITMAPINFO, *PBITMAPINFO, *LPBITMAPINFO;

#pragma pack(push, 2)
typedef struct tagBITMAPFILEHEADER {
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
} BITMAPFILEHEADER, *PBITMAPFILEHEADER, *LPBITMAPFILEHEADER;
#pragma pack(pop)

typedef struct tagDIBSECTION {
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
} DIBSECTION, *PDIBSECTION, *LPDIBSECTION;

#define DIB_RGB_COLORS 0
#define DIB_PAL_COLORS 1
#define CBM_INIT 4

typedef struct tagPALETTEENTRY {
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
} PALETTEENTRY, *PPALETTEENTRY, *LPPALETTEENTRY;

typedef struct tagLOGPALETTE {
    WORD palVersion;
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
} LOGPALETTE, *PLOGPALETTE, *LPLOGPALETTE;

#define PC_RESERVED 0x01
#define PC_EXPLICIT 0x02
#define PC_NOCOLLAPSE 0x04
#define SYSPAL_ERROR 0
#define SYSPAL_STATIC 1
#define SYSPAL_NOSTATIC 2
#define SYSPAL_NOSTATIC256 3

#define GREEK_CHARSET 161
#define LF_FACESIZE 32
typedef struct tagLOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
} LOGFONTA, *PLOGFONTA, *LPLOGFONTA;
typedef LOGFONTA LOGFONT, *LPLOGFONT;

#define FW_DONTCARE 0
#define FW_THIN 100
#define FW_EXTRALIGHT 200
#define FW_LIGHT 300
#define FW_NORMAL 400
#define FW_REGULAR FW_NORMAL
#define FW_MEDIUM 500
#define FW_SEMIBOLD 600
#define FW_DEMIBOLD FW_SEMIBOLD
#define FW_BOLD 700
#define FW_EXTRABOLD 800
#define FW_HEAVY 900
#define FW_BLACK FW_HEAVY
#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define SYMBOL_CHARSET 2
#define MAC_CHARSET 77
#define SHIFTJIS_CHARSET 128
#define HANGUL_CHARSET 129
#define HANGEUL_CHARSET HANGUL_CHARSET
#define JOHAB_CHARSET 130
#define GB2312_CHARSET 134
#define CHINESEBIG5_CHARSET 136
#define GREEK_CHARSET 161
#define TURKISH_CHARSET 162
#define VIETNAMESE_CHARSET 163
#define HEBREW_CHARSET 177
#define ARABIC_CHARSET 178
#define BALTIC_CHARSET 186
#define RUSSIAN_CHARSET 204
#define THAI_CHARSET 222
#define EASTEUROPE_CHARSET 238
#define OEM_CHARSET 255
#define OUT_DEFAULT_PRECIS 0
#define OUT_STRING_PRECIS 1
#define OUT_CHARACTER_PRECIS 2
#define OUT_STROKE_PRECIS 3
#define OUT_TT_PRECIS 4
#define OUT_DEVICE_PRECIS 5
#define OUT_RASTER_PRECIS 6
#define OUT_TT_ONLY_PRECIS 7
#define CLIP_DEFAULT_PRECIS 0
#define CLIP_CHARACTER_PRECIS 1
#define CLIP_STROKE_PRECIS 2
#define CLIP_LH_ANGLES 0x10
#define DEFAULT_QUALITY 0
#define DRAFT_QUALITY 1
#define PROOF_QUALITY 2
#define NONANTIALIASED_QUALITY 3
#define ANTIALIASED_QUALITY 4
#define CLEARTYPE_QUALITY 5
#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_DONTCARE 0x00
#define FF_ROMAN 0x10
#define FF_SWISS 0x20
#define FF_MODERN 0x30
#define FF_SCRIPT 0x40
#define FF_DECORATIVE 0x50
#define TMPF_FIXED_PITCH 0x01
#define TMPF_VECTOR 0x02
#define TMPF_TRUETYPE 0x04
#define TMPF_DEVICE 0x08
#define RASTER_FONTTYPE 1
#define DEVICE_FONTTYPE 2
#define TRUETYPE_FONTTYPE 4
#define NTM_ITALIC 0x01
#define NTM_BOLD 0x20
#define NTM_REGULAR 0x40

#define LF_FULLFACESIZE 64
typedef struct tagENUMLOGFONTA {
    LOGFONTA elfLogFont;
    BYTE elfFullName[LF_FULLFACESIZE];
    BYTE elfStyle[LF_FACESIZE];
} ENUMLOGFONTA, *LPENUMLOGFONTA;
typedef struct tagENUMLOGFONTEXA {
    LOGFONTA elfLogFont;
    BYTE elfFullName[LF_FULLFACESIZE];
    BYTE elfStyle[LF_FACESIZE];
    BYTE elfScript[LF_FACESIZE];
} ENUMLOGFONTEXA, *LPENUMLOGFONTEXA;

typedef struct tagTEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICA, *PTEXTMETRICA, *LPTEXTMETRICA;
typedef TEXTMETRICA TEXTMETRIC, *LPTEXTMETRIC;

typedef struct tagNEWTEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
    DWORD ntmFlags;
    UINT ntmSizeEM;
    UINT ntmCellHeight;
    UINT ntmAvgWidth;
} NEWTEXTMETRICA, *PNEWTEXTMETRICA, *LPNEWTEXTMETRICA;

typedef int(CALLBACK *FONTENUMPROCA)(const LOGFONTA *font, const TEXTMETRICA *metrics, DWORD type, LPARAM parameter);

WINGDIAPI BOOL WINAPI DeleteObject(HGDIOBJ object);
WINGDIAPI DWORD WINAPI GetObjectType(HGDIOBJ object);
WINGDIAPI int WINAPI GetObjectA(HGDIOBJ object, int size, LPVOID buffer);
WINGDIAPI HGDIOBJ WINAPI GetStockObject(int index);
WINGDIAPI HGDIOBJ WINAPI GetCurrentObject(HDC context, UINT type);
WINGDIAPI HGDIOBJ WINAPI SelectObject(HDC context, HGDIOBJ object);
WINGDIAPI BOOL WINAPI UnrealizeObject(HGDIOBJ object);

WINGDIAPI HBRUSH WINAPI CreateSolidBrush(COLORREF color);
WINGDIAPI HBRUSH WINAPI CreateHatchBrush(int style, COLORREF color);
WINGDIAPI HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap);
WINGDIAPI HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH *brush);
WINGDIAPI HBRUSH WINAPI CreateDIBPatternBrushPt(const void *packedDib, UINT usage);
WINGDIAPI HPEN WINAPI CreatePen(int style, int width, COLORREF color);
WINGDIAPI HPEN WINAPI CreatePenIndirect(const LOGPEN *pen);
WINGDIAPI HPEN WINAPI ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH *brush, DWORD count, const DWORD *lengths);
WINGDIAPI HFONT WINAPI CreateFontIndirectA(const LOGFONTA *font);
WINGDIAPI HFONT WINAPI CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                                   DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                                   DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCSTR faceName);

WINGDIAPI HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void *bits);
WINGDIAPI HBITMAP WINAPI CreateBitmapIndirect(const BITMAP *bitmap);
WINGDIAPI HBITMAP WINAPI CreateCompatibleBitmap(HDC context, int width, int height);
WINGDIAPI HBITMAP WINAPI CreateDIBSection(HDC context, const BITMAPINFO *info, UINT usage, void **bits, HANDLE section,
                                          DWORD offset);
WINGDIAPI HBITMAP WINAPI CreateDIBitmap(HDC context, const BITMAPINFOHEADER *header, DWORD init, const void *bits,
                                        const BITMAPINFO *info, UINT usage);
WINGDIAPI LONG WINAPI GetBitmapBits(HBITMAP bitmap, LONG size, LPVOID bits);
WINGDIAPI LONG WINAPI SetBitmapBits(HBITMAP bitmap, DWORD size, const void *bits);
WINGDIAPI UINT WINAPI GetDIBColorTable(HDC context, UINT start, UINT count, RGBQUAD *colors);
WINGDIAPI UINT WINAPI SetDIBColorTable(HDC context, UINT start, UINT count, const RGBQUAD *colors);
WINGDIAPI int WINAPI GetDIBits(HDC context, HBITMAP bitmap, UINT start, UINT lines, LPVOID bits, LPBITMAPINFO info,
                               UINT usage);
WINGDIAPI int WINAPI SetDIBits(HDC context, HBITMAP bitmap, UINT start, UINT lines, const void *bits,
                               const BITMAPINFO *info, UINT usage);

WINGDIAPI HPALETTE WINAPI CreatePalette(const LOGPALETTE *palette);
WINGDIAPI HPALETTE WINAPI SelectPalette(HDC context, HPALETTE palette, BOOL forceBackground);
WINGDIAPI UINT WINAPI RealizePalette(HDC context);
WINGDIAPI UINT WINAPI GetPaletteEntries(HPALETTE palette, UINT start, UINT count, LPPALETTEENTRY entries);
WINGDIAPI UINT WINAPI SetPaletteEntries(HPALETTE palette, UINT start, UINT count, const PALETTEENTRY *entries);
WINGDIAPI BOOL WINAPI ResizePalette(HPALETTE palette, UINT count);
WINGDIAPI UINT WINAPI GetNearestPaletteIndex(HPALETTE palette, COLORREF color);
WINGDIAPI UINT WINAPI GetSystemPaletteEntries(HDC context, UINT start, UINT count, LPPALETTEENTRY entries);
WINGDIAPI UINT WINAPI SetSystemPaletteUse(HDC context, UINT use);
WINGDIAPI UINT WINAPI GetSystemPaletteUse(HDC context);

// Contexts.
typedef struct tagXFORM {
    FLOAT eM11;
    FLOAT eM12;
    FLOAT eM21;
    FLOAT eM22;
    FLOAT eDx;
    FLOAT eDy;
} XFORM, *PXFORM, *LPXFORM;

typedef struct _devicemodeA DEVMODEA; // printers only; this layer has none

#define DRIVERVERSION 0
#define TECHNOLOGY 2
#define HORZSIZE 4
#define VERTSIZE 6
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMBRUSHES 16
#define NUMPENS 18
#define NUMMARKERS 20
#define NUMFONTS 22
#define NUMCOLORS 24
#define PDEVICESIZE 26
#define CURVECAPS 28
#define LINECAPS 30
#define POLYGONALCAPS 32
#define TEXTCAPS 34
#define CLIPCAPS 36
#define RASTERCAPS 38
#define ASPECTX 40
#define ASPECTY 42
#define ASPECTXY 44
#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define SIZEPALETTE 104
#define NUMRESERVED 106
#define COLORRES 108
#define PHYSICALWIDTH 110
#define PHYSICALHEIGHT 111
#define PHYSICALOFFSETX 112
#define PHYSICALOFFSETY 113
#define SCALINGFACTORX 114
#define SCALINGFACTORY 115
#define VREFRESH 116
#define DESKTOPVERTRES 117
#define DESKTOPHORZRES 118
#define DT_RASDISPLAY 1
#define RC_BITBLT 1
#define RC_BANDING 2
#define RC_SCALING 4
#define RC_BITMAP64 8
#define RC_DI_BITMAP 0x0080
#define RC_PALETTE 0x0100
#define RC_DIBTODEV 0x0200
#define RC_BIGFONT 0x0400
#define RC_STRETCHBLT 0x0800
#define RC_FLOODFILL 0x1000
#define RC_STRETCHDIB 0x2000

#define TRANSPARENT 1
#define OPAQUE 2
#define ALTERNATE 1
#define WINDING 2
#define BLACKONWHITE 1
#define WHITEONBLACK 2
#define COLORONCOLOR 3
#define HALFTONE 4
#define STRETCH_ANDSCANS BLACKONWHITE
#define STRETCH_ORSCANS WHITEONBLACK
#define STRETCH_DELETESCANS COLORONCOLOR
#define MM_TEXT 1
#define MM_LOMETRIC 2
#define MM_HIMETRIC 3
#define MM_LOENGLISH 4
#define MM_HIENGLISH 5
#define MM_TWIPS 6
#define MM_ISOTROPIC 7
#define MM_ANISOTROPIC 8

#define R2_BLACK 1
#define R2_NOTMERGEPEN 2
#define R2_MASKNOTPEN 3
#define R2_NOTCOPYPEN 4
#define R2_MASKPENNOT 5
#define R2_NOT 6
#define R2_XORPEN 7
#define R2_NOTMASKPEN 8
#define R2_MASKPEN 9
#define R2_NOTXORPEN 10
#define R2_NOP 11
#define R2_MERGENOTPEN 12
#define R2_COPYPEN 13
#define R2_MERGEPENNOT 14
#define R2_MERGEPEN 15
#define R2_WHITE 16
#define R2_LAST 16

WINGDIAPI HDC WINAPI CreateCompatibleDC(HDC context);
// Only the driver "DISPLAY" is there.
WINGDIAPI HDC WINAPI CreateDCA(LPCSTR driver, LPCSTR device, LPCSTR output, const DEVMODEA *mode);
WINGDIAPI BOOL WINAPI DeleteDC(HDC context);
WINGDIAPI int WINAPI SaveDC(HDC context);
WINGDIAPI BOOL WINAPI RestoreDC(HDC context, int saved);
WINGDIAPI int WINAPI GetDeviceCaps(HDC context, int index);
WINGDIAPI BOOL WINAPI GetDCOrgEx(HDC context, LPPOINT origin);

WINGDIAPI int WINAPI SetMapMode(HDC context, int mode);
WINGDIAPI int WINAPI GetMapMode(HDC context);
WINGDIAPI BOOL WINAPI SetWindowOrgEx(HDC context, int x, int y, LPPOINT old);
WINGDIAPI BOOL WINAPI GetWindowOrgEx(HDC context, LPPOINT origin);
WINGDIAPI BOOL WINAPI OffsetWindowOrgEx(HDC context, int x, int y, LPPOINT old);
WINGDIAPI BOOL WINAPI SetWindowExtEx(HDC context, int x, int y, LPSIZE old);
WINGDIAPI BOOL WINAPI GetWindowExtEx(HDC context, LPSIZE extent);
WINGDIAPI BOOL WINAPI SetViewportOrgEx(HDC context, int x, int y, LPPOINT old);
WINGDIAPI BOOL WINAPI GetViewportOrgEx(HDC context, LPPOINT origin);
WINGDIAPI BOOL WINAPI OffsetViewportOrgEx(HDC context, int x, int y, LPPOINT old);
WINGDIAPI BOOL WINAPI SetViewportExtEx(HDC context, int x, int y, LPSIZE old);
WINGDIAPI BOOL WINAPI GetViewportExtEx(HDC context, LPSIZE extent);
WINGDIAPI BOOL WINAPI LPtoDP(HDC context, LPPOINT points, int count);
WINGDIAPI BOOL WINAPI DPtoLP(HDC context, LPPOINT points, int count);

WINGDIAPI COLORREF WINAPI SetTextColor(HDC context, COLORREF color);
WINGDIAPI COLORREF WINAPI GetTextColor(HDC context);
WINGDIAPI COLORREF WINAPI SetBkColor(HDC context, COLORREF color);
WINGDIAPI COLORREF WINAPI GetBkColor(HDC context);
WINGDIAPI COLORREF WINAPI SetDCBrushColor(HDC context, COLORREF color);
WINGDIAPI COLORREF WINAPI GetDCBrushColor(HDC context);
WINGDIAPI COLORREF WINAPI SetDCPenColor(HDC context, COLORREF color);
WINGDIAPI COLORREF WINAPI GetDCPenColor(HDC context);
WINGDIAPI COLORREF WINAPI GetNearestColor(HDC context, COLORREF color);
WINGDIAPI int WINAPI SetBkMode(HDC context, int mode);
WINGDIAPI int WINAPI GetBkMode(HDC context);
WINGDIAPI int WINAPI SetROP2(HDC context, int mode);
WINGDIAPI int WINAPI GetROP2(HDC context);
WINGDIAPI int WINAPI SetPolyFillMode(HDC context, int mode);
WINGDIAPI int WINAPI GetPolyFillMode(HDC context);
WINGDIAPI int WINAPI SetStretchBltMode(HDC context, int mode);
WINGDIAPI int WINAPI GetStretchBltMode(HDC context);
WINGDIAPI BOOL WINAPI SetBrushOrgEx(HDC context, int x, int y, LPPOINT old);
WINGDIAPI BOOL WINAPI GetBrushOrgEx(HDC context, LPPOINT origin);
WINGDIAPI BOOL WINAPI SetMiterLimit(HDC context, FLOAT limit, FLOAT *old);
WINGDIAPI BOOL WINAPI GetMiterLimit(HDC context, FLOAT *limit);
WINGDIAPI BOOL WINAPI GetCurrentPositionEx(HDC context, LPPOINT position);
WINGDIAPI BOOL WINAPI GdiFlush(void);
#define QUERYESCSUPPORT 8
// A display answers no escape but the question for them.
WINGDIAPI int WINAPI Escape(HDC context, int escape, int size, LPCSTR input, LPVOID output);

// Regions and clipping.
#define ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3
#define RGN_ERROR ERROR
#define RGN_AND 1
#define RGN_OR 2
#define RGN_XOR 3
#define RGN_DIFF 4
#define RGN_COPY 5
#define RDH_RECTANGLES 1

typedef struct _RGNDATAHEADER {
    DWORD dwSize;
    DWORD iType;
    DWORD nCount;
    DWORD nRgnSize;
    RECT rcBound;
} RGNDATAHEADER, *PRGNDATAHEADER;

typedef struct _RGNDATA {
    RGNDATAHEADER rdh;
    char Buffer[1];
} RGNDATA, *PRGNDATA, *LPRGNDATA;

WINGDIAPI HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom);
WINGDIAPI HRGN WINAPI CreateRectRgnIndirect(const RECT *rect);
WINGDIAPI HRGN WINAPI CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height);
WINGDIAPI HRGN WINAPI CreateEllipticRgn(int left, int top, int right, int bottom);
WINGDIAPI HRGN WINAPI CreateEllipticRgnIndirect(const RECT *rect);
WINGDIAPI HRGN WINAPI CreatePolygonRgn(const POINT *points, int count, int mode);
WINGDIAPI HRGN WINAPI CreatePolyPolygonRgn(const POINT *points, const INT *counts, int polygons, int mode);
WINGDIAPI HRGN WINAPI ExtCreateRegion(const XFORM *transform, DWORD size, const RGNDATA *data);
WINGDIAPI DWORD WINAPI GetRegionData(HRGN region, DWORD size, LPRGNDATA data);
WINGDIAPI BOOL WINAPI SetRectRgn(HRGN region, int left, int top, int right, int bottom);
WINGDIAPI int WINAPI CombineRgn(HRGN result, HRGN first, HRGN second, int mode);
WINGDIAPI int WINAPI OffsetRgn(HRGN region, int x, int y);
WINGDIAPI BOOL WINAPI EqualRgn(HRGN first, HRGN second);
WINGDIAPI BOOL WINAPI PtInRegion(HRGN region, int x, int y);
WINGDIAPI BOOL WINAPI RectInRegion(HRGN region, const RECT *rect);
WINGDIAPI int WINAPI GetRgnBox(HRGN region, LPRECT box);
WINGDIAPI BOOL WINAPI FillRgn(HDC context, HRGN region, HBRUSH brush);
WINGDIAPI BOOL WINAPI FrameRgn(HDC context, HRGN region, HBRUSH brush, int width, int height);
WINGDIAPI BOOL WINAPI InvertRgn(HDC context, HRGN region);
WINGDIAPI BOOL WINAPI PaintRgn(HDC context, HRGN region);

WINGDIAPI int WINAPI SelectClipRgn(HDC context, HRGN region);
WINGDIAPI int WINAPI ExtSelectClipRgn(HDC context, HRGN region, int mode);
WINGDIAPI int WINAPI GetClipRgn(HDC context, HRGN region);
WINGDIAPI int WINAPI GetClipBox(HDC context, LPRECT box);
WINGDIAPI int WINAPI IntersectClipRect(HDC context, int left, int top, int right, int bottom);
WINGDIAPI int WINAPI ExcludeClipRect(HDC context, int left, int top, int right, int bottom);
WINGDIAPI int WINAPI OffsetClipRgn(HDC context, int x, int y);
WINGDIAPI BOOL WINAPI PtVisible(HDC context, int x, int y);
WINGDIAPI BOOL WINAPI RectVisible(HDC context, const RECT *rect);

// Pixels.
#define SRCCOPY 0x00CC0020
#define SRCPAINT 0x00EE0086
#define SRCAND 0x008800C6
#define SRCINVERT 0x00660046
#define SRCERASE 0x00440328
#define NOTSRCCOPY 0x00330008
#define NOTSRCERASE 0x001100A6
#define MERGECOPY 0x00C000CA
#define MERGEPAINT 0x00BB0226
#define PATCOPY 0x00F00021
#define PATPAINT 0x00FB0A09
#define PATINVERT 0x005A0049
#define DSTINVERT 0x00550009
#define BLACKNESS 0x00000042
#define WHITENESS 0x00FF0062

WINGDIAPI BOOL WINAPI PatBlt(HDC context, int x, int y, int width, int height, DWORD rop);
WINGDIAPI BOOL WINAPI BitBlt(HDC context, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                             DWORD rop);
WINGDIAPI BOOL WINAPI StretchBlt(HDC context, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                                 int sourceWidth, int sourceHeight, DWORD rop);
WINGDIAPI int WINAPI StretchDIBits(HDC context, int x, int y, int width, int height, int sourceX, int sourceY,
                                   int sourceWidth, int sourceHeight, const void *bits, const BITMAPINFO *info,
                                   UINT usage, DWORD rop);
WINGDIAPI int WINAPI SetDIBitsToDevice(HDC context, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                                       UINT start, UINT lines, const void *bits, const BITMAPINFO *info, UINT usage);
WINGDIAPI COLORREF WINAPI GetPixel(HDC context, int x, int y);
WINGDIAPI COLORREF WINAPI SetPixel(HDC context, int x, int y, COLORREF color);
WINGDIAPI BOOL WINAPI SetPixelV(HDC context, int x, int y, COLORREF color);

// Lines and shapes.
#define PT_CLOSEFIGURE 0x01
#define PT_LINETO 0x02
#define PT_BEZIERTO 0x04
#define PT_MOVETO 0x06

WINGDIAPI BOOL WINAPI MoveToEx(HDC context, int x, int y, LPPOINT old);
WINGDIAPI BOOL WINAPI LineTo(HDC context, int x, int y);
WINGDIAPI BOOL WINAPI Polyline(HDC context, const POINT *points, int count);
WINGDIAPI BOOL WINAPI PolylineTo(HDC context, const POINT *points, DWORD count);
WINGDIAPI BOOL WINAPI PolyPolyline(HDC context, const POINT *points, const DWORD *counts, DWORD lines);
WINGDIAPI BOOL WINAPI Polygon(HDC context, const POINT *points, int count);
WINGDIAPI BOOL WINAPI PolyPolygon(HDC context, const POINT *points, const INT *counts, int polygons);
WINGDIAPI BOOL WINAPI PolyBezier(HDC context, const POINT *points, DWORD count);
WINGDIAPI BOOL WINAPI PolyBezierTo(HDC context, const POINT *points, DWORD count);
WINGDIAPI BOOL WINAPI Rectangle(HDC context, int left, int top, int right, int bottom);
WINGDIAPI BOOL WINAPI Ellipse(HDC context, int left, int top, int right, int bottom);
WINGDIAPI BOOL WINAPI RoundRect(HDC context, int left, int top, int right, int bottom, int width, int height);
WINGDIAPI BOOL WINAPI Arc(HDC context, int left, int top, int right, int bottom, int startX, int startY, int endX,
                          int endY);
WINGDIAPI BOOL WINAPI Chord(HDC context, int left, int top, int right, int bottom, int startX, int startY, int endX,
                            int endY);
WINGDIAPI BOOL WINAPI Pie(HDC context, int left, int top, int right, int bottom, int startX, int startY, int endX,
                          int endY);
WINGDIAPI BOOL WINAPI BeginPath(HDC context);
WINGDIAPI BOOL WINAPI EndPath(HDC context);
WINGDIAPI BOOL WINAPI AbortPath(HDC context);
WINGDIAPI BOOL WINAPI CloseFigure(HDC context);
WINGDIAPI BOOL WINAPI StrokePath(HDC context);
WINGDIAPI BOOL WINAPI FillPath(HDC context);
WINGDIAPI BOOL WINAPI StrokeAndFillPath(HDC context);
WINGDIAPI BOOL WINAPI WidenPath(HDC context);
WINGDIAPI BOOL WINAPI FlattenPath(HDC context);
WINGDIAPI HRGN WINAPI PathToRegion(HDC context);

// Text.
#define TA_NOUPDATECP 0
#define TA_UPDATECP 1
#define TA_LEFT 0
#define TA_RIGHT 2
#define TA_CENTER 6
#define TA_TOP 0
#define TA_BOTTOM 8
#define TA_BASELINE 24
#define TA_RTLREADING 256
#define TA_MASK (TA_BASELINE + TA_CENTER + TA_UPDATECP + TA_RTLREADING)
#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004
#define ETO_GLYPH_INDEX 0x0010
#define ETO_RTLREADING 0x0080
#define ETO_IGNORELANGUAGE 0x1000

WINGDIAPI UINT WINAPI SetTextAlign(HDC context, UINT mode);
WINGDIAPI UINT WINAPI GetTextAlign(HDC context);
WINGDIAPI int WINAPI SetTextCharacterExtra(HDC context, int extra);
WINGDIAPI int WINAPI GetTextCharacterExtra(HDC context);
WINGDIAPI BOOL WINAPI SetTextJustification(HDC context, int extra, int count);
// Text is in the code page of the font's character set.
WINGDIAPI BOOL WINAPI TextOutA(HDC context, int x, int y, LPCSTR text, int count);
// Indices of glyphs (ETO_GLYPH_INDEX) are refused.
WINGDIAPI BOOL WINAPI ExtTextOutA(HDC context, int x, int y, UINT options, const RECT *rect, LPCSTR text, UINT count,
                                  const INT *widths);
WINGDIAPI BOOL WINAPI GetTextMetricsA(HDC context, LPTEXTMETRICA metrics);
WINGDIAPI int WINAPI GetTextFaceA(HDC context, int size, LPSTR name);
WINGDIAPI int WINAPI GetTextCharset(HDC context);
WINGDIAPI BOOL WINAPI GetTextExtentPointA(HDC context, LPCSTR text, int count, LPSIZE extent);
WINGDIAPI BOOL WINAPI GetTextExtentPoint32A(HDC context, LPCSTR text, int count, LPSIZE extent);
WINGDIAPI BOOL WINAPI GetTextExtentExPointA(HDC context, LPCSTR text, int count, int maxExtent, LPINT fit,
                                            LPINT positions, LPSIZE extent);
WINGDIAPI BOOL WINAPI GetCharWidth32A(HDC context, UINT first, UINT last, LPINT widths);
WINGDIAPI BOOL WINAPI GetCharWidthA(HDC context, UINT first, UINT last, LPINT widths);
WINGDIAPI int WINAPI EnumFontFamiliesA(HDC context, LPCSTR family, FONTENUMPROCA procedure, LPARAM parameter);
WINGDIAPI int WINAPI EnumFontFamiliesExA(HDC context, LPLOGFONTA wanted, FONTENUMPROCA procedure, LPARAM parameter,
                                         DWORD flags);
// A font file of any kind that FreeType reads; the fonts are this process' own.
WINGDIAPI int WINAPI AddFontResourceA(LPCSTR path);
WINGDIAPI BOOL WINAPI RemoveFontResourceA(LPCSTR path);

#define TextOut TextOutA
#define ExtTextOut ExtTextOutA
#define GetTextMetrics GetTextMetricsA
#define GetTextFace GetTextFaceA
#define GetTextExtentPoint GetTextExtentPointA
#define GetTextExtentPoint32 GetTextExtentPoint32A
#define GetTextExtentExPoint GetTextExtentExPointA
#define GetCharWidth GetCharWidthA
#define GetCharWidth32 GetCharWidth32A
#define EnumFontFamilies EnumFontFamiliesA
#define EnumFontFamiliesEx EnumFontFamiliesExA
#define AddFontResource AddFontResourceA
#define RemoveFontResource RemoveFontResourceA
#define GetObject GetObjectA
#define CreateDC CreateDCA
#define CreateFontIndirect CreateFontIndirectA
#define CreateFont CreateFontA

#endif
