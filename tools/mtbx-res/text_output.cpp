// Text files, and the choice between the kinds of files that the tool writes.
//
// Setting keys one by one through the system would write the whole file anew for each, so the content is made
// here; before it counts, it is read back through the system's calls and compared.
#include "file_access.h"
#include "resource_output.h"
#include "resource_source.h"

#include "kernel/profile_struct.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

namespace tool {
namespace {

constexpr size_t longestName = 63;

std::span<const std::byte> bytesOf(const std::string &text)
{
    return std::as_bytes(std::span(text));
}

// The system takes blanks and a pair of quotes off a value, so a value with these gets quotes around it.
std::string valueOf(const std::string &name)
{
    auto isEdge = [](char character) {
        return character == ' ' || character == '\t' || character == '"' || character == '\'';
    };
    return isEdge(name.front()) || isEdge(name.back()) ? '"' + name + '"' : name;
}

std::string keysOf(const Resource &resource)
{
    std::string id = std::to_string(resource.id);
    std::string data = win32::profileStruct(reinterpret_cast<const BYTE *>(resource.data.data()),
                                            static_cast<UINT>(resource.data.size()));
    std::string text = id + "_Size=" + std::to_string(resource.data.size()) + "\r\n" + id + '=' + data + "\r\n";
    if (!resource.name.empty())
        text += "Name_" + resource.name + '=' + id + "\r\n" + id + "_Name=" + valueOf(resource.name) + "\r\n";
    return text;
}

std::string title(const Resource &resource)
{
    return shownType(resource) + " " + shownName(resource) + ": ";
}

// Null for a resource that a text file can hold.
const char *whyNotText(const Resource &resource)
{
    if (resource.type.empty() || !resource.textName.empty())
        return "in a text file the type is text and the name a number";
    if (!resource.isToolbox)
        return "the contents are not those of a resource";
    if (!resource.isFoundFirst)
        return "a text file holds one language only, and there is one that goes before";
    if (resource.data.empty())
        return "a text file cannot hold a resource without data";
    if (resource.type.find_first_of("[]\r\n") != std::string::npos)
        return "the type cannot be the name of a section";
    return nullptr;
}

// The resources that a text file can hold; names that it cannot hold are dropped.
std::vector<Resource> forText(const std::string &path, const std::vector<Resource> &resources, Diagnostics &diagnostics)
{
    std::vector<Resource> kept;
    for (const Resource &resource : resources) {
        if (const char *reason = whyNotText(resource)) {
            diagnostics.leftOut(path, title(resource) + reason + "; it is left out");
            continue;
        }
        kept.push_back(resource);
        std::string &name = kept.back().name;
        if (name.find_first_of("\r\n=") != std::string::npos || name.size() > longestName) {
            diagnostics.leftOut(path, title(resource) + "the name cannot stand in a text file and is left out");
            name.clear();
        }
    }
    return kept;
}

// The resources that the system does not read from a file as they were to be written.
std::vector<Resource> notReadBack(const std::string &path, const std::vector<Resource> &expected)
{
    std::ostringstream untold;
    Diagnostics diagnostics(untold);
    std::vector<Resource> read, missing;
    readTextSections(path, read, diagnostics);
    std::map<std::string, const Resource *> found;
    for (const Resource &resource : read)
        found.emplace(lookupKey(resource), &resource);
    for (const Resource &resource : expected) {
        auto other = found.find(lookupKey(resource));
        if (other == found.end() || other->second->name != resource.name || other->second->data != resource.data)
            missing.push_back(resource);
    }
    return missing;
}

// What is not read back is left out, and the rest is tried again.
bool writeTextFile(const std::string &path, std::vector<Resource> resources, Diagnostics &diagnostics)
{
    for (;;) {
        std::vector<Resource> missing;
        auto check = [&](const std::string &written) {
            missing = notReadBack(written, resources);
            return missing.empty();
        };
        if (writeFile(path, bytesOf(textContent(resources)), check, diagnostics))
            return true;
        if (missing.empty())
            return false;
        for (const Resource &resource : missing) {
            diagnostics.leftOut(path, title(resource) + "it would not be read back as it is; it is left out");
            std::erase_if(resources, [&](const Resource &other) { return lookupKey(other) == lookupKey(resource); });
        }
    }
}

bool writeText(const std::string &path, const std::vector<Resource> &resources, Diagnostics &diagnostics)
{
    std::map<std::string, std::vector<Resource>> files;
    // A second file of before does not belong to the new first one.
    for (const std::string &file : writtenFiles(path)) {
        if (file == path || fileExists(file))
            files[file];
    }
    for (const Resource &resource : resources)
        files[textFileOf(path, resource.type)].push_back(resource);
    return std::all_of(files.begin(), files.end(),
                       [&](const auto &file) { return writeTextFile(file.first, file.second, diagnostics); });
}

// Of resources that cannot be told apart only the first can be found.
std::vector<Resource> withoutDoubles(const std::string &path, const std::vector<Resource> &resources,
                                     bool languagesDiffer, Diagnostics &diagnostics)
{
    std::vector<Resource> kept;
    std::set<std::string> seen;
    for (const Resource &resource : resources) {
        std::string language = languagesDiffer ? '\n' + std::to_string(resource.language) : "";
        if (seen.insert(lookupKey(resource) + language).second)
            kept.push_back(resource);
        else
            diagnostics.leftOut(path,
                                title(resource) + "there is another of this type and number; this one is left out");
    }
    return kept;
}

} // namespace

std::string textContent(const std::vector<Resource> &resources)
{
    std::vector<std::string> order;
    std::map<std::string, std::string> sections;
    for (const Resource &resource : resources) {
        auto [section, isNew] = sections.try_emplace(resource.type);
        if (isNew)
            order.push_back(resource.type);
        section->second += keysOf(resource);
    }
    std::string text;
    for (const std::string &type : order)
        text += '[' + type + "]\r\n" + sections[type];
    return text;
}

bool canWrite(const std::string &path)
{
    std::string extension = extensionOf(path);
    return isTextPath(path) || extension == ".res" || extension == ".rc";
}

std::vector<std::string> writtenFiles(const std::string &path)
{
    std::vector<std::string> files = {path};
    std::string sister = sisterFileOf(path);
    if (sister != path)
        files.push_back(sister);
    return files;
}

bool writeResources(const std::string &path, const std::vector<Resource> &resources, Diagnostics &diagnostics)
{
    if (isTextPath(path))
        return writeText(path, withoutDoubles(path, forText(path, resources, diagnostics), false, diagnostics),
                         diagnostics);
    std::vector<Resource> single = withoutDoubles(path, resources, true, diagnostics);
    if (extensionOf(path) == ".rc")
        return writeFile(path, bytesOf(scriptContent(single)), {}, diagnostics);
    return writeFile(path, compiledContent(single), {}, diagnostics);
}

} // namespace tool
