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

/* dayOfWeek is 1 for Sunday. */
typedef struct DateTimeRec {
    SInt16 year;
    SInt16 month;
    SInt16 day;
    SInt16 hour;
    SInt16 minute;
    SInt16 second;
    SInt16 dayOfWeek;
} DateTimeRec;

#pragma pack(pop)

MTBX_ASSERT(sizeof(SysEnvRec) == 16);
MTBX_ASSERT(offsetof(SysEnvRec, hasFPU) == 8 && offsetof(SysEnvRec, sysVRefNum) == 14);
MTBX_ASSERT(sizeof(DateTimeRec) == 14);

/* Describes the system as a Macintosh of system version 7.5 with colour QuickDraw. sysVRefNum is the
   directory of the Windows system folder; atDrvrVersNum is not written. Versions 0 to 2 are known:
   envBadVers below, envVersTooBig above, with the record left alone. */
MTBX_API OSErr SysEnvirons(SInt16 version, SysEnvRec *record);

/* Times are seconds since midnight of 1 January 1904 in local time; they run out in 2040. */
MTBX_API void GetDateTime(UInt32 *seconds);
MTBX_API void GetTime(DateTimeRec *date);
MTBX_API void SecondsToDate(UInt32 seconds, DateTimeRec *date);
/* Fields are not tested: a day 31 of a month with 30 just adds up. dayOfWeek is not read. */
MTBX_API void DateToSeconds(const DateTimeRec *date, UInt32 *seconds);

/* There are no traps and no notifications: 0, and nothing happens. */
MTBX_API SInt32 NGetTrapAddress(UInt16 trapNumber, SInt8 trapType);
MTBX_API void NSetTrapAddress(void *address, UInt16 trapNumber, SInt8 trapType);
MTBX_API OSErr NMInstall(void *notification);
/* There is no A5 world: both give 0. */
MTBX_API SInt32 SetA5(SInt32 newA5);
MTBX_API SInt32 SetCurrentA5(void);

#ifdef __cplusplus
}
#endif

#endif
