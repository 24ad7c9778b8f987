// Start and stop of the managers that have little or nothing to do for it, and the end of memory use,
// which reaches into several managers.
#include "Files/Files_internal.h"
#include "Memory/Memory_internal.h"
#include "Quickdraw/ScanBuffer.h"

#include <mtbx/Dialogs.h>
#include <mtbx/MTBXMemory.h>
#include <mtbx/MacWindows.h>
#include <mtbx/Processes.h>
#include <mtbx/TextEdit.h>

void InitWindows()
{
}

void TEInit()
{
}

void InitDialogs()
{
}

void MTBX_ShutdownDialogs()
{
}

OSErr MTBX_ShutdownMemory()
{
    MTBX_DisposeDirectoryTable();
    MTBX_DisposeVolumeTable();
    MTBX_ReleaseScanBuffer();
    MTBX_ReleaseProcessStatus();
    MEM_DumpLeaks(MTBX_LibraryHeap());
    return noErr;
}

void ExitToShell()
{
    ExitProcess(0);
}
