// Gestalt, which knows no selector.
#include <mtbx/Gestalt.h>

OSErr Gestalt(OSType, SInt32 *response)
{
    static bool told = false;
    if (!told) {
        told = true;
        OutputDebugStringA("NA Gestalt(), GestaltEqu.c\r\n");
    }
    *response = 0;
    return noErr;
}
