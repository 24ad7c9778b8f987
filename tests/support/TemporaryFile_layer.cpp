#include "TemporaryFile.h"

#include <algorithm>

// The layer's drive Z: is the root of the file system.
std::string TemporaryFile::nativePath(const std::string &path)
{
    std::string native = path.substr(2);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}
