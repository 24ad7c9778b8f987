// Text in the built-in font, exact to the pixel, and fonts under faults.
#include "Canvas.h"
#include "TemporaryFile.h"

#include <win32/control.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <thread>
#include <tuple>

namespace {

using Rows = std::vector<std::string>;

struct BuiltinCanvas : Canvas {
    explicit BuiltinCanvas(int width, int height, LOGFONTA wanted = {}, int depth = 32) : Canvas(width, height, depth)
    {
        if (!wanted.lfFaceName[0])
            strcpy(wanted.lfFaceName, "Builtin Fixed");
        font = CreateFontIndirectA(&wanted);
        initialFont = SelectObject(dc, font);
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, RGB(255, 255, 255));
    }
    ~BuiltinCanvas()
    {
        SelectObject(dc, initialFont);
        DeleteObject(font);
    }

    HFONT font;
    HGDIOBJ initialFont;
};

TEST(BuiltinFont, DrawsItsGlyphs)
{
    BuiltinCanvas canvas(24, 13);
    TextOutA(canvas.dc, 0, 0, "Ag\xc9", 3);
    EXPECT_EQ(canvas.rows(), (Rows{
                                 "....................#...",
                                 "...................#....",
                                 "...##............######.",
                                 "..#..#...........#......",
                                 ".#....#...###.#..#......",
                                 ".#....#..#...##..#####..",
                                 ".######..#....#..#......",
                                 ".#....#..#....#..#......",
                                 ".#....#..#...##..#......",
                                 ".#....#...###.#..######.",
                                 "..............#.........",
                                 ".........#....#.........",
                                 "..........####..........",
                             }));
}

TEST(BuiltinFont, HasExactMeasures)
{
    BuiltinCanvas canvas(1, 1);
    TEXTMETRICA metrics;
    ASSERT_TRUE(GetTextMetricsA(canvas.dc, &metrics));
    EXPECT_EQ(metrics.tmHeight, 13);
    EXPECT_EQ(metrics.tmAscent, 10);
    EXPECT_EQ(metrics.tmAveCharWidth, 8);
    EXPECT_EQ(metrics.tmCharSet, ANSI_CHARSET);
    EXPECT_EQ(metrics.tmPitchAndFamily, FF_MODERN);
    SIZE extent;
    GetTextExtentPoint32A(canvas.dc, "0123456789", 10, &extent);
    EXPECT_EQ(extent.cx, 80);
    EXPECT_EQ(extent.cy, 13);
}

TEST(BuiltinFont, GrowsByWholeMultiples)
{
    LOGFONTA wanted{};
    wanted.lfHeight = 30;
    BuiltinCanvas twice(16, 26, wanted);
    TextOutA(twice.dc, 0, 0, "A", 1);
    BuiltinCanvas once(8, 13);
    TextOutA(once.dc, 0, 0, "A", 1);
    Rows expected;
    for (const std::string &row : once.rows()) {
        std::string wide;
        for (char pixel : row)
            wide.append(2, pixel);
        expected.insert(expected.end(), 2, wide);
    }
    EXPECT_EQ(twice.rows(), expected);
}

TEST(BuiltinFont, BoldIsItsOwnShadowAndItalicLeans)
{
    LOGFONTA wanted{};
    wanted.lfWeight = FW_BOLD;
    BuiltinCanvas bold(8, 13, wanted);
    TextOutA(bold.dc, 0, 0, "I", 1);
    EXPECT_EQ(bold.rows()[2], "..####..");
    EXPECT_EQ(bold.rows()[5], "...##...");
    wanted = {};
    wanted.lfItalic = TRUE;
    BuiltinCanvas italic(12, 13, wanted);
    TextOutA(italic.dc, 0, 0, "|", 1);
    EXPECT_EQ(italic.rows()[2], ".....#......");
    EXPECT_EQ(italic.rows()[9], "...#........");
    EXPECT_EQ(italic.rows()[11], "..#.........");
}

TEST(BuiltinFont, UnderlineAndStrikeoutRunThroughTheCell)
{
    LOGFONTA wanted{};
    wanted.lfUnderline = wanted.lfStrikeOut = TRUE;
    BuiltinCanvas canvas(18, 13, wanted);
    TextOutA(canvas.dc, 1, 0, "  ", 2);
    Rows expected(13, std::string(18, '.'));
    expected[7] = expected[11] = ".################.";
    EXPECT_EQ(canvas.rows(), expected);
}

TEST(BuiltinFont, WrapsWithoutTheBlanksAtTheBreak)
{
    BuiltinCanvas canvas(90, 40);
    RECT rect{0, 0, 13 * 8, 0};
    EXPECT_EQ(DrawTextA(canvas.dc, "several words   in lines", -1, &rect, DT_WORDBREAK | DT_CALCRECT), 26);
    EXPECT_EQ(rect.right, 13 * 8);
    rect.right = 12 * 8;
    EXPECT_EQ(DrawTextA(canvas.dc, "several words   in lines", -1, &rect, DT_WORDBREAK | DT_CALCRECT), 39);
    EXPECT_EQ(rect.right, 10 * 8); // "words   in"
    auto drawn = [&](const char *text, UINT flags) {
        canvas.clear();
        rect = {0, 0, 90, 40};
        DrawTextA(canvas.dc, text, -1, &rect, flags);
        return canvas.rows();
    };
    EXPECT_EQ(drawn("&Save", DT_HIDEPREFIX), drawn("Save", 0));
    Rows line(40, std::string(90, '.'));
    line[11].replace(16, 8, "########");
    EXPECT_EQ(drawn("Sa&ve", DT_PREFIXONLY), line);
}

// Sanitizers tell of sums that overflow.
TEST(BuiltinFont, MeasuresBeyondAllBoundsDoNoHarm)
{
    BuiltinCanvas canvas(20, 20);
    SetMapMode(canvas.dc, MM_ANISOTROPIC);
    SetWindowExtEx(canvas.dc, INT_MAX, INT_MAX, nullptr);
    SetViewportExtEx(canvas.dc, 1, 1, nullptr);
    TEXTMETRICA metrics;
    EXPECT_TRUE(GetTextMetricsA(canvas.dc, &metrics));
    for (LONG far : {INT_MIN, -5, INT_MAX})
        for (UINT flags : {DT_SINGLELINE | DT_BOTTOM | DT_CENTER, DT_WORDBREAK | DT_EXPANDTABS | DT_EXTERNALLEADING,
                           DT_RIGHT | DT_END_ELLIPSIS | DT_CALCRECT}) {
            SetTextCharacterExtra(canvas.dc, far);
            RECT rect{far, INT_MAX, INT_MIN, far};
            DrawTextA(canvas.dc, "a\tb &c\n\td", -1, &rect, flags);
            TabbedTextOutA(canvas.dc, far, far, "a\tb", 3, 0, nullptr, far);
        }
}

TEST(Fonts, TextSurvivesRefusedMemory)
{
    LOGFONTA wanted{};
    wanted.lfHeight = -17;
    strcpy(wanted.lfFaceName, "Arial");
    for (DWORD refused = 1; refused < 200; ++refused) {
        Canvas canvas(100, 30, 32);
        ++wanted.lfWidth; // a font that was not realized before
        HFONT font = CreateFontIndirectA(&wanted);
        HGDIOBJ before = SelectObject(canvas.dc, font);
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, 1, 0);
        BOOL isDrawn = TextOutA(canvas.dc, 0, 0, "Memory", 6);
        DWORD counted = Win32Control_AllocationsCounted(WIN32_ALLOCATION_LAYER);
        Win32Control_AllowAllocations(WIN32_ALLOCATION_LAYER);
        EXPECT_TRUE(TextOutA(canvas.dc, 0, 0, "Memory", 6));
        SelectObject(canvas.dc, before);
        DeleteObject(font);
        if (counted < refused) {
            EXPECT_TRUE(isDrawn);
            return;
        }
        EXPECT_FALSE(isDrawn) << refused;
        EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
    }
    FAIL() << "more allocations than this test expects";
}

TEST(Fonts, RepeatedTextAsksForNoMemory)
{
    BuiltinCanvas canvas(100, 30);
    SetBkMode(canvas.dc, OPAQUE);
    RECT rect{0, 0, 90, 20};
    SIZE extent;
    auto draw = [&] {
        TextOutA(canvas.dc, 0, 0, "Repeated", 8);
        GetTextExtentPoint32A(canvas.dc, "Repeated", 8, &extent);
        DrawTextA(canvas.dc, "Rep&eated", 9, &rect, DT_CENTER | DT_WORDBREAK);
    };
    draw();
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, 0, 0, 0);
    draw();
    EXPECT_EQ(Win32Control_AllocationsCounted(WIN32_ALLOCATION_LAYER), 0u);
    Win32Control_AllowAllocations(WIN32_ALLOCATION_LAYER);
}

TEST(Fonts, ManyFontsAreNotKept)
{
    Canvas canvas(10, 10, 32);
    LOGFONTA wanted{};
    strcpy(wanted.lfFaceName, "Builtin Fixed");
    for (int i = 1; i < 1000; ++i) {
        wanted.lfWidth = i;
        HFONT font = CreateFontIndirectA(&wanted);
        HGDIOBJ before = SelectObject(canvas.dc, font);
        SIZE extent;
        ASSERT_TRUE(GetTextExtentPoint32A(canvas.dc, "ab", 2, &extent));
        EXPECT_EQ(extent.cx, 16 * std::min(std::max(i / 8, 1), 64));
        SelectObject(canvas.dc, before);
        DeleteObject(font);
    }
}

TEST(Fonts, OneFontServesSeveralThreads)
{
    LOGFONTA wanted{};
    wanted.lfHeight = -15;
    strcpy(wanted.lfFaceName, "Arial");
    std::vector<std::vector<uint32_t>> pictures(4);
    std::vector<std::thread> threads;
    for (auto &picture : pictures) {
        threads.emplace_back([&picture, &wanted] {
            BuiltinCanvas canvas(300, 30, wanted);
            for (int i = 0; i < 50; ++i)
                TextOutA(canvas.dc, 0, 0, "The quick brown fox jumps over the lazy dog", 43);
            picture = canvas.pixels();
        });
    }
    for (auto &thread : threads)
        thread.join();
    for (const auto &picture : pictures)
        EXPECT_EQ(picture, pictures[0]);
}

TEST(Fonts, DoubleByteTextIsReadInTheCharacterSetsPage)
{
    LOGFONTA wanted{};
    strcpy(wanted.lfFaceName, "Builtin Fixed");
    wanted.lfCharSet = SHIFTJIS_CHARSET;
    BuiltinCanvas canvas(40, 13, wanted);
    SIZE extent;
    GetTextExtentPoint32A(canvas.dc,
                          "a\x82\xa0"
                          "b",
                          4, &extent);
    EXPECT_EQ(extent.cx, 24); // three characters in four bytes
    int positions[4];
    ASSERT_TRUE(GetTextExtentExPointA(canvas.dc,
                                      "a\x82\xa0"
                                      "b",
                                      4, 0, nullptr, positions, &extent));
    EXPECT_EQ(std::vector<int>(positions, positions + 4), (std::vector<int>{8, 16, 16, 24}));
    EXPECT_EQ(GetTextCharset(canvas.dc), SHIFTJIS_CHARSET);
    // A lead byte at the end stands alone.
    EXPECT_TRUE(TextOutA(canvas.dc, 0, 0, "a\x82", 2));
}

// Of two bytes in this page; common fonts have it.
constexpr char twoIotas[] = "\x83\xc7\x83\xc7";

struct VerticalCanvas : Canvas {
    explicit VerticalCanvas(const char *face, LONG turn = 0) : Canvas(200, 200, 32)
    {
        LOGFONTA wanted{};
        wanted.lfHeight = -30;
        wanted.lfEscapement = wanted.lfOrientation = turn;
        wanted.lfCharSet = SHIFTJIS_CHARSET;
        wanted.lfQuality = NONANTIALIASED_QUALITY;
        strcpy(wanted.lfFaceName, face);
        initialFont = SelectObject(dc, CreateFontIndirectA(&wanted));
        SetTextColor(dc, RGB(255, 255, 255));
        SetBkMode(dc, TRANSPARENT);
        SetTextAlign(dc, TA_BASELINE);
    }
    ~VerticalCanvas() { DeleteObject(SelectObject(dc, initialFont)); }

    // The box of what one text leaves.
    RECT inkOf(const char *text)
    {
        clear();
        TextOutA(dc, 100, 100, text, static_cast<int>(strlen(text)));
        Rows rows = this->rows();
        RECT box{200, 200, 0, 0};
        for (LONG y = 0; y < 200; ++y)
            for (LONG x = 0; x < 200; ++x)
                if (rows[static_cast<size_t>(y)][static_cast<size_t>(x)] != '.')
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1), y + 1};
        return box;
    }

    HGDIOBJ initialFont;
};

TEST(VerticalFaces, FullWidthCharactersLieOnTheirBacksAndOthersStand)
{
    TEXTMETRICA metrics;
    VerticalCanvas level("Arial"), vertical("@Arial"), column("@Arial", -900);
    GetTextMetricsA(level.dc, &metrics);
    if (!(metrics.tmPitchAndFamily & TMPF_VECTOR))
        GTEST_SKIP() << "no scalable font";
    char face[LF_FACESIZE];
    GetTextFaceA(vertical.dc, LF_FACESIZE, face);
    EXPECT_STREQ(face, "@Arial");
    auto widthOf = [](const RECT &box) { return box.right - box.left; };
    auto heightOf = [](const RECT &box) { return box.bottom - box.top; };
    std::string iota(twoIotas, 2);
    RECT plain = level.inkOf(iota.c_str()), lying = vertical.inkOf(iota.c_str());
    ASSERT_LT(widthOf(plain), heightOf(plain) - 2);
    EXPECT_NEAR(widthOf(lying), heightOf(plain), 1);
    EXPECT_NEAR(heightOf(lying), widthOf(plain), 1);
    // Down the page it stands, in the middle of the line.
    RECT upright = column.inkOf(iota.c_str());
    EXPECT_NEAR(widthOf(upright), widthOf(plain), 1);
    EXPECT_NEAR(heightOf(upright), heightOf(plain), 1);
    EXPECT_GE(upright.top, 100);
    EXPECT_NEAR((upright.left + upright.right) / 2, 100 + (metrics.tmAscent - metrics.tmDescent) / 2, 2);
    RECT two = column.inkOf(twoIotas);
    EXPECT_EQ(widthOf(two), widthOf(upright));
    EXPECT_NEAR(heightOf(two), heightOf(upright) + 30, 1) << "a character below the other";
    SIZE extent;
    GetTextExtentPoint32A(vertical.dc, twoIotas, 4, &extent);
    EXPECT_EQ(extent.cx, 60);
    // A letter, and a dash of two bytes.
    for (const char *text : {"P", "\x81\x5c"}) {
        RECT expected = level.inkOf(text), found = vertical.inkOf(text);
        EXPECT_TRUE(EqualRect(&expected, &found)) << text;
    }
}

// A bitmap font with one letter, an A that is a triangle, 5 by 4 pixels.
constexpr char triangleFont[] = R"(STARTFONT 2.1
FONT -none-Triangles-Medium-R-Normal--5-50-72-72-C-60-ISO10646-1
SIZE 5 72 72
FONTBOUNDINGBOX 6 5 0 -1
STARTPROPERTIES 4
FAMILY_NAME "Triangles"
WEIGHT_NAME "Medium"
FONT_ASCENT 4
FONT_DESCENT 1
ENDPROPERTIES
CHARS 1
STARTCHAR A
ENCODING 65
SWIDTH 1200 0
DWIDTH 6 0
BBX 5 3 0 0
BITMAP
20
70
F8
ENDCHAR
ENDFONT
)";

TEST(Fonts, AddedFilesJoinAndLeave)
{
    TemporaryFile file("triangles");
    file.write(triangleFont);
    EXPECT_EQ(AddFontResourceA(file.path()), 1);
    EXPECT_EQ(AddFontResourceA(file.path()), 1);
    file.write("gone"); // the font was read whole
    LOGFONTA wanted{};
    strcpy(wanted.lfFaceName, "Triangles");
    BuiltinCanvas canvas(12, 5, wanted);
    char face[LF_FACESIZE];
    EXPECT_EQ(GetTextFaceA(canvas.dc, LF_FACESIZE, face), 10);
    EXPECT_STREQ(face, "Triangles");
    TextOutA(canvas.dc, 1, 0, "AA", 2);
    EXPECT_EQ(canvas.rows(), (Rows{
                                 "............",
                                 "...#.....#..",
                                 "..###...###.",
                                 ".#####.#####",
                                 "............",
                             }));
    EXPECT_TRUE(RemoveFontResourceA(file.path()));
    GetTextFaceA(canvas.dc, LF_FACESIZE, face);
    EXPECT_STREQ(face, "Triangles"); // added twice
    EXPECT_TRUE(RemoveFontResourceA(file.path()));
    EXPECT_FALSE(RemoveFontResourceA(file.path()));
    GetTextFaceA(canvas.dc, LF_FACESIZE, face);
    EXPECT_STRNE(face, "Triangles");
    EXPECT_EQ(AddFontResourceA(file.path()), 0);
}

// A scalable font, or none.
struct ScalableCanvas : Canvas {
    explicit ScalableCanvas(LONG turn = 0, BYTE underline = 0) : Canvas(160, 160, 32)
    {
        LOGFONTA wanted{};
        wanted.lfHeight = -24;
        wanted.lfEscapement = wanted.lfOrientation = turn;
        wanted.lfUnderline = underline;
        wanted.lfQuality = NONANTIALIASED_QUALITY;
        strcpy(wanted.lfFaceName, "Arial");
        initialFont = SelectObject(dc, CreateFontIndirectA(&wanted));
        SetTextColor(dc, RGB(255, 0, 0));
        SetBkColor(dc, RGB(0, 0, 255));
        GetTextMetricsA(dc, &metrics);
        GetTextExtentPoint32A(dc, "Turn", 4, &extent);
    }
    ~ScalableCanvas() { DeleteObject(SelectObject(dc, initialFont)); }

    bool isScalable() const { return (metrics.tmPitchAndFamily & TMPF_VECTOR) != 0; }
    size_t count(uint32_t pixel) const
    {
        auto all = pixels();
        return static_cast<size_t>(std::count(all.begin(), all.end(), pixel));
    }

    HGDIOBJ initialFont;
    TEXTMETRICA metrics{};
    SIZE extent{};
};

TEST(TurnedText, FillsItsCellAndDrawsItsLineInItsDirection)
{
    for (LONG turn : {0L, 900L, 1800L, 2700L, 300L}) {
        ScalableCanvas canvas(turn), underlined(turn, 1);
        if (!canvas.isScalable())
            GTEST_SKIP() << "no scalable font";
        TextOutA(canvas.dc, 80, 80, "Turn", 4);
        double cell = double{1} * canvas.extent.cx * canvas.extent.cy;
        EXPECT_NEAR(static_cast<double>(canvas.count(0xff) + canvas.count(0xff0000)), cell, cell / 20) << turn;
        SetBkMode(canvas.dc, TRANSPARENT);
        SetBkMode(underlined.dc, TRANSPARENT);
        canvas.clear();
        TextOutA(canvas.dc, 80, 80, "Turn", 4);
        TextOutA(underlined.dc, 80, 80, "Turn", 4);
        size_t line = underlined.count(0xff0000) - canvas.count(0xff0000);
        EXPECT_GT(line, static_cast<size_t>(canvas.extent.cx * 3 / 4)) << turn;
        SetTextAlign(canvas.dc, TA_UPDATECP);
        MoveToEx(canvas.dc, 80, 80, nullptr);
        TextOutA(canvas.dc, 0, 0, "Turn", 4);
        POINT position;
        GetCurrentPositionEx(canvas.dc, &position);
        double angle = static_cast<double>(turn) * 3.14159265 / 1800;
        EXPECT_NEAR(static_cast<double>(position.x), 80 + std::cos(angle) * canvas.extent.cx, 1) << turn;
        EXPECT_NEAR(static_cast<double>(position.y), 80 - std::sin(angle) * canvas.extent.cx, 1) << turn;
    }
}

TEST(TextInPaths, OpaqueTextBringsItsCellAndItsLine)
{
    ScalableCanvas canvas(0, 1);
    if (!canvas.isScalable())
        GTEST_SKIP() << "no scalable font";
    HGDIOBJ brush = SelectObject(canvas.dc, GetStockObject(WHITE_BRUSH));
    BeginPath(canvas.dc);
    TextOutA(canvas.dc, 20, 20, "Turn", 4);
    EndPath(canvas.dc);
    FillPath(canvas.dc);
    size_t cell = static_cast<size_t>(canvas.extent.cx * canvas.extent.cy), filled = canvas.count(0xffffff);
    EXPECT_EQ(canvas.pixel(20, 20), 0xffffffu);
    EXPECT_LT(filled, cell) << "without the characters and the line";
    EXPECT_GT(filled, cell / 2);
    SelectObject(canvas.dc, brush);
}

TEST(TextInPaths, TheBuiltinFontHasNoOutlines)
{
    BuiltinCanvas canvas(24, 13);
    BeginPath(canvas.dc);
    TextOutA(canvas.dc, 0, 0, "Ag", 2);
    EndPath(canvas.dc);
    FillPath(canvas.dc);
    EXPECT_EQ(canvas.rows(), Rows(13, std::string(24, '.')));
}

TEST(TextInPaths, RefusedMemoryLeavesThePathAsItWas)
{
    ScalableCanvas canvas;
    if (!canvas.isScalable())
        GTEST_SKIP() << "no scalable font";
    SetBkMode(canvas.dc, TRANSPARENT);
    SelectObject(canvas.dc, GetStockObject(NULL_PEN));
    auto filled = [&](DWORD refused) {
        canvas.clear();
        BeginPath(canvas.dc);
        Rectangle(canvas.dc, 1, 1, 11, 11);
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, refused ? 1 : 0, 0);
        BOOL isDone = TextOutA(canvas.dc, 20, 20, "Turn", 4);
        DWORD counted = Win32Control_AllocationsCounted(WIN32_ALLOCATION_LAYER);
        Win32Control_Reset();
        EndPath(canvas.dc);
        FillPath(canvas.dc);
        return std::tuple(isDone, canvas.count(0xffffff), counted);
    };
    filled(0);
    auto [isDone, whole, count] = filled(0);
    EXPECT_TRUE(isDone);
    EXPECT_GT(count, 0u);
    constexpr size_t square = 81;
    for (DWORD number = 1; number <= count; ++number) {
        auto [succeeded, pixels, counted] = filled(number);
        EXPECT_EQ(pixels, succeeded ? whole : square) << number;
    }
}

} // namespace
