#include "TextResources.h"

#include "SisterFile.h"

#include <cstdio>
#include <cstring>

namespace resources {
namespace {

// The size is only what the file says, so nothing is touched of a block that may be far too large: the C heap has
// cleared memory of any size at no cost.
Handle makeRoom(Handle reuse, Size size)
{
    Handle h = reuse;
    if (reuse)
        ReallocateHandle(reuse, size);
    else
        h = NewHandleClear(size);
    resError = MemError();
    if (reuse && resError == noErr)
        memset(*h, 0, static_cast<size_t>(size));
    return h;
}

} // namespace

TextSection::TextSection(const ResourceFile &file, ResType type) : typeName_(type)
{
    memcpy(path_, file.path, sizeof file.path);
    if (livesInSisterFile(type))
        toSisterFile(path_);
}

TextKey::TextKey(SInt16 id, const char *suffix)
{
    snprintf(text_, sizeof text_, "%d%s", id, suffix);
}

TextKey::TextKey(const char *resourceName)
{
    snprintf(text_, sizeof text_, "Name_%s", resourceName);
}

Handle loadFromText(const ResourceFile &file, ResType type, SInt16 id, Handle reuse, NameBuffer &name)
{
    TextSection section(file, type);
    auto size =
        static_cast<Size>(GetPrivateProfileIntA(section.name(), TextKey(id, "_Size").text(), 0, section.path()));
    if (size == 0)
        return nullptr;
    GetPrivateProfileStringA(section.name(), TextKey(id, "_Name").text(), "", name, textNameSize, section.path());
    Handle h = makeRoom(reuse, size);
    TextKey data(id, "");
    if (h && resError == noErr)
        GetPrivateProfileStructA(section.name(), data.text(), *h, static_cast<UINT>(size), section.path());
    return h;
}

bool findNameInText(const ResourceFile &file, ResType type, const char *name, SInt16 &id)
{
    TextSection section(file, type);
    id = static_cast<SInt16>(GetPrivateProfileIntA(section.name(), TextKey(name).text(), -1, section.path()));
    return id != -1;
}

UInt16 countInText(const ResourceFile &file, ResType type)
{
    TextSection section(file, type);
    char keys[2048];
    DWORD length = GetPrivateProfileStringA(section.name(), nullptr, "", keys, sizeof keys, section.path());
    UInt16 count = 0;
    for (const char *key = keys; key < keys + length; key += strlen(key) + 1) {
        if (strstr(key, "_Size"))
            ++count;
    }
    return count;
}

} // namespace resources
