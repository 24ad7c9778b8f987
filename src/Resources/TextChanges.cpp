// Writing and removing the resources of text files. The profile calls change one key at a time, so a change of
// several keys is undone when one of them cannot be made.
#include "TextResources.h"

#include <mtbx/MacErrors.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

namespace resources {
namespace {

// What a key is to become: a text, a structure, or nothing when both are null.
struct KeyChange {
    TextKey key;
    const char *text;
    Handle data;
};

// The value of a key before it is changed.
class OldValue {
public:
    // False when there is no memory for it.
    bool read(const TextSection &section, const TextKey &key)
    {
        for (DWORD size = 512;; size *= 2) {
            text_.reset(new (std::nothrow) char[size]);
            if (!text_)
                return false;
            DWORD length = GetPrivateProfileStringA(section.name(), key.text(), "", text_.get(), size, section.path());
            if (length < size - 1)
                return true;
        }
    }

    // No key of a resource is ever empty, so an empty value stands for none.
    void putBack(const TextSection &section, const TextKey &key) const
    {
        WritePrivateProfileStringA(section.name(), key.text(), *text_.get() ? text_.get() : nullptr, section.path());
    }

private:
    std::unique_ptr<char[]> text_;
};

bool writeKey(const TextSection &section, const KeyChange &change)
{
    if (!change.data)
        return WritePrivateProfileStringA(section.name(), change.key.text(), change.text, section.path());
    return WritePrivateProfileStructA(section.name(), change.key.text(), *change.data,
                                      static_cast<UINT>(GetHandleSize(change.data)), section.path());
}

OSErr changeKeys(const TextSection &section, const KeyChange *changes, size_t count)
{
    constexpr size_t mostChanges = 4;
    OldValue oldValues[mostChanges];
    OSErr error = noErr;
    size_t made = 0;
    while (made < count && error == noErr) {
        // A change that fails leaves its own key alone, so nobody asks for the old value of the last one.
        bool isLast = made + 1 == count;
        if (!isLast && !oldValues[made].read(section, changes[made].key))
            error = memFullErr;
        else if (!writeKey(section, changes[made]))
            error = static_cast<OSErr>(MTBX_GetLastError());
        else
            ++made;
    }
    while (error != noErr && made > 0) {
        --made;
        oldValues[made].putBack(section, changes[made].key);
    }
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, section.path());
    return error;
}

// An equals sign in a name would end the key early: it would be found as another resource's, and never as this
// one's.
bool canBeLookedUp(const char *name)
{
    return *name && !strchr(name, '=');
}

// A line end in a name would begin a new line of the file, and could change other resources.
bool canBeWritten(const TextSection &section, const char *name)
{
    return !strpbrk(section.name(), "\r\n") && !strpbrk(name, "\r\n");
}

} // namespace

OSErr writeToText(const ResourceFile &file, ResType type, SInt16 id, const char *name, Handle h)
{
    TextSection section(file, type);
    if (!canBeWritten(section, name))
        return addResFailed;
    TextKey number(id, "");
    char size[16];
    snprintf(size, sizeof size, "%d", static_cast<int>(GetHandleSize(h)));
    KeyChange changes[] = {
        {TextKey(id, "_Size"), size, nullptr},
        {number, nullptr, h},
        {TextKey(name), number.text(), nullptr},
        {TextKey(id, "_Name"), name, nullptr},
    };
    if (canBeLookedUp(name))
        return changeKeys(section, changes, 4);
    changes[2] = changes[3];
    return changeKeys(section, changes, *name ? 3 : 2);
}

OSErr removeFromText(const ResourceFile &file, ResType type, SInt16 id, const char *name)
{
    TextSection section(file, type);
    const KeyChange changes[] = {
        {TextKey(id, ""), nullptr, nullptr},
        {TextKey(id, "_Size"), nullptr, nullptr},
        {TextKey(id, "_Name"), nullptr, nullptr},
        {TextKey(name), nullptr, nullptr},
    };
    return changeKeys(section, changes, canBeLookedUp(name) ? 4 : 3);
}

} // namespace resources
