// Palettes as lists of colours.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

HPALETTE create(const std::vector<PALETTEENTRY> &entries, WORD version = 0x300)
{
    std::vector<char> buffer(sizeof(LOGPALETTE) + entries.size() * sizeof(PALETTEENTRY));
    auto *palette = reinterpret_cast<LOGPALETTE *>(buffer.data());
    palette->palVersion = version;
    palette->palNumEntries = static_cast<WORD>(entries.size());
    memcpy(palette->palPalEntry, entries.data(), entries.size() * sizeof(PALETTEENTRY));
    return CreatePalette(palette);
}

COLORREF entryOf(HPALETTE palette, UINT index)
{
    PALETTEENTRY entry{1, 2, 3, 4};
    EXPECT_EQ(GetPaletteEntries(palette, index, 1, &entry), 1u);
    return RGB(entry.peRed, entry.peGreen, entry.peBlue);
}

class Palettes : public testing::Test {
protected:
    ~Palettes() override { DeleteObject(palette_); }

    HPALETTE palette_ = create({{10, 20, 30, 0}, {200, 0, 0, 4}, {0, 200, 0, 0}, {0, 0, 200, 0}});
};

TEST_F(Palettes, GiveAndTakeTheEntriesThatThereAre)
{
    PALETTEENTRY entries[8]{};
    EXPECT_EQ(GetPaletteEntries(palette_, 0, 0, nullptr), 4u);
    EXPECT_EQ(GetPaletteEntries(palette_, 1, 2, entries), 2u);
    EXPECT_EQ(entries[0].peRed, 200);
    EXPECT_EQ(entries[0].peFlags, 4);
    EXPECT_EQ(GetPaletteEntries(palette_, 3, 8, entries), 1u);
    EXPECT_EQ(GetPaletteEntries(palette_, 4, 8, entries), 0u);
    EXPECT_EQ(GetPaletteEntries(palette_, 0xffffffff, 2, entries), 0u);
    PALETTEENTRY changed[8] = {{1, 1, 1, 0}, {2, 2, 2, 0}};
    EXPECT_EQ(SetPaletteEntries(palette_, 2, 8, changed), 2u);
    EXPECT_EQ(entryOf(palette_, 1), RGB(200, 0, 0));
    EXPECT_EQ(entryOf(palette_, 2), RGB(1, 1, 1));
    EXPECT_EQ(entryOf(palette_, 3), RGB(2, 2, 2));
    EXPECT_EQ(SetPaletteEntries(palette_, 4, 1, changed), 0u);
    WORD count = 0;
    EXPECT_EQ(GetObjectA(palette_, sizeof count, &count), 2);
    EXPECT_EQ(count, 4);
}

TEST_F(Palettes, GrowWithBlackEntriesAndShrink)
{
    EXPECT_TRUE(ResizePalette(palette_, 6));
    EXPECT_EQ(entryOf(palette_, 3), RGB(0, 0, 200));
    EXPECT_EQ(entryOf(palette_, 5), RGB(0, 0, 0));
    EXPECT_TRUE(ResizePalette(palette_, 2));
    EXPECT_EQ(GetPaletteEntries(palette_, 0, 0, nullptr), 2u);
    EXPECT_FALSE(ResizePalette(nullptr, 4));
}

TEST_F(Palettes, FindTheNearestColour)
{
    EXPECT_EQ(GetNearestPaletteIndex(palette_, RGB(220, 30, 30)), 1u);
    EXPECT_EQ(GetNearestPaletteIndex(palette_, RGB(0, 0, 0)), 0u);
    auto standard = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(GetNearestPaletteIndex(standard, RGB(130, 130, 130)), 12u);
    EXPECT_EQ(GetNearestPaletteIndex(standard, RGB(255, 255, 255)), 19u);
    EXPECT_EQ(GetNearestPaletteIndex(standard, RGB(255, 0, 0)), 13u);
}

TEST_F(Palettes, AreSelectedByTheirOwnCallOnly)
{
    HDC dc = CreateCompatibleDC(nullptr);
    auto standard = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(SelectPalette(dc, palette_, FALSE), standard);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PAL), palette_);
    EXPECT_FALSE(SelectPalette(dc, nullptr, FALSE));
    EXPECT_FALSE(SelectPalette(dc, static_cast<HPALETTE>(GetStockObject(BLACK_BRUSH)), FALSE));
    EXPECT_FALSE(SelectObject(dc, palette_));
    EXPECT_EQ(SelectPalette(dc, standard, FALSE), palette_);
    EXPECT_TRUE(UnrealizeObject(palette_));
    DeleteDC(dc);
    EXPECT_FALSE(CreatePalette(nullptr));
}

} // namespace
