// Checks of stretching, shrinking and mirroring, pixel by pixel against a slow reference.
#pragma once

#include "RasterChecks.h"

#include <ostream>

namespace raster {

// For each destination pixel of one axis, in the order of counting, the source pixels that it stands for: the
// one at its centre, or those whose centres it covers. A centre between two pixels belongs to the earlier.
inline std::vector<std::vector<int>> sourcesAlong(int size, int sourceSize)
{
    std::vector<std::vector<int>> sources(static_cast<size_t>(size));
    if (size >= sourceSize) {
        for (int i = 0; i < size; ++i) {
            int j = 0;
            while ((j + 1) * 2 * size < (2 * i + 1) * sourceSize)
                ++j;
            sources[static_cast<size_t>(i)] = {j};
        }
        return sources;
    }
    for (int j = 0; j < sourceSize; ++j) {
        int i = 0;
        while ((i + 1) * 2 * sourceSize < (2 * j + 1) * size)
            ++i;
        sources[static_cast<size_t>(i)].push_back(j);
    }
    return sources;
}

struct Stretch {
    int x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight;
};

inline std::ostream &operator<<(std::ostream &out, const Stretch &s)
{
    return out << s.sourceX << "," << s.sourceY << " size " << s.sourceWidth << "," << s.sourceHeight << " to " << s.x
               << "," << s.y << " size " << s.width << "," << s.height;
}

// The slow way: merges the source pixels of each destination pixel; of none of them that exist nothing comes.
class SlowStretch {
public:
    SlowStretch(const Canvas &source, const Stretch &stretch, int mode)
        : source_(source), pixels_(source.pixels()), mode_(mode)
    {
        columns_ = sourcesAlong(std::abs(stretch.width), std::abs(stretch.sourceWidth));
        rows_ = sourcesAlong(std::abs(stretch.height), std::abs(stretch.sourceHeight));
        sourceXs_ = positionsOf(stretch.sourceX, stretch.sourceWidth);
        sourceYs_ = positionsOf(stretch.sourceY, stretch.sourceHeight);
    }

    // Whether the pixel counted i-th from the left and k-th from the top has a source, and which pixel that makes.
    bool pixelAt(size_t i, size_t k, const CanvasFormat &to, uint32_t &result) const
    {
        std::vector<int> columns = columns_[i], rows = rows_[k];
        if (mode_ == COLORONCOLOR) {
            columns = {columns.back()};
            rows = {rows.front()};
        }
        bool isFirst = true;
        for (int row : rows)
            for (int column : columns) {
                int x = sourceXs_[static_cast<size_t>(column)], y = sourceYs_[static_cast<size_t>(row)];
                if (x < 0 || x >= source_.width() || y < 0 || y >= source_.height())
                    continue;
                uint32_t pixel = pixels_[static_cast<size_t>(y * source_.width() + x)];
                pixel =
                    convertedPixel(to, source_.format(), pixel, RGB(1, 2, 3), RGB(250, 240, 230), RGB(255, 255, 255));
                result = isFirst ? pixel : mode_ == BLACKONWHITE ? result & pixel : result | pixel;
                isFirst = false;
            }
        return !isFirst;
    }

private:
    const Canvas &source_;
    std::vector<uint32_t> pixels_;
    int mode_;
    std::vector<std::vector<int>> columns_, rows_;
    std::vector<int> sourceXs_, sourceYs_;
};

enum class Sources { Whole, PartlyMissing };

inline Stretch randomStretch(const Canvas &source, std::mt19937 &random, Sources sources, int smallest)
{
    Stretch s;
    auto size = [&random](int low, int high) {
        return random() % 4 == 0 ? -between(random, low, high) : between(random, low, high);
    };
    s.width = size(smallest, 60);
    s.height = size(smallest, 20);
    s.x = between(random, -10, 50);
    s.y = between(random, -4, 10);
    s.sourceWidth = size(1, source.width());
    s.sourceHeight = size(1, source.height());
    auto start = [&random](int length, int whole) {
        return length > 0 ? between(random, 0, whole - length) : between(random, -length - 1, whole - 1);
    };
    s.sourceX = start(s.sourceWidth, source.width());
    s.sourceY = start(s.sourceHeight, source.height());
    if (sources == Sources::PartlyMissing) {
        s.sourceX += between(random, -9, 9);
        s.sourceY += between(random, -4, 4);
    }
    return s;
}

inline void checkStretch(Canvas &canvas, Canvas &source, std::mt19937 &random, int mode, DWORD rop, Sources sources,
                         int smallest = 2)
{
    std::vector<uint32_t> expected = randomPixels(canvas, random), pixels = randomPixels(source, random);
    if (source.format().depth == 32)
        for (uint32_t &pixel : pixels)
            pixel = random() % 2 ? pixel & 0xffffff : 0xffffff;
    canvas.setPixels(expected);
    source.setPixels(pixels);
    SetStretchBltMode(canvas.dc, mode);
    SetTextColor(canvas.dc, RGB(1, 2, 3));
    SetBkColor(canvas.dc, RGB(250, 240, 230));
    RandomClip clip(canvas, random, random() % 2 ? between(random, 3, 30) : 600);
    Stretch s = randomStretch(source, random, sources, smallest);
    SlowStretch slow(source, s, mode);
    std::vector<int> xs = positionsOf(s.x, s.width), ys = positionsOf(s.y, s.height);
    for (size_t k = 0; k < ys.size(); ++k)
        for (size_t i = 0; i < xs.size(); ++i) {
            int x = xs[i], y = ys[k];
            uint32_t pixel = 0;
            if (x < 0 || x >= canvas.width() || y < 0 || y >= canvas.height() || !clip.contains(x, y)
                || !slow.pixelAt(i, k, canvas.format(), pixel))
                continue;
            uint32_t &before = expected[static_cast<size_t>(y * canvas.width() + x)];
            before = evaluatedBits(rop, 0, pixel, before, allBits(canvas.format()));
        }
    ASSERT_TRUE(StretchBlt(canvas.dc, s.x, s.y, s.width, s.height, source.dc, s.sourceX, s.sourceY, s.sourceWidth,
                           s.sourceHeight, rop));
    ASSERT_EQ(canvas.pixels(), expected) << "mode " << mode << " rop " << std::hex << rop << std::dec << " from " << s;
}

} // namespace raster
