// Paths as users of Unix write them.
#include "file_access.h"
#include "native_path.h"

#include <windows.h>

#include <cstdlib>

namespace tool {

// Arguments are UTF-8 here, so names are that on the Win32 side as well.
void preparePlatform()
{
    setenv("WIN32_CODEPAGE", "65001", 1);
}

// A path from the root is one on drive Z:.
std::string pathOfArgument(const std::string &argument)
{
    std::string path = argument.starts_with('/') ? "Z:" + argument : argument;
    char full[MAX_PATH];
    DWORD length = GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
    return length < sizeof full ? std::string(full, length) : "";
}

} // namespace tool
