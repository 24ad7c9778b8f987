// CopyBits: the pixels of the asked rectangle land in the asked rectangle, from every kind of image to every
// other, in each depth, order and mode.
#include "CopyScenes.h"
#include "Settings.h"

#include <memory>

namespace {

using namespace copies;

class CopyBitsTest : public Graphics {
protected:
    explicit CopyBitsTest(const char *lines = "") : settings(lines) { InitGraf(nullptr); }
    ~CopyBitsTest() override { gdiKnowsMasks = false; }

    Settings settings;
};

std::unique_ptr<Image> randomSource(std::mt19937 &random)
{
    int width = between(random, 3, 40), height = between(random, 2, 12);
    if (random() % 5 == 0)
        return std::make_unique<PlainImage>(width, height, between(random, 0, 5),
                                            Point{SInt16(between(random, -9, 9)), SInt16(between(random, -9, 9))});
    SInt16 depths[] = {1, 4, 8, 24, gdiKnowsMasks ? SInt16{8} : SInt16{16}, 32, 32, 32};
    auto image =
        std::make_unique<WorldImage>(depths[random() % 8], width, height, random() % 2 ? Kind::Port : Kind::PixMap);
    if (random() % 2)
        image->moveOrigin(between(random, -50, 50), between(random, -50, 50));
    if (random() % 2)
        image->moveBounds(between(random, -50, 50), between(random, -50, 50));
    if (!gdiKnowsMasks && image->depth() == 32 && random() % 2)
        MTBX_SetGWorld32PixmapFormat(image->world.port(), kGWorld32AlphaFirst);
    return image;
}

std::unique_ptr<Image> randomWorld(std::mt19937 &random)
{
    for (;;) {
        std::unique_ptr<Image> image = randomSource(random);
        if (image->kind != Kind::PlainBitmap)
            return image;
    }
}

class CopyBitsWays : public CopyBitsTest, public testing::WithParamInterface<const char *> {
protected:
    CopyBitsWays() : CopyBitsTest(GetParam()) { gdiKnowsMasks = settings.value("UseBitfieldsIfPossible") == "1"; }
};

INSTANTIATE_TEST_SUITE_P(All, CopyBitsWays,
                         testing::Values("UseStretchBlt=0\r\n", "UseStretchBlt=1\r\n",
                                         "WorkaroundStretchDIBitsBug=0\r\n", "UseBitfieldsIfPossible=1\r\n",
                                         "UseBitfieldsIfPossible=1\r\nUseStretchBlt=1\r\n"));

TEST_P(CopyBitsWays, FromEachKindOfImageToEachWorld)
{
    for (unsigned seed = 0; seed < 150 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        std::unique_ptr<Image> source = randomSource(random), destination = randomWorld(random);
        // A port may be current or not.
        if (destination->kind == Kind::Port && random() % 2)
            MacSetPort(static_cast<WorldImage &>(*destination).world.port());
        for (int trial = 0; trial < 8 && !HasFailure(); ++trial)
            checkCopy(*source, *destination, random);
    }
}

TEST_P(CopyBitsWays, FromEachKindOfImageToAWindow)
{
    PortWindow window(ltrb(300, 200, 340, 220));
    MacSetPort(window.port());
    WindowImage destination(window);
    for (unsigned seed = 0; seed < 40 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        std::unique_ptr<Image> source = randomSource(random);
        MacSetPort(window.port());
        destination.moveOrigin(between(random, -20, 20), between(random, -20, 20));
        SetRectRgn((*window.port()->clipRgn)->rgnNative, -100, -100, 100, 100);
        SetClip(window.port()->clipRgn);
        for (int trial = 0; trial < 4 && !HasFailure(); ++trial)
            checkCopy(*source, destination, random);
    }
}

std::vector<const BitMap *> hookedSources;

void noteCopy(const BitMap *source, const Rect *, const Rect *, SInt16, RgnHandle)
{
    hookedSources.push_back(source);
}

CQDProcsPtr newHooks(QDBitsProcPtr bitsProc)
{
    auto hooks = reinterpret_cast<CQDProcsPtr>(NewPtr(sizeof(CQDProcs)));
    SetStdCProcs(hooks);
    hooks->bitsProc = bitsProc;
    return hooks;
}

// Two worlds of 32 bits, the source white and the destination black.
class WhiteToBlack : public CopyBitsTest {
protected:
    explicit WhiteToBlack(const char *lines = "") : CopyBitsTest(lines)
    {
        PatBlt(source.context(), 0, 0, 8, 4, WHITENESS);
        MacSetPort(destination.port());
    }

    // The pixels of the destination that are white.
    int copied(const BitMap *from, const BitMap *to, SInt16 mode = srcCopy, RgnHandle mask = nullptr)
    {
        CopyBits(from, to, &all, &all, mode, mask);
        return whites();
    }
    int whites()
    {
        std::vector<UInt32> pixels = destination.pixels();
        return int(std::ranges::count_if(pixels, [](UInt32 pixel) { return (pixel & 0xFFFFFF) == 0xFFFFFF; }));
    }

    World source{32, ltrb(0, 0, 8, 4)}, destination{32, ltrb(0, 0, 8, 4)};
    Rect all = ltrb(0, 0, 8, 4);
};

TEST_F(WhiteToBlack, TheHookOfTheCurrentPortDrawsInstead)
{
    SetPortGrafProcs(destination.port(), newHooks(noteCopy));
    hookedSources.clear();
    EXPECT_EQ(copied(source.asPixMap(), destination.asPort()), 0);
    EXPECT_EQ(hookedSources, std::vector<const BitMap *>{source.asPixMap()});
    EXPECT_EQ(copied(source.asPixMap(), destination.asPixMap()), 32) << "to its PixMap the hook is not asked";
    EXPECT_EQ(hookedSources.size(), 1u);
    PatBlt(destination.context(), 0, 0, 8, 4, BLACKNESS);
    GetPortGrafProcs(destination.port())->bitsProc = nullptr;
    EXPECT_EQ(copied(source.asPixMap(), destination.asPort()), 32) << "hooks without this one are none";
}

TEST_F(WhiteToBlack, WhatHasNoContextGetsNothing)
{
    PlainImage plain(8, 4, 0, {});
    std::vector<UInt8> before = plain.memory;
    CopyBits(source.asPort(), plain.bits(), &all, &all, 27, nullptr);
    EXPECT_EQ(plain.memory, before);
    World empty(32, ltrb(0, 0, 0, 0));
    copied(source.asPort(), empty.asPort());
    EXPECT_EQ(copied(empty.asPort(), destination.asPort()), 0);
    CGrafPort closed{};
    closed.portVersion = 0xC000;
    copied(source.asPort(), GetPortBitMapForCopyBits(&closed));
    EXPECT_EQ(copied(GetPortBitMapForCopyBits(&closed), destination.asPort()), 0);
    // So far inside out that 16 bits would call it a few pixels wide.
    plain.bitmap.bounds = ltrb(32767, 0, -32760, 4);
    EXPECT_EQ(copied(plain.bits(), destination.asPort()), 0);
    plain.bitmap.bounds = ltrb(0, 32767, 8, -32760);
    EXPECT_EQ(copied(plain.bits(), destination.asPort()), 0);
    plain.bitmap.baseAddr = nullptr;
    EXPECT_EQ(copied(plain.bits(), destination.asPort()), 0);
    PortWindow window(ltrb(300, 200, 308, 204));
    auto windowsPixMap = reinterpret_cast<const BitMap *>(&pixMapOf(window.port()));
    pixMapOf(window.port()).rowBytes = SInt16(0xC000);
    copied(source.asPort(), windowsPixMap);
    PlainImage mask(8, 4, 0, {});
    CopyMask(source.asPort(), mask.bits(), windowsPixMap, &all, &all, &all);
    EXPECT_EQ(copied(windowsPixMap, destination.asPort()), 0) << "not even that of a window";
}

TEST_F(WhiteToBlack, RectanglesWithoutHeightCopyNothing)
{
    Rect flat = ltrb(0, 2, 8, 2), inverted = ltrb(0, 4, 8, 0);
    for (const Rect *rect : {&flat, &inverted}) {
        CopyBits(source.asPort(), destination.asPort(), rect, &all, srcCopy, nullptr);
        CopyBits(source.asPort(), destination.asPort(), &all, rect, srcCopy, nullptr);
    }
    EXPECT_EQ(whites(), 0);
    PatBlt(source.context(), 0, 0, 8, 4, BLACKNESS);
    EXPECT_EQ(copied(source.asPort(), destination.asPort(), 27), 32) << "white whatever the source";
}

TEST_F(WhiteToBlack, AMaskThatIsNoRegionAnyMoreLetsNothingThrough)
{
    RgnHandle mask = NewRgn();
    HRGN native = (*mask)->rgnNative;
    (*mask)->rgnNative = nullptr;
    EXPECT_EQ(copied(source.asPort(), destination.asPort(), srcCopy, mask), 0);
    EXPECT_EQ(copied(source.asPort(), destination.asPixMap(), srcCopy, mask), 0);
    (*mask)->rgnNative = native;
    EXPECT_EQ(copied(source.asPort(), destination.asPort(), srcCopy, mask), 0) << "an empty one";
    DisposeRgn(mask);
}

TEST_F(WhiteToBlack, AMaskAndThePortsClipHoldTogether)
{
    Rect left = ltrb(0, 0, 5, 4);
    ClipRect(&left);
    RgnHandle mask = NewRgn();
    MacSetRectRgn(mask, 3, 1, 8, 3);
    EXPECT_EQ(copied(source.asPixMap(), destination.asPort(), srcCopy, mask), 4);
    EXPECT_EQ(clipBoxOf(destination.context()), left);
    EXPECT_EQ(copied(source.asPixMap(), destination.asPixMap(), srcCopy, mask), 10) << "a PixMap has no clip";
    EXPECT_EQ(clipBoxOf(destination.context()), left);
    DisposeRgn(mask);
}

TEST_F(WhiteToBlack, ACopyWithinAWorldKeepsWhatItReads)
{
    for (int depth : {8, 32})
        for (int dh : {-3, 0, 2})
            for (int dv : {-2, 0, 3}) {
                World world(SInt16(depth), ltrb(0, 0, 40, 20));
                world.fillRandom(unsigned(depth));
                std::vector<UInt32> before = world.pixels();
                Rect from = ltrb(5, 5, 35, 15), to = from;
                MacOffsetRect(&to, SInt16(dh), SInt16(dv));
                CopyBits(world.asPixMap(), world.asPort(), &from, &to, srcCopy, nullptr);
                for (int y = to.top; y < to.bottom; ++y)
                    for (int x = to.left; x < to.right; ++x)
                        ASSERT_EQ(world.pixel(x, y), before[size_t((y - dv) * 40 + x - dh)]) << depth;
            }
}

TEST_F(WhiteToBlack, AWindowHasNoPixelsToCopyFromMemory)
{
    PortWindow window(ltrb(300, 200, 308, 204));
    MacSetPort(window.port());
    PatBlt(window.context(), 0, 0, 8, 4, WHITENESS);
    EXPECT_EQ(copied(GetPortBitMapForCopyBits(window.port()), destination.asPort()), 0);
    World oneBit(1, ltrb(0, 0, 8, 4));
    copied(GetPortBitMapForCopyBits(window.port()), oneBit.asPort());
    EXPECT_EQ(oneBit.pixel(7, 3), 1u) << "through its context it has";
}

class ThroughContexts : public WhiteToBlack {
protected:
    ThroughContexts() : WhiteToBlack("UseStretchBlt=1\r\n") {}
};

TEST_F(ThroughContexts, AWindowIsReadWhileItIsCurrent)
{
    PortWindow window(ltrb(300, 200, 308, 204));
    MacSetPort(window.port());
    PatBlt(window.context(), 0, 0, 8, 4, WHITENESS);
    EXPECT_EQ(copied(GetPortBitMapForCopyBits(window.port()), destination.asPort()), 32);
    PatBlt(destination.context(), 0, 0, 8, 4, BLACKNESS);
    MacSetPort(destination.port());
    EXPECT_EQ(copied(GetPortBitMapForCopyBits(window.port()), destination.asPort()), 0);
}

TEST_F(CopyBitsTest, OneBitImagesOfOneSizeAreCombinedWholeInMode34)
{
    for (UInt8 section : {UInt8{1}, UInt8{0}}) {
        gCreate_DIB_B = section;
        World source(1, ltrb(0, 0, 40, 6)), destination(1, ltrb(0, 0, 40, 6)), other(1, ltrb(0, 0, 8, 6));
        gCreate_DIB_B = 1;
        PatBlt(source.context(), 3, 1, 30, 4, WHITENESS);
        PatBlt(destination.context(), 0, 0, 20, 6, WHITENESS);
        Rect small = ltrb(0, 0, 2, 2);
        CopyBits(source.asPort(), destination.asPort(), &small, &small, addOver, nullptr);
        auto isWhite = [&](int x, int y) { return GetPixel(destination.context(), x, y) != 0; };
        EXPECT_TRUE(isWhite(0, 0));
        EXPECT_FALSE(isWhite(3, 1));
        EXPECT_TRUE(isWhite(32, 4));
        EXPECT_FALSE(isWhite(33, 4));
        // Of another size: the rectangle alone, with the destination's colours.
        SetTextColor(destination.context(), RGB(1, 2, 3));
        PatBlt(other.context(), 0, 0, 8, 6, WHITENESS);
        CopyBits(other.asPort(), destination.asPort(), &small, &small, addOver, nullptr);
        EXPECT_EQ(isWhite(0, 0), false);
        EXPECT_TRUE(isWhite(2, 0));
        EXPECT_EQ(GetTextColor(destination.context()), RGB(1, 2, 3));
    }
}

TEST_F(CopyBitsTest, PlainBitmapsMayBeNativeOnesWithoutASection)
{
    PlainImage plain(13, 3, 2, {5, 5});
    plain.setPixels(std::vector<UInt32>(39, 1));
    World world(32, ltrb(0, 0, 13, 3));
    MacSetPort(world.port());
    gCreate_DIB_B = 0;
    CopyBits(plain.bits(), world.asPort(), &plain.bitmap.bounds, &world.port()->portRect, srcCopy, nullptr);
    gCreate_DIB_B = 1;
    EXPECT_EQ(world.color(12, 2), 0xFFFFFFu);
}

// Fields that say what is not so, and rectangles from end to end: only memory of the images is touched.
TEST_F(CopyBitsTest, RecordsThatLieDoNoHarm)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::mt19937 random(seed);
        std::unique_ptr<Image> source = randomWorld(random), destination = randomWorld(random);
        auto any = [&random] { return SInt16(random()); };
        auto someOf = [&random](std::initializer_list<int> values) {
            return SInt16(values.begin()[random() % values.size()]);
        };
        for (Image *image : {source.get(), destination.get()}) {
            PixMap &map = static_cast<WorldImage &>(*image).world.map();
            map.pmWidth = someOf({map.pmWidth, 32767, -5, 0});
            map.pmHeight = someOf({map.pmHeight, 32767, -32768, 1});
            map.pmFormat = someOf({map.pmFormat, 0, 1, 4, 99});
            map.pixelSize = someOf({map.pixelSize, 1, 8, 32, 0, -3});
            map.rowBytes = SInt16((map.rowBytes & 0xC000) | (any() & 0x3FFF));
            map.bounds = {any(), any(), any(), any()};
            if (random() % 2)
                memset(map.pmMasks, int(random() % 3), sizeof map.pmMasks);
        }
        for (int trial = 0; trial < 8; ++trial) {
            Rect from = {any(), any(), any(), any()}, to = {any(), any(), any(), any()};
            if (random() % 2)
                to = from;
            CopyBits(source->bits(), destination->bits(), &from, &to, someOf({0, 1, 2, 34}), nullptr);
            CopyMask(source->bits(), source->bits(), destination->bits(), &from, &from, &to);
        }
        PixMap &map = static_cast<WorldImage &>(*source).world.map();
        const UInt32 masks[4] = {0xFF, 0xFF00, 0xFF0000, 0};
        MTBX_SetDirectPixmapFormat(someOf({0, 1, 2, 4}), &map, masks);
        World &world = static_cast<WorldImage &>(*source).world;
        MTBX_SetGWorld32PixmapFormat(world.port(), someOf({0, 1}));
        UpdateGWorld(world.address(), 32, world.rect(ltrb(0, 0, 50, 50)), nullptr, nullptr, 0);
    }
}

class CopyMaskTest : public WhiteToBlack {
protected:
    CopyMaskTest()
    {
        PatBlt(source.context(), 0, 0, 8, 4, WHITENESS);
        source.setPixel(2, 1, 0x102030);
        std::vector<UInt32> bits(32);
        bits[8 + 2] = bits[8 + 3] = bits[2 * 8 + 7] = 1;
        mask.setPixels(bits);
    }

    PlainImage mask{8, 4, 3, {}};
};

TEST_F(CopyMaskTest, CopiesThePixelsOfSetBits)
{
    Rect from = ltrb(1, 0, 6, 4), to = ltrb(3, 1, 8, 5);
    RECT clip = {0, 0, 8, 4};
    MacSetPort(nullptr);
    GrafPtr former = qd.thePort;
    CopyMask(source.asPixMap(), mask.bits(), destination.asPort(), &from, &from, &to);
    EXPECT_EQ(+qd.thePort, former);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x) {
            COLORREF expected = y == 2 && x == 4 ? RGB(0x10, 0x20, 0x30) : y == 2 && x == 5 ? RGB(255, 255, 255) : 0;
            EXPECT_EQ(destination.color(x, y), expected) << x << ", " << y;
        }
    EXPECT_EQ(clipBoxOf(destination.context()), ltrb(clip.left, clip.top, clip.right, clip.bottom));
}

TEST_F(CopyMaskTest, TheBackgroundIsLaidFirst)
{
    RGBColor red = {0xFFFF, 0, 0};
    RGBBackColor(&red);
    // A source that does not reach there.
    Rect from = ltrb(2, 1, 8, 4), to = ltrb(2, 1, 8, 4);
    World narrow(32, ltrb(0, 0, 3, 4));
    CopyMask(narrow.asPixMap(), mask.bits(), destination.asPort(), &from, &from, &to);
    EXPECT_EQ(destination.color(2, 1), RGB(0, 0, 0));
    EXPECT_EQ(destination.color(3, 1), RGB(255, 0, 0));
    EXPECT_EQ(destination.color(7, 2), RGB(255, 0, 0));
}

TEST_F(CopyMaskTest, OnlyPortsGetAnything)
{
    CopyMask(source.asPixMap(), mask.bits(), destination.asPixMap(), &all, &all, &all);
    Rect beside = ltrb(0, 0, 2, 4);
    CopyMask(source.asPixMap(), mask.bits(), destination.asPort(), &beside, &beside, &beside);
    EXPECT_EQ(whites(), 0);
}

TEST_F(CopyMaskTest, TheHookGetsTheMaskAsARegion)
{
    SetPortGrafProcs(destination.port(), newHooks(noteCopy));
    hookedSources.clear();
    CopyMask(source.asPixMap(), mask.bits(), destination.asPort(), &all, &all, &all);
    mask.setPixels(std::vector<UInt32>(32));
    CopyMask(source.asPixMap(), mask.bits(), destination.asPort(), &all, &all, &all);
    EXPECT_EQ(hookedSources.size(), 1u) << "not for an empty one";
    EXPECT_EQ(whites(), 0);
}

} // namespace
