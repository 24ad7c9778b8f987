// What the layer asks of its control panel: the figures that it is to pretend.
#pragma once

#include "control.h"

#include <windows.h>

namespace win32::control {

DWORDLONG physicalMemory();           // 0: the real figure
DWORDLONG processUsage();             // 0: the real figure
bool version(OSVERSIONINFOA &result); // false: the configured one
bool hides(const char *module, const char *function);
void showDebugOutput(const char *text);

// False when a person is to answer a message box.
bool answersMessageBox(LPCSTR text, LPCSTR caption, UINT type, int &answer);

} // namespace win32::control
