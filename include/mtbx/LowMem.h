/* Accessors of what were low-memory globals. */
#ifndef MTBX_LOWMEM_H
#define MTBX_LOWMEM_H

#include <mtbx/MacWindows.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The head of the window list. */
MTBX_API WindowPtr LMGetWindowList(void);
/* The file number of hResInst's resource file; 0 while the Resource Manager has none. */
MTBX_API SInt16 LMGetCurApRefNum(void);

/* These keep a value that nothing reads. */
MTBX_API void LMSetCurDirStore(SInt32 value);
MTBX_API void LMSetSFSaveDisk(SInt16 value);

/* These always give 0, and their counterparts do nothing. */
MTBX_API SInt16 LMGetSysFontFam(void);
MTBX_API SInt16 LMGetSysFontSize(void);
MTBX_API Ptr LMGetCurrentA5(void);
MTBX_API SInt32 LMGetDefltStack(void);
MTBX_API UInt8 LMGetHiliteMode(void);
MTBX_API void LMSetSysFontFam(SInt16 value);
MTBX_API void LMSetSysFontSize(SInt16 value);
MTBX_API void LMSetCurrentA5(Ptr value);
MTBX_API void LMSetHiliteMode(UInt8 value);
MTBX_API void LMSetCurActivate(WindowPtr value);
MTBX_API void LMSetCurDeactive(WindowPtr value);
MTBX_API void LMSetLastSPExtra(SInt32 value);

#ifdef __cplusplus
}
#endif

#endif
