// The colours of bevelled controls, as a colour table.
#include "ColorTables_internal.h"

#include <mtbx/MacMemory.h>

#include <iterator>

namespace {

CTabHandle bevelTable;

enum Source { white, face, shadow, highlight, black };

constexpr Source entrySources[15] = {white,     face,      shadow, white, white,  face,  shadow, black,
                                     highlight, highlight, white,  black, shadow, black, black};

// System colours do not take the whole range: the low bytes stay 0.
RGBColor systemColor(int index)
{
    COLORREF color = GetSysColor(index);
    return {static_cast<UInt16>(GetRValue(color) << 8), static_cast<UInt16>(GetGValue(color) << 8),
            static_cast<UInt16>(GetBValue(color) << 8)};
}

RGBColor colorOf(Source source)
{
    switch (source) {
    case white: return {65535, 65535, 65535};
    case face: return systemColor(COLOR_BTNFACE);
    case shadow: return systemColor(COLOR_BTNSHADOW);
    case highlight: return systemColor(COLOR_BTNHIGHLIGHT);
    default: return {0, 0, 0};
    }
}

} // namespace

CTabHandle GetBevelColorsFromSystem()
{
    if (bevelTable)
        return bevelTable;
    bevelTable = MTBX_NewSixLevelTable();
    if (!bevelTable)
        return nullptr;
    for (size_t i = 0; i < std::size(entrySources); ++i)
        (*bevelTable)->ctTable[i] = {static_cast<UInt16>(i), colorOf(entrySources[i])};
    HNoPurge(reinterpret_cast<Handle>(bevelTable));
    return bevelTable;
}
