// Colour tables that are made by a rule. All are new and the caller's; null when memory is short.
#pragma once

#include "ColorTables_internal.h"

enum class Ramp { BlackFirst, WhiteFirst };
CTabHandle newGrayRamp(SInt32 entryCount, Ramp ramp);
// White first, black last, with blue changing fastest; 6 levels are followed by 18 greys.
CTabHandle newColorCube(SInt32 levels);
// Black first, with red changing fastest.
CTabHandle newRedFirstCube(SInt32 levels);
// 256 entries: the system's colours at both ends, and between them the cube of 6 levels with its greys.
CTabHandle newSystemColorCube();

// Levels with which a cube's entries still have a number.
constexpr SInt32 fewestCubeLevels = 2, mostCubeLevels = 32;
