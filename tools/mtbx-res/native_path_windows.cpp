#include "file_access.h"
#include "native_path.h"

#include <windows.h>

namespace tool {

void preparePlatform()
{
}

std::string pathOfArgument(const std::string &argument)
{
    char full[MAX_PATH];
    DWORD length = GetFullPathNameA(argument.c_str(), sizeof full, full, nullptr);
    return length < sizeof full ? std::string(full, length) : "";
}

} // namespace tool
