// The chain of open resource files: ten places, numbered from 1000.
#include "ResourceFiles_internal.h"

#include "Files/Files_internal.h"
#include "Files/QuietErrors.h"
#include "ReleasingResources.h"
#include "Resources_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacErrors.h>
#include <mtbx/TextUtils.h>

#include <cstring>

namespace resources {

ResourceFile places[10];
OSErr resError;

namespace {

SInt16 currentFile;
SInt16 applicationFile = firstRefNum;
Boolean loadsModulesAsData;

// Makes a free place one of a file that is about to be opened.
void takePlace(ResourceFile &file, const char *path)
{
    static UInt32 openings;
    file.opening = ++openings;
    file.refNum = static_cast<SInt16>(firstRefNum + (&file - places));
    file.path[0] = 0;
    files::appendBounded(file.path, sizeof file.path, path);
}

void clearPlace(ResourceFile &file)
{
    file.refNum = 0;
    file.path[0] = 0;
    file.isModule = file.isLoadedHere = false;
    file.index.clear();
}

void makeCurrent(SInt16 refNum)
{
    resError = isRefNum(refNum) ? OSErr{noErr} : OSErr{rfNumErr};
    if (resError == noErr)
        currentFile = refNum;
}

bool standsForHost(const ResourceFile &file)
{
    return file.isModule && file.module == hResInst;
}

HMODULE loadModule(const char *path)
{
    QuietErrors quiet;
    HMODULE module = loadsModulesAsData ? LoadLibraryExA(path, nullptr, LOAD_LIBRARY_AS_DATAFILE) : LoadLibraryA(path);
    if (!module)
        resError = static_cast<OSErr>(MTBX_GetLastError());
    return module;
}

bool isTextFileName(const char *path)
{
    char extension[MAX_PATH];
    MTBX_GetExtensionFromFilename(path, extension);
    return strcmp(extension, ".txt") == 0 || strcmp(extension, ".ini") == 0;
}

// The place of the file with the path, or else a free one, or null.
ResourceFile *findPlace(const char *path)
{
    ResourceFile *free = nullptr;
    for (ResourceFile &file : places) {
        if (file.isOpen() && lstrcmpiA(file.path, path) == 0)
            return &file;
        if (!file.isOpen() && !free)
            free = &file;
    }
    return free;
}

SInt16 openFile(const char *path)
{
    resError = noErr;
    ResourceFile *file = findPlace(path);
    if (!file) {
        resError = mFulErr;
        return -1;
    }
    if (file->isOpen())
        return file->refNum;
    takePlace(*file, path);
    if (HMODULE module = loadModule(path)) {
        file->module = module;
        file->isModule = file->isLoadedHere = true;
    } else if (!isTextFileName(path)) {
        clearPlace(*file);
        return -1;
    }
    makeCurrent(file->refNum);
    return file->refNum;
}

// The place is free before its handles go, so that what runs meanwhile finds nothing half closed. The module that
// the host has made its own by hResInst stays loaded.
void closePlace(ResourceFile &file)
{
    ResourceMap map = file.map;
    HMODULE loaded = file.isLoadedHere && !standsForHost(file) ? file.module : nullptr;
    SInt16 refNum = static_cast<SInt16>(firstRefNum + (&file - places));
    file.map = {};
    clearPlace(file);
    disposeResources(map);
    if (loaded)
        FreeLibrary(loaded);
    if (refNum == currentFile)
        makeCurrent(applicationFile);
}

void closeAll()
{
    for (ResourceFile &file : places) {
        if (file.isOpen())
            closePlace(file);
    }
}

} // namespace

ResourceFile *currentPlace()
{
    return placeOf(currentFile);
}

ResourceFile *applicationPlace()
{
    return placeOf(applicationFile);
}

} // namespace resources

using namespace resources;

SInt16 InitResources()
{
    closeAll();
    resError = noErr;
    char path[MAX_PATH] = "";
    GetModuleFileNameA(hResInst, path, sizeof path);
    path[sizeof path - 1] = 0;
    takePlace(places[0], path);
    places[0].module = hResInst;
    places[0].isModule = true;
    currentFile = firstRefNum;
    MTBX_SetResFilePathSource(MTBX_ResFilePath);
    return 0;
}

void MTBX_ShutdownResources()
{
    closeAll();
}

OSErr ResError()
{
    return resError;
}

SInt16 OpenResFile(ConstStr255Param path)
{
    char text[256];
    files::copyName(path, text);
    return openFile(text);
}

SInt16 HOpenResFile(SInt16, SInt32 dirID, ConstStr255Param name, SInt8)
{
    char path[MAX_PATH + 256] = "", leaf[256];
    if (dirID >= 1) {
        const char *folder = files::directoryPath(dirID);
        files::appendBounded(path, sizeof path, folder ? folder : "");
        files::appendBounded(path, sizeof path, "\\");
    }
    files::copyName(name, leaf);
    files::appendBounded(path, sizeof path, leaf);
    return OpenResFile(c2pstr(path));
}

SInt16 FSpOpenResFile(const FSSpec *spec, SInt8 permission)
{
    return HOpenResFile(spec->vRefNum, spec->parID, spec->name, permission);
}

SInt16 HCreateResFile(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name)
{
    return HOpenResFile(vRefNum, dirID, name, fsRdWrPerm);
}

void CloseResFile(SInt16 refNum)
{
    resError = noErr;
    ResourceFile *file = placeOf(refNum);
    if (!file)
        resError = rfNumErr;
    else if (!standsForHost(*file))
        closePlace(*file);
}

void UseResFile(SInt16 refNum)
{
    makeCurrent(refNum);
}

SInt16 CurResFile()
{
    resError = noErr;
    return currentFile;
}

void MTBX_SetAppResFileRefNum(SInt16 refNum)
{
    applicationFile = refNum;
}

HMODULE GetResFileInst(SInt16 refNum)
{
    const auto noModule = reinterpret_cast<HMODULE>(static_cast<INT_PTR>(-1));
    ResourceFile *file = placeOf(refNum);
    if (!file)
        return nullptr;
    return file->isModule ? file->module : noModule;
}

void MTBX_SetLoadLibraryLite(Boolean lite)
{
    loadsModulesAsData = lite;
}

Boolean MTBX_GetLoadLibraryLite()
{
    return loadsModulesAsData;
}

void UpdateResFile(SInt16)
{
    resError = noErr;
}

void MTBX_ResFilePath(SInt16 refNum, char *path)
{
    ResourceFile *file = placeOf(refNum);
    const char *found = file ? file->path : "";
    memcpy(path, found, strlen(found) + 1);
}

SInt16 MTBX_HostResourceFile()
{
    for (const ResourceFile &file : places) {
        if (standsForHost(file))
            return file.refNum;
    }
    return 0;
}
