// Specs and the paths that they stand for.
#include "Files_internal.h"

#include <mtbx/MacErrors.h>

#include <algorithm>
#include <cstring>
#include <mbstring.h>

namespace {

// The component behind the last backslash, of which one at the end of the path does not count.
const char *leafStart(const char *path, size_t &length)
{
    length = strlen(path);
    const char *separator = files::lastSeparator(path);
    if (separator && separator == path + length - 1) {
        --length;
        char trimmed[files::pathSize];
        size_t kept = std::min(length, sizeof trimmed - 1);
        memcpy(trimmed, path, kept);
        trimmed[kept] = 0;
        const char *inner = files::lastSeparator(trimmed);
        separator = inner ? path + (inner - trimmed) : nullptr;
    }
    bool isServer = separator == path + 1 && path[0] == '\\';
    if (!separator || isServer)
        return path;
    length -= static_cast<size_t>(separator + 1 - path);
    return separator + 1;
}

} // namespace

namespace files {

const char *lastSeparator(const char *path)
{
    return reinterpret_cast<const char *>(_mbsrchr(reinterpret_cast<const unsigned char *>(path), '\\'));
}

void copyName(ConstStr255Param name, char *buffer)
{
    size_t length = name ? name[0] : 0;
    if (length > 0)
        memcpy(buffer, name + 1, length);
    buffer[length] = 0;
}

void copyPascal(const char *text, StringPtr result)
{
    size_t length = strnlen(text, 255);
    memmove(result + 1, text, length);
    result[0] = static_cast<unsigned char>(length);
}

void appendBounded(char *buffer, size_t size, const char *text)
{
    size_t used = strnlen(buffer, size);
    if (used + 1 >= size)
        return;
    size_t copied = std::min(strlen(text), size - 1 - used);
    memcpy(buffer + used, text, copied);
    buffer[used + copied] = 0;
}

OSErr buildPath(SInt32 dirID, ConstStr255Param name, char *path)
{
    FSSpec spec;
    FSMakeFSSpec(0, dirID, name, &spec);
    return MTBX_FSSpecToCPathName(&spec, path, pathSize);
}

} // namespace files

void MTBX_LeafName(const char *path, char *leaf)
{
    size_t length;
    const char *start = leafStart(path, length);
    memmove(leaf, start, length);
    leaf[length] = 0;
}

void MTBX_LeafNamePascal(ConstStr255Param path, StringPtr leaf)
{
    char text[256], result[256];
    files::copyName(path, text);
    MTBX_LeafName(text, result);
    files::copyPascal(result, leaf);
}

OSErr FSMakeFSSpec(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, FSSpec *spec)
{
    if (name && name[0] > 0) {
        memmove(spec->name, name, size_t{name[0]} + 1);
        spec->vRefNum = vRefNum;
        spec->parID = dirID;
        return noErr;
    }
    const char *path = files::directoryPath(dirID);
    char copied[files::pathSize] = "", leaf[files::pathSize];
    files::appendBounded(copied, sizeof copied, path ? path : "");
    MTBX_LeafName(copied, leaf);
    spec->vRefNum = vRefNum;
    spec->parID = GetParentDirectoryID(copied);
    files::copyPascal(leaf, spec->name);
    return noErr;
}

OSErr MTBX_FSSpecToCPathName(const FSSpec *spec, char *buffer, SInt16 bufferSize)
{
    char name[256];
    files::copyName(spec->name, name);
    if (files::lastSeparator(name)) {
        memcpy(buffer, name, strlen(name) + 1);
        return noErr;
    }
    const char *path = files::directoryPath(spec->parID);
    if (!path)
        return dirNFErr;
    auto size = static_cast<size_t>(std::max<SInt16>(bufferSize, 0));
    if (size == 0)
        return noErr;
    buffer[0] = 0;
    files::appendBounded(buffer, size, path);
    files::appendBounded(buffer, size, "\\");
    files::appendBounded(buffer, size, name);
    return noErr;
}

void FSSpecToPathName(const FSSpec *spec, StringPtr buffer, SInt16 bufferSize)
{
    char path[files::pathSize] = "";
    MTBX_FSSpecToCPathName(spec, path, std::min<SInt16>(bufferSize, files::pathSize));
    files::copyPascal(path, buffer);
}

OSErr PathNameToFSSpec(const char *path, FSSpec *spec)
{
    const char *separator = files::lastSeparator(path);
    if (!separator)
        return fnfErr;
    Str255 leaf;
    files::copyPascal(separator + 1, leaf);
    SInt16 volume = MTBX_VolumeRefFromPath(path);
    return FSMakeFSSpec(volume, GetParentDirectoryID(path), leaf, spec);
}

SInt32 GetParentDirectoryID(const char *path)
{
    char parent[files::pathSize] = "";
    files::appendBounded(parent, sizeof parent, path);
    bool isUnc = parent[0] == '\\' && parent[1] == '\\';
    bool hasDrive = parent[0] && parent[1] == ':' && parent[2] == '\\';
    size_t start = isUnc || hasDrive ? 2 : 0;
    const char *separator = files::lastSeparator(parent + start);
    if (!separator)
        return files::unknownParent;
    parent[separator - parent] = 0;
    return GetDirectoryID(parent);
}
