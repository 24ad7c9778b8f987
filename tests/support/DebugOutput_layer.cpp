// On the layer the control panel hands debug output over.
#include "DebugOutput.h"

#include <win32/control.h>

static std::vector<std::string> collected;

DebugOutput::DebugOutput()
{
    collected.clear();
    Win32Control_ReceiveDebugOutput([](LPCSTR text, void *) { collected.emplace_back(text); }, nullptr);
}

DebugOutput::~DebugOutput()
{
    Win32Control_ReceiveDebugOutput(nullptr, nullptr);
}

const std::vector<std::string> &DebugOutput::texts() const
{
    return collected;
}
