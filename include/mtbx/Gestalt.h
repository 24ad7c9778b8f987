/* The Gestalt Manager. */
#ifndef MTBX_GESTALT_H
#define MTBX_GESTALT_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Gives 0 in *response, and 0, for every selector. */
MTBX_API OSErr Gestalt(OSType selector, SInt32 *response);

#ifdef __cplusplus
}
#endif

#endif
