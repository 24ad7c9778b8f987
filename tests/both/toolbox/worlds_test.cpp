// Offscreen worlds: their sizes, their pixels, and the order of bytes in these.
#include "Graphics.h"
#include "Settings.h"
#include "Worlds.h"

#include <optional>
#include <random>
#include <vector>

namespace {

class Worlds : public Graphics {
protected:
    Worlds() : usage(MEM_GetMemUsage()) {}

    UInt64 usage;
};

TEST_F(Worlds, AWorldIsAHiddenPortWhoseCoordinatesBeginAtZero)
{
    WindowPtr front = gFrontWindow;
    SInt16 depth = gbits_per_pixel;
    World world(8, ltrb(10, 20, 110, 220));
    EXPECT_EQ(gFrontWindow, front);
    EXPECT_EQ(gbits_per_pixel, depth);
    EXPECT_EQ(world.port()->portRect, ltrb(0, 0, 100, 200));
    const PixMap &map = world.map();
    EXPECT_EQ(map.bounds, ltrb(0, 0, 100, 200));
    EXPECT_EQ(map.pixelSize, 8);
    EXPECT_EQ(map.pmDepth, 8);
    EXPECT_EQ(map.pmWidth, 100);
    EXPECT_EQ(map.pmHeight, 200);
    EXPECT_EQ(+map.pmFormat, kPixelFormatIndexed);
    EXPECT_EQ(UInt16(map.rowBytes), 0x8000 | 100) << "the mark of a PixMap, not of a port";
    EXPECT_EQ(GetPixRowBytes(GetGWorldPixMap(world.port())), 100);
    EXPECT_EQ(world.port()->portOffscreen, 1);
    EXPECT_FALSE(+reinterpret_cast<WindowPeek>(world.port())->nextWindow);
    EXPECT_EQ(GetPixelsState(GetGWorldPixMap(world.port())), 192u);
    EXPECT_EQ(GetGWorldDevice(world.port()), GetMainDevice());
    World ofTheScreen(0, ltrb(0, 0, 3, 3));
    EXPECT_EQ(ofTheScreen.map().pixelSize, gbits_per_pixel);
}

TEST_F(Worlds, ColourTablesBeginWithTheSystemsColours)
{
    for (SInt16 depth : {4, 8}) {
        World world(depth, ltrb(0, 0, 8, 8));
        RGBQUAD table[256] = {};
        UINT count = GetDIBColorTable(world.context(), 0, 256, table);
        ASSERT_EQ(count, 1u << depth);
        for (int i = 0; i < int(count); ++i) {
            COLORREF expected = i < 20 ? GetSysColor(i) : 0;
            EXPECT_EQ(RGB(table[i].rgbRed, table[i].rgbGreen, table[i].rgbBlue), expected) << i;
        }
    }
}

SInt32 failOnCall(UInt64)
{
    ADD_FAILURE() << "purging would not help";
    return 0;
}

TEST_F(Worlds, WhatCannotBeLeavesNothingBehindAndPurgesNothing)
{
    SetGrowZoneEx(failOnCall);
    struct {
        SInt16 depth;
        Rect bounds;
    } const impossible[] = {{2, ltrb(0, 0, 10, 10)},  {7, ltrb(0, 0, 10, 10)},        {64, ltrb(0, 0, 10, 10)},
                            {-1, ltrb(0, 0, 10, 10)}, {32, ltrb(10, 0, 0, 10)},       {32, ltrb(0, 10, 10, 0)},
                            {32, ltrb(0, 0, 0, 5)},   {8, ltrb(-20000, 0, 20000, 9)}, {32, ltrb(0, 0, 32767, 32767)}};
    for (const auto &each : impossible) {
        auto world = reinterpret_cast<GWorldPtr>(this);
        EXPECT_EQ(NewGWorld(&world, each.depth, &each.bounds, nullptr, nullptr, 0), -108);
        EXPECT_FALSE(world);
    }
    SetGrowZoneEx(nullptr);
    EXPECT_EQ(MEM_GetMemUsage(), usage);
}

TEST_F(Worlds, BoundsOfNoSizeMakeAWorldWithoutPixels)
{
    World world(32, ltrb(5, 5, 5, 5));
    EXPECT_FALSE(+world.map().pmBitmap);
    EXPECT_FALSE(+world.map().baseAddr);
    world.update(32, ltrb(0, 0, 6, 6));
    SetGWorld(world.port(), nullptr);
    PatBlt(world.context(), 0, 0, 6, 6, WHITENESS);
    EXPECT_EQ(world.color(5, 5), 0xFFFFFFu);
}

TEST_F(Worlds, LongRowsAreKeptBesideTheField)
{
    World fits(8, ltrb(0, 0, 16380, 2));
    EXPECT_EQ(UInt16(fits.map().rowBytes), 0x8000 | 16380);
    EXPECT_FALSE(+fits.map().pmReserved);
    World world(32, ltrb(0, 0, 4096, 2));
    EXPECT_EQ(UInt16(world.map().rowBytes), 0x8000 | 0x3F3F);
    EXPECT_EQ(GetPixRowBytes(GetGWorldPixMap(world.port())), 16384);
    world.update(32, ltrb(0, 0, 32767, 3));
    EXPECT_EQ(GetPixRowBytes(GetGWorldPixMap(world.port())), 131068);
    world.setPixel(32766, 2, 0x123456);
    EXPECT_EQ(GetPixel(world.context(), 32766, 2), RGB(0x12, 0x34, 0x56));
    world.update(32, ltrb(0, 0, 100, 3));
    EXPECT_FALSE(+world.map().pmReserved);
    EXPECT_EQ(GetPixRowBytes(GetGWorldPixMap(world.port())), 400);
}

TEST_F(Worlds, UpdateCarriesRowsOverAndMovesTheOrigin)
{
    World world(32, ltrb(0, 0, 10, 8));
    world.fillRandom(1);
    std::vector<UInt32> before = world.pixels();
    EXPECT_EQ(UpdateGWorld(world.address(), 16, world.rect(ltrb(7, 9, 17, 17)), nullptr, nullptr, 0), 0u);
    EXPECT_EQ(world.pixels(), before) << "another depth and origin alone";
    EXPECT_EQ(world.map().pixelSize, 32);
    world.update(32, ltrb(100, 50, 113, 56));
    EXPECT_EQ(world.port()->portRect, ltrb(100, 50, 113, 56));
    EXPECT_EQ(world.map().bounds, ltrb(0, 0, 13, 6));
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 13; ++x)
            ASSERT_EQ(world.pixel(x, y), x < 10 ? before[size_t(y * 10 + x)] : 0u) << x << ", " << y;
    EXPECT_EQ(GetPixel(world.context(), 100, 50), world.color(0, 0));
    SetGWorld(world.port(), nullptr);
    PatBlt(world.context(), 112, 55, 1, 1, WHITENESS);
    EXPECT_EQ(world.color(12, 5), 0xFFFFFFu) << "the clip is open";
}

TEST_F(Worlds, AWorldThatIsCurrentMayBeUpdatedInVainToo)
{
    GrafPtr former = qd.thePort;
    {
        World world(8, ltrb(0, 0, 4, 4));
        SetGWorld(world.port(), nullptr);
        for (bool inVain : {false, true}) {
            if (inVain) {
                EXPECT_EQ(UpdateGWorld(world.address(), 32, world.rect(ltrb(0, 0, 32767, 32767)), nullptr, nullptr, 0),
                          GWorldFlags(-108));
                EXPECT_FALSE(+world.map().pmBitmap || world.map().pmDC);
            }
            world.update(32, ltrb(0, 0, 30, 30));
            EXPECT_EQ(GetQDGlobalsThePort(), world.port());
            PenPat(&qd.black);
            PatBlt(world.context(), 0, 0, 30, 30, WHITENESS);
            PatBlt(world.context(), 2, 2, 1, 1, PATCOPY);
            EXPECT_EQ(world.color(29, 29), 0xFFFFFFu);
            EXPECT_EQ(world.color(2, 2), 0u) << "the port's pen is in the context";
        }
    }
    EXPECT_EQ(+qd.thePort, former);
    EXPECT_EQ(MEM_GetMemUsage(), usage);
}

TEST_F(Worlds, BitmapsCountForTheBudget)
{
    for (SInt16 depth : {1, 8, 32}) {
        UInt64 before = MEM_GetMemUsage();
        World world(depth, ltrb(0, 0, 64, 10));
        UInt64 withWorld = MEM_GetMemUsage();
        world.update(depth, ltrb(0, 0, 64, 30));
        EXPECT_EQ(MEM_GetMemUsage() - withWorld, UInt64(64 * depth / 8 * 20));
        EXPECT_GT(withWorld - before, UInt64(64 * depth / 8 * 10));
    }
    EXPECT_EQ(MEM_GetMemUsage(), usage);
}

TEST_F(Worlds, OneBitWorldsAreSectionsUnlessTheHostWantsPlainBitmaps)
{
    World section(1, ltrb(0, 0, 40, 4));
    EXPECT_TRUE(+section.map().baseAddr);
    gCreate_DIB_B = 0;
    World plain(1, ltrb(0, 0, 40, 4));
    gCreate_DIB_B = 1;
    EXPECT_FALSE(+plain.map().baseAddr);
    EXPECT_EQ(GetPixRowBytes(GetGWorldPixMap(plain.port())), 8);
    plain.update(1, ltrb(0, 0, 50, 9));
    EXPECT_TRUE(+plain.map().baseAddr);
}

TEST_F(Worlds, FormatsAreThoseOfTheSettingsAndOfForcedMasks)
{
    const UInt32 alphaFirst[4] = {0xFF00, 0xFF0000, 0xFF000000, 0xFF};
    World plain(32, ltrb(0, 0, 4, 4));
    EXPECT_EQ(+plain.map().pmFormat, kPixelFormatNative);
    EXPECT_EQ(memcmp(alphaFirst, plain.map().pmMasks, sizeof alphaFirst), 0);
    MTBX_ForceBitmapCreationBitfields(true);
    MTBX_ForceBitmapCreationBitfields(true);
    MTBX_ForceBitmapCreationBitfields(false);
    World forced(32, ltrb(0, 0, 4, 4));
    World shallow(8, ltrb(0, 0, 4, 4));
    MTBX_ForceBitmapCreationBitfields(false);
    EXPECT_EQ(+forced.map().pmFormat, kPixelFormatMasks);
    EXPECT_EQ(+shallow.map().pmFormat, kPixelFormatIndexed);
    PatBlt(forced.context(), 0, 0, 4, 4, WHITENESS);
    SetPixel(forced.context(), 0, 0, RGB(1, 2, 3));
    GdiFlush();
    EXPECT_EQ(forced.pixel(0, 0) & 0xFFFFFF, 0x010203u) << "GDI does not know of the order";
    World after(32, ltrb(0, 0, 4, 4));
    EXPECT_EQ(+after.map().pmFormat, kPixelFormatNative);
}

TEST_F(Worlds, WithMasksGdiItselfPutsAlphaFirst)
{
    Settings settings("UseBitfieldsIfPossible=1\r\n");
    InitGraf(nullptr);
    {
        World deep(32, ltrb(0, 0, 4, 4)), middle(16, ltrb(0, 0, 4, 4));
        EXPECT_EQ(+deep.map().pmFormat, kPixelFormatMasks);
        SetPixel(deep.context(), 1, 0, RGB(1, 2, 3));
        EXPECT_EQ(deep.pixel(1, 0) & 0xFFFFFF00, 0x03020100u);
        SetPixel(middle.context(), 1, 0, RGB(0x10, 0x20, 0x30));
        EXPECT_EQ(middle.pixel(1, 0) & 0xFFF0, 0x3210u) << "four bits a channel";
    }
}

TEST_F(Worlds, TheOrderIsSaidAndChanged)
{
    World world(32, ltrb(0, 0, 13, 5));
    world.fillRandom(2);
    std::vector<UInt32> before = world.pixels();
    SInt32 format = 9;
    EXPECT_EQ(MTBX_GetGWorld32PixmapFormat(world.port(), &format), 0);
    EXPECT_EQ(format, kGWorld32BlueFirst);
    EXPECT_EQ(MTBX_SetGWorld32PixmapFormat(world.port(), kGWorld32BlueFirst), 0);
    EXPECT_EQ(world.pixels(), before);
    EXPECT_EQ(MTBX_SetGWorld32PixmapFormat(world.port(), kGWorld32AlphaFirst), 0);
    EXPECT_EQ(+world.map().pmFormat, kPixelFormatMasks);
    std::vector<UInt32> after = world.pixels();
    for (size_t i = 0; i < before.size(); ++i)
        ASSERT_EQ(after[i], __builtin_bswap32(before[i]));
    EXPECT_EQ(MTBX_SetGWorld32PixmapFormat(world.port(), kGWorld32BlueFirst), 0);
    EXPECT_EQ(world.pixels(), before);
    EXPECT_EQ(MTBX_SetGWorld32PixmapFormat(world.port(), 5), -50);
    EXPECT_EQ(world.pixels(), before);
    EXPECT_EQ(MTBX_AssumeGWorld32PixmapFormat(world.port(), kGWorld32AlphaFirst), 0);
    EXPECT_EQ(MTBX_AssumeGWorld32PixmapFormat(world.port(), 5), 0);
    EXPECT_EQ(+world.map().pmFormat, kPixelFormatMasks);
    EXPECT_EQ(world.pixels(), before);
    EXPECT_EQ(MTBX_GetGWorld32PixmapFormat(nullptr, &format), -50);
    EXPECT_EQ(format, -1);
    EXPECT_EQ(MTBX_AssumeGWorld32PixmapFormat(nullptr, 0), -50);
    for (SInt16 depth : {8, 16}) {
        World other(depth, ltrb(0, 0, 4, 4));
        before = other.pixels();
        EXPECT_EQ(MTBX_GetGWorld32PixmapFormat(other.port(), &format), 0);
        EXPECT_EQ(format, depth == 8 ? -1 : kGWorld32BlueFirst);
        EXPECT_EQ(MTBX_SetGWorld32PixmapFormat(other.port(), kGWorld32AlphaFirst), -50);
        EXPECT_EQ(other.pixels(), before);
    }
}

TEST_F(Worlds, ARectangleOfPixelsIsReversedWithItsLastRowAndColumn)
{
    constexpr int width = 9, height = 6;
    std::mt19937 random(3);
    std::vector<UInt32> pixels(width * height);
    for (UInt32 &pixel : pixels)
        pixel = UInt32(random());
    for (UInt32 mask : {0u, 0xFF00FFu})
        for (Rect rect : {ltrb(2, 1, 7, 4), ltrb(3, 0, 3, 5), ltrb(4, 0, 3, 5), ltrb(0, 3, 8, 2)}) {
            std::vector<UInt32> expected = pixels, found = pixels;
            for (int y = rect.top; y <= rect.bottom; ++y)
                for (int x = rect.left; x <= rect.right; ++x) {
                    UInt32 &pixel = expected[size_t(y * width + x)];
                    pixel = __builtin_bswap32((pixel & ~mask) | (0x12345678 & mask));
                }
            MTBX_ConvertBitsFastRect(found.data(), width * 4, &rect, mask, 0x12345678);
            EXPECT_EQ(found, expected);
        }
}

TEST_F(Worlds, DirectFormatsReverseOnlyWhatDiffers)
{
    const UInt32 custom[4] = {0xFF00, 0xFF0000, 0xFF000000, 0};
    World world(32, ltrb(0, 0, 7, 3));
    world.fillRandom(4);
    std::vector<UInt32> before = world.pixels();
    EXPECT_FALSE(MTBX_SetDirectPixmapFormat(kPixelFormatCustom, &world.map(), nullptr));
    EXPECT_TRUE(MTBX_SetDirectPixmapFormat(kPixelFormatCustom, &world.map(), custom));
    EXPECT_EQ(+world.map().pmFormat, kPixelFormatCustom);
    EXPECT_EQ(world.pixel(3, 2), __builtin_bswap32(before[2 * 7 + 3]));
    const UInt32 sameColors[4] = {0xFF00, 0xFF0000, 0xFF000000, 0xFF};
    EXPECT_TRUE(MTBX_SetDirectPixmapFormat(kPixelFormatMasks, &world.map(), sameColors));
    EXPECT_EQ(+world.map().pmFormat, kPixelFormatCustom) << "equal colour masks keep the tag";
    EXPECT_EQ(+world.map().pmMasks[3], 0u);
    EXPECT_TRUE(MTBX_SetDirectPixmapFormat(kPixelFormatNative, &world.map(), nullptr));
    EXPECT_EQ(+world.map().pmFormat, kPixelFormatNative);
    EXPECT_EQ(world.pixels(), before);
    World middle(16, ltrb(0, 0, 7, 3));
    EXPECT_FALSE(MTBX_SetDirectPixmapFormat(kPixelFormatCustom, &middle.map(), custom));
    EXPECT_EQ(+middle.map().pmFormat, kPixelFormatNative);
}

TEST_F(Worlds, ColourTablesArePermutedThereAndBack)
{
    const UInt32 reversed[4] = {0xFF00, 0xFF0000, 0xFF000000, 0xFF}, native[4] = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
    World world(8, ltrb(0, 0, 8, 8));
    RGBQUAD entry = {1, 2, 3, 0}, found = {};
    SetDIBColorTable(world.context(), 5, 1, &entry);
    EXPECT_TRUE(MTBX_SetDirectPixmapFormat(kPixelFormatCustom, &world.map(), reversed));
    EXPECT_EQ(+world.map().pmFormat, kPixelFormatCustom);
    GetDIBColorTable(world.context(), 5, 1, &found);
    EXPECT_EQ(found.rgbGreen, 3);
    EXPECT_EQ(found.rgbRed, 2);
    EXPECT_TRUE(MTBX_SetDirectPixmapFormat(kPixelFormatMasks, &world.map(), native));
    EXPECT_EQ(+world.map().pmFormat, kPixelFormatCustom) << "no such change";
    EXPECT_TRUE(MTBX_SetDirectPixmapFormat(kPixelFormatIndexed, &world.map(), native));
    GetDIBColorTable(world.context(), 5, 1, &found);
    EXPECT_EQ(found.rgbGreen, 2);
    EXPECT_EQ(found.rgbRed, 3);
}

} // namespace
