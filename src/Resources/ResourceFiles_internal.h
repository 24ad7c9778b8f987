// The chain of open resource files, as the files of the Resource Manager share it.
#pragma once

#include "ModuleIndex.h"
#include "ResourceMap.h"

#include <mtbx/Resources.h>

#include <iterator>

namespace resources {

struct ResourceFile {
    SInt16 refNum;       // 0: the place is free
    char path[MAX_PATH]; // empty in a free place
    bool isModule;       // otherwise a text file
    bool isLoadedHere;   // the module is to be freed with the file
    HMODULE module;
    UInt32 opening;  // another number each time that a file is opened here
    ResourceMap map; // opened with the first entry
    ModuleIndex index;

    bool isOpen() const { return refNum != 0; }
};

// The name of a resource; the host could not be told more of it.
using NameBuffer = char[256];

constexpr SInt16 firstRefNum = 1000;
extern ResourceFile places[10];

// What ResError gives.
extern OSErr resError;

inline bool isRefNum(SInt16 refNum)
{
    return refNum >= firstRefNum && refNum < firstRefNum + static_cast<SInt16>(std::size(places));
}

// The place of a file number, which may be free; null for a number outside 1000 to 1009.
inline ResourceFile *placeOf(SInt16 refNum)
{
    return isRefNum(refNum) ? &places[refNum - firstRefNum] : nullptr;
}

// The place of the current file; null while there is none.
ResourceFile *currentPlace();

// The place of the application file; null when the host named none.
ResourceFile *applicationPlace();

// A place as it is now. Memory calls may run the host's grow-zone function, which may close the file.
class Opening {
public:
    explicit Opening(const ResourceFile &file) : file_(file), opening_(file.opening) {}
    bool isOver() const { return file_.opening != opening_ || !file_.isOpen(); }

private:
    const ResourceFile &file_;
    UInt32 opening_;
};

} // namespace resources
