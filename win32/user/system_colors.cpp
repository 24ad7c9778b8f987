// The colours of the system's own drawing: those of a plain classic desktop.
#include "kernel/kernel_internal.h"
#include "gdi/brush.h"

#include <iterator>
#include <mutex>

namespace {

COLORREF colors[] = {
    RGB(212, 208, 200), // COLOR_SCROLLBAR
    RGB(58, 110, 165),  // COLOR_BACKGROUND
    RGB(10, 36, 106),   // COLOR_ACTIVECAPTION
    RGB(128, 128, 128), // COLOR_INACTIVECAPTION
    RGB(212, 208, 200), // COLOR_MENU
    RGB(255, 255, 255), // COLOR_WINDOW
    RGB(0, 0, 0),       // COLOR_WINDOWFRAME
    RGB(0, 0, 0),       // COLOR_MENUTEXT
    RGB(0, 0, 0),       // COLOR_WINDOWTEXT
    RGB(255, 255, 255), // COLOR_CAPTIONTEXT
    RGB(212, 208, 200), // COLOR_ACTIVEBORDER
    RGB(212, 208, 200), // COLOR_INACTIVEBORDER
    RGB(128, 128, 128), // COLOR_APPWORKSPACE
    RGB(10, 36, 106),   // COLOR_HIGHLIGHT
    RGB(255, 255, 255), // COLOR_HIGHLIGHTTEXT
    RGB(212, 208, 200), // COLOR_BTNFACE
    RGB(128, 128, 128), // COLOR_BTNSHADOW
    RGB(128, 128, 128), // COLOR_GRAYTEXT
    RGB(0, 0, 0),       // COLOR_BTNTEXT
    RGB(212, 208, 200), // COLOR_INACTIVECAPTIONTEXT
    RGB(255, 255, 255), // COLOR_BTNHIGHLIGHT
    RGB(64, 64, 64),    // COLOR_3DDKSHADOW
    RGB(212, 208, 200), // COLOR_3DLIGHT
    RGB(0, 0, 0),       // COLOR_INFOTEXT
    RGB(255, 255, 225), // COLOR_INFOBK
    RGB(181, 181, 181), // number 25 has no name
    RGB(0, 0, 200),     // COLOR_HOTLIGHT
    RGB(166, 202, 240), // COLOR_GRADIENTACTIVECAPTION
    RGB(192, 192, 192), // COLOR_GRADIENTINACTIVECAPTION
};
static_assert(std::size(colors) == COLOR_GRADIENTINACTIVECAPTION + 1);

constexpr int colorCount = static_cast<int>(std::size(colors));

win32::gdi::Brush *brushes[colorCount];
std::mutex brushMutex;

bool isColor(int index)
{
    return index >= 0 && index < colorCount;
}

} // namespace

DWORD GetSysColor(int index)
{
    return isColor(index) ? colors[index] : 0;
}

// A brush for each colour lives as long as the process; it takes on a changed colour.
HBRUSH GetSysColorBrush(int index)
{
    if (!isColor(index))
        return nullptr;
    std::lock_guard lock(brushMutex);
    if (!brushes[index]) {
        auto brush = new (std::nothrow) win32::gdi::Brush(BS_SOLID, colors[index], 0);
        if (!brush || !win32::gdi::enterStock(brush)) {
            delete brush;
            return win32::fail(ERROR_NOT_ENOUGH_MEMORY, HBRUSH{});
        }
        brushes[index] = brush;
    }
    return static_cast<HBRUSH>(brushes[index]->handle());
}

BOOL SetSysColors(int count, const INT *indices, const COLORREF *values)
{
    if (count < 0 || (count && (!indices || !values)))
        return win32::fail(ERROR_INVALID_PARAMETER, FALSE);
    std::lock_guard lock(brushMutex);
    for (int i = 0; i < count; ++i) {
        if (!isColor(indices[i]))
            continue;
        colors[indices[i]] = values[i] & 0xffffff;
        if (brushes[indices[i]])
            brushes[indices[i]]->color = values[i] & 0xffffff;
    }
    return TRUE;
}
