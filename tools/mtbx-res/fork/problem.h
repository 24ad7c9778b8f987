// What is wrong with a file, and where.
#pragma once

#include <cstdint>
#include <string>

namespace forks {

struct Problem {
    uint64_t place; // in the file
    std::string text;
};

} // namespace forks
