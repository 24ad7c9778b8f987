#include "edge_scan.h"

namespace win32::gdi {
namespace {

int64_t floorQuotient(int64_t dividend, int64_t divisor)
{
    int64_t quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

// The first row whose centre is not above.
int rowFrom(int y)
{
    return (y + fixedOne - 1) >> fixedBits;
}

} // namespace

EdgeScan::Edge EdgeScan::edgeFrom(POINT upper, POINT lower, int firstRow)
{
    Edge edge{firstRow, 0, upper.x, 0, 0, 0, int64_t{lower.y} - upper.y, 0};
    int64_t width = int64_t{lower.x} - upper.x;
    edge.step = floorQuotient(width, edge.height);
    edge.slope = width - edge.step * edge.height;
    if (int64_t rows = int64_t{firstRow} - upper.y; rows > 0) {
        __int128 distance = static_cast<__int128>(rows) * edge.slope;
        auto carried = static_cast<int64_t>((distance + edge.height - 1) / edge.height);
        edge.x += rows * edge.step + carried;
        edge.behind = static_cast<int64_t>(static_cast<__int128>(carried) * edge.height - distance);
    }
    return edge;
}

// Points reach as far as farthestPixel, so products of two lengths hold.
EdgeScan::Edge EdgeScan::edgeFrom(FixedPoint upper, FixedPoint lower, int firstRow)
{
    Edge edge{firstRow, 0, 0, 0, 0, 0, int64_t{lower.y} - upper.y, 0};
    int64_t width = int64_t{lower.x} - upper.x;
    edge.step = floorQuotient(width, edge.height);
    edge.slope = width - edge.step * edge.height;
    // In parts of a pixel of which a row of the edge has height times sixteen.
    int64_t place = upper.x * edge.height + (int64_t{firstRow} * fixedOne - upper.y) * width;
    int64_t pixel = edge.height * fixedOne;
    edge.x = -floorQuotient(-place, pixel);
    // Slopes are whole sixteenths of that, so parts below stay as they are.
    edge.behind = (edge.x * pixel - place) >> fixedBits;
    return edge;
}

void EdgeScan::begin(int fillMode, const Box &bounds)
{
    isWinding_ = fillMode == WINDING;
    bounds_ = bounds;
    edges_.clear();
    active_.clear();
    admitted_ = 0;
    slanted_ = 0;
    walked_ = 0;
}

template <class Point> void EdgeScan::add(Point from, Point to, int fromRow, int toRow)
{
    int direction = 1;
    if (fromRow > toRow) {
        std::swap(from, to);
        std::swap(fromRow, toRow);
        direction = -1;
    }
    int firstRow = std::max(fromRow, bounds_.y1);
    if (firstRow >= std::min(toRow, bounds_.y2))
        return;
    Edge &edge = edges_.emplace_back(edgeFrom(from, to, firstRow));
    edge.bottom = toRow;
    edge.direction = direction;
}

void EdgeScan::addEdge(POINT from, POINT to)
{
    add(from, to, static_cast<int>(from.y), static_cast<int>(to.y));
}

void EdgeScan::addEdge(FixedPoint from, FixedPoint to)
{
    add(from, to, rowFrom(from.y), rowFrom(to.y));
}

void EdgeScan::run(std::vector<Box> &boxes)
{
    Writer writer(boxes);
    std::sort(edges_.begin(), edges_.end(), [](const Edge &a, const Edge &b) { return a.top < b.top; });
    int row = 0;
    while (!active_.empty() || admitted_ < edges_.size()) {
        if (active_.empty())
            row = edges_[admitted_].top;
        admit(row);
        if (active_.size() == 2 && slanted_) {
            int next = nextChange();
            walk(int64_t{next} - row);
            row = writePair(writer, row, next);
        } else {
            int next = slanted_ ? row + 1 : nextChange();
            walk(slanted_ ? 1 : 0);
            write(writer, row, next);
            row = next;
        }
        if (row >= bounds_.y2)
            break;
        advance(row);
    }
    writer.finish();
}

// Rows along slanted edges are taken one by one, and edges from outside may be two thousand million rows high.
void EdgeScan::walk(int64_t rows)
{
    constexpr int64_t mostRows = 1 << 26; // as far as coordinates of regions go
    walked_ += rows;
    if (walked_ > mostRows)
        throw std::bad_alloc();
}

void EdgeScan::admit(int row)
{
    size_t before = active_.size();
    while (admitted_ < edges_.size() && edges_[admitted_].top == row) {
        Edge &edge = edges_[admitted_++];
        slanted_ += !edge.isVertical();
        active_.push_back(&edge);
    }
    if (slanted_ || active_.size() != before)
        sortActive();
}

// Edges hardly change their order between rows; where they do, the effort stays bounded.
void EdgeScan::sortActive()
{
    size_t moves = 0, mostMoves = 8 * active_.size();
    for (size_t i = 1; i < active_.size(); ++i) {
        Edge *edge = active_[i];
        size_t place = i;
        for (; place > 0 && active_[place - 1]->x > edge->x; --place, ++moves)
            active_[place] = active_[place - 1];
        active_[place] = edge;
        if (moves > mostMoves) {
            std::sort(active_.begin(), active_.end(), [](const Edge *a, const Edge *b) { return a->x < b->x; });
            return;
        }
    }
}

void EdgeScan::write(Writer &writer, int top, int bottom)
{
    writer.begin(top, bottom);
    int winding = 0;
    for (size_t i = 0; i + 1 < active_.size(); ++i) {
        winding += isWinding_ ? active_[i]->direction : 1;
        bool isInside = isWinding_ ? winding != 0 : winding & 1;
        if (!isInside)
            continue;
        int64_t left = std::max<int64_t>(active_[i]->x, bounds_.x1);
        int64_t right = std::min<int64_t>(active_[i + 1]->x, bounds_.x2);
        if (left < right)
            writer.add(static_cast<int>(left), static_cast<int>(right));
    }
}

// Two edges have the inside between them by either rule: so it is in most rows of lines and convex shapes.
// Writes the rows up to an end and leaves the edges in the last of them.
int EdgeScan::writePair(Writer &writer, int row, int end)
{
    Edge a = *active_[0], b = *active_[1];
    while (true) {
        int64_t left = std::max<int64_t>(std::min(a.x, b.x), bounds_.x1);
        int64_t right = std::min<int64_t>(std::max(a.x, b.x), bounds_.x2);
        if (left < right)
            writer.addBand(row, row + 1, static_cast<int>(left), static_cast<int>(right));
        if (++row == end)
            break;
        a.advance();
        b.advance();
    }
    *active_[0] = a;
    *active_[1] = b;
    return end;
}

// The next row at which an edge begins or ends.
int EdgeScan::nextChange() const
{
    int next = admitted_ < edges_.size() ? edges_[admitted_].top : bounds_.y2;
    for (const Edge *edge : active_)
        next = std::min(next, edge->bottom);
    return std::min(next, bounds_.y2);
}

void EdgeScan::advance(int row)
{
    size_t kept = 0;
    for (Edge *edge : active_) {
        if (edge->bottom <= row) {
            slanted_ -= !edge->isVertical();
            continue;
        }
        edge->advance();
        active_[kept++] = edge;
    }
    active_.resize(kept);
}

} // namespace win32::gdi
