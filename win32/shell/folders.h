// Folders with a purpose.
#pragma once

#include <string>

namespace win32 {

// The Win32 path of one of the CSIDL folders, whether it is there or not; empty for an unknown number.
std::string folderPath(int folder);

} // namespace win32
