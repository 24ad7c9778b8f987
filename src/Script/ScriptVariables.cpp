// Variables of scripts.
#include <mtbx/Script.h>

SInt32 GetScriptVariable(SInt16, SInt16)
{
    return 0;
}
