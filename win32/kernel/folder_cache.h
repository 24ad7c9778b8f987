// Finding a name in a folder without regard to case. A folder is read once and kept until its time
// changes.
#pragma once

#include <string>
#include <string_view>

namespace win32 {

// The disk name of the entry that equals the name but for case; empty when there is none. A name that is
// there in exactly this spelling is for the caller to try first.
std::string findInFolder(const std::string &folder, std::string_view diskName);

// Tells that this process has made the entry, so that the folder need not be read again for it.
void noteMade(std::string_view unixPath) noexcept;

} // namespace win32
