// The direction in which a turned font writes.
#include "realized_font.h"

#include <cmath>
#include <numbers>

namespace win32::gdi {

TextDirection directionOf(const LOGFONTA &description)
{
    constexpr LONG wholeTurn = 3600; // tenths of a degree
    LONG turn = description.lfEscapement % wholeTurn;
    if (turn == 0)
        return {};
    double angle = static_cast<double>(turn) * std::numbers::pi / (wholeTurn / 2);
    bool isRight = turn % (wholeTurn / 4) == 0;
    auto exact = [isRight](double value) { return isRight ? std::round(value) : value; };
    return {exact(std::cos(angle)), exact(std::sin(angle))};
}

} // namespace win32::gdi
