// The lists of handed-out resources of all open files.
#pragma once

#include "ResourceFiles_internal.h"

namespace resources {

struct ListedResource {
    ResourceFile *file = nullptr; // null: the handle is listed nowhere
    ResourceEntry *entry = nullptr;

    explicit operator bool() const { return entry != nullptr; }
    const char *name() const { return entry->name ? entry->name : ""; }
};

// Valid until an entry is added, which a memory call may bring about.
ListedResource findListed(Handle h);

// Lists a handle in an open file, which owns it from then on. addResFailed when the type and ID, or the handle, are
// listed already; rfNumErr when the file is closed, if only by the host while it makes room. An error is ResError's
// too, and the handle is the caller's then.
OSErr listResource(ResourceFile &file, ResType type, SInt16 id, Handle h, const char *name);

} // namespace resources
