// How resources are named and laid out in modules and in text files. Nothing here depends on open files, so
// the tools use it as the Resource Manager does.
#pragma once

#include <mtbx/MacTypes.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace resources {

// A type as modules and sections of text files name it: "ABCD", without blanks at its end, with "_" before
// a digit at its start.
struct TypeName {
    char text[6];
};
TypeName typeName(ResType type);

// The contents of a resource in a module.
struct Payload {
    UInt16 flags;
    const char *name; // null when there is none
    std::span<const std::byte> data;
};

constexpr size_t payloadFlagsSize = 2;
// In the first byte of the flags: a name stands behind them, with a NUL at its end.
constexpr unsigned char payloadIsNamed = 0x02;

// Nothing when the bytes are no payload: too short, or with a name that does not end.
std::optional<Payload> readPayload(std::span<const std::byte> bytes);

// Of a menu bar a module holds the menus' IDs and a word of 0; the count in front of them is made on
// loading. This is that count for the data that a module holds.
bool isMenuBar(const char *typeName);
SInt16 menuBarCount(size_t moduleDataSize);

// The file that holds the resources of a type for a text file: of some types that of the same name with "_"
// before its extension ".txt".
std::string textFileOf(const std::string &path, const char *typeName);

} // namespace resources
