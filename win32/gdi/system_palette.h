// The system palette of an 8-bit screen: which of its entries the realized palettes hold.
#pragma once

#include "palette.h"

namespace win32::gdi {

enum class Realization { Foreground, Background };

// Gives the palette's entries places in the system palette; in the foreground it may take those that other
// palettes hold. The result is how many entries have another place than before. Throws bad_alloc.
UINT realize(Palette &palette, Realization realization);

// Takes the palette's places back; the colours stay on the screen until others need the places.
void unrealize(Palette &palette);

} // namespace win32::gdi
