// Windows changed at random, all painted: every point of the screen shows what it should.
#include "WindowScene.h"

#include <gtest/gtest.h>

namespace {

TEST(RandomWindows, ShowWhatIsOnTopAtEveryPoint)
{
    WindowScene scene(77);
    for (int step = 0; step < 150; ++step) {
        WindowScene::Change change = scene.change();
        scene.settle();
        WindowScene::Picture expected = scene.expected();
        std::vector<uint32_t> pixels = scene.pixels();
        int wrong = 0;
        for (size_t i = 0; i < pixels.size(); ++i)
            wrong += pixels[i] != WindowScene::colorOf(expected[i]);
        ASSERT_EQ(wrong, 0) << change.name << ", step " << step;
    }
}

} // namespace
