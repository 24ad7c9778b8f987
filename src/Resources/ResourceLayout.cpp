#include "ResourceLayout.h"

#include <cstring>
#include <mbstring.h>
#include <string.h>

namespace resources {
namespace {

constexpr const char *typesInSisterFile[] = {"OMpr", "OMin", "OMop", "PINo", "RSpr"};

} // namespace

TypeName typeName(ResType type)
{
    TypeName name{};
    char *end = name.text;
    if (char first = static_cast<char>(type >> 24); first >= '0' && first <= '9')
        *end++ = '_';
    for (int shift = 24; shift >= 0; shift -= 8)
        *end++ = static_cast<char>(type >> shift);
    for (int blanks = 0; blanks < 3 && end[-1] == ' '; ++blanks)
        *--end = 0;
    return name;
}

std::optional<Payload> readPayload(std::span<const std::byte> bytes)
{
    if (bytes.size() < payloadFlagsSize)
        return std::nullopt;
    auto flags = static_cast<UInt16>(std::to_integer<UInt16>(bytes[0]) | std::to_integer<UInt16>(bytes[1]) << 8);
    Payload payload{flags, nullptr, bytes.subspan(payloadFlagsSize)};
    if (!(flags & payloadIsNamed))
        return payload;
    auto end = static_cast<const std::byte *>(memchr(payload.data.data(), 0, payload.data.size()));
    if (!end)
        return std::nullopt;
    payload.name = reinterpret_cast<const char *>(payload.data.data());
    payload.data = payload.data.subspan(static_cast<size_t>(end - payload.data.data()) + 1);
    return payload;
}

bool isMenuBar(const char *typeName)
{
    return strcmp(typeName, "MBAR") == 0;
}

SInt16 menuBarCount(size_t moduleDataSize)
{
    constexpr size_t endSize = sizeof(SInt16);
    return static_cast<SInt16>(moduleDataSize < endSize ? 0 : (moduleDataSize - endSize) / sizeof(SInt16));
}

std::string textFileOf(const std::string &path, const char *typeName)
{
    auto bytes = reinterpret_cast<const unsigned char *>(path.c_str());
    auto dot = reinterpret_cast<const char *>(_mbsrchr(bytes, '.'));
    if (!dot || _stricmp(dot, ".txt") != 0)
        return path;
    for (const char *type : typesInSisterFile) {
        if (strcmp(type, typeName) == 0)
            return path.substr(0, static_cast<size_t>(dot - path.c_str())) + "_.txt";
    }
    return path;
}

} // namespace resources
