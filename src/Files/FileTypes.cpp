// Types of files by the extension of their names.
#include "Files_internal.h"

#include <mtbx/MTBXGlobals.h>

#include <cctype>
#include <cstring>

namespace {

constexpr OSType code(const char (&text)[5])
{
    OSType value = 0;
    for (int place = 0; place < 4; ++place)
        value = value << 8 | static_cast<unsigned char>(text[place]);
    return value;
}

struct ExtensionType {
    const char *extension;
    OSType type;
};

constexpr ExtensionType extensionTypes[] = {
    {".txt", code("TEXT")}, {".qa", code("TEXT")},  {".eps", code("EPSF")}, {".tsd", code("8BPS")},
    {".tga", code("TPIC")}, {".bmp", code("BMP ")}, {".iff", code("ILBM")}, {".jpg", code("JPEG")},
    {".avi", code(".AVI")}, {".zpp", code("ZpfP")}, {".wav", code(".AVI")}, {".mov", code("MooV")},
};

} // namespace

void MTBX_GetExtensionFromFilename(const char *path, char *extension)
{
    char bounded[files::pathSize] = "", leaf[files::pathSize];
    // A path that is too long is cut in front: the extension stands at its end.
    size_t length = strlen(path);
    files::appendBounded(bounded, sizeof bounded,
                         length < sizeof bounded ? path : path + length - (sizeof bounded - 1));
    MTBX_LeafName(bounded, leaf);
    const char *dot = strrchr(leaf, '.');
    for (; dot && *dot; ++dot)
        *extension++ = static_cast<char>(tolower(static_cast<unsigned char>(*dot)));
    *extension = 0;
}

OSType MTBX_FileTypeFromName(ConstStr255Param name)
{
    char path[256];
    files::copyName(name, path);
    return files::typeOfPath(path);
}

OSType files::typeOfPath(const char *path)
{
    char extension[files::pathSize];
    MTBX_GetExtensionFromFilename(path, extension);
    for (const ExtensionType &known : extensionTypes) {
        if (strcmp(known.extension, extension) == 0)
            return known.type;
    }
    return 0;
}

void MTBX_BuildAppRelativePath(const char *relativePath, char *path)
{
    path[0] = 0;
    GetModuleFileNameA(hExeInst, path, files::pathSize);
    path[files::pathSize - 1] = 0;
    const char *separator = files::lastSeparator(path);
    path[separator ? separator + 1 - path : 0] = 0;
    files::appendBounded(path, files::pathSize, relativePath);
}
