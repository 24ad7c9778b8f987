#include "resource.h"

#include "Resources/Payload.h"
#include "Resources/TypeName.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tool {
namespace {

void append(Bytes &bytes, const void *data, size_t size)
{
    auto begin = static_cast<const std::byte *>(data);
    bytes.insert(bytes.end(), begin, begin + size);
}

void appendWord(Bytes &bytes, UInt16 word)
{
    const unsigned char both[] = {static_cast<unsigned char>(word), static_cast<unsigned char>(word >> 8)};
    append(bytes, both, sizeof both);
}

std::span<const char> charactersOf(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

bool isMenuBar(const Resource &resource)
{
    return resource.type == resources::TypeName(resources::menuBarType).text();
}

} // namespace

void setContents(Resource &resource, std::span<const std::byte> contents)
{
    bool canBeToolbox = !resource.type.empty() && resource.textName.empty();
    resources::Payload payload;
    resource.isToolbox = canBeToolbox && resources::readPayload(charactersOf(contents), payload);
    resource.data.clear();
    if (!resource.isToolbox) {
        append(resource.data, contents.data(), contents.size());
        return;
    }
    resource.flags = std::to_integer<UInt16>(contents[0]);
    resource.flags |= static_cast<UInt16>(std::to_integer<UInt16>(contents[1]) << 8);
    resource.name = payload.name;
    if (isMenuBar(resource))
        appendWord(resource.data, static_cast<UInt16>(resources::menuBarCount(payload.data)));
    append(resource.data, payload.data.data(), payload.data.size());
}

Bytes contentsOf(const Resource &resource)
{
    if (!resource.isToolbox)
        return resource.data;
    Bytes contents;
    UInt16 flags = resource.flags;
    if (!resource.name.empty())
        flags |= resources::payloadIsNamed;
    appendWord(contents, flags);
    if (flags & resources::payloadIsNamed)
        append(contents, resource.name.c_str(), resource.name.size() + 1);
    size_t count = isMenuBar(resource) ? sizeof(SInt16) : 0;
    count = std::min(count, resource.data.size());
    append(contents, resource.data.data() + count, resource.data.size() - count);
    return contents;
}

std::string printable(const std::string &text)
{
    std::string shown;
    for (char character : text) {
        auto byte = static_cast<unsigned char>(character);
        char escaped[4];
        snprintf(escaped, sizeof escaped, "\\%02x", byte);
        shown += byte >= ' ' && byte < 0x7f ? std::string(1, character) : escaped;
    }
    return shown;
}

std::string shownType(const Resource &resource)
{
    return resource.type.empty() ? '#' + std::to_string(resource.typeNumber) : printable(resource.type);
}

std::string shownName(const Resource &resource)
{
    return resource.textName.empty() ? std::to_string(resource.id) : printable(resource.textName);
}

Resource resourceOfType(const std::string &given)
{
    Resource resource;
    char *end = nullptr;
    if (given.size() > 1 && given[0] == '#') {
        unsigned long number = strtoul(given.c_str() + 1, &end, 10);
        if (*end == 0 && number <= 0xffff) {
            resource.typeNumber = static_cast<WORD>(number);
            return resource;
        }
    }
    resource.type = given;
    if (given.size() <= 4) {
        ResType type = 0;
        for (size_t place = 0; place < 4; ++place)
            type = type << 8 | static_cast<unsigned char>(place < given.size() ? given[place] : ' ');
        resource.type = resources::TypeName(type).text();
    }
    return resource;
}

std::string lookupKey(const Resource &resource)
{
    std::string key = shownType(resource) + '\n' + shownName(resource);
    for (char &character : key)
        character = character >= 'a' && character <= 'z' ? static_cast<char>(character - ('a' - 'A')) : character;
    return key;
}

} // namespace tool
