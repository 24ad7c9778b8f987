// Fixed-point arithmetic by way of double precision.
#include <mtbx/FixMath.h>

#include <cmath>

namespace {

constexpr double fixedOne = 65536.0;
constexpr double fractOne = 1073741824.0;

// Towards zero, and no further than 32 bits go; what is not a number counts as the smallest one.
SInt32 saturated(double value)
{
    if (value >= 2147483648.0)
        return INT32_MAX;
    return value > -2147483649.0 ? static_cast<SInt32>(value) : INT32_MIN;
}

} // namespace

Fixed FixMul(Fixed a, Fixed b)
{
    return saturated(a / fixedOne * (b / fixedOne) * fixedOne);
}

Fixed FixRatio(SInt16 numerator, SInt16 denominator)
{
    if (denominator == 0)
        return FixDiv(numerator, 0);
    return static_cast<Fixed>(static_cast<SInt64>(static_cast<double>(numerator) / denominator * fixedOne));
}

Fixed FixDiv(SInt32 a, SInt32 b)
{
    return saturated(static_cast<double>(a) / b * fixedOne);
}

Fract FracMul(Fract a, Fract b)
{
    return saturated(a / fractOne * (b / fractOne) * fractOne);
}

Fract FracSin(Fixed angle)
{
    return saturated(std::sin(angle / fixedOne) * fractOne);
}

Fract FracCos(Fixed angle)
{
    return saturated(std::cos(angle / fixedOne) * fractOne);
}
