// The smallest host: starts the library and prints the greeting among its resources, if it has any.
#include <mtbx/MTBX.h>

#include <stdio.h>

int main()
{
    hExeInst = hResInst = GetModuleHandleA(nullptr);
    MTBX_InitializeMemorySubsystem();
    InitResources();
    Handle greeting = GetResource('GREE', 128);
    printf("%.5s\n", greeting ? *greeting + 1 : "(non)");
    MTBX_ShutdownResources();
    MTBX_ShutdownMemory();
}
