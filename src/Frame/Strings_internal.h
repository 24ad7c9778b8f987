// The user-visible strings, for the managers that show them.
#pragma once

#include <mtbx/MacTypes.h>

// Never null. An index outside the table gives the string of index 0.
const char *MTBX_GetStringConstant(SInt32 index);

// The number behind the last '=' of a string, decimal or behind "0x" hexadecimal; 0 when there is no
// '='.
SInt32 MTBX_GetStringConstantInt(SInt32 index);
