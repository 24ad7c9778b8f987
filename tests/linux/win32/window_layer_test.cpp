// Windows changed at random: exactly what was hidden is painted anew.
#include "WindowScene.h"

#include <gtest/gtest.h>

namespace {

bool isToBePainted(HRGN update, const WindowScene::Shown &shown)
{
    return PtInRegion(update, shown.x, shown.y) != FALSE;
}

struct Updates {
    explicit Updates(const WindowScene &scene)
    {
        add(scene.frame());
        for (HWND window : scene.windows())
            add(window);
    }
    ~Updates()
    {
        for (auto &[window, update] : updates)
            DeleteObject(update);
    }
    void add(HWND window)
    {
        HRGN update = CreateRectRgn(0, 0, 0, 0);
        GetUpdateRgn(window, update, FALSE);
        updates.push_back({window, update});
    }
    HRGN of(HWND window) const
    {
        for (auto &[each, update] : updates)
            if (each == window)
                return update;
        return nullptr;
    }
    std::vector<std::pair<HWND, HRGN>> updates;
};

TEST(RandomWindows, InvalidateExactlyWhatWasHidden)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        WindowScene scene(seed);
        for (int step = 0; step < 60; ++step) {
            WindowScene::Picture before = scene.expected();
            WindowScene::Change change = scene.change();
            WindowScene::Picture after = scene.expected();
            Updates updates(scene);
            int tooMuch = 0, tooLittle = 0;
            for (int y = 0; y < WindowScene::height; ++y)
                for (int x = 0; x < WindowScene::width; ++x) {
                    const WindowScene::Shown &shown = after[static_cast<size_t>(y * WindowScene::width + x)];
                    bool isMoved = scene.isMovedBy(shown.window, change.moved);
                    int oldX = isMoved ? x - change.x : x, oldY = isMoved ? y - change.y : y;
                    bool wasInside = oldX >= 0 && oldY >= 0 && oldX < WindowScene::width && oldY < WindowScene::height;
                    bool isKept = wasInside && before[static_cast<size_t>(oldY * WindowScene::width + oldX)] == shown;
                    bool isPainted = isToBePainted(updates.of(shown.window), shown);
                    tooMuch += isKept && isPainted;
                    tooLittle += !isKept && !isPainted;
                }
            ASSERT_EQ(tooLittle, 0) << change.name << ", seed " << seed << ", step " << step;
            ASSERT_EQ(tooMuch, 0) << change.name << ", seed " << seed << ", step " << step;
            scene.settle();
        }
    }
}

} // namespace
