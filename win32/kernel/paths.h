// Win32 paths on a Unix file system: drive Z: is the root, drive C: a folder of the user's that
// is made when it is first needed.
#pragma once

#include <windows.h>

#include <string>

namespace win32 {

// The Unix path that a Win32 path names. False, with the last error set, when there is no such
// drive. The file need not exist.
bool unixPath(const char *path, std::string &result);

// The Win32 path of an absolute Unix path.
std::string win32Path(const std::string &path);

// The folder behind drive C:, with no slash at its end.
const std::string &driveCFolder();

// Copies a result the way GetSystemDirectoryA and its kin do: the length when it fits, otherwise
// the size needed with its terminator.
UINT copyPathResult(const std::string &path, char *buffer, UINT size);

} // namespace win32
