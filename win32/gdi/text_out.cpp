// Drawing text: TextOutA and ExtTextOutA.
#include "line_call.h"
#include "text_paint.h"
#include "text_run.h"

#include "kernel/kernel_internal.h"

#include <array>
#include <cmath>

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

// Where a text goes: the start of its base line, and how it goes on from there.
struct Placement {
    double x;
    double y;
    int64_t width;
    TextDirection direction;

    double xAt(double along, double down) const { return x + direction.x(along, down); }
    double yAt(double along, double down) const { return y + direction.y(along, down); }
};

int64_t rounded(double value)
{
    return static_cast<int64_t>(std::floor(value + 0.5));
}

// A part of a text: its whole length, between two depths below the base line.
struct Strip {
    int64_t top;
    int64_t bottom;
};

Box levelBox(const Placement &text, const Strip &strip)
{
    auto cut = [](double value) { return static_cast<int>(std::clamp<double>(value, INT_MIN, INT_MAX)); };
    return {cut(text.x), cut(text.y + static_cast<double>(strip.top)), cut(text.x + static_cast<double>(text.width)),
            cut(text.y + static_cast<double>(strip.bottom))};
}

// Edges lie between pixels, half a pixel before their first ones.
std::array<FixedPoint, 4> cornersOf(const Placement &text, const Strip &strip)
{
    auto corner = [&](int64_t along, int64_t down) {
        auto a = static_cast<double>(along), d = static_cast<double>(down);
        return FixedPoint{toFixed(text.xAt(a, d) - 0.5), toFixed(text.yAt(a, d) - 0.5)};
    };
    return {corner(0, strip.top), corner(text.width, strip.top), corner(text.width, strip.bottom),
            corner(0, strip.bottom)};
}

POINT referencePoint(const DeviceContext &dc, const TextCall &call)
{
    return dc.state.textAlign & TA_UPDATECP ? dc.state.position : POINT{call.x, call.y};
}

// The reference point lies on the surface, or in device coordinates for a path.
Placement place(const DeviceContext &dc, POINT reference, const TextRun &run)
{
    const ContextState &state = dc.state;
    double along = 0, down = 0;
    auto width = static_cast<double>(run.width());
    switch (state.textAlign & TA_CENTER) {
    case TA_RIGHT: along = -width; break;
    case TA_CENTER: along = -static_cast<double>(run.width() / 2); break;
    }
    switch (state.textAlign & TA_BASELINE) {
    case TA_TOP: down = run.font().metrics().ascent; break;
    case TA_BOTTOM: down = -run.font().metrics().descent; break;
    }
    const TextDirection &direction = run.font().direction();
    return {static_cast<double>(reference.x) + direction.x(along, down),
            static_cast<double>(reference.y) + direction.y(along, down), run.width(), direction};
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

void fillStrip(Drawing &drawing, const Placement &text, const Strip &strip, const Box &within, const Paint &paint)
{
    if (text.direction.isLevel()) {
        drawing.fill(intersected(levelBox(text, strip), within), paint, R2_COPYPEN);
        return;
    }
    Outline outline;
    for (FixedPoint corner : cornersOf(text, strip))
        outline.points.push_back(corner);
    outline.close();
    std::vector<Box> boxes;
    scanOutline(outline, WINDING, intersected(drawing.clip().extents, within), boxes);
    drawing.fill(boxes, paint, R2_COPYPEN);
}

// What underlining and striking out lay on a text.
template <class Lay> void layLines(const RealizedFont &font, Lay lay)
{
    const FontMetrics &metrics = font.metrics();
    if (font.description().lfUnderline)
        lay(Strip{metrics.underlineTop, metrics.underlineTop + metrics.lineThickness});
    if (font.description().lfStrikeOut)
        lay(Strip{metrics.strikeoutTop, metrics.strikeoutTop + metrics.lineThickness});
}

Strip cellOf(const FontMetrics &metrics)
{
    return {-metrics.ascent, metrics.descent};
}

void drawText(Drawing &drawing, const TextRun &run, const Placement &text, const Box &within)
{
    DeviceContext &dc = drawing.dc();
    COLORREF color = dc.plainColor(dc.state.textColor);
    uint32_t pixel = linePixelFor(drawing.surface(), color, dc.plainColor(dc.state.backgroundColor));
    {
        GlyphPainter painter(drawing, within, pixel, color);
        int64_t x = rounded(text.x), y = rounded(text.y);
        run.each([&](uint16_t code, size_t, int64_t left, int64_t) {
            const Glyph &glyph = run.font().glyph(code);
            if (text.direction.isLevel())
                painter.add(glyph, x + left, y);
            else
                painter.add(glyph, rounded(text.xAt(static_cast<double>(left), 0)),
                            rounded(text.yAt(static_cast<double>(left), 0)));
        });
    }
    layLines(run.font(), [&](const Strip &line) { fillStrip(drawing, text, line, within, solidPaint(pixel)); });
}

void movePosition(DeviceContext &dc, const Placement &text)
{
    UINT align = dc.state.textAlign;
    if (!(align & TA_UPDATECP) || (align & TA_CENTER) == TA_CENTER)
        return;
    auto width = static_cast<double>((align & TA_CENTER) == TA_RIGHT ? -text.width : text.width);
    POINT &position = dc.state.position;
    position.x = wrappingSum(position.x, logicalWidth(dc, rounded(text.direction.x(width, 0))));
    position.y = wrappingSum(position.y, logicalHeight(dc, rounded(text.direction.y(width, 0))));
}

void draw(Drawing &drawing, const TextCall &call)
{
    DeviceContext &dc = drawing.dc();
    Box rect{};
    if (call.rect)
        rect = dc.toSurface(call.rect->left, call.rect->top, call.rect->right, call.rect->bottom);
    Paint background = solidPaint(pixelFor(drawing.surface(), dc.plainColor(dc.state.backgroundColor)));
    if (call.rect && (call.options & ETO_OPAQUE))
        drawing.fill(rect, background, R2_COPYPEN);
    if (call.count == 0)
        return;
    Box within = call.rect && (call.options & ETO_CLIPPED) ? rect : everywhere;
    TextRun run(dc, call.text, call.count, call.widths);
    Placement text = place(dc, dc.toSurface(referencePoint(dc, call)), run);
    if (dc.state.backgroundMode == OPAQUE)
        fillStrip(drawing, text, cellOf(run.font().metrics()), within, background);
    drawText(drawing, run, text, within);
    movePosition(dc, text);
}

void recordStrip(PathRecorder &path, const Placement &text, const Strip &strip)
{
    std::array<FixedPoint, 4> corners = cornersOf(text, strip);
    if (text.width > 0)
        path.addLines(std::span<const FixedPoint>(corners), true);
}

void recordGlyph(PathRecorder &path, const GlyphOutline &outline, double x, double y)
{
    std::vector<FixedPoint> points;
    for (size_t i = 0; i < outline.starts.size(); ++i) {
        size_t end = i + 1 < outline.starts.size() ? outline.starts[i + 1] : outline.points.size();
        points.clear();
        for (size_t place = outline.starts[i]; place < end; ++place)
            points.push_back({toFixed(x + outline.points[place].x - 0.5), toFixed(y + outline.points[place].y - 0.5)});
        if (points.size() > 1)
            path.addBeziers(std::span<const FixedPoint>(points), true);
    }
}

// In an opaque background mode the cell is a figure too, so that filling by turns leaves the characters out.
void recordText(PathRecorder &path, const TextRun &run, const Placement &text)
{
    if (path.dc().state.backgroundMode == OPAQUE)
        recordStrip(path, text, cellOf(run.font().metrics()));
    GlyphOutline outline;
    run.each([&](uint16_t code, size_t, int64_t left, int64_t) {
        outline.points.clear();
        outline.starts.clear();
        auto along = static_cast<double>(left);
        if (run.font().outline(code, outline))
            recordGlyph(path, outline, text.xAt(along, 0), text.yAt(along, 0));
    });
    layLines(run.font(), [&](const Strip &line) { recordStrip(path, text, line); });
}

// Fonts of pictures add nothing.
void record(PathRecorder &path, const TextCall &call)
{
    if (call.count == 0)
        return;
    DeviceContext &dc = path.dc();
    TextRun run(dc, call.text, call.count, call.widths);
    Placement text = place(dc, dc.toDevice(referencePoint(dc, call)), run);
    if (run.font().metrics().isScalable)
        recordText(path, run, text);
    movePosition(dc, text);
}

BOOL drawCall(HDC context, const TextCall &call)
{
    return recordOrDraw(
        context, [&](PathRecorder &path) { record(path, call); }, [&](Drawing &drawing) { draw(drawing, call); });
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
