// Getting resources by type and ID, from one file and along the chain.
#include "Lookup.h"

#include "Entries.h"
#include "ModuleResources.h"
#include "ReleasingResources.h"
#include "TextResources.h"

#include <mtbx/MacErrors.h>
#include <mtbx/MTBXEnvironment.h>

namespace resources {
namespace {

UInt8 textSearches;

Handle load(const ResourceFile &file, ResType type, SInt16 id, Handle reuse, NameBuffer &name)
{
    name[0] = 0;
    if (!file.isOpen())
        return nullptr;
    if (file.isModule)
        return loadFromModule(file, type, id, reuse, name);
    return textSearches != 0 ? loadFromText(file, type, id, reuse, name) : nullptr;
}

// Lists what was loaded. While it made room the host may have closed the file, or got the same resource: then that
// handle counts.
Handle listLoaded(ResourceFile &file, const Opening &opening, ResType type, SInt16 id, Handle loaded, const char *name)
{
    OSErr error = resError;
    if (!opening.isOver() && listResource(file, type, id, loaded, name) == noErr)
        return loaded;
    releaseNative(type, name, loaded);
    DisposeHandle(loaded);
    ResourceEntry *entry = opening.isOver() ? nullptr : findByKey(file.map, type, id);
    if (!entry)
        return nullptr;
    resError = error;
    return entry->handle;
}

} // namespace

Handle lookUp(ResourceFile &file, ResType type, SInt16 id)
{
    ResourceEntry *entry = findByKey(file.map, type, id);
    if (entry && *entry->handle)
        return entry->handle;
    Handle emptied = entry ? entry->handle : nullptr;
    NameBuffer name;
    Opening opening(file);
    Handle loaded = load(file, type, id, emptied, name);
    return loaded && !emptied ? listLoaded(file, opening, type, id, loaded, name) : loaded;
}

} // namespace resources

using namespace resources;

Handle GetResource(ResType type, SInt16 id)
{
    resError = noErr;
    ResourceFile *current = currentPlace();
    Handle found = current ? lookUp(*current, type, id) : nullptr;
    for (size_t place = std::size(places); !found && place-- > 0;) {
        ResourceFile &file = places[place];
        if (file.isOpen() && &file != current)
            found = lookUp(file, type, id);
    }
    return found;
}

Handle Get1Resource(ResType type, SInt16 id)
{
    resError = noErr;
    ResourceFile *current = currentPlace();
    return current ? lookUp(*current, type, id) : nullptr;
}

void MacLoadResource(Handle h)
{
    resError = noErr;
    ListedResource listed = h && !*h ? findListed(h) : ListedResource();
    if (listed)
        lookUp(*listed.file, listed.entry->type, listed.entry->id);
}

// An ID whose resource merely finds no memory is not free.
SInt16 Unique1ID(ResType type)
{
    constexpr UInt16 firstID = 128, lastID = firstID - 1; // once around, negative ones after the positive
    auto isTaken = [type](UInt16 id) { return Get1Resource(type, static_cast<SInt16>(id)) || resError == memFullErr; };
    UInt16 id = firstID;
    while (id != lastID && isTaken(id))
        ++id;
    return static_cast<SInt16>(id);
}

void SetResLoad(Boolean)
{
    resError = noErr;
}

SInt16 GetResAttrs(Handle)
{
    resError = noErr;
    StubError("Resources", "GetResAttrs");
    return 0;
}

void SetResAttrs(Handle, SInt16)
{
    resError = noErr;
    StubError("Resources", "SetResAttrs");
}

void ChangedResource(Handle)
{
    resError = noErr;
}

void MTBX_BeginEnableSearchResourcesInTextFiles()
{
    ++textSearches;
}

void MTBX_EndEnableSearchResourcesInTextFiles()
{
    --textSearches;
}
