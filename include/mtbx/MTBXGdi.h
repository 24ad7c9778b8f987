/* Creation of native graphics objects with the library's care for shortage.

   When GDI refuses an object, its objects have run out or memory is fragmented. These calls then ask
   the host to purge memory and try again, until the whole hard limit of the budget has been asked for
   (17 times where there is no limit). A creation that failed at least once is recorded in the journal
   as GDI_Purge_OK or GDI_Purge_FAILED. Since the host's grow-zone function may run, blocks that it
   purges may be gone afterwards. */
#ifndef MTBX_MTBXGDI_H
#define MTBX_MTBXGDI_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The native call of the same name and arguments. The caller owns the object, which is null when all
   tries failed. */
MTBX_API HBRUSH MTBX_CreateSolidBrush(COLORREF color);
MTBX_API HPALETTE MTBX_CreatePalette(const LOGPALETTE *palette);
MTBX_API HRGN MTBX_CreateRectRgn(int left, int top, int right, int bottom);
MTBX_API HBITMAP MTBX_CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void *bits);
MTBX_API HBITMAP MTBX_CreateCompatibleBitmap(HDC dc, int width, int height);
MTBX_API HBITMAP MTBX_CreateDIBitmap(HDC dc, const BITMAPINFOHEADER *header, DWORD flags, const void *bits,
                                     const BITMAPINFO *info, UINT usage);
MTBX_API HDC MTBX_CreateCompatibleDC(HDC dc);

/* How many brushes GDI still hands out, at most 100000: a gauge of free GDI objects that falls when
   brushes leak. Creates and deletes them all, so it is for diagnosis only. 0 when there is no memory
   for it. */
MTBX_API UInt64 MTBX_GDIBrushBenchmark(void);

/* Does nothing, whatever it is given. */
#ifdef __cplusplus
MTBX_API void MTBX_TrackGDI(...);
}

/* Around a block of code, tells of brushes that the block did not give back: a loss of more than the
   tolerance is shown in a message box, a gain is written to the debug output. Each end costs a
   MTBX_GDIBrushBenchmark. */
class MTBX_API MTBX_ScGDILeakDetector {
public:
    explicit MTBX_ScGDILeakDetector(SInt32 tolerance);
    ~MTBX_ScGDILeakDetector();

private:
    SInt32 tolerance;
    UInt64 baseline;
};
#else
MTBX_API void MTBX_TrackGDI();
#endif

#endif
