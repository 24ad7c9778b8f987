// The two colours of the current port.
#include "Quickdraw_internal.h"

#include <mtbx/MacMemory.h>

namespace {

struct ClassicColor {
    SInt32 number;
    RGBColor color;
};
constexpr ClassicColor classicColors[] = {
    {whiteColor, {65535, 65535, 65535}}, {blackColor, {0, 0, 0}},    {yellowColor, {65535, 65535, 0}},
    {magentaColor, {65535, 0, 65535}},   {redColor, {65535, 0, 0}},  {cyanColor, {0, 65535, 65535}},
    {greenColor, {0, 65535, 0}},         {blueColor, {0, 0, 65535}},
};

const RGBColor *classicColor(SInt32 number)
{
    for (const ClassicColor &classic : classicColors)
        if (classic.number == number)
            return &classic.color;
    return nullptr;
}

} // namespace

void RGBForeColor(const RGBColor *color)
{
    GrafPtr port = qd.thePort;
    if (!port)
        return;
    port->fgColor = roundedColor(*color);
    port->rgbFgColor = *color;
    if (HDC context = contextOf(*port))
        SetTextColor(context, port->fgColor);
}

void RGBBackColor(const RGBColor *color)
{
    GrafPtr port = qd.thePort;
    if (!port)
        return;
    port->bkColor = roundedColor(*color);
    port->rgbBkColor = *color;
    if (HDC context = contextOf(*port))
        SetBkColor(context, port->bkColor);
}

void GetForeColor(RGBColor *color)
{
    GrafPtr port = qd.thePort;
    if (!port)
        return;
    *color = port->rgbFgColor;
    if (HDC context = contextOf(*port))
        SetTextColor(context, cutColor(port->rgbFgColor));
}

void GetBackColor(RGBColor *color)
{
    GrafPtr port = qd.thePort;
    if (!port)
        return;
    *color = port->rgbBkColor;
    if (HDC context = contextOf(*port))
        SetBkColor(context, cutColor(port->rgbBkColor));
}

void ForeColor(SInt32 number)
{
    if (const RGBColor *color = classicColor(number))
        RGBForeColor(color);
}

void BackColor(SInt32 number)
{
    if (const RGBColor *color = classicColor(number))
        RGBBackColor(color);
}

void OpColor(const RGBColor *color)
{
    enum { colorRecord = 0x8000 };
    GrafPtr port = qd.thePort;
    if (port && (port->portVersion & colorRecord) && port->grafVars)
        reinterpret_cast<GrafVars *>(*port->grafVars)->rgbOpColor = *color;
}
