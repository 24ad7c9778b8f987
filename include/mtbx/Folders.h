/* The Folder Manager. */
#ifndef MTBX_FOLDERS_H
#define MTBX_FOLDERS_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { kOnSystemDisk = -32768 };
enum {
    kPreferencesFolderType = 0x70726566, /* 'pref' */
    kDontCreateFolder = 0,
    kCreateFolder = 1
};

/* The preferences folder (kOnSystemDisk and 'pref'); unimpErr for any other, dirNFErr when it is not there
   and is not to be made. */
MTBX_API OSErr FindFolder(SInt16 vRefNum, OSType folderType, Boolean createFolder, SInt16 *foundVRefNum,
                          SInt32 *foundDirID);
/* The path of the user's folder for application data, or of a folder below it: each subfolder may be null.
   The buffer must hold 260 bytes. dirNFErr for every failure. */
MTBX_API OSErr FindAndCreatePrefsFolder(char *path, Boolean create, const char *subfolder1, const char *subfolder2,
                                        const char *subfolder3);

#ifdef __cplusplus
}
#endif

#endif
