/* The Resource Manager: the chain of open resource files. */
#ifndef MTBX_RESOURCES_H
#define MTBX_RESOURCES_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Empties the chain of resource files, enters hResInst as its first file, number 1000, and makes that
   the current file. After the memory subsystem and before any other resource call. Gives 0. */
MTBX_API SInt16 InitResources(void);
/* Closes all resource files, that of hResInst too. */
MTBX_API void MTBX_ShutdownResources(void);

/* The result of the last call that sets it. */
MTBX_API OSErr ResError(void);
/* The number of the current resource file. */
MTBX_API SInt16 CurResFile(void);
/* Makes a file current. Numbers 1000 to 1009 are taken without a look at the file; any other sets
   ResError to rfNumErr (-51). */
MTBX_API void UseResFile(SInt16 refNum);
/* The module of a resource file: all ones for a text file and for a free place, null for a number
   outside 1000 to 1009. ResError stays. */
MTBX_API HMODULE GetResFileInst(SInt16 refNum);

#ifdef __cplusplus
}
#endif

#endif
