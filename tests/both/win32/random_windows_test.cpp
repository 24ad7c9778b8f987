// Windows changed at random, all painted: every point of the screen shows what it should.
#include "WindowScene.h"

#include <gtest/gtest.h>

#include <map>

namespace {

TEST(RandomWindows, ShowWhatIsOnTopAtEveryPoint)
{
    WindowScene scene(77);
    for (int step = 0; step < 300; ++step) {
        WindowScene::Change change = scene.change();
        scene.settle();
        WindowScene::Picture expected = scene.expected();
        std::vector<uint32_t> pixels = scene.pixels();
        std::map<HWND, uint32_t> seeds;
        int wrong = 0;
        for (size_t i = 0; i < pixels.size(); ++i) {
            auto [seed, isNew] = seeds.try_emplace(expected[i].window);
            if (isNew)
                seed->second = WindowScene::seedOf(expected[i].window);
            wrong += pixels[i] != WindowScene::colorOf(seed->second, expected[i]);
        }
        ASSERT_EQ(wrong, 0) << change.name << ", step " << step;
    }
}

} // namespace
