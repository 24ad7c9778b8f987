// DIBs in the caller's memory: lines, positions, depths, colours and encodings, against slow references.
#include "Dibs.h"
#include "SlowPixels.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

constexpr uint32_t untouched = 0x999999;

// Pixels of 32 bits that tell their memory row and column.
std::vector<uint32_t> numberedPixels(int width, int rows)
{
    std::vector<uint32_t> pixels;
    for (int row = 0; row < rows; ++row)
        for (int x = 0; x < width; ++x)
            pixels.push_back(static_cast<uint32_t>((row + 1) << 8 | x));
    return pixels;
}

// A picture whose pixels are known by row from the top, whatever the order in memory.
struct SlowPicture {
    SlowPicture(int pictureWidth, int pictureHeight, bool topDown)
        : width(pictureWidth), height(pictureHeight), isTopDown(topDown), info(width, isTopDown ? -height : height, 32),
          pixels(numberedPixels(width, height))
    {
    }
    bool has(int x, int y) const { return x >= 0 && x < width && y >= 0 && y < height; }
    uint32_t at(int x, int y) const
    {
        return pixels[static_cast<size_t>((isTopDown ? y : height - 1 - y) * width + x)];
    }

    int width, height;
    bool isTopDown;
    DibInfo info;
    std::vector<uint32_t> pixels;
};

class RandomNumbers {
public:
    explicit RandomNumbers(unsigned seed) : engine_(seed) {}
    int operator()(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    std::mt19937 &engine() { return engine_; }

private:
    std::mt19937 engine_;
};

// The row of the picture that comes first, when rows are counted from the bottom.
int firstRow(const SlowPicture &picture, int sourceX, int sourceY, int sourceWidth, int sourceHeight, int width,
             int height)
{
    bool isFromTop =
        picture.isTopDown && sourceX == 0 && sourceY == 0 && sourceWidth == width && sourceHeight == height;
    return isFromTop ? 0 : picture.height - sourceY - sourceHeight;
}

TEST(Dibs, StretchDIBitsCountsSourceRowsFromTheBottomAndMirrorsNegativeSizes)
{
    Canvas canvas(12, 10, 32);
    unsigned seed = std::random_device{}();
    RandomNumbers random(seed);
    for (int round = 0; round < 2000; ++round) {
        SlowPicture picture(random(1, 6), random(1, 6), random(0, 1));
        int width = random(1, picture.width), height = random(1, picture.height), x = random(-3, 9), y = random(-3, 8);
        int sourceX = random(-2, picture.width - 1), sourceY = random(-2, picture.height - 1);
        int sourceWidth = width, sourceHeight = height;
        if (random(0, 3) == 0)
            sourceX = sourceY = 0;
        if (int mirrored = random(0, 5); mirrored < 3) {
            sourceX = random(0, picture.width - width);
            sourceY = random(0, picture.height - height);
            if (mirrored == 0)
                width = -width;
            else if (mirrored == 1)
                height = -height;
            else
                sourceX += sourceWidth - 1, sourceWidth = -sourceWidth;
        }
        canvas.clear(untouched);
        StretchDIBits(canvas.dc, x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight,
                      picture.pixels.data(), picture.info.get(), DIB_RGB_COLORS, SRCCOPY);
        std::vector<uint32_t> expected(12 * 10, untouched);
        int top = firstRow(picture, sourceX, sourceY, sourceWidth, sourceHeight, width, height);
        for (int j = 0; j < std::abs(height); ++j) {
            for (int i = 0; i < std::abs(width); ++i) {
                int toX = width > 0 ? x + i : x - i, toY = height > 0 ? y + j : y - j;
                int fromX = sourceWidth > 0 ? sourceX + i : sourceX - i;
                if (toX >= 0 && toX < 12 && toY >= 0 && toY < 10 && picture.has(fromX, top + j))
                    expected[static_cast<size_t>(toY * 12 + toX)] = picture.at(fromX, top + j);
            }
        }
        ASSERT_EQ(canvas.pixels(), expected) << "seed " << seed << " round " << round;
    }
}

TEST(Dibs, StretchDIBitsReportsAllLinesUnlessNothingIsAskedFor)
{
    Canvas canvas(4, 4, 32);
    SlowPicture picture(4, 5, false);
    auto draw = [&](int width, int sourceX, int sourceWidth, const BITMAPINFO *info) {
        return StretchDIBits(canvas.dc, 0, 0, width, 5, sourceX, 0, sourceWidth, 5, picture.pixels.data(), info,
                             DIB_RGB_COLORS, SRCCOPY);
    };
    EXPECT_EQ(draw(2, 0, 2, picture.info.get()), 5);
    EXPECT_EQ(draw(0, 0, 2, picture.info.get()), 5);
    EXPECT_EQ(draw(2, 0, 0, picture.info.get()), 0);
    EXPECT_EQ(draw(2, 4, 2, picture.info.get()), 0);
    picture.info.header.biBitCount = 7;
    EXPECT_EQ(draw(2, 0, 2, picture.info.get()), 0);
    picture.info.header.biBitCount = 32;
    picture.info.header.biPlanes = 0;
    EXPECT_EQ(draw(2, 0, 2, picture.info.get()), 0);
}

TEST(Dibs, RasterCodesAndTheBrushTakePartInStretchDIBits)
{
    Canvas canvas(2, 1, 32);
    DWORD pixels[] = {0x0f0f0f, 0xf0f0f0};
    DibInfo info(2, 1, 32);
    auto draw = [&](DWORD rop) {
        canvas.setPixels({0x333333, 0x333333});
        StretchDIBits(canvas.dc, 0, 0, 2, 1, 0, 0, 2, 1, pixels, info.get(), DIB_RGB_COLORS, rop);
        return canvas.pixels();
    };
    EXPECT_EQ(draw(SRCINVERT), (std::vector<uint32_t>{0x3c3c3c, 0xc3c3c3}));
    EXPECT_EQ(draw(SRCAND), (std::vector<uint32_t>{0x030303, 0x303030}));
    EXPECT_EQ(draw(PATCOPY), (std::vector<uint32_t>{0xffffff, 0xffffff}));
    EXPECT_EQ(draw(WHITENESS)[1] & 0xffffff, 0xffffffu) << "needs neither picture nor brush";
    EXPECT_EQ(draw(DSTINVERT)[1] & 0xffffff, 0xccccccu);
    HBRUSH brush = CreateSolidBrush(RGB(0x55, 0x55, 0x55));
    HGDIOBJ old = SelectObject(canvas.dc, brush);
    EXPECT_EQ(draw(MERGECOPY), (std::vector<uint32_t>{0x050505, 0x505050}));
    SelectObject(canvas.dc, old);
    DeleteObject(brush);
}

TEST(Dibs, LinesOfSetDIBitsToDeviceLieWhereTheirNumbersPutThem)
{
    Canvas canvas(9, 12, 32);
    unsigned seed = std::random_device{}();
    RandomNumbers random(seed);
    for (int round = 0; round < 2000; ++round) {
        SlowPicture picture(random(1, 5), random(1, 6), random(0, 1));
        int start = random(0, picture.height - 1);
        int lines = random(1, picture.isTopDown ? picture.height : picture.height + 3);
        int given = picture.isTopDown ? lines : std::min(lines, picture.height - start);
        int x = random(-2, 8), y = random(-2, 8), width = random(1, 6), height = random(1, 7);
        int sourceX = random(-2, 4), sourceY = random(-2, 6);
        canvas.clear(untouched);
        int shown = SetDIBitsToDevice(canvas.dc, x, y, static_cast<DWORD>(width), static_cast<DWORD>(height), sourceX,
                                      sourceY, static_cast<UINT>(start), static_cast<UINT>(lines),
                                      picture.pixels.data(), picture.info.get(), DIB_RGB_COLORS);
        int expectedLines = picture.isTopDown ? given : std::clamp(sourceY + height - start, 0, given);
        if (sourceY >= start + given)
            expectedLines = 0;
        if (sourceX >= 0 && sourceX < picture.width) {
            EXPECT_EQ(shown, expectedLines) << "seed " << seed << " round " << round;
        }
        std::vector<uint32_t> expected(9 * 12, untouched);
        for (int j = 0; j < height; ++j) {
            for (int i = 0; i < width; ++i) {
                // Rows of the lines given, from the top.
                int row = start + given - (sourceY + height) + j;
                int memoryRow = picture.isTopDown ? row : given - 1 - row;
                int toX = x + i, toY = y + j, fromX = sourceX + i;
                if (toX >= 0 && toX < 9 && toY >= 0 && toY < 12 && fromX >= 0 && fromX < picture.width && row >= 0
                    && row < given)
                    expected[static_cast<size_t>(toY * 9 + toX)] =
                        picture.pixels[static_cast<size_t>(memoryRow * picture.width + fromX)];
            }
        }
        ASSERT_EQ(canvas.pixels(), expected) << "seed " << seed << " round " << round;
    }
}

TEST(Dibs, LinesOfSetDIBitsAndGetDIBitsAreNumberedFromTheBottom)
{
    unsigned seed = std::random_device{}();
    RandomNumbers random(seed);
    HDC dc = CreateCompatibleDC(nullptr);
    for (int round = 0; round < 1000; ++round) {
        constexpr int width = 3;
        int bitmapHeight = random(1, 6);
        Canvas canvas(width, bitmapHeight, {.depth = 32, .isBottomUp = random(0, 1) == 1});
        SlowPicture picture(random(1, 5), random(1, 7), random(0, 1));
        int start = random(0, picture.height - 1), lines = random(1, picture.height - start);
        canvas.clear(untouched);
        int set = SetDIBits(dc, canvas.bitmap, static_cast<UINT>(start), static_cast<UINT>(lines),
                            picture.pixels.data(), picture.info.get(), DIB_RGB_COLORS);
        EXPECT_EQ(set, lines);
        auto memoryRow = [&](int line) { return picture.isTopDown ? start + lines - 1 - line : line - start; };
        std::vector<uint32_t> expected(static_cast<size_t>(width * bitmapHeight), untouched);
        for (int line = start; line < start + lines; ++line)
            for (int x = 0; x < std::min(width, picture.width); ++x)
                if (int y = picture.height - 1 - line; y < bitmapHeight)
                    expected[static_cast<size_t>(y * width + x)] =
                        picture.pixels[static_cast<size_t>(memoryRow(line) * picture.width + x)];
        ASSERT_EQ(canvas.pixels(), expected) << "seed " << seed << " round " << round;

        canvas.setPixels(numberedPixels(width, bitmapHeight));
        std::vector<uint32_t> source = canvas.pixels();
        std::vector<uint32_t> got(static_cast<size_t>(picture.width * picture.height), untouched);
        int read = GetDIBits(dc, canvas.bitmap, static_cast<UINT>(start), static_cast<UINT>(lines), got.data(),
                             picture.info.get(), DIB_RGB_COLORS);
        std::vector<uint32_t> wanted(got.size(), untouched);
        int valid = 0;
        for (int line = start; line < start + lines; ++line) {
            int y = picture.height - 1 - line;
            valid += y < bitmapHeight;
            for (int x = 0; x < picture.width; ++x)
                wanted[static_cast<size_t>(memoryRow(line) * picture.width + x)] =
                    x < width && y < bitmapHeight ? source[static_cast<size_t>(y * width + x)] : 0;
        }
        EXPECT_EQ(read, valid) << "seed " << seed << " round " << round;
        if (valid > 0) {
            ASSERT_EQ(got, wanted) << "seed " << seed << " round " << round;
        }
    }
    DeleteDC(dc);
}

TEST(Dibs, LinesThatAreNotThereAreNotTouched)
{
    Canvas canvas(2, 5, 32);
    SlowPicture picture(2, 5, false);
    HDC dc = CreateCompatibleDC(nullptr);
    canvas.clear(untouched);
    EXPECT_EQ(SetDIBits(dc, canvas.bitmap, 5, 1, picture.pixels.data(), picture.info.get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(SetDIBits(dc, canvas.bitmap, 0, 0, picture.pixels.data(), picture.info.get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(SetDIBits(dc, canvas.bitmap, 3, UINT_MAX, picture.pixels.data(), picture.info.get(), DIB_RGB_COLORS), 2);
    EXPECT_EQ(canvas.pixel(0, 2), untouched);
    EXPECT_EQ(canvas.pixel(0, 1), picture.pixels[0]);
    DWORD got[10]{};
    EXPECT_EQ(GetDIBits(dc, canvas.bitmap, 3, UINT_MAX, got, picture.info.get(), DIB_RGB_COLORS), 2);
    EXPECT_EQ(got[0], picture.pixels[0]);
    EXPECT_EQ(got[4], 0u);
    EXPECT_EQ(SetDIBits(dc, nullptr, 0, 5, got, picture.info.get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(SetDIBits(dc, canvas.bitmap, 0, 5, got, picture.info.get(), 2), 0);
    DeleteDC(dc);
    EXPECT_EQ(GetDIBits(dc, canvas.bitmap, 0, 5, got, picture.info.get(), DIB_RGB_COLORS), 0);
}

// Formats whose tables, when they have one, hold the sixteen plain colours first.
std::vector<CanvasFormat> plainFormats()
{
    std::vector<RGBQUAD> colors(256, RGBQUAD{0x40, 0xa0, 0x40, 0});
    const int levels[] = {0, 0x80, 0xc0, 0xff};
    for (int i = 0; i < 16; ++i) {
        int on = i < 8 ? levels[1] : levels[3];
        colors[i] = {static_cast<BYTE>(i & 4 ? on : 0), static_cast<BYTE>(i & 2 ? on : 0),
                     static_cast<BYTE>(i & 1 ? on : 0), 0};
    }
    colors[8] = {0xc0, 0xc0, 0xc0, 0};
    auto first = [&](size_t count) { return std::vector<RGBQUAD>(colors.begin(), colors.begin() + count); };
    return {CanvasFormat::monochrome(),
            {.depth = 1, .colors = {colors[1], colors[15]}, .isBottomUp = true},
            {.depth = 4, .colors = first(16)},
            {.depth = 8, .colors = first(256), .isBottomUp = true},
            {.depth = 16},
            {.depth = 16, .masks = {0xf800, 0x07e0, 0x001f}, .isBottomUp = true},
            {.depth = 24},
            {.depth = 32, .isBottomUp = true},
            {.depth = 32, .masks = {0x0000ff, 0x00ff00, 0xff0000}}};
}

DibInfo infoOf(const CanvasFormat &format, int width, int height)
{
    DibInfo info(width, format.isBottomUp ? height : -height, format.depth);
    if (format.masks[0])
        info = DibInfo::masked(width, info.header.biHeight, format.depth, format.masks[0], format.masks[1],
                               format.masks[2]);
    else if (!format.colors.empty())
        memcpy(info.colors, format.colors.data(), format.colors.size() * sizeof(RGBQUAD));
    return info;
}

std::vector<uint8_t> packed(const CanvasFormat &format, const std::vector<uint32_t> &pixels, int width, int height)
{
    Canvas canvas(width, height, format);
    canvas.setPixels(pixels);
    DIBSECTION section;
    GetObjectA(canvas.bitmap, sizeof section, &section);
    auto bytes = static_cast<const uint8_t *>(section.dsBm.bmBits);
    return {bytes, bytes + section.dsBmih.biSizeImage};
}

TEST(Dibs, EveryDepthBecomesEveryOther)
{
    constexpr int width = 13, height = 3;
    unsigned seed = std::random_device{}();
    RandomNumbers random(seed);
    HDC dc = CreateCompatibleDC(nullptr);
    for (const CanvasFormat &from : plainFormats()) {
        if (from.isMonochromeBitmap)
            continue;
        std::vector<uint32_t> pixels;
        for (int i = 0; i < width * height; ++i)
            pixels.push_back(nearestPixel(from, colorOfPixel(plainFormats()[2], static_cast<uint32_t>(random(0, 15)))));
        std::vector<uint8_t> bytes = packed(from, pixels, width, height);
        DibInfo info = infoOf(from, width, height);
        for (const CanvasFormat &to : plainFormats()) {
            SCOPED_TRACE(testing::Message() << from.depth << " to " << to.depth << " seed " << seed);
            std::vector<uint32_t> expected;
            for (uint32_t pixel : pixels)
                expected.push_back(from.masks[0] == to.masks[0] && from.depth == to.depth && from.depth > 8
                                       ? pixel
                                       : nearestPixel(to, colorOfPixel(from, pixel)));
            Canvas canvas(width, height, to);
            EXPECT_EQ(SetDIBits(dc, canvas.bitmap, 0, height, bytes.data(), info.get(), DIB_RGB_COLORS), height);
            EXPECT_EQ(canvas.pixels(), expected);
            canvas.clear();
            SetDIBitsToDevice(canvas.dc, 0, 0, width, height, 0, 0, 0, height, bytes.data(), info.get(),
                              DIB_RGB_COLORS);
            EXPECT_EQ(canvas.pixels(), expected);
        }
    }
    DeleteDC(dc);
}

TEST(Dibs, GetDIBitsGivesEveryDepthWithItsColours)
{
    constexpr int width = 16;
    HDC dc = CreateCompatibleDC(nullptr);
    Canvas canvas(width, 1, 32);
    std::vector<uint32_t> plain;
    CanvasFormat sixteen = plainFormats()[2];
    for (uint32_t i = 0; i < width; ++i)
        plain.push_back(nearestPixel(canvas.format(), colorOfPixel(sixteen, i)));
    canvas.setPixels(plain);
    for (int depth : {1, 4, 8, 16, 24, 32}) {
        DibInfo info(width, 1, depth);
        info.header.biClrUsed = 3;
        std::vector<uint8_t> bytes(64);
        EXPECT_EQ(GetDIBits(dc, canvas.bitmap, 0, 1, bytes.data(), info.get(), DIB_RGB_COLORS), 1);
        EXPECT_EQ(info.header.biSizeImage, info.stride());
        EXPECT_EQ(info.header.biClrUsed, 0u);
        if (depth == 1) {
            EXPECT_EQ(bytes[0] << 8 | bytes[1], 0x0197) << "black or white, whichever is nearer";
        }
        // The picture shows the same colours again.
        Canvas again(width, 1, 32);
        SetDIBits(dc, again.bitmap, 0, 1, bytes.data(), info.get(), DIB_RGB_COLORS);
        if (depth != 1 && depth != 16) {
            EXPECT_EQ(again.pixels(), plain) << depth;
        }
    }
    DibInfo info(width, 1, 8);
    EXPECT_EQ(GetDIBits(dc, canvas.bitmap, 0, 1, nullptr, info.get(), DIB_RGB_COLORS), TRUE);
    EXPECT_EQ(memcmp(&info.colors[9], "\xf0\xca\xa6", 3), 0);
    EXPECT_EQ(memcmp(&info.colors[0x51], "\x40\x40\x20", 3), 0);
    EXPECT_EQ(memcmp(&info.colors[246], "\xf0\xfb\xff", 3), 0);
    DeleteDC(dc);
}

TEST(Dibs, AQuestionIsAnsweredWithTheNearestFormat)
{
    HDC dc = CreateCompatibleDC(nullptr);
    struct {
        DibInfo info;
        DWORD compression;
    } cases[] = {{DibInfo(5, -3, 1), BI_RGB},
                 {DibInfo(5, 3, 8), BI_RGB},
                 {DibInfo(5, 3, 16), BI_BITFIELDS},
                 {DibInfo(5, -3, 24), BI_RGB},
                 {DibInfo(5, -3, 32), BI_BITFIELDS}};
    for (auto &[info, compression] : cases) {
        void *bits;
        HBITMAP bitmap = createSection(info, &bits);
        DibInfo asked;
        memset(asked.get(), 0xcc, sizeof asked);
        asked.header.biSize = sizeof asked.header;
        asked.header.biBitCount = 0;
        EXPECT_EQ(GetDIBits(dc, bitmap, 0, 0, nullptr, asked.get(), DIB_RGB_COLORS), 3);
        EXPECT_EQ(asked.header.biWidth, 5);
        EXPECT_EQ(asked.header.biHeight, 3);
        EXPECT_EQ(asked.header.biBitCount, info.header.biBitCount);
        EXPECT_EQ(asked.header.biCompression, compression);
        EXPECT_EQ(asked.header.biSizeImage, info.stride() * 3);
        EXPECT_EQ(asked.header.biClrUsed, 0u);
        EXPECT_EQ(asked.colors[0].rgbRed, 0xcc);
        BITMAPCOREHEADER core{sizeof core, 0, 0, 0, 0};
        EXPECT_EQ(GetDIBits(dc, bitmap, 0, 0, nullptr, reinterpret_cast<BITMAPINFO *>(&core), DIB_RGB_COLORS), 3);
        EXPECT_EQ(core.bcBitCount, info.header.biBitCount);
        DeleteObject(bitmap);
    }
    void *bits;
    HBITMAP bitmap = createSection(DibInfo::masked(5, 3, 16, 0xf800, 0x7e0, 0x1f), &bits);
    DibInfo masked(5, 3, 16, BI_BITFIELDS);
    EXPECT_EQ(GetDIBits(dc, bitmap, 0, 3, nullptr, masked.get(), DIB_RGB_COLORS), TRUE);
    DWORD green;
    memcpy(&green, &masked.colors[1], sizeof green);
    EXPECT_EQ(green, 0x7e0u);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

TEST(Dibs, WhiteAloneBecomesOneWhenAPictureIsStretchedOntoOneBit)
{
    Canvas canvas(4, 1, CanvasFormat::monochrome());
    DWORD pixels[] = {0xffffff, 0xfefefe, 0x000000, 0xffffff};
    DibInfo info(4, 1, 32);
    SetBkColor(canvas.dc, RGB(0, 0, 0));
    StretchDIBits(canvas.dc, 0, 0, 4, 1, 0, 0, 4, 1, pixels, info.get(), DIB_RGB_COLORS, SRCCOPY);
    EXPECT_EQ(canvas.rows(), std::vector<std::string>{"#..#"});
    SetDIBitsToDevice(canvas.dc, 0, 0, 4, 1, 0, 0, 0, 1, pixels, info.get(), DIB_RGB_COLORS);
    EXPECT_EQ(canvas.rows(), std::vector<std::string>{"##.#"});
}

TEST(Dibs, PaletteIndicesGoRoundInThePaletteOfTheContext)
{
    struct {
        LOGPALETTE palette{0x300, 3, {{0x10, 0, 0, 0}}};
        PALETTEENTRY more[2]{{0x20, 0, 0, 0}, {0x30, 0, 0, 0}};
    } logical;
    HPALETTE palette = CreatePalette(&logical.palette);
    Canvas canvas(4, 1, 32);
    HPALETTE old = SelectPalette(canvas.dc, palette, FALSE);
    DibInfo info(4, 1, 4);
    WORD indices[16]{2, 1, 0, 65534};
    memcpy(info.colors, indices, sizeof indices);
    const uint8_t pixels[4] = {0x01, 0x23};
    StretchDIBits(canvas.dc, 0, 0, 4, 1, 0, 0, 4, 1, pixels, info.get(), DIB_PAL_COLORS, SRCCOPY);
    EXPECT_EQ(canvas.pixels(), (std::vector<uint32_t>{0x300000, 0x200000, 0x100000, 0x300000}));
    void *bits;
    EXPECT_EQ(createSection(info, &bits, DIB_PAL_COLORS), nullptr);
    HBITMAP section = createSection(info, &bits, DIB_PAL_COLORS, canvas.dc);
    EXPECT_NE(section, nullptr);
    EXPECT_EQ(GetDIBits(canvas.dc, section, 0, 1, nullptr, info.get(), DIB_PAL_COLORS), TRUE);
    memcpy(indices, info.colors, sizeof indices);
    EXPECT_EQ(indices[15], 15);
    SelectPalette(canvas.dc, old, FALSE);
    DeleteObject(section);
    DeleteObject(palette);
}

// Random code of either encoding, and what it sets: the pixels by row from the top, -1 where nothing is set.
struct RandomCode {
    RandomCode(RandomNumbers &random, bool isFour, int codeWidth, int codeHeight)
        : width(codeWidth), height(codeHeight), pixels(static_cast<size_t>(width * height), -1), isFour_(isFour)
    {
        for (int line = 0; line < height;) {
            int x = 0;
            while (x < width && random(0, 4)) {
                int room = width - x;
                if (random(0, 1) && room >= 3)
                    x = plain(random, x, line, random(3, room));
                else
                    x = run(random, x, line, random(1, room));
            }
            int rows = random(0, 3) ? 1 : std::min(2, height - line);
            bool isJump = random(0, 2) == 0 && line + rows < height && x < width;
            if (isJump)
                line = jump(random, x, line, rows);
            else
                ++line;
            bytes.insert(bytes.end(), {0, 0});
        }
        bytes.insert(bytes.end(), {0, 1});
    }

    int width, height;
    std::vector<uint8_t> bytes;
    std::vector<int> pixels;

private:
    void set(int x, int line, int pixel) { pixels[static_cast<size_t>((height - 1 - line) * width + x)] = pixel; }

    int run(RandomNumbers &random, int x, int line, int count)
    {
        int value = random(0, 255);
        bytes.insert(bytes.end(), {static_cast<uint8_t>(count), static_cast<uint8_t>(value)});
        for (int i = 0; i < count; ++i)
            set(x + i, line, isFour_ ? (i & 1 ? value & 15 : value >> 4) : value);
        return x + count;
    }
    int plain(RandomNumbers &random, int x, int line, int count)
    {
        bytes.insert(bytes.end(), {0, static_cast<uint8_t>(count)});
        size_t begin = bytes.size();
        for (int i = 0; i < count; ++i) {
            int value = random(0, isFour_ ? 15 : 255);
            set(x + i, line, value);
            if (!isFour_ || i % 2 == 0)
                bytes.push_back(static_cast<uint8_t>(isFour_ ? value << 4 : value));
            else
                bytes.back() = static_cast<uint8_t>(bytes.back() | value);
        }
        if ((bytes.size() - begin) % 2)
            bytes.push_back(0);
        return x + count;
    }
    // To a later row, and one pixel there.
    int jump(RandomNumbers &random, int x, int line, int rows)
    {
        int right = random(0, width - 1 - x);
        bytes.insert(bytes.end(), {0, 2, static_cast<uint8_t>(right), static_cast<uint8_t>(rows)});
        run(random, x + right, line + rows, 1);
        return line + rows + 1;
    }

    bool isFour_;
};

TEST(Dibs, RunLengthsAreDecodedAndWhatTheySkipStays)
{
    unsigned seed = std::random_device{}();
    RandomNumbers random(seed);
    for (int round = 0; round < 500; ++round) {
        bool isFour = random(0, 1);
        RandomCode code(random, isFour, random(1, 20), random(1, 8));
        DibInfo info = DibInfo::gray(code.width, code.height, isFour ? 4 : 8);
        info.header.biCompression = isFour ? BI_RLE4 : BI_RLE8;
        info.header.biSizeImage = static_cast<DWORD>(code.bytes.size());
        Canvas canvas(22, 10, 32);
        std::vector<uint32_t> expected(22 * 10, untouched);
        for (int y = 0; y < code.height; ++y)
            for (int x = 0; x < code.width; ++x)
                if (int pixel = code.pixels[static_cast<size_t>(y * code.width + x)]; pixel >= 0)
                    expected[static_cast<size_t>(y * 22 + x)] = static_cast<uint32_t>(pixel) * 0x010101;
        SCOPED_TRACE(testing::Message() << "seed " << seed << " round " << round);
        canvas.clear(untouched);
        EXPECT_EQ(StretchDIBits(canvas.dc, 0, 0, code.width, code.height, 0, 0, code.width, code.height,
                                code.bytes.data(), info.get(), DIB_RGB_COLORS, SRCCOPY),
                  code.height);
        ASSERT_EQ(canvas.pixels(), expected);
        canvas.clear(untouched);
        EXPECT_EQ(SetDIBits(canvas.dc, canvas.bitmap, 0, 1, code.bytes.data(), info.get(), DIB_RGB_COLORS),
                  code.height);
        ASSERT_EQ(canvas.pixels(), expected);
    }
}

TEST(Dibs, CodeWithoutASizeOrFromTheTopIsRefused)
{
    const uint8_t code[] = {4, 1, 0, 1};
    Canvas canvas(4, 1, 32);
    for (int height : {1, -1}) {
        DibInfo info(4, height, 8, BI_RLE8);
        info.header.biSizeImage = height < 0 ? sizeof code : 0;
        EXPECT_EQ(StretchDIBits(canvas.dc, 0, 0, 4, 1, 0, 0, 4, 1, code, info.get(), DIB_RGB_COLORS, SRCCOPY), 0);
    }
}

} // namespace
