#include "curve.h"

#include <cmath>
#include <numbers>

namespace win32::gdi {
namespace {

// How far a row of points may leave its curve, in pixels.
constexpr double tolerance = 0.1;

double length(double x, double y)
{
    return std::sqrt(x * x + y * y);
}

// How far a quadratic piece of a curve bends away from a straight line, times eight.
double bend(FixedPoint a, FixedPoint b, FixedPoint c)
{
    return length(double{1} * a.x - 2.0 * b.x + c.x, double{1} * a.y - 2.0 * b.y + c.y);
}

} // namespace

void flattenBezier(FixedPoint start, FixedPoint control1, FixedPoint control2, FixedPoint end,
                   std::vector<FixedPoint> &points)
{
    constexpr double mostPieces = 2048;
    double bending = std::max(bend(start, control1, control2), bend(control1, control2, end));
    // In n pieces the curve leaves its chords by less than 6/8 of its bending over n squared.
    double wanted = std::ceil(std::sqrt(0.75 * bending / (tolerance * fixedOne)));
    int pieces = static_cast<int>(std::clamp(wanted, 1.0, mostPieces));
    for (int i = 1; i < pieces; ++i) {
        double t = double{1} * i / pieces;
        double u = 1 - t;
        double a = u * u * u;
        double b = 3 * u * u * t;
        double c = 3 * u * t * t;
        double d = t * t * t;
        points.push_back({static_cast<int>(std::lround(a * start.x + b * control1.x + c * control2.x + d * end.x)),
                          static_cast<int>(std::lround(a * start.y + b * control1.y + c * control2.y + d * end.y))});
    }
    points.push_back(end);
}

FixedPoint EllipseArc::at(double angle) const
{
    return {toFixed(centerX + radiusX * std::cos(angle)), toFixed(centerY - radiusY * std::sin(angle))};
}

void EllipseArc::flatten(std::vector<FixedPoint> &points) const
{
    constexpr double mostPieces = 8192;
    double radius = std::max({radiusX, radiusY, tolerance});
    double widest = 2 * std::acos(1 - std::min(1.0, tolerance / radius));
    // A multiple of four, so that a whole ellipse is as symmetric as its box.
    double wanted = std::max(4.0, std::ceil(sweep / widest / 4) * 4);
    int pieces = static_cast<int>(std::min(wanted, mostPieces));
    for (int i = 0; i <= pieces; ++i)
        points.push_back(at(start + sweep * i / pieces));
}

void EllipseArc::toBeziers(std::vector<FixedPoint> &points) const
{
    int pieces = std::max(1, static_cast<int>(std::ceil(sweep / (std::numbers::pi / 2) - 1e-9)));
    double step = sweep / pieces;
    double reach = 4.0 / 3.0 * std::tan(step / 4);
    points.push_back(at(start));
    for (int i = 0; i < pieces; ++i) {
        double from = start + step * i;
        double to = from + step;
        points.push_back({toFixed(centerX + radiusX * (std::cos(from) - reach * std::sin(from))),
                          toFixed(centerY - radiusY * (std::sin(from) + reach * std::cos(from)))});
        points.push_back({toFixed(centerX + radiusX * (std::cos(to) + reach * std::sin(to))),
                          toFixed(centerY - radiusY * (std::sin(to) - reach * std::cos(to)))});
        points.push_back(at(to));
    }
}

EllipseArc wholeEllipse(const Box &box)
{
    double width = double{1} * box.x2 - 1 - box.x1;
    double height = double{1} * box.y2 - 1 - box.y1;
    return {box.x1 + width / 2,  box.y1 + height / 2, std::fabs(width) / 2, std::fabs(height) / 2, 0,
            2 * std::numbers::pi};
}

EllipseArc arcBetween(const Box &box, POINT start, POINT end)
{
    EllipseArc arc = wholeEllipse(box);
    auto angleOf = [&arc](POINT point) {
        return std::atan2((arc.centerY - point.y) * arc.radiusX, (point.x - arc.centerX) * arc.radiusY);
    };
    arc.start = angleOf(start);
    arc.sweep = angleOf(end) - arc.start;
    if (arc.sweep <= 0)
        arc.sweep += 2 * std::numbers::pi;
    return arc;
}

} // namespace win32::gdi
