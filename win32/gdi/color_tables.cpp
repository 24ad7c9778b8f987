#include "color_tables.h"

#include <algorithm>
#include <iterator>

namespace win32::gdi {
namespace {

constexpr RGBQUAD black{0, 0, 0, 0};
constexpr RGBQUAD white{0xff, 0xff, 0xff, 0};

// Blue, green, red: dark colours first.
constexpr RGBQUAD vga[] = {black,
                           {0, 0, 0x80, 0},
                           {0, 0x80, 0, 0},
                           {0, 0x80, 0x80, 0},
                           {0x80, 0, 0, 0},
                           {0x80, 0, 0x80, 0},
                           {0x80, 0x80, 0, 0},
                           {0x80, 0x80, 0x80, 0},
                           {0xc0, 0xc0, 0xc0, 0},
                           {0, 0, 0xff, 0},
                           {0, 0xff, 0, 0},
                           {0, 0xff, 0xff, 0},
                           {0xff, 0, 0, 0},
                           {0xff, 0, 0xff, 0},
                           {0xff, 0xff, 0, 0},
                           white};

ColorTable blackAndWhite()
{
    ColorTable table;
    table.colors[0] = black;
    table.colors[1] = white;
    table.count = 2;
    return table;
}

ColorTable sixteenColors()
{
    ColorTable table;
    std::copy(std::begin(vga), std::end(vga), table.colors);
    table.count = 16;
    return table;
}

ColorTable cube()
{
    ColorTable table;
    for (int index = 0; index < 256; ++index)
        table.colors[index] = {static_cast<BYTE>(index & 0xc0), static_cast<BYTE>(index << 2 & 0xe0),
                               static_cast<BYTE>(index << 5), 0};
    // Seven dark colours, light gray and two that Windows adds; two more and the light colours at the end.
    constexpr int half = 7, lightColors = 9;
    std::copy(vga, vga + half, table.colors);
    table.colors[half] = {0xc0, 0xc0, 0xc0, 0};
    table.colors[half + 1] = {0xc0, 0xdc, 0xc0, 0};
    table.colors[half + 2] = {0xf0, 0xca, 0xa6, 0};
    table.colors[246] = {0xf0, 0xfb, 0xff, 0};
    table.colors[247] = {0xa4, 0xa0, 0xa0, 0};
    table.colors[248] = {0x80, 0x80, 0x80, 0};
    std::copy(vga + lightColors, std::end(vga), table.colors + 249);
    table.count = 256;
    return table;
}

ColorTable stamped(ColorTable table)
{
    table.changed();
    return table;
}

} // namespace

const ColorTable *defaultColors(int bitsPerPixel)
{
    static const ColorTable one = stamped(blackAndWhite());
    static const ColorTable four = stamped(sixteenColors());
    static const ColorTable eight = stamped(cube());
    switch (bitsPerPixel) {
    case 1: return &one;
    case 4: return &four;
    case 8: return &eight;
    default: return nullptr;
    }
}

Surface coloredSurface(const Surface &surface)
{
    Surface colored = surface;
    if (surface.format.isMonochrome) {
        colored.format = rgbFormat(1);
        colored.colors = defaultColors(1);
    }
    return colored;
}

} // namespace win32::gdi
