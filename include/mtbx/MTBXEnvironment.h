/* Settings, user-visible strings, the system's version, and calls of the library's frame. */
#ifndef MTBX_MTBXENVIRONMENT_H
#define MTBX_MTBXENVIRONMENT_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Names the settings file, a private profile file with the section "Zephant"; at most 259 bytes of
   the path are kept. To be called first. */
MTBX_API void MTBX_SetZPPrefsFile(const char *path);
/* The library's own copy of that path, empty before it is set. */
MTBX_API const char *MTBX_GetZPPrefsFile(void);
/* Writes a setting. 0, or the result code of the failure. */
MTBX_API OSErr MTBX_SetProfileInt(const char *key, SInt32 value);
/* A setting that the file is to hold: when it is missing or empty, the default is written and
   returned. */
MTBX_API SInt32 MTBX_GetRequiredProfileInt(const char *key, SInt32 defaultValue);

enum {
    kMTBXUnknownOS = -1,
    kMTBXWindows95 = 0,
    kMTBXWindows98 = 1,
    kMTBXWindowsMe = 2,
    kMTBXWindowsNT3 = 3,
    kMTBXWindowsNT4 = 4,
    kMTBXWindows2000 = 5,
    kMTBXWindowsXP = 6,
    kMTBXWindowsVista = 7
};

/* The system, by one of the numbers above. */
MTBX_API SInt32 MTBX_GetOSVersion(void);
/* Whether the system is at the level or later. Windows XP and its successors are at every level up
   to 6; below it the 9x and the NT line are separate. Level 7 and higher give false. */
MTBX_API Boolean MTBX_IsAtLeastOSVersion(SInt32 level);

enum { kMTBXStringCount = 25 };

/* Replaces a user-visible string, index 0 to 24, by a translated one. The library keeps the pointer
   only, so the text must live on. paramErr for another index. */
MTBX_API OSErr MTBX_SetStringConstant(SInt16 index, const char *text);
/* Keeps the strings as they are now, for MTBX_StringDeath to put back. paramErr when that was done
   before in this process. */
MTBX_API OSErr MTBX_StringBirth(void);
/* Puts the kept strings back. paramErr when there are none. */
MTBX_API OSErr MTBX_StringDeath(void);
/* A string resource of hResInst, as a C string of at most bufferSize bytes with its terminator. When
   there is none, defaultText is copied whole: the buffer must have room for it. */
MTBX_API void MTBX_LoadWinString(UInt32 id, char *buffer, SInt16 bufferSize, const char *defaultText);

/* Called by every function that is not implemented; they do nothing. */
MTBX_API void StubError(const char *fileName, const char *functionName);
MTBX_API void PartialStubError(const char *fileName, const char *functionName, const char *message);
MTBX_API void vSetStubBracket(void);
MTBX_API void vDeleteStubErrors(void);

/* Assertions never break: the first does nothing, the second gives false. */
MTBX_API void MTBX_SetAssertFailureBreaking(Boolean breaking);
MTBX_API Boolean MTBX_GetAssertFailureBreaking(void);

#ifdef __cplusplus
}
#endif

#endif
