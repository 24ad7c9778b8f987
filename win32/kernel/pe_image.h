// The resources of a Windows module, read from the bytes of its file.
#pragma once

#include "resource_directory.h"

namespace win32 {

// Adds the resources of a PE file to the directory. False when the bytes are no PE file; a resource tree
// that is damaged gives what of it is whole.
bool addPeResources(std::span<const std::byte> file, ResourceDirectory &directory);

// Whether the bytes begin as a compiled resource file does.
bool isResFile(std::span<const std::byte> file);

} // namespace win32
