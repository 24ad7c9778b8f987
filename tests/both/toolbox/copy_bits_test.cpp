// CopyBits: the pixels of the asked rectangle land in the asked rectangle, from every kind of image to every
// other, in each depth, order and mode.
#include "CopyScenes.h"
#include "Settings.h"

#include <memory>

namespace {

using namespace copies;

class CopyBitsTest : public Graphics, public testing::WithParamInterface<const char *> {
protected:
    explicit CopyBitsTest(const char *lines) : settings(lines) { InitGraf(nullptr); }
    CopyBitsTest() : CopyBitsTest("") {}

    Settings settings;
};

std::unique_ptr<Image> randomSource(std::mt19937 &random)
{
    int width = between(random, 3, 40), height = between(random, 2, 12);
    if (random() % 5 == 0)
        return std::make_unique<PlainImage>(width, height, between(random, 0, 5),
                                            Point{SInt16(between(random, -9, 9)), SInt16(between(random, -9, 9))});
    static const SInt16 depths[] = {1, 8, 16, 32, 32};
    auto image = std::make_unique<WorldImage>(depths[random() % 5], width, height,
                                              random() % 2 ? Kind::Port : Kind::PixMap);
    if (random() % 2)
        image->moveOrigin(between(random, -50, 50), between(random, -50, 50));
    if (random() % 2)
        image->moveBounds(between(random, -50, 50), between(random, -50, 50));
    if (image->depth() == 32 && random() % 2)
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

class CopyBitsWays : public CopyBitsTest {
protected:
    CopyBitsWays() : CopyBitsTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(All, CopyBitsWays,
                         testing::Values("UseStretchBlt=0\r\n", "UseStretchBlt=1\r\n", "WorkaroundStretchDIBitsBug=0\r\n"));

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

} // namespace
