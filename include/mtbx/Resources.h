/* The Resource Manager.

   A resource file is a Windows module, the host's own or one opened by its path, whose Win32 resources
   carry the Toolbox's, or a text file with the extension ".txt" or ".ini", which holds them as sections of a
   private profile. There are no resource forks, and only text files can be written. Ten files can be open;
   their numbers run from 1000 to 1009.

   A resource of the type 'ABCD' and the ID n is in a module the Win32 resource of the type "ABCD" with the
   number n. Blanks at the end of a type do not count, and a type that begins with a digit has an underscore
   in front ("_8ABC"). Its bytes are a flag word, then, if bit 1 of the first byte is set, the name with a
   NUL, then the data. In a text file the section is named like the type; the keys are "n" (the data), "n_Size",
   and for a named resource "n_Name" and "Name_<name>". Five types ('OMpr', 'OMin', 'OMop', 'PINo', 'RSpr') lie
   in a file of their own beside a ".txt" file: "x_.txt" beside "x.txt".

   A handle belongs to its file until it is detached: closing the file disposes it. Every call for the same
   resource gives the same handle, and nothing counts them: one ReleaseResource is the end for all.

   Each call sets ResError to 0 before it does anything, unless it is said that ResError stays. */
#ifndef MTBX_RESOURCES_H
#define MTBX_RESOURCES_H

#include <mtbx/Files.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Files */

/* Empties the chain of resource files, closing what was open, enters hResInst as its first file, number
   1000, and makes that the current file. After the memory subsystem and before any other resource call.
   Gives 0. */
MTBX_API SInt16 InitResources(void);
/* Closes all resource files, that of hResInst too. */
MTBX_API void MTBX_ShutdownResources(void);

/* The result of the last call that sets it: 0, resNotFound (-192) for a module that lacks the resource,
   badResFormat (-185) for one whose bytes make no sense there, paramErr (-50), rfNumErr (-51), mFulErr (-41),
   addResFailed (-194), rmvResFailed (-196), a code of MemError, or that of a Win32 error. */
MTBX_API OSErr ResError(void);

/* Opens a file by its path and makes it current. A path that is open already, in any case of its letters, gives
   its number and leaves the current file. What Win32 cannot load as a module is a text file when its name ends
   in ".txt" or ".ini"; such a file need not exist, as the first write makes it. -1 when it cannot be opened:
   mFulErr with ten files open, otherwise the loader's error. */
MTBX_API SInt16 OpenResFile(ConstStr255Param path);
/* The same by directory ID and name; with a dirID below 1 the name is the path. Volume and permission do not
   count. A path is cut at 255 bytes. */
MTBX_API SInt16 HOpenResFile(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, SInt8 permission);
MTBX_API SInt16 FSpOpenResFile(const FSSpec *spec, SInt8 permission);
/* Makes nothing by itself: it opens the file, unlike on a Macintosh. */
MTBX_API SInt16 HCreateResFile(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name);
/* Closes a file and disposes all handles that it gave, also those that the host still holds. The application
   file becomes current if this one was. The file of hResInst stays open. rfNumErr for a number outside 1000 to
   1009. */
MTBX_API void CloseResFile(SInt16 refNum);
/* Makes a file current. Numbers 1000 to 1009 are taken without a look at the file; any other sets rfNumErr. */
MTBX_API void UseResFile(SInt16 refNum);
/* The number of the current resource file. */
MTBX_API SInt16 CurResFile(void);
/* Names the application file, 1000 at first: it becomes current when the current file is closed. ResError
   stays. */
MTBX_API void MTBX_SetAppResFileRefNum(SInt16 refNum);
/* The module of a resource file: all ones for a text file and for a free place, null for a number outside 1000
   to 1009. ResError stays. */
MTBX_API HMODULE GetResFileInst(SInt16 refNum);
/* With the flag set modules are opened as data only, so that their code does not run. ResError stays. */
MTBX_API void MTBX_SetLoadLibraryLite(Boolean lite);
MTBX_API Boolean MTBX_GetLoadLibraryLite(void);
/* Does nothing: WriteResource writes at once. */
MTBX_API void UpdateResFile(SInt16 refNum);

/* Getting resources. A handle is null when there is no such resource. */

/* Looks in the current file, then in the others from 1009 down to 1000. A resource that is in memory leaves
   ResError as the files asked before it set it. */
MTBX_API Handle GetResource(ResType type, SInt16 id);
/* Looks in the current file only. */
MTBX_API Handle Get1Resource(ResType type, SInt16 id);
/* By name, from 1009 down to 1000, or in the current file only. A name of 64 bytes or more sets paramErr. In a
   module the name leads to an ID, and the handle is then that of GetResource: a resource with this type and ID
   in the current file goes before. */
MTBX_API Handle GetNamedResource(ResType type, ConstStr255Param name);
MTBX_API Handle Get1NamedResource(ResType type, ConstStr255Param name);
/* The n-th resource of the type in the current file, counted from 1; text files give none. The handle comes
   through GetResource. */
MTBX_API Handle Get1IndResource(ResType type, SInt16 index);
/* The number of resources of the type in the current file, loaded or not. In a text file those are counted whose
   keys lie within the first 2047 bytes of all keys of the section. */
MTBX_API UInt16 Count1Resources(ResType type);
/* The first ID from 128 on for which Get1Resource gives nothing, and sets ResError as that does. */
MTBX_API SInt16 Unique1ID(ResType type);
/* Reads the data of an emptied handle again, into the same handle. */
MTBX_API void MacLoadResource(Handle h);
/* Does nothing: resources are always loaded. */
MTBX_API void SetResLoad(Boolean load);

/* Text files are searched between these two only, except by Count1Resources; they nest. ResError stays. */
MTBX_API void MTBX_BeginEnableSearchResourcesInTextFiles(void);
MTBX_API void MTBX_EndEnableSearchResourcesInTextFiles(void);

/* Handles of resources */

/* The size of the data in bytes. */
MTBX_API Size GetResourceSize(Handle h);
/* The number of the file that the handle belongs to, -1 for none. ResError stays. */
MTBX_API SInt16 HomeResFile(Handle h);
/* ID, type and name of a resource; each may be null. A handle that is no resource sets resNotFound and gives
   -1, 0 and the empty name. */
MTBX_API void GetResInfo(Handle h, SInt16 *id, ResType *type, StringPtr name);
/* Always 0, and without effect. */
MTBX_API SInt16 GetResAttrs(Handle h);
MTBX_API void SetResAttrs(Handle h, SInt16 attributes);
/* Disposes the handle, with the native objects that its data name; a handle that is no resource too. On a
   Macintosh that is an error. */
MTBX_API void ReleaseResource(Handle h);
/* Takes the handle out of its file; it is the caller's then. */
MTBX_API void DetachResource(Handle h);

/* Writing, in text files only */

/* Gives the handle to the current file under the type, ID and name, and writes it. addResFailed when the type
   and ID or the handle belong to a file already, and when the file is a module: that owns the handle in memory
   nevertheless. A null handle does nothing. */
MTBX_API void AddResource(Handle h, ResType type, SInt16 id, ConstStr255Param name);
/* Does nothing, unlike on a Macintosh: only WriteResource writes. */
MTBX_API void ChangedResource(Handle h);
/* Writes the data as they are now. addResFailed for a handle of no file or of a module. When writing fails
   ResError tells why, and the file is as it was. A handle without data writes a size of 0, which stands for no
   resource. */
MTBX_API void WriteResource(Handle h);
/* Removes the resource from the current file and detaches the handle. rmvResFailed for a handle of another
   file or a module, which is detached only, and for one of no file. */
MTBX_API void RemoveResource(Handle h);

#ifdef __cplusplus
}
#endif

#endif
