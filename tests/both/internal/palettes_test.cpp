// The colour set-up of screens of each depth.
#include "Quickdraw/ColorTableHeaders.h"
#include "Quickdraw/ColorTableRules.h"
#include "Quickdraw/Palettes_internal.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

class ScreenColors : public testing::Test {
protected:
    ScreenColors() : depth_(gbits_per_pixel), usage_(MEM_GetMemUsage())
    {
        for (int i = 0; i < systemEntryCount; ++i) {
            firstSystemEntries[i] = {static_cast<BYTE>(i), 100, 7, 0};
            lastSystemEntries[i] = {static_cast<BYTE>(i), 200, 9, 0};
        }
    }
    ~ScreenColors()
    {
        MTBX_StopColors();
        gbits_per_pixel = depth_;
        EXPECT_FALSE(gworld_palette || gcurrent_palette);
        EXPECT_EQ(MEM_GetMemUsage(), usage_);
        for (auto &entries : {firstSystemEntries, lastSystemEntries})
            std::fill(entries, entries + systemEntryCount, PALETTEENTRY{});
    }

    void start(SInt16 depth)
    {
        gbits_per_pixel = depth;
        MTBX_StartColors();
    }
    static std::vector<UInt32> worldPalette()
    {
        PALETTEENTRY entries[256];
        UINT count = GetPaletteEntries(gworld_palette, 0, 256, entries);
        std::vector<UInt32> colors;
        for (UINT i = 0; i < count; ++i)
            colors.push_back(UInt32{entries[i].peFlags} << 24 | entries[i].peRed << 16 | entries[i].peGreen << 8
                             | entries[i].peBlue);
        return colors;
    }

    SInt16 depth_;
    UInt64 usage_;
};

TEST_F(ScreenColors, DeepScreensTakeTheStockPaletteAndTheStandardTables)
{
    start(32);
    EXPECT_EQ(gworld_palette, GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(gcurrent_palette, gworld_palette);
    CTabHandle oneBit = MTBX_StandardTable(32);
    EXPECT_EQ(MTBX_StandardTable(16), oneBit);
    EXPECT_EQ((*oneBit)->ctSize, 1);
    EXPECT_EQ((*oneBit)->ctSeed, 0);
    EXPECT_EQ((*oneBit)->ctUsage, 2);
    EXPECT_EQ((*oneBit)->ctTable[0].rgb.green, 65535);
    EXPECT_EQ((*oneBit)->ctTable[1].rgb.green, 0);
    auto header = reinterpret_cast<const BITMAPINFO *>(*(*oneBit)->ctHeader);
    EXPECT_EQ(GetHandleSize((*oneBit)->ctHeader), 56);
    EXPECT_TRUE(header->bmiHeader.biSize == 40 && header->bmiHeader.biPlanes == 1 && header->bmiHeader.biClrUsed == 2
                && header->bmiHeader.biClrImportant == 2);
    EXPECT_EQ(header->bmiColors[0].rgbGreen, 255);

    struct {
        SInt16 depth;
        SInt32 seed;
        SInt16 size;
    } const cases[] = {{8, 8, 511}, {4, 0, 7}, {2, 504, 3}};
    for (auto &[depth, seed, size] : cases) {
        CTabHandle table = MTBX_StandardTable(depth);
        EXPECT_EQ((*table)->ctSeed, seed) << depth;
        EXPECT_EQ((*table)->ctSize, size) << depth;
    }
    EXPECT_FALSE(MTBX_StandardTable(1));
    MTBX_AssertZPPalette();
    MTBX_AssertSystemPalette();
    EXPECT_EQ(gcurrent_palette, gworld_palette);
    EXPECT_EQ((*MTBX_StandardTable(8))->ctSeed, 8);
}

TEST_F(ScreenColors, FourBitTableChangesRedFastest)
{
    start(32);
    CTabHandle table = MTBX_StandardTable(4);
    auto header = reinterpret_cast<const BITMAPINFO *>(*(*table)->ctHeader);
    for (int i = 0; i < 8; ++i) {
        const RGBColor &color = (*table)->ctTable[i].rgb;
        EXPECT_EQ(color.red, i & 1 ? 65535 : 0);
        EXPECT_EQ(color.green, i & 2 ? 65535 : 0);
        EXPECT_EQ(color.blue, i & 4 ? 65535 : 0);
        EXPECT_EQ(header->bmiColors[i].rgbRed, i & 1 ? 255 : 0);
        EXPECT_EQ(header->bmiColors[i].rgbBlue, i & 4 ? 255 : 0);
    }
}

TEST_F(ScreenColors, PaletteOf256StandsBetweenTheSystemsColors)
{
    start(8);
    std::vector<UInt32> colors = worldPalette();
    ASSERT_EQ(colors.size(), 256u);
    for (UInt32 i = 0; i < 10; ++i) {
        EXPECT_EQ(colors[i] & 0xFFFFFF, i << 16 | 100 << 8 | 7);
        EXPECT_EQ(colors[246 + i] & 0xFFFFFF, i << 16 | 200 << 8 | 9);
    }
    EXPECT_EQ(colors[10], 0x04FFFFFFu);
    EXPECT_EQ(colors[11], 0x04FFFFCCu);
    EXPECT_EQ(colors[225], 0x04000000u);
    EXPECT_EQ(colors[226], 0x04060606u);
    EXPECT_EQ(colors[243], 0x04FDFDFDu);
    EXPECT_EQ(colors[0] >> 24, 0u) << "slot 0 may be shared with the system";
    EXPECT_EQ(colors[255] >> 24, 4u);
    EXPECT_EQ(gcurrent_palette, gworld_palette);
    EXPECT_EQ(paletteIsGray, 1);
    MTBX_AssertZPPalette();
    MTBX_AssertSystemPalette();
    EXPECT_EQ(gcurrent_palette, gworld_palette);
}

TEST_F(ScreenColors, FewColorsAreFollowedByFiller)
{
    gbits_per_pixel = 8;
    ColorSpec const list[] = {{0, {0x1234, 0x5678, 0x9ABC}}, {1, {65535, 0, 0}}};
    makeWorldPalette(list, 2);
    std::vector<UInt32> colors = worldPalette();
    ASSERT_EQ(colors.size(), 256u);
    EXPECT_EQ(colors[10], 0x0412569Au);
    EXPECT_EQ(colors[11], 0x04FF0000u);
    EXPECT_EQ(colors[12], 0x04FD0000u);
    EXPECT_EQ(colors[245], 0x04FD0000u);
    EXPECT_EQ(colors[246] & 0xFFFFFF, 0x00C809u);
}

TEST_F(ScreenColors, GreyPaletteIsKnownAsSuch)
{
    gbits_per_pixel = 8;
    CTabHandle ramp = newGrayRamp(256, Ramp::BlackFirst);
    makeWorldPalette(entriesOf(ramp), 256);
    MTBX_AssertZPPalette();
    EXPECT_EQ(paletteIsGray, 2);
    setColorTableUsage(ramp, kSystemUsage);
    EXPECT_EQ(GetHandleSize((*ramp)->ctHeader), 44 + 4 * 255);
    auto slots = reinterpret_cast<const UInt16 *>(*(*ramp)->ctHeader + sizeof(BITMAPINFOHEADER));
    for (int i = 0; i < 256; ++i)
        ASSERT_EQ(slots[i], i) << "the luminance of a grey is its level";
    setColorTableUsage(ramp, kNoHeaderUsage);
    EXPECT_FALSE((*ramp)->ctHeader);
    DisposeCTable(ramp);
    paletteIsGray = 1;
}

TEST_F(ScreenColors, ScreenOf16ColorsHasItsPaletteButAssertsNone)
{
    start(4);
    std::vector<UInt32> colors = worldPalette();
    EXPECT_EQ(colors, std::vector<UInt32>({0x00FFFFFF, 0x04FFFF00, 0x04FF00FF, 0x04FF0000, 0x0400FFFF, 0x0400FF00,
                                           0x040000FF, 0x04000000}));
    EXPECT_FALSE(gcurrent_palette);
}

TEST_F(ScreenColors, SlotsOfAPaletteScreenAreItsNearestEntries)
{
    start(8);
    CTabHandle table = newGrayRamp(2, Ramp::WhiteFirst);
    setColorTableUsage(table, kSystemUsage);
    auto slots = reinterpret_cast<const UInt16 *>(*(*table)->ctHeader + sizeof(BITMAPINFOHEADER));
    std::vector<UInt32> colors = worldPalette();
    EXPECT_EQ(colors.at(slots[0]) & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(colors.at(slots[1]) & 0xFFFFFF, 0u);
    EXPECT_EQ((*table)->ctSeed, 0);
    DisposeCTable(table);
}

} // namespace
