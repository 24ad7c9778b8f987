// Widths and heights of text in the current port's font.
#include "Text_internal.h"

#include "Fonts/Fonts_internal.h"
#include "Frame/Strings_internal.h"

#include <algorithm>

namespace {

const char *bytesAt(const void *text, SInt16 firstByte)
{
    return static_cast<const char *>(text) + firstByte;
}

// The extent alone, without what hangs over.
SIZE extentOf(HDC context, const char *text, SInt32 length)
{
    SIZE extent = {};
    GetTextExtentPoint32A(context, text, std::max<SInt32>(length, 0), &extent);
    return extent;
}

// The context for measuring, with the current port's font in it.
HDC preparedContext()
{
    MTBX_SelectFont(qd.thePort);
    return measuringContext();
}

bool isVertical(const GrafPort *port)
{
    return port && fonts::faceNameOf(port->txFont)[0] == '@';
}

// A window lends its context to a port for which there is no other one.
class LentContext {
public:
    LentContext()
    {
        PixMapPtr map = measuringContext() || !qd.thePort ? nullptr : pixMapOf(*qd.thePort);
        if (map && map->pmWindow) {
            map->pmDC = GetWindowDC(map->pmWindow);
            port_ = qd.thePort;
        }
    }
    ~LentContext()
    {
        if (!port_)
            return;
        MTBX_UnselectFont(port_);
        PixMap &map = **port_->portPixMap;
        ReleaseDC(map.pmWindow, map.pmDC);
        map.pmDC = nullptr;
    }
    LentContext(const LentContext &) = delete;
    LentContext &operator=(const LentContext &) = delete;

private:
    GrafPtr port_ = nullptr;
};

} // namespace

TextExtent MTBX_MeasureText(HDC context, const char *text, SInt32 length)
{
    SIZE extent = extentOf(context, text, length);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(context, &metrics);
    return {extent.cx + metrics.tmOverhang, extent.cy};
}

SInt32 StringWidth(ConstStr255Param text)
{
    LentContext lent;
    return MTBX_MeasureText(preparedContext(), reinterpret_cast<const char *>(text + 1), text[0]).width;
}

SInt32 CharWidth(SInt16 character)
{
    auto byte = static_cast<char>(character);
    return MTBX_MeasureText(preparedContext(), &byte, 1).width;
}

SInt16 TextWidth(const void *text, SInt16 firstByte, SInt16 byteCount)
{
    HDC context = preparedContext();
    TextExtent extent = MTBX_MeasureText(context, bytesAt(text, firstByte), byteCount);
    return static_cast<SInt16>(isVertical(qd.thePort) ? extent.height : extent.width);
}

SInt32 TextWidthVertical(const void *text, SInt16 firstByte, SInt16 byteCount)
{
    HDC context = preparedContext();
    if (isVertical(qd.thePort))
        return extentOf(context, bytesAt(text, firstByte), byteCount).cx;
    TEXTMETRICA metrics = {};
    GetTextMetricsA(context, &metrics);
    return (metrics.tmAscent + metrics.tmDescent) * byteCount;
}

void GetFontInfo(FontInfo *info)
{
    TEXTMETRICA metrics = {};
    if (!GetTextMetricsA(preparedContext(), &metrics)) {
        *info = {};
        return;
    }
    constexpr SInt32 heightAdjustment = 6;
    SInt32 leading = metrics.tmExternalLeading + MTBX_GetStringConstantInt(heightAdjustment);
    info->ascent = static_cast<SInt16>(metrics.tmAscent);
    info->descent = static_cast<SInt16>(metrics.tmDescent);
    info->widMax = static_cast<SInt16>(metrics.tmMaxCharWidth);
    info->leading = static_cast<SInt16>(leading);
    info->charSet = metrics.tmCharSet;
}
