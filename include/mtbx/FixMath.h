/* Fixed-point arithmetic. Fixed has 16 bits behind the binary point, Fract 30. */
#ifndef MTBX_FIXMATH_H
#define MTBX_FIXMATH_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Results are cut towards zero and go no further than the largest or smallest number, except where
   told. Nothing reports an overflow. */
MTBX_API Fixed FixMul(Fixed a, Fixed b);
/* numerator / denominator. The one quotient that does not fit, -32768 / -1, wraps to the smallest
   number. A denominator of 0 gives what FixDiv gives for it. */
MTBX_API Fixed FixRatio(SInt16 numerator, SInt16 denominator);
/* a / b of two whole numbers, or of two numbers of one form. Division by 0 gives the largest number,
   or the smallest one for a negative a and for 0 / 0. */
MTBX_API Fixed FixDiv(SInt32 a, SInt32 b);
MTBX_API Fract FracMul(Fract a, Fract b);
/* Of an angle in radians. */
MTBX_API Fract FracSin(Fixed angle);
MTBX_API Fract FracCos(Fixed angle);

#ifdef __cplusplus
}
#endif

#endif
