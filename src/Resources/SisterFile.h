// Some types live beside a ".txt" file, in its sister file: "x_.txt" beside "x.txt".
#pragma once

#include <mtbx/MacTypes.h>

#include <array>

namespace resources {

constexpr std::array<ResType, 5> sisterTypes = {
    0x4F4D7072, // 'OMpr'
    0x4F4D696E, // 'OMin'
    0x4F4D6F70, // 'OMop'
    0x50494E6F, // 'PINo'
    0x52537072, // 'RSpr'
};

bool livesInSisterFile(ResType type);

// Makes the path of a text file that of its sister; false for a file that has none. The buffer must have room for
// one byte more.
bool toSisterFile(char *path);

} // namespace resources
