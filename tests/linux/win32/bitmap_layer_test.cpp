// Bitmaps and DIBs when memory is short or the description lies, and where the layer decides by itself.
#include "Canvas.h"
#include "Dibs.h"
#include "TemporaryFolder.h"

#include <win32/control.h>

#include <gtest/gtest.h>

#include <functional>

namespace {

class BitmapLayer : public testing::Test {
protected:
    ~BitmapLayer() override { Win32Control_Reset(); }

    static SIZE_T heldMemory()
    {
        SIZE_T bytes, blocks;
        Win32Control_HeldMemory(&bytes, &blocks);
        return bytes;
    }
};

// Runs an operation again and again, each time with one allocation more before the one that is refused, until
// it needs no more. Whatever fails leaves nothing behind.
void refuseEach(const std::function<bool()> &operation)
{
    operation();
    DWORD objects = Win32Control_GdiObjects();
    SIZE_T bytes, blocks, bytesLater, blocksLater;
    Win32Control_HeldMemory(&bytes, &blocks);
    for (DWORD number = 1; number < 100; ++number) {
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, number, 1, 0);
        SetLastError(0);
        bool isDone = operation();
        DWORD counted = Win32Control_AllocationsCounted(WIN32_ALLOCATION_LAYER);
        Win32Control_AllowAllocations(WIN32_ALLOCATION_LAYER);
        Win32Control_HeldMemory(&bytesLater, &blocksLater);
        ASSERT_EQ(Win32Control_GdiObjects(), objects) << number;
        ASSERT_EQ(bytesLater, bytes) << number;
        if (counted < number)
            return;
        EXPECT_TRUE(isDone || GetLastError() == ERROR_NOT_ENOUGH_MEMORY) << number;
    }
    FAIL() << "it always needs more";
}

const uint8_t holedCode[] = {2, 1, 0, 0, 1, 2, 0, 2, 1, 1, 1, 3, 0, 1};

DibInfo holedPicture()
{
    DibInfo info = DibInfo::gray(4, 3, 8);
    info.header.biCompression = BI_RLE8;
    info.header.biSizeImage = sizeof holedCode;
    return info;
}

TEST_F(BitmapLayer, RefusedMemoryLeavesNothingBehind)
{
    void *bits;
    refuseEach([&] {
        HBITMAP bitmap = createSection(DibInfo::gray(40, 30, 8), &bits);
        return bitmap && DeleteObject(bitmap);
    });
    DWORD pixels[64]{};
    DibInfo info = DibInfo::gray(8, 8, 32);
    HDC screen = CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    refuseEach([&] {
        HBITMAP bitmap = CreateDIBitmap(screen, &info.header, CBM_INIT, pixels, info.get(), DIB_RGB_COLORS);
        return bitmap && DeleteObject(bitmap);
    });
    refuseEach([&] {
        HBRUSH brush = CreateDIBPatternBrushPt(&info, DIB_RGB_COLORS);
        return brush && DeleteObject(brush);
    });
    DeleteDC(screen);
    Canvas canvas(10, 10, 32);
    HRGN clip = CreateEllipticRgn(0, 0, 10, 10);
    SelectClipRgn(canvas.dc, clip);
    DeleteObject(clip);
    DibInfo holed = holedPicture();
    refuseEach([&] {
        return StretchDIBits(canvas.dc, 3, 3, 4, 3, 0, 0, 4, 3, holedCode, holed.get(), DIB_RGB_COLORS, SRCCOPY) == 3;
    });
    refuseEach([&] { return SetDIBits(canvas.dc, canvas.bitmap, 0, 3, holedCode, holed.get(), DIB_RGB_COLORS) == 3; });
}

TEST_F(BitmapLayer, ABitmapTooLargeForTheMemoryFails)
{
    Win32Control_PretendPhysicalMemory(64 << 20);
    void *bits = &bits;
    SIZE_T held = heldMemory();
    MEMORYSTATUSEX status;
    status.dwLength = sizeof status;
    GlobalMemoryStatusEx(&status);
    int height = static_cast<int>(status.ullTotalPageFile / 40000) + 1;
    SetLastError(0);
    EXPECT_EQ(createSection(DibInfo(10000, height, 32), &bits), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_ENOUGH_MEMORY));
    EXPECT_EQ(bits, nullptr);
    EXPECT_EQ(heldMemory(), held);
    Win32Control_PretendPhysicalMemory(0);
    HBITMAP bitmap = createSection(DibInfo(10000, 10, 32), &bits);
    EXPECT_NE(bitmap, nullptr);
    EXPECT_EQ(static_cast<DWORD *>(bits)[99999], 0u);
    DeleteObject(bitmap);
    EXPECT_EQ(heldMemory(), held);
}

TEST_F(BitmapLayer, DescriptionsThatContradictThemselvesAreRefused)
{
    DibInfo odd[] = {DibInfo::masked(5, 3, 16, 0xff00, 0x0ff0, 0x000f),
                     DibInfo::masked(5, 3, 16, 0xa000, 0x07e0, 0x001f),
                     DibInfo::masked(5, 3, 16, 0xff0000, 0xff00, 0xff), DibInfo::masked(5, 3, 32, 0xff, 0xff00, 0)};
    void *bits;
    for (const DibInfo &info : odd)
        EXPECT_EQ(createSection(info, &bits), nullptr);
    Canvas canvas(2, 2, 8);
    for (DWORD size : {41u, 60u, 128u, 1000u, 0x7fffffffu}) {
        DibInfo info(5, 3, 8);
        info.header.biSize = size;
        EXPECT_EQ(createSection(info, &bits), nullptr) << size;
        info.header.biBitCount = 0;
        EXPECT_EQ(GetDIBits(canvas.dc, canvas.bitmap, 0, 0, nullptr, info.get(), DIB_RGB_COLORS), 0);
    }
    DibInfo planes(5, 3, 8);
    planes.header.biPlanes = 2;
    EXPECT_EQ(createSection(planes, &bits), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    // Its pixels would lie gigabytes away.
    DibInfo far(5, 3, 24);
    far.header.biClrUsed = 0x3fffffff;
    EXPECT_EQ(CreateDIBPatternBrushPt(&far, DIB_RGB_COLORS), nullptr);
    DibInfo coded = holedPicture();
    EXPECT_EQ(CreateDIBPatternBrushPt(&coded, DIB_RGB_COLORS), nullptr);
    EXPECT_EQ(CreateDIBSection(nullptr, DibInfo(5, 3, 8).get(), DIB_RGB_COLORS, &bits, GetStockObject(BLACK_PEN), 0),
              nullptr);
}

// A compiled resource file with one bitmap.
std::string resourceFile(const std::string &dib)
{
    auto number = [](uint32_t value) { return std::string(reinterpret_cast<const char *>(&value), 4); };
    auto record = [&](const std::string &data, uint32_t type, uint32_t name) {
        return number(static_cast<uint32_t>(data.size())) + number(32) + number(type << 16 | 0xffff)
               + number(name << 16 | 0xffff) + std::string(16, '\0') + data + std::string(-data.size() & 3, '\0');
    };
    return record("", 0, 0) + record(dib, 2, 7);
}

TEST_F(BitmapLayer, DamagedBitmapResourcesAreNoBitmaps)
{
    TemporaryFolder folder("layer-bitmaps");
    struct {
        BITMAPINFOHEADER header = DibInfo(3, 2, 4).header;
        RGBQUAD colors[16]{};
        uint8_t rows[8]{};
    } dib;
    std::string whole(reinterpret_cast<const char *>(&dib), sizeof dib);
    for (size_t size : {size_t{0}, size_t{3}, size_t{12}, size_t{39}, size_t{40}, size_t{103}, size_t{104},
                        whole.size() - 1, whole.size()}) {
        std::string name = std::to_string(size) + ".res";
        folder.write(name, resourceFile(whole.substr(0, size)));
        HMODULE module = LoadLibraryExA(folder.path(name).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_NE(module, nullptr);
        HBITMAP bitmap = LoadBitmapA(module, MAKEINTRESOURCEA(7));
        EXPECT_EQ(bitmap != nullptr, size == whole.size()) << size;
        if (bitmap)
            DeleteObject(bitmap);
        FreeLibrary(module);
    }
}

TEST_F(BitmapLayer, OtherRasterCodesCountRowsFromTheBottomAlways)
{
    Canvas canvas(1, 1, 32);
    DWORD pixels[] = {1, 2, 3};
    DibInfo info(1, -3, 32);
    auto drawn = [&](DWORD rop) {
        canvas.clear();
        StretchDIBits(canvas.dc, 0, 0, 1, 1, 0, 0, 1, 1, pixels, info.get(), DIB_RGB_COLORS, rop);
        return canvas.pixel(0, 0);
    };
    EXPECT_EQ(drawn(SRCCOPY), 1u);
    EXPECT_EQ(drawn(SRCPAINT), 3u);
}

TEST_F(BitmapLayer, CodeThatEndsTooSoonIsDrawnAsFarAsItGoes)
{
    Canvas canvas(4, 2, 32);
    DibInfo info = DibInfo::gray(4, 2, 8);
    info.header.biCompression = BI_RLE8;
    const std::vector<uint8_t> codes[] = {
        {4, 1, 0, 0, 2}, {4, 1, 0, 0, 0, 4}, {9, 1, 0, 0, 0, 2, 1}, {4, 1, 0, 2, 0, 200, 4, 9}};
    for (const std::vector<uint8_t> &code : codes) {
        // In a block of its own, so that reading behind it shows.
        info.header.biSizeImage = static_cast<DWORD>(code.size());
        canvas.clear();
        EXPECT_EQ(StretchDIBits(canvas.dc, 0, 0, 4, 2, 0, 0, 4, 2, code.data(), info.get(), DIB_RGB_COLORS, SRCCOPY),
                  2);
        EXPECT_EQ(canvas.rows(), (std::vector<std::string>{"....", "####"}));
    }
    const std::vector<uint8_t> plain = {0, 4, 7, 8};
    info.header.biSizeImage = static_cast<DWORD>(plain.size());
    canvas.clear();
    StretchDIBits(canvas.dc, 0, 0, 4, 2, 0, 0, 4, 2, plain.data(), info.get(), DIB_RGB_COLORS, SRCCOPY);
    EXPECT_EQ(canvas.rows()[1], "##..");
}

} // namespace
