#include "ReleasingResources.h"

#include "BitmapPictures.h"
#include "Entries.h"
#include "Resources_internal.h"

#include <cstring>

namespace resources {
namespace {

constexpr ResType picture = 0x50494354; // 'PICT'

struct TypeHook {
    ResType type;
    ResourceReleaseHook hook; // null: a free place
};

TypeHook releaseHooks[4];
ResourceForgetHook forgetHook;

void forget(Handle h)
{
    if (h && forgetHook)
        forgetHook(h);
}

} // namespace

void releaseNative(ResType type, const char *name, Handle h)
{
    if (type == picture && strcmp(name, bitmapPictureName) == 0)
        deleteBitmapOf(h);
    for (const TypeHook &known : releaseHooks) {
        if (known.hook && known.type == type)
            known.hook(h);
    }
}

void disposeResources(ResourceMap &map)
{
    eachEntry(map, [](ResourceEntry &entry) {
        releaseNative(entry.type, entry.name ? entry.name : "", entry.handle);
        forget(entry.handle);
        DisposeHandle(entry.handle);
    });
    disposeMap(map);
}

void detach(Handle h)
{
    if (ListedResource listed = findListed(h))
        removeEntry(listed.file->map, *listed.entry);
    forget(h);
}

} // namespace resources

using namespace resources;

void ReleaseResource(Handle h)
{
    resError = noErr;
    if (ListedResource listed = findListed(h))
        releaseNative(listed.entry->type, listed.name(), h);
    detach(h);
    DisposeHandle(h);
}

void DetachResource(Handle h)
{
    resError = noErr;
    detach(h);
}

void MTBX_SetResourceReleaseHook(ResType type, ResourceReleaseHook hook)
{
    TypeHook *place = nullptr;
    for (TypeHook &known : releaseHooks) {
        if (known.hook && known.type == type)
            place = &known;
        else if (!known.hook && !place)
            place = &known;
    }
    if (place)
        *place = {type, hook};
}

void MTBX_SetResourceForgetHook(ResourceForgetHook hook)
{
    forgetHook = hook;
}
