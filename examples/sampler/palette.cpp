// The floating palette: tools, colours, patterns, widths of the pen and transfer modes.
#include "sampler.h"

#include <iterator>

namespace {

WindowPtr palette;

constexpr SInt16 cell = 22, toolColumns = 3, toolRows = 3, columns = 3, gap = 5;
constexpr SInt16 toolsTop = 4, colorsTop = toolsTop + toolRows * cell + gap;
constexpr SInt16 colorRows = 4, patternsTop = colorsTop + colorRows * cell + gap;
constexpr SInt16 patternRows = 4, widthsTop = patternsTop + patternRows * cell + gap;
constexpr SInt16 modesTop = widthsTop + cell + gap, paletteHeight = modesTop + 4 * 15 + 4;
constexpr SInt16 left = 4, paletteWidth = left * 2 + columns * cell;

constexpr RGBColor black = {0, 0, 0}, white = {0xFFFF, 0xFFFF, 0xFFFF};
constexpr RGBColor colors[] = {
    {0, 0, 0},           {0x7777, 0x7777, 0x7777}, {0xFFFF, 0xFFFF, 0xFFFF}, {0xCCCC, 0x2222, 0x2222},
    {0xEEEE, 0x8888, 0}, {0xFFFF, 0xDDDD, 0x3333}, {0x3333, 0x9999, 0x3333}, {0x1111, 0x7777, 0x6666},
    {0, 0x9999, 0xCCCC}, {0x2222, 0x4444, 0xAAAA}, {0x7777, 0x3333, 0x9999}, {0x8888, 0x5555, 0x3333},
};

// In a pattern a 0 bit takes the foreground colour.
constexpr Pattern drawn(const Pattern &bits)
{
    Pattern pattern = {};
    for (int i = 0; i < 8; ++i)
        pattern.pat[i] = static_cast<UInt8>(~bits.pat[i]);
    return pattern;
}

constexpr Pattern patterns[] = {
    drawn({{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}}),
    drawn({{0xDD, 0x77, 0xDD, 0x77, 0xDD, 0x77, 0xDD, 0x77}}),
    drawn({{0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55}}),
    drawn({{0x88, 0x22, 0x88, 0x22, 0x88, 0x22, 0x88, 0x22}}),
    drawn({{0x88, 0x88, 0x88, 0x88, 0x88, 0x88, 0x88, 0x88}}),
    drawn({{0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}}),
    drawn({{0xFF, 0x80, 0x80, 0x80, 0xFF, 0x08, 0x08, 0x08}}),
    drawn({{0x11, 0x22, 0x44, 0x88, 0x11, 0x22, 0x44, 0x88}}),
    drawn({{0xFF, 0x88, 0x88, 0x88, 0xFF, 0x88, 0x88, 0x88}}),
    drawn({{0x3C, 0x42, 0x81, 0x81, 0x81, 0x81, 0x42, 0x3C}}),
    drawn({{0x00, 0x18, 0x24, 0x42, 0x81, 0x00, 0x00, 0x00}}),
    drawn({{0x10, 0x28, 0x44, 0x82, 0x44, 0x28, 0x10, 0x00}}),
};
constexpr int solidPattern = 0;
constexpr int widths[] = {1, 3, 6};

struct Mode {
    const char *name;
    SInt16 mode;
};
constexpr Mode modes[] = {{"Copy", patCopy}, {"Or", patOr}, {"Xor", patXor}, {"Bic", patBic}};

Rect cellAt(SInt16 top, int number)
{
    auto x = static_cast<SInt16>(left + number % columns * cell),
         y = static_cast<SInt16>(top + number / columns * cell);
    return {y, x, static_cast<SInt16>(y + cell), static_cast<SInt16>(x + cell)};
}

Rect modeRow(int number)
{
    auto top = static_cast<SInt16>(modesTop + number * 15);
    return {top, left, static_cast<SInt16>(top + 15), static_cast<SInt16>(left + columns * cell)};
}

void drawTool(int tool, Rect box)
{
    InsetRect(&box, 5, 6);
    SInt16 width = static_cast<SInt16>(box.right - box.left);
    switch (tool) {
    case selectTool:
        PenPat(&qd.gray);
        FrameRect(&box);
        PenNormal();
        break;
    case pencilTool:
        MoveTo(box.left, static_cast<SInt16>(box.bottom - 1));
        LineTo(static_cast<SInt16>(box.right - 3), box.top);
        LineTo(static_cast<SInt16>(box.right - 1), static_cast<SInt16>(box.top + 2));
        LineTo(static_cast<SInt16>(box.left + 2), static_cast<SInt16>(box.bottom - 1));
        LineTo(box.left, static_cast<SInt16>(box.bottom - 1));
        break;
    case brushTool:
        PenSize(4, 4);
        MoveTo(box.left, static_cast<SInt16>(box.bottom - 4));
        LineTo(static_cast<SInt16>(box.right - 4), box.top);
        PenNormal();
        break;
    case eraserTool: {
        Rect rubber = {static_cast<SInt16>(box.top + 2), box.left, box.bottom,
                       static_cast<SInt16>(box.left + width * 2 / 3)};
        FrameRect(&rubber);
        OffsetRect(&rubber, 3, -2);
        FrameRect(&rubber);
        break;
    }
    case lineTool:
        MoveTo(box.left, box.top);
        LineTo(static_cast<SInt16>(box.right - 1), static_cast<SInt16>(box.bottom - 1));
        break;
    case rectTool: PaintRect(&box); break;
    case roundTool: FrameRoundRect(&box, 8, 8); break;
    case ovalTool: PaintOval(&box); break;
    default: {
        PolyHandle outline = OpenPoly();
        MoveTo(box.left, static_cast<SInt16>(box.top + 6));
        LineTo(static_cast<SInt16>(box.left + 5), box.top);
        LineTo(box.right, static_cast<SInt16>(box.top + 3));
        LineTo(static_cast<SInt16>(box.left + 8), box.bottom);
        LineTo(box.left, static_cast<SInt16>(box.top + 6));
        ClosePoly();
        if (outline) {
            PaintPoly(outline);
            KillPoly(outline);
        }
        break;
    }
    }
}

// A cell with its frame, thick when it is the chosen one.
void drawCell(Rect box, bool isChosen)
{
    RGBForeColor(&black);
    ++box.right;
    ++box.bottom;
    PenSize(isChosen ? 2 : 1, isChosen ? 2 : 1);
    FrameRect(&box);
    PenNormal();
}

void drawTools()
{
    for (int i = 0; i < toolCount; ++i) {
        Rect box = cellAt(toolsTop, i);
        RGBForeColor(&black);
        drawTool(i, box);
        drawCell(box, i == brush.tool);
    }
}

void drawColors()
{
    for (int i = 0; i < static_cast<int>(std::size(colors)); ++i) {
        Rect box = cellAt(colorsTop, i);
        RGBForeColor(&colors[i]);
        PaintRect(&box);
        drawCell(box, false);
        if (i != brush.color)
            continue;
        InsetRect(&box, 1, 1);
        RGBForeColor(&white);
        PenSize(2, 2);
        FrameRect(&box);
        PenNormal();
    }
}

void drawPatterns()
{
    for (int i = 0; i < static_cast<int>(std::size(patterns)); ++i) {
        Rect box = cellAt(patternsTop, i);
        RGBForeColor(&black);
        FillRect(&box, &patterns[i]);
        drawCell(box, i == brush.pattern);
    }
}

void drawWidths()
{
    for (int i = 0; i < static_cast<int>(std::size(widths)); ++i) {
        Rect box = cellAt(widthsTop, i);
        drawCell(box, widths[i] == brush.width);
        auto width = static_cast<SInt16>(widths[i]);
        PenSize(1, width);
        MoveTo(static_cast<SInt16>(box.left + 5), static_cast<SInt16>((box.top + box.bottom - width) / 2));
        LineTo(static_cast<SInt16>(box.right - 5), static_cast<SInt16>((box.top + box.bottom - width) / 2));
        PenNormal();
    }
}

void drawModes()
{
    TextFont(GetSysFont());
    TextSize(11);
    TextFace(normal);
    for (int i = 0; i < static_cast<int>(std::size(modes)); ++i) {
        Rect row = modeRow(i), mark = {static_cast<SInt16>(row.top + 3), static_cast<SInt16>(row.left + 2),
                                       static_cast<SInt16>(row.top + 12), static_cast<SInt16>(row.left + 11)};
        FrameOval(&mark);
        InsetRect(&mark, 2, 2);
        if (i == brush.mode)
            PaintOval(&mark);
        MoveTo(static_cast<SInt16>(row.left + 16), static_cast<SInt16>(row.top + 12));
        DrawString(PascalText(modes[i].name));
    }
}

// The number of the cell at the point; -1 for none.
int cellNumber(SInt16 top, int count, Point point)
{
    for (int i = 0; i < count; ++i) {
        Rect box = cellAt(top, i);
        if (PtInRect(point, &box))
            return i;
    }
    return -1;
}

void choose(int &choice, int number)
{
    if (number >= 0)
        choice = number;
}

} // namespace

void openPalette()
{
    constexpr SInt16 floatingProcID = 1985;
    constexpr Rect place = {30, 10, 30 + paletteHeight, 10 + paletteWidth};
    brush.pattern = solidPattern;
    palette = NewWindow(nullptr, &place, PascalText("Tools"), true, floatingProcID, reinterpret_cast<WindowPtr>(-1),
                        false, 0);
}

void closePalette()
{
    if (palette)
        DisposeWindow(palette);
    palette = nullptr;
}

bool isPalette(WindowPtr window)
{
    return window && window == palette;
}

void drawPalette()
{
    PenNormal();
    drawTools();
    drawColors();
    drawPatterns();
    drawWidths();
    drawModes();
}

void clickInPalette(Point local)
{
    choose(brush.tool, cellNumber(toolsTop, toolCount, local));
    choose(brush.color, cellNumber(colorsTop, std::size(colors), local));
    choose(brush.pattern, cellNumber(patternsTop, std::size(patterns), local));
    int width = cellNumber(widthsTop, std::size(widths), local);
    if (width >= 0)
        brush.width = widths[width];
    for (int i = 0; i < static_cast<int>(std::size(modes)); ++i) {
        Rect row = modeRow(i);
        if (PtInRect(local, &row))
            brush.mode = i;
    }
    EraseRect(&palette->portRect);
    drawPalette();
}

const Pattern &chosenPattern()
{
    return patterns[brush.pattern];
}

RGBColor chosenColor()
{
    return colors[brush.color];
}

SInt16 chosenMode()
{
    return modes[brush.mode].mode;
}
