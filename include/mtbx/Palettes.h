/* The Palette Manager: colours by number, colours put aside, and the screen's palette. */
#ifndef MTBX_PALETTES_H
#define MTBX_PALETTES_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Copy the current port's foreground or background colour out, with the value 0. */
MTBX_API void SaveFore(ColorSpec *color);
MTBX_API void SaveBack(ColorSpec *color);
/* Make the colour that of the port which is current now. A value other than 0 changes nothing: there
   are no palette entries to restore. */
MTBX_API void RestoreFore(const ColorSpec *color);
MTBX_API void RestoreBack(const ColorSpec *color);
/* Make the current port's colour white (1), grey (2), red (3), yellow (4), green (5) or light grey (6),
   and black for all other numbers. */
MTBX_API void PmForeColor(SInt16 index);
MTBX_API void PmBackColor(SInt16 index);

/* On a screen of 8 bits per pixel: realises the library's palette and takes all colours but black and
   white of the system's for it, or gives the system its colours back. On other screens they do nothing
   to the screen. */
MTBX_API void MTBX_AssertZPPalette(void);
MTBX_API void MTBX_AssertSystemPalette(void);

#ifdef __cplusplus
}
#endif

#endif
