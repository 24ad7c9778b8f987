// The end of handed-out resources.
#pragma once

#include "ResourceMap.h"

namespace resources {

// Frees the native objects that a resource's record stands for.
void releaseNative(ResType type, const char *name, Handle h);

// Frees all entries of a map that belongs to no file any more, with their handles.
void disposeResources(ResourceMap &map);

// Takes a handle out of the lists; it is the caller's afterwards.
void detach(Handle h);

} // namespace resources
