// What other managers need of the File Manager, and what its files share.
#pragma once

#include <mtbx/Files.h>

// The reference of the volume that holds a path, entering the volume if need be. 0 when memory is too
// short for that.
SInt16 MTBX_VolumeRefFromPath(const char *path);

// The path of a directory as a Pascal string; empty for an unknown ID.
void MTBX_DirPathFromID(SInt32 dirID, StringPtr path);

// The last component of a path.
void MTBX_LeafName(const char *path, char *leaf);
void MTBX_LeafNamePascal(ConstStr255Param path, StringPtr leaf);

// The type for the extension of a name or path, 0 for one that is not known.
OSType MTBX_FileTypeFromName(ConstStr255Param name);

OSErr MTBX_FSpOpenForRead(const FSSpec *spec, SInt8 permission, SInt16 *refNum);

// How the path of a resource file is found, told by the Resource Manager, which stands above this one. The
// function fills a buffer of 260 bytes, with an empty path for a number that has none.
void MTBX_SetResFilePathSource(void (*pathOf)(SInt16 refNum, char *path));

// Both tables are empty afterwards; references and IDs of before mean nothing.
void MTBX_DisposeDirectoryTable();
void MTBX_DisposeVolumeTable();

namespace files {

constexpr size_t pathSize = MAX_PATH;
constexpr SInt32 unknownParent = 2;

// The path of a directory as a C string, null for an unknown ID. Valid until a directory is entered.
const char *directoryPath(SInt32 dirID);

// The place of the last backslash that is a character of its own; null when there is none.
const char *lastSeparator(const char *path);

// A name as a C string in a buffer of 256 bytes.
void copyName(ConstStr255Param name, char *buffer);

// A C string as a Pascal string, cut at 255 bytes.
void copyPascal(const char *text, StringPtr result);

// Appends what fits into a buffer of the size.
void appendBounded(char *buffer, size_t size, const char *text);

// The path of a name in a directory, by the rules of a spec. dirNFErr for an unknown directory.
OSErr buildPath(SInt32 dirID, ConstStr255Param name, char *path);

// The same as MTBX_FileTypeFromName for a path, which may be longer than a Pascal string.
OSType typeOfPath(const char *path);

// The path of the open file with the number; null when there is none.
const char *openFilePath(SInt16 refNum);

} // namespace files
