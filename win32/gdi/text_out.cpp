// Drawing text: TextOutA and ExtTextOutA.
#include "drawing.h"
#include "text_paint.h"
#include "text_run.h"

#include "kernel/kernel_internal.h"

#include <array>

using namespace win32;
using namespace win32::gdi;

namespace {

struct TextCall {
    int x;
    int y;
    UINT options;
    const RECT *rect;
    const char *text;
    size_t count;
    const INT *widths;
};

// Where a text goes on the surface.
struct Placement {
    int64_t left;
    int64_t width;
    int64_t baseline;
};

Box boxOfPixels(int64_t left, int64_t top, int64_t right, int64_t bottom)
{
    auto cut = [](int64_t value) { return static_cast<int>(std::clamp<int64_t>(value, INT_MIN, INT_MAX)); };
    return {cut(left), cut(top), cut(right), cut(bottom)};
}

Placement place(const DeviceContext &dc, const TextCall &call, const TextRun &run)
{
    const ContextState &state = dc.state;
    POINT reference = dc.toSurface(state.textAlign & TA_UPDATECP ? state.position : POINT{call.x, call.y});
    Placement placement{reference.x, run.width(), reference.y};
    switch (state.textAlign & TA_CENTER) {
    case TA_RIGHT: placement.left -= placement.width; break;
    case TA_CENTER: placement.left -= placement.width / 2; break;
    }
    switch (state.textAlign & TA_BASELINE) {
    case TA_TOP: placement.baseline += run.font().metrics().ascent; break;
    case TA_BOTTOM: placement.baseline -= run.font().metrics().descent; break;
    }
    return placement;
}

// Collects glyphs and paints them in portions, so that text of any length needs no memory.
class GlyphPainter {
public:
    GlyphPainter(Drawing &drawing, const Box &within, uint32_t pixel, COLORREF color)
        : drawing_(drawing), within_(within), pixel_(pixel), color_(color)
    {
    }
    ~GlyphPainter() { flush(); }
    GlyphPainter(const GlyphPainter &) = delete;
    GlyphPainter &operator=(const GlyphPainter &) = delete;

    void add(const Glyph &glyph, int64_t x, int64_t y)
    {
        if (glyph.right == glyph.left || x < -farthestGlyph || x > farthestGlyph || y < -farthestGlyph
            || y > farthestGlyph)
            return;
        if (count_ == glyphs_.size())
            flush();
        PlacedGlyph &placed = glyphs_[count_++];
        placed = {&glyph, static_cast<int>(x), static_cast<int>(y)};
        Box box = placed.box();
        bounds_ = count_ == 1 ? box : united(bounds_, box);
    }

private:
    void flush()
    {
        Box seen = intersected(bounds_, within_);
        if (count_ && drawing_.touch(seen))
            paintGlyphs(drawing_.surface(), drawing_.clip(), seen, {glyphs_.data(), count_}, pixel_, color_);
        count_ = 0;
    }

    Drawing &drawing_;
    Box within_;
    uint32_t pixel_;
    COLORREF color_;
    size_t count_ = 0;
    Box bounds_{};
    std::array<PlacedGlyph, 128> glyphs_;
};

void drawLine(Drawing &drawing, const Placement &text, int top, int thickness, const Box &within, uint32_t pixel)
{
    Box line = boxOfPixels(text.left, text.baseline + top, text.left + text.width, text.baseline + top + thickness);
    drawing.fill(intersected(line, within), solidPaint(pixel), R2_COPYPEN);
}

void drawText(Drawing &drawing, const TextRun &run, const Placement &text, const Box &within)
{
    DeviceContext &dc = drawing.dc();
    COLORREF color = dc.plainColor(dc.state.textColor);
    uint32_t pixel = linePixelFor(drawing.surface(), color, dc.plainColor(dc.state.backgroundColor));
    {
        GlyphPainter painter(drawing, within, pixel, color);
        run.each([&](uint16_t code, size_t, int64_t left, int64_t) {
            painter.add(run.font().glyph(code), text.left + left, text.baseline);
        });
    }
    const FontMetrics &metrics = run.font().metrics();
    if (run.font().description().lfUnderline)
        drawLine(drawing, text, metrics.underlineTop, metrics.lineThickness, within, pixel);
    if (run.font().description().lfStrikeOut)
        drawLine(drawing, text, metrics.strikeoutTop, metrics.lineThickness, within, pixel);
}

void movePosition(DeviceContext &dc, int64_t width)
{
    UINT align = dc.state.textAlign;
    if (!(align & TA_UPDATECP) || (align & TA_CENTER) == TA_CENTER)
        return;
    int distance = logicalWidth(dc, width);
    LONG &x = dc.state.position.x;
    x = (align & TA_CENTER) == TA_RIGHT ? wrappingDifference(x, distance) : wrappingSum(x, distance);
}

BOOL drawCall(HDC context, const TextCall &call)
{
    return guarded(FALSE, [&]() -> BOOL {
        Drawing drawing(context);
        if (!drawing)
            return FALSE;
        DeviceContext &dc = drawing.dc();
        Box rect{};
        if (call.rect)
            rect = dc.toSurface(call.rect->left, call.rect->top, call.rect->right, call.rect->bottom);
        Paint background = solidPaint(pixelFor(drawing.surface(), dc.plainColor(dc.state.backgroundColor)));
        if (call.rect && (call.options & ETO_OPAQUE))
            drawing.fill(rect, background, R2_COPYPEN);
        if (call.count == 0)
            return TRUE;
        Box within = call.rect && (call.options & ETO_CLIPPED) ? rect : everywhere;
        TextRun run(dc, call.text, call.count, call.widths);
        Placement text = place(dc, call, run);
        const FontMetrics &metrics = run.font().metrics();
        if (dc.state.backgroundMode == OPAQUE) {
            Box cell = boxOfPixels(text.left, text.baseline - metrics.ascent, text.left + text.width,
                                   text.baseline + metrics.descent);
            drawing.fill(intersected(cell, within), background, R2_COPYPEN);
        }
        drawText(drawing, run, text, within);
        movePosition(dc, text.width);
        return TRUE;
    });
}

} // namespace

BOOL TextOutA(HDC context, int x, int y, LPCSTR text, int count)
{
    if (count < 0 || (count > 0 && !text))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return drawCall(context, {x, y, 0, nullptr, text, static_cast<size_t>(count), nullptr});
}

BOOL ExtTextOutA(HDC context, int x, int y, UINT options, const RECT *rect, LPCSTR text, UINT count, const INT *widths)
{
    constexpr UINT longest = 0x7fffffff;
    if (count > longest || (count > 0 && !text) || (options & ETO_GLYPH_INDEX)
        || (!rect && (options & (ETO_OPAQUE | ETO_CLIPPED))))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return drawCall(context, {x, y, options, rect, text, count, widths});
}
