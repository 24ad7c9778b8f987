// Resources in Win32 modules.
#pragma once

#include "ResourceFiles_internal.h"

#include <span>

namespace resources {

// Reads a resource into the handle to reuse, or into a new one when that is null, and gives its name, empty for
// none. Null with ResError resNotFound or badResFormat when there is nothing to read; otherwise ResError is from
// MemError and the result what the memory call gave. Null too when the host closes the file meanwhile.
Handle loadFromModule(const ResourceFile &file, ResType type, SInt16 id, Handle reuse, NameBuffer &name);

// The bytes of a resource where they lie in the module; a null pointer when there is none.
std::span<const char> findInModule(HMODULE module, const char *typeName, SInt16 id);

} // namespace resources
