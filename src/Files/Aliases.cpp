// Shell links in the place of aliases.
#include "Files_internal.h"

#include <mtbx/Aliases.h>
#include <mtbx/Drag.h>

OSErr ResolveAliasFile(FSSpec *spec, Boolean, Boolean *targetIsFolder, Boolean *wasAliased)
{
    *wasAliased = false;
    *targetIsFolder = false;
    char path[files::pathSize];
    if (OSErr error = MTBX_FSSpecToCPathName(spec, path, sizeof path))
        return error;
    HRESULT result = ResolveLink(path, wasAliased);
    if (FAILED(result))
        return static_cast<OSErr>(result);
    return *wasAliased ? PathNameToFSSpec(path, spec) : OSErr{0};
}
