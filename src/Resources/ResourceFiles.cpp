// The chain of open resource files: ten places, numbered from 1000.
#include "Resources_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacErrors.h>

#include <cstring>
#include <iterator>

namespace {

constexpr SInt16 firstRefNum = 1000;

struct ResourceFile {
    HMODULE module;
    char path[MAX_PATH];
    SInt16 refNum; // 0: free
};

ResourceFile files[10];
SInt16 currentFile;
OSErr resError;

HMODULE noModule()
{
    return reinterpret_cast<HMODULE>(static_cast<INT_PTR>(-1));
}

bool isRefNum(SInt16 refNum)
{
    return refNum >= firstRefNum && refNum < firstRefNum + static_cast<SInt16>(std::size(files));
}

void clearFiles()
{
    for (ResourceFile &file : files)
        file = {noModule(), "", 0};
}

} // namespace

SInt16 InitResources()
{
    resError = noErr;
    clearFiles();
    files[0].module = hResInst;
    files[0].refNum = firstRefNum;
    GetModuleFileNameA(hResInst, files[0].path, sizeof files[0].path);
    currentFile = firstRefNum;
    return 0;
}

void MTBX_ShutdownResources()
{
    clearFiles();
}

OSErr ResError()
{
    return resError;
}

SInt16 CurResFile()
{
    resError = noErr;
    return currentFile;
}

void UseResFile(SInt16 refNum)
{
    resError = isRefNum(refNum) ? OSErr{noErr} : OSErr{rfNumErr};
    if (resError == noErr)
        currentFile = refNum;
}

HMODULE GetResFileInst(SInt16 refNum)
{
    return isRefNum(refNum) ? files[refNum - firstRefNum].module : nullptr;
}

void MTBX_ResFilePath(SInt16 refNum, char *path)
{
    const char *found = isRefNum(refNum) ? files[refNum - firstRefNum].path : "";
    memcpy(path, found, strlen(found) + 1);
}

SInt16 MTBX_HostResourceFile()
{
    for (const ResourceFile &file : files) {
        if (file.refNum != 0 && file.module == hResInst)
            return file.refNum;
    }
    return 0;
}
