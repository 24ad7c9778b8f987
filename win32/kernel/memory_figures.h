// The kernel's figures for the memory of the machine and of this process.
#pragma once

#include <cstdint>

namespace win32 {

struct MemoryFigures {
    uint64_t totalPhysical;
    uint64_t availablePhysical;
    uint64_t totalCommit; // physical memory and swap
    uint64_t availableCommit;
};

// Limits of the process's control groups count where they are lower than what is fitted.
MemoryFigures memoryFigures();

struct ProcessFigures {
    uint64_t resident;
    uint64_t peakResident;
    uint64_t privateBytes; // anonymous memory, in memory and swapped out
    uint64_t pageFaults;
};

// False when the kernel does not tell.
bool processFigures(ProcessFigures &figures);

// The address space of a process: user addresses end below 2^47.
constexpr uint64_t addressSpace = (uint64_t{1} << 47) - 0x20000;
uint64_t addressSpaceUsed();

} // namespace win32
