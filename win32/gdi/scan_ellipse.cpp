// Ellipses and round rectangles: how far the sides stand in from the box, row by row, by the midpoint rule.
#include "scan.h"

#include "bands.h"

#include <cmath>

namespace win32::gdi {
namespace {

// Insets of the rows of a corner, for depths from first to last below the outermost row at 0. The ellipse
// spans the distances a and b between the points of its outermost pixels. It grows from the middle row y
// outwards, in steps that keep closest to the curve; error is what b²x² + a²y² has too much diagonally ahead.
void stepInsets(int64_t a, int64_t b, int64_t first, int64_t last, int *insets)
{
    int64_t odd = b & 1;
    int64_t x = 0, y = (b + 1) / 2;
    int64_t growthX = 4 * (1 - a) * b * b, growthY = 4 * (odd + 1) * a * a;
    int64_t error = growthX + growthY + odd * a * a;
    int64_t depth = b - y + 1; // of the row that was reached last
    while (2 * x <= a && depth > first) {
        if (b - y < depth && --depth < last)
            insets[depth - first] = static_cast<int>(x);
        int64_t twice = 2 * error;
        bool stepsX = twice >= growthX, stepsY = twice <= growthY;
        if (stepsY) {
            ++y;
            growthY += 8 * a * a;
            error += growthY;
        }
        if (stepsX || !stepsY) {
            ++x;
            growthX += 8 * b * b;
            error += growthX;
        }
    }
    // A narrow ellipse ends in a line of one or two pixels.
    while (depth > first) {
        if (--depth < last)
            insets[depth - first] = static_cast<int>(a / 2);
    }
}

// The same by the curve's equation, for ellipses too large for the steps' arithmetic.
void computeInsets(int64_t a, int64_t b, int64_t first, int64_t last, int *insets)
{
    auto width = static_cast<long double>(a);
    auto halfChord = [&](int64_t twiceDistance, int less) {
        long double place = static_cast<long double>(twiceDistance) / static_cast<long double>(b);
        return std::sqrt(std::max(0.0L, width * width * (1 - place * place) - static_cast<long double>(less)));
    };
    for (int64_t depth = first; depth < last; ++depth) {
        int64_t distance = b - 2 * depth;
        auto byColumn = static_cast<int64_t>(std::floor((width + 1 - halfChord(distance, 1)) / 2));
        auto byRow = static_cast<int64_t>(std::ceil((width - halfChord(distance - 1, 0)) / 2));
        insets[depth - first] = static_cast<int>(std::clamp<int64_t>(std::min(byColumn, byRow), 0, a / 2));
    }
}

void findInsets(int64_t a, int64_t b, int64_t first, int64_t last, int *insets)
{
    constexpr int64_t mostForSteps = 32768; // a²b² stays far below 2^63
    if (a <= mostForSteps && b <= mostForSteps)
        stepInsets(a, b, first, last, insets);
    else
        computeInsets(a, b, first, last, insets);
}

// Boxes of one run of pixels each, from top to bottom, equal neighbours as one: appended to a list that is
// made long enough at first.
class RowWriter {
public:
    RowWriter(std::vector<Box> &boxes, size_t mostRows) : boxes_(boxes)
    {
        size_t start = boxes.size();
        boxes.resize(start + mostRows);
        first_ = next_ = boxes.data() + start;
    }

    void add(int left, int top, int right, int bottom)
    {
        if (left >= right)
            return;
        Box *above = next_ - 1;
        if (next_ != first_ && above->x1 == left && above->x2 == right && above->y2 == top)
            above->y2 = bottom;
        else
            *next_++ = {left, top, right, bottom};
    }

    void finish() { boxes_.resize(static_cast<size_t>(next_ - boxes_.data())); }

private:
    std::vector<Box> &boxes_;
    Box *first_;
    Box *next_;
};

class RoundRectScan {
public:
    RoundRectScan(const Box &box, int64_t ellipseWidth, int64_t ellipseHeight, const Box &bounds,
                  std::vector<Box> &boxes)
        : box_(box), bounds_(bounds), boxes_(boxes), a_(ellipseWidth - 1), b_(ellipseHeight - 1),
          corner_(ellipseHeight / 2), firstRow_(std::max<int64_t>(0, int64_t{bounds.y1} - box.y1)),
          lastRow_(std::min(height(), int64_t{bounds.y2} - box.y1))
    {
    }

    void run();

private:
    int64_t height() const { return int64_t{box_.y2} - box_.y1; }
    void findVisibleInsets();
    const int *insetsFrom(int64_t depth) const { return insets_.data() + (depth - firstDepth_); }
    void writeCorners(RowWriter &writer, int64_t first, int64_t last, const int *insets, int step) const;

    Box box_;
    Box bounds_;
    std::vector<Box> &boxes_;
    int64_t a_, b_;
    int64_t corner_; // rows of a corner
    int64_t firstRow_, lastRow_;
    int64_t firstDepth_ = 0;
    std::vector<int> insets_;
};

// The depths that occur in the visible rows of the upper corners, the lower ones or both.
void RoundRectScan::findVisibleInsets()
{
    int64_t upperFirst = firstRow_, upperLast = std::min(corner_, lastRow_);
    int64_t lowerFirst = height() - lastRow_, lowerLast = std::min(corner_, height() - firstRow_);
    bool hasUpper = upperFirst < upperLast, hasLower = lowerFirst < lowerLast;
    if (!hasUpper && !hasLower)
        return;
    firstDepth_ = !hasLower ? upperFirst : !hasUpper ? lowerFirst : std::min(upperFirst, lowerFirst);
    int64_t lastDepth = !hasLower ? upperLast : !hasUpper ? lowerLast : std::max(upperLast, lowerLast);
    if (static_cast<uint64_t>(lastDepth - firstDepth_) > mostBoxes / 2)
        throw std::bad_alloc();
    insets_.resize(static_cast<size_t>(lastDepth - firstDepth_));
    findInsets(a_, b_, firstDepth_, lastDepth, insets_.data());
}

void RoundRectScan::run()
{
    if (firstRow_ >= lastRow_)
        return;
    findVisibleInsets();
    RowWriter writer(boxes_, 2 * insets_.size() + 1);
    int64_t row = firstRow_;
    int64_t upperEnd = std::min(corner_, lastRow_);
    if (row < upperEnd) {
        writeCorners(writer, row, upperEnd, insetsFrom(row), 1);
        row = upperEnd;
    }
    int64_t straightEnd = std::min(height() - corner_, lastRow_);
    if (row < straightEnd) {
        writer.add(std::max(box_.x1, bounds_.x1), static_cast<int>(box_.y1 + row), std::min(box_.x2, bounds_.x2),
                   static_cast<int>(box_.y1 + straightEnd));
        row = straightEnd;
    }
    if (row < lastRow_)
        writeCorners(writer, row, lastRow_, insetsFrom(height() - 1 - row), -1);
    writer.finish();
}

// A row for each inset, of which the next is a step further.
void RoundRectScan::writeCorners(RowWriter &writer, int64_t first, int64_t last, const int *insets, int step) const
{
    const Box box = box_, bounds = bounds_;
    auto top = static_cast<int>(box.y1 + first), end = static_cast<int>(box.y1 + last);
    for (; top < end; ++top, insets += step)
        writer.add(std::max(box.x1 + *insets, bounds.x1), top, std::min(box.x2 - *insets, bounds.x2), top + 1);
}

void scanRounded(const Box &box, int64_t ellipseWidth, int64_t ellipseHeight, const Box &bounds,
                 std::vector<Box> &boxes)
{
    if (isEmpty(box) || isEmpty(bounds))
        return;
    int64_t width = std::min(ellipseWidth, int64_t{box.x2} - box.x1);
    int64_t height = std::min(ellipseHeight, int64_t{box.y2} - box.y1);
    if (width < 2 || height < 2)
        width = height = 1;
    RoundRectScan(box, width, height, bounds, boxes).run();
}

} // namespace

void scanEllipse(const Box &box, const Box &bounds, std::vector<Box> &boxes)
{
    scanRounded(box, INT64_MAX, INT64_MAX, bounds, boxes);
}

void scanRoundRect(const Box &box, int ellipseWidth, int ellipseHeight, const Box &bounds, std::vector<Box> &boxes)
{
    scanRounded(box, std::abs(int64_t{ellipseWidth}), std::abs(int64_t{ellipseHeight}), bounds, boxes);
}

} // namespace win32::gdi
