// The resources of a resource fork.
#pragma once

#include "byte_view.h"
#include "problem.h"

#include <cstdint>
#include <string>
#include <vector>

namespace forks {

struct ForkResource {
    uint32_t type; // four characters, the first in the highest byte
    int16_t id;
    uint8_t attributes;
    bool isNamed;
    std::string name;
    ByteView data; // in the file's bytes
};

constexpr uint8_t isCompressed = 0x01;

struct ForkContents {
    std::vector<ForkResource> resources; // in the order of the map
    std::vector<Problem> problems;       // because of each something was left out: resources or a name
};

// Four characters; what does not print shows as a backslash and two hexadecimal digits.
std::string textOfType(uint32_t type);

// Reads all of a fork that is whole. An empty fork has no resources.
ForkContents readFork(const ByteView &fork);

} // namespace forks
