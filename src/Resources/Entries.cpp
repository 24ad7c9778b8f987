#include "Entries.h"

#include "Resources_internal.h"

#include <mtbx/MacErrors.h>
#include <mtbx/TextUtils.h>

#include <algorithm>
#include <cstring>

namespace resources {
namespace {

OSErr copyName(const char *name, Ptr &copy)
{
    copy = nullptr;
    if (!*name)
        return noErr;
    size_t size = strlen(name) + 1;
    copy = NewPtr(static_cast<Size>(size));
    if (!copy)
        return MemError();
    memcpy(copy, name, size);
    return noErr;
}

// The map is made apart, since the host may list something in the file while it makes room.
OSErr openMapOf(ResourceFile &file, const Opening &opening)
{
    if (file.map.entries)
        return noErr;
    ResourceMap map;
    if (OSErr error = openMap(map))
        return error;
    if (opening.isOver() || file.map.entries)
        disposeMap(map);
    else
        file.map = map;
    return noErr;
}

// Everything that may run the host's grow-zone function comes before the checks, and the entry after them.
OSErr enter(ResourceFile &file, ResType type, SInt16 id, Handle h, const char *name)
{
    Opening opening(file);
    Ptr copy = nullptr;
    OSErr error = openMapOf(file, opening);
    if (error == noErr)
        error = copyName(name, copy);
    if (error == noErr && opening.isOver())
        error = rfNumErr;
    if (error == noErr && (findByKey(file.map, type, id) || findListed(h)))
        error = addResFailed;
    if (error == noErr)
        error = addEntry(file.map, type, id, h, copy);
    if (error != noErr && copy)
        DisposePtr(copy);
    return error;
}

} // namespace

ListedResource findListed(Handle h)
{
    for (ResourceFile &file : places) {
        if (ResourceEntry *entry = findByHandle(file.map, h))
            return {&file, entry};
    }
    return {};
}

OSErr listResource(ResourceFile &file, ResType type, SInt16 id, Handle h, const char *name)
{
    OSErr error = file.isOpen() ? enter(file, type, id, h, name) : OSErr{rfNumErr};
    if (error != noErr)
        resError = error;
    return error;
}

} // namespace resources

using namespace resources;

SInt16 HomeResFile(Handle h)
{
    ListedResource listed = findListed(h);
    return listed ? listed.file->refNum : SInt16{-1};
}

void GetResInfo(Handle h, SInt16 *id, ResType *type, StringPtr name)
{
    ListedResource listed = findListed(h);
    resError = listed ? OSErr{noErr} : OSErr{resNotFound};
    if (id)
        *id = listed ? listed.entry->id : SInt16{-1};
    if (type)
        *type = listed ? listed.entry->type : 0;
    if (name) {
        const char *text = listed ? listed.name() : "";
        name[0] = static_cast<unsigned char>(std::min<size_t>(strlen(text), 255));
        memcpy(name + 1, text, name[0]);
    }
}

Size GetResourceSize(Handle h)
{
    resError = noErr;
    return GetHandleSize(h);
}

Handle MTBX_FindResourceHandle(ResType type, SInt16 id)
{
    for (size_t place = std::size(places); place-- > 0;) {
        if (ResourceEntry *entry = findByKey(places[place].map, type, id))
            return entry->handle;
    }
    return nullptr;
}

OSErr MTBX_AddAppResourceEntry(ResType type, SInt16 id, Handle h)
{
    ResourceFile *file = applicationPlace();
    if (file)
        return listResource(*file, type, id, h, "");
    resError = rfNumErr;
    return resError;
}
