// A file's content replaced as a whole: the new one is written beside the old file and renamed over it, so that at
// every moment one of the two is whole.
#pragma once

#include <sys/stat.h>

#include <functional>
#include <string>
#include <string_view>

namespace win32 {

// Where a symbolic link leads, whether there is a file or not: that is what is replaced, and the link stays.
std::string withoutLinks(std::string path);

// Access rights, owner and extended attributes of the old file stay. Refused for what is no regular file, is
// read-only, or is held open against writing. mayReplace is asked when all is ready; if it says no, the old file
// stays. False with the last error set; made tells of the new file.
bool replaceFile(const std::string &path, std::string_view content, struct stat &made,
                 const std::function<bool()> &mayReplace);

} // namespace win32
