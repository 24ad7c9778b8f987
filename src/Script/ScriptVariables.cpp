// Variables of the Script Manager and of scripts.
#include <mtbx/Script.h>

SInt32 GetScriptVariable(SInt16, SInt16)
{
    return 0;
}
