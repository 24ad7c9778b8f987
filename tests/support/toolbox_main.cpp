// Starts the library once for a whole test program, with settings of its own.
#include "TemporaryFile.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    TemporaryFile settings("mtbx-tests");
    hExeInst = hResInst = GetModuleHandleA(nullptr);
    MTBX_SetZPPrefsFile(settings.path());
    MTBX_InitializeMemorySubsystem();
    int result = RUN_ALL_TESTS();
    MTBX_ShutdownMemory();
    return result;
}
