// The colours of the desktop's parts.
#pragma once

#include "gdi/brush.h"

namespace win32::user {

constexpr int systemColorCount = COLOR_MENUBAR + 1;

// The brush of a system colour, which changes with it; null for a number that is none.
gdi::Brush *systemBrush(int index);

// The brush that a call means, a system colour's among them: small numbers are those of the colours plus 1.
const gdi::Brush *brushOrSystemColor(HBRUSH brush);

} // namespace win32::user
