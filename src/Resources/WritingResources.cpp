// Adding resources to a file, writing them and removing them. Only text files can be written.
#include "Entries.h"
#include "ReleasingResources.h"
#include "TextResources.h"

#include "Files/Files_internal.h"

#include <mtbx/MacErrors.h>

using namespace resources;

void AddResource(Handle h, ResType type, SInt16 id, ConstStr255Param name)
{
    resError = noErr;
    if (!h)
        return;
    char text[256];
    files::copyName(name, text);
    ResourceFile *current = currentPlace();
    bool isListed = current && listResource(*current, type, id, h, text) == noErr;
    // What is listed elsewhere already must not be written there in its place.
    if (isListed)
        WriteResource(h);
    else
        resError = addResFailed;
}

void WriteResource(Handle h)
{
    resError = addResFailed;
    ListedResource listed = findListed(h);
    if (listed && !listed.file->isModule)
        resError = writeToText(*listed.file, listed.entry->type, listed.entry->id, listed.name(), h);
}

void RemoveResource(Handle h)
{
    resError = rmvResFailed;
    ListedResource listed = findListed(h);
    if (!listed)
        return;
    if (listed.file == currentPlace() && !listed.file->isModule)
        resError = removeFromText(*listed.file, listed.entry->type, listed.entry->id, listed.name());
    detach(h);
}
