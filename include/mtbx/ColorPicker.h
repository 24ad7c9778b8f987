/* Choosing and converting colours. */
#ifndef MTBX_COLORPICKER_H
#define MTBX_COLORPICKER_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Each from 0 to 65535, the hue once around the circle from red over green and blue. */
typedef struct HSVColor {
    UInt16 hue;
    UInt16 saturation;
    UInt16 value;
} HSVColor;

MTBX_ASSERT(sizeof(HSVColor) == 6);

MTBX_API void HSV2RGB(const HSVColor *hsv, RGBColor *rgb);

/* Asks the user for a colour in the system's dialog, which begins with the first colour. True when
   the user took one; false leaves *chosen alone. The place and the prompt play no part. The user's own
   colours are kept from call to call. */
MTBX_API Boolean GetColor(Point where, ConstStr255Param prompt, const RGBColor *first, RGBColor *chosen);

#ifdef __cplusplus
}
#endif

#endif
