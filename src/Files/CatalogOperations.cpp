// Renaming, making and deleting, and what is told of a file by its name.
#include "OpenFiles_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MacErrors.h>

#include <cstdio>
#include <cstring>

namespace {

using namespace files;

constexpr OSType applicationType = 0x4150504C; // 'APPL'
constexpr SInt16 firstResourceFile = 1000;

void (*resFilePath)(SInt16 refNum, char *path);

bool isProgram(const char *path)
{
    DWORD type;
    return GetBinaryTypeA(path, &type);
}

OSErr notImplemented(const char *name)
{
    StubError("Files", name);
    return unimpErr;
}

OSErr deletePath(const char *path)
{
    DWORD attributes = GetFileAttributesA(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return noErr;
    bool deleted = attributes & FILE_ATTRIBUTE_DIRECTORY ? RemoveDirectoryA(path) : DeleteFileA(path);
    return deleted ? OSErr{noErr} : convertedLastError();
}

// The path of a file by its number, of the File or the Resource Manager; empty when there is none.
void pathOfFile(SInt16 refNum, char *path)
{
    path[0] = 0;
    if (refNum >= firstResourceFile && resFilePath)
        resFilePath(refNum, path);
    else if (const char *found = openFilePath(refNum))
        appendBounded(path, pathSize, found);
}

// The name behind the last backslash, found by steps over whole characters.
const char *leafOf(const char *path)
{
    const char *leaf = path;
    for (; *path; ++path) {
        if (*path == '\\')
            leaf = path + 1;
        else if (IsDBCSLeadByte(static_cast<BYTE>(*path)) && path[1])
            ++path;
    }
    return leaf;
}

} // namespace

OSErr HRename(SInt16, SInt32 dirID, ConstStr255Param oldName, ConstStr255Param newName)
{
    char from[pathSize], to[pathSize];
    if (OSErr error = buildPath(dirID, oldName, from))
        return error;
    if (OSErr error = buildPath(dirID, newName, to))
        return error;
    return rename(from, to) == 0 ? OSErr{noErr} : convertedLastError();
}

OSErr PBDirCreateSync(HParmBlkPtr paramBlock)
{
    HFileParam &file = paramBlock->fileParam;
    char path[pathSize];
    file.ioResult = buildPath(file.ioDirID, file.ioNamePtr, path);
    if (file.ioResult != noErr)
        return file.ioResult;
    file.ioResult = CreateDirectoryA(path, nullptr) ? OSErr{noErr} : convertedLastError();
    if (file.ioResult == noErr)
        file.ioDirID = GetDirectoryID(path);
    return file.ioResult;
}

OSErr PBHDeleteSync(HParmBlkPtr paramBlock)
{
    HFileParam &file = paramBlock->fileParam;
    char path[pathSize];
    OSErr error = buildPath(file.ioDirID, file.ioNamePtr, path);
    file.ioResult = error ? error : deletePath(path);
    return file.ioResult;
}

void MTBX_SetResFilePathSource(void (*pathOf)(SInt16 refNum, char *path))
{
    resFilePath = pathOf;
}

OSErr PBGetFCBInfoSync(FCBPBPtr paramBlock)
{
    char path[pathSize];
    pathOfFile(paramBlock->ioRefNum, path);
    if (StringPtr name = paramBlock->ioNamePtr)
        copyPascal(leafOf(path), name);
    if (!path[0])
        return paramBlock->ioResult = fnfErr;
    paramBlock->ioFCBVRefNum = MTBX_VolumeRefFromPath(path);
    paramBlock->ioFCBParID = GetParentDirectoryID(path);
    return paramBlock->ioResult = noErr;
}

OSErr PBHGetFInfoSync(HParmBlkPtr paramBlock)
{
    HFileParam &file = paramBlock->fileParam;
    char path[pathSize];
    StringPtr name = file.ioNamePtr;
    file.ioResult = buildPath(file.ioDirID, name, path);
    if (file.ioResult != noErr)
        return file.ioResult;
    file.ioFlFndrInfo.fdType = isProgram(path) ? applicationType : typeOfPath(path);
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(path, &found);
    if (search == INVALID_HANDLE_VALUE)
        return file.ioResult = convertedLastError();
    FindClose(search);
    file.ioFlLgLen = file.ioFlPyLen = static_cast<SInt32>(found.nFileSizeLow);
    file.ioFlRLgLen = file.ioFlRPyLen = 0;
    file.ioFRefNum = 0;
    file.ioFlCrDat = file.ioFlMdDat = 0;
    return noErr;
}

OSErr GetFInfo(ConstStr255Param name, SInt16, FInfo *info)
{
    info->fdType = MTBX_FileTypeFromName(name);
    info->fdCreator = 0;
    info->fdFlags = 0;
    return noErr;
}

OSErr FSpGetFInfo(const FSSpec *spec, FInfo *info)
{
    char path[pathSize] = "";
    if (MTBX_FSSpecToCPathName(spec, path, sizeof path) == noErr && isProgram(path)) {
        info->fdType = applicationType;
        return noErr;
    }
    *info = {};
    info->fdType = MTBX_FileTypeFromName(spec->name);
    return noErr;
}

OSErr HGetFInfo(SInt16, SInt32, ConstStr255Param, FInfo *)
{
    return noErr;
}

OSErr SetFInfo(ConstStr255Param, SInt16, const FInfo *)
{
    return noErr;
}

OSErr HSetFInfo(SInt16, SInt32, ConstStr255Param, const FInfo *)
{
    return notImplemented("HSetFInfo");
}

OSErr FSpExchangeFiles(const FSSpec *, const FSSpec *)
{
    return notImplemented("FSpExchangeFiles");
}

OSErr PBCatSearchSync(CSParamPtr)
{
    return notImplemented("PBCatSearchSync");
}
