// Offscreen worlds and copies while GDI refuses objects or memory is short: whatever is refused, what the
// host has is as before, and the next call works as ever.
#include "CopyScenes.h"
#include "Settings.h"

#include <win32/control.h>

#include <functional>

namespace {

using namespace copies;

// The purge size of 0 makes a creation final after 17 tries.
struct QuickRefusals {
    Settings settings{"PurgeBytesForExhaustedGDIObjects=0\r\n"};
};
constexpr DWORD tries = 17;

class WorldShortage : private QuickRefusals, public Graphics {
protected:
    ~WorldShortage() override
    {
        SetGrowZoneEx(nullptr);
        Win32Control_Reset();
    }

    // Runs an action with each creation and each allocation of it refused in turn.
    static void refuseEach(const std::function<void()> &action, const std::function<void(const std::string &)> &check)
    {
        Win32Control_RefuseGdiCreations(0, 0);
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 0, 0, 0);
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, 0, 0, 0);
        action();
        DWORD creations = Win32Control_GdiCreationsCounted();
        DWORD allocations[] = {Win32Control_AllocationsCounted(WIN32_ALLOCATION_C_HEAP),
                               Win32Control_AllocationsCounted(WIN32_ALLOCATION_LAYER)};
        Win32Control_Reset();
        auto survive = [&](const char *what, DWORD number) {
            action();
            Win32Control_Reset();
            check(what + std::to_string(number));
        };
        for (DWORD number = 1; number <= creations && !HasFatalFailure(); ++number)
            for (DWORD count : {DWORD{1}, tries, DWORD{WIN32_WITHOUT_END}}) {
                Win32Control_RefuseGdiCreations(number, count);
                survive("creation ", number);
            }
        for (Win32Allocation kind : {WIN32_ALLOCATION_C_HEAP, WIN32_ALLOCATION_LAYER})
            for (DWORD number = 1; number <= allocations[kind == WIN32_ALLOCATION_LAYER]; ++number) {
                Win32Control_RefuseAllocations(kind, number, WIN32_WITHOUT_END, 0);
                survive(kind == WIN32_ALLOCATION_LAYER ? "memory of the layer " : "memory ", number);
            }
    }

    struct Held {
        DWORD objects = Win32Control_GdiObjects();
        UInt64 usage = MEM_GetMemUsage();
        GrafPtr port = qd.thePort;
        SInt16 depth = gbits_per_pixel;
        WindowPtr front = gFrontWindow;
        bool operator==(const Held &) const = default;
    };
};

TEST_F(WorldShortage, AWorldThatCannotBeMadeLeavesNothing)
{
    for (SInt16 depth : {1, 8, 32}) {
        Held before;
        OSErr error = 0;
        GWorldPtr world = nullptr;
        Rect bounds = ltrb(0, 0, 5000, 4); // its rows need an extension
        refuseEach(
            [&] {
                error = NewGWorld(&world, depth, &bounds, nullptr, nullptr, 0);
                DisposeGWorld(world);
            },
            [&](const std::string &what) {
                EXPECT_TRUE(error == -108 ? !world : error == 0) << what;
                ASSERT_TRUE(Held() == before) << what;
                World next(depth, bounds);
                ASSERT_TRUE(+next.map().pmBitmap) << what;
            });
    }
}

TEST_F(WorldShortage, AWorldThatCannotBeUpdatedIsWithoutPixelsUntilItCan)
{
    for (bool isCurrent : {false, true}) {
        std::optional<World> world;
        auto begin = [&] {
            world.reset();
            world.emplace(SInt16{32}, ltrb(0, 0, 6, 6));
            world->fillRandom(7);
            MacSetPort(isCurrent ? world->port() : nullptr);
        };
        begin();
        Held before;
        UInt32 pixel = world->pixel(5, 5);
        GWorldFlags error = 0;
        Rect larger = ltrb(3, 4, 5003, 24);
        refuseEach([&] { error = UpdateGWorld(world->address(), 32, &larger, nullptr, nullptr, 0); },
                   [&](const std::string &what) {
                       EXPECT_EQ(+qd.thePort, isCurrent ? world->port() : before.port) << what;
                       if (error == 0) {
                           EXPECT_EQ(world->pixel(5, 5), pixel) << what;
                       } else {
                           EXPECT_FALSE(+world->map().pmBitmap || world->map().pmDC || world->map().baseAddr) << what;
                           Rect all = ltrb(0, 0, 5, 5);
                           CopyBits(world->asPort(), world->asPort(), &all, &all, srcCopy, nullptr);
                           world->update(32, larger);
                           ASSERT_TRUE(+world->map().baseAddr) << what;
                       }
                       begin();
                       ASSERT_EQ(Win32Control_GdiObjects(), before.objects) << what;
                       ASSERT_EQ(MEM_GetMemUsage(), before.usage) << what;
                   });
    }
}

// A copy that draws all or nothing, with all that it may touch as before.
TEST_F(WorldShortage, ACopyLeavesPortClipObjectsAndPixelOrder)
{
    PortWindow window(ltrb(300, 200, 320, 210));
    World blueFirst(32, ltrb(0, 0, 20, 10)), alphaFirst(32, ltrb(0, 0, 20, 10)), oneBit(1, ltrb(0, 0, 20, 10)),
        otherBit(1, ltrb(0, 0, 20, 10));
    MTBX_SetGWorld32PixmapFormat(alphaFirst.port(), kGWorld32AlphaFirst);
    PlainImage plain(20, 10, 1, {});
    plain.setPixels(std::vector<UInt32>(200, 1));
    for (World *world : {&blueFirst, &alphaFirst, &oneBit, &otherBit})
        world->fillRandom(3);
    MacSetPort(window.port());
    Rect clip = ltrb(1, 1, 19, 9), all = ltrb(0, 0, 20, 10), small = ltrb(2, 2, 9, 9);
    ClipRect(&clip);
    WindowImage shown(window);
    shown.setPixels(blueFirst.pixels());
    RgnHandle mask = NewRgn(), part = NewRgn();
    MacSetRectRgn(mask, 2, 2, 6, 6);
    MacSetRectRgn(part, 8, 4, 12, 9);
    MacUnionRgn(mask, part, mask);
    DisposeRgn(part);

    const BitMap *toWindow = GetPortBitMapForCopyBits(window.port());
    struct {
        const char *name;
        const BitMap *from, *to;
        SInt16 mode;
        bool isMasked;
    } const copies[] = {
        {"world to window", alphaFirst.asPixMap(), toWindow, srcCopy, true},
        {"plain bitmap to window", plain.bits(), toWindow, srcXor, true},
        {"plain bitmap to world", plain.bits(), alphaFirst.asPort(), srcCopy, false},
        {"world to PixMap", blueFirst.asPort(), alphaFirst.asPixMap(), srcOr, true},
        {"world to port", alphaFirst.asPort(), blueFirst.asPort(), srcCopy, true},
        {"one bit, whole", otherBit.asPixMap(), oneBit.asPixMap(), addOver, false},
        {"mask of a bitmap", alphaFirst.asPixMap(), toWindow, -1, false},
    };
    World *worlds[] = {&blueFirst, &alphaFirst, &oneBit, &otherBit};
    for (const auto &each : copies)
        for (const Rect *from : {&all, &small}) {
            auto copy = [&] {
                if (each.mode < 0)
                    CopyMask(each.from, plain.bits(), each.to, from, from, &all);
                else
                    CopyBits(each.from, each.to, from, &all, each.mode, each.isMasked ? mask : nullptr);
            };
            auto states = [&] {
                std::vector<std::vector<uintptr_t>> result{stateOf(window.context())};
                for (World *world : worlds)
                    result.push_back(stateOf(world->context()));
                return result;
            };
            auto pixels = [&] {
                std::vector<std::vector<UInt32>> result{shown.pixels()};
                for (World *world : worlds)
                    result.push_back(world->pixels());
                return result;
            };
            auto start = pixels();
            auto restorePixels = [&] {
                shown.setPixels(start[0]);
                for (size_t i = 0; i < std::size(worlds); ++i)
                    for (size_t k = 0; k < 200; ++k)
                        worlds[i]->setPixel(int(k % 20), int(k / 20), start[i + 1][k]);
            };
            copy(); // a buffer for masks is kept, too
            auto complete = pixels();
            restorePixels();
            Held before;
            auto statesBefore = states();
            std::string portBefore(reinterpret_cast<char *>(window.port()), sizeof(WindowRecord));
            refuseEach(copy, [&](const std::string &what) {
                SCOPED_TRACE(testing::Message() << each.name << ", refused " << what);
                ASSERT_TRUE(Held() == before);
                ASSERT_EQ(states(), statesBefore);
                ASSERT_EQ(std::string(reinterpret_cast<char *>(window.port()), sizeof(WindowRecord)), portBefore);
                ASSERT_EQ(+alphaFirst.map().pmFormat, kPixelFormatMasks);
                ASSERT_EQ(+blueFirst.map().pmFormat, kPixelFormatNative);
                // These two have a second way, and a second step.
                bool isInSteps = each.mode == addOver || each.mode < 0;
                auto after = pixels();
                ASSERT_TRUE(isInSteps || after == start || after == complete);
                restorePixels();
            });
            restorePixels();
        }
    DisposeRgn(mask);
}

// The host's spare memory, a world too.
GWorldPtr spare;

SInt32 disposeSpare(UInt64)
{
    if (!spare)
        return 0;
    DisposeGWorld(std::exchange(spare, nullptr));
    return 1;
}

TEST_F(WorldShortage, TheGrowZoneFunctionMakesRoomForAWorld)
{
    Rect bounds = ltrb(0, 0, 1000, 1000);
    UInt64 soft, hard;
    MTBX_GetMemUsageLimits(&soft, &hard);
    ASSERT_EQ(NewGWorld(&spare, 32, &bounds, nullptr, nullptr, 0), 0);
    UInt64 used;
    MTBX_TotalMemoryUsed(&used);
    MTBX_SetMemUsageLimits(used + 1000000, used + 1000000);
    SetGrowZoneEx(disposeSpare);
    GWorldPtr world = nullptr, second = nullptr;
    EXPECT_EQ(NewGWorld(&world, 32, &bounds, nullptr, nullptr, 0), 0);
    EXPECT_FALSE(spare) << "it was asked";
    EXPECT_EQ(NewGWorld(&second, 32, &bounds, nullptr, nullptr, 0), -108) << "with nothing left to free";
    EXPECT_FALSE(second);
    MTBX_SetMemUsageLimits(soft, hard);
    DisposeGWorld(world);
}

TEST_F(WorldShortage, TheGrowZoneFunctionMakesRoomInTheSystem)
{
    Rect bounds = ltrb(0, 0, 1000, 1000);
    ASSERT_EQ(NewGWorld(&spare, 32, &bounds, nullptr, nullptr, 0), 0);
    SetGrowZoneEx(disposeSpare);
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, 1, tries, 1000000);
    World world(32, bounds);
    EXPECT_FALSE(spare);
    EXPECT_TRUE(+world.map().baseAddr);
}

// The host looks at the world that is being sized.
GWorldPtr sized;
int looks;

SInt32 drawInSized(UInt64)
{
    ++looks;
    GrafPtr former = qd.thePort;
    MacSetPort(nullptr);
    MacSetPort(sized);
    PatBlt(contextOf(sized), 0, 0, 5, 5, WHITENESS);
    MacSetPort(former);
    return 0;
}

TEST_F(WorldShortage, TheGrowZoneFunctionMayDrawInTheWorldThatIsSized)
{
    DWORD objects = Win32Control_GdiObjects();
    {
        World world(32, ltrb(0, 0, 10, 10));
        world.fillRandom(1);
        UInt32 pixel = world.pixel(9, 9);
        HBITMAP contextsOwn = world.map().pmOldBitmap;
        sized = world.port();
        SetGrowZoneEx(drawInSized);
        looks = 0;
        Win32Control_RefuseGdiCreations(1, tries);
        world.update(32, ltrb(0, 0, 20, 20));
        Win32Control_Reset();
        EXPECT_GT(looks, 0);
        EXPECT_EQ(+world.map().pmOldBitmap, contextsOwn);
        EXPECT_EQ(world.pixel(9, 9), pixel);
    }
    EXPECT_EQ(Win32Control_GdiObjects(), objects);
}

} // namespace
