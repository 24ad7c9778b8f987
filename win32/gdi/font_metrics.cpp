// The measures of a realized font as programs get them.
#include "realized_font.h"

namespace win32::gdi {

TEXTMETRICA textMetricsOf(const RealizedFont &font)
{
    const FontMetrics &from = font.metrics();
    TEXTMETRICA metrics{};
    metrics.tmHeight = from.ascent + from.descent;
    metrics.tmAscent = from.ascent;
    metrics.tmDescent = from.descent;
    metrics.tmInternalLeading = from.internalLeading;
    metrics.tmExternalLeading = from.externalLeading;
    metrics.tmAveCharWidth = from.averageWidth;
    metrics.tmMaxCharWidth = from.maximalWidth;
    metrics.tmWeight = font.weight();
    metrics.tmOverhang = from.overhang;
    metrics.tmDigitizedAspectX = 96;
    metrics.tmDigitizedAspectY = 96;
    metrics.tmFirstChar = 30;
    metrics.tmLastChar = 255;
    metrics.tmDefaultChar = 31;
    metrics.tmBreakChar = ' ';
    metrics.tmItalic = from.isItalic ? 255 : 0;
    metrics.tmUnderlined = font.description().lfUnderline ? 255 : 0;
    metrics.tmStruckOut = font.description().lfStrikeOut ? 255 : 0;
    // The bit of the pitch says that widths vary.
    metrics.tmPitchAndFamily = static_cast<BYTE>(from.family | (from.isFixedPitch ? 0 : TMPF_FIXED_PITCH)
                                                 | (from.isScalable ? TMPF_VECTOR | TMPF_TRUETYPE : 0));
    metrics.tmCharSet = font.charSet();
    return metrics;
}

} // namespace win32::gdi
