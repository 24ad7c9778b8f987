// Pattern brushes: one a port, made anew only when the pattern changes. The bits of a brush come from
// one bitmap that all share, since GDI copies them.
#include "GdiGuard_internal.h"
#include "Shapes_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>

#include <cstring>

namespace {

HBITMAP patternBitmap;

bool operator==(const Pattern &a, const Pattern &b)
{
    return memcmp(&a, &b, sizeof a) == 0;
}

Pattern repeated(UInt8 even, UInt8 odd)
{
    return {{even, odd, even, odd, even, odd, even, odd}};
}

// A row of the bitmap takes two bytes, the first of which is used.
void setPatternBits(const Pattern &pattern)
{
    UInt16 rows[8];
    for (int row = 0; row < 8; ++row)
        rows[row] = pattern.pat[row];
    SetBitmapBits(patternBitmap, sizeof rows, rows);
}

// In force until the bits are set for another pattern.
LOGBRUSH describe(const Pattern &pattern)
{
    setPatternBits(pattern);
    return {BS_PATTERN, 0, reinterpret_cast<ULONG_PTR>(patternBitmap)};
}

bool isPatternBrush(HGDIOBJ brush)
{
    LOGBRUSH description = {};
    return GetObjectA(brush, sizeof description, &description) != 0 && description.lbStyle == BS_PATTERN;
}

// The pattern's brush may be out of the context, with a solid one in its place.
bool hasSelectedPatternBrush(const GrafPort &port)
{
    HDC context = contextOf(port);
    HGDIOBJ selected = context ? GetCurrentObject(context, OBJ_BRUSH) : nullptr;
    return selected && (selected == port.portBrush || isPatternBrush(selected));
}

// A brush that is gone cannot be put back.
void deleteBrush(GrafPort &port, HGDIOBJ brush)
{
    DeleteObject(brush);
    if (port.portSavedBrush == brush && GetObjectType(brush) == 0)
        port.portSavedBrush = nothingSaved;
}

// In a world of one bit the lighter grey stands for the medium one.
Pattern fitting(const GrafPort &port, const Pattern &pattern)
{
    if (port.portOffscreen && pattern == qd.gray) [[unlikely]] {
        PixMapPtr map = pixMapOf(port);
        if (map && map->pixelSize == 1)
            return qd.ltGray;
    }
    return pattern;
}

bool isInForce(const GrafPort &port, const Pattern &pattern)
{
    return pattern == port.pnPat && port.portBrush && hasSelectedPatternBrush(port);
}

void replaceBrush(GrafPort &port, HBRUSH brush)
{
    HDC context = contextOf(port);
    HGDIOBJ former = context ? SelectObject(context, brush) : nullptr;
    HBRUSH old = port.portBrush;
    if (old)
        deleteBrush(port, old);
    if (former && former != old && former != brush)
        deleteBrush(port, former);
    port.portBrush = brush;
    port.filler = 0;
}

} // namespace

void MTBX_StartPatterns()
{
    BITMAP description = {};
    description.bmWidth = description.bmHeight = 8;
    description.bmWidthBytes = 2;
    description.bmPlanes = description.bmBitsPixel = 1;
    patternBitmap = MTBX_CreateBitmapIndirect(&description);
    qd.dkGray = repeated(0xA2, 0x2A);
    qd.ltGray = repeated(0xDD, 0x77);
    qd.gray = repeated(0xAA, 0x55);
    qd.black = repeated(0x00, 0x00);
    qd.white = repeated(0xFF, 0xFF);
}

void MTBX_StopPatterns()
{
    if (patternBitmap)
        DeleteObject(patternBitmap);
    patternBitmap = nullptr;
}

HBRUSH MTBX_NewPatternBrush(const Pattern &pattern)
{
    if (!patternBitmap)
        return nullptr;
    // The bits are set for each try: between two of them the host's grow-zone function may have used the bitmap.
    return createGuarded("CreateBrushIndirect(a)", [&] {
        LOGBRUSH description = describe(pattern);
        return CreateBrushIndirect(&description);
    });
}

HPEN MTBX_NewPatternPen(const Pattern &pattern, SInt16 width)
{
    if (!patternBitmap)
        return nullptr;
    auto create = [&] {
        LOGBRUSH description = describe(pattern);
        return ExtCreatePen(PS_GEOMETRIC, static_cast<DWORD>(width), &description, 0, nullptr);
    };
    return gWin95 ? create() : createGuarded("ExtCreatePen(a, b, c, d, e)", create);
}

void PenPat(const Pattern *pattern)
{
    GrafPtr port = qd.thePort;
    if (!port)
        return;
    Pattern wanted = fitting(*port, *pattern);
    if (isInForce(*port, wanted))
        return;
    port->pnPat = wanted;
    if (patternBitmap)
        replaceBrush(*port, MTBX_NewPatternBrush(wanted));
}

FillPatternScope::FillPatternScope(const Pattern *pattern) : port_(qd.thePort)
{
    GetPenState(&state_);
    if (!port_)
        return;
    Pattern wanted = fitting(*port_, *pattern);
    if (isInForce(*port_, wanted))
        return;
    ownBrush_ = port_->portBrush;
    port_->portBrush = MTBX_NewPatternBrush(wanted);
    port_->pnPat = wanted;
    HDC context = contextOf(*port_);
    HGDIOBJ former = context && port_->portBrush ? SelectObject(context, port_->portBrush) : nullptr;
    if (former && former != ownBrush_)
        deleteBrush(*port_, former);
}

FillPatternScope::~FillPatternScope()
{
    // A hook that left another port current may have closed this one.
    if (ownBrush_ && port_ != qd.thePort)
        DeleteObject(ownBrush_);
    else if (ownBrush_) {
        replaceBrush(*port_, ownBrush_);
        port_->pnPat = state_.pnPat;
    }
    SetPenState(&state_);
}

PatHandle GetPattern(SInt16)
{
    StubError("Quickdraw", "GetPattern");
    return nullptr;
}

void GetIndPattern(Pattern *pattern, SInt16 patternListID, SInt16 index)
{
    enum { systemPatternList = 0 };
    if (patternListID != systemPatternList)
        return;
    if (index == 2)
        *pattern = {{0x88, 0x00, 0x22, 0x00, 0x88, 0x00, 0x22, 0x00}};
    else if (index == 22)
        *pattern = {{0x77, 0xFF, 0xDD, 0xFF, 0x77, 0xFF, 0xDD, 0xFF}};
}
