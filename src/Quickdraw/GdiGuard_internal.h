// Creation of GDI objects that purges memory and tries again when GDI refuses. All GDI objects of the
// library are made through these wrappers, which take the native arguments and give null after the
// last try.
#pragma once

#include <mtbx/MTBXGdi.h>

// What each failed try purges, in bytes; 0 purges nothing. InitGraf sets it.
extern UInt32 gdiPurgeBytes;
// The setting "NewLowGDIHandling", and whether it was read: the first failure reads it.
extern UInt8 newLowGDIHandling;
extern bool newLowGDIHandlingRead;

// The tries of one creation behind the first, and their record.
class GdiShortage {
public:
    explicit GdiShortage(const char *label) : label_(label) {}

    // After a try that failed: purges, and says whether to try again.
    bool purgeAndTryAgain();
    // After the last try.
    void log(bool succeeded);

private:
    const char *label_;
    SInt32 failures_ = 0;
    SInt32 limit_ = 17;
};

template <class Create> [[gnu::noinline, gnu::cold]] auto createInShortage(const char *label, Create create)
{
    decltype(create()) object{};
    GdiShortage shortage(label);
    while (!object && shortage.purgeAndTryAgain())
        object = create();
    shortage.log(object);
    return object;
}

// The label names the call in the journal.
template <class Create> inline auto createGuarded(const char *label, Create create)
{
    auto object = create();
    return object ? object : createInShortage(label, create);
}

HBRUSH MTBX_CreatePatternBrush(HBITMAP bitmap);
HPEN MTBX_CreatePen(int style, int width, COLORREF color);
// Not guarded where gWin95 is set.
HPEN MTBX_ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH *brush, DWORD count, const DWORD *lengths);
HBRUSH MTBX_CreateBrushIndirect(const LOGBRUSH *brush);
HFONT MTBX_CreateFontIndirect(const LOGFONTA *font);
HRGN MTBX_CreatePolygonRgn(const POINT *points, int count, int mode);
HRGN MTBX_CreateRectRgnIndirect(const RECT *rect);
HRGN MTBX_CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height);
HRGN MTBX_ExtCreateRegion(const XFORM *transform, DWORD byteCount, const RGNDATA *data);
HBITMAP MTBX_CreateBitmapIndirect(const BITMAP *bitmap);
HBITMAP MTBX_CreateDIBSection(HDC dc, const BITMAPINFO *info, UINT usage, void **bits, HANDLE section, DWORD offset);
HDC MTBX_CreateDC(const char *driver, const char *device, const char *port, const DEVMODEA *mode);
