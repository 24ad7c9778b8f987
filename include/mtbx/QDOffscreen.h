/* Offscreen worlds: ports that draw into memory, and the formats of their pixels.

   A world's pixels are a native device-independent bitmap with rows from the top down. The host may read
   and write them at GetPixBaseAddr; native drawing may still be pending there, so GdiFlush comes first. */
#ifndef MTBX_QDOFFSCREEN_H
#define MTBX_QDOFFSCREEN_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A port record like a window's, hidden and in no list. */
typedef CGrafPtr GWorldPtr;
typedef UInt32 GWorldFlags;

/* What pmFormat of a PixMap says of its pixels. A pixel of 32 bits lies as blue, green, red, alpha in
   native order; pmMasks tell the order for masks and custom, which worlds have as alpha, red, green,
   blue when they are made. 16 bits are 5 for each channel in native order, 4 in that of the masks. */
enum {
    kPixelFormatNative = 0,
    kPixelFormatMasks = 1,
    kPixelFormatIndexed = 2,
    kPixelFormatCustom = 4
};

/* Makes a world of the size of bounds; its coordinates begin at (0, 0) wherever bounds lie. The depth is
   1, 4, 8, 16, 24 or 32, or 0 for the screen's; 24 is always in native order. Colour table, device and
   flags are ignored: colours of worlds up to 8 bits are the system's, and of 1 bit black and the
   background colour. Bounds of no width and no height make a world without pixels. memFullErr (-108) and
   null when there is no memory after purging, or the size or depth cannot be had. */
MTBX_API OSErr NewGWorld(GWorldPtr *world, SInt16 depth, const Rect *bounds, CTabHandle colorTable, GDHandle device,
                         GWorldFlags flags);
/* Gives a world another size and origin, which becomes the top left of bounds. Rows are carried over as
   they lie, as many and as long as fit. The depth counts only if the size changes; if it does not, pixels,
   depth and origin stay. Its clip becomes the widest. 0, or memFullErr (-108): the world then has no
   pixels until another call succeeds. The pixels' address changes with the size only. */
MTBX_API GWorldFlags UpdateGWorld(GWorldPtr *world, SInt16 depth, const Rect *bounds, CTabHandle colorTable,
                                  GDHandle device, GWorldFlags flags);
/* Null is allowed. */
MTBX_API void DisposeGWorld(GWorldPtr world);
MTBX_API void GetGWorld(CGrafPtr *port, GDHandle *device);
/* MacSetPort and SetGDevice. */
MTBX_API void SetGWorld(CGrafPtr port, GDHandle device);
/* Does nothing. */
MTBX_API void SaveGWorld(void);
/* The main device, for every world. */
MTBX_API GDHandle GetGWorldDevice(GWorldPtr world);
/* Dereferenced, CopyBits takes it in the coordinates of its bounds. */
MTBX_API PixMapHandle GetGWorldPixMap(GWorldPtr world);

/* The pixels' memory, null for a PixMap that has none of its own. */
MTBX_API Ptr GetPixBaseAddr(PixMapHandle pixMap);
/* Bytes from one row to the next. The field rowBytes holds only those below 16,383. */
MTBX_API SInt32 GetPixRowBytes(PixMapHandle pixMap);
/* Pixels never move: true, and nothing happens. */
MTBX_API Boolean LockPixels(PixMapHandle pixMap);
MTBX_API void UnlockPixels(PixMapHandle pixMap);
/* Always 192: locked and not purgeable. */
MTBX_API GWorldFlags GetPixelsState(PixMapHandle pixMap);
/* Does nothing. */
MTBX_API void SetPixelsState(PixMapHandle pixMap, GWorldFlags state);

/* The order of a 32-bit world's pixels, as hosts know it: the reverse of pmFormat. */
enum { kGWorld32AlphaFirst = 0, kGWorld32BlueFirst = 1 };

/* Between true and false, which nest, worlds deeper than 8 bits are made with pmFormat
   kPixelFormatMasks: the host sees alpha first, while native drawing does not know. CopyBits puts that
   right around each copy. */
MTBX_API void MTBX_ForceBitmapCreationBitfields(Boolean force);
/* The order, or -1 for a world that has neither. paramErr (-50) when there is no world or PixMap. */
MTBX_API OSErr MTBX_GetGWorld32PixmapFormat(GWorldPtr world, SInt32 *format);
/* Says what the order is, without touching a pixel. Any other number changes nothing. */
MTBX_API OSErr MTBX_AssumeGWorld32PixmapFormat(GWorldPtr world, SInt32 format);
/* Puts the pixels in the order, unless they are in it. paramErr (-50), with nothing changed, for another
   number than the two and for a world that is not 32 bits deep. */
MTBX_API OSErr MTBX_SetGWorld32PixmapFormat(GWorldPtr world, SInt32 format);
/* Makes the pixels those of pmFormat format with the masks, in the order red, green, blue, alpha. 32-bit
   pixels are reversed when the colour masks differ; up to 8 bits the colour table changes between indexed
   and custom. False, with nothing changed, when masks are needed and null, and when pixels of 16 or 24
   bits would have to be reversed. */
MTBX_API Boolean MTBX_SetDirectPixmapFormat(SInt32 format, PixMap *pixMap, const UInt32 *masks);
/* Reverses the four bytes of each pixel. */
MTBX_API void MTBX_ConvertBitsFast(void *baseAddr, SInt32 rows, SInt32 columns, SInt32 rowBytes);
/* The same for a rectangle whose right and bottom belong to it. A mask that is not 0 first puts the bits
   of the value in their places, in the pixel as it lies before. */
MTBX_API void MTBX_ConvertBitsFastRect(void *baseAddr, SInt32 rowBytes, const Rect *rect, UInt32 mask, UInt32 value);

#ifdef __cplusplus
}
#endif

#endif
