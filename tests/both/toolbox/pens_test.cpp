// Pens, patterns and colours of the current port, and what the context knows of them.
#include "Graphics.h"
#include "Settings.h"

#include <string>

namespace {

class Pens : public Graphics {
protected:
    Pens() { MacSetPort(memory.port()); }
    ~Pens() override { MacSetPort(nullptr); }

    CGrafPtr port() { return memory.port(); }
    HDC context() { return memory.context(); }
    // The first eight pixels of the first rows, painted with the context's brush: '#' for black.
    std::string painted(int rows)
    {
        PatBlt(context(), 0, 0, 8, rows, PATCOPY);
        std::string text;
        for (int y = 0; y < rows; ++y, text += '\n')
            for (int x = 0; x < 8; ++x)
                text += memory.pixel(x, y) ? '.' : '#';
        return text;
    }

    PortInMemory memory;
};

TEST_F(Pens, APatternPaintsItsZeroBitsInTheForeColor)
{
    Pattern corner = {{0x7F, 0xFE, 0xF0, 0xFF, 0xFF, 0xFF, 0xFF, 0x00}};
    PenPat(&corner);
    EXPECT_EQ(port()->pnPat, corner);
    EXPECT_EQ(painted(9), "#.......\n"
                          ".......#\n"
                          "....####\n"
                          "........\n"
                          "........\n"
                          "........\n"
                          "........\n"
                          "########\n"
                          "#.......\n");
}

TEST_F(Pens, TheGlobalPatterns)
{
    EXPECT_EQ(qd.black, (Pattern{}));
    EXPECT_EQ(qd.white, (Pattern{{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}}));
    EXPECT_EQ(qd.gray, (Pattern{{0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55}}));
    EXPECT_EQ(qd.ltGray, (Pattern{{0xDD, 0x77, 0xDD, 0x77, 0xDD, 0x77, 0xDD, 0x77}}));
    EXPECT_EQ(qd.dkGray, (Pattern{{0xA2, 0x2A, 0xA2, 0x2A, 0xA2, 0x2A, 0xA2, 0x2A}}));
    Pattern pattern;
    EXPECT_EQ(*GetQDGlobalsBlack(&pattern), qd.black);
    EXPECT_EQ(*GetQDGlobalsWhite(&pattern), qd.white);
    EXPECT_EQ(*GetQDGlobalsGray(&pattern), qd.gray);
    EXPECT_EQ(*GetQDGlobalsLightGray(&pattern), qd.ltGray);
    EXPECT_EQ(*GetQDGlobalsDarkGray(&pattern), qd.dkGray);
}

TEST_F(Pens, AnUnchangedPatternKeepsItsBrush)
{
    PenPat(&stripes);
    HBRUSH brush = port()->portBrush;
    PenPat(&stripes);
    EXPECT_EQ(+port()->portBrush, brush);
    HGDIOBJ mine = SelectObject(context(), GetStockObject(NULL_BRUSH));
    PenPat(&stripes);
    EXPECT_EQ(GetCurrentObject(context(), OBJ_BRUSH), +port()->portBrush)
        << "made anew, since it was out of the context";
    EXPECT_EQ(GetObjectType(mine), 0u);
    PenPat(&qd.black);
    EXPECT_EQ(painted(1), "########\n");
}

TEST_F(Pens, ABrushThatNeverLeftItsContextCanBeReplaced)
{
    // As if GDI had refused the first brush: the next one is selected with nothing saved.
    SelectObject(context(), GetStockObject(WHITE_BRUSH));
    DeleteObject(port()->portBrush);
    port()->portBrush = nullptr;
    MacSetPort(nullptr);
    MacSetPort(port());
    PenPat(&stripes);
    HBRUSH old = port()->portBrush;
    MacSetPort(nullptr);
    MacSetPort(port());
    EXPECT_EQ(+port()->portSavedBrush, old);
    PenPat(&qd.black);
    EXPECT_EQ(GetObjectType(old), 0u);
    MacSetPort(nullptr);
    EXPECT_EQ(+port()->portSavedBrush, reinterpret_cast<HGDIOBJ>(intptr_t{-1}));
    MacSetPort(port());
    EXPECT_EQ(painted(1), "########\n");
}

TEST_F(Pens, GrayIsLighterInOneBitWorlds)
{
    PixMap &map = pixMapOf(port());
    map.pixelSize = 1;
    PenPat(&qd.gray);
    EXPECT_EQ(port()->pnPat, qd.ltGray);
    port()->portOffscreen = 0;
    PenPat(&qd.gray);
    EXPECT_EQ(port()->pnPat, qd.gray);
    port()->portOffscreen = 1;
    map.pixelSize = 32;
    PenPat(&qd.ltGray);
    PenPat(&qd.gray);
    EXPECT_EQ(port()->pnPat, qd.gray);
}

TEST_F(Pens, ModesSetTheRasterModeOfTheContext)
{
    struct {
        SInt16 mode;
        int raster;
    } const cases[] = {{0, R2_COPYPEN},    {8, R2_COPYPEN},    {1, R2_MERGEPEN},   {9, R2_MERGEPEN},
                       {2, R2_NOTXORPEN},  {10, R2_NOTXORPEN}, {3, R2_NOTMASKPEN}, {11, R2_NOTMASKPEN},
                       {4, R2_NOTCOPYPEN}, {12, R2_NOTCOPYPEN}};
    for (auto &[mode, raster] : cases) {
        SetROP2(context(), R2_BLACK);
        PenMode(mode);
        EXPECT_EQ(GetROP2(context()), raster) << mode;
        EXPECT_EQ(port()->pnMode, mode);
    }
    SetROP2(context(), R2_BLACK);
    for (SInt16 mode : {5, 6, 7, 13, 15, 32, 36, 32767, -1, -32768}) {
        PenMode(mode);
        EXPECT_EQ(GetROP2(context()), R2_BLACK) << mode;
        EXPECT_EQ(port()->pnMode, mode);
    }
}

TEST_F(Pens, TheSafeExclusiveOrIsASetting)
{
    MacSetPort(nullptr);
    MTBX_ShutdownGraf();
    {
        Settings settings("UseSafeXorMode=1\r\n");
        InitGraf(nullptr);
    }
    MacSetPort(port());
    PenMode(patXor);
    EXPECT_EQ(GetROP2(context()), R2_XORPEN);
    gWin95 = 1;
    PenMode(srcXor);
    EXPECT_EQ(GetROP2(context()), R2_NOT);
    gWin95 = 0;
}

TEST_F(Pens, ABlackPenBecomesWhiteInExclusiveOrModes)
{
    for (SInt16 mode : {srcXor, patXor}) {
        PenNormal();
        PenMode(mode);
        EXPECT_EQ(port()->pnPat, qd.white);
        PenPat(&stripes);
        PenMode(mode);
        EXPECT_EQ(port()->pnPat, stripes);
    }
    PenNormal();
    EXPECT_EQ(port()->pnMode, patCopy);
    EXPECT_EQ(port()->pnPat, qd.black);
    EXPECT_EQ(port()->pnSize, (Point{1, 1}));
    EXPECT_EQ(GetROP2(context()), R2_COPYPEN);
}

TEST_F(Pens, AStateIsRestoredWithItsOwnPattern)
{
    PenSize(3, 2);
    MoveTo(11, 12);
    PenMode(patXor);
    PenPat(&qd.black);
    PenState state;
    GetPenState(&state);
    PenNormal();
    MoveTo(0, 0);
    SetPenState(&state);
    EXPECT_EQ(port()->pnPat, qd.black) << "the swap of the exclusive-or mode comes before";
    EXPECT_EQ(port()->pnMode, patXor);
    EXPECT_EQ(port()->pnLoc, (Point{12, 11}));
    EXPECT_EQ(port()->pnSize, (Point{2, 3}));
    OpenRgn();
    state.pnLoc = {40, 41};
    SetPenState(&state);
    EXPECT_EQ(port()->pnLoc, (Point{12, 11})) << "recorded";
    RgnHandle rgn = NewRgn();
    CloseRgn(rgn);
    DisposeRgn(rgn);
}

TEST_F(Pens, HidingCountsDownToZero)
{
    for (int i = 0; i < 3; ++i)
        HidePen();
    EXPECT_EQ(port()->pnVis, 3);
    for (int i = 0; i < 4; ++i)
        ShowPen();
    EXPECT_EQ(port()->pnVis, 0);
}

TEST_F(Pens, MovesReachTheContextAndWrap)
{
    MoveTo(5, 6);
    Move(-2, 3);
    Point place;
    GetPen(&place);
    EXPECT_EQ(place, (Point{9, 3}));
    POINT native;
    GetCurrentPositionEx(context(), &native);
    EXPECT_EQ(native.x, 3);
    EXPECT_EQ(native.y, 9);
    MoveTo(32767, -32768);
    Move(1, -1);
    GetPen(&place);
    EXPECT_EQ(place, (Point{32767, -32768}));
}

TEST_F(Pens, ARecordedRegionTakesMoveToButNotMove)
{
    MoveTo(1, 2);
    OpenRgn();
    MoveTo(20, 20);
    Move(3, 3);
    EXPECT_EQ(port()->pnLoc, (Point{5, 4}));
    RgnHandle rgn = NewRgn();
    CloseRgn(rgn);
    MoveTo(7, 8);
    EXPECT_EQ(port()->pnLoc, (Point{8, 7}));
    DisposeRgn(rgn);
}

TEST_F(Pens, ColorsAreRoundedToEightBitsAndCutWhenAskedFor)
{
    RGBColor color = {65535, 32768, 0}, back = {0x8100, 0x7F80, 0x007F}, out;
    RGBForeColor(&color);
    RGBBackColor(&back);
    EXPECT_EQ(+port()->fgColor, 0x000080FFu);
    EXPECT_EQ(GetTextColor(context()), 0x000080FFu);
    EXPECT_EQ(port()->rgbFgColor, color);
    EXPECT_EQ(+port()->bkColor, 0x00007F80u);
    EXPECT_EQ(GetBkColor(context()), 0x00007F80u);
    GetBackColor(&out);
    EXPECT_EQ(out, back);
    EXPECT_EQ(+port()->bkColor, 0x00007F80u);
    EXPECT_EQ(GetBkColor(context()), 0x00007F81u);
    RGBForeColor(&back);
    GetForeColor(&out);
    EXPECT_EQ(out, back);
    EXPECT_EQ(+port()->fgColor, 0x00007F80u);
    EXPECT_EQ(GetTextColor(context()), 0x00007F81u);
}

TEST_F(Pens, ClassicColorsByNumber)
{
    struct {
        SInt32 number;
        RGBColor color;
    } const cases[] = {{30, {65535, 65535, 65535}}, {33, {0, 0, 0}},      {69, {65535, 65535, 0}},
                       {137, {65535, 0, 65535}},    {205, {65535, 0, 0}}, {273, {0, 65535, 65535}},
                       {341, {0, 65535, 0}},        {409, {0, 0, 65535}}, {5, {0, 0, 65535}}};
    for (auto &[number, color] : cases) {
        ForeColor(number);
        BackColor(number);
        EXPECT_EQ(port()->rgbFgColor, color) << number;
        EXPECT_EQ(port()->rgbBkColor, color) << number;
    }
}

TEST_F(Pens, OpColorIsKeptByColorPortsOnly)
{
    RGBColor color = {1, 2, 3};
    OpColor(&color);
    EXPECT_EQ((**reinterpret_cast<GrafVars **>(port()->grafVars)).rgbOpColor, color);
    GrafPort basic{};
    OpenPort(&basic);
    OpColor(&color);
    MacSetPort(port());
    ClosePort(&basic);
}

TEST_F(Pens, TwoPatternsOfTheSystemsList)
{
    Pattern pattern = stripes;
    GetIndPattern(&pattern, 1, 2);
    GetIndPattern(&pattern, 0, 3);
    EXPECT_EQ(pattern, stripes);
    GetIndPattern(&pattern, 0, 2);
    EXPECT_EQ(pattern, (Pattern{{0x88, 0x00, 0x22, 0x00, 0x88, 0x00, 0x22, 0x00}}));
    GetIndPattern(&pattern, 0, 22);
    EXPECT_EQ(pattern, (Pattern{{0x77, 0xFF, 0xDD, 0xFF, 0x77, 0xFF, 0xDD, 0xFF}}));
    EXPECT_EQ(GetPattern(0), nullptr);
}

TEST(HSV, TheSixSectorsOfTheCircle)
{
    struct {
        HSVColor hsv;
        RGBColor rgb;
    } const cases[] = {
        {{12345, 0, 777}, {777, 777, 777}},
        {{0, 65535, 65535}, {65535, 0, 0}},
        {{10922, 65535, 65535}, {65535, 65532, 0}},
        {{10923, 65535, 65535}, {65534, 65535, 0}},
        {{21845, 65535, 65535}, {2, 65535, 0}},
        {{32768, 65535, 65535}, {0, 65535, 65535}},
        {{43691, 65535, 65535}, {2, 0, 65535}},
        {{54613, 65535, 65535}, {65534, 0, 65535}},
        {{65535, 65535, 65535}, {65535, 0, 6}},
        {{0, 32768, 40000}, {40000, 20000, 20000}},
        {{50000, 30000, 50000}, {40333, 27111, 50000}},
    };
    for (auto &[hsv, rgb] : cases) {
        RGBColor out;
        HSV2RGB(&hsv, &out);
        EXPECT_EQ(out, rgb) << hsv.hue;
    }
}

TEST(NoPort, CallsOnTheCurrentPortAreQuietBeforeInitGraf)
{
    ASSERT_FALSE(+qd.thePort);
    RGBColor color = {};
    PenState state = {};
    Rect rect = {};
    Point point;
    PenNormal();
    MoveTo(1, 1);
    Move(1, 1);
    HidePen();
    ShowPen();
    GetPen(&point);
    GetPenState(&state);
    SetPenState(&state);
    RGBForeColor(&color);
    GetBackColor(&color);
    OpColor(&color);
    SetOrigin(1, 1);
    PortSize(1, 1);
    ClipRect(&rect);
    MacSetPort(nullptr);
    EXPECT_FALSE(+qd.thePort);
}

} // namespace
