// Moves without stretching: bits as they are, bits shifted within bytes, or pixels converted.
#include "blit_internal.h"

#include "pixel_loops.h"

#include <cstring>

namespace win32::gdi {

namespace {

// Rows of converted or shifted pixels are made in strips of this width.
constexpr int stripPixels = 1024;

// Calls visit(Box) for each visible piece of the box, in an order in which no piece covers the sources of
// later ones when the move goes down, or to the right.
template <class Visit>
void eachVisibleInOrder(const ClipBoxes &clip, const Box &box, bool isDown, bool isRight, Visit visit)
{
    auto visitCut = [&](const Box &piece) {
        Box visible = intersected(piece, box);
        if (!isEmpty(visible))
            visit(visible);
    };
    auto visitBand = [&](const Box *first, const Box *last) {
        if (isRight)
            while (last != first)
                visitCut(*--last);
        else
            for (; first != last; ++first)
                visitCut(*first);
    };
    if (isDown)
        eachBandUpwards(clip, box, visitBand);
    else
        eachBand(clip, box, visitBand);
}

// The strips of a box, from the side that the pixels move to.
template <class Visit> void eachStrip(const Box &box, bool isRight, Visit visit)
{
    int64_t width = int64_t{box.x2} - box.x1;
    int64_t strips = (width + stripPixels - 1) / stripPixels;
    for (int64_t i = 0; i < strips; ++i) {
        int64_t offset = (isRight ? strips - 1 - i : i) * stripPixels;
        Box strip = box;
        strip.x1 = static_cast<int>(box.x1 + offset);
        strip.x2 = static_cast<int>(std::min<int64_t>(box.x2, int64_t{strip.x1} + stripPixels));
        visit(strip);
    }
}

// Where in its byte a pixel begins.
int firstBit(const PixelFormat &format, int x)
{
    return static_cast<int>(static_cast<unsigned>(x) * format.bitsPerPixel & 7);
}

class PlainBlit {
public:
    PlainBlit(const BlitJob &job, const PixelConverter &converter)
        : job_(job), converter_(converter), distanceX_(job.x.distance()), distanceY_(job.y.distance())
    {
    }

    // Source and destination have the same pixels at the same bits.
    void copyBits(const Box &box, bool isSameSurface) const
    {
        int sourceX = static_cast<int>(box.x1 - distanceX_);
        const uint8_t *source = sourceRow(box.y1) + RowSpan(job_.source.format, sourceX, sourceX + 1).first;
        bool isDown = isSameSurface && distanceY_ > 0;
        job_.operation.apply(box, source, job_.source.stride, isDown ? RowOrder::BottomUp : RowOrder::TopDown);
    }

    // One row of a strip at a time goes through a buffer.
    using Make = void (PlainBlit::*)(const uint8_t *row, const Box &strip, uint8_t *bytes) const;
    void throughBuffer(const Box &box, bool isDown, bool isRight, Make make) const
    {
        alignas(32) uint8_t bytes[stripPixels * 4 + 8];
        for (int i = 0; i < box.y2 - box.y1; ++i) {
            int y = isDown ? box.y2 - 1 - i : box.y1 + i;
            eachStrip(box, isRight, [&](Box strip) {
                strip.y1 = y;
                strip.y2 = y + 1;
                (this->*make)(sourceRow(y), strip, bytes);
                job_.operation.apply(strip, bytes, 0);
            });
        }
    }

    // Same pixels, but at other bits of the bytes, or in the row that they go to.
    void shift(const uint8_t *row, const Box &strip, uint8_t *bytes) const
    {
        const PixelFormat &format = job_.source.format;
        int sourceX = static_cast<int>(strip.x1 - distanceX_);
        RowSpan target(format, strip.x1, strip.x2);
        RowSpan source(format, sourceX, sourceX + (strip.x2 - strip.x1));
        shiftBits(bytes, row + source.first, firstBit(format, sourceX) - firstBit(format, strip.x1), source.length,
                  target.length);
    }

    // Pixels of whole words can be made where they belong.
    void convertInPlace(const Box &box) const
    {
        int sourceX = static_cast<int>(box.x1 - distanceX_);
        for (int y = box.y1; y < box.y2; ++y)
            converter_.convert(sourceRow(y), sourceX, box.x2 - box.x1,
                               reinterpret_cast<uint32_t *>(job_.destination.row(y)) + box.x1);
    }

    void convert(const uint8_t *row, const Box &strip, uint8_t *bytes) const
    {
        int count = strip.x2 - strip.x1;
        int sourceX = static_cast<int>(strip.x1 - distanceX_);
        const PixelFormat &format = job_.destination.format;
        if (format.layout == PixelLayout::Direct32)
            return converter_.convert(row, sourceX, count, reinterpret_cast<uint32_t *>(bytes));
        uint32_t pixels[stripPixels];
        converter_.convert(row, sourceX, count, pixels);
        packPixels(format, pixels, count, firstBit(format, strip.x1) / format.bitsPerPixel, bytes);
    }

private:
    const uint8_t *sourceRow(int y) const { return job_.source.row(static_cast<int>(y - distanceY_)); }

    const BlitJob &job_;
    const PixelConverter &converter_;
    int64_t distanceX_;
    int64_t distanceY_;
};

} // namespace

void blitPlain(const BlitJob &job, bool isSameSurface)
{
    int64_t distanceX = job.x.distance(), distanceY = job.y.distance();
    Box box = cutTo(job.destination.box(), std::max(job.x.begin(), distanceX), std::max(job.y.begin(), distanceY),
                    std::min(job.x.end(), distanceX + job.source.width),
                    std::min(job.y.end(), distanceY + job.source.height));
    if (isEmpty(box))
        return;
    PixelConverter converter(job.destination, job.source, job.colors);
    PlainBlit blit(job, converter);
    bool isDown = isSameSurface && distanceY > 0, isRight = isSameSurface && distanceX > 0;
    auto each = [&](auto visit) {
        if (isSameSurface)
            eachVisibleInOrder(job.clip, box, isDown, isRight, visit);
        else
            eachVisibleInAnyOrder(job.clip, box, visit);
    };
    bool isShifted = distanceX * job.source.format.bitsPerPixel % 8 != 0;
    bool isWithinRows = isSameSurface && distanceY == 0;
    bool isMadeInPlace = job.operation.isCopy() && job.destination.format.layout == PixelLayout::Direct32;
    if (!converter.isIdentity() && isMadeInPlace)
        return each([&](const Box &piece) { blit.convertInPlace(piece); });
    if (!converter.isIdentity())
        return each([&](const Box &piece) { blit.throughBuffer(piece, isDown, isRight, &PlainBlit::convert); });
    if (isShifted || isWithinRows)
        return each([&](const Box &piece) { blit.throughBuffer(piece, isDown, isRight, &PlainBlit::shift); });
    each([&](const Box &piece) { blit.copyBits(piece, isSameSurface); });
}

} // namespace win32::gdi
