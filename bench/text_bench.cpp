// Text of 40 characters, drawn on 32 bits a pixel and measured: by native calls and by the Toolbox.
#include "graphics_scene.h"
#include "pairs.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

constexpr char text[] = "The quick brown fox jumps over the lazy.";
constexpr int count = 40;
static_assert(sizeof text == count + 1);

HDC contextWith(BYTE quality)
{
    HDC dc = CreateCompatibleDC(nullptr);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = 800;
    info.bmiHeader.biHeight = -100;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void *bits;
    SelectObject(dc, CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    LOGFONTA font{};
    font.lfHeight = -12;
    font.lfQuality = quality;
    strcpy(font.lfFaceName, "Arial");
    SelectObject(dc, CreateFontIndirectA(&font));
    return dc;
}

void drawText(benchmark::State &state, BYTE quality, int mode)
{
    HDC dc = contextWith(quality);
    SetBkMode(dc, mode);
    for (auto _ : state)
        TextOutA(dc, 10, 10, text, count);
}

void measureText(benchmark::State &state)
{
    HDC dc = contextWith(NONANTIALIASED_QUALITY);
    SIZE extent;
    for (auto _ : state) {
        GetTextExtentPoint32A(dc, text, count, &extent);
        benchmark::DoNotOptimize(extent);
    }
}

// The same by the Toolbox, beside the native calls that it cannot do without.
struct ToolboxText {
    ToolboxText()
    {
        bench::useMemoryPort();
        InitFonts();
        TextFont(FMGetFontFamilyFromName(reinterpret_cast<ConstStr255Param>("\005Arial")));
        TextSize(12);
        string[0] = count;
        memcpy(string + 1, text, count);
        MoveTo(10, 100);
        DrawString(string);
    }

    Str255 string;
};

const ToolboxText &toolboxText()
{
    bench::useMemoryPort();
    static const ToolboxText only;
    return only;
}

void drawString(benchmark::State &state, SInt16 mode)
{
    const ToolboxText &toolbox = toolboxText();
    TextMode(mode);
    for (auto _ : state) {
        MoveTo(10, 100);
        DrawString(toolbox.string);
    }
}

void drawStringReference(benchmark::State &state, SInt16 mode)
{
    toolboxText();
    TextMode(mode);
    StringWidth(toolboxText().string);
    HDC context = bench::useMemoryPort();
    SetTextAlign(context, TA_BASELINE);
    for (auto _ : state)
        TextOutA(context, 10, 100, text, count);
}

void stringWidth(benchmark::State &state)
{
    const ToolboxText &toolbox = toolboxText();
    for (auto _ : state) {
        SInt32 width = StringWidth(toolbox.string);
        benchmark::DoNotOptimize(width);
    }
}

// A new font instance is a look through the table.
void changeFont(benchmark::State &state)
{
    toolboxText();
    for (auto _ : state) {
        TextFace(1);
        CharWidth('a');
        TextFace(0);
        CharWidth('a');
    }
}

[[maybe_unused]] const bool targets[] = {
    pairs::within("DrawString of 40, transparent / TextOut", 2000),
    pairs::within("DrawString of 40, opaque / TextOut", 2000),
    pairs::within("StringWidth of 40", 300),
    pairs::within("two changes of face with a width", 2000),
    pairs::within("TextOut of 40, one-bit", 2000),
    pairs::within("TextOut of 40, opaque", 2000),
    pairs::within("TextOut of 40, smooth", 4000),
    pairs::within("GetTextExtentPoint32 of 40", 300),
};

BENCHMARK_CAPTURE(drawString, transparent, SInt16{srcOr})->Name("DrawString of 40, transparent / TextOut/ours");
BENCHMARK_CAPTURE(drawStringReference, transparent, SInt16{srcOr})
    ->Name("DrawString of 40, transparent / TextOut/reference");
BENCHMARK_CAPTURE(drawString, opaque, SInt16{srcCopy})->Name("DrawString of 40, opaque / TextOut/ours");
BENCHMARK_CAPTURE(drawStringReference, opaque, SInt16{srcCopy})->Name("DrawString of 40, opaque / TextOut/reference");
BENCHMARK(stringWidth)->Name("StringWidth of 40/ours");
BENCHMARK(changeFont)->Name("two changes of face with a width/ours");
BENCHMARK_CAPTURE(drawText, plain, BYTE{NONANTIALIASED_QUALITY}, TRANSPARENT)->Name("TextOut of 40, one-bit/ours");
BENCHMARK_CAPTURE(drawText, opaque, BYTE{NONANTIALIASED_QUALITY}, OPAQUE)->Name("TextOut of 40, opaque/ours");
BENCHMARK_CAPTURE(drawText, smooth, BYTE{ANTIALIASED_QUALITY}, TRANSPARENT)->Name("TextOut of 40, smooth/ours");
BENCHMARK(measureText)->Name("GetTextExtentPoint32 of 40/ours");

} // namespace
