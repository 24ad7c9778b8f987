#include "stock_objects.h"

#include <cstring>
#include <iterator>

namespace win32::gdi::stock {
namespace {

constexpr int stockCount = DC_PEN + 1;

struct Table {
    Table();

    Object *objects[stockCount]{};
};

Brush *newBrush(UINT style, COLORREF color, ColorSource source = ColorSource::Own)
{
    Brush *brush = new Brush(style, color, 0);
    brush->colorSource = source;
    return brush;
}

Pen *newPen(DWORD style, COLORREF color, ColorSource source = ColorSource::Own)
{
    Pen *pen = new Pen;
    pen->style = style;
    pen->brush.color = color;
    pen->brush.style = style == PS_NULL ? UINT{BS_NULL} : UINT{BS_SOLID};
    pen->brush.colorSource = source;
    return pen;
}

// Heights and names as programs find them on Windows.
Font *newFont(LONG height, LONG width, LONG weight, BYTE charSet, BYTE pitchAndFamily, const char *name)
{
    LOGFONTA font{};
    font.lfHeight = height;
    font.lfWidth = width;
    font.lfWeight = weight;
    font.lfCharSet = charSet;
    font.lfPitchAndFamily = pitchAndFamily;
    strncpy(font.lfFaceName, name, LF_FACESIZE - 1);
    return new Font(font);
}

constexpr PALETTEENTRY defaultColors[] = {
    {0x00, 0x00, 0x00, 0}, {0x80, 0x00, 0x00, 0}, {0x00, 0x80, 0x00, 0}, {0x80, 0x80, 0x00, 0}, {0x00, 0x00, 0x80, 0},
    {0x80, 0x00, 0x80, 0}, {0x00, 0x80, 0x80, 0}, {0xc0, 0xc0, 0xc0, 0}, {0xc0, 0xdc, 0xc0, 0}, {0xa6, 0xca, 0xf0, 0},
    {0xff, 0xfb, 0xf0, 0}, {0xa0, 0xa0, 0xa4, 0}, {0x80, 0x80, 0x80, 0}, {0xff, 0x00, 0x00, 0}, {0x00, 0xff, 0x00, 0},
    {0xff, 0xff, 0x00, 0}, {0x00, 0x00, 0xff, 0}, {0xff, 0x00, 0xff, 0}, {0x00, 0xff, 0xff, 0}, {0xff, 0xff, 0xff, 0}};

Palette *newPalette()
{
    Palette *palette = new Palette;
    palette->entries.assign(std::begin(defaultColors), std::end(defaultColors));
    return palette;
}

Table::Table()
{
    constexpr BYTE oem = 255, ansi = 0, fixedModern = 0x31, variableSwiss = 0x22;
    objects[WHITE_BRUSH] = newBrush(BS_SOLID, RGB(255, 255, 255));
    objects[LTGRAY_BRUSH] = newBrush(BS_SOLID, RGB(192, 192, 192));
    objects[GRAY_BRUSH] = newBrush(BS_SOLID, RGB(128, 128, 128));
    objects[DKGRAY_BRUSH] = newBrush(BS_SOLID, RGB(64, 64, 64));
    objects[BLACK_BRUSH] = newBrush(BS_SOLID, RGB(0, 0, 0));
    objects[NULL_BRUSH] = newBrush(BS_NULL, RGB(0, 0, 0));
    objects[DC_BRUSH] = newBrush(BS_SOLID, RGB(255, 255, 255), ColorSource::ContextBrush);
    objects[WHITE_PEN] = newPen(PS_SOLID, RGB(255, 255, 255));
    objects[BLACK_PEN] = newPen(PS_SOLID, RGB(0, 0, 0));
    objects[NULL_PEN] = newPen(PS_NULL, RGB(0, 0, 0));
    objects[DC_PEN] = newPen(PS_SOLID, RGB(0, 0, 0), ColorSource::ContextPen);
    objects[OEM_FIXED_FONT] = newFont(12, 8, 400, oem, fixedModern, "Terminal");
    objects[ANSI_FIXED_FONT] = newFont(12, 9, 400, ansi, fixedModern, "Courier");
    objects[ANSI_VAR_FONT] = newFont(12, 9, 400, ansi, variableSwiss, "MS Sans Serif");
    objects[SYSTEM_FONT] = newFont(16, 7, 700, ansi, variableSwiss, "System");
    objects[DEVICE_DEFAULT_FONT] = newFont(16, 7, 700, ansi, variableSwiss, "System");
    objects[SYSTEM_FIXED_FONT] = newFont(15, 8, 400, ansi, fixedModern, "Fixedsys");
    objects[DEFAULT_GUI_FONT] = newFont(-11, 0, 400, ansi, 0, "MS Shell Dlg");
    objects[DEFAULT_PALETTE] = newPalette();
    for (Object *object : objects) {
        if (object)
            enterStock(object);
    }
}

// Made once and never destroyed: contexts may outlive everything else.
Table &table()
{
    static Table *made = new Table;
    return *made;
}

} // namespace

Object *object(int index)
{
    return index >= 0 && index < stockCount ? table().objects[index] : nullptr;
}

Brush *brush(int index)
{
    return static_cast<Brush *>(table().objects[index]);
}

Pen *pen(int index)
{
    return static_cast<Pen *>(table().objects[index]);
}

Font *font(int index)
{
    return static_cast<Font *>(table().objects[index]);
}

Palette *defaultPalette()
{
    return static_cast<Palette *>(table().objects[DEFAULT_PALETTE]);
}

} // namespace win32::gdi::stock
