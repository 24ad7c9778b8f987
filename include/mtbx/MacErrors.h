/* Result codes that the library uses. */
#ifndef MTBX_MACERRORS_H
#define MTBX_MACERRORS_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
    unimpErr = -4,            /* the call is not implemented */
    dskFulErr = -34,          /* disk full */
    nsvErr = -35,             /* no such volume */
    ioErr = -36,              /* input/output error */
    eofErr = -39,             /* end of file, or a transfer shorter than asked */
    mFulErr = -41,            /* no free slot */
    tmfoErr = -42,            /* too many open files */
    fnfErr = -43,             /* file not found */
    wPrErr = -44,             /* volume is write-protected */
    fBsyErr = -47,            /* file is busy */
    dupFNErr = -48,           /* a file of this name exists */
    paramErr = -50,           /* bad parameter */
    rfNumErr = -51,           /* bad file or resource file number */
    permErr = -54,            /* not permitted */
    memFullErr = -108,        /* out of memory */
    nilHandleErr = -109,      /* null handle */
    memAdrErr = -110,         /* bad address */
    memWZErr = -111,          /* null handle or pointer given to a lock or free call */
    dirNFErr = -120,          /* directory not found */
    pixmapTooDeepErr = -148,  /* a pixel map where only one bit per pixel will do */
    stackOverflowErr = -149,  /* stack overflow */
    badResFormat = -185,      /* a resource's data cannot be read */
    resNotFound = -192,       /* resource not found */
    addResFailed = -194,      /* a resource could not be added or written */
    rmvResFailed = -196,      /* a resource could not be removed */
    errAENoSuchAttribute = -1701, /* Apple Event without this attribute */
    rgnTooBigErr = -501,      /* GDI refused a region */
    envNotPresent = -5500,
    envBadVers = -5501,       /* a negative version of SysEnvirons */
    envVersTooBig = -5502,    /* a version of SysEnvirons that is not known */
    mtbxUnknownErr = -32000   /* a failure for which Win32 gave no error value */
};

/* The result code for a Win32 error value. Only its low 16 bits count; 0 gives mtbxUnknownErr. A
   value that the Toolbox has no code for comes back as it is, as a positive number. */
MTBX_API SInt32 MTBX_ConvertError(UInt32 win32Error);

/* The result code for the calling thread's last Win32 error. */
MTBX_API SInt32 MTBX_GetLastError(void);

#ifdef __cplusplus
}
#endif

#endif
