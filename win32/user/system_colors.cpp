#include "system_colors.h"

#include "kernel/kernel_internal.h"

#include <array>

namespace win32::user {
namespace {

constexpr COLORREF face = RGB(212, 208, 200), darkBlue = RGB(10, 36, 106);

constexpr COLORREF initialColors[] = {
    face,               // scroll bar
    RGB(58, 110, 165),  // desktop
    darkBlue,           // active caption
    RGB(128, 128, 128), // inactive caption
    face,               // menu
    RGB(255, 255, 255), // window
    RGB(0, 0, 0),       // window frame
    RGB(0, 0, 0),       // menu text
    RGB(0, 0, 0),       // window text
    RGB(255, 255, 255), // caption text
    face,               // active border
    face,               // inactive border
    RGB(128, 128, 128), // workspace
    darkBlue,           // highlight
    RGB(255, 255, 255), // highlighted text
    face,               // button face
    RGB(128, 128, 128), // button shadow
    RGB(128, 128, 128), // gray text
    RGB(0, 0, 0),       // button text
    face,               // inactive caption text
    RGB(255, 255, 255), // button highlight
    RGB(64, 64, 64),    // dark shadow
    face,               // light
    RGB(0, 0, 0),       // info text
    RGB(255, 255, 225), // info
    RGB(181, 181, 181), // alternate button face
    RGB(0, 0, 128),     // hot items
    RGB(166, 202, 240), // active caption's other end
    RGB(192, 192, 192), // inactive caption's other end
    darkBlue,           // highlighted menu item
    face,               // menu bar
};
static_assert(std::size(initialColors) == systemColorCount);

using Brushes = std::array<gdi::Brush *, systemColorCount>;

// Made once and never destroyed, as stock objects are.
Brushes &brushes()
{
    static Brushes &made = *[] {
        auto *all = new Brushes;
        for (size_t i = 0; i < all->size(); ++i) {
            (*all)[i] = new gdi::Brush(BS_SOLID, initialColors[i], 0);
            gdi::enterStock((*all)[i]);
        }
        return all;
    }();
    return made;
}

} // namespace

gdi::Brush *systemBrush(int index)
{
    return index >= 0 && index < systemColorCount ? brushes()[static_cast<size_t>(index)] : nullptr;
}

const gdi::Brush *brushOrSystemColor(HBRUSH brush)
{
    auto number = reinterpret_cast<uintptr_t>(brush);
    if (number > 0 && number <= systemColorCount)
        return systemBrush(static_cast<int>(number) - 1);
    return gdi::find<gdi::Brush>(brush);
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

DWORD GetSysColor(int index)
{
    const gdi::Brush *brush = systemBrush(index);
    return brush ? brush->color : 0;
}

HBRUSH GetSysColorBrush(int index)
{
    const gdi::Brush *brush = systemBrush(index);
    return brush ? static_cast<HBRUSH>(brush->handle()) : nullptr;
}

BOOL SetSysColors(int count, const INT *indices, const COLORREF *colors)
{
    if (count < 0 || (count > 0 && (!indices || !colors)))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    for (int i = 0; i < count; ++i) {
        if (gdi::Brush *brush = systemBrush(indices[i]))
            brush->recolor(colors[i] & 0xffffff);
    }
    return TRUE;
}
