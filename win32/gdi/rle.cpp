#include "rle.h"

#include <algorithm>
#include <cstring>

namespace win32::gdi {
namespace {

// Escapes behind a count of 0; higher values announce as many pixels in the plain.
enum Escape : uint8_t { EndOfLine, EndOfBitmap, Delta };

class Decoder {
public:
    Decoder(const Dib &dib, const void *code, const Surface &surface, std::vector<Box> &covered)
        : next_(static_cast<const uint8_t *>(code)), end_(next_ + dib.header.biSizeImage),
          pixelsInByte_(dib.header.biCompression == BI_RLE4 ? 2 : 1), surface_(surface), covered_(covered)
    {
    }

    void run()
    {
        while (left() >= 2 && line_ < surface_.height) {
            uint8_t count = *next_++;
            uint8_t value = *next_++;
            if (count)
                repeat(count, value);
            else if (value == EndOfBitmap || !escape(value))
                return;
        }
    }

private:
    int64_t left() const { return end_ - next_; }

    // False at the end of the code.
    bool escape(uint8_t value)
    {
        switch (value) {
        case EndOfLine:
            x_ = 0;
            ++line_;
            return true;
        case Delta:
            if (left() < 2)
                return false;
            x_ += *next_++;
            line_ += *next_++;
            return true;
        default: takePlain(value); return true;
        }
    }

    uint8_t *row() const { return surface_.row(surface_.height - 1 - static_cast<int>(line_)); }

    // How many of the pixels from here on lie in the row; those are noted as set.
    int cover(int count)
    {
        auto visible = static_cast<int>(std::clamp<int64_t>(surface_.width - x_, 0, count));
        int y = surface_.height - 1 - static_cast<int>(line_);
        auto x = static_cast<int>(std::min<int64_t>(x_, surface_.width));
        if (visible == 0)
            return 0;
        bool isContinued = !covered_.empty() && covered_.back().y1 == y && covered_.back().x2 == x;
        if (isContinued)
            covered_.back().x2 += visible;
        else
            covered_.push_back({x, y, x + visible, y + 1});
        return visible;
    }

    void repeat(int count, uint8_t value)
    {
        if (int visible = cover(count)) {
            uint8_t *pixels = row() + x_;
            if (pixelsInByte_ == 1)
                memset(pixels, value, static_cast<size_t>(visible));
            else
                for (int i = 0; i < visible; ++i)
                    pixels[i] = i & 1 ? value & 15 : value >> 4;
        }
        x_ += count;
    }

    // Pixels in the plain fill whole words.
    void takePlain(int count)
    {
        auto given = static_cast<int>(std::min<int64_t>(count, left() * pixelsInByte_));
        if (int visible = cover(given)) {
            uint8_t *pixels = row() + x_;
            if (pixelsInByte_ == 1)
                memcpy(pixels, next_, static_cast<size_t>(visible));
            else
                for (int i = 0; i < visible; ++i)
                    pixels[i] = i & 1 ? next_[i / 2] & 15 : next_[i / 2] >> 4;
        }
        int bytes = (count + pixelsInByte_ - 1) / pixelsInByte_;
        next_ += std::min<int64_t>((bytes + 1) & ~1, left());
        x_ += count;
    }

    const uint8_t *next_;
    const uint8_t *end_;
    int pixelsInByte_;
    const Surface &surface_;
    std::vector<Box> &covered_;
    int64_t x_ = 0;
    int64_t line_ = 0; // counted from the bottom
};

} // namespace

void decodeRle(const Dib &dib, const void *code, const Surface &surface, std::vector<Box> &covered)
{
    Decoder(dib, code, surface, covered).run();
}

} // namespace win32::gdi
