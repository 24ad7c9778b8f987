// Bitmaps combined as a whole.
#pragma once

#include <mtbx/MacTypes.h>

// Puts all bits of the source exclusively or into the destination. False, with nothing changed, when their
// sizes in bytes differ or memory is short.
bool xorWholeBitmaps(HBITMAP source, HBITMAP destination);
