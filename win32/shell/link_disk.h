// Link files on disk.
#pragma once

#include <string>

namespace win32 {

// Both give false with the last error set. A file too large for any link is not read.
bool loadLinkBytes(const std::string &path, std::string &bytes);

// Writes beside the old file and renames over it, so that at every moment one of the two is whole. Links
// of the file system and access rights stay.
bool saveLinkBytes(const std::string &path, const std::string &bytes);

} // namespace win32
