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

// In the first byte of the flag word: a name follows.
constexpr unsigned char payloadIsNamed = 2;

// False for bytes that are shorter than the flag word or whose name has no end.
bool readPayload(std::span<const char> bytes, Payload &payload);

// The payload of a menu bar holds the IDs of its menus and an end; the resource has their count in front.
constexpr ResType menuBarType = 0x4D424152; // 'MBAR'
SInt16 menuBarCount(std::span<const char> payloadData);

} // namespace resources
