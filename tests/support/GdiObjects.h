// How many graphics objects the process has.
#pragma once

#include <windows.h>

DWORD gdiObjectCount();
