// Collects what the process writes to the debug output while the object lives.
#pragma once

#include <string>
#include <vector>

class DebugOutput {
public:
    DebugOutput();
    ~DebugOutput();
    DebugOutput(const DebugOutput &) = delete;
    DebugOutput &operator=(const DebugOutput &) = delete;

    const std::vector<std::string> &texts() const;
};
