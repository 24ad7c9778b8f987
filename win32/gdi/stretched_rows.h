// Rows of a stretched picture, made one by one in the destination's format.
#pragma once

#include "blit_internal.h"

#include <vector>

namespace win32::gdi {

// What becomes of several source pixels that one destination pixel stands for.
enum class Merge : uint8_t { PickOne, And, Or, Average };

// Source positions in ascending order.
struct SourceRange {
    int begin = 0;
    int end = 0;

    bool operator==(const SourceRange &) const = default;
    bool isEmpty() const { return begin >= end; }
};

// The source positions along one axis, cut to those that exist.
class SourceRanges {
public:
    enum class Pick : uint8_t { First, Last };

    SourceRanges(const StretchAxis &axis, Merge merge, Pick pick, int sourceSize)
        : axis_(axis), isMerged_(merge != Merge::PickOne), pick_(pick), sourceSize_(sourceSize)
    {
    }

    SourceRange at(int position) const;
    // Leaves of an interval of destination positions those that have a source.
    void cut(int &begin, int &end) const;

private:
    const StretchAxis &axis_;
    bool isMerged_;
    Pick pick_;
    int sourceSize_;
};

class StretchedRows {
public:
    // For the destination columns of a box, which all have a source. Throws bad_alloc.
    StretchedRows(const BlitJob &job, const SourceRanges &columns, const Box &box, Merge merge);

    // Makes one row from these source rows. The bytes begin with the one that the leftmost pixel lies in.
    void make(const SourceRange &rows, uint8_t *bytes);

private:
    void gatherAsTheyAre(const uint8_t *row, uint8_t *bytes) const;
    void pickPixels(int row);
    void combinePixels(const SourceRange &rows);
    void averagePixels(const SourceRange &rows);
    void addToSums(int row);
    const uint32_t *sourcePixels(int row);

    const BlitJob &job_;
    Merge merge_;
    int firstPixel_; // of a row within its first byte
    bool isDoubled_;
    bool isHalved_;
    SourceRange used_; // columns of the source
    std::vector<SourceRange> ranges_;
    std::vector<int> picks_; // the ranges' only columns
    Surface colorSurface_;   // what averages are formed in
    PixelConverter converter_;
    std::optional<PixelConverter> fromColors_;
    std::vector<uint32_t> source_;
    std::vector<uint32_t> pixels_;
    struct Sum {
        uint64_t red, green, blue;
    };
    std::vector<Sum> sums_;
};

} // namespace win32::gdi
