// Bitmaps: what they say of themselves, their bytes and colours, and what is refused.
#include "Canvas.h"
#include "Dibs.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

BITMAP described(HBITMAP bitmap)
{
    BITMAP description{};
    GetObjectA(bitmap, sizeof description, &description);
    return description;
}

DIBSECTION describedSection(HBITMAP bitmap)
{
    DIBSECTION description{};
    EXPECT_EQ(GetObjectA(bitmap, sizeof description, &description), static_cast<int>(sizeof description));
    return description;
}

TEST(Bitmaps, DeviceBitmapsHaveRowsOfWordsAndDepthsThatExist)
{
    struct {
        UINT asked;
        int depth, rowBytes;
    } cases[] = {{0, 4, 4}, {1, 1, 2},    {2, 4, 4},    {4, 4, 4},   {5, 8, 6},
                 {8, 8, 6}, {15, 16, 10}, {24, 24, 16}, {25, 32, 20}};
    for (auto [asked, depth, rowBytes] : cases) {
        HBITMAP bitmap = CreateBitmap(-5, 3, 1, asked, nullptr);
        BITMAP description = described(bitmap);
        EXPECT_EQ(description.bmBitsPixel, depth) << asked;
        EXPECT_EQ(description.bmWidthBytes, rowBytes) << asked;
        EXPECT_EQ(description.bmWidth, 5);
        EXPECT_EQ(description.bmHeight, 3);
        EXPECT_EQ(description.bmBits, nullptr);
        char bytes[sizeof(DIBSECTION)];
        EXPECT_EQ(GetObjectA(bitmap, sizeof bytes, bytes), static_cast<int>(sizeof(BITMAP)));
        EXPECT_EQ(GetObjectA(bitmap, sizeof(BITMAP) - 1, bytes), 0);
        EXPECT_TRUE(DeleteObject(bitmap));
        EXPECT_EQ(GetObjectA(bitmap, sizeof bytes, bytes), 0);
    }
}

TEST(Bitmaps, WhatCannotBeABitmapIsRefused)
{
    EXPECT_EQ(CreateBitmap(5, 3, 4, 1, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(5, 3, 0, 8, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(5, 3, 1, 33, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(0x8000000, 1, 1, 1, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(65536, 65536, 1, 32, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    BITMAP odd{1, 5, 3, 2, 1, 1, nullptr};
    EXPECT_EQ(CreateBitmapIndirect(&odd), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(nullptr, 5, 3), nullptr);
}

TEST(Bitmaps, WithoutAreaThereIsOnlyTheDefaultBitmap)
{
    HDC dc = CreateCompatibleDC(nullptr);
    HGDIOBJ initial = GetCurrentObject(dc, OBJ_BITMAP);
    EXPECT_EQ(CreateBitmap(0, 3, 1, 8, nullptr), initial);
    EXPECT_EQ(CreateCompatibleBitmap(dc, 3, 0), initial);
    EXPECT_EQ(GetObjectType(initial), static_cast<DWORD>(OBJ_BITMAP));
    DeleteObject(initial);
    EXPECT_EQ(described(static_cast<HBITMAP>(initial)).bmWidth, 1);
    DeleteDC(dc);
}

TEST(Bitmaps, SectionsDescribeTheirFormat)
{
    struct {
        DibInfo info;
        DWORD compression, colors, red;
    } cases[] = {{DibInfo(5, 3, 1), BI_RGB, 2, 0},
                 {DibInfo(5, -3, 4), BI_RGB, 16, 0},
                 {DibInfo(5, 3, 8), BI_RGB, 256, 0},
                 {DibInfo(5, 3, 16), BI_BITFIELDS, 0, 0x7c00},
                 {DibInfo(5, -3, 24), BI_RGB, 0, 0},
                 {DibInfo(5, 3, 32), BI_RGB, 0, 0},
                 {DibInfo::masked(5, -3, 16, 0xf800, 0x7e0, 0x1f), BI_BITFIELDS, 0, 0xf800},
                 {DibInfo::masked(5, 3, 32, 0xff, 0xff00, 0xff0000), BI_BITFIELDS, 0, 0xff}};
    for (auto &[info, compression, colors, red] : cases) {
        info.header.biXPelsPerMeter = 77;
        void *bits = nullptr;
        HBITMAP bitmap = createSection(info, &bits);
        DIBSECTION section = describedSection(bitmap);
        EXPECT_NE(bits, nullptr);
        EXPECT_EQ(section.dsBm.bmBits, bits);
        EXPECT_EQ(section.dsBm.bmWidthBytes, static_cast<LONG>(info.stride()));
        EXPECT_EQ(section.dsBmih.biSize, sizeof(BITMAPINFOHEADER));
        EXPECT_EQ(section.dsBmih.biHeight, 3);
        EXPECT_EQ(section.dsBmih.biXPelsPerMeter, 77);
        EXPECT_EQ(section.dsBmih.biSizeImage, info.stride() * 3);
        EXPECT_EQ(section.dsBmih.biCompression, compression);
        EXPECT_EQ(section.dsBmih.biClrUsed, colors);
        EXPECT_EQ(section.dsBitfields[0], red);
        DeleteObject(bitmap);
    }
}

TEST(Bitmaps, SectionsThatNobodyCanMeanAreRefusedAndLeaveNoPointer)
{
    DibInfo cases[] = {DibInfo(5, 3, 0),
                       DibInfo(5, 3, 2),
                       DibInfo(5, 3, 7),
                       DibInfo(5, 3, 64),
                       DibInfo(0, 3, 8),
                       DibInfo(-5, 3, 8),
                       DibInfo(5, 0, 8),
                       DibInfo(5, INT_MIN, 8),
                       DibInfo(INT_MAX, INT_MAX, 32),
                       DibInfo(65536, 65536, 32),
                       DibInfo(5, 3, 8, BI_RLE8),
                       DibInfo(5, 3, 4, BI_RLE4),
                       DibInfo(5, 3, 8, 4),
                       DibInfo::masked(5, 3, 16, 0, 0, 0),
                       DibInfo::masked(5, 3, 24, 0xff0000, 0xff00, 0xff)};
    for (const DibInfo &info : cases) {
        void *bits = &bits;
        EXPECT_EQ(createSection(info, &bits), nullptr) << info.header.biBitCount << " " << info.header.biWidth;
        EXPECT_EQ(bits, nullptr);
    }
    for (DWORD size : {0, 11, 13, 39}) {
        DibInfo info(5, 3, 8);
        info.header.biSize = size;
        void *bits;
        EXPECT_EQ(createSection(info, &bits), nullptr) << size;
    }
}

TEST(Bitmaps, HeadersOfOtherSizesHaveTheirColoursElsewhere)
{
    struct {
        DWORD size;
        bool hasMasks;
    } sizes[] = {{40, true}, {52, true}, {56, true}, {108, true}, {124, true}};
    for (auto [size, hasMasks] : sizes) {
        DibInfo info(2, 1, 8);
        info.header.biSize = size;
        reinterpret_cast<RGBQUAD *>(reinterpret_cast<char *>(&info) + size)[3] = {1, 2, 3, 0};
        void *bits;
        HBITMAP bitmap = createSection(info, &bits);
        HDC dc = CreateCompatibleDC(nullptr);
        HGDIOBJ initial = SelectObject(dc, bitmap);
        RGBQUAD color{};
        EXPECT_EQ(GetDIBColorTable(dc, 3, 1, &color), 1u);
        EXPECT_EQ(color.rgbRed, 3) << size;
        SelectObject(dc, initial);
        DeleteDC(dc);
        DeleteObject(bitmap);
        DibInfo masked = DibInfo::masked(2, 1, 32, 0xff, 0xff00, 0xff0000);
        masked.header.biSize = size;
        bitmap = createSection(masked, &bits);
        EXPECT_EQ(describedSection(bitmap).dsBitfields[2], 0xff0000u) << size;
        DeleteObject(bitmap);
    }
    struct {
        BITMAPCOREHEADER header{sizeof(BITMAPCOREHEADER), 3, 65535, 1, 4};
        RGBTRIPLE colors[16]{};
    } core;
    core.colors[2] = {1, 2, 3};
    HDC dc = CreateCompatibleDC(nullptr);
    void *bits;
    HBITMAP bitmap = CreateDIBSection(dc, reinterpret_cast<BITMAPINFO *>(&core), DIB_RGB_COLORS, &bits, nullptr, 0);
    EXPECT_EQ(described(bitmap).bmHeight, 65535);
    HGDIOBJ initial = SelectObject(dc, bitmap);
    RGBQUAD color{};
    GetDIBColorTable(dc, 2, 1, &color);
    EXPECT_EQ(color.rgbBlue, 1);
    EXPECT_EQ(color.rgbRed, 3);
    SelectObject(dc, initial);
    DeleteDC(dc);
    DeleteObject(bitmap);
}

TEST(Bitmaps, CompatibleBitmapsFollowWhatIsSelected)
{
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP monochrome = CreateCompatibleBitmap(dc, 7, 4);
    EXPECT_EQ(described(monochrome).bmBitsPixel, 1);
    void *bits;
    HBITMAP section = createSection(DibInfo::gray(5, -3, 8), &bits);
    HGDIOBJ initial = SelectObject(dc, section);
    RGBQUAD special{9, 8, 7, 0}, color{};
    SetDIBColorTable(dc, 3, 1, &special);
    HBITMAP like = CreateCompatibleBitmap(dc, 7, 4);
    EXPECT_EQ(describedSection(like).dsBm.bmWidthBytes, 8);
    SelectObject(dc, like);
    GetDIBColorTable(dc, 3, 1, &color);
    EXPECT_EQ(color.rgbRed, 7);
    PatBlt(dc, 0, 0, 7, 1, WHITENESS);
    auto first = static_cast<uint8_t *>(describedSection(like).dsBm.bmBits);
    EXPECT_EQ(first[0], 0) << "its rows go upwards";
    EXPECT_EQ(first[3 * 8], 255);
    SelectObject(dc, initial);
    for (HBITMAP bitmap : {monochrome, section, like})
        DeleteObject(bitmap);
    DeleteDC(dc);
}

TEST(Bitmaps, BytesGoInAndOutFromTheTopInRowsOfWords)
{
    uint8_t given[64], got[64];
    for (int i = 0; i < 64; ++i)
        given[i] = static_cast<uint8_t>(i + 1);
    for (int height : {3, -3}) {
        void *bits;
        HBITMAP bitmap = createSection(DibInfo::gray(6, height, 8), &bits);
        EXPECT_EQ(GetBitmapBits(bitmap, 0, nullptr), 18);
        EXPECT_EQ(SetBitmapBits(bitmap, 13, given), 13);
        EXPECT_EQ(GetBitmapBits(bitmap, sizeof got, got), 18);
        EXPECT_EQ(memcmp(got, given, 13), 0);
        EXPECT_EQ(got[13], 0);
        auto rows = static_cast<uint8_t *>(bits);
        EXPECT_EQ(rows[height < 0 ? 0 : 16], 1);
        EXPECT_EQ(rows[height < 0 ? 16 : 0], 13);
        EXPECT_EQ(SetBitmapBits(bitmap, sizeof given, given), 18);
        EXPECT_EQ(GetBitmapBits(bitmap, 7, got), 7);
        EXPECT_EQ(SetBitmapBits(bitmap, 18, nullptr), 0);
        DeleteObject(bitmap);
        EXPECT_EQ(GetBitmapBits(bitmap, 7, got), 0);
    }
    WORD rows[] = {0x34f2, 0x78ff};
    HBITMAP bitmap = CreateBitmap(12, 2, 1, 1, rows);
    EXPECT_EQ(GetBitmapBits(bitmap, sizeof got, got), 4);
    EXPECT_EQ(got[0], 0xf2);
    EXPECT_EQ(got[1], 0x30) << "nothing behind the last pixel";
    EXPECT_EQ(got[3], 0x70);
    DeleteObject(bitmap);
}

TEST(Bitmaps, ColorTablesAreCutToTheirEntries)
{
    HDC dc = CreateCompatibleDC(nullptr);
    void *bits;
    HBITMAP bitmap = createSection(DibInfo::gray(5, 3, 4), &bits);
    HGDIOBJ initial = SelectObject(dc, bitmap);
    RGBQUAD colors[300]{};
    EXPECT_EQ(GetDIBColorTable(dc, 0, 300, colors), 16u);
    EXPECT_EQ(colors[15].rgbGreen, 15);
    EXPECT_EQ(GetDIBColorTable(dc, 14, UINT_MAX, colors), 2u);
    EXPECT_EQ(colors[0].rgbGreen, 14);
    EXPECT_EQ(GetDIBColorTable(dc, 16, 1, colors), 0u);
    EXPECT_EQ(GetDIBColorTable(dc, UINT_MAX, 2, colors), 0u);
    EXPECT_EQ(SetDIBColorTable(dc, 15, 5, colors + 2), 1u);
    EXPECT_EQ(GetDIBColorTable(dc, 15, 1, colors), 1u);
    EXPECT_EQ(colors[0].rgbGreen, 2);
    SelectObject(dc, initial);
    EXPECT_EQ(GetDIBColorTable(dc, 0, 2, colors), 0u);
    EXPECT_EQ(SetDIBColorTable(dc, 0, 2, colors), 0u);
    DeleteDC(dc);
    EXPECT_EQ(GetDIBColorTable(dc, 0, 2, colors), 0u);
    DeleteObject(bitmap);
}

TEST(Bitmaps, ColoursThatChangeChangeWhatIsDrawn)
{
    Canvas canvas(2, 1, 32), indexed(2, 1, {.depth = 8, .colors = {{1, 1, 1, 0}, {2, 2, 2, 0}}});
    indexed.setPixels({0, 1});
    BitBlt(canvas.dc, 0, 0, 2, 1, indexed.dc, 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.pixels(), (std::vector<uint32_t>{0x010101, 0x020202}));
    RGBQUAD color{3, 2, 1, 0};
    SetDIBColorTable(indexed.dc, 1, 1, &color);
    BitBlt(canvas.dc, 0, 0, 2, 1, indexed.dc, 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.pixels(), (std::vector<uint32_t>{0x010101, 0x010203}));
}

TEST(Bitmaps, PatternBrushesKeepTheirOwnCopy)
{
    Canvas canvas(10, 2, 32);
    DWORD pixels[] = {1, 2, 3, 4, 5, 6};
    void *bits;
    HBITMAP bitmap = createSection(DibInfo(3, -2, 32), &bits);
    memcpy(bits, pixels, sizeof pixels);
    HBRUSH brush = CreatePatternBrush(bitmap);
    memset(bits, 0, sizeof pixels);
    DeleteObject(bitmap);
    struct {
        DibInfo info = DibInfo(3, 2, 32);
    } packed;
    packed.info.header.biClrUsed = 0;
    memcpy(packed.info.colors, pixels + 3, 12);
    memcpy(packed.info.colors + 3, pixels, 12);
    HBRUSH dibBrush = CreateDIBPatternBrushPt(&packed, DIB_RGB_COLORS);
    memset(packed.info.colors, 0, sizeof packed.info.colors);
    for (HBRUSH each : {brush, dibBrush}) {
        HGDIOBJ old = SelectObject(canvas.dc, each);
        canvas.clear();
        PatBlt(canvas.dc, 0, 0, 10, 2, PATCOPY);
        EXPECT_EQ(canvas.rows({{1, 'a'}, {2, 'b'}, {3, 'c'}, {4, 'd'}, {5, 'e'}, {6, 'f'}}),
                  (std::vector<std::string>{"abcabcabca", "defdefdefd"}));
        SelectObject(canvas.dc, old);
        DeleteObject(each);
    }
    packed.info.header.biBitCount = 7;
    EXPECT_EQ(CreateDIBPatternBrushPt(&packed, DIB_RGB_COLORS), nullptr);
}

TEST(Bitmaps, CreateDIBitmapMakesADeviceBitmapWithThePicture)
{
    Canvas screenLike(1, 1, 32);
    DWORD pixels[] = {1, 2, 3, 4};
    DibInfo info(2, -2, 32);
    HDC screen = CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    HBITMAP bitmap = CreateDIBitmap(screen, &info.header, CBM_INIT, pixels, info.get(), DIB_RGB_COLORS);
    EXPECT_EQ(described(bitmap).bmBits, nullptr);
    DWORD got[4]{};
    EXPECT_EQ(GetBitmapBits(bitmap, sizeof got, got), 16);
    EXPECT_EQ(got[0], 1u);
    EXPECT_EQ(got[3], 4u);
    DeleteObject(bitmap);
    bitmap = CreateDIBitmap(nullptr, &info.header, 0, nullptr, nullptr, DIB_RGB_COLORS);
    EXPECT_EQ(described(bitmap).bmBitsPixel, 1);
    DeleteObject(bitmap);
    EXPECT_EQ(CreateDIBitmap(screen, nullptr, 0, nullptr, nullptr, DIB_RGB_COLORS), nullptr);
    EXPECT_EQ(CreateDIBitmap(screen, &info.header, CBM_INIT, pixels, info.get(), 5), nullptr);
    info.header.biBitCount = 7;
    EXPECT_EQ(CreateDIBitmap(screen, &info.header, CBM_INIT, pixels, info.get(), DIB_RGB_COLORS), nullptr);
    info.header.biWidth = -2;
    EXPECT_EQ(CreateDIBitmap(screen, &info.header, 0, nullptr, nullptr, DIB_RGB_COLORS), nullptr);
    DeleteDC(screen);
}

TEST(Bitmaps, ResourcesBecomeBitmapsOfTheScreenOrOfOneBit)
{
    HBITMAP colored = LoadBitmapA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(40));
    HBITMAP blackAndWhite = LoadBitmapA(GetModuleHandleA(nullptr), "GLYPH");
    EXPECT_EQ(described(colored).bmWidth, 2);
    EXPECT_NE(described(colored).bmBitsPixel, 1);
    DWORD pixels[4]{};
    DibInfo info(2, -2, 32);
    HDC dc = CreateCompatibleDC(nullptr);
    EXPECT_EQ(GetDIBits(dc, colored, 0, 2, pixels, info.get(), DIB_RGB_COLORS), 2);
    EXPECT_EQ(std::vector<DWORD>(pixels, pixels + 4), (std::vector<DWORD>{0xff0000, 0x00ff00, 0x0000ff, 0xffffff}));
    EXPECT_EQ(described(blackAndWhite).bmBitsPixel, 1);
    uint8_t rows[4];
    EXPECT_EQ(GetBitmapBits(blackAndWhite, 4, rows), 4);
    EXPECT_EQ(rows[0], 0xa0);
    EXPECT_EQ(rows[2], 0x50);
    EXPECT_EQ(LoadBitmapA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(4711)), nullptr);
    DeleteDC(dc);
    DeleteObject(colored);
    DeleteObject(blackAndWhite);
}

} // namespace
