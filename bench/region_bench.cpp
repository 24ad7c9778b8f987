// Regions, beside pixman called directly for the same work.
#include "pairs.h"

#include <windows.h>

#include <pixman.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

namespace {

struct RegionPair {
    HRGN ours = CreateRectRgn(0, 0, 0, 0);
    pixman_region32_t reference;

    // About a thousand boxes, as a heap of small windows would leave.
    explicit RegionPair(unsigned seed)
    {
        std::mt19937 random(seed);
        auto below = [&random](unsigned bound) { return static_cast<int>(random() % bound); };
        pixman_region32_init(&reference);
        for (int i = 0; i < 1000; ++i) {
            int x = below(4000), y = below(4000), width = 1 + below(60), height = 1 + below(60);
            HRGN box = CreateRectRgn(x, y, x + width, y + height);
            CombineRgn(ours, ours, box, RGN_OR);
            DeleteObject(box);
            pixman_region32_union_rect(&reference, &reference, x, y, static_cast<unsigned>(width),
                                       static_cast<unsigned>(height));
        }
    }
};

RegionPair &pair(int index)
{
    static RegionPair pairs[] = {RegionPair(1), RegionPair(2)};
    return pairs[index];
}

void combineOurs(benchmark::State &state, int mode)
{
    HRGN result = CreateRectRgn(0, 0, 0, 0);
    for (auto _ : state)
        CombineRgn(result, pair(0).ours, pair(1).ours, mode);
    DeleteObject(result);
}

template <class Operation> void combineReference(benchmark::State &state, Operation operation)
{
    pixman_region32_t result;
    pixman_region32_init(&result);
    for (auto _ : state)
        operation(&result, &pair(0).reference, &pair(1).reference);
    pixman_region32_fini(&result);
}

// A mask of 1,024 by 1,024 pixels with 50 runs in each row.
std::vector<RECT> maskRuns()
{
    std::vector<RECT> runs;
    for (int y = 0; y < 1024; ++y) {
        for (int i = 0; i < 50; ++i) {
            int x = i * 20 + (y * 7 + i * 3) % 9;
            runs.push_back({x, y, x + 8, y + 1});
        }
    }
    return runs;
}

// The same number of boxes, each within the one before.
std::vector<RECT> nestedBoxes()
{
    std::vector<RECT> boxes;
    for (int i = 0; i < 51200; ++i)
        boxes.push_back({i, i, 200000 - i, 200000 - i});
    return boxes;
}

void createOurs(benchmark::State &state, const std::vector<RECT> &boxes)
{
    std::vector<char> buffer(sizeof(RGNDATAHEADER) + boxes.size() * sizeof(RECT));
    auto *data = reinterpret_cast<RGNDATA *>(buffer.data());
    data->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(boxes.size()), 0, {}};
    memcpy(data->Buffer, boxes.data(), boxes.size() * sizeof(RECT));
    for (auto _ : state)
        DeleteObject(ExtCreateRegion(nullptr, static_cast<DWORD>(buffer.size()), data));
}

void createReference(benchmark::State &state, const std::vector<RECT> &boxes)
{
    for (auto _ : state) {
        pixman_region32_t region;
        pixman_region32_init_rects(&region, reinterpret_cast<const pixman_box32_t *>(boxes.data()),
                                   static_cast<int>(boxes.size()));
        pixman_region32_fini(&region);
    }
}

void pointOurs(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(PtInRegion(pair(0).ours, 1777, 2222));
}

void pointReference(benchmark::State &state)
{
    pixman_box32_t box;
    for (auto _ : state)
        benchmark::DoNotOptimize(pixman_region32_contains_point(&pair(0).reference, 1777, 2222, &box));
}

void createAndDelete(benchmark::State &state)
{
    for (auto _ : state)
        DeleteObject(CreateRectRgn(0, 0, 9, 9));
}

void polygonOurs(benchmark::State &state)
{
    constexpr POINT points[] = {{100, 100}, {500, 160}, {420, 520}, {250, 300}, {90, 480}};
    for (auto _ : state)
        DeleteObject(CreatePolygonRgn(points, 5, ALTERNATE));
}

void ellipseOurs(benchmark::State &state)
{
    for (auto _ : state)
        DeleteObject(CreateEllipticRgn(0, 0, 401, 401));
}

[[maybe_unused]] const bool targets[] = {
    pairs::ratio("CombineRgn AND, 1000 boxes / pixman", 1.2),
    pairs::ratio("CombineRgn OR, 1000 boxes / pixman", 1.2),
    pairs::ratio("CombineRgn DIFF, 1000 boxes / pixman", 1.2),
    pairs::ratio("ExtCreateRegion, 51200 runs of a mask / pixman", 1.2),
    pairs::within("ExtCreateRegion, 51200 boxes each in another", 200e6),
    pairs::beyond("PtInRegion, 1000 boxes / pixman", 20),
    pairs::within("CreateRectRgn and DeleteObject", 100),
    pairs::within("CreatePolygonRgn, 5 points, 420 rows", 10000),
    pairs::within("CreateEllipticRgn, 400 by 400", 10000),
};

BENCHMARK_CAPTURE(combineOurs, , RGN_AND)->Name("CombineRgn AND, 1000 boxes / pixman/ours");
BENCHMARK_CAPTURE(combineReference, , pixman_region32_intersect)->Name("CombineRgn AND, 1000 boxes / pixman/reference");
BENCHMARK_CAPTURE(combineOurs, , RGN_OR)->Name("CombineRgn OR, 1000 boxes / pixman/ours");
BENCHMARK_CAPTURE(combineReference, , pixman_region32_union)->Name("CombineRgn OR, 1000 boxes / pixman/reference");
BENCHMARK_CAPTURE(combineOurs, , RGN_DIFF)->Name("CombineRgn DIFF, 1000 boxes / pixman/ours");
BENCHMARK_CAPTURE(combineReference, , pixman_region32_subtract)->Name("CombineRgn DIFF, 1000 boxes / pixman/reference");
BENCHMARK_CAPTURE(createOurs, , maskRuns())->Name("ExtCreateRegion, 51200 runs of a mask / pixman/ours");
BENCHMARK_CAPTURE(createReference, , maskRuns())->Name("ExtCreateRegion, 51200 runs of a mask / pixman/reference");
BENCHMARK_CAPTURE(createOurs, , nestedBoxes())->Name("ExtCreateRegion, 51200 boxes each in another/ours");
BENCHMARK(pointOurs)->Name("PtInRegion, 1000 boxes / pixman/ours");
BENCHMARK(pointReference)->Name("PtInRegion, 1000 boxes / pixman/reference");
BENCHMARK(createAndDelete)->Name("CreateRectRgn and DeleteObject/ours");
BENCHMARK(polygonOurs)->Name("CreatePolygonRgn, 5 points, 420 rows/ours");
BENCHMARK(ellipseOurs)->Name("CreateEllipticRgn, 400 by 400/ours");

} // namespace
