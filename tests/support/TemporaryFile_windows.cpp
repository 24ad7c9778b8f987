#include "TemporaryFile.h"

std::string TemporaryFile::nativePath(const std::string &path)
{
    return path;
}
