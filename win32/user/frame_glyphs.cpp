#include "frame_glyphs.h"

#include "gdi/scan.h"

namespace win32::user {
namespace {

using gdi::Box;

int widthOf(const Box &box)
{
    return box.x2 - box.x1;
}

int heightOf(const Box &box)
{
    return box.y2 - box.y1;
}

int shorterSide(const Box &box)
{
    return std::min(widthOf(box), heightOf(box));
}

// So much of the box's shorter side as the part is of a whole.
int share(const Box &box, int part, int whole, int least)
{
    return std::max(least, shorterSide(box) * part / whole);
}

// Where something of a size stands in the middle of a box.
POINT middleOf(const Box &box, int width, int height)
{
    return {box.x1 + (widthOf(box) - width) / 2, box.y1 + (heightOf(box) - height) / 2};
}

// Rows of "#" and "." as boxes, each sign a square of the scale's size.
template <size_t rows> Glyph glyphOf(const char *const (&picture)[rows], POINT origin, int scale)
{
    Glyph glyph;
    for (size_t row = 0; row < rows; ++row) {
        int y = origin.y + static_cast<int>(row) * scale;
        for (int column = 0; picture[row][column]; ++column) {
            int x = origin.x + column * scale;
            if (picture[row][column] == '#')
                glyph.push_back({x, y, x + scale, y + scale});
        }
    }
    return glyph;
}

// The outline of a window with a caption.
void appendWindow(Glyph &glyph, const Box &box, int thickness)
{
    glyph.push_back({box.x1, box.y1, box.x2, box.y1 + 2 * thickness});
    glyph.push_back({box.x1, box.y1 + 2 * thickness, box.x1 + thickness, box.y2 - thickness});
    glyph.push_back({box.x2 - thickness, box.y1 + 2 * thickness, box.x2, box.y2 - thickness});
    glyph.push_back({box.x1, box.y2 - thickness, box.x2, box.y2});
}

// What the caption's signs are laid out in: a square of nine units.
struct CaptionGrid {
    explicit CaptionGrid(const Box &box) : unit(share(box, 1, 14, 1)), side(share(box, 9, 14, 6))
    {
        POINT origin = middleOf(box, side, side);
        square = {origin.x, origin.y, origin.x + side, origin.y + side};
    }

    int unit;
    int side;
    Box square;
};

} // namespace

Box middleSquare(const Box &box)
{
    int side = shorterSide(box);
    POINT origin = middleOf(box, side, side);
    return {origin.x, origin.y, origin.x + side, origin.y + side};
}

Glyph arrowGlyph(const Box &box, Direction direction)
{
    int length = share(box, 1, 4, 3), base = 2 * length - 1;
    bool isUpright = direction == Direction::Up || direction == Direction::Down;
    bool growsForward = direction == Direction::Up || direction == Direction::Left;
    // One that points up or left seems to stand in the middle when it is a little before it.
    POINT origin =
        isUpright ? middleOf(box, base, length + growsForward) : middleOf(box, length + growsForward, base);
    Glyph glyph;
    for (int i = 0; i < length; ++i) {
        int half = growsForward ? i : length - 1 - i;
        int from = length - 1 - half, to = length + half;
        if (isUpright)
            glyph.push_back({origin.x + from, origin.y + i, origin.x + to, origin.y + i + 1});
        else
            glyph.push_back({origin.x + i, origin.y + from, origin.x + i + 1, origin.y + to});
    }
    return glyph;
}

Glyph checkGlyph(const Box &box)
{
    int columns = share(box, 7, 13, 3), thickness = share(box, 3, 13, 1), corner = columns * 2 / 7;
    POINT origin = middleOf(box, columns, columns);
    Glyph glyph;
    for (int column = 0; column < columns; ++column) {
        int rise = column <= corner ? corner - column : column - corner;
        int x = origin.x + column, y = origin.y + columns - thickness - rise;
        glyph.push_back({x, y, x + 1, y + thickness});
    }
    return glyph;
}

Glyph discGlyph(const Box &box, int diameter)
{
    POINT origin = middleOf(box, diameter, diameter);
    Glyph glyph;
    gdi::scanEllipse({origin.x, origin.y, origin.x + diameter, origin.y + diameter}, gdi::everywhere, glyph);
    return glyph;
}

Glyph closeGlyph(const Box &box)
{
    int unit = share(box, 1, 14, 1), height = share(box, 7, 14, 3), stroke = 2 * unit, width = height - 1 + stroke;
    POINT origin = middleOf(box, width, height);
    Glyph glyph;
    for (int row = 0; row < height; ++row) {
        int left = std::min(row, height - 1 - row), right = std::max(row, height - 1 - row), y = origin.y + row;
        if (left + stroke >= right) {
            glyph.push_back({origin.x + left, y, origin.x + right + stroke, y + 1});
            continue;
        }
        glyph.push_back({origin.x + left, y, origin.x + left + stroke, y + 1});
        glyph.push_back({origin.x + right, y, origin.x + right + stroke, y + 1});
    }
    return glyph;
}

Glyph minimizeGlyph(const Box &box)
{
    CaptionGrid grid(box);
    const Box &square = grid.square;
    return {{square.x1, square.y2 - 2 * grid.unit, square.x1 + grid.side * 2 / 3, square.y2}};
}

Glyph maximizeGlyph(const Box &box)
{
    CaptionGrid grid(box);
    Glyph glyph;
    appendWindow(glyph, grid.square, grid.unit);
    return glyph;
}

Glyph restoreGlyph(const Box &box)
{
    CaptionGrid grid(box);
    const Box &square = grid.square;
    int side = grid.side * 2 / 3, unit = grid.unit;
    Box front = {square.x1, square.y2 - side, square.x1 + side, square.y2};
    Box back = {square.x2 - side, square.y1, square.x2, square.y1 + side};
    Glyph glyph = {{back.x1, back.y1, back.x2, back.y1 + 2 * unit},
                   {back.x1, back.y1 + 2 * unit, back.x1 + unit, front.y1},
                   {back.x2 - unit, back.y1 + 2 * unit, back.x2, back.y2 - unit},
                   {front.x2, back.y2 - unit, back.x2, back.y2}};
    appendWindow(glyph, front, unit);
    return glyph;
}

Glyph helpGlyph(const Box &box)
{
    constexpr const char *picture[] = {".####.", "##..##", "....##", "...##.", "..##..",
                                       "..##..", "......", "..##..", "..##.."};
    int scale = share(box, 1, 14, 1);
    return glyphOf(picture, middleOf(box, 6 * scale, 9 * scale), scale);
}

} // namespace win32::user
