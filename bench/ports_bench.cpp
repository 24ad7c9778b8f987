// Changing ports and pen patterns, which a host does between all drawing.
#include "graphics_scene.h"
#include "pairs.h"

#include <benchmark/benchmark.h>

namespace {

struct PortWindow {
    explicit PortWindow(int x)
    {
        OpenCPort(&record.port);
        record.port.portRect = {0, 0, 200, 200};
        (*record.port.portPixMap)->pmWindow = bench::newWindow(x);
    }

    WindowRecord record{};
};

// Two windows until the program ends.
struct Scene {
    Scene()
    {
        bench::useGraphics();
        a = new PortWindow(220);
        b = new PortWindow(440);
    }

    PortWindow *a, *b;
};

Scene &scene()
{
    static Scene only;
    return only;
}

void setPort(benchmark::State &state)
{
    GrafPtr a = &scene().a->record.port, b = &scene().b->record.port;
    for (auto _ : state) {
        MacSetPort(a);
        MacSetPort(b);
    }
}

// What a change cannot do without: the context goes back and another one comes.
void setPortReference(benchmark::State &state)
{
    HWND a = (*scene().a->record.port.portPixMap)->pmWindow, b = (*scene().b->record.port.portPixMap)->pmWindow;
    MacSetPort(nullptr);
    for (auto _ : state) {
        HDC context = GetDC(a);
        benchmark::DoNotOptimize(context);
        ReleaseDC(a, context);
        context = GetDC(b);
        benchmark::DoNotOptimize(context);
        ReleaseDC(b, context);
    }
}

void unchangedPattern(benchmark::State &state)
{
    MacSetPort(&scene().a->record.port);
    PenPat(&qd.gray);
    for (auto _ : state)
        PenPat(&qd.gray);
}

void changedPattern(benchmark::State &state)
{
    MacSetPort(&scene().a->record.port);
    for (auto _ : state) {
        PenPat(&qd.gray);
        PenPat(&qd.black);
    }
}

// A brush made and deleted by itself.
void changedPatternReference(benchmark::State &state)
{
    for (auto _ : state)
        for (COLORREF color : {0u, 0xFFFFFFu})
            DeleteObject(CreateSolidBrush(color));
}

[[maybe_unused]] const bool targets[] = {
    pairs::within("two MacSetPort between windows / contexts", 4000),
    pairs::within("PenPat of the same pattern", 50),
    pairs::ratio("two PenPat of other patterns / brushes", 8),
};

BENCHMARK(setPort)->Name("two MacSetPort between windows / contexts/ours");
BENCHMARK(setPortReference)->Name("two MacSetPort between windows / contexts/reference");
BENCHMARK(unchangedPattern)->Name("PenPat of the same pattern/ours");
BENCHMARK(changedPattern)->Name("two PenPat of other patterns / brushes/ours");
BENCHMARK(changedPatternReference)->Name("two PenPat of other patterns / brushes/reference");

} // namespace
