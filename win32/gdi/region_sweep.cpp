// A line sweeps downwards over the boxes and stops where some begin or end. Usually the boxes on it are simply
// read from left to right at each stop. Where that would cost out of proportion, since many lie over each other,
// what they cover stands in a tree over all the places where boxes begin or end: then a box costs a path in the
// tree, and the line is read only where what is covered has changed.
#include "region_sweep.h"

#include "bands.h"

#include <climits>

namespace win32::gdi {
namespace {

class CoveredLine {
public:
    explicit CoveredLine(std::vector<int> places) : places_(std::move(places)), nodes_(4 * places_.size()) {}

    // Adds a box's share or takes it away; tells whether that changes what is covered.
    bool change(const Box &box, int shares)
    {
        return change({0, 0, intervals()}, indexOf(box.x1), indexOf(box.x2), shares);
    }

    template <class Visit> void eachRun(Visit visit) const { eachRun({0, 0, intervals()}, visit); }

private:
    struct Node {
        int shares = 0; // of boxes that cover all of the node, and not all of its parent
        bool isFull = false;
        bool isEmpty = true;
    };
    struct Span {
        size_t node, first, last; // intervals first to last - 1

        size_t middle() const { return (first + last) / 2; }
        Span lower() const { return {2 * node + 1, first, middle()}; }
        Span upper() const { return {2 * node + 2, middle(), last}; }
        bool isLeaf() const { return last - first == 1; }
    };

    size_t intervals() const { return places_.size() - 1; }
    size_t indexOf(int place) const
    {
        return static_cast<size_t>(std::lower_bound(places_.begin(), places_.end(), place) - places_.begin());
    }
    bool change(Span span, size_t from, size_t to, int shares);
    void update(Span span);
    template <class Visit> void eachRun(Span span, Visit &visit) const;

    std::vector<int> places_;
    std::vector<Node> nodes_;
};

bool CoveredLine::change(Span span, size_t from, size_t to, int shares)
{
    Node &node = nodes_[span.node];
    bool isChanged = false;
    if (from <= span.first && span.last <= to) {
        bool wasFull = node.isFull;
        node.shares += shares;
        update(span);
        return node.isFull != wasFull;
    }
    if (from < span.middle())
        isChanged = change(span.lower(), from, to, shares);
    if (to > span.middle())
        isChanged |= change(span.upper(), from, to, shares);
    update(span);
    return isChanged && node.shares == 0;
}

void CoveredLine::update(Span span)
{
    Node &node = nodes_[span.node];
    node.isFull = node.shares > 0;
    node.isEmpty = node.shares == 0;
    if (node.shares == 0 && !span.isLeaf()) {
        const Node &lower = nodes_[span.lower().node], &upper = nodes_[span.upper().node];
        node.isFull = lower.isFull && upper.isFull;
        node.isEmpty = lower.isEmpty && upper.isEmpty;
    }
}

template <class Visit> void CoveredLine::eachRun(Span span, Visit &visit) const
{
    const Node &node = nodes_[span.node];
    if (node.isEmpty)
        return;
    if (node.isFull) {
        visit(places_[span.first], places_[span.last]);
        return;
    }
    eachRun(span.lower(), visit);
    eachRun(span.upper(), visit);
}

std::vector<int> placesOf(std::span<const Box> boxes)
{
    std::vector<int> places;
    places.reserve(2 * boxes.size());
    for (const Box &box : boxes) {
        places.push_back(box.x1);
        places.push_back(box.x2);
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

bool byLeft(const Box &a, const Box &b)
{
    return a.x1 < b.x1;
}

// False, with nothing of use in the result, when the reading grows out of proportion.
bool sweepByReading(std::span<const Box> boxes, std::vector<Box> &result)
{
    BandWriter writer(result);
    std::vector<Box> active; // from left to right
    size_t next = 0, steps = 0, mostSteps = 256 * boxes.size();
    int top = boxes.front().y1;
    while (next < boxes.size() || !active.empty()) {
        if (active.empty())
            top = boxes[next].y1;
        auto before = static_cast<ptrdiff_t>(active.size());
        for (; next < boxes.size() && boxes[next].y1 == top; ++next)
            active.push_back(boxes[next]);
        if (static_cast<ptrdiff_t>(active.size()) > before)
            std::inplace_merge(active.begin(), active.begin() + before, active.end(), byLeft);
        int bottom = next < boxes.size() ? boxes[next].y1 : INT_MAX;
        for (const Box &box : active)
            bottom = std::min(bottom, box.y2);
        writer.begin(top, bottom);
        for (const Box &box : active)
            writer.add(box.x1, box.x2);
        steps += active.size();
        if (steps > mostSteps + 8 * result.size())
            return false;
        std::erase_if(active, [bottom](const Box &box) { return box.y2 == bottom; });
        top = bottom;
    }
    writer.finish();
    return true;
}

void sweepByTree(std::span<const Box> boxes, std::vector<Box> &result)
{
    std::vector<Box> ends(boxes.begin(), boxes.end());
    std::sort(ends.begin(), ends.end(), [](const Box &a, const Box &b) { return a.y2 < b.y2; });
    CoveredLine line(placesOf(boxes));
    BandWriter writer(result);
    std::vector<Box> runs; // of the band that has begun
    int top = 0;
    auto beginning = boxes.begin();
    for (auto ending = ends.begin(); ending != ends.end();) {
        int y = beginning != boxes.end() ? std::min(beginning->y1, ending->y2) : ending->y2;
        bool isChanged = false;
        for (; beginning != boxes.end() && beginning->y1 == y; ++beginning)
            isChanged |= line.change(*beginning, 1);
        for (; ending != ends.end() && ending->y2 == y; ++ending)
            isChanged |= line.change(*ending, -1);
        if (!isChanged)
            continue;
        if (!runs.empty()) {
            writer.begin(top, y);
            for (const Box &run : runs)
                writer.add(run.x1, run.x2);
        }
        runs.clear();
        line.eachRun([&runs](int left, int right) { runs.push_back({left, 0, right, 0}); });
        top = y;
    }
    writer.finish();
}

} // namespace

std::vector<Box> sweep(std::span<const Box> boxes)
{
    std::vector<Box> result;
    if (!sweepByReading(boxes, result)) {
        result.clear();
        sweepByTree(boxes, result);
    }
    return result;
}

} // namespace win32::gdi
