// Drive letters: Z: is the root of the file system, C: a folder of the user's that is made when it is
// first needed, others come from the environment variable WIN32_DRIVES ("D=/media/data;E=/srv").
#pragma once

#include <windows.h>

#include <string>

namespace win32 {

// The folder behind a drive letter of either case, with no slash at its end ("" for the root); null when
// there is no such drive.
const std::string *driveFolder(char letter);

// Bit 0 for A:.
DWORD driveMask();

// The drive whose folder holds the absolute Unix path, the deepest one if several do.
char driveOfPath(const std::string &path);

} // namespace win32
