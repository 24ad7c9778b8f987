// The resources of a Windows module, read from the bytes of its file.
#pragma once

#include "resource_directory.h"

#include <cstdint>
#include <optional>

namespace win32 {

// Adds the resources of a PE file to the directory. False when the bytes are no PE file; a resource tree
// that is damaged gives what of it is whole. damage, which may be null, receives the place of the first field
// in the file that is wrong.
bool addPeResources(std::span<const std::byte> file, ResourceDirectory &directory,
                    std::optional<uint64_t> *damage = nullptr);

// Whether the bytes begin as a compiled resource file does.
bool isResFile(std::span<const std::byte> file);

} // namespace win32
