// Shapes of the Toolbox beside GDI's own fills, on 1920 by 1080 pixels of 32 bits.
#include "graphics_scene.h"
#include "pairs.h"

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cstring>

namespace {

using namespace bench;

constexpr int width = MemoryPort::width, height = MemoryPort::height;
constexpr Rect large = {40, 100, 840, 1100}, small = {100, 100, 116, 116};

void paintRect(benchmark::State &state, Rect rect)
{
    useMemoryPort();
    for (auto _ : state)
        PaintRect(&rect);
}

void fillRect(benchmark::State &state, Rect rect)
{
    HDC context = useMemoryPort();
    RECT area = {rect.left, rect.top, rect.right, rect.bottom};
    HBRUSH brush = memoryPort().port->portBrush;
    for (auto _ : state)
        FillRect(context, &area, brush);
}

void frameRect(benchmark::State &state)
{
    useMemoryPort();
    for (auto _ : state)
        MacFrameRect(&large);
}

void frameRectReference(benchmark::State &state)
{
    HDC context = useMemoryPort();
    for (auto _ : state) {
        PatBlt(context, 100, 40, 1000, 1, PATCOPY);
        PatBlt(context, 1099, 41, 1, 798, PATCOPY);
        PatBlt(context, 100, 839, 1000, 1, PATCOPY);
        PatBlt(context, 100, 41, 1, 798, PATCOPY);
    }
}

// There and back again, so that no call between the lines counts.
void lines(benchmark::State &state)
{
    useMemoryPort();
    MoveTo(100, 100);
    for (auto _ : state) {
        MacLineTo(400, 100);
        MacLineTo(400, 300);
        MacLineTo(100, 300);
        MacLineTo(100, 100);
    }
}

void linesReference(benchmark::State &state)
{
    HDC context = useMemoryPort();
    for (auto _ : state) {
        PatBlt(context, 100, 100, 301, 1, PATCOPY);
        PatBlt(context, 400, 100, 1, 201, PATCOPY);
        PatBlt(context, 100, 300, 301, 1, PATCOPY);
        PatBlt(context, 100, 100, 1, 201, PATCOPY);
    }
}

void paintOval(benchmark::State &state)
{
    useMemoryPort();
    Rect rect = {100, 100, 500, 500};
    for (auto _ : state)
        PaintOval(&rect);
}

void paintOvalReference(benchmark::State &state)
{
    cairo_surface_t *surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t *context = cairo_create(surface);
    cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE);
    constexpr double wholeTurn = 6.283185307179586;
    for (auto _ : state) {
        cairo_arc(context, 300, 300, 200, 0, wholeTurn);
        cairo_set_source_rgb(context, 0, 0, 0);
        cairo_fill(context);
    }
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}

// An outline of 1132 dots.
void frameOval(benchmark::State &state)
{
    useMemoryPort();
    Rect rect = {100, 100, 501, 501};
    for (auto _ : state)
        FrameOval(&rect);
}

void scrollRect(benchmark::State &state)
{
    useMemoryPort();
    RgnHandle update = NewRgn();
    for (auto _ : state)
        ScrollRect(&large, 0, -1, update);
    DisposeRgn(update);
}

void scrollRectReference(benchmark::State &state)
{
    auto *rows = static_cast<char *>(memoryPort().bits);
    for (auto _ : state) {
        for (int y = 40; y < 839; ++y)
            memmove(rows + (y * width + 100) * 4, rows + ((y + 1) * width + 100) * 4, 4000);
        benchmark::ClobberMemory();
    }
}

constexpr double dotsOfOval = 1132, nanosecondsPerDot = 60;

[[maybe_unused]] const bool targets[] = {
    pairs::ratio("PaintRect 1000 x 800 / FillRect", 1.3),
    pairs::ratio("PaintRect 16 x 16 / FillRect", 1.3),
    pairs::ratio("MacFrameRect 1000 x 800 / PatBlt", 1.3),
    pairs::ratio("four MacLineTo / PatBlt", 1.3),
    pairs::ratio("PaintOval 400 x 400 / cairo", 0.5),
    pairs::within("FrameOval of 1132 dots", dotsOfOval *nanosecondsPerDot),
    pairs::ratio("ScrollRect 1000 x 800 / memmove", 1 / 0.7),
};

BENCHMARK_CAPTURE(paintRect, large, large)->Name("PaintRect 1000 x 800 / FillRect/ours");
BENCHMARK_CAPTURE(fillRect, large, large)->Name("PaintRect 1000 x 800 / FillRect/reference");
BENCHMARK_CAPTURE(paintRect, small, small)->Name("PaintRect 16 x 16 / FillRect/ours");
BENCHMARK_CAPTURE(fillRect, small, small)->Name("PaintRect 16 x 16 / FillRect/reference");
BENCHMARK(frameRect)->Name("MacFrameRect 1000 x 800 / PatBlt/ours");
BENCHMARK(frameRectReference)->Name("MacFrameRect 1000 x 800 / PatBlt/reference");
BENCHMARK(lines)->Name("four MacLineTo / PatBlt/ours");
BENCHMARK(linesReference)->Name("four MacLineTo / PatBlt/reference");
BENCHMARK(paintOval)->Name("PaintOval 400 x 400 / cairo/ours");
BENCHMARK(paintOvalReference)->Name("PaintOval 400 x 400 / cairo/reference");
BENCHMARK(frameOval)->Name("FrameOval of 1132 dots/ours");
BENCHMARK(scrollRect)->Name("ScrollRect 1000 x 800 / memmove/ours");
BENCHMARK(scrollRectReference)->Name("ScrollRect 1000 x 800 / memmove/reference");

} // namespace
