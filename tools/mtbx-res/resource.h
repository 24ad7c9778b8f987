// A resource as the tool holds it between reading and writing.
#pragma once

#include <mtbx/MacTypes.h>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace tool {

using Bytes = std::vector<std::byte>;

struct Resource {
    std::string type;     // as modules name it, in bytes; empty for a number
    WORD typeNumber = 0;  // of a type that is a number
    std::string textName; // of a module's resource whose name is text; else empty
    SInt16 id = 0;
    WORD language = 0;
    bool isFoundFirst = true; // of those that differ in language only

    // The Resource Manager hands out resources whose type is text, whose name is a number and whose contents
    // are a payload. Of others data holds the whole contents.
    bool isToolbox = false;
    UInt16 flags = 0; // of the payload
    std::string name;
    Bytes data; // as a handle would hold it
};

// Takes the contents of a module's resource apart.
void setContents(Resource &resource, std::span<const std::byte> contents);
// The contents as a module stores them.
Bytes contentsOf(const Resource &resource);

// For people: the type, with "#" before a number; then the number or text that names the resource.
std::string shownType(const Resource &resource);
std::string shownName(const Resource &resource);
// The bytes of a text, with what does not print as a backslash and two hexadecimal digits.
std::string printable(const std::string &text);

// A type that a user gave: up to four characters are those of a resource type, so blanks at the end and the
// underscore before a digit may be given or left out; "#" and a number is a numbered type.
Resource resourceOfType(const std::string &given);
// The same for two resources that a module or a text file cannot tell apart, since neither looks at case.
std::string lookupKey(const Resource &resource);

} // namespace tool
