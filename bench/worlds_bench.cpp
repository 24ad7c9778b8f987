// Offscreen worlds and CopyBits at 1920 by 1080 of 32 bits, beside memcpy of as many bytes and beside pixman.
#include "graphics_scene.h"
#include "pairs.h"

#include <benchmark/benchmark.h>
#include <pixman.h>

#include <cstdlib>
#include <cstring>

namespace {

constexpr SInt16 width = 1920, height = 1080;
constexpr Rect whole = {0, 0, height, width}, half = {0, 0, height / 2, width / 2};

// Before anything asks for the screen.
[[maybe_unused]] const int screenMode = setenv("WIN32_SCREEN", "1920x1080x32", 0);

GWorldPtr newWorld(const Rect &bounds)
{
    bench::useGraphics();
    GWorldPtr world = nullptr;
    NewGWorld(&world, 32, &bounds, nullptr, nullptr, 0);
    PixMapHandle map = GetGWorldPixMap(world);
    memset(GetPixBaseAddr(map), 0x5A, static_cast<size_t>(GetPixRowBytes(map)) * bounds.bottom);
    return world;
}

struct Scene {
    Scene()
    {
        MTBX_InitializeMemorySubsystem();
        source = newWorld(whole);
        target = newWorld(whole);
        small = newWorld(half);
        alphaFirst = newWorld(whole);
        MTBX_SetGWorld32PixmapFormat(alphaFirst, kGWorld32AlphaFirst);
        OpenCPort(&window.port);
        window.port.portRect = whole;
        HWND native = bench::newWindow(0);
        SetWindowPos(native, HWND_TOP, 0, 0, width, height, SWP_NOACTIVATE);
        (*window.port.portPixMap)->pmWindow = native;
    }

    GWorldPtr source, target, small, alphaFirst;
    WindowRecord window{};
};

Scene &scene()
{
    static auto *only = new Scene;
    return *only;
}

const BitMap *imageOf(GWorldPtr world)
{
    return reinterpret_cast<const BitMap *>(*GetGWorldPixMap(world));
}

void *pixelsOf(GWorldPtr world)
{
    return GetPixBaseAddr(GetGWorldPixMap(world));
}

void copy(benchmark::State &state, GWorldPtr Scene::*source, GWorldPtr Scene::*target, Rect from, Rect to)
{
    MacSetPort(scene().*target);
    for (auto _ : state)
        CopyBits(imageOf(scene().*source), imageOf(scene().*target), &from, &to, srcCopy, nullptr);
}

void copyToWindow(benchmark::State &state, GWorldPtr Scene::*source)
{
    MacSetPort(&scene().window.port);
    const BitMap *target = GetPortBitMapForCopyBits(&scene().window.port);
    for (auto _ : state)
        CopyBits(imageOf(scene().*source), target, &whole, &whole, srcCopy, nullptr);
    MacSetPort(nullptr);
}

void copyMemory(benchmark::State &state)
{
    void *from = pixelsOf(scene().source), *to = pixelsOf(scene().target);
    for (auto _ : state) {
        memcpy(to, from, size_t{4} * width * height);
        benchmark::ClobberMemory();
    }
}

void pixmanNearest(benchmark::State &state, GWorldPtr Scene::*from, Rect sizeOfSource, GWorldPtr Scene::*to, Rect size)
{
    auto imageFor = [](GWorldPtr world, const Rect &bounds) {
        return pixman_image_create_bits(PIXMAN_x8r8g8b8, bounds.right, bounds.bottom,
                                        static_cast<uint32_t *>(pixelsOf(world)), bounds.right * 4);
    };
    pixman_image_t *source = imageFor(scene().*from, sizeOfSource), *target = imageFor(scene().*to, size);
    pixman_transform_t transform;
    pixman_transform_init_scale(&transform, pixman_double_to_fixed(double(sizeOfSource.right) / size.right),
                                pixman_double_to_fixed(double(sizeOfSource.bottom) / size.bottom));
    pixman_image_set_transform(source, &transform);
    pixman_image_set_filter(source, PIXMAN_FILTER_NEAREST, nullptr, 0);
    for (auto _ : state)
        pixman_image_composite32(PIXMAN_OP_SRC, source, nullptr, target, 0, 0, 0, 0, 0, 0, size.right, size.bottom);
    pixman_image_unref(source);
    pixman_image_unref(target);
}

void makeWorld(benchmark::State &state)
{
    scene();
    constexpr Rect bounds = {0, 0, 480, 640};
    for (auto _ : state) {
        GWorldPtr world;
        NewGWorld(&world, 32, &bounds, nullptr, nullptr, 0);
        benchmark::DoNotOptimize(world);
        DisposeGWorld(world);
    }
}

void copyIcon(benchmark::State &state, GWorldPtr Scene::*source)
{
    constexpr Rect icon = {16, 16, 32, 32};
    copy(state, source, &Scene::target, icon, icon);
}

// Shares of the rate of a plain copy, and multiples of pixman's.
constexpr double plainRatio = 1 / 0.85, reversedRatio = 1 / 0.25, scaledRatio = 1 / 1.5;

[[maybe_unused]] const bool targets[] = {
    pairs::ratio("CopyBits world to window", plainRatio),
    pairs::ratio("CopyBits world to world", plainRatio),
    pairs::ratio("CopyBits reversed world to window", reversedRatio),
    pairs::ratio("CopyBits reversed world to world", reversedRatio),
    pairs::ratio("CopyBits world to reversed world", reversedRatio),
    pairs::ratio("CopyBits 2:1 up", scaledRatio),
    pairs::ratio("CopyBits 2:1 down", scaledRatio),
    pairs::within("CopyBits of 16x16", 300),
    pairs::within("CopyBits of 16x16 of a reversed world", 500),
    pairs::within("NewGWorld 640x480x32", 60000),
};

BENCHMARK_CAPTURE(copyToWindow, plain, &Scene::source)->Name("CopyBits world to window/ours");
BENCHMARK(copyMemory)->Name("CopyBits world to window/reference");
BENCHMARK_CAPTURE(copy, plain, &Scene::source, &Scene::target, whole, whole)->Name("CopyBits world to world/ours");
BENCHMARK(copyMemory)->Name("CopyBits world to world/reference");
BENCHMARK_CAPTURE(copyToWindow, reversed, &Scene::alphaFirst)->Name("CopyBits reversed world to window/ours");
BENCHMARK(copyMemory)->Name("CopyBits reversed world to window/reference");
BENCHMARK_CAPTURE(copy, reversed, &Scene::alphaFirst, &Scene::target, whole, whole)
    ->Name("CopyBits reversed world to world/ours");
BENCHMARK(copyMemory)->Name("CopyBits reversed world to world/reference");
BENCHMARK_CAPTURE(copy, toReversed, &Scene::source, &Scene::alphaFirst, whole, whole)
    ->Name("CopyBits world to reversed world/ours");
BENCHMARK(copyMemory)->Name("CopyBits world to reversed world/reference");
BENCHMARK_CAPTURE(copy, up, &Scene::small, &Scene::target, half, whole)->Name("CopyBits 2:1 up/ours");
BENCHMARK_CAPTURE(pixmanNearest, up, &Scene::small, half, &Scene::target, whole)->Name("CopyBits 2:1 up/reference");
BENCHMARK_CAPTURE(copy, down, &Scene::source, &Scene::small, whole, half)->Name("CopyBits 2:1 down/ours");
BENCHMARK_CAPTURE(pixmanNearest, down, &Scene::source, whole, &Scene::small, half)->Name("CopyBits 2:1 down/reference");
BENCHMARK_CAPTURE(copyIcon, plain, &Scene::source)->Name("CopyBits of 16x16/ours");
BENCHMARK_CAPTURE(copyIcon, reversed, &Scene::alphaFirst)->Name("CopyBits of 16x16 of a reversed world/ours");
BENCHMARK(makeWorld)->Name("NewGWorld 640x480x32/ours");

} // namespace
