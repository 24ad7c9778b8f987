#include "dash_pattern.h"

#include <algorithm>
#include <cmath>

namespace win32::gdi {
namespace {

struct Style {
    int count;
    DWORD lengths[6];
};

// By style, from PS_DASH on: in pixels for lines of one pixel, in widths for geometric pens.
constexpr Style pixelStyles[] = {{2, {18, 6}}, {2, {3, 3}}, {4, {9, 6, 3, 6}}, {6, {9, 3, 3, 3, 3, 3}}};
constexpr Style widthStyles[] = {{2, {3, 1}}, {2, {1, 1}}, {4, {3, 1, 1, 1}}, {6, {3, 1, 1, 1, 1, 1}}};
constexpr DWORD alternatePixels[] = {1, 1};
// The lengths of a cosmetic pen are given in units of so many pixels.
constexpr double styleUnit = 3;

} // namespace

DashPattern::DashPattern(const Pen &pen, double width)
{
    DWORD style = pen.lineStyle();
    switch (style) {
    case PS_DASH:
    case PS_DOT:
    case PS_DASHDOT:
    case PS_DASHDOTDOT: {
        // Other pens than extended ones are broken only where they are thin.
        if (!pen.isExtended && width > 1)
            return;
        const Style &lengths = (pen.isGeometric() ? widthStyles : pixelStyles)[style - PS_DASH];
        set(lengths.lengths, lengths.count, pen.isGeometric() ? width : 1);
        break;
    }
    case PS_ALTERNATE: set(alternatePixels, 2, 1); break;
    case PS_USERSTYLE:
        set(pen.lengths.data(), static_cast<int>(pen.lengths.size()), pen.isGeometric() ? 1 : styleUnit);
        break;
    default: return;
    }
    if (pen.isGeometric() && width > 1 && (pen.style & PS_ENDCAP_MASK) != PS_ENDCAP_FLAT)
        makeRoomForCaps(width);
}

void DashPattern::set(const DWORD *lengths, int count, double unit)
{
    count = std::min(count, mostLengths / 2);
    count_ = count % 2 ? count * 2 : count;
    for (int i = 0; i < count_; ++i) {
        lengths_[i] = lengths[i % count] * unit;
        total_ += lengths_[i];
    }
    if (total_ <= 0)
        count_ = 0;
}

// Caps lengthen a dash at both ends by half the width: the dash with its caps keeps its length.
void DashPattern::makeRoomForCaps(double width)
{
    for (int i = 0; i < count_; i += 2) {
        double taken = std::min(width, lengths_[i]);
        lengths_[i] -= taken;
        lengths_[i + 1] += taken;
    }
}

DashPattern::Place DashPattern::at(double distance) const
{
    double left = std::fmod(distance, total_);
    Place place{0, lengths_[0]};
    while (left >= place.left && left > 0) {
        left -= place.left;
        advance(place);
    }
    place.left -= left;
    return place;
}

} // namespace win32::gdi
