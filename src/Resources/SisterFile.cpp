#include "SisterFile.h"

#include <algorithm>
#include <cstring>
#include <string.h>

namespace resources {

bool livesInSisterFile(ResType type)
{
    return std::find(sisterTypes.begin(), sisterTypes.end(), type) != sisterTypes.end();
}

bool toSisterFile(char *path)
{
    char *extension = strrchr(path, '.');
    if (!extension || _stricmp(extension, ".txt") != 0)
        return false;
    memcpy(extension, "_.txt", sizeof "_.txt");
    return true;
}

} // namespace resources
