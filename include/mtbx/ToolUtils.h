/* Toolbox Utilities: the halves of a 32-bit word, and points as words. */
#ifndef MTBX_TOOLUTILS_H
#define MTBX_TOOLUTILS_H

#include <mtbx/FixMath.h>
#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The high and the low 16 bits. Of a point as a word they are h and v: a Macintosh has them the other
   way round. */
MTBX_API SInt16 HiWord(SInt32 word);
MTBX_API SInt16 LoWord(SInt32 word);
/* a minus b, each coordinate wrapped to 16 bits: h in the high half of the word, v in the low. */
MTBX_API SInt32 DeltaPoint(Point a, Point b);

#ifdef __cplusplus
}
#endif

#endif
