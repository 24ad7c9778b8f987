/* The Alias Manager: shell links in the place of aliases. */
#ifndef MTBX_ALIASES_H
#define MTBX_ALIASES_H

#include <mtbx/Files.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Replaces an FSSpec of a shell link by that of its target. *wasAliased tells whether it was a link;
   *targetIsFolder is always 0, for a link to a folder too, and chains are not followed further. An FSSpec
   that is no link stays as it is. A link that cannot be resolved gives its failure. */
MTBX_API OSErr ResolveAliasFile(FSSpec *spec, Boolean resolveAliasChains, Boolean *targetIsFolder,
                                Boolean *wasAliased);

#ifdef __cplusplus
}
#endif

#endif
