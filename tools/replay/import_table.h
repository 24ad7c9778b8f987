// The functions that the program takes from the system, where others can be put before them.
#pragma once

#include <windows.h>

namespace replay {

// For the program and the libraries in its folder that are loaded. The function in effect until now, of a module of the
// system; null when that has none of this name.
FARPROC replaceImport(LPCSTR module, LPCSTR name, FARPROC other);

} // namespace replay
