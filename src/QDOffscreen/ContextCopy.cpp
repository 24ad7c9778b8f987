// Copying between contexts: with one bit a pixel, and where the settings want it.
#include "CopyPaths_internal.h"

namespace {

constexpr COLORREF paletteEntry(COLORREF index)
{
    return 0x01000000 | index;
}

// What the two pixels of a one-bit source become under the exclusive-or modes.
class OneBitColors {
public:
    explicit OneBitColors(const Copy &copy)
    {
        if (copy.destination.pixelSize == 8 && copy.mode == srcXor)
            set(copy.destination.pmDC, paletteEntry(255), paletteEntry(128));
        else if (copy.mode == addOver)
            set(copy.destination.pmDC, 0, 0x80808080);
    }
    ~OneBitColors()
    {
        if (!context_)
            return;
        SetTextColor(context_, formerText_);
        SetBkColor(context_, formerBackground_);
    }
    OneBitColors(const OneBitColors &) = delete;
    OneBitColors &operator=(const OneBitColors &) = delete;

private:
    void set(HDC context, COLORREF text, COLORREF background)
    {
        context_ = context;
        formerText_ = SetTextColor(context, text);
        formerBackground_ = SetBkColor(context, background);
    }

    HDC context_ = nullptr;
    COLORREF formerText_, formerBackground_;
};

} // namespace

void copyBetweenContexts(const Copy &copy)
{
    HDC from = copy.source.pmDC, to = copy.destination.pmDC;
    if (copy.isStretched())
        StretchBlt(to, copy.to.x, copy.to.y, copy.width, copy.height, from, copy.from.x, copy.from.y, copy.sourceWidth,
                   copy.sourceHeight, copy.rasterOperation);
    else
        BitBlt(to, copy.to.x, copy.to.y, copy.width, copy.height, from, copy.from.x, copy.from.y, copy.rasterOperation);
}

void copyOneBit(const Copy &copy)
{
    OneBitColors colors(copy);
    copyBetweenContexts(copy);
}
