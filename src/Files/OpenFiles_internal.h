// The table of open files, shared by opening, moving bytes and asking about files.
#pragma once

#include "Files_internal.h"

#include <array>

namespace files {

struct OpenFile;

// The one transfer that an overlapped file can have under way. The native record comes first, so that the
// completion finds the rest.
struct Transfer {
    OVERLAPPED overlapped;
    bool inUse;
    UInt32 size;
    OpenFile *file;
    ParmBlkPtr paramBlock; // of an asynchronous one
};

struct OpenFile {
    HANDLE file; // null: the slot is free
    SInt16 refNum;
    char path[pathSize];
    bool isOverlapped;
    Transfer transfer;
};

// Null for a number that no open file has.
OpenFile *findOpenFile(SInt16 refNum);

OSErr convertedLastError();

} // namespace files
