#include "widen.h"

#include <cmath>
#include <numbers>

namespace win32::gdi {
namespace {

// Round ends and joins are a little smaller than the width asks for, so that small ones look round.
constexpr double roundness = 0.1;
// How far the corners of a round end may stand off a circle, in pixels, unless it is so large that it would
// have more than a thousand of them.
constexpr double tolerance = 0.1;
constexpr double shortestPiece = 2 * std::numbers::pi / 1024;

} // namespace

double Widener::Vector::length() const
{
    return std::sqrt(x * x + y * y);
}

void Widener::add(std::span<const FixedPoint> points, bool isClosed)
{
    take(points, isClosed);
    outlineVertices(isClosed);
}

// Points that repeat the one before have no direction and count for nothing.
void Widener::take(std::span<const FixedPoint> points, bool isClosed)
{
    vertices_.clear();
    const FixedPoint *previous = nullptr;
    if (isClosed && points.size() > 1 && points.front() == points.back())
        points = points.first(points.size() - 1);
    for (const FixedPoint &point : points) {
        if (previous && *previous == point)
            continue;
        vertices_.push_back({double{1} * point.x / fixedOne, double{1} * point.y / fixedOne});
        previous = &point;
    }
    while (isClosed && vertices_.size() > 1 && (vertices_.front() - vertices_.back()).length() == 0)
        vertices_.pop_back();
}

void Widener::outlineVertices(bool isClosed)
{
    if (vertices_.empty())
        return;
    if (vertices_.size() == 1) {
        dot();
        return;
    }
    size_t segments = isClosed ? vertices_.size() : vertices_.size() - 1;
    directions_.clear();
    lengths_.clear();
    for (size_t i = 0; i < segments; ++i) {
        Vector along = vertices_[i + 1 == vertices_.size() ? 0 : i + 1] - vertices_[i];
        double length = along.length();
        lengths_.push_back(length);
        directions_.push_back(along * (1 / length));
    }
    if (isClosed) {
        closedSide();
        outline_.close();
        turnAround(true);
        closedSide();
    } else {
        openSide();
        cap(vertices_.back(), directions_.back());
        turnAround(false);
        openSide();
        cap(vertices_.back(), directions_.back());
    }
    outline_.close();
}

void Widener::turnAround(bool isClosed)
{
    std::reverse(vertices_.begin(), vertices_.end());
    std::reverse(directions_.begin(), directions_.end());
    std::reverse(lengths_.begin(), lengths_.end());
    for (Vector &direction : directions_)
        direction = direction * -1;
    // The segment behind the last vertex was the one before the first.
    if (isClosed) {
        std::rotate(directions_.begin(), directions_.begin() + 1, directions_.end());
        std::rotate(lengths_.begin(), lengths_.begin() + 1, lengths_.end());
    }
}

// From the line to the edge of the pen, on the side that is being outlined.
Widener::Vector Widener::offset(size_t segment) const
{
    return Vector{directions_[segment].y, -directions_[segment].x} * shape_.radius;
}

void Widener::openSide()
{
    emit(vertices_.front() + offset(0));
    for (size_t i = 1; i + 1 < vertices_.size(); ++i)
        join(i, i - 1, i);
    emit(vertices_.back() + offset(directions_.size() - 1));
}

void Widener::closedSide()
{
    for (size_t i = 0; i < vertices_.size(); ++i)
        join(i, (i ? i : vertices_.size()) - 1, i);
}

void Widener::join(size_t vertex, size_t before, size_t after)
{
    Vector center = vertices_[vertex];
    Vector from = offset(before);
    Vector to = offset(after);
    double cosine = directions_[before].dot(directions_[after]);
    bool isOuter = from.dot(directions_[after]) <= 0;
    if (isOuter) {
        outerJoin(center, from, to, cosine);
        return;
    }
    // The edges meet on the inner side, if the segments are long enough. Otherwise the way through the vertex
    // outlines each segment by itself, which covers the same.
    double shortening = shape_.radius * std::sqrt(std::max(0.0, 1 - cosine) / std::max(1e-9, 1 + cosine));
    if (shortening <= std::min(lengths_[before], lengths_[after]) / 2) {
        emit(center + (from + to) * (1 / (1 + cosine)));
        return;
    }
    emit(center + from);
    emit(center);
    emit(center + to);
}

void Widener::outerJoin(Vector center, Vector from, Vector to, double cosine)
{
    // The miter's length over the width, squared, is 2 over this.
    double sharpness = 1 + cosine;
    bool isMitered = shape_.join == PS_JOIN_MITER && sharpness * shape_.miterLimit * shape_.miterLimit >= 2;
    if (isMitered) {
        emit(center + (from + to) * (1 / sharpness));
        return;
    }
    emit(center + from);
    if (shape_.join == PS_JOIN_ROUND)
        arc(center, from, std::atan2(from.cross(to), from.dot(to)));
    emit(center + to);
}

void Widener::cap(Vector center, Vector direction)
{
    Vector side = Vector{direction.y, -direction.x} * shape_.radius;
    if (shape_.cap == PS_ENDCAP_SQUARE) {
        Vector forward = direction * shape_.radius;
        emit(center + side + forward);
        emit(center - side + forward);
    } else if (shape_.cap == PS_ENDCAP_ROUND) {
        arc(center, side, std::numbers::pi);
    }
}

// A figure that goes nowhere shows the pen's point if that is round; a flat or square one has no direction.
void Widener::dot()
{
    if (shape_.cap != PS_ENDCAP_ROUND)
        return;
    Vector spoke{shape_.radius, 0};
    emit(vertices_.front() + spoke);
    arc(vertices_.front(), spoke, 2 * std::numbers::pi);
    outline_.close();
}

// The points of an arc between its ends, which lie a little farther out.
void Widener::arc(Vector center, Vector from, double angle)
{
    double radius = std::max(shape_.radius - roundness, shape_.radius / 2);
    double piece = std::max(2 * std::acos(1 - std::min(1.0, tolerance / radius)), shortestPiece);
    int pieces = static_cast<int>(std::ceil(std::fabs(angle) / piece));
    if (pieces < 2)
        return;
    double cosine = std::cos(angle / pieces);
    double sine = std::sin(angle / pieces);
    Vector spoke = from * (radius / shape_.radius);
    for (int i = 1; i < pieces; ++i) {
        spoke = {spoke.x * cosine - spoke.y * sine, spoke.x * sine + spoke.y * cosine};
        emit(center + spoke);
    }
}

void Widener::emit(Vector point)
{
    double shift = shape_.isEven ? 0.5 : 0;
    outline_.points.push_back({toFixed(point.x - shift), toFixed(point.y - shift)});
}

// Outlines a dash that is complete. One without length, of a pen whose caps make up for that, still has a
// direction.
void Widener::finishDash(std::vector<Vector> &dash, Vector direction)
{
    constexpr double shortest = 1e-3;
    bool isPoint = dash.size() == 2 && (dash[1] - dash[0]).length() < shortest;
    if (isPoint)
        dash[1] = dash[0] + direction * shortest;
    if (dash.size() > 1 && (!isPoint || shape_.cap != PS_ENDCAP_FLAT)) {
        vertices_.swap(dash);
        outlineVertices(false);
        vertices_.swap(dash);
    }
    dash.clear();
}

void Widener::addDashes(std::span<const FixedPoint> points, bool isClosed, const DashPattern &pattern,
                        const Box &bounds)
{
    take(points, isClosed);
    if (vertices_.size() == 1) {
        dot();
        return;
    }
    std::vector<Vector> line;
    line.swap(vertices_);
    if (isClosed && !line.empty())
        line.push_back(line.front());

    double reach = shape_.radius * std::max(2.0, shape_.miterLimit);
    Window window{bounds.x1 - reach, bounds.y1 - reach, bounds.x2 + reach, bounds.y2 + reach};
    std::vector<Vector> dash;
    DashPattern::Place place = pattern.at(0);
    double travelled = 0;
    bool isPlaceKnown = true;
    for (size_t i = 0; i + 1 < line.size(); ++i) {
        Vector along = line[i + 1] - line[i];
        double length = along.length();
        Vector direction = along * (1 / length);
        double from = 0;
        double to = length;
        cutToWindow(line[i], direction, window, from, to);
        if (from > 0 || !isPlaceKnown) {
            finishDash(dash, direction);
            place = pattern.at(travelled + from);
        }
        for (double at = from; at < to;) {
            if (place.isDash() && dash.empty())
                dash.push_back(line[i] + direction * at);
            double step = std::min(place.left, to - at);
            at += step;
            place.left -= step;
            if (place.isDash())
                dash.push_back(line[i] + direction * at);
            if (place.left <= 0) {
                finishDash(dash, direction);
                pattern.advance(place);
            }
        }
        isPlaceKnown = from < to && to == length;
        if (!isPlaceKnown)
            finishDash(dash, direction);
        travelled += length;
    }
    finishDash(dash, {1, 0});
}

// Cuts a stretch along a line to what lies within a window.
void Widener::cutToWindow(Vector start, Vector direction, const Window &window, double &from, double &to)
{
    auto cut = [&](double position, double speed, double low, double high) {
        if (speed == 0) {
            if (position < low || position > high)
                to = from;
            return;
        }
        double first = (low - position) / speed;
        double second = (high - position) / speed;
        from = std::max(from, std::min(first, second));
        to = std::min(to, std::max(first, second));
    };
    cut(start.x, direction.x, window.left, window.right);
    cut(start.y, direction.y, window.top, window.bottom);
}

} // namespace win32::gdi
