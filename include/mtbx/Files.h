/* The File Manager: volumes, directories and files on Win32 paths.

   A file is named by a volume reference, a directory ID and a leaf name. References and IDs are handed
   out when a path is first seen, live as long as the process and mean nothing in another run: they must
   never be saved. A name with a backslash in it is a full Win32 path, and the other two are then not
   looked at. Directories need not exist to have an ID. Only the data fork exists; sizes and positions
   are 32 bits wide. */
#ifndef MTBX_FILES_H
#define MTBX_FILES_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
    fsCurPerm = 0,
    fsRdPerm = 1,
    fsWrPerm = 2,
    fsRdWrPerm = 3,
    fsRdWrShPerm = 4
};

enum {
    fsAtMark = 0,
    fsFromStart = 1,
    fsFromLEOF = 2,
    fsFromMark = 3
};

#pragma pack(push, 2)

/* The name may hold a full path. */
typedef struct FSSpec {
    SInt16 vRefNum;
    SInt32 parID;
    Str255 name;
} FSSpec;
typedef FSSpec *FSSpecPtr;

typedef struct FInfo {
    OSType fdType;
    OSType fdCreator;
    UInt16 fdFlags;
    Point fdLocation;
    SInt16 fdFldr;
} FInfo;

typedef struct FXInfo {
    SInt16 fdIconID;
    SInt16 fdReserved[3];
    SInt8 fdScript;
    SInt8 fdXFlags;
    SInt16 fdComment;
    SInt32 fdPutAway;
} FXInfo;

typedef struct DInfo {
    Rect frRect;
    UInt16 frFlags;
    Point frLocation;
    SInt16 frView;
} DInfo;

typedef struct DXInfo {
    Point frScroll;
    SInt32 frOpenChain;
    SInt8 frScript;
    SInt8 frXFlags;
    SInt16 frComment;
    SInt32 frPutAway;
} DXInfo;

union ParamBlockRec;
typedef void (*IOCompletionProcPtr)(union ParamBlockRec *paramBlock);
typedef IOCompletionProcPtr IOCompletionUPP;

/* What all parameter blocks begin with. */
#define MTBX_PARAM_BLOCK_HEADER                                                                                        \
    void *qLink;                                                                                                       \
    SInt16 qType;                                                                                                      \
    SInt16 ioTrap;                                                                                                     \
    Ptr ioCmdAddr;                                                                                                     \
    IOCompletionUPP ioCompletion;                                                                                      \
    OSErr ioResult;                                                                                                    \
    StringPtr ioNamePtr;                                                                                               \
    SInt16 ioVRefNum;

typedef struct IOParam {
    MTBX_PARAM_BLOCK_HEADER
    SInt16 ioRefNum;
    SInt8 ioVersNum;
    SInt8 ioPermssn;
    Ptr ioMisc;
    Ptr ioBuffer;
    SInt32 ioReqCount;
    SInt32 ioActCount;
    SInt16 ioPosMode;
    SInt32 ioPosOffset;
} IOParam;
typedef IOParam HIOParam;

typedef struct FileParam {
    MTBX_PARAM_BLOCK_HEADER
    SInt16 ioFRefNum;
    SInt8 ioFVersNum;
    SInt8 filler1;
    SInt16 ioFDirIndex;
    UInt8 ioFlAttrib;
    UInt8 ioFlVersNum;
    FInfo ioFlFndrInfo;
    UInt32 ioFlNum;
    UInt16 ioFlStBlk;
    SInt32 ioFlLgLen;
    SInt32 ioFlPyLen;
    UInt16 ioFlRStBlk;
    SInt32 ioFlRLgLen;
    SInt32 ioFlRPyLen;
    UInt32 ioFlCrDat;
    UInt32 ioFlMdDat;
} FileParam;

typedef union ParamBlockRec {
    IOParam ioParam;
    FileParam fileParam;
} ParamBlockRec;
typedef ParamBlockRec *ParmBlkPtr;

typedef struct HFileParam {
    MTBX_PARAM_BLOCK_HEADER
    SInt16 ioFRefNum;
    SInt8 ioFVersNum;
    SInt8 filler1;
    SInt16 ioFDirIndex;
    SInt8 ioFlAttrib;
    SInt8 ioFlVersNum;
    FInfo ioFlFndrInfo;
    SInt32 ioDirID;
    UInt16 ioFlStBlk;
    SInt32 ioFlLgLen;
    SInt32 ioFlPyLen;
    UInt16 ioFlRStBlk;
    SInt32 ioFlRLgLen;
    SInt32 ioFlRPyLen;
    UInt32 ioFlCrDat;
    UInt32 ioFlMdDat;
} HFileParam;

typedef struct HVolumeParam {
    MTBX_PARAM_BLOCK_HEADER
    SInt32 filler2;
    SInt16 ioVolIndex;
    UInt32 ioVCrDate;
    UInt32 ioVLsMod;
    SInt16 ioVAtrb;
    UInt16 ioVNmFls;
    SInt16 ioVBitMap;
    SInt16 ioAllocPtr;
    UInt16 ioVNmAlBlks;
    UInt32 ioVAlBlkSiz;
    UInt32 ioVClpSiz;
    SInt16 ioAlBlSt;
    UInt32 ioVNxtCNID;
    UInt16 ioVFrBlk;
    UInt16 ioVSigWord;
    SInt16 ioVDrvInfo;
    SInt16 ioVDRefNum;
    SInt16 ioVFSID;
    UInt32 ioVBkUp;
    SInt16 ioVSeqNum;
    UInt32 ioVWrCnt;
    UInt32 ioVFilCnt;
    UInt32 ioVDirCnt;
    SInt32 ioVFndrInfo[8];
} HVolumeParam;

typedef union HParamBlockRec {
    HIOParam ioParam;
    HFileParam fileParam;
    HVolumeParam volumeParam;
} HParamBlockRec;
typedef HParamBlockRec *HParmBlkPtr;

typedef struct HFileInfo {
    MTBX_PARAM_BLOCK_HEADER
    SInt16 ioFRefNum;
    SInt8 ioFVersNum;
    SInt8 filler1;
    SInt16 ioFDirIndex;
    SInt8 ioFlAttrib;
    SInt8 ioACUser;
    FInfo ioFlFndrInfo;
    SInt32 ioDirID;
    UInt16 ioFlStBlk;
    SInt32 ioFlLgLen;
    SInt32 ioFlPyLen;
    UInt16 ioFlRStBlk;
    SInt32 ioFlRLgLen;
    SInt32 ioFlRPyLen;
    UInt32 ioFlCrDat;
    UInt32 ioFlMdDat;
    UInt32 ioFlBkDat;
    FXInfo ioFlXFndrInfo;
    SInt32 ioFlParID;
    SInt32 ioFlClpSiz;
} HFileInfo;

typedef struct DirInfo {
    MTBX_PARAM_BLOCK_HEADER
    SInt16 ioFRefNum;
    SInt8 ioFVersNum;
    SInt8 filler1;
    SInt16 ioFDirIndex;
    SInt8 ioFlAttrib;
    SInt8 ioACUser;
    DInfo ioDrUsrWds;
    SInt32 ioDrDirID;
    UInt16 ioDrNmFls;
    SInt16 filler3[9];
    UInt32 ioDrCrDat;
    UInt32 ioDrMdDat;
    UInt32 ioDrBkDat;
    DXInfo ioDrFndrInfo;
    SInt32 ioDrParID;
} DirInfo;

typedef union CInfoPBRec {
    HFileInfo hFileInfo;
    DirInfo dirInfo;
} CInfoPBRec;
typedef CInfoPBRec *CInfoPBPtr;

typedef struct FCBPBRec {
    MTBX_PARAM_BLOCK_HEADER
    SInt16 ioRefNum;
    SInt16 filler;
    SInt16 ioFCBIndx;
    SInt16 filler1;
    SInt32 ioFCBFlNm;
    SInt16 ioFCBFlags;
    UInt16 ioFCBStBlk;
    SInt32 ioFCBEOF;
    SInt32 ioFCBPLen;
    SInt32 ioFCBCrPs;
    SInt16 ioFCBVRefNum;
    SInt32 ioFCBClpSiz;
    SInt32 ioFCBParID;
} FCBPBRec;
typedef FCBPBRec *FCBPBPtr;

typedef struct CSParam *CSParamPtr;

#pragma pack(pop)

MTBX_ASSERT(sizeof(FSSpec) == 262 && offsetof(FSSpec, parID) == 2 && offsetof(FSSpec, name) == 6);
MTBX_ASSERT(sizeof(FInfo) == 16 && sizeof(FXInfo) == 16 && sizeof(DInfo) == 16 && sizeof(DXInfo) == 16);
MTBX_ASSERT_OFFSET_32(IOParam, ioCompletion, 12);
MTBX_ASSERT_OFFSET_32(IOParam, ioResult, 16);
MTBX_ASSERT_OFFSET_32(IOParam, ioNamePtr, 18);
MTBX_ASSERT_OFFSET_32(IOParam, ioVRefNum, 22);
MTBX_ASSERT_OFFSET_32(IOParam, ioRefNum, 24);
MTBX_ASSERT_OFFSET_32(IOParam, ioBuffer, 32);
MTBX_ASSERT_OFFSET_32(IOParam, ioReqCount, 36);
MTBX_ASSERT_OFFSET_32(IOParam, ioActCount, 40);
MTBX_ASSERT_SIZE_32(IOParam, 50);
MTBX_ASSERT_SIZE_32(FileParam, 80);
MTBX_ASSERT_SIZE_32(HFileParam, 80);
MTBX_ASSERT_OFFSET_32(HFileParam, ioFlFndrInfo, 32);
MTBX_ASSERT_OFFSET_32(HFileParam, ioDirID, 48);
MTBX_ASSERT_OFFSET_32(HFileParam, ioFlLgLen, 54);
MTBX_ASSERT_OFFSET_32(HFileParam, ioFlRLgLen, 64);
MTBX_ASSERT_OFFSET_32(HFileParam, ioFlCrDat, 72);
MTBX_ASSERT_SIZE_32(HVolumeParam, 122);
MTBX_ASSERT_OFFSET_32(HVolumeParam, ioVolIndex, 28);
MTBX_ASSERT_OFFSET_32(HVolumeParam, ioVAtrb, 38);
MTBX_ASSERT_OFFSET_32(HVolumeParam, ioVNmAlBlks, 46);
MTBX_ASSERT_OFFSET_32(HVolumeParam, ioVAlBlkSiz, 48);
MTBX_ASSERT_OFFSET_32(HVolumeParam, ioVFrBlk, 62);
MTBX_ASSERT_OFFSET_32(HVolumeParam, ioVFSID, 70);
MTBX_ASSERT_SIZE_32(HFileInfo, 108);
MTBX_ASSERT_OFFSET_32(HFileInfo, ioFDirIndex, 28);
MTBX_ASSERT_OFFSET_32(HFileInfo, ioFlAttrib, 30);
MTBX_ASSERT_OFFSET_32(HFileInfo, ioDirID, 48);
MTBX_ASSERT_OFFSET_32(HFileInfo, ioFlParID, 100);
MTBX_ASSERT_SIZE_32(DirInfo, 104);
MTBX_ASSERT_OFFSET_32(DirInfo, ioDrDirID, 48);
MTBX_ASSERT_OFFSET_32(DirInfo, ioDrNmFls, 52);
MTBX_ASSERT_OFFSET_32(DirInfo, ioDrCrDat, 72);
MTBX_ASSERT_OFFSET_32(DirInfo, ioDrParID, 100);
MTBX_ASSERT_SIZE_32(FCBPBRec, 62);
MTBX_ASSERT_OFFSET_32(FCBPBRec, ioFCBVRefNum, 52);
MTBX_ASSERT_OFFSET_32(FCBPBRec, ioFCBParID, 58);

/* Directories and paths */

/* The directory ID of a Win32 path, with or without a backslash at its end; letters are matched without
   regard to case. IDs count from 3 in the order in which paths are first seen. A null or empty path gives
   the first ID, or 0 while there is none; 0 is also the answer when memory is too short to enter the
   path. */
MTBX_API SInt32 GetDirectoryID(const char *path);
/* The ID of the directory that holds the path, 2 when the path names none. */
MTBX_API SInt32 GetParentDirectoryID(const char *path);
/* Makes an FSSpec; the file need not exist. With an empty or null name it names the directory itself.
   Always 0. */
MTBX_API OSErr FSMakeFSSpec(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, FSSpec *spec);
/* The Win32 path of an FSSpec as a C string, cut without a report when it does not fit. A name that is a
   full path is copied whole, whatever the size. dirNFErr for an unknown parID. */
MTBX_API OSErr MTBX_FSSpecToCPathName(const FSSpec *spec, char *buffer, SInt16 bufferSize);
/* The same as a Pascal string, empty for an unknown parID. */
MTBX_API void FSSpecToPathName(const FSSpec *spec, StringPtr buffer, SInt16 bufferSize);
/* fnfErr for a path without a backslash. */
MTBX_API OSErr PathNameToFSSpec(const char *path, FSSpec *spec);

/* A working directory is another name of a directory: nothing is opened. Unknown references leave the
   results as they were. Always 0. */
MTBX_API OSErr OpenWD(SInt16 vRefNum, SInt32 dirID, SInt32 procID, SInt16 *wdRefNum);
MTBX_API OSErr GetWDInfo(SInt16 wdRefNum, SInt16 *vRefNum, SInt32 *dirID, SInt32 *procID);
/* The default volume: that of the current directory when this was first asked. The name may be null.
   Always 0. */
MTBX_API OSErr GetVol(StringPtr name, SInt16 *vRefNum);
/* Does nothing, gives 0. */
MTBX_API OSErr FlushVol(ConstStr255Param name, SInt16 vRefNum);

/* Open files. Reference numbers are 1 to 64; tmfoErr when all are in use, rfNumErr for an unknown one. */

/* Opens an existing file for reading and writing, or for reading only when it allows no more. The name is
   a full path. An overlapped file is not buffered either: its transfers must be aligned to sectors. */
MTBX_API OSErr MTBX_FSOpen(ConstStr255Param path, SInt16 vRefNum, Boolean overlapped, SInt16 *refNum);
/* Opens an existing file with one of the permissions above. */
MTBX_API OSErr MTBX_HOpen(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, SInt8 permission, Boolean overlapped,
                          SInt16 *refNum);
MTBX_API OSErr HOpen(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, SInt8 permission, SInt16 *refNum);
/* Makes an empty file; dupFNErr when there is one. Creator and type are not kept. */
MTBX_API OSErr HCreate(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, OSType creator, OSType fileType);
/* A file must not be closed while an asynchronous write is under way. */
MTBX_API OSErr FSClose(SInt16 refNum);
/* The native handle, owned by the library; null for an unknown number. */
MTBX_API HANDLE MTBX_GetFileHandle(SInt16 refNum);

/* Moves the position. With fsAtMark the offset does not count. An unknown number gives the converted last
   error. */
MTBX_API OSErr SetFPos(SInt16 refNum, SInt16 mode, SInt32 offset);
MTBX_API OSErr GetFPos(SInt16 refNum, SInt32 *position);
/* Sets the length; the position is there afterwards. Failures are not reported. */
MTBX_API OSErr SetEOF(SInt16 refNum, SInt32 length);
/* Move *count bytes at the position; *count becomes what was moved. Reading less than asked gives eofErr,
   writing less is no error. Both block, on an overlapped file too. */
MTBX_API OSErr FSRead(SInt16 refNum, SInt32 *count, void *buffer);
MTBX_API OSErr FSWrite(SInt16 refNum, SInt32 *count, const void *buffer);
/* Writes ioReqCount bytes of ioBuffer at the position of ioRefNum. Below 32 MB the write goes on by
   itself, and ioCompletion is called in an alertable wait of this thread; the file must have been opened
   overlapped. From 32 MB on it is done in pieces before the call returns, and ioCompletion is called
   when all went well; ioReqCount then holds the size of the last piece. */
MTBX_API OSErr PBWriteAsync(ParmBlkPtr paramBlock);

/* A completion routine is a plain function pointer. */
MTBX_API IOCompletionUPP NewIOCompletionUPP(IOCompletionProcPtr procedure);
MTBX_API void DisposeIOCompletionUPP(IOCompletionUPP procedure);
MTBX_API void InvokeIOCompletionUPP(ParmBlkPtr paramBlock, IOCompletionUPP procedure);

/* The catalog */

MTBX_API OSErr HRename(SInt16 vRefNum, SInt32 dirID, ConstStr255Param oldName, ConstStr255Param newName);
/* ioDirID receives the ID of the new directory. */
MTBX_API OSErr PBDirCreateSync(HParmBlkPtr paramBlock);
/* Deletes a file or an empty directory; 0 for one that is not there. */
MTBX_API OSErr PBHDeleteSync(HParmBlkPtr paramBlock);
/* Name, volume and parent of an open file or resource file. */
MTBX_API OSErr PBGetFCBInfoSync(FCBPBPtr paramBlock);
/* Type and length of a file by name. */
MTBX_API OSErr PBHGetFInfoSync(HParmBlkPtr paramBlock);
/* Name, kind, length and times of an entry: by name (ioFDirIndex 0), as the directory ioDirID itself (below
   0), or as the n-th entry of that directory, counted from 1. Walking a directory by ascending index costs
   one step for each entry as long as the calls follow each other within two seconds. */
MTBX_API OSErr PBGetCatInfoSync(CInfoPBPtr paramBlock);
/* A volume: the n-th drive (ioVolIndex above 0), the one named (below 0), or ioVRefNum (0), for which the
   sizes are told too. */
MTBX_API OSErr PBHGetVInfoSync(HParmBlkPtr paramBlock);
/* Ends the search behind PBGetCatInfoSync, which holds its directory open. */
MTBX_API OSErr MTBX_ClearIndexedFileNameCache(void);

/* The type goes by the extension of the name. FSpGetFInfo tells programs as 'APPL' and leaves the rest of
   the record then. */
MTBX_API OSErr GetFInfo(ConstStr255Param name, SInt16 vRefNum, FInfo *info);
MTBX_API OSErr FSpGetFInfo(const FSSpec *spec, FInfo *info);

/* Do nothing, give 0. */
MTBX_API OSErr HGetFInfo(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, FInfo *info);
MTBX_API OSErr SetFInfo(ConstStr255Param name, SInt16 vRefNum, const FInfo *info);
/* Not implemented: unimpErr. */
MTBX_API OSErr HSetFInfo(SInt16 vRefNum, SInt32 dirID, ConstStr255Param name, const FInfo *info);
MTBX_API OSErr FSpExchangeFiles(const FSSpec *source, const FSSpec *destination);
MTBX_API OSErr PBCatSearchSync(CSParamPtr paramBlock);

/* The extension of a path's leaf name in lower case, with its dot; empty when there is none. The buffer
   must hold 260 bytes. */
MTBX_API void MTBX_GetExtensionFromFilename(const char *path, char *extension);
/* A path beside the host's program; the buffer must hold 260 bytes. */
MTBX_API void MTBX_BuildAppRelativePath(const char *relativePath, char *path);

#ifdef __cplusplus
}
#endif

#endif
