// The bytes of a box of pixels.
#pragma once

#include "surface.h"

namespace win32::gdi {

// Where the pixels from x1 to x2 lie in the bytes of a row. Of the first and the last byte only the bits in
// the masks belong to them, which matters where pixels are smaller than bytes.
struct RowSpan {
    RowSpan(const PixelFormat &format, int x1, int x2)
        : first(static_cast<size_t>(int64_t{x1} * format.bitsPerPixel >> 3)),
          length(static_cast<size_t>((int64_t{x2} * format.bitsPerPixel + 7) >> 3) - first)
    {
        if (format.bitsPerPixel >= 8)
            return;
        firstMask = static_cast<uint8_t>(0xff >> (static_cast<unsigned>(x1) * format.bitsPerPixel & 7));
        lastMask = static_cast<uint8_t>(0xff << (-static_cast<unsigned>(x2) * format.bitsPerPixel & 7));
        isMasked = firstMask != 0xff || lastMask != 0xff;
    }

    size_t first;
    size_t length;
    uint8_t firstMask = 0xff;
    uint8_t lastMask = 0xff;
    bool isMasked = false;
};

// Keeps the bits of a row that share a byte with the span but are not of it, whatever is done to the row.
class SpanEdges {
public:
    SpanEdges(uint8_t *bytes, const RowSpan &span)
        : bytes_(bytes), span_(span), first_(bytes[0]), last_(bytes[span.length - 1])
    {
    }
    ~SpanEdges()
    {
        uint8_t &last = bytes_[span_.length - 1];
        last = static_cast<uint8_t>((last & span_.lastMask) | (last_ & ~span_.lastMask));
        bytes_[0] = static_cast<uint8_t>((bytes_[0] & span_.firstMask) | (first_ & ~span_.firstMask));
    }
    SpanEdges(const SpanEdges &) = delete;
    SpanEdges &operator=(const SpanEdges &) = delete;

private:
    uint8_t *bytes_;
    const RowSpan &span_;
    uint8_t first_;
    uint8_t last_;
};

} // namespace win32::gdi
