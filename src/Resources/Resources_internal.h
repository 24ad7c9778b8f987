// What other managers need of the Resource Manager.
#pragma once

#include <mtbx/Resources.h>

// The number of the open file that stands for hResInst; 0 when there is none.
SInt16 MTBX_HostResourceFile();

// The path of an open resource file; empty for a number that has none. The buffer holds 260 bytes.
void MTBX_ResFilePath(SInt16 refNum, char *path);

// The handle that is listed under a type and ID in any open file, the last file first, even when its data are
// gone; null when there is none. Nothing is loaded and ResError stays.
Handle MTBX_FindResourceHandle(ResType type, SInt16 id);

// Lists a handle in the application file, which owns it from then on. rfNumErr when that file is not open,
// addResFailed when the type and ID, or the handle, are listed already; on any error the handle stays the
// caller's. The error is ResError's too.
OSErr MTBX_AddAppResourceEntry(ResType type, SInt16 id, Handle handle);

// The managers that stand above this one say here what they have to do when a resource goes.

// Frees what the record of a resource of the type stands for, such as a native menu. It runs before the handle is
// disposed, in ReleaseResource and when the resource's file is closed. Null ends it; a few types can have one.
using ResourceReleaseHook = void (*)(Handle h);
void MTBX_SetResourceReleaseHook(ResType type, ResourceReleaseHook hook);

// Forgets a handle that is detached or about to be disposed, whether it is a resource or not.
using ResourceForgetHook = void (*)(Handle h);
void MTBX_SetResourceForgetHook(ResourceForgetHook hook);
