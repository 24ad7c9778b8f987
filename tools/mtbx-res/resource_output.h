// Writes resources to a file of a kind that this system reads.
#pragma once

#include "diagnostics.h"
#include "resource.h"

#include <string>
#include <vector>

namespace tool {

// The kind goes by the extension: ".txt" and ".ini" are text files, ".res" compiled resources, ".rc" a script for
// a resource compiler. What the kind cannot hold is left out.
bool writeResources(const std::string &path, const std::vector<Resource> &resources, Diagnostics &diagnostics);

bool canWrite(const std::string &path);
// The files that writing to a path may replace.
std::vector<std::string> writtenFiles(const std::string &path);

// The contents of each kind of file.
std::string textContent(const std::vector<Resource> &resources);
Bytes compiledContent(const std::vector<Resource> &resources);
std::string scriptContent(const std::vector<Resource> &resources);

} // namespace tool
