// Colours by hue, saturation and value.
#include <mtbx/ColorPicker.h>
#include <mtbx/FixMath.h>

void HSV2RGB(const HSVColor *hsv, RGBColor *rgb)
{
    const Fixed one = 0x10000;
    const Fixed value = hsv->value;
    const Fixed saturation = hsv->saturation;
    const Fixed hue = hsv->hue * 6;
    const Fixed fraction = hue & 0xFFFF;
    auto faded = [=](Fixed by) { return static_cast<UInt16>(FixMul(value, one - by)); };
    const UInt16 v = hsv->value;
    const UInt16 p = faded(saturation);
    const UInt16 q = faded(FixMul(saturation, fraction));
    const UInt16 t = faded(FixMul(saturation, one - fraction));
    if (saturation == 0) {
        *rgb = {v, v, v};
        return;
    }
    switch (hue >> 16) {
    case 0: *rgb = {v, t, p}; break;
    case 1: *rgb = {q, v, p}; break;
    case 2: *rgb = {p, v, t}; break;
    case 3: *rgb = {p, q, v}; break;
    case 4: *rgb = {t, p, v}; break;
    default: *rgb = {v, p, q}; break;
    }
}
