// Text of a port, held against the same font used through plain native calls.
#include "TextCanvas.h"

#include <mtbx/MTBXGlobals.h>

namespace {

class Text : public TextCanvas {};

TEST_F(Text, IsDrawnOnTheBaseLineAndMovesThePenBehindIt)
{
    PlainFont plain("Arial", 12);
    std::string expected = drawn([&] { writePlainly(plain, 4, 20, "Text"); });
    EXPECT_NE(expected, rectangles({}));
    MoveTo(4, 20);
    EXPECT_EQ(drawn([] { write("Text"); }), expected);
    EXPECT_EQ(port()->pnLoc, (Point{20, static_cast<SInt16>(4 + plain.width("Text"))}));
    MoveTo(4, 20);
    EXPECT_EQ(drawn([] { DrawString(Pascal("Text")); }), expected);
    EXPECT_EQ(port()->pnLoc.h, 4 + plain.width("Text"));
    MoveTo(4, 20);
    EXPECT_EQ(drawn([] { MacDrawText("A Text", 2, 4); }), expected);
    MoveTo(4, 20);
    std::string singly = drawn([] {
        for (char character : std::string("Text"))
            DrawChar(character);
    });
    EXPECT_EQ(port()->pnLoc.h, 4 + plain.width("T") + plain.width("e") + plain.width("x") + plain.width("t"));
    EXPECT_EQ(singly, drawn([&] {
                  for (auto [character, x] : {std::pair('T', 0), {'e', plain.width("T")}})
                      writePlainly(plain, 4 + x, 20, std::string(1, character));
                  int x = 4 + plain.width("T") + plain.width("e");
                  writePlainly(plain, x, 20, "x");
                  writePlainly(plain, x + plain.width("x"), 20, "t");
              }));
}

TEST_F(Text, ColorsAndModeOfThePort)
{
    PlainFont plain("Arial", 12);
    RGBColor black = {}, white = {65535, 65535, 65535};
    RGBForeColor(&white);
    RGBBackColor(&black);
    MoveTo(4, 20);
    write("MM");
    EXPECT_TRUE(isBlack(4, 20 + plain.metrics().tmDescent - 1)) << "the cell is painted";
    EXPECT_EQ(GetBkMode(context()), OPAQUE);
    TextMode(srcOr);
    EXPECT_EQ(GetBkMode(context()), TRANSPARENT);
    MoveTo(4, 20);
    EXPECT_EQ(drawn([] { write("MM"); }), rectangles({})) << "white on white";
    TextMode(srcBic);
    EXPECT_EQ(GetBkMode(context()), OPAQUE);
}

TEST_F(Text, LinesEndAtReturnsAndLineFeeds)
{
    PlainFont plain("Arial", 12);
    auto height = static_cast<SInt16>(plain.lineHeight());
    const struct {
        const char *text;
        const char *lines[4];
        int last;
    } cases[] = {
        {"one", {"one"}, 0},
        {"one\rtwo", {"one", "two"}, 1},
        {"one\ntwo", {"one", "two"}, 1},
        {"a\r\nb", {"a", "", "b"}, 2},
        {"a\r", {"a"}, 0},
        {"a\r\r", {"a", ""}, 1},
        {"\rb", {"", "b"}, 1},
        {"i\rWWW\rl", {"i", "WWW", "l"}, 2},
        {"", {""}, 0},
    };
    for (auto &[text, lines, last] : cases) {
        MoveTo(10, 12);
        std::string picture = drawn([&] { write(text); });
        int breaks = 0;
        for (const char *place = text; *place; ++place)
            breaks += *place == '\r' || *place == '\n';
        EXPECT_EQ(port()->pnLoc.v, 12 + breaks * height) << text;
        EXPECT_EQ(port()->pnLoc.h, 10 + plain.width(lines[last])) << text;
        EXPECT_EQ(picture, drawn([&] {
                      for (int i = 0; i <= last; ++i)
                          writePlainly(plain, 10, 12 + i * height, lines[i]);
                  }))
            << text;
    }
    FontInfo info;
    GetFontInfo(&info);
    EXPECT_EQ(info.ascent + info.descent + info.leading, height);
    MTBX_SetStringConstant(6, "MORE=5");
    MoveTo(10, 12);
    write("a\r");
    EXPECT_EQ(port()->pnLoc.v, 12 + height + 5);
    MTBX_SetStringConstant(6, "VERTICAL_FONT_HEIGHT_ADJUSTMENT=0");
}

TEST_F(Text, EndsAtItsCountAtANulAndAt32765Bytes)
{
    PlainFont plain("Arial", 12);
    auto advanceOf = [&](const std::string &text, int count) {
        MoveTo(0, 20);
        MacDrawText(text.c_str(), 0, static_cast<SInt16>(count));
        return port()->pnLoc.h;
    };
    EXPECT_EQ(advanceOf("abcdef", 3), plain.width("abc"));
    EXPECT_EQ(advanceOf(std::string("ab\0cd", 5), 5), plain.width("ab"));
    EXPECT_EQ(advanceOf("abc", 0), plain.metrics().tmOverhang);
    EXPECT_EQ(advanceOf("abc", -5), plain.metrics().tmOverhang);
    // All but the last few bytes have no width to speak of: they are on lines of their own.
    std::string lines(32760, '\r');
    lines += "1234567";
    EXPECT_EQ(advanceOf(lines, 32767), plain.width("12345"));
    EXPECT_EQ(advanceOf(lines, 32766), plain.width("12345"));
    EXPECT_EQ(advanceOf(lines, 32764), plain.width("1234"));
}

TEST_F(Text, CharactersOfOneAndTwoBytes)
{
    PlainFont plain("Arial", 12);
    auto drawnChar = [&](int character) {
        MoveTo(4, 20);
        return drawn([&] { DrawChar(static_cast<SInt16>(character)); });
    };
    auto plainly = [&](const std::string &text) { return drawn([&] { writePlainly(plain, 4, 20, text); }); };
    EXPECT_EQ(drawnChar(0x00FF), plainly("\xFF"));
    EXPECT_EQ(drawnChar(0xFF41), plainly("A"));
    EXPECT_EQ(drawnChar(0x8341), plainly("\x83\x41"));
    EXPECT_EQ(port()->pnLoc.h, 4 + plain.width("\x83\x41"));
    EXPECT_EQ(QDError(), 0);
    TextFont(3);
    MoveTo(4, 20);
    EXPECT_EQ(drawn([] { DrawChar('A'); }), rectangles({}));
    EXPECT_EQ(QDError(), kFontBadNumber);
    EXPECT_EQ(port()->pnLoc.h, 4 + plain.width("A")) << "of the font that is left";
    EXPECT_EQ(drawnChar('A'), plainly("A")) << "the number is looked up once";
}

TEST_F(Text, WidthsCountWhatHangsOver)
{
    for (int style : {0, 1, 2, 3, 4}) {
        TextFace(static_cast<SInt16>(style));
        PlainFont plain("Arial", 12, style);
        std::string text = "Some width";
        EXPECT_EQ(StringWidth(Pascal(text)), plain.width(text));
        EXPECT_EQ(TextWidth(text.data(), 0, 10), plain.width(text));
        EXPECT_EQ(TextWidth(text.data(), 5, 5), plain.width("width"));
        EXPECT_EQ(CharWidth('W'), plain.width("W"));
        EXPECT_EQ(TextWidth(text.data(), 0, 0), plain.metrics().tmOverhang);
        EXPECT_EQ(TextWidth(text.data(), 0, -4), plain.metrics().tmOverhang);
        EXPECT_EQ(TextWidthVertical(text.data(), 0, 10), plain.metrics().tmHeight * 10);
        FontInfo info;
        GetFontInfo(&info);
        EXPECT_EQ(info.ascent, plain.metrics().tmAscent);
        EXPECT_EQ(info.descent, plain.metrics().tmDescent);
        EXPECT_EQ(info.widMax, plain.metrics().tmMaxCharWidth);
        EXPECT_EQ(info.leading, plain.metrics().tmExternalLeading);
        EXPECT_EQ(info.charSet, plain.metrics().tmCharSet);
    }
    std::string longText(255, 'W');
    EXPECT_EQ(StringWidth(Pascal(longText)), PlainFont("Arial", 12, 4).width(longText));
}

TEST_F(Text, VerticalFacesSwapTheirExtents)
{
    SInt16 vertical = FMGetFontFamilyFromName(Pascal("@Arial"));
    TextFont(vertical);
    PlainFont plain("@Arial", 12);
    EXPECT_EQ(TextWidth("Text", 0, 4), plain.extent("Text").cy);
    EXPECT_EQ(TextWidthVertical("Text", 0, 4), plain.extent("Text").cx);
}

TEST_F(Text, TheFontIsSelectedWhenItIsNeededAndTheStateHasChanged)
{
    port()->portFontDirty = 0;
    TextFont(arial);
    TextSize(12);
    TextFace(0);
    EXPECT_EQ(port()->portFontDirty, 0) << "the same values";
    TextMode(port()->txMode);
    EXPECT_EQ(port()->portFontDirty, 1) << "even the same mode";
    HGDIOBJ before = GetCurrentObject(context(), OBJ_FONT);
    TextSize(30);
    EXPECT_EQ(GetCurrentObject(context(), OBJ_FONT), before);
    CharWidth('a');
    EXPECT_EQ(port()->portFontDirty, 0);
    EXPECT_EQ(GetCurrentObject(context(), OBJ_FONT), +port()->portFont);
    FontInstance *instance = port()->portFontInstance;
    EXPECT_EQ(+instance->size, 30);
    EXPECT_EQ(+instance->lockCount, 1);
    TextSize(31);
    CharWidth('a');
    EXPECT_EQ(+instance->lockCount, 0);
    int width = CharWidth('W');
    TextFont(7);
    EXPECT_EQ(CharWidth('W'), width) << "a number without a face leaves the font";
    EXPECT_EQ(MTBX_SelectFont(port()), kFontNoError) << "the failure is not repeated";
}

TEST_F(Text, APortThatIsNotCurrentHoldsNoFont)
{
    HGDIOBJ before = GetCurrentObject(context(), OBJ_FONT);
    CharWidth('a');
    FontInstance *instance = port()->portFontInstance;
    EXPECT_NE(GetCurrentObject(context(), OBJ_FONT), before);
    MacSetPort(nullptr);
    EXPECT_EQ(GetCurrentObject(context(), OBJ_FONT), before);
    EXPECT_EQ(+instance->lockCount, 0);
    EXPECT_FALSE(+port()->portFontInstance);
    MacSetPort(port());
    EXPECT_EQ(GetCurrentObject(context(), OBJ_FONT), +instance->hFont) << "selected with the port";
    EXPECT_EQ(MTBX_UnselectFont(port()), kFontNoError);
    EXPECT_EQ(GetCurrentObject(context(), OBJ_FONT), before);
    EXPECT_EQ(MTBX_UnselectFont(port()), kFontNoError);
    GrafPort raw{};
    EXPECT_EQ(MTBX_UnselectFont(&raw), 1) << "never set up";
    EXPECT_EQ(raw.portFontDirty, 1);
}

TEST_F(Text, PortsWithoutContextMeasureEachInItsOwnFont)
{
    CGrafPtr a = CreateNewPort(), b = CreateNewPort();
    PlainFont small("Arial", 10), large("Arial", 40);
    for (auto [size, each] : {std::pair(10, a), {40, b}}) {
        MacSetPort(each);
        TextFont(arial);
        TextSize(static_cast<SInt16>(size));
    }
    for (int round = 0; round < 2; ++round) {
        MacSetPort(a);
        EXPECT_EQ(CharWidth('W'), small.width("W"));
        MoveTo(3, 3);
        write("nowhere\r");
        EXPECT_EQ(a->pnLoc, (Point{3, 3}));
        MacSetPort(b);
        EXPECT_EQ(CharWidth('W'), large.width("W"));
    }
    FontInstance *instance = b->portFontInstance;
    MacSetPort(nullptr);
    DisposePort(a);
    DisposePort(b);
    EXPECT_EQ(+instance->lockCount, 0);
}

TEST_F(Text, AWorldThatGetsItsPixelsLaterGetsItsFontToo)
{
    Rect nothing = {}, bounds = ltrb(0, 0, 50, 50);
    GWorldPtr world;
    ASSERT_EQ(NewGWorld(&world, 32, &nothing, nullptr, nullptr, 0), noErr);
    SetGWorld(world, nullptr);
    TextFont(arial);
    TextSize(30);
    int width = CharWidth('W');
    ASSERT_EQ(UpdateGWorld(&world, 32, &bounds, nullptr, nullptr, 0), 0u);
    EXPECT_EQ(CharWidth('W'), width);
    DrawChar('W');
    EXPECT_EQ(GetCurrentObject(contextOf(world), OBJ_FONT), +world->portFont);
    MacSetPort(port());
    DisposeGWorld(world);
}

TEST_F(Text, AWindowsPortDrawsInItsFontAfterEachReturn)
{
    PortWindow window(ltrb(200, 150, 260, 190));
    for (int round = 0; round < 2; ++round) {
        MacSetPort(window.port());
        TextFont(arial);
        TextSize(20);
        MoveTo(2, 30);
        DrawString(Pascal("Ab"));
        EXPECT_EQ(window.port()->pnLoc.h, 2 + PlainFont("Arial", 20).width("Ab"));
        EXPECT_EQ(GetCurrentObject(window.context(), OBJ_FONT), +window.port()->portFont);
        MacSetPort(port());
        EXPECT_FALSE(+window.port()->portFontInstance);
    }
}

TEST_F(Text, StringsInExclusiveOrTurnPixelsOverAndLeaveThePen)
{
    PlainFont plain("Arial", 12);
    // In a world of one bit no character is smooth.
    HDC bits = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateBitmap(side, side, 1, 1, nullptr);
    HGDIOBJ formerBitmap = SelectObject(bits, bitmap), formerFont = SelectObject(bits, plain.handle());
    PatBlt(bits, 0, 0, side, side, WHITENESS);
    SetTextAlign(bits, TA_BASELINE);
    TextOutA(bits, 4, 30, "Xor", 3);
    std::string expected = drawn([&] { BitBlt(context(), 0, 0, side, side, bits, 0, 0, SRCCOPY); });
    SelectObject(bits, formerBitmap);
    SelectObject(bits, formerFont);
    DeleteObject(bitmap);
    DeleteDC(bits);
    EXPECT_GT(countBlack(), 20);
    TextMode(srcXor);
    MoveTo(4, 30);
    EXPECT_EQ(drawn([] { DrawString(Pascal("Xor")); }), expected);
    EXPECT_EQ(port()->pnLoc, (Point{30, 4}));
    EXPECT_EQ(+qd.thePort, port());
    DrawString(Pascal("Xor"));
    EXPECT_EQ(countBlack(), 0) << "and back";
    TextSize(60);
    DrawString(Pascal("Tall text"));
    for (int x = 0; x < side; ++x)
        for (int y = 0; y < side; ++y)
            EXPECT_FALSE(isBlack(x, y) && (y < 30 - 20 || y >= 30 + 20)) << x << ", " << y;
}

TEST_F(Text, BoxesPlaceTheirFirstLineAtTheTop)
{
    PlainFont plain("Arial", 12);
    int width = plain.width("Box");
    const struct {
        SInt16 justification;
        int h;
    } cases[] = {{teJustLeft, 6}, {teJustRight, 60 - width}, {teJustCenter, 6 + (54 - width) / 2}, {5, 9}};
    Rect box = ltrb(6, 8, 60, 40);
    for (auto [justification, h] : cases) {
        MoveTo(9, 50);
        std::string picture = drawn([&] { TextBox("Box", 0, &box, justification); });
        EXPECT_EQ(port()->pnLoc, (Point{static_cast<SInt16>(8 + plain.metrics().tmAscent), static_cast<SInt16>(h)}));
        EXPECT_EQ(picture, drawn([&] { writePlainly(plain, h, 8 + plain.metrics().tmAscent, "Box"); }));
    }
    Rect narrow = ltrb(30, 8, 34, 40);
    TextBox("Wider than the box", 0, &narrow, teJustCenter);
    EXPECT_LT(port()->pnLoc.h, 30);
}

TEST_F(Text, TheTextHookDrawsInTheLibrarysPlace)
{
    static std::string seen;
    NotedHooks::install(port());
    GetPortGrafProcs(port())->textProc = [](SInt16 count, const void *text, Point numer, Point denom) {
        seen = std::string(static_cast<const char *>(text), static_cast<size_t>(count));
        EXPECT_EQ(numer, (Point{1, 1}));
        EXPECT_EQ(denom, (Point{1, 1}));
    };
    MoveTo(4, 20);
    EXPECT_EQ(drawn([] { MacDrawText("Hooked", 2, 3); }), rectangles({}));
    EXPECT_EQ(seen, "oke");
    EXPECT_EQ(port()->pnLoc, (Point{20, 4}));
    DrawString(Pascal("String"));
    EXPECT_EQ(seen, "String");
    SetStdCProcs(GetPortGrafProcs(port()));
    DrawString(Pascal("x"));
    EXPECT_GT(countBlack(), 0);
    static CGrafPtr doomed;
    doomed = CreateNewPort();
    MacSetPort(doomed);
    NotedHooks::install(doomed);
    GetPortGrafProcs(doomed)->textProc = [](SInt16, const void *, Point, Point) { DisposePort(doomed); };
    Rect box = {};
    TextBox("The last one", 0, &box, teJustLeft);
    EXPECT_NE(+qd.thePort, doomed) << "which the hook may close";
}

TEST_F(Text, DrawTextBWritesIntoItsRectangle)
{
    PlainFont plain("Arial", 12);
    S_use_DrawTextB = 1;
    S_drawTextR = {5, 10, 60, 50};
    std::string picture = drawn([] { write("In it"); });
    SetTextAlign(context(), TA_TOP);
    S_use_DrawTextB = 0;
    HGDIOBJ former = SelectObject(context(), plain.handle());
    EXPECT_EQ(picture, drawn([&] {
                  RECT rect = {5, 10, 60, 50};
                  DrawTextA(context(), "In it", 5, &rect, DT_SINGLELINE | DT_VCENTER);
              }));
    SelectObject(context(), former);
    S_drawTextR = {};
}

// Run in a process whose code page is Japanese.
class DoubleByteText : public TextCanvas {
protected:
    void SetUp() override
    {
        if (!IsDBCSLeadByte(0x83))
            GTEST_SKIP() << "the code page has no double-byte text";
    }
};

TEST_F(DoubleByteText, ATrailByteEndsNoLine)
{
    PlainFont plain("Arial", 12);
    // 0x83 takes the byte behind it, whatever that is.
    for (const char *text : {"a\x83\rb", "a\x83\nb", "\x83\x41"}) {
        MoveTo(4, 20);
        write(text);
        EXPECT_EQ(port()->pnLoc.v, 20);
        EXPECT_EQ(port()->pnLoc.h, 4 + plain.width(text));
    }
    MoveTo(4, 20);
    write("\x83\x41\r\x83");
    EXPECT_EQ(port()->pnLoc.v, 20 + plain.lineHeight());
}

} // namespace
