// Finding a resource in one file.
#pragma once

#include "ResourceFiles_internal.h"

namespace resources {

// The handle listed in the file, or else the resource read from it and listed; null when there is none. ResError
// stays for a listed handle, and when a text file has nothing to give.
Handle lookUp(ResourceFile &file, ResType type, SInt16 id);

} // namespace resources
