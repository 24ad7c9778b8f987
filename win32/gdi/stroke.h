// Lines as the selected pen of a context draws them, and shapes that are filled and framed.
#pragma once

#include "dash_pattern.h"
#include "drawing.h"
#include "outline.h"
#include "thin_line.h"
#include "widen.h"

namespace win32::gdi {

// The selected pen, in the units of the surface.
class Stroker {
public:
    explicit Stroker(Drawing &drawing);

    // A pen that draws nothing, whatever it is asked for.
    bool isNothing() const { return pen_.brush.style == BS_NULL; }
    bool isWide() const { return width_ > 1; }
    bool isSolid() const { return pattern_.isSolid(); }
    // One colour without gaps, one pixel wide.
    bool isPlain() const { return !isWide() && isSolid() && paint_.kind == Paint::Kind::Solid; }
    const Paint &paint() const { return paint_; }
    // How far the pen lies up and to the left of the line, in sixteenths.
    int shift() const { return shape_.isEven ? fixedOne / 2 : 0; }
    // Where the middle of the line runs for the frame of a box: a pen that stays inside moves it inwards.
    Box insideFrame(const Box &box) const;

    // Lines from one pixel's centre to the next; thin ones leave the last pixel out.
    void line(POINT from, POINT to);
    void lines(std::span<const POINT> points, bool isClosed);
    // Lines between any points, all figures as one stroke: where they overlap, pixels of wide ones are drawn once.
    void figures(std::span<const Figure> figures);

    // What a wide pen covers along figures, as polygons to be filled with WINDING; dashes far outside the bounds
    // are left out.
    void widen(std::span<const Figure> figures, const Box &bounds, Outline &outline) const;

private:
    void setShape(const DeviceContext &dc);
    void thin(const ThinLine &line) { thin(line, 0, line.pixels()); }
    void thin(const ThinLine &line, int64_t first, int64_t last);
    void thinFigure(const Figure &figure);
    void thinBroken(const ThinLine &line, int64_t first, int64_t last, int64_t start);
    void lay(const ThinLine &line, int64_t first, int64_t last, const Paint &paint);
    void widen(std::span<const FixedPoint> points, bool isClosed, const Box &bounds, Outline &outline) const;
    void fillOutline(const Outline &outline);

    Drawing &drawing_;
    const Pen &pen_;
    int width_ = 1; // pixels
    PenShape shape_;
    DashPattern pattern_;
    Paint paint_;
    Paint gapPaint_;
    int rop2_;
    int64_t distance_ = 0; // how many pixels of a thin line lie behind
};

// Closed curves, whose inside follows the middle of a wide line.
void fillAndStrokeCurves(Drawing &drawing, Stroker &stroker, std::span<const Figure> figures);

// Fills what is inside a shape with the selected brush and draws its figures with the pen.
void fillAndStroke(Drawing &drawing, Stroker &stroker, std::span<const Box> inside, std::span<const Figure> figures);

} // namespace win32::gdi
