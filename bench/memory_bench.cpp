// The Memory Manager beside the C heap, with the sizes of real programs: many small, some large.
#include "pairs.h"

#include <mtbx/MTBX.h>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <random>
#include <vector>

namespace {

std::vector<Size> mixedSizes()
{
    std::mt19937 random(1);
    std::vector<Size> sizes(1024);
    for (Size &size : sizes)
        size = static_cast<Size>(16 + random() % 4081);
    return sizes;
}

// Keeps a number of blocks alive and replaces the oldest: with many, the heap is neither empty nor warm
// in one block only; with one, a block is made and freed at once.
template <size_t liveBlocks, class Make, class Free>
void replaceOldest(benchmark::State &state, Make make, Free release)
{
    static const std::vector<Size> sizes = mixedSizes();
    using Block = decltype(make(Size{}));
    Block live[liveBlocks];
    size_t step = 0;
    for (Block &block : live)
        block = make(sizes[step++]);
    for (auto _ : state) {
        Block &block = live[step % liveBlocks];
        release(block);
        block = make(sizes[step++ % sizes.size()]);
    }
    for (Block &block : live)
        release(block);
}

template <size_t liveBlocks> void newPtrOurs(benchmark::State &state)
{
    replaceOldest<liveBlocks>(
        state, [](Size size) { return NewPtr(size); }, [](Ptr p) { DisposePtr(p); });
}

template <size_t liveBlocks> void newPtrReference(benchmark::State &state)
{
    replaceOldest<liveBlocks>(
        state, [](Size size) { return malloc(static_cast<size_t>(size)); }, [](void *p) { free(p); });
}

template <size_t liveBlocks> void newHandleOurs(benchmark::State &state)
{
    replaceOldest<liveBlocks>(
        state, [](Size size) { return NewHandle(size); }, [](Handle h) { DisposeHandle(h); });
}

template <size_t liveBlocks> void newHandleReference(benchmark::State &state)
{
    struct Pair {
        void *cell, *block;
    };
    replaceOldest<liveBlocks>(
        state,
        [](Size size) {
            return Pair{malloc(sizeof(void *)), malloc(static_cast<size_t>(size))};
        },
        [](Pair pair) {
            free(pair.block);
            free(pair.cell);
        });
}

__attribute__((noinline)) UInt64 emptyCall()
{
    asm volatile("");
    return 0;
}

void usageOurs(benchmark::State &state)
{
    static bool measured = false;
    if (!measured) {
        measured = true;
        MaxBlockEx();
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(MaxBlockEx());
}

void usageReference(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(emptyCall());
}

[[maybe_unused]] const bool targets[] = {
    pairs::ratio("NewPtr 16..4096, 64 alive / malloc", 1.3),
    pairs::ratio("NewPtr 16..4096, one alive / malloc", 1.3),
    pairs::ratio("NewHandle 16..4096, 64 alive / 2 malloc", 1.3),
    pairs::ratio("NewHandle 16..4096, one alive / 2 malloc", 1.3),
    pairs::beyond("MaxBlockEx, no measurement due / empty call", 5),
};

BENCHMARK(newPtrOurs<64>)->Name("NewPtr 16..4096, 64 alive / malloc/ours");
BENCHMARK(newPtrReference<64>)->Name("NewPtr 16..4096, 64 alive / malloc/reference");
BENCHMARK(newPtrOurs<1>)->Name("NewPtr 16..4096, one alive / malloc/ours");
BENCHMARK(newPtrReference<1>)->Name("NewPtr 16..4096, one alive / malloc/reference");
BENCHMARK(newHandleOurs<64>)->Name("NewHandle 16..4096, 64 alive / 2 malloc/ours");
BENCHMARK(newHandleReference<64>)->Name("NewHandle 16..4096, 64 alive / 2 malloc/reference");
BENCHMARK(newHandleOurs<1>)->Name("NewHandle 16..4096, one alive / 2 malloc/ours");
BENCHMARK(newHandleReference<1>)->Name("NewHandle 16..4096, one alive / 2 malloc/reference");
BENCHMARK(usageOurs)->Name("MaxBlockEx, no measurement due / empty call/ours");
BENCHMARK(usageReference)->Name("MaxBlockEx, no measurement due / empty call/reference");

} // namespace
