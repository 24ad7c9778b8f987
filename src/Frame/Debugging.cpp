// Debug output and the reports of functions that are not implemented.
#include <mtbx/MTBXEnvironment.h>

#include <cstring>

void DebugStr(ConstStr255Param text)
{
    char line[256];
    size_t length = text ? text[0] : 0;
    if (length > 0)
        memcpy(line, text + 1, length);
    line[length] = 0;
    OutputDebugStringA(line);
    OutputDebugStringA("\n");
}

void Debugger()
{
    DebugBreak();
}

void StubError(const char *, const char *)
{
}

void PartialStubError(const char *, const char *, const char *)
{
}

void vSetStubBracket()
{
}

void vDeleteStubErrors()
{
}

void MTBX_SetAssertFailureBreaking(Boolean)
{
}

Boolean MTBX_GetAssertFailureBreaking()
{
    return false;
}
