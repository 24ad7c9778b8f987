// Polygons by their edges, row by row: a pixel belongs to the interior when its point does; a point on the
// left or upper edge does, one on the right or lower edge does not.
#include "scan.h"

#include "bands.h"

namespace win32::gdi {
namespace {

// Where an edge meets the present row: the first pixel that is not left of it. The exact place is
// x - behind / height.
struct Edge {
    int top;
    int bottom;
    int64_t x;
    int64_t behind;
    int64_t step; // of x to the next row, and what behind loses with it
    int64_t slope;
    int64_t height;
    int direction;

    bool isVertical() const { return step == 0 && slope == 0; }

    void advance()
    {
        x += step;
        behind -= slope;
        if (behind < 0) {
            behind += height;
            ++x;
        }
    }
};

int64_t floorQuotient(int64_t dividend, int64_t divisor)
{
    int64_t quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

// The edge from its row at firstRow on.
Edge edgeBetween(POINT upper, POINT lower, int direction, int firstRow)
{
    Edge edge{firstRow, lower.y, upper.x, 0, 0, 0, int64_t{lower.y} - upper.y, direction};
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

class PolygonScan {
public:
    PolygonScan(int fillMode, const Box &bounds, std::vector<Box> &boxes)
        : isWinding_(fillMode == WINDING), bounds_(bounds), writer_(boxes)
    {
    }

    void addEdges(const POINT *points, size_t count);
    void run();

private:
    void addEdge(POINT from, POINT to);
    void admit(int row);
    void sortActive();
    void write(int top, int bottom);
    int nextChange() const;
    void advance(int row);

    bool isWinding_;
    Box bounds_;
    BandWriter<std::vector<Box>> writer_;
    std::vector<Edge> edges_; // by their top
    size_t admitted_ = 0;
    std::vector<Edge *> active_; // from left to right
    size_t slanted_ = 0;         // among the active ones
};

void PolygonScan::addEdges(const POINT *points, size_t count)
{
    edges_.reserve(edges_.size() + count);
    for (size_t i = 0; i < count; ++i)
        addEdge(points[i], points[i + 1 < count ? i + 1 : 0]);
}

void PolygonScan::addEdge(POINT from, POINT to)
{
    int direction = 1;
    if (from.y > to.y) {
        std::swap(from, to);
        direction = -1;
    }
    int firstRow = std::max<int>(from.y, bounds_.y1);
    if (firstRow < std::min<int>(to.y, bounds_.y2))
        edges_.push_back(edgeBetween(from, to, direction, firstRow));
}

void PolygonScan::run()
{
    std::sort(edges_.begin(), edges_.end(), [](const Edge &a, const Edge &b) { return a.top < b.top; });
    int row = 0;
    while (!active_.empty() || admitted_ < edges_.size()) {
        if (active_.empty())
            row = edges_[admitted_].top;
        admit(row);
        int next = slanted_ ? row + 1 : nextChange();
        write(row, next);
        row = next;
        if (row >= bounds_.y2)
            break;
        advance(row);
    }
    writer_.finish();
}

void PolygonScan::admit(int row)
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
void PolygonScan::sortActive()
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

void PolygonScan::write(int top, int bottom)
{
    writer_.begin(top, bottom);
    int winding = 0;
    for (size_t i = 0; i + 1 < active_.size(); ++i) {
        winding += isWinding_ ? active_[i]->direction : 1;
        bool isInside = isWinding_ ? winding != 0 : winding & 1;
        if (!isInside)
            continue;
        int64_t left = std::max<int64_t>(active_[i]->x, bounds_.x1);
        int64_t right = std::min<int64_t>(active_[i + 1]->x, bounds_.x2);
        if (left < right)
            writer_.add(static_cast<int>(left), static_cast<int>(right));
    }
}

// The next row at which an edge begins or ends.
int PolygonScan::nextChange() const
{
    int next = admitted_ < edges_.size() ? edges_[admitted_].top : bounds_.y2;
    for (const Edge *edge : active_)
        next = std::min(next, edge->bottom);
    return next;
}

void PolygonScan::advance(int row)
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

} // namespace

void scanPolygons(std::span<const POINT> points, std::span<const int> counts, int fillMode, const Box &bounds,
                  std::vector<Box> &boxes)
{
    if (isEmpty(bounds))
        return;
    PolygonScan scan(fillMode, bounds, boxes);
    size_t first = 0;
    for (int count : counts) {
        scan.addEdges(points.data() + first, static_cast<size_t>(count));
        first += static_cast<size_t>(count);
    }
    scan.run();
}

} // namespace win32::gdi
