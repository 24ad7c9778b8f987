// Text files, read through the system's profile calls as the Resource Manager reads them.
#include "file_access.h"
#include "resource_source.h"

#include "Resources/SisterFile.h"
#include "Resources/TypeName.h"

#include <windows.h>

#include <charconv>
#include <optional>
#include <string_view>

namespace tool {
namespace {

// The names of sections, or of the keys in one; a null section asks for the sections.
std::vector<std::string> names(const char *section, const std::string &path)
{
    std::vector<char> buffer;
    DWORD used = 0;
    constexpr size_t firstSize = 1 << 16;
    for (size_t size = firstSize;; size *= 2) {
        buffer.resize(size);
        used = GetPrivateProfileStringA(section, nullptr, "", buffer.data(), static_cast<DWORD>(size), path.c_str());
        if (used < size - 2)
            break;
    }
    std::vector<std::string> found;
    for (DWORD place = 0; place < used; place += static_cast<DWORD>(found.back().size()) + 1)
        found.emplace_back(buffer.data() + place);
    return found;
}

// The ID in a key that tells the size of a resource.
std::optional<SInt16> idOfSizeKey(std::string_view key)
{
    constexpr std::string_view ending = "_Size";
    if (!key.ends_with(ending))
        return std::nullopt;
    key.remove_suffix(ending.size());
    SInt16 id = 0;
    auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), id);
    bool isNumber = error == std::errc() && end == key.data() + key.size() && std::to_string(id) == key;
    return isNumber ? std::optional(id) : std::nullopt;
}

void readResource(const std::string &section, SInt16 id, const std::string &path, std::vector<Resource> &resources,
                  Diagnostics &diagnostics)
{
    constexpr DWORD nameSize = 64; // the Resource Manager reads no more
    constexpr UINT largestData = 1 << 30;
    std::string key = std::to_string(id);
    std::string title = "section [" + printable(section) + "], key " + key + ": ";
    UINT size = GetPrivateProfileIntA(section.c_str(), (key + "_Size").c_str(), 0, path.c_str());
    if (size == 0)
        return; // no resource, as the Resource Manager sees it
    if (size > largestData) {
        diagnostics.leftOut(path, title + "the size is too large; the resource is left out");
        return;
    }
    Resource resource;
    resource.type = section;
    resource.id = id;
    resource.isToolbox = true;
    char name[nameSize];
    GetPrivateProfileStringA(section.c_str(), (key + "_Name").c_str(), "", name, nameSize, path.c_str());
    resource.name = name;
    resource.data.resize(size);
    if (GetPrivateProfileStructA(section.c_str(), key.c_str(), resource.data.data(), size, path.c_str()))
        resources.push_back(std::move(resource));
    else
        diagnostics.leftOut(path, title + "the data does not fit its size or its checksum; the resource is left out");
}

void readSection(const std::string &section, const std::string &path, std::vector<Resource> &resources,
                 Diagnostics &diagnostics)
{
    for (const std::string &key : names(section.c_str(), path)) {
        if (auto id = idOfSizeKey(key))
            readResource(section, *id, path, resources, diagnostics);
    }
}

} // namespace

void readTextSections(const std::string &path, std::vector<Resource> &resources, Diagnostics &diagnostics)
{
    for (const std::string &section : names(nullptr, path))
        readSection(section, path, resources, diagnostics);
}

std::string sisterFileOf(const std::string &path)
{
    std::string sister = path + '\0';
    return resources::toSisterFile(sister.data()) ? sister : path;
}

std::string textFileOf(const std::string &path, const std::string &section)
{
    for (ResType type : resources::sisterTypes) {
        if (section == resources::TypeName(type).text())
            return sisterFileOf(path);
    }
    return path;
}

bool readTextFile(const std::string &path, std::vector<Resource> &resources, Diagnostics &diagnostics)
{
    Bytes content;
    if (!readFile(path, content, diagnostics))
        return false;
    std::vector<std::string> sections = names(nullptr, path);
    if (sections.empty() && !content.empty())
        diagnostics.note(path, "the system finds no section in this file");
    std::string sister;
    for (const std::string &section : sections) {
        std::string holder = textFileOf(path, section);
        if (holder == path)
            readSection(section, path, resources, diagnostics);
        else
            diagnostics.note(path, "section [" + printable(section) + "] is not read here but in " + holder);
    }
    std::string sisterPath = sisterFileOf(path);
    if (sisterPath == path || !fileExists(sisterPath))
        return true;
    for (const std::string &section : names(nullptr, sisterPath)) {
        if (textFileOf(path, section) == sisterPath)
            readSection(section, sisterPath, resources, diagnostics);
    }
    return true;
}

} // namespace tool
