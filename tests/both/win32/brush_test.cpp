// What brushes look like, and single pixels.
#include "Canvas.h"

#include <gtest/gtest.h>

namespace {

using Rows = std::vector<std::string>;

constexpr COLORREF ink = RGB(255, 0, 0), paper = RGB(0, 255, 0);
constexpr std::pair<uint32_t, char> marks[] = {{0xff0000, '#'}, {0x00ff00, '-'}, {0, '.'}};

Rows drawn(HBRUSH brush, int mode, DWORD rop = PATCOPY, POINT origin = {0, 0})
{
    Canvas canvas(9, 8, 32);
    SetBkColor(canvas.dc, paper);
    SetBkMode(canvas.dc, mode);
    SetBrushOrgEx(canvas.dc, origin.x, origin.y, nullptr);
    HGDIOBJ initial = SelectObject(canvas.dc, brush);
    PatBlt(canvas.dc, 0, 0, 9, 8, rop);
    SelectObject(canvas.dc, initial);
    DeleteObject(brush);
    return canvas.rows({std::begin(marks), std::end(marks)});
}

TEST(Brushes, HatchesHaveTheirLinesOnTheBackgroundColor)
{
    EXPECT_EQ(
        drawn(CreateHatchBrush(HS_CROSS, ink), OPAQUE),
        (Rows{"----#----", "----#----", "----#----", "#########", "----#----", "----#----", "----#----", "----#----"}));
    EXPECT_EQ(
        drawn(CreateHatchBrush(HS_DIAGCROSS, ink), OPAQUE),
        (Rows{"#------##", "-#----#--", "--#--#---", "---##----", "---##----", "--#--#---", "-#----#--", "#------##"}));
    EXPECT_EQ(
        drawn(CreateHatchBrush(HS_FDIAGONAL, ink), OPAQUE),
        (Rows{"#-------#", "-#-------", "--#------", "---#-----", "----#----", "-----#---", "------#--", "-------#-"}));
}

TEST(Brushes, TransparentHatchesLeaveWhatIsBetweenTheirLines)
{
    EXPECT_EQ(
        drawn(CreateHatchBrush(HS_HORIZONTAL, ink), TRANSPARENT),
        (Rows{".........", ".........", ".........", "#########", ".........", ".........", ".........", "........."}));
    EXPECT_EQ(drawn(CreateHatchBrush(HS_VERTICAL, ink), TRANSPARENT, PATINVERT), Rows(8, "....#...."));
    EXPECT_EQ(
        drawn(CreateHatchBrush(HS_BDIAGONAL, ink), TRANSPARENT, PATCOPY, {1, -1}),
        (Rows{".......#.", "......#..", ".....#...", "....#....", "...#.....", "..#......", ".#.......", "#.......#"}));
}

TEST(Brushes, GrayOnAMonochromeBitmapIsMixed)
{
    auto mixed = [](int gray) {
        Canvas canvas(8, 4, CanvasFormat::monochrome());
        HBRUSH brush = CreateSolidBrush(RGB(gray, gray, gray));
        HGDIOBJ initial = SelectObject(canvas.dc, brush);
        PatBlt(canvas.dc, 0, 0, 8, 4, PATCOPY);
        SelectObject(canvas.dc, initial);
        DeleteObject(brush);
        return canvas.rows();
    };
    EXPECT_EQ(mixed(0), Rows(4, "........"));
    EXPECT_EQ(mixed(255), Rows(4, "########"));
    EXPECT_EQ(mixed(128), (Rows{".#.#.#.#", "#.#.#.#.", ".#.#.#.#", "#.#.#.#."}));
    EXPECT_EQ(mixed(40), (Rows{"........", "..#...#.", "........", "#...#.#."}));
}

TEST(Brushes, APatternBrushKeepsACopyOfItsBits)
{
    Canvas canvas(4, 1, 32);
    WORD before = 0x5500, after = 0xff00;
    HBITMAP bitmap = CreateBitmap(8, 1, 1, 1, &before);
    HBRUSH brush = CreatePatternBrush(bitmap);
    SetBitmapBits(bitmap, sizeof after, &after);
    DeleteObject(bitmap);
    before = 0x0055;
    bitmap = CreateBitmap(8, 1, 1, 1, &before);
    HBRUSH striped = CreatePatternBrush(bitmap);
    SetBitmapBits(bitmap, sizeof after, &after);
    DeleteObject(bitmap);
    SetTextColor(canvas.dc, ink);
    SetBkColor(canvas.dc, paper);
    HGDIOBJ initial = SelectObject(canvas.dc, striped);
    PatBlt(canvas.dc, 0, 0, 4, 1, PATCOPY);
    EXPECT_EQ(canvas.rows({std::begin(marks), std::end(marks)}), Rows{"#-#-"});
    SelectObject(canvas.dc, initial);
    DeleteObject(brush);
    DeleteObject(striped);
}

TEST(Brushes, ANullBrushDrawsNothing)
{
    Canvas canvas(2, 1, 32);
    SelectObject(canvas.dc, GetStockObject(NULL_BRUSH));
    EXPECT_TRUE(PatBlt(canvas.dc, 0, 0, 2, 1, PATCOPY));
    EXPECT_TRUE(PatBlt(canvas.dc, 0, 0, 2, 1, PATINVERT));
    EXPECT_EQ(canvas.rows(), Rows{".."});
    EXPECT_TRUE(PatBlt(canvas.dc, 0, 0, 1, 1, DSTINVERT));
    EXPECT_EQ(canvas.rows(), Rows{"#."});
}

TEST(Brushes, APatternOfOneColorIsThatColorInThePresentColors)
{
    UINT16 bits[8] = {};
    HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, bits);
    HBRUSH brush = CreatePatternBrush(bitmap);
    for (int depth : {8, 16, 24, 32}) {
        Canvas canvas(4, 1, depth);
        auto painted = [&](HBRUSH used, DWORD rop) {
            canvas.clear(0x3c);
            SelectObject(canvas.dc, used);
            PatBlt(canvas.dc, 1, 0, 2, 1, rop);
            SelectObject(canvas.dc, GetStockObject(WHITE_BRUSH));
            return canvas.pixels();
        };
        for (COLORREF color : {RGB(255, 255, 255), RGB(0, 0, 255), RGB(0, 0, 0)})
            for (DWORD rop : {DWORD{PATCOPY}, DWORD{PATINVERT}, DWORD{DSTINVERT}, DWORD{0x00A000C9}}) {
                SetTextColor(canvas.dc, color);
                HBRUSH solid = CreateSolidBrush(color);
                EXPECT_EQ(painted(brush, rop), painted(solid, rop)) << depth << ' ' << color << ' ' << rop;
                DeleteObject(solid);
            }
    }
    DeleteObject(brush);
    DeleteObject(bitmap);
}

TEST(Pixels, AreSetAndReadAsTheNearestColor)
{
    Canvas deep(2, 1, 16), bits(2, 1, CanvasFormat::monochrome());
    EXPECT_EQ(SetPixel(deep.dc, 0, 0, RGB(100, 200, 77)), RGB(99, 206, 74));
    EXPECT_EQ(GetPixel(deep.dc, 0, 0), RGB(99, 206, 74));
    EXPECT_EQ(deep.pixel(0, 0), 0x3329u);
    EXPECT_EQ(SetPixel(bits.dc, 1, 0, RGB(128, 128, 128)), RGB(255, 255, 255));
    EXPECT_EQ(SetPixel(bits.dc, 0, 0, RGB(0, 0, 255)), RGB(0, 0, 0));
    EXPECT_EQ(bits.rows(), Rows{".#"});
    EXPECT_EQ(GetPixel(bits.dc, 1, 0), RGB(255, 255, 255));
}

TEST(Pixels, GoThroughTheMappingAndTheDrawingMode)
{
    Canvas canvas(4, 1, 32);
    canvas.setPixels({0, 0, 0x0000ff, 0});
    SetViewportOrgEx(canvas.dc, 2, 0, nullptr);
    EXPECT_EQ(GetPixel(canvas.dc, 0, 0), RGB(0, 0, 255));
    SetROP2(canvas.dc, R2_XORPEN);
    EXPECT_TRUE(SetPixelV(canvas.dc, 0, 0, RGB(255, 0, 255)));
    EXPECT_EQ(canvas.pixels(), (std::vector<uint32_t>{0, 0, 0xff0000, 0}));
}

TEST(Pixels, OutsideThereAreNone)
{
    Canvas canvas(2, 1, 32);
    EXPECT_EQ(GetPixel(canvas.dc, 2, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(canvas.dc, 0, -1), CLR_INVALID);
    EXPECT_EQ(GetPixel(nullptr, 0, 0), CLR_INVALID);
    EXPECT_EQ(SetPixel(nullptr, 0, 0, 0), CLR_INVALID);
    EXPECT_FALSE(SetPixelV(nullptr, 0, 0, 0));
}

} // namespace
