// The current port's colours put aside, taken back, and set by number.
#include <mtbx/MTBXEnvironment.h>
#include <mtbx/Palettes.h>

#include <iterator>

namespace {

RGBColor numberedColor(SInt16 index)
{
    static constexpr RGBColor colors[] = {
        {0, 0, 0},         {65535, 65535, 65535}, {32767, 32767, 32767},   {65535, 0, 0},
        {65535, 65535, 0}, {0, 65535, 0},         {0xDCDC, 0xDCDC, 0xDCDC}};
    return index > 0 && index < static_cast<SInt16>(std::size(colors)) ? colors[index] : colors[0];
}

} // namespace

void SaveFore(ColorSpec *color)
{
    if (qd.thePort)
        *color = {0, qd.thePort->rgbFgColor};
}

void SaveBack(ColorSpec *color)
{
    if (qd.thePort)
        *color = {0, qd.thePort->rgbBkColor};
}

void RestoreFore(const ColorSpec *color)
{
    if (color->value == 0)
        RGBForeColor(&color->rgb);
    else
        StubError("Palettes", "RestoreFore");
}

void RestoreBack(const ColorSpec *color)
{
    if (color->value == 0)
        RGBBackColor(&color->rgb);
    else
        StubError("Palettes", "RestoreBack");
}

void PmForeColor(SInt16 index)
{
    RGBColor color = numberedColor(index);
    RGBForeColor(&color);
}

void PmBackColor(SInt16 index)
{
    RGBColor color = numberedColor(index);
    RGBBackColor(&color);
}
