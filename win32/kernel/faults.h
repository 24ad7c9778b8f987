// The points at which the control panel can refuse an allocation or fail a call.
#pragma once

#include "control.h"

#include <atomic>

namespace win32::faults {

// True while the panel watches anything at all: one load is all that normal operation pays.
// Exported for the allocation wrappers that are linked into other modules.
extern "C" __attribute__((visibility("default"))) std::atomic<bool> Win32Faults_watching;
extern "C" __attribute__((visibility("default"))) bool Win32Faults_refusesWatched(int kind, size_t size);

inline bool refuses(Win32Allocation kind, size_t size)
{
    return Win32Faults_watching.load(std::memory_order_relaxed) && Win32Faults_refusesWatched(kind, size);
}

bool failsWatched(const char *function);

// Sets the last error when the panel makes this call fail.
inline bool fails(const char *function)
{
    return Win32Faults_watching.load(std::memory_order_relaxed) && failsWatched(function);
}

} // namespace win32::faults
