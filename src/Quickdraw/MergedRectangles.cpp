// Rectangles in the pen modes that look at the pixels below: a pattern in black and white joined to them, or
// the inverse of the port's operation colour.
#include "GdiGuard_internal.h"
#include "Shapes_internal.h"

#include <mtbx/QDOffscreen.h>

namespace {

constexpr DWORD patternOrBelow = 0x00FA0089, patternAndBelow = 0x00A000C9;

GrafVars *operationColors(const GrafPort &port)
{
    bool hasColors = isColorPort(port) && port.grafVars && *port.grafVars;
    return hasColors ? reinterpret_cast<GrafVars *>(*port.grafVars) : nullptr;
}

// Black and white whatever the port's colours are, and the pattern's first row at the top of the rectangle;
// its columns keep to the port's coordinates.
class PatternSetting {
public:
    PatternSetting(HDC context, const RECT &area) : context_(context)
    {
        POINT corner = {area.left & ~7, area.top};
        LPtoDP(context, &corner, 1);
        SetBrushOrgEx(context, corner.x, corner.y, &origin_);
        textColor_ = SetTextColor(context, RGB(0, 0, 0));
        backColor_ = SetBkColor(context, RGB(255, 255, 255));
    }
    ~PatternSetting()
    {
        SetBkColor(context_, backColor_);
        SetTextColor(context_, textColor_);
        SetBrushOrgEx(context_, origin_.x, origin_.y, nullptr);
    }
    PatternSetting(const PatternSetting &) = delete;
    PatternSetting &operator=(const PatternSetting &) = delete;

private:
    HDC context_;
    POINT origin_ = {};
    COLORREF textColor_, backColor_;
};

void paint(HDC context, const RECT &area, HBRUSH newBrush, DWORD raster)
{
    OwnObject brush(newBrush);
    Selection selection(context, brush);
    if (selection.isMade())
        PatBlt(context, area.left, area.top, area.right - area.left, area.bottom - area.top, raster);
}

void paintPattern(const GrafPort &port, HDC context, const RECT &area, DWORD raster)
{
    PatternSetting setting(context, area);
    paint(context, area, MTBX_NewPatternBrush(port.pnPat), raster);
}

HBRUSH newInverseBrush(const RGBColor &color)
{
    return MTBX_CreateSolidBrush(~cutColor(color) & 0xFFFFFF);
}

void paintDirectly(const GrafPort &port, HDC context, const RECT &area)
{
    if (port.pnMode == srcBic) {
        paintPattern(port, context, area, patternOrBelow);
        return;
    }
    GrafVars *colors = port.pnMode == blend ? operationColors(port) : nullptr;
    if (!colors)
        paintPattern(port, context, area, patternAndBelow);
    else if (HBRUSH brush = newInverseBrush(colors->rgbOpColor))
        paint(context, area, brush, PATCOPY);
    else
        paintPattern(port, context, area, PATCOPY);
}

// Where the native drawing does not know the order of the pixels, or a hook wants to see what is copied, the
// picture comes from a world.
bool needsWorld(const GrafPort &port)
{
    PixMapPtr map = pixMapOf(port);
    bool isReversed = map && (map->pmFormat == kPixelFormatMasks || map->pmFormat == kPixelFormatCustom);
    return isReversed || (port.grafProcs && port.grafProcs->bitsProc);
}

void fillWorld(GWorldPtr world, const GrafPort &port, const Rect &bounds)
{
    HDC context = contextOf(*world);
    RECT area = {bounds.left, bounds.top, bounds.right, bounds.bottom};
    GrafVars *colors = port.pnMode == blend ? operationColors(port) : nullptr;
    OwnObject solid(colors ? newInverseBrush(colors->rgbOpColor) : nullptr);
    PenPat(&port.pnPat);
    HGDIOBJ brush = solid ? static_cast<HGDIOBJ>(solid) : world->portBrush;
    if (brush)
        FillRect(context, &area, static_cast<HBRUSH>(brush));
}

SInt16 copyMode(const GrafPort &port)
{
    if (port.pnMode == srcBic)
        return srcOr;
    return port.pnMode == blend && operationColors(port) ? SInt16{blend} : SInt16{notSrcBic};
}

// The world is wider by a pattern, from which the columns that fit the port's are taken.
void paintThroughWorld(GrafPtr port, const RECT &area)
{
    constexpr SInt32 patternWidth = 8, widest = 32767 - patternWidth;
    SInt32 width = area.right - area.left, height = area.bottom - area.top;
    auto phase = static_cast<SInt16>(area.left & (patternWidth - 1));
    if (width > widest || height > widest)
        return;
    Rect bounds = {0, 0, static_cast<SInt16>(height), static_cast<SInt16>(width + patternWidth)};
    GWorldPtr world = nullptr;
    if (NewGWorld(&world, 32, &bounds, nullptr, nullptr, 0) != noErr)
        return;
    CGrafPtr former;
    GDHandle device;
    GetGWorld(&former, &device);
    SetGWorld(world, nullptr);
    fillWorld(world, *port, bounds);
    SetGWorld(former, device);
    Rect source = {0, phase, static_cast<SInt16>(height), static_cast<SInt16>(phase + width)};
    Rect target = {static_cast<SInt16>(area.top), static_cast<SInt16>(area.left), static_cast<SInt16>(area.bottom),
                   static_cast<SInt16>(area.right)};
    CopyBits(reinterpret_cast<BitMap *>(*GetGWorldPixMap(world)), GetPortBitMapForCopyBits(port), &source, &target,
             copyMode(*port), nullptr);
    DisposeGWorld(world);
}

} // namespace

void MTBX_PaintMergedRect(const Rect &rect)
{
    GrafPtr port = qd.thePort;
    RECT area = clampedRect(rect);
    if (area.left >= area.right || area.top >= area.bottom)
        return;
    if (needsWorld(*port))
        paintThroughWorld(port, area);
    else
        paintDirectly(*port, contextOf(*port), area);
}
