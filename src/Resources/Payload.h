// The form in which a module stores a resource: a flag word, a name if the flags tell of one, the data.
#pragma once

#include <mtbx/MacTypes.h>

#include <cstddef>
#include <span>

namespace resources {

struct Payload {
    const char *name = ""; // a C string within the bytes; empty when there is none
    std::span<const char> data;
};

// False for bytes that are shorter than the flag word or whose name has no end.
bool readPayload(std::span<const char> bytes, Payload &payload);

} // namespace resources
