// The table of open files, shared by opening, moving bytes and asking about files.
#pragma once

#include "Files_internal.h"

#include <array>

namespace files {

struct FileSlot;

// The one write that an overlapped file can have under way. The native record comes first, so that the
// completion finds the rest.
struct Transfer {
    OVERLAPPED overlapped;
    bool inUse;
    UInt32 size;
    FileSlot *file;
    ParmBlkPtr paramBlock;
};

struct FileSlot {
    HANDLE file; // null: the slot is free
    SInt16 refNum;
    char path[pathSize];
    bool isOverlapped;
    Transfer transfer;
};

// Null for a number that no open file has.
FileSlot *findOpenFile(SInt16 refNum);

// Where the file stands, at full width; false when the system does not tell.
bool nativePosition(const FileSlot &file, UInt64 &position);

OSErr convertedLastError();

} // namespace files
