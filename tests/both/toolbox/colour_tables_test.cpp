// Colour tables, and the colours of the Palette Manager.
#include "Graphics.h"
#include "ResourceChain.h"

#include <vector>

namespace {

std::vector<RGBColor> takeColors(CTabHandle table)
{
    std::vector<RGBColor> colors;
    for (SInt32 i = 0; i <= (*table)->ctSize; ++i) {
        EXPECT_EQ((*table)->ctTable[i].value, i);
        colors.push_back((*table)->ctTable[i].rgb);
    }
    DisposeCTable(table);
    return colors;
}

RGBColor gray(int level)
{
    auto channel = static_cast<UInt16>(level * 257);
    return {channel, channel, channel};
}

TEST(ColorTables, CubesRunFromWhiteToBlackWithBlueFastest)
{
    for (SInt16 levels : {2, 3, 8, 32}) {
        CTabHandle table = GetCTable(levels);
        ASSERT_TRUE(table);
        EXPECT_EQ((*table)->ctSeed, levels);
        EXPECT_EQ((*table)->ctFlags, 0);
        EXPECT_FALSE((*table)->ctHeader);
        std::vector<RGBColor> colors = takeColors(table);
        ASSERT_EQ(colors.size(), levels * levels * levels);
        for (int i = 0; i < levels; ++i)
            for (int j = 0; j < levels; ++j)
                for (int k = 0; k < levels; ++k) {
                    RGBColor expected = {static_cast<UInt16>(i * 65535 / (levels - 1)),
                                         static_cast<UInt16>(j * 65535 / (levels - 1)),
                                         static_cast<UInt16>(k * 65535 / (levels - 1))};
                    ASSERT_EQ(colors[levels * levels * (levels - i) - levels * j - 1 - k], expected);
                }
    }
}

TEST(ColorTables, NumberOneIsTheCubeOfSixLevelsAndItsGreys)
{
    CTabHandle table = GetCTable(1);
    EXPECT_EQ((*table)->ctSeed, 1);
    std::vector<RGBColor> colors = takeColors(table);
    ASSERT_EQ(colors.size(), 234u);
    EXPECT_EQ(colors[0], gray(255));
    EXPECT_EQ(colors[1], (RGBColor{65535, 65535, 52428}));
    EXPECT_EQ(colors[215], gray(0));
    EXPECT_EQ(colors[216], gray(6));
    EXPECT_EQ(colors[225], gray(121));
    EXPECT_EQ(colors[233], gray(253));
}

class ColorTableResources : public ResourceChain {};

TEST_F(ColorTableResources, ResourceComesBeforeTheRule)
{
    open(modulePath());
    CTabHandle table = GetCTable(300);
    ASSERT_TRUE(table);
    EXPECT_EQ(GetHandleSize(reinterpret_cast<Handle>(table)), static_cast<Size>(offsetof(ColorTable, ctTable) + 16));
    EXPECT_EQ((*table)->ctFlags, 0);
    EXPECT_EQ((*table)->ctSize, 1);
    EXPECT_EQ(takeColors(table), std::vector<RGBColor>({{0x1111, 0x2222, 0x3333}, {0xFFFF, 0, 0x8000}}));
    EXPECT_FALSE(GetCTable(302));
    table = GetCTable(301);
    ASSERT_TRUE(table) << "a resource without data is a table without entries";
    EXPECT_EQ((*table)->ctSize, -1);
    DisposeCTable(table);
}

TEST(ColorTables, NumbersWithoutATableGiveNull)
{
    for (SInt16 id : {0, -1, 33, 32767, -32768})
        EXPECT_FALSE(GetCTable(id)) << id;
}

TEST(ColorTables, DisposingFreesTheHeaderToo)
{
    UInt64 before = MEM_GetMemUsage();
    CTabHandle table = GetCTable(3);
    (*table)->ctHeader = NewHandle(100);
    DisposCTable(table);
    DisposeCTable(nullptr);
    EXPECT_EQ(MEM_GetMemUsage(), before);
}

TEST(ColorTables, SeedsAreNeverGivenTwice)
{
    SInt32 first = GetCTSeed();
    EXPECT_GE(first, 2);
    EXPECT_EQ(GetCTSeed(), first + 1);
}

class PaletteColors : public testing::Test {
protected:
    PaletteColors() : former_(qd.thePort)
    {
        for (CGrafPort *port : {&port_, &other_})
            port->portVersion = 0xC000;
        qd.thePort = &port_;
    }
    ~PaletteColors() { qd.thePort = former_; }

    GrafPtr former_;
    CGrafPort port_ = {}, other_ = {};
};

TEST_F(PaletteColors, NumbersStandForColors)
{
    RGBColor const colors[] = {gray(0),
                               {65535, 65535, 65535},
                               {32767, 32767, 32767},
                               {65535, 0, 0},
                               {65535, 65535, 0},
                               {0, 65535, 0},
                               gray(0xDC),
                               gray(0)};
    for (SInt16 index = 0; index < 8; ++index) {
        PmForeColor(index);
        EXPECT_EQ(port_.rgbFgColor, colors[index]) << index;
        PmBackColor(index);
        EXPECT_EQ(port_.rgbBkColor, colors[index]) << index;
    }
    PmForeColor(3);
    EXPECT_EQ(+port_.fgColor, 0x0000FFu);
    PmForeColor(-1);
    EXPECT_EQ(port_.rgbFgColor, gray(0));
}

TEST_F(PaletteColors, SavedColorsGoToThePortThatIsCurrentThen)
{
    port_.rgbFgColor = {1000, 2000, 3000};
    port_.rgbBkColor = {4000, 5000, 6000};
    ColorSpec fore = {7, {}}, back = {7, {}};
    SaveFore(&fore);
    SaveBack(&back);
    EXPECT_EQ(fore.value, 0);
    qd.thePort = &other_;
    RestoreFore(&fore);
    RestoreBack(&back);
    EXPECT_EQ(other_.rgbFgColor, (RGBColor{1000, 2000, 3000}));
    EXPECT_EQ(other_.rgbBkColor, (RGBColor{4000, 5000, 6000}));
    fore = {1, {9, 9, 9}};
    RestoreFore(&fore);
    RestoreBack(&fore);
    EXPECT_EQ(other_.rgbFgColor, (RGBColor{1000, 2000, 3000})) << "a palette entry, of which there are none";
    EXPECT_EQ(other_.rgbBkColor, (RGBColor{4000, 5000, 6000}));
}

} // namespace
