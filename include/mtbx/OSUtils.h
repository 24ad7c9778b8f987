/* Operating System Utilities. */
#ifndef MTBX_OSUTILS_H
#define MTBX_OSUTILS_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma pack(push, 2)

typedef struct SysEnvRec {
    SInt16 environsVersion;
    SInt16 machineType;
    SInt16 systemVersion;
    SInt16 processor;
    Boolean hasFPU;
    Boolean hasColorQD;
    SInt16 keyBoardType;
    SInt16 atDrvrVersNum;
    SInt16 sysVRefNum;
} SysEnvRec;

#pragma pack(pop)

MTBX_ASSERT(sizeof(SysEnvRec) == 16);

/* Describes the system as a Macintosh of system version 7.5 with colour QuickDraw. sysVRefNum is the
   directory of the Windows system folder; atDrvrVersNum is not written. Versions 0 to 2 are known:
   envBadVers below, envVersTooBig above, with the record left alone. */
MTBX_API OSErr SysEnvirons(SInt16 version, SysEnvRec *record);

#ifdef __cplusplus
}
#endif

#endif
