// Accessors of what were low-memory globals.
#include "Resources/Resources_internal.h"

#include <mtbx/LowMem.h>
#include <mtbx/MTBXEnvironment.h>

namespace {

SInt32 currentDirectoryStore;
SInt16 saveDisk;

void reportStub(const char *name)
{
    StubError("LowMem", name);
}

} // namespace

WindowPtr LMGetWindowList()
{
    return gFrontWindow;
}

SInt16 LMGetCurApRefNum()
{
    static SInt16 applicationFile = 0;
    if (applicationFile == 0)
        applicationFile = MTBX_HostResourceFile();
    return applicationFile;
}

void LMSetCurDirStore(SInt32 value)
{
    currentDirectoryStore = value;
}

void LMSetSFSaveDisk(SInt16 value)
{
    saveDisk = value;
}

SInt16 LMGetSysFontFam()
{
    return 0;
}

SInt16 LMGetSysFontSize()
{
    return 0;
}

void LMSetSysFontFam(SInt16)
{
}

void LMSetSysFontSize(SInt16)
{
}

Ptr LMGetCurrentA5()
{
    return nullptr;
}

void LMSetCurrentA5(Ptr)
{
}

SInt32 LMGetDefltStack()
{
    reportStub("LMGetDefltStack");
    return 0;
}

UInt8 LMGetHiliteMode()
{
    reportStub("LMGetHiliteMode");
    return 0;
}

void LMSetHiliteMode(UInt8)
{
    reportStub("LMSetHiliteMode");
}

void LMSetCurActivate(WindowPtr)
{
    reportStub("LMSetCurActivate");
}

void LMSetCurDeactive(WindowPtr)
{
    reportStub("LMSetCurDeactive");
}

void LMSetLastSPExtra(SInt32)
{
    reportStub("LMSetLastSPExtra");
}
