// FontMetrics and its width table.
#include "Fonts_internal.h"

#include "Frame/Strings_internal.h"
#include "Quickdraw/Quickdraw_internal.h"

#include <mtbx/MacMemory.h>

namespace {

// One for all callers.
WidthTable **widthTable;

Fixed fixed(SInt32 whole)
{
    return static_cast<Fixed>(static_cast<UInt32>(whole) << 16);
}

void fill(WidthTable &table, HDC context)
{
    INT widths[256] = {};
    GetCharWidth32A(context, 0, 255, widths);
    Point numerators = table.inNumer, denominators = table.inDenom;
    table = {};
    for (int i = 0; i < 256; ++i)
        table.tabData[i] = fixed(widths[i]);
    table.inNumer = numerators;
    table.inDenom = denominators;
    table.vOutput = table.hOutput = table.vFactor = table.hFactor = 1;
    constexpr SInt16 bigEndianOne = 0x0100;
    table.tabSize = bigEndianOne;
}

Handle filledTable(HDC context)
{
    if (!widthTable)
        widthTable = reinterpret_cast<WidthTable **>(NewHandleClear(sizeof(WidthTable)));
    if (widthTable)
        fill(**widthTable, context);
    return reinterpret_cast<Handle>(widthTable);
}

} // namespace

void fonts::disposeWidthTable()
{
    DisposeHandle(reinterpret_cast<Handle>(std::exchange(widthTable, nullptr)));
}

void FontMetrics(FMetricRec *metrics)
{
    if (qd.thePort && portFontCalls.select)
        portFontCalls.select(qd.thePort);
    HDC context = measuringContext();
    TEXTMETRICA text = {};
    GetTextMetricsA(context, &text);
    constexpr SInt32 heightAdjustment = 6;
    *metrics = {fixed(text.tmAscent), fixed(text.tmDescent),
                fixed(text.tmExternalLeading + MTBX_GetStringConstantInt(heightAdjustment)), fixed(text.tmMaxCharWidth),
                filledTable(context)};
    if (qd.thePort)
        unselectPortFont(*qd.thePort);
}
