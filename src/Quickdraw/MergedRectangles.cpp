// Rectangles in the pen modes that look at the pixels below: a pattern in black and white joined to them, or
// the inverse of the port's operation colour.
#include "GdiGuard_internal.h"
#include "Shapes_internal.h"

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

} // namespace

void MTBX_PaintMergedRect(const Rect &rect)
{
    const GrafPort &port = *qd.thePort;
    HDC context = contextOf(port);
    RECT area = clampedRect(rect);
    if (area.left >= area.right || area.top >= area.bottom)
        return;
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
