// The preferences folder.
#include "Files/Files_internal.h"

#include <mtbx/Folders.h>
#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MacErrors.h>

#include <shlobj.h>

#include <cstring>

namespace {

bool baseFolder(char *path)
{
    return SHGetFolderPathA(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK;
}

// Puts a subfolder behind a path, with one backslash between them. False when the path would be too long:
// a folder whose name is cut is another one.
bool join(char *path, const char *subfolder)
{
    const char *end = path + strlen(path);
    if (*CharPrevExA(CP_ACP, path, end, 0) != '\\')
        files::appendBounded(path, files::pathSize, "\\");
    if (*subfolder == '\\')
        subfolder = CharNextExA(CP_ACP, subfolder, 0);
    if (strlen(path) + strlen(subfolder) >= files::pathSize)
        return false;
    files::appendBounded(path, files::pathSize, subfolder);
    return true;
}

enum class Found { Nothing, Folder, File };

Found lookFor(const char *path)
{
    WIN32_FIND_DATAA data;
    HANDLE search = FindFirstFileA(path, &data);
    if (search == INVALID_HANDLE_VALUE)
        return Found::Nothing;
    FindClose(search);
    return data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? Found::Folder : Found::File;
}

bool ensure(const char *path)
{
    SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), nullptr, FALSE};
    return lookFor(path) != Found::Nothing || CreateDirectoryA(path, &attributes);
}

} // namespace

OSErr FindAndCreatePrefsFolder(char *path, Boolean create, const char *subfolder1, const char *subfolder2,
                               const char *subfolder3)
{
    const char *const subfolders[] = {subfolder1, subfolder2, subfolder3};
    if (!baseFolder(path))
        return dirNFErr;
    for (const char *subfolder : subfolders) {
        if (subfolder && !join(path, subfolder))
            return dirNFErr;
    }
    Found found = lookFor(path);
    if (found != Found::Nothing)
        return found == Found::Folder ? OSErr{noErr} : OSErr{dirNFErr};
    if (!create || !baseFolder(path) || !ensure(path))
        return dirNFErr;
    for (const char *subfolder : subfolders) {
        if (subfolder && !(join(path, subfolder) && ensure(path)))
            return dirNFErr;
    }
    return noErr;
}

OSErr FindFolder(SInt16 vRefNum, OSType folderType, Boolean createFolder, SInt16 *foundVRefNum, SInt32 *foundDirID)
{
    if (vRefNum != kOnSystemDisk || folderType != kPreferencesFolderType) {
        PartialStubError("Folders", "FindFolder", "Not processing all folder types.");
        return unimpErr;
    }
    char path[files::pathSize];
    if (OSErr error = FindAndCreatePrefsFolder(path, createFolder, nullptr, nullptr, nullptr))
        return error;
    *foundDirID = GetDirectoryID(path);
    *foundVRefNum = MTBX_VolumeRefFromPath(path);
    return noErr;
}
