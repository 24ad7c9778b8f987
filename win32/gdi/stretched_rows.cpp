#include "stretched_rows.h"

#include "pixel_loops.h"

#include <cstring>

namespace win32::gdi {

namespace {

Surface surfaceOfColors()
{
    Surface surface;
    surface.format = rgbFormat(32);
    return surface;
}

template <class Pixel> void gather(const uint8_t *row, const std::vector<int> &positions, uint8_t *bytes)
{
    for (size_t i = 0; i < positions.size(); ++i)
        memcpy(bytes + i * sizeof(Pixel), row + static_cast<size_t>(positions[i]) * sizeof(Pixel), sizeof(Pixel));
}

struct Pixel24 {
    uint8_t bytes[3];
};

// Each pixel twice, from the given one on; the first may have been seen once already.
WIN32_FOR_EACH_PROCESSOR
void doublePixels(const uint8_t *source, bool isFirstSingle, size_t count, uint8_t *bytes)
{
    uint32_t pixel;
    if (isFirstSingle && count) {
        memcpy(bytes, source, 4);
        source += 4;
        bytes += 4;
        --count;
    }
    for (size_t i = 0; i < count / 2; ++i) {
        memcpy(&pixel, source + 4 * i, 4);
        memcpy(bytes + 8 * i, &pixel, 4);
        memcpy(bytes + 8 * i + 4, &pixel, 4);
    }
    if (count & 1)
        memcpy(bytes + 4 * (count - 1), source + 4 * (count / 2), 4);
}

// Every second pixel, beginning with the given one.
WIN32_FOR_EACH_PROCESSOR
void halvePixels(const uint8_t *source, size_t count, uint8_t *bytes)
{
    constexpr size_t step = 8;
    using Vector [[gnu::vector_size(4 * step)]] = uint32_t;
    size_t i = 0;
    // Nothing behind the last pixel may be read.
    for (; i + step < count; i += step) {
        Vector first, second;
        memcpy(&first, source + 8 * i, sizeof first);
        memcpy(&second, source + 8 * i + sizeof first, sizeof second);
        first = __builtin_shufflevector(first, second, 0, 2, 4, 6, 8, 10, 12, 14);
        memcpy(bytes + 4 * i, &first, sizeof first);
    }
    for (; i < count; ++i)
        memcpy(bytes + 4 * i, source + 8 * i, 4);
}

} // namespace

SourceRange SourceRanges::at(int position) const
{
    StretchAxis::Sources sources = axis_.sourcesOf(position);
    int64_t first = sources.first, last = sources.last;
    if (!isMerged_)
        first = last = pick_ == Pick::First ? first : last;
    else if (first > last)
        std::swap(first, last);
    return {static_cast<int>(std::clamp<int64_t>(first, 0, sourceSize_)),
            static_cast<int>(std::clamp<int64_t>(last + 1, 0, sourceSize_))};
}

void SourceRanges::cut(int &begin, int &end) const
{
    begin = static_cast<int>(std::clamp<int64_t>(axis_.begin(), begin, end));
    end = static_cast<int>(std::clamp<int64_t>(axis_.end(), begin, end));
    while (begin < end && at(begin).isEmpty())
        ++begin;
    while (begin < end && at(end - 1).isEmpty())
        --end;
}

StretchedRows::StretchedRows(const BlitJob &job, const SourceRanges &columns, const Box &box, Merge merge)
    : job_(job), merge_(merge), isDoubled_(job.x.isDoubled()), isHalved_(job.x.isHalved()),
      colorSurface_(surfaceOfColors()),
      converter_(merge == Merge::Average ? colorSurface_ : job.destination, job.source, job.colors)
{
    int pixelsPerByte = std::max(1, 8 / job.destination.format.bitsPerPixel);
    firstPixel_ = box.x1 % pixelsPerByte;
    auto width = static_cast<size_t>(box.x2 - box.x1);
    ranges_.reserve(width);
    used_ = {INT32_MAX, 0};
    for (int x = box.x1; x < box.x2; ++x) {
        SourceRange range = columns.at(x);
        ranges_.push_back(range);
        used_ = {std::min(used_.begin, range.begin), std::max(used_.end, range.end)};
    }
    if (merge == Merge::PickOne) {
        picks_.reserve(width);
        for (const SourceRange &range : ranges_)
            picks_.push_back(range.begin - used_.begin);
    }
    if (merge == Merge::Average) {
        fromColors_.emplace(job.destination, colorSurface_, job.colors);
        sums_.resize(width);
    }
    size_t room = std::max(width, static_cast<size_t>(used_.end - used_.begin));
    source_.resize(room);
    pixels_.resize(room);
}

void StretchedRows::make(const SourceRange &rows, uint8_t *bytes)
{
    const PixelFormat &format = job_.destination.format;
    if (merge_ == Merge::PickOne && converter_.isIdentity() && format.bitsPerPixel >= 8) {
        const uint8_t *row = job_.source.row(rows.begin) + RowSpan(format, used_.begin, used_.end).first;
        return gatherAsTheyAre(row, bytes);
    }
    switch (merge_) {
    case Merge::PickOne: pickPixels(rows.begin); break;
    case Merge::And:
    case Merge::Or: combinePixels(rows); break;
    case Merge::Average: averagePixels(rows); break;
    }
    packPixels(format, pixels_.data(), static_cast<int>(ranges_.size()), firstPixel_, bytes);
}

void StretchedRows::gatherAsTheyAre(const uint8_t *row, uint8_t *bytes) const
{
    switch (job_.destination.format.bitsPerPixel) {
    case 8: return gather<uint8_t>(row, picks_, bytes);
    case 16: return gather<uint16_t>(row, picks_, bytes);
    case 24: return gather<Pixel24>(row, picks_, bytes);
    default: break;
    }
    if (isDoubled_)
        doublePixels(row, picks_.size() > 1 && picks_[1] != 0, picks_.size(), bytes);
    else if (isHalved_)
        halvePixels(row + 4 * static_cast<size_t>(picks_[0]), picks_.size(), bytes);
    else
        gather<uint32_t>(row, picks_, bytes);
}

const uint32_t *StretchedRows::sourcePixels(int row)
{
    converter_.convert(job_.source.row(row), used_.begin, used_.end - used_.begin, source_.data());
    return source_.data();
}

void StretchedRows::pickPixels(int row)
{
    const uint32_t *source = sourcePixels(row);
    for (size_t i = 0; i < picks_.size(); ++i)
        pixels_[i] = source[picks_[i]];
}

void StretchedRows::combinePixels(const SourceRange &rows)
{
    auto combine = [isAnd = merge_ == Merge::And](uint32_t a, uint32_t b) { return isAnd ? a & b : a | b; };
    // First all rows into one, then its columns.
    uint32_t *joined = pixels_.data();
    auto count = static_cast<size_t>(used_.end - used_.begin);
    memcpy(joined, sourcePixels(rows.begin), count * sizeof(uint32_t));
    for (int row = rows.begin + 1; row < rows.end; ++row) {
        const uint32_t *source = sourcePixels(row);
        for (size_t i = 0; i < count; ++i)
            joined[i] = combine(joined[i], source[i]);
    }
    source_.swap(pixels_);
    for (size_t i = 0; i < ranges_.size(); ++i) {
        const uint32_t *column = &source_[static_cast<size_t>(ranges_[i].begin - used_.begin)];
        uint32_t pixel = *column;
        for (int k = 1; k < ranges_[i].end - ranges_[i].begin; ++k)
            pixel = combine(pixel, column[k]);
        pixels_[i] = pixel;
    }
}

void StretchedRows::addToSums(int row)
{
    const uint32_t *source = sourcePixels(row);
    for (size_t i = 0; i < ranges_.size(); ++i) {
        Sum &sum = sums_[i];
        for (int k = ranges_[i].begin - used_.begin; k < ranges_[i].end - used_.begin; ++k) {
            sum.red += source[k] >> 16 & 0xff;
            sum.green += source[k] >> 8 & 0xff;
            sum.blue += source[k] & 0xff;
        }
    }
}

void StretchedRows::averagePixels(const SourceRange &rows)
{
    std::fill(sums_.begin(), sums_.end(), Sum{});
    for (int row = rows.begin; row < rows.end; ++row)
        addToSums(row);
    for (size_t i = 0; i < ranges_.size(); ++i) {
        auto count =
            static_cast<uint64_t>(rows.end - rows.begin) * static_cast<uint64_t>(ranges_[i].end - ranges_[i].begin);
        auto average = [count](uint64_t sum) { return static_cast<uint32_t>((sum + count / 2) / count); };
        source_[i] = average(sums_[i].red) << 16 | average(sums_[i].green) << 8 | average(sums_[i].blue);
    }
    fromColors_->convert(reinterpret_cast<const uint8_t *>(source_.data()), 0, static_cast<int>(ranges_.size()),
                         pixels_.data());
}

} // namespace win32::gdi
