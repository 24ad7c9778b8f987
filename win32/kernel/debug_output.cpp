// OutputDebugStringA and DebugBreak.
#include "control_state.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

void OutputDebugStringA(LPCSTR text)
{
    if (!text)
        text = "";
    win32::control::showDebugOutput(text);
    static const bool toStandardError = getenv("WIN32_DEBUG_OUTPUT") != nullptr;
    if (toStandardError)
        fputs(text, stderr);
}

void DebugBreak()
{
    raise(SIGTRAP);
}
