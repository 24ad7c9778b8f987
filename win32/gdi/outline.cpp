#include "outline.h"

#include <climits>

namespace win32::gdi {
namespace {

int64_t floorDivision(int64_t number, int64_t divisor)
{
    int64_t quotient = number / divisor;
    return number % divisor < 0 ? quotient - 1 : quotient;
}

// The first row whose centre is not above.
int rowFrom(int y)
{
    return (y + fixedOne - 1) >> 4;
}

static_assert(fixedOne == 1 << 4);

} // namespace

void OutlineScanner::scan(const Outline &outline, int fillMode, const Box &bounds, std::vector<Box> &boxes)
{
    if (isEmpty(bounds))
        return;
    bounds_ = bounds;
    boxes_ = &boxes;
    rowStart_ = rowAbove_ = boxes.size();
    collectEdges(outline, bounds);
    active_.clear();
    nextEdge_ = 0;
    int row = 0;
    while (!active_.empty() || nextEdge_ < edges_.size()) {
        if (active_.empty())
            row = edges_[nextEdge_].top;
        int end = activate(row);
        if (active_.size() == 2)
            scanPair(row, end);
        else
            scanMany(row, end, fillMode);
        row = end;
        std::erase_if(active_, [row](const Edge *edge) { return edge->bottom == row; });
    }
}

void OutlineScanner::collectEdges(const Outline &outline, const Box &bounds)
{
    edges_.clear();
    size_t start = 0;
    for (size_t end : outline.ends) {
        FixedPoint previous = outline.points[end - 1];
        for (size_t i = start; i < end; ++i) {
            addEdge(previous, outline.points[i], bounds);
            previous = outline.points[i];
        }
        start = end;
    }
    std::sort(edges_.begin(), edges_.end(), [](const Edge &a, const Edge &b) { return a.top < b.top; });
}

void OutlineScanner::addEdge(FixedPoint from, FixedPoint to, const Box &bounds)
{
    int winding = 1;
    if (from.y > to.y) {
        std::swap(from, to);
        winding = -1;
    }
    int top = std::max(rowFrom(from.y), bounds.y1);
    int bottom = std::min(rowFrom(to.y), bounds.y2);
    if (top >= bottom)
        return;
    int64_t width = int64_t{to.x} - from.x;
    int64_t height = int64_t{to.y} - from.y;
    int64_t fromTop = int64_t{top} * fixedOne - from.y;
    // Where the edge crosses the row, in height-ths of a pixel, less a trifle to round up to whole pixels.
    int64_t crossing = (from.x * height + fromTop * width - 1) >> 4;
    int64_t pixel = floorDivision(crossing, height);
    int64_t whole = floorDivision(width, height);
    edges_.push_back({top, bottom, static_cast<int>(pixel + 1), winding, static_cast<int>(whole),
                      static_cast<uint32_t>(width - whole * height), static_cast<uint32_t>(crossing - pixel * height),
                      static_cast<uint32_t>(height)});
}

// Takes in the edges that begin at a row; gives the row at which the next one begins or one ends.
int OutlineScanner::activate(int row)
{
    while (nextEdge_ < edges_.size() && edges_[nextEdge_].top == row)
        active_.push_back(&edges_[nextEdge_++]);
    int end = nextEdge_ < edges_.size() ? edges_[nextEdge_].top : INT_MAX;
    for (const Edge *edge : active_)
        end = std::min(end, edge->bottom);
    return end;
}

// Two edges have the inside between them by either rule: most rows of lines and of convex shapes.
void OutlineScanner::scanPair(int row, int end)
{
    Edge a = *active_[0];
    Edge b = *active_[1];
    bool isUpright = a.isVertical() && b.isVertical();
    while (row < end) {
        int bottom = isUpright ? end : row + 1;
        emit(std::min(a.x, b.x), std::max(a.x, b.x));
        finishRow(row, bottom);
        a.step();
        b.step();
        row = bottom;
    }
    *active_[0] = a;
    *active_[1] = b;
}

void OutlineScanner::scanMany(int row, int end, int fillMode)
{
    bool areUpright = std::all_of(active_.begin(), active_.end(), [](const Edge *edge) { return edge->isVertical(); });
    while (row < end) {
        int bottom = areUpright ? end : row + 1;
        // Mostly in order already: edges rarely cross.
        for (size_t i = 1; i < active_.size(); ++i)
            for (size_t j = i; j > 0 && active_[j]->x < active_[j - 1]->x; --j)
                std::swap(active_[j], active_[j - 1]);
        emitRow(fillMode);
        finishRow(row, bottom);
        for (Edge *edge : active_)
            edge->step();
        row = bottom;
    }
}

void OutlineScanner::emitRow(int fillMode)
{
    int mask = fillMode == ALTERNATE ? 1 : -1;
    int winding = 0;
    int left = 0;
    for (const Edge *edge : active_) {
        bool wasInside = winding & mask;
        winding += edge->winding;
        bool isInside = winding & mask;
        if (isInside && !wasInside)
            left = edge->x;
        else if (wasInside && !isInside)
            emit(left, edge->x);
    }
}

void OutlineScanner::emit(int left, int right)
{
    left = std::max(left, bounds_.x1);
    right = std::min(right, bounds_.x2);
    if (left >= right)
        return;
    if (boxes_->size() > rowStart_ && boxes_->back().x2 >= left)
        boxes_->back().x2 = right;
    else
        boxes_->push_back({left, 0, right, 0});
}

// Gives the new boxes their rows, or lets the row above reach down when it is equal.
void OutlineScanner::finishRow(int row, int bottom)
{
    std::vector<Box> &boxes = *boxes_;
    size_t count = boxes.size() - rowStart_;
    bool isSame = count == rowStart_ - rowAbove_ && count > 0 && boxes[rowAbove_].y2 == row;
    for (size_t i = 0; isSame && i < count; ++i)
        isSame = boxes[rowAbove_ + i].x1 == boxes[rowStart_ + i].x1 && boxes[rowAbove_ + i].x2 == boxes[rowStart_ + i].x2;
    if (isSame) {
        boxes.resize(rowStart_);
        for (size_t i = rowAbove_; i < rowStart_; ++i)
            boxes[i].y2 = bottom;
        return;
    }
    for (size_t i = rowStart_; i < boxes.size(); ++i) {
        boxes[i].y1 = row;
        boxes[i].y2 = bottom;
    }
    rowAbove_ = rowStart_;
    rowStart_ = boxes.size();
}

} // namespace win32::gdi
