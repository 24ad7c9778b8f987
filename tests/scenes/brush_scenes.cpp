// Brushes: colours that an indexed canvas has or lacks, hatches, patterns, and all codes of PatBlt.
#include "scenes.h"

namespace scenes {
namespace {

constexpr WORD weave[8] = {0x11, 0x22, 0x44, 0x88, 0xf0, 0x0f, 0xaa, 0x5d};

void fill(Canvas &canvas, int x, int y, int width, int height)
{
    PatBlt(canvas.dc(), x, y, width, height, PATCOPY);
}

void colors(Canvas &canvas)
{
    Random random(5);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 21; ++x) {
            canvas.brush(random.color());
            fill(canvas, x * 10, y * 10, 10, 10);
        }
}

void hatches(Canvas &canvas)
{
    SetBkColor(canvas.dc(), RGB(0, 0, 255));
    for (int style = HS_HORIZONTAL; style <= HS_DIAGCROSS; ++style) {
        // A new brush each time: not every Win32 lets a change of the mode reach a brush that has drawn.
        int y = 2;
        for (int mode : {OPAQUE, TRANSPARENT}) {
            SetBkMode(canvas.dc(), mode);
            canvas.use(CreateHatchBrush(style, RGB(255, 255, 0)));
            fill(canvas, style * 35, y, 30, 37);
            SetBrushOrgEx(canvas.dc(), 3, 5, nullptr);
            canvas.use(CreateHatchBrush(style, RGB(255, 0, 0)));
            Rectangle(canvas.dc(), style * 35, y + 39, style * 35 + 33, y + 74);
            SetBrushOrgEx(canvas.dc(), 0, 0, nullptr);
            y += 78;
        }
    }
}

void monochromePatterns(Canvas &canvas)
{
    HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, weave);
    canvas.use(CreatePatternBrush(bitmap));
    DeleteObject(bitmap);
    SetTextColor(canvas.dc(), RGB(255, 0, 0));
    SetBkColor(canvas.dc(), RGB(0, 255, 0));
    fill(canvas, 3, 3, 100, 70);
    SetTextColor(canvas.dc(), RGB(0, 0, 255));
    fill(canvas, 110, 3, 90, 70);
    for (int i = 0; i < 16; ++i) {
        SetBrushOrgEx(canvas.dc(), i % 8, i * 3 % 8, nullptr);
        canvas.use(CreatePatternBrush(bitmap = CreateBitmap(8, 8, 1, 1, weave)));
        DeleteObject(bitmap);
        fill(canvas, 3 + i * 13, 80, 11, 70);
    }
}

void coloredPatterns(Canvas &canvas)
{
    Canvas pattern(canvas.depth(), 11, 7);
    Random random(6);
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 11; ++x)
            SetPixel(pattern.dc(), x, y, random.color());
    canvas.use(CreatePatternBrush(pattern.bitmap()));
    fill(canvas, 5, 5, 120, 70);
    SetROP2(canvas.dc(), R2_XORPEN);
    Ellipse(canvas.dc(), 80, 40, 200, 150);
    SetBrushOrgEx(canvas.dc(), 4, 3, nullptr);
    canvas.use(CreatePatternBrush(pattern.bitmap()));
    PatBlt(canvas.dc(), 10, 90, 70, 60, PATINVERT);
}

void dibPattern(Canvas &canvas)
{
    // Some mix the colours of such a pattern from black and white.
    if (canvas.depth() == 1)
        return;
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colors[4];
        BYTE bits[8 * 4];
    } dib{};
    dib.header = {sizeof(BITMAPINFOHEADER), 8, 8, 1, 4, BI_RGB, 0, 0, 0, 4, 0};
    for (int i = 0; i < 4; ++i)
        dib.colors[i] = {static_cast<BYTE>(i * 80), static_cast<BYTE>(255 - i * 80), static_cast<BYTE>(i & 1 ? 255 : 0),
                         0};
    for (int i = 0; i < 32; ++i)
        dib.bits[i] = static_cast<BYTE>((i * 7 & 3) | (i * 3 & 3) << 4);
    canvas.use(CreateDIBPatternBrushPt(&dib, DIB_RGB_COLORS));
    fill(canvas, 5, 5, 150, 100);
    RoundRect(canvas.dc(), 60, 60, 200, 150, 30, 30);
}

void allCodes(Canvas &canvas)
{
    HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, weave);
    canvas.use(CreatePatternBrush(bitmap));
    DeleteObject(bitmap);
    // Codes that need a source fail and draw nothing.
    for (int code = 0; code < 256; ++code)
        PatBlt(canvas.dc(), code % 16 * 13, code / 16 * 10, 12, 9, static_cast<DWORD>(code) << 16);
    canvas.brush(RGB(90, 200, 30));
    for (int code = 0; code < 256; ++code)
        PatBlt(canvas.dc(), code % 16 * 13 + 6, code / 16 * 10 + 4, 7, 6, static_cast<DWORD>(code) << 16);
}

void mirroredPatBlt(Canvas &canvas)
{
    canvas.brush(RGB(0, 255, 255));
    PatBlt(canvas.dc(), 100, 80, -60, -50, PATCOPY);
    PatBlt(canvas.dc(), 110, 80, 60, -50, PATINVERT);
    PatBlt(canvas.dc(), 100, 90, -60, 50, DSTINVERT);
    PatBlt(canvas.dc(), 110, 90, 0, 50, BLACKNESS);
    PatBlt(canvas.dc(), 120, 90, 300, 400, WHITENESS);
}

void pixels(Canvas &canvas)
{
    Random random(7);
    for (int i = 0; i < 5000; ++i) {
        COLORREF color = random.color();
        if (i % 2)
            SetPixelV(canvas.dc(), random.between(-5, 215), random.between(-5, 165), color);
        else
            SetPixel(canvas.dc(), random.between(-5, 215), random.between(-5, 165), color);
    }
    // What GetPixel reads decides what is drawn.
    for (int x = 0; x < 210; ++x)
        SetPixelV(canvas.dc(), x, 159, GetPixel(canvas.dc(), x, 40) ^ RGB(255, 255, 255));
}

} // namespace

std::vector<Scene> brushScenes()
{
    return {{"brushes: colours", Agreement::Exact, colors},
            {"brushes: hatches", Agreement::Exact, hatches},
            {"brushes: monochrome patterns", Agreement::Exact, monochromePatterns},
            {"brushes: coloured patterns", Agreement::Exact, coloredPatterns},
            {"brushes: patterns of DIBs", Agreement::Exact, dibPattern},
            {"brushes: all codes", Agreement::Exact, allCodes},
            {"brushes: mirrored boxes", Agreement::Exact, mirroredPatBlt},
            {"brushes: single pixels", Agreement::Exact, pixels}};
}

} // namespace scenes
