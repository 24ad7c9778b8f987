// The object behind CLSID_ShellLink.
#pragma once

#include <unknwn.h>

namespace win32 {

// A new object with one reference; null without memory.
IUnknown *makeShellLink();

} // namespace win32
