// Paths as links keep them, in UTF-16, and as Win32 calls take them.
#pragma once

#include <string>
#include <string_view>

namespace win32 {

// Characters that the code page lacks, and names that Win32 forbids, are spelled so that the result still
// opens the file.
std::string win32FromLinkPath(std::u16string_view path);

// The same for the name of a file that a caller gives by the rules of Win32.
std::string win32FromName(std::u16string_view name);

// The absolute path, in the spelling on disk as far as there is something. False, with the last error set,
// for one that cannot name a file. A network path stays as it is.
bool linkPathFromWin32(const std::string &path, std::u16string &result);

// Replaces names of environment variables between percent signs; unknown ones stay. The folders of this
// system go by the names that they have on Windows.
std::string withVariables(std::string_view text);

// The path of a file as seen from the folder of another one; empty when there is no way between the two.
std::u16string relativePath(std::u16string_view path, std::u16string_view from);

} // namespace win32
