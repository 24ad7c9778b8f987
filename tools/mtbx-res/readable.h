// The data of known types for people to read.
#pragma once

#include "resource.h"

#include <string>

namespace tool {

// Lines that tell what the data says, empty for a type that is not known or data that is not of its form.
std::string readable(const Resource &resource);

// Offsets, bytes in hexadecimal, and characters.
std::string hexLines(std::span<const std::byte> data);

} // namespace tool
