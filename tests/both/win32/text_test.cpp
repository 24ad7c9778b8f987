// Text drawn and measured with whatever fonts the machine has: everything is held against the same font's measures.
#include "Canvas.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <numeric>
#include <string>

namespace {

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr uint32_t redPixel = 0xff0000;
constexpr uint32_t bluePixel = 0x0000ff;

LOGFONTA description(const char *face, int height = -16)
{
    LOGFONTA font{};
    font.lfHeight = height;
    font.lfQuality = NONANTIALIASED_QUALITY;
    strcpy(font.lfFaceName, face);
    return font;
}

// A canvas with a font on it.
struct TextCanvas : Canvas {
    explicit TextCanvas(const LOGFONTA &wanted = description("Arial"), int width = 200, int height = 60, int depth = 32)
        : Canvas(width, height, depth), font(CreateFontIndirectA(&wanted)), initialFont(SelectObject(dc, font))
    {
        SetTextColor(dc, RGB(255, 255, 255));
        SetBkMode(dc, TRANSPARENT);
        GetTextMetricsA(dc, &metrics);
    }
    ~TextCanvas()
    {
        SelectObject(dc, initialFont);
        DeleteObject(font);
    }

    using Canvas::width;
    SIZE extent(const std::string &text) const
    {
        SIZE size{-1, -1};
        EXPECT_TRUE(GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size));
        return size;
    }
    int width(const std::string &text) const { return extent(text).cx; }
    void out(int x, int y, const std::string &text) const
    {
        EXPECT_TRUE(TextOutA(dc, x, y, text.data(), static_cast<int>(text.size())));
    }
    // What a drawing leaves on a black canvas.
    std::vector<uint32_t> picture(const std::function<void()> &draw)
    {
        clear();
        draw();
        return pixels();
    }
    std::vector<uint32_t> pictureOf(int x, int y, const std::string &text)
    {
        return picture([&] { out(x, y, text); });
    }
    std::vector<uint32_t> pictureOf(const std::string &text, RECT rect, UINT flags)
    {
        return picture([&] { DrawTextA(dc, text.data(), static_cast<int>(text.size()), &rect, flags); });
    }

    HFONT font;
    HGDIOBJ initialFont;
    TEXTMETRICA metrics{};
};

// Without installed fonts there may be one of a fixed size only.
bool isScalable(const TextCanvas &canvas)
{
    return (canvas.metrics.tmPitchAndFamily & TMPF_VECTOR) != 0;
}

size_t count(const std::vector<uint32_t> &pixels, uint32_t pixel)
{
    return static_cast<size_t>(std::count(pixels.begin(), pixels.end(), pixel));
}

RECT calculated(const TextCanvas &canvas, const std::string &text, UINT flags, RECT rect = {10, 5, 150, 6},
                int *height = nullptr)
{
    int result = DrawTextA(canvas.dc, text.data(), static_cast<int>(text.size()), &rect, flags | DT_CALCRECT);
    if (height)
        *height = result;
    return rect;
}

TEST(Text, WidthsOfCharactersAddUpToTheExtent)
{
    for (const char *face : {"Arial", "Times New Roman", "Courier New", "System", "No Such Family"}) {
        TextCanvas canvas(description(face, -13));
        std::string text = "The quick, brown fox: 0123456789 (\xc4\xe9)";
        int widths[256];
        ASSERT_TRUE(GetCharWidth32A(canvas.dc, 0, 255, widths));
        int sum = 0;
        for (char character : text)
            sum += widths[static_cast<unsigned char>(character)];
        EXPECT_EQ(canvas.width(text), sum) << face;
        EXPECT_EQ(canvas.extent(text).cy, canvas.metrics.tmHeight) << face;
        EXPECT_LE(*std::max_element(widths + 32, widths + 127), canvas.metrics.tmMaxCharWidth) << face;
    }
}

TEST(Text, HeightIsOfTheCellOrOfTheCharacters)
{
    if (!isScalable(TextCanvas()))
        GTEST_SKIP() << "no scalable font";
    for (int height : {9, 12, 16, 24, 40}) {
        TextCanvas cell(description("Arial", height));
        EXPECT_LE(cell.metrics.tmHeight, height + 1);
        EXPECT_GE(cell.metrics.tmHeight, height - 2);
        TextCanvas characters(description("Arial", -height));
        EXPECT_NEAR(characters.metrics.tmHeight - characters.metrics.tmInternalLeading, height, 1);
        EXPECT_EQ(characters.metrics.tmAscent + characters.metrics.tmDescent, characters.metrics.tmHeight);
    }
}

TEST(Text, PositionsTellWhatFits)
{
    TextCanvas canvas;
    std::string text = "Measured";
    int positions[8], fit = -1;
    SIZE extent;
    ASSERT_TRUE(GetTextExtentExPointA(canvas.dc, text.data(), 8, 0, nullptr, positions, &extent));
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(positions[i], canvas.width(text.substr(0, static_cast<size_t>(i) + 1)));
    EXPECT_EQ(extent.cx, positions[7]);
    ASSERT_TRUE(GetTextExtentExPointA(canvas.dc, text.data(), 8, positions[4], &fit, nullptr, &extent));
    EXPECT_EQ(fit, 5);
    ASSERT_TRUE(GetTextExtentExPointA(canvas.dc, text.data(), 8, positions[4] - 1, &fit, nullptr, &extent));
    EXPECT_EQ(fit, 4);
    EXPECT_EQ(extent.cx, positions[7]);
}

TEST(Text, AlignmentMovesTheReferencePoint)
{
    TextCanvas canvas;
    std::string text = "Align";
    int width = canvas.width(text);
    auto expected = canvas.pictureOf(60, 20, text);
    EXPECT_GT(count(expected, 0xffffff), 20u);
    const struct {
        UINT align;
        int x, y;
    } cases[] = {
        {TA_RIGHT, 60 + width, 20},
        {TA_CENTER, 60 + width / 2, 20},
        {TA_BASELINE, 60, 20 + canvas.metrics.tmAscent},
        {TA_BOTTOM, 60, 20 + canvas.metrics.tmHeight},
        {TA_BASELINE | TA_RIGHT, 60 + width, 20 + canvas.metrics.tmAscent},
    };
    for (const auto &test : cases) {
        SetTextAlign(canvas.dc, test.align);
        EXPECT_EQ(GetTextAlign(canvas.dc), test.align);
        EXPECT_EQ(canvas.pictureOf(test.x, test.y, text), expected) << test.align;
    }
    EXPECT_EQ(SetTextAlign(canvas.dc, TA_LEFT), UINT{TA_BASELINE | TA_RIGHT});
}

TEST(Text, ThePositionMovesWithTheText)
{
    TextCanvas canvas;
    auto expected = canvas.picture([&] {
        canvas.out(10, 20, "one");
        canvas.out(10 + canvas.width("one"), 20, "two");
    });
    SetTextAlign(canvas.dc, TA_UPDATECP);
    MoveToEx(canvas.dc, 10, 20, nullptr);
    auto parts = canvas.picture([&] {
        canvas.out(99, 99, "one");
        canvas.out(99, 99, "two");
    });
    POINT position;
    GetCurrentPositionEx(canvas.dc, &position);
    EXPECT_EQ(parts, expected);
    EXPECT_EQ(position.x, 10 + canvas.width("onetwo"));
    EXPECT_EQ(position.y, 20);
    SetTextAlign(canvas.dc, TA_UPDATECP | TA_RIGHT);
    canvas.out(0, 0, "one");
    GetCurrentPositionEx(canvas.dc, &position);
    EXPECT_EQ(position.x, 10 + canvas.width("two"));
    SetTextAlign(canvas.dc, TA_UPDATECP);
    BeginPath(canvas.dc);
    canvas.out(0, 0, "one");
    AbortPath(canvas.dc);
    GetCurrentPositionEx(canvas.dc, &position);
    EXPECT_EQ(position.x, 10 + canvas.width("onetwo")) << "within a path too";
}

TEST(Text, OpaqueTextFillsItsCell)
{
    TextCanvas canvas;
    SetBkMode(canvas.dc, OPAQUE);
    SetBkColor(canvas.dc, blue);
    SetTextColor(canvas.dc, red);
    canvas.out(20, 10, "HNH");
    auto pixels = canvas.pixels();
    size_t cell = static_cast<size_t>(canvas.width("HNH")) * static_cast<size_t>(canvas.metrics.tmHeight);
    EXPECT_EQ(count(pixels, bluePixel) + count(pixels, redPixel), cell);
    EXPECT_GT(count(pixels, redPixel), 20u);
    EXPECT_EQ(canvas.pixel(20 + canvas.width("HNH") - 1, 10 + canvas.metrics.tmHeight - 1), bluePixel);
}

using Picture = std::vector<uint32_t>;

// The picture is the whole one within, and black around.
void expectCut(const TextCanvas &canvas, const Picture &cut, const Picture &whole,
               const std::function<bool(int, int)> &isWithin)
{
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x) {
            size_t place = static_cast<size_t>(y * canvas.width() + x);
            ASSERT_EQ(cut[place], isWithin(x, y) ? whole[place] : 0) << x << ' ' << y;
        }
}

TEST(Text, ClipCutsGlyphsExactly)
{
    TextCanvas canvas;
    auto whole = canvas.pictureOf(10, 10, "Clipping");
    HRGN clip = CreateRectRgn(15, 12, 40, 20), second = CreateRectRgn(50, 0, 55, 60);
    CombineRgn(clip, clip, second, RGN_OR);
    SelectClipRgn(canvas.dc, clip);
    expectCut(canvas, canvas.pictureOf(10, 10, "Clipping"), whole,
              [=](int x, int y) { return PtInRegion(clip, x, y); });
    DeleteObject(clip);
    DeleteObject(second);
}

TEST(Text, TextBeyondTheSurfaceIsCut)
{
    TextCanvas canvas;
    for (int x : {-2000000000, -30, 190, 2000000000})
        for (int y : {-2000000000, -9, 52, 2000000000})
            canvas.out(x, y, "Outside of everything");
    std::string longText(30000, 'W');
    canvas.out(-100000, 10, longText);
    EXPECT_GT(count(canvas.pixels(), 0xffffff), 0u);
}

TEST(Text, RectangleFillsAndClips)
{
    TextCanvas canvas;
    SetTextColor(canvas.dc, red);
    SetBkColor(canvas.dc, blue);
    RECT rect{20, 10, 50, 20};
    ASSERT_TRUE(ExtTextOutA(canvas.dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr));
    EXPECT_EQ(count(canvas.pixels(), bluePixel), 300u);
    auto pixels = canvas.picture(
        [&] { ExtTextOutA(canvas.dc, 10, 6, ETO_OPAQUE | ETO_CLIPPED, &rect, "Clipped text", 12, nullptr); });
    EXPECT_EQ(count(pixels, bluePixel) + count(pixels, redPixel), 300u);
    EXPECT_GT(count(pixels, redPixel), 10u);
}

TEST(Text, GivenWidthsPlaceEachCharacter)
{
    TextCanvas canvas;
    int widths[] = {20, 30, 25};
    auto placed = canvas.picture([&] { ExtTextOutA(canvas.dc, 10, 10, 0, nullptr, "abc", 3, widths); });
    auto expected = canvas.picture([&] {
        canvas.out(10, 10, "a");
        canvas.out(30, 10, "b");
        canvas.out(60, 10, "c");
    });
    EXPECT_EQ(placed, expected);
}

TEST(Text, ExtraSpaceWidensText)
{
    TextCanvas canvas;
    std::string text = "a b c";
    int plain = canvas.width(text);
    EXPECT_EQ(SetTextCharacterExtra(canvas.dc, 3), 0);
    EXPECT_EQ(canvas.width(text), plain + 15);
    EXPECT_EQ(SetTextCharacterExtra(canvas.dc, 0), 3);
    ASSERT_TRUE(SetTextJustification(canvas.dc, 7, 2));
    EXPECT_EQ(canvas.width(text), plain + 7);
    ASSERT_TRUE(SetTextJustification(canvas.dc, 0, 0));
    EXPECT_EQ(canvas.width(text), plain);
}

TEST(Text, ShapesAreTheSameAtAllDepthsAndPlaces)
{
    auto rowsAt = [](const CanvasFormat &format, int x) {
        LOGFONTA wanted = description("Arial");
        Canvas canvas(70, 24, format);
        HFONT font = CreateFontIndirectA(&wanted);
        HGDIOBJ before = SelectObject(canvas.dc, font);
        SetBkMode(canvas.dc, TRANSPARENT);
        SetTextColor(canvas.dc, RGB(255, 255, 255));
        TextOutA(canvas.dc, x, 2, "Depths gjx", 10);
        auto rows = canvas.rows();
        SelectObject(canvas.dc, before);
        DeleteObject(font);
        return rows;
    };
    std::vector<RGBQUAD> blackAndWhite(2);
    blackAndWhite[1] = {255, 255, 255, 0};
    for (int x = -7; x <= 9; ++x) {
        auto expected = rowsAt({.depth = 32}, x);
        for (int depth : {16, 24})
            EXPECT_EQ(rowsAt({.depth = depth}, x), expected) << depth << ' ' << x;
        for (int depth : {1, 4, 8})
            EXPECT_EQ(rowsAt({.depth = depth, .colors = blackAndWhite}, x), expected) << depth << ' ' << x;
        EXPECT_EQ(rowsAt(CanvasFormat::monochrome(), x), expected) << x;
    }
}

TEST(Text, StylesChangeThePicture)
{
    TextCanvas plain;
    auto plainPicture = plain.pictureOf(10, 10, "Style");
    LOGFONTA wanted = description("Arial");
    wanted.lfWeight = FW_BOLD;
    TextCanvas bold(wanted);
    EXPECT_GT(count(bold.pictureOf(10, 10, "Style"), 0xffffff), count(plainPicture, 0xffffff));
    EXPECT_GE(bold.metrics.tmWeight, FW_SEMIBOLD);
    wanted = description("Arial");
    wanted.lfItalic = TRUE;
    TextCanvas italic(wanted);
    EXPECT_NE(italic.pictureOf(10, 10, "Style"), plainPicture);
    EXPECT_NE(italic.metrics.tmItalic, 0);
    wanted = description("Arial");
    wanted.lfUnderline = wanted.lfStrikeOut = TRUE;
    TextCanvas lines(wanted);
    auto pixels = lines.pictureOf(10, 10, "     ");
    EXPECT_GE(count(pixels, 0xffffff), 2 * static_cast<size_t>(lines.width("     ")));
    EXPECT_NE(lines.metrics.tmUnderlined, 0);
    EXPECT_NE(lines.metrics.tmStruckOut, 0);
}

TEST(Text, SmoothTextMixesTheColours)
{
    LOGFONTA wanted = description("Arial", -20);
    wanted.lfQuality = ANTIALIASED_QUALITY;
    TextCanvas canvas(wanted);
    if (!isScalable(canvas))
        GTEST_SKIP() << "no scalable font";
    auto pixels = canvas.pictureOf(10, 10, "Smooth Og");
    size_t full = count(pixels, 0xffffff), none = count(pixels, 0);
    EXPECT_GT(full, 10u);
    EXPECT_GT(pixels.size() - full - none, 50u);
}

TEST(Text, FontsScaleWithTheMapping)
{
    TextCanvas canvas(description("Arial", -20), 400, 120);
    if (!isScalable(canvas))
        GTEST_SKIP() << "no scalable font";
    int height = canvas.metrics.tmHeight, width = canvas.width("Mapping");
    SetMapMode(canvas.dc, MM_ANISOTROPIC);
    SetWindowExtEx(canvas.dc, 1, 1, nullptr);
    SetViewportExtEx(canvas.dc, 2, 2, nullptr);
    TEXTMETRICA metrics;
    GetTextMetricsA(canvas.dc, &metrics);
    EXPECT_NEAR(metrics.tmHeight, height, 1);
    EXPECT_NEAR(canvas.width("Mapping"), width, 4);
    SetBkMode(canvas.dc, OPAQUE);
    SetBkColor(canvas.dc, blue);
    auto pixels = canvas.pictureOf(5, 5, "Mapping");
    EXPECT_NEAR(static_cast<double>(pixels.size() - count(pixels, 0)), 4.0 * width * height, width * height * 0.4);
}

TEST(Text, BadArgumentsFail)
{
    TextCanvas canvas;
    SIZE size;
    EXPECT_FALSE(TextOutA(nullptr, 0, 0, "x", 1));
    EXPECT_FALSE(GetTextExtentPoint32A(nullptr, "x", 1, &size));
    EXPECT_FALSE(GetTextExtentPoint32A(canvas.dc, "x", -1, &size));
    EXPECT_FALSE(GetTextMetricsA(nullptr, &canvas.metrics));
    EXPECT_EQ(SetTextAlign(nullptr, 0), UINT{GDI_ERROR});
    EXPECT_TRUE(TextOutA(canvas.dc, 0, 0, "", 0));
    EXPECT_EQ(canvas.width(""), 0);
    EXPECT_EQ(count(canvas.pixels(), 0), canvas.pixels().size());
    EXPECT_EQ(AddFontResourceA("C:\\no such folder\\none.ttf"), 0);
    EXPECT_FALSE(RemoveFontResourceA("C:\\no such folder\\none.ttf"));
}

int CALLBACK collect(const LOGFONTA *font, const TEXTMETRICA *, DWORD, LPARAM parameter)
{
    reinterpret_cast<std::vector<std::string> *>(parameter)->push_back(font->lfFaceName);
    return 1;
}

int CALLBACK stopAtOnce(const LOGFONTA *font, const TEXTMETRICA *metrics, DWORD, LPARAM parameter)
{
    EXPECT_GT(metrics->tmHeight, 0);
    EXPECT_NE(font->lfFaceName[0], 0);
    ++*reinterpret_cast<int *>(parameter);
    return 0;
}

TEST(Text, EnumeratedFamiliesCanBeSelected)
{
    TextCanvas canvas;
    std::vector<std::string> families;
    EXPECT_EQ(EnumFontFamiliesA(canvas.dc, nullptr, collect, reinterpret_cast<LPARAM>(&families)), 1);
    ASSERT_FALSE(families.empty());
    for (const std::string &family : families) {
        if (family[0] == '@')
            continue;
        TextCanvas selected(description(family.c_str()), 1, 1);
        char face[LF_FACESIZE];
        GetTextFaceA(selected.dc, LF_FACESIZE, face);
        EXPECT_EQ(face, family);
        std::vector<std::string> faces;
        EnumFontFamiliesA(canvas.dc, family.c_str(), collect, reinterpret_cast<LPARAM>(&faces));
        EXPECT_FALSE(faces.empty()) << family;
    }
    int calls = 0;
    EXPECT_EQ(EnumFontFamiliesA(canvas.dc, nullptr, stopAtOnce, reinterpret_cast<LPARAM>(&calls)), 0);
    EXPECT_EQ(calls, 1);
}

TEST(TextInRectangle, CalculatesTheRectangleOfItsLines)
{
    TextCanvas canvas;
    int line = canvas.metrics.tmHeight, height = 0;
    RECT rect = calculated(canvas, "Single", DT_SINGLELINE, {10, 5, 11, 6}, &height);
    EXPECT_EQ(rect.right - rect.left, canvas.width("Single"));
    EXPECT_EQ(rect.bottom - rect.top, line);
    EXPECT_EQ(height, line);
    rect = calculated(canvas, "one\r\nthree\nfour\r\n", 0, {10, 5, 11, 6}, &height);
    EXPECT_EQ(rect.right - rect.left, std::max({canvas.width("one"), canvas.width("three"), canvas.width("four")}));
    EXPECT_EQ(rect.bottom - rect.top, 3 * line);
    EXPECT_EQ(height, 3 * line);
    EXPECT_EQ(calculated(canvas, "a && b&c", DT_SINGLELINE).right, 10 + canvas.width("a & bc"));
    EXPECT_EQ(calculated(canvas, "a&", DT_SINGLELINE).right, 10 + canvas.width("a&"));
    EXPECT_EQ(calculated(canvas, "a && b&c", DT_SINGLELINE | DT_NOPREFIX).right, 10 + canvas.width("a && b&c"));
    rect = calculated(canvas, "x", DT_EXTERNALLEADING);
    EXPECT_EQ(rect.bottom - rect.top, line + canvas.metrics.tmExternalLeading);
}

TEST(TextInRectangle, BreaksAtWords)
{
    TextCanvas canvas;
    int line = canvas.metrics.tmHeight;
    // Whether the blank behind a word must fit too is the system's affair.
    int limit = canvas.width("several words ");
    RECT rect = calculated(canvas, "several words in lines", DT_WORDBREAK, {0, 0, limit, 0});
    EXPECT_EQ(rect.bottom, 2 * line);
    EXPECT_GE(rect.right, canvas.width("several words"));
    EXPECT_LE(rect.right, limit);
    rect = calculated(canvas, "several words once", DT_WORDBREAK, {0, 0, canvas.width("several words") - 1, 0});
    EXPECT_EQ(rect.bottom, 2 * line);
    EXPECT_EQ(rect.right, canvas.width("words once"));
    rect = calculated(canvas, "unbreakable", DT_WORDBREAK, {0, 0, 5, 0});
    EXPECT_EQ(rect.bottom, line);
    EXPECT_EQ(rect.right, canvas.width("unbreakable"));
    rect = calculated(canvas, "unbreakable", DT_WORDBREAK | DT_EDITCONTROL, {0, 0, canvas.width("unbrea"), 0});
    EXPECT_EQ(rect.bottom, 2 * line);
}

TEST(TextInRectangle, AlignsWithinTheRectangle)
{
    TextCanvas canvas;
    RECT rect{10, 4, 160, 54};
    int width = canvas.width("Text"), height = canvas.metrics.tmHeight;
    const struct {
        UINT flags;
        int x, y;
    } cases[] = {
        {DT_SINGLELINE, 10, 4},
        {DT_SINGLELINE | DT_RIGHT, 160 - width, 4},
        {DT_SINGLELINE | DT_CENTER, 10 + (150 - width) / 2, 4},
        {DT_SINGLELINE | DT_BOTTOM, 10, 54 - height},
        {DT_SINGLELINE | DT_VCENTER, 10, 4 + 50 / 2 - height / 2},
        {DT_RIGHT | DT_VCENTER, 160 - width, 4},
    };
    for (const auto &test : cases)
        EXPECT_EQ(canvas.pictureOf("Text", rect, test.flags), canvas.pictureOf(test.x, test.y, "Text")) << test.flags;
    auto lines = canvas.pictureOf("Text\nText", rect, DT_RIGHT);
    auto expected = canvas.picture([&] {
        canvas.out(160 - width, 4, "Text");
        canvas.out(160 - width, 4 + height, "Text");
    });
    EXPECT_EQ(lines, expected);
}

TEST(TextInRectangle, ClipsUnlessToldNotTo)
{
    TextCanvas canvas;
    RECT rect{10, 8, 40, 15};
    auto cut = canvas.pictureOf("Clipped text", rect, DT_SINGLELINE);
    auto whole = canvas.pictureOf("Clipped text", rect, DT_SINGLELINE | DT_NOCLIP);
    EXPECT_EQ(whole, canvas.pictureOf(10, 8, "Clipped text"));
    expectCut(canvas, cut, whole, [&](int x, int y) { return PtInRect(&rect, {x, y}); });
}

TEST(TextInRectangle, UnderlinesTheMarkedLetter)
{
    TextCanvas canvas;
    RECT rect{10, 5, 190, 50};
    auto plain = canvas.pictureOf("Save As", rect, DT_SINGLELINE);
    auto marked = canvas.pictureOf("Save &As", rect, DT_SINGLELINE);
    int y = 5 + canvas.metrics.tmAscent + 1, added = 0;
    for (int x = 0; x < canvas.width(); ++x)
        added +=
            marked[static_cast<size_t>(y * canvas.width() + x)] && !plain[static_cast<size_t>(y * canvas.width() + x)];
    EXPECT_GE(added, canvas.width("A") - 1);
    EXPECT_LE(added, canvas.width("A") + 1);
}

TEST(TextInRectangle, ExpandsTabs)
{
    TextCanvas canvas;
    int tab = 8 * canvas.metrics.tmAveCharWidth;
    EXPECT_EQ(calculated(canvas, "a\tb", DT_EXPANDTABS | DT_SINGLELINE).right, 10 + tab + canvas.width("b"));
    tab = 12 * canvas.metrics.tmAveCharWidth;
    RECT rect{10, 5, 190, 50};
    auto drawn = canvas.pictureOf("a\tb", rect, DT_EXPANDTABS | DT_TABSTOP | 12 << 8);
    auto expected = canvas.picture([&] {
        canvas.out(10, 5, "a");
        canvas.out(10 + tab, 5, "b");
    });
    EXPECT_EQ(drawn, expected);
}

TEST(TextInRectangle, EndsWithDotsWhatIsTooLong)
{
    TextCanvas canvas;
    char text[32] = "A text that is long";
    RECT rect{10, 5, 10 + canvas.width("A text that"), 40};
    auto drawn = canvas.picture(
        [&] { DrawTextA(canvas.dc, text, -1, &rect, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING); });
    std::string shown = text;
    ASSERT_TRUE(shown.ends_with("...")) << shown;
    EXPECT_LE(canvas.width(shown), rect.right - rect.left);
    EXPECT_EQ(shown.substr(0, shown.size() - 3), std::string("A text that is long").substr(0, shown.size() - 3));
    EXPECT_EQ(drawn, canvas.pictureOf(10, 5, shown));
}

TEST(Text, JoinsAnOpenPathAsItsOutlines)
{
    for (bool isItalic : {false, true}) {
        LOGFONTA wanted = description("Arial", -40);
        wanted.lfItalic = isItalic;
        TextCanvas canvas(wanted);
        if (!isScalable(canvas))
            GTEST_SKIP() << "no scalable font";
        auto expected = canvas.pictureOf(20, 5, "Path&8");
        HGDIOBJ pen = SelectObject(canvas.dc, GetStockObject(NULL_PEN));
        auto recorded = canvas.picture([&] {
            BeginPath(canvas.dc);
            canvas.out(20, 5, "Path&8");
            EndPath(canvas.dc);
        });
        EXPECT_EQ(count(recorded, 0xffffff), 0u) << "nothing is drawn yet";
        SetPolyFillMode(canvas.dc, WINDING);
        auto filled = canvas.picture([&] { FillPath(canvas.dc); });
        size_t ink = count(expected, 0xffffff), different = 0;
        for (size_t i = 0; i < filled.size(); ++i)
            different += filled[i] != expected[i];
        // Outlines and drawn characters need not be hinted alike.
        EXPECT_LT(different, ink / 3);
        EXPECT_GT(count(filled, 0xffffff), ink * 4 / 5);
        SelectObject(canvas.dc, pen);
    }
}

// The box of what is drawn, from the reference point on.
RECT inkBox(TextCanvas &canvas, int x, int y, const std::string &text)
{
    RECT box{INT_MAX, INT_MAX, INT_MIN, INT_MIN};
    auto pixels = canvas.pictureOf(x, y, text);
    for (int row = 0; row < canvas.height(); ++row)
        for (int column = 0; column < canvas.width(); ++column)
            if (pixels[static_cast<size_t>(row * canvas.width() + column)]) {
                box.left = std::min<LONG>(box.left, column - x);
                box.right = std::max<LONG>(box.right, column + 1 - x);
                box.top = std::min<LONG>(box.top, row - y);
                box.bottom = std::max<LONG>(box.bottom, row + 1 - y);
            }
    return box;
}

TEST(Text, TurnsCounterClockwiseAboutItsReferencePoint)
{
    LOGFONTA wanted = description("Arial", -24);
    TextCanvas level(wanted, 200, 200);
    if (!isScalable(level))
        GTEST_SKIP() << "no scalable font";
    for (UINT align : {TA_TOP, TA_BASELINE, TA_BOTTOM | TA_RIGHT}) {
        SetTextAlign(level.dc, align);
        RECT plain = inkBox(level, 100, 100, "Turn");
        const struct {
            LONG turn;
            RECT expected;
        } cases[] = {
            {900, {plain.top, -plain.right, plain.bottom, -plain.left}},
            {1800, {-plain.right, -plain.bottom, -plain.left, -plain.top}},
            {-900, {-plain.bottom, plain.left, -plain.top, plain.right}},
            {3600, plain},
        };
        for (const auto &[turn, expected] : cases) {
            wanted.lfEscapement = wanted.lfOrientation = turn;
            TextCanvas turned(wanted, 200, 200);
            SetTextAlign(turned.dc, align);
            RECT box = inkBox(turned, 100, 100, "Turn");
            EXPECT_NEAR(box.left, expected.left, 2) << turn << ' ' << align;
            EXPECT_NEAR(box.top, expected.top, 2) << turn << ' ' << align;
            EXPECT_NEAR(box.right, expected.right, 2) << turn << ' ' << align;
            EXPECT_NEAR(box.bottom, expected.bottom, 2) << turn << ' ' << align;
            EXPECT_NEAR(turned.width("Turn"), level.width("Turn"), 1) << "extents are those of level text";
            EXPECT_EQ(turned.metrics.tmHeight, level.metrics.tmHeight);
        }
    }
}

TEST(Text, SlantingTextKeepsItsLengthAndCharacters)
{
    LOGFONTA wanted = description("Arial", -24);
    TextCanvas level(wanted, 200, 200);
    if (!isScalable(level))
        GTEST_SKIP() << "no scalable font";
    wanted.lfEscapement = wanted.lfOrientation = 300;
    TextCanvas turned(wanted, 200, 200);
    RECT plain = inkBox(level, 20, 150, "llllllll"), slant = inkBox(turned, 20, 150, "llllllll");
    double length = plain.right - plain.left, height = plain.bottom - plain.top;
    EXPECT_NEAR(slant.right - slant.left, length * 0.866 + height * 0.5, 6);
    EXPECT_NEAR(slant.bottom - slant.top, length * 0.5 + height * 0.866, 6);
}

TEST(TextInRectangle, TabbedTextStandsAtItsStops)
{
    TextCanvas canvas;
    int stops[] = {40, 100};
    auto drawn = canvas.picture([&] { TabbedTextOutA(canvas.dc, 10, 10, "a\tb\tc", 5, 2, stops, 10); });
    auto expected = canvas.picture([&] {
        canvas.out(10, 10, "a");
        canvas.out(50, 10, "b");
        canvas.out(110, 10, "c");
    });
    EXPECT_EQ(drawn, expected);
    DWORD extent = GetTabbedTextExtentA(canvas.dc, "a\tb\tc", 5, 2, stops);
    EXPECT_EQ(LOWORD(extent), 100 + canvas.width("c"));
    EXPECT_EQ(HIWORD(extent), canvas.metrics.tmHeight);
    stops[0] = -stops[0]; // the b ends there
    EXPECT_EQ(LOWORD(GetTabbedTextExtentA(canvas.dc, "a\tb", 3, 2, stops)), 40);
    int usual = 8 * canvas.metrics.tmAveCharWidth;
    EXPECT_EQ(LOWORD(GetTabbedTextExtentA(canvas.dc, "a\tb", 3, 0, nullptr)), usual + canvas.width("b"));
}

} // namespace
