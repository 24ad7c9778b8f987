// The object behind an HBRUSH.
#pragma once

#include "gdi_object.h"
#include "surface.h"

#include <memory>
#include <vector>

namespace win32::gdi {

// A brush's own copy of its pattern.
struct PatternBits {
    std::vector<uint8_t> bytes;
    ColorTable table;
    Surface surface; // of the bytes
};

// Which colour a solid brush has: its own, or the one that the context keeps for the stock brush or pen.
enum class ColorSource : uint8_t { Own, ContextBrush, ContextPen };

class Brush final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Brush;

    Brush(UINT brushStyle, COLORREF brushColor, ULONG_PTR brushHatch)
        : Object(objectType), style(brushStyle), color(brushColor), hatch(brushHatch)
    {
    }

    int describe(int size, void *buffer) const override;

    UINT style; // BS_SOLID, BS_NULL, BS_HATCHED, BS_PATTERN or BS_DIBPATTERN
    COLORREF color;
    ULONG_PTR hatch; // as it was given
    // A monochrome pattern of 8 by 8 pixels, the common case, lies in the brush itself.
    bool isSmallPattern = false;
    uint8_t rows[8]{};
    std::unique_ptr<PatternBits> pattern;
    ColorSource colorSource = ColorSource::Own;
    // No two looks of brushes ever have the same: what is made from a brush is kept by it.
    uint32_t stamp = nextStamp();

    // Only brushes of system colours change.
    void recolor(COLORREF next)
    {
        color = next;
        stamp = nextStamp();
    }

private:
    static uint32_t nextStamp();
};

class Bitmap;

// Gives a brush its own copy of a bitmap's pixels. False when memory is short.
bool copyPattern(Brush &brush, const Bitmap &bitmap);
// The same of a packed DIB, whose size nobody tells: its header says it all.
bool copyDibPattern(Brush &brush, const void *packedDib, UINT usage);

} // namespace win32::gdi
