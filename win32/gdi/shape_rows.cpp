#include "shape_rows.h"

namespace win32::gdi {

void ShapeRows::set(std::span<const Box> boxes)
{
    rows_.clear();
    if (boxes.empty())
        return;
    top_ = boxes.front().y1;
    rows_.reserve(static_cast<size_t>(boxes.back().y2 - top_));
    for (const Box &box : boxes)
        rows_.insert(rows_.end(), static_cast<size_t>(box.y2 - box.y1), Row{box.x1, box.x2});
}

void ShapeRows::split(std::vector<Box> &frame, std::vector<Box> &inside) const
{
    for (size_t i = 0; i < rows_.size(); ++i) {
        Row row = rows_[i];
        int y = top_ + static_cast<int>(i);
        // The part that is covered above and below and has a neighbour on both sides.
        Row inner{row.right, row.right};
        if (i > 0 && i + 1 < rows_.size()) {
            inner.left = std::max({row.left + 1, rows_[i - 1].left, rows_[i + 1].left});
            inner.right = std::min({row.right - 1, rows_[i - 1].right, rows_[i + 1].right});
        }
        if (inner.left >= inner.right) {
            frame.push_back({row.left, y, row.right, y + 1});
            continue;
        }
        frame.push_back({row.left, y, inner.left, y + 1});
        frame.push_back({inner.right, y, row.right, y + 1});
        inside.push_back({inner.left, y, inner.right, y + 1});
    }
}

void ShapeRows::trace(int startRow, std::vector<POINT> &pixels) const
{
    if (rows_.empty())
        return;
    int last = static_cast<int>(rows_.size()) - 1;
    int middle = middleRow(last + 1);
    auto add = [&](int x, int row) { pixels.push_back({x, top_ + row}); };
    auto at = [&](int row) { return rows_[static_cast<size_t>(row)]; };
    auto isNarrow = [&](int row) { return at(row).right - at(row).left == 1; };
    // Up on the right side, over the top, down on the left, along the bottom, up on the right again. A row of
    // one pixel is left out on the way back.
    for (int row = std::min(startRow, middle); row > 0; --row)
        for (int x = at(row).right - 1, end = std::min(x, at(row - 1).right); x >= end; --x)
            add(x, row);
    for (int x = at(0).right - 1; x >= at(0).left; --x)
        add(x, 0);
    for (int row = 1; row <= middle; ++row)
        for (int x = std::max(at(row).left, at(row - 1).left - 1); x >= at(row).left && !isNarrow(row); --x)
            add(x, row);
    for (int row = middle + 1; row < last; ++row)
        for (int x = at(row).left, end = std::max(x, at(row + 1).left - 1); x <= end; ++x)
            add(x, row);
    if (last > middle)
        for (int x = at(last).left; x < at(last).right; ++x)
            add(x, last);
    for (int row = last - 1; row > middle; --row)
        for (int x = std::min(at(row).right - 1, at(row + 1).right); x < at(row).right && !isNarrow(row); ++x)
            add(x, row);
    for (int row = middle; row > startRow; --row)
        if (!isNarrow(row))
            add(at(row).right - 1, row);
}

void ShapeRows::keepCorners(std::vector<POINT> &pixels)
{
    size_t kept = 0;
    for (size_t i = 0; i < pixels.size(); ++i) {
        bool isStraight = kept > 0 && i + 1 < pixels.size()
                          && pixels[i + 1].x - pixels[i].x == pixels[i].x - pixels[i - 1].x
                          && pixels[i + 1].y - pixels[i].y == pixels[i].y - pixels[i - 1].y;
        if (!isStraight)
            pixels[kept++] = pixels[i];
    }
    pixels.resize(kept);
}

} // namespace win32::gdi
