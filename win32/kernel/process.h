// Handles that stand for the process itself.
#pragma once

#include <windows.h>

namespace win32 {

inline bool isCurrentProcess(HANDLE handle)
{
    return handle == reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1));
}

} // namespace win32
