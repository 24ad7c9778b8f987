// The system palette of an 8-bit screen.
#include <win32/control.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

class SystemPalette : public testing::Test {
protected:
    SystemPalette()
    {
        Win32Control_SetScreenMode("64x48x8");
        dc_ = CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    }
    ~SystemPalette() override
    {
        DeleteDC(dc_);
        for (HPALETTE palette : palettes_)
            DeleteObject(palette);
        Win32Control_SetScreenMode("1024x768x32");
        Win32Control_Reset();
    }

    // So many entries, whose red grows.
    HPALETTE palette(UINT count, BYTE blue, BYTE flags = 0)
    {
        std::vector<char> buffer(sizeof(LOGPALETTE) + count * sizeof(PALETTEENTRY));
        auto *logical = reinterpret_cast<LOGPALETTE *>(buffer.data());
        logical->palVersion = 0x300;
        logical->palNumEntries = static_cast<WORD>(count);
        for (UINT i = 0; i < count; ++i)
            logical->palPalEntry[i] = {static_cast<BYTE>(i), 1, blue, flags};
        palettes_.push_back(CreatePalette(logical));
        return palettes_.back();
    }
    UINT realize(HPALETTE palette, BOOL isInBackground = FALSE)
    {
        SelectPalette(dc_, palette, isInBackground);
        return RealizePalette(dc_);
    }
    COLORREF color(UINT place)
    {
        PALETTEENTRY entry{};
        EXPECT_EQ(GetSystemPaletteEntries(dc_, place, 1, &entry), 1u);
        return RGB(entry.peRed, entry.peGreen, entry.peBlue);
    }

    HDC dc_;

private:
    std::vector<HPALETTE> palettes_;
};

TEST_F(SystemPalette, KeepsTwentyColoursOfTheSystem)
{
    EXPECT_EQ(GetSystemPaletteUse(dc_), UINT{SYSPAL_STATIC});
    EXPECT_EQ(GetSystemPaletteEntries(dc_, 0, 0, nullptr), 256u);
    EXPECT_EQ(realize(palette(256, 9)), 256u);
    EXPECT_EQ(color(0), RGB(0, 0, 0));
    EXPECT_EQ(color(9), RGB(0xa6, 0xca, 0xf0));
    EXPECT_EQ(color(10), RGB(0, 1, 9));
    EXPECT_EQ(color(245), RGB(235, 1, 9));
    EXPECT_EQ(color(246), RGB(0xff, 0xfb, 0xf0));
    EXPECT_EQ(color(255), RGB(255, 255, 255));
}

TEST_F(SystemPalette, GivesAllButBlackAndWhiteWhenAsked)
{
    EXPECT_EQ(SetSystemPaletteUse(dc_, SYSPAL_NOSTATIC), UINT{SYSPAL_STATIC});
    realize(palette(254, 7, PC_NOCOLLAPSE), TRUE);
    EXPECT_EQ(color(0), RGB(0, 0, 0));
    EXPECT_EQ(color(1), RGB(0, 1, 7));
    EXPECT_EQ(color(254), RGB(253, 1, 7));
    EXPECT_EQ(color(255), RGB(255, 255, 255));
    EXPECT_EQ(SetSystemPaletteUse(dc_, SYSPAL_STATIC), UINT{SYSPAL_NOSTATIC});
    EXPECT_EQ(color(1), RGB(0x80, 0, 0)) << "the colours of the system come back";
    EXPECT_EQ(color(100), RGB(99, 1, 7));
    EXPECT_EQ(SetSystemPaletteUse(dc_, 9), UINT{SYSPAL_ERROR});
}

TEST_F(SystemPalette, SharesEqualColoursAndChangesNothingTwice)
{
    HPALETTE first = palette(20, 5), same = palette(20, 5), apart = palette(3, 5, PC_NOCOLLAPSE);
    EXPECT_EQ(realize(first), 20u);
    EXPECT_EQ(realize(first), 0u) << "nothing has changed since";
    realize(same, TRUE);
    EXPECT_EQ(color(30), RGB(30, 30, 30)) << "the same colours need no further places";
    realize(apart, TRUE);
    EXPECT_EQ(color(30), RGB(0, 1, 5));
    EXPECT_EQ(color(32), RGB(2, 1, 5));
}

TEST_F(SystemPalette, InTheBackgroundTakesOnlyWhatIsFree)
{
    realize(palette(230, 5));
    HPALETTE behind = palette(20, 200);
    realize(behind, TRUE);
    EXPECT_EQ(color(10), RGB(0, 1, 5));
    EXPECT_EQ(color(240), RGB(0, 1, 200));
    EXPECT_EQ(color(245), RGB(5, 1, 200));
    realize(behind, FALSE);
    EXPECT_EQ(color(10), RGB(0, 1, 200)) << "in the foreground it takes places that others hold";
}

TEST_F(SystemPalette, DecidesWhichPixelsColoursBecome)
{
    SetPixel(dc_, 0, 0, RGB(77, 1, 3));
    EXPECT_NE(GetPixel(dc_, 0, 0), RGB(77, 1, 3));
    realize(palette(200, 3));
    SetPixel(dc_, 0, 0, RGB(77, 1, 3));
    EXPECT_EQ(GetPixel(dc_, 0, 0), RGB(77, 1, 3));
    SetPixel(dc_, 1, 0, PALETTEINDEX(5));
    EXPECT_EQ(GetPixel(dc_, 1, 0), RGB(5, 1, 3));
}

TEST_F(SystemPalette, OutlivesThePalettesInIt)
{
    HPALETTE gone = palette(10, 66);
    realize(gone);
    SelectPalette(dc_, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), FALSE);
    DeleteObject(gone);
    EXPECT_EQ(color(12), RGB(2, 1, 66)) << "its colours stay until others need the places";
    realize(palette(5, 99), TRUE);
    EXPECT_EQ(color(12), RGB(2, 1, 99));
}

TEST_F(SystemPalette, IsNotReachedByWhatIsNoPalette)
{
    HPALETTE some = palette(4, 5);
    EXPECT_FALSE(ResizePalette(some, 0));
    EXPECT_FALSE(ResizePalette(some, 65536));
    EXPECT_EQ(SetPaletteEntries(some, 0, 2, nullptr), 0u);
    auto standard = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    EXPECT_FALSE(ResizePalette(standard, 4));
    EXPECT_EQ(GetPaletteEntries(standard, 0, 0, nullptr), 20u);
    EXPECT_EQ(RealizePalette(nullptr), DWORD{GDI_ERROR});
    EXPECT_FALSE(palette(0, 5));
}

TEST_F(SystemPalette, IsNotThereOnOtherScreens)
{
    Win32Control_SetScreenMode("64x48x32");
    EXPECT_EQ(realize(palette(20, 5)), 0u);
    EXPECT_EQ(GetSystemPaletteEntries(dc_, 0, 0, nullptr), 0u);
    EXPECT_EQ(SetSystemPaletteUse(dc_, SYSPAL_NOSTATIC), UINT{SYSPAL_ERROR});
}

} // namespace
