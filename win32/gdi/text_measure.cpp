// Measures of text and of the selected font.
#include "text_run.h"

#include "kernel/kernel_internal.h"

#include <cstring>

namespace win32::gdi {
namespace {

int scaledBack(int64_t pixels, int window, int viewport)
{
    return roundedToInt(std::fabs(static_cast<double>(window) / viewport) * static_cast<double>(pixels));
}

int cutToInt(int64_t value)
{
    return static_cast<int>(std::clamp<int64_t>(value, INT_MIN, INT_MAX));
}

} // namespace

int logicalWidth(const DeviceContext &dc, int64_t pixels)
{
    return dc.isTranslation() ? cutToInt(pixels)
                              : scaledBack(pixels, dc.state.windowExtent.cx, dc.state.viewportExtent.cx);
}

int logicalHeight(const DeviceContext &dc, int64_t pixels)
{
    return dc.isTranslation() ? cutToInt(pixels)
                              : scaledBack(pixels, dc.state.windowExtent.cy, dc.state.viewportExtent.cy);
}

} // namespace win32::gdi

using namespace win32;
using namespace win32::gdi;

namespace {

// Runs an operation on a context; false for what is none, or when memory is short.
template <class Operation> BOOL onContext(HDC context, Operation operation)
{
    return guarded(BOOL{FALSE}, [&]() -> BOOL {
        DeviceContext *dc = findContext(context);
        if (!dc)
            return FALSE;
        operation(*dc);
        return TRUE;
    });
}

} // namespace

BOOL GetTextMetricsA(HDC context, LPTEXTMETRICA metrics)
{
    if (!metrics)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onContext(context, [metrics](DeviceContext &dc) {
        *metrics = textMetricsOf(dc.realizedFont());
        if (dc.isTranslation())
            return;
        for (LONG *height :
             {&metrics->tmAscent, &metrics->tmDescent, &metrics->tmInternalLeading, &metrics->tmExternalLeading})
            *height = logicalHeight(dc, *height);
        metrics->tmHeight = wrappingSum(metrics->tmAscent, metrics->tmDescent);
        for (LONG *width : {&metrics->tmAveCharWidth, &metrics->tmMaxCharWidth, &metrics->tmOverhang})
            *width = logicalWidth(dc, *width);
    });
}

BOOL GetTextExtentPoint32A(HDC context, LPCSTR text, int count, LPSIZE extent)
{
    if (count < 0 || (count > 0 && !text) || !extent)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onContext(context, [=](DeviceContext &dc) {
        TextRun run(dc, text, static_cast<size_t>(count));
        *extent = {logicalWidth(dc, run.width()), logicalHeight(dc, run.font().height())};
    });
}

BOOL GetTextExtentPointA(HDC context, LPCSTR text, int count, LPSIZE extent)
{
    return GetTextExtentPoint32A(context, text, count, extent);
}

// Both bytes of a two-byte character have the position behind it.
BOOL GetTextExtentExPointA(HDC context, LPCSTR text, int count, int maxExtent, LPINT fit, LPINT positions,
                           LPSIZE extent)
{
    if (count < 0 || (count > 0 && !text) || !extent || maxExtent < -1)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onContext(context, [=](DeviceContext &dc) {
        TextRun run(dc, text, static_cast<size_t>(count));
        size_t place = 0, fitting = 0;
        int64_t width = 0;
        run.each([&](uint16_t, size_t bytes, int64_t, int64_t right) {
            width = right;
            int position = logicalWidth(dc, right);
            // Without a place for the count, all positions are wanted.
            bool fits = fitting == place && (!fit || position <= maxExtent);
            if (fits)
                fitting += bytes;
            for (size_t byte = 0; byte < bytes; ++byte, ++place) {
                if (positions && fits)
                    positions[place] = position;
            }
        });
        if (fit)
            *fit = static_cast<int>(fitting);
        *extent = {logicalWidth(dc, width), logicalHeight(dc, run.font().height())};
    });
}

// A code above 255 is a lead byte with its trail byte.
BOOL GetCharWidth32A(HDC context, UINT first, UINT last, LPINT widths)
{
    if (first > last || last > 0xffff || !widths)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onContext(context, [=](DeviceContext &dc) {
        RealizedFont &font = dc.realizedFont();
        for (UINT code = first; code <= last; ++code)
            widths[code - first] = logicalWidth(dc, font.advance(static_cast<uint16_t>(code)));
    });
}

BOOL GetCharWidthA(HDC context, UINT first, UINT last, LPINT widths)
{
    return GetCharWidth32A(context, first, last, widths);
}

int GetTextFaceA(HDC context, int size, LPSTR name)
{
    return guarded(0, [&] {
        DeviceContext *dc = findContext(context);
        if (!dc)
            return 0;
        const std::string &face = dc->realizedFont().faceName();
        int needed = static_cast<int>(face.size()) + 1;
        if (!name)
            return needed;
        if (size <= 0)
            return fail(ERROR_INVALID_PARAMETER, 0);
        int copied = std::min(size, needed);
        memcpy(name, face.c_str(), static_cast<size_t>(copied - 1));
        name[copied - 1] = 0;
        return copied;
    });
}

int GetTextCharset(HDC context)
{
    return guarded(int{DEFAULT_CHARSET}, [&] {
        DeviceContext *dc = findContext(context);
        return dc ? int{dc->realizedFont().charSet()} : int{DEFAULT_CHARSET};
    });
}
