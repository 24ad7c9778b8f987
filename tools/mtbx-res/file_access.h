// Whole files, read and written. Paths are full Win32 paths.
#pragma once

#include "diagnostics.h"
#include "resource.h"

#include <functional>
#include <string>

namespace tool {

// The full path of what a user names on the command line, "" when it names nothing. Told by the platform's own
// part of the tool.
std::string pathOfArgument(const std::string &argument);

bool fileExists(const std::string &path);
bool readFile(const std::string &path, Bytes &content, Diagnostics &diagnostics);

// The content is written to a file beside the path, looked at by the check, and put in the place of the old
// file only then, so that a failure leaves the old one whole.
using FileCheck = std::function<bool(const std::string &writtenPath)>;
bool writeFile(const std::string &path, std::span<const std::byte> content, const FileCheck &check,
               Diagnostics &diagnostics);

// The extension in lower case, with its dot.
std::string extensionOf(const std::string &path);

} // namespace tool
