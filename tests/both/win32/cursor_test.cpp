// Cursors and icons of masks, modules, files and bytes, and drawing them.
#include "Canvas.h"
#include "CursorFiles.h"
#include "TemporaryFile.h"

#include <gtest/gtest.h>

namespace {

constexpr uint32_t paper = 0x336699, inverse = 0xCC9966;

// The colours of the corners of what DrawIcon draws on coloured paper.
struct Corners {
    uint32_t topLeft, topRight, bottomLeft, bottomRight;
    bool operator==(const Corners &) const = default;
};
void PrintTo(const Corners &c, std::ostream *out)
{
    *out << std::hex << c.topLeft << " " << c.topRight << " " << c.bottomLeft << " " << c.bottomRight << std::dec;
}

Corners drawn(HICON icon)
{
    Canvas canvas(40, 40);
    RECT all{0, 0, 40, 40};
    HBRUSH brush = CreateSolidBrush(RGB(0x33, 0x66, 0x99));
    FillRect(canvas.dc, &all, brush);
    DeleteObject(brush);
    EXPECT_TRUE(DrawIcon(canvas.dc, 4, 4, icon));
    auto at = [&](int x, int y) {
        COLORREF color = GetPixel(canvas.dc, x, y);
        return static_cast<uint32_t>(GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color));
    };
    EXPECT_EQ(at(3, 3), paper);
    EXPECT_EQ(at(36, 36), paper) << "icons are 32 pixels wide";
    return {at(4, 4), at(35, 4), at(4, 35), at(35, 35)};
}

HICON fromBytes(std::string bytes, bool isIcon, int side = 0)
{
    return CreateIconFromResourceEx(reinterpret_cast<PBYTE>(bytes.data()), static_cast<DWORD>(bytes.size()), isIcon, 0x00030000,
                                    side, side, 0);
}

TEST(Cursors, OfMasksAreBlackWhiteClearAndInverted)
{
    BYTE andMask[128], xorMask[128];
    for (int i = 0; i < 128; ++i) {
        andMask[i] = i < 64 ? 0 : 0xFF;
        xorMask[i] = i % 4 < 2 ? 0 : 0xFF;
    }
    HCURSOR cursor = CreateCursor(GetModuleHandleA(nullptr), 1, 2, 32, 32, andMask, xorMask);
    ASSERT_TRUE(cursor);
    EXPECT_EQ(drawn(cursor), (Corners{0, 0xFFFFFF, paper, inverse}));
    EXPECT_TRUE(DestroyCursor(cursor));
    EXPECT_FALSE(DestroyCursor(cursor));
    Canvas canvas(4, 4);
    EXPECT_FALSE(DrawIcon(canvas.dc, 0, 0, cursor));
}

TEST(Cursors, OfAModuleAreSharedAndStay)
{
    HINSTANCE module = GetModuleHandleA(nullptr);
    HCURSOR cursor = LoadCursorA(module, MAKEINTRESOURCEA(700));
    ASSERT_TRUE(cursor);
    EXPECT_EQ(drawn(cursor), (Corners{0, 0xFFFFFF, paper, inverse}));
    EXPECT_EQ(LoadCursorA(module, MAKEINTRESOURCEA(700)), cursor);
    DestroyCursor(cursor);
    EXPECT_EQ(drawn(cursor), (Corners{0, 0xFFFFFF, paper, inverse}));
    EXPECT_FALSE(LoadCursorA(module, MAKEINTRESOURCEA(701)));
    EXPECT_TRUE(LoadCursorA(nullptr, IDC_ARROW));
    EXPECT_TRUE(LoadIconA(nullptr, IDI_HAND));
    EXPECT_FALSE(LoadIconA(module, "NO SUCH ICON"));
}

TEST(Cursors, OfPicturesHaveTheirColoursInEveryDepth)
{
    for (int bits : {8, 24, 32}) {
        HICON icon = fromBytes(cursor_files::picture(32, bits, bits == 32 ? 0xFF20C040 : 0x20C040), true);
        ASSERT_TRUE(icon) << bits;
        EXPECT_EQ(drawn(icon), (Corners{0x20C040, paper, 0x20C040, paper})) << bits;
        EXPECT_TRUE(DestroyIcon(icon));
    }
    std::string hotSpot("\3\0\4\0", 4);
    HICON small = fromBytes(hotSpot + cursor_files::picture(16, 24, 0x102030), false, 32);
    ASSERT_TRUE(small);
    EXPECT_EQ(drawn(small), (Corners{0x102030, paper, 0x102030, paper})) << "enlarged";
    DestroyIcon(small);
}

TEST(Cursors, OfFilesAreTheBestOfTheirSizesOrAnimations)
{
    using cursor_files::picture;
    std::string small = cursor_files::file(2, {{picture(16, 24, 0x111111), 16, 1, 1}});
    std::string both = cursor_files::file(2, {{picture(16, 24, 0x111111), 16, 1, 1}, {picture(32, 24, 0x222222), 32, 2, 2}});
    struct {
        std::string bytes;
        uint32_t color;
    } const files[] = {{small, 0x111111}, {both, 0x222222}, {cursor_files::animation({both, small}, 6), 0x222222}};
    for (auto &[bytes, color] : files) {
        TemporaryFile file("cursor");
        file.write(bytes);
        HCURSOR cursor = LoadCursorFromFileA(file.path());
        ASSERT_TRUE(cursor);
        EXPECT_EQ(drawn(cursor), (Corners{color, paper, color, paper}));
        EXPECT_TRUE(DestroyCursor(cursor));
    }
    HCURSOR animated = fromBytes(files[2].bytes, false);
    EXPECT_TRUE(animated);
    DestroyCursor(animated);
}

TEST(Cursors, OfDamagedBytesAreNone)
{
    std::string whole = cursor_files::picture(32, 24, 0x222222);
    EXPECT_FALSE(fromBytes("", true));
    EXPECT_FALSE(fromBytes(whole.substr(0, 30), true));
    EXPECT_FALSE(fromBytes("RIFF\x04\0\0\0ACON", false));
    EXPECT_FALSE(LoadCursorFromFileA("Z:\\no\\such\\file.cur"));
    TemporaryFile file("cursor");
    file.write("no cursor at all");
    EXPECT_FALSE(LoadCursorFromFileA(file.path()));
}

} // namespace
