// Reads the resources of a file of any kind that the tool knows.
#pragma once

#include "diagnostics.h"
#include "resource.h"

#include <string>
#include <vector>

namespace tool {

enum class FileKind { Module, Compiled, Text, Fork };

struct ResourceFile {
    FileKind kind = FileKind::Module;
    std::vector<Resource> resources;
};

// A name that ends in ".txt" or ".ini" is a text file's, as for the Resource Manager; others are told by their
// content. False when the file cannot be read at all; what of it is damaged is left out.
bool readResources(const std::string &path, ResourceFile &file, Diagnostics &diagnostics);

// The resources of a text file, with those of the second file that belongs to some names.
bool readTextFile(const std::string &path, std::vector<Resource> &resources, Diagnostics &diagnostics);
// Those of one file only, without the second.
void readTextSections(const std::string &path, std::vector<Resource> &resources, Diagnostics &diagnostics);

enum class Forms { AsPublished, OfThisSystem };
bool readForkFile(const std::string &path, Forms forms, std::vector<Resource> &resources, Diagnostics &diagnostics);

// The file that holds a section's resources for a text file: some types live in the sister file of a ".txt" file.
std::string textFileOf(const std::string &path, const std::string &section);
// The sister file, the same path for a file that has none.
std::string sisterFileOf(const std::string &path);

bool isTextPath(const std::string &path);

} // namespace tool
