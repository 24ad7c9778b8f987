// Resources in text files: private profiles with a section for each type. A resource has the keys "<id>" for its
// data as a profile structure, "<id>_Size", and with a name "<id>_Name" and "Name_<name>", which leads to the ID.
#pragma once

#include "ResourceFiles_internal.h"
#include "TypeName.h"

namespace resources {

// Reads a resource into the handle to reuse, or into a new one when that is null, and gives its name, empty for
// none. Null when the file has no such resource; otherwise ResError is from MemError and the result what the memory
// call gave. Data that cannot be read are zeros.
Handle loadFromText(const ResourceFile &file, ResType type, SInt16 id, Handle reuse, NameBuffer &name);

// A name is read, and looked for, with up to 63 bytes.
constexpr size_t textNameSize = 64;

// False when the index of names does not lead to an ID.
bool findNameInText(const ResourceFile &file, ResType type, const char *name, SInt16 &id);

UInt16 countInText(const ResourceFile &file, ResType type);

// Both give the error of the first change that failed; the file is then as it was, as far as it can still be
// written at all.
OSErr writeToText(const ResourceFile &file, ResType type, SInt16 id, const char *name, Handle h);
OSErr removeFromText(const ResourceFile &file, ResType type, SInt16 id, const char *name);

// The section of a type and the file that holds it.
class TextSection {
public:
    TextSection(const ResourceFile &file, ResType type);

    const char *name() const { return typeName_.text(); }
    const char *path() const { return path_; }

private:
    TypeName typeName_;
    char path_[MAX_PATH + 1];
};

// The names of keys.
class TextKey {
public:
    TextKey(SInt16 id, const char *suffix);
    explicit TextKey(const char *resourceName);

    const char *text() const { return text_; }

private:
    char text_[264];
};

} // namespace resources
