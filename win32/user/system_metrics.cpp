// The sizes of the desktop's parts: those of the classic looks, at 96 pixels an inch.
#include "kernel/code_page_table.h"
#include "screen/screen.h"

#include <array>

using namespace win32;

namespace {

struct Metric {
    int index;
    int value;
};

constexpr int caption = 19, sizingFrame = 4, edge = 2;

constexpr Metric fixedMetrics[] = {
    {SM_CXVSCROLL, 16},
    {SM_CYHSCROLL, 16},
    {SM_CYCAPTION, caption},
    {SM_CXBORDER, 1},
    {SM_CYBORDER, 1},
    {SM_CXDLGFRAME, 3},
    {SM_CYDLGFRAME, 3},
    {SM_CYVTHUMB, 16},
    {SM_CXHTHUMB, 16},
    {SM_CXICON, 32},
    {SM_CYICON, 32},
    {SM_CXCURSOR, 32},
    {SM_CYCURSOR, 32},
    {SM_CYMENU, 19},
    {SM_MOUSEPRESENT, 1},
    {SM_CYVSCROLL, 16},
    {SM_CXHSCROLL, 16},
    {SM_CXMIN, 112},
    {SM_CYMIN, 27},
    {SM_CXSIZE, 18},
    {SM_CYSIZE, 18},
    {SM_CXFRAME, sizingFrame},
    {SM_CYFRAME, sizingFrame},
    {SM_CXMINTRACK, 112},
    {SM_CYMINTRACK, 27},
    {SM_CXDOUBLECLK, 4},
    {SM_CYDOUBLECLK, 4},
    {SM_CXICONSPACING, 75},
    {SM_CYICONSPACING, 75},
    {SM_CMOUSEBUTTONS, 3},
    {SM_CXEDGE, edge},
    {SM_CYEDGE, edge},
    {SM_CXMINSPACING, 160},
    {SM_CYMINSPACING, 24},
    {SM_CXSMICON, 16},
    {SM_CYSMICON, 16},
    {SM_CYSMCAPTION, 16},
    {SM_CXSMSIZE, 12},
    {SM_CYSMSIZE, 15},
    {SM_CXMENUSIZE, 18},
    {SM_CYMENUSIZE, 18},
    {SM_ARRANGE, 8},
    {SM_CXMINIMIZED, 160},
    {SM_CYMINIMIZED, 24},
    {SM_NETWORK, 1},
    {SM_CXDRAG, 4},
    {SM_CYDRAG, 4},
    {SM_CXMENUCHECK, 13},
    {SM_CYMENUCHECK, 13},
    {SM_MOUSEWHEELPRESENT, 1},
    {SM_SAMEDISPLAYFORMAT, 1},
    {SM_CXFOCUSBORDER, 1},
    {SM_CYFOCUSBORDER, 1},
};

constexpr auto valuesByIndex = [] {
    std::array<int, SM_CYFOCUSBORDER + 1> values{};
    for (const Metric &metric : fixedMetrics)
        values[static_cast<size_t>(metric.index)] = metric.value;
    return values;
}();

} // namespace

int GetSystemMetrics(int index)
{
    const gdi::Box &primary = screen::monitors().front().bounds;
    const gdi::Surface &all = screen::surface();
    switch (index) {
    case SM_CXSCREEN:
    case SM_CXFULLSCREEN: return primary.x2 - primary.x1;
    case SM_CYSCREEN: return primary.y2 - primary.y1;
    case SM_CYFULLSCREEN: return primary.y2 - primary.y1 - caption;
    case SM_CXMAXIMIZED: return primary.x2 - primary.x1 + 2 * sizingFrame;
    case SM_CYMAXIMIZED: return primary.y2 - primary.y1 + 2 * sizingFrame;
    case SM_CXMAXTRACK: return all.width + 2 * (sizingFrame + edge);
    case SM_CYMAXTRACK: return all.height + 2 * (sizingFrame + edge);
    case SM_CXVIRTUALSCREEN: return all.width;
    case SM_CYVIRTUALSCREEN: return all.height;
    case SM_CMONITORS: return static_cast<int>(screen::monitors().size());
    case SM_DBCSENABLED: return activeCodePage().isDoubleByte();
    case SM_SWAPBUTTON: return screen::areButtonsSwapped();
    default:
        return index >= 0 && static_cast<size_t>(index) < valuesByIndex.size()
                   ? valuesByIndex[static_cast<size_t>(index)]
                   : 0;
    }
}
