#include "Payload.h"

#include <cstring>

namespace resources {

bool readPayload(std::span<const char> bytes, Payload &payload)
{
    constexpr size_t flagSize = 2;
    if (bytes.size() < flagSize)
        return false;
    bool isNamed = static_cast<unsigned char>(bytes[0]) & payloadIsNamed;
    bytes = bytes.subspan(flagSize);
    payload = {"", bytes};
    if (!isNamed)
        return true;
    auto end = bytes.empty() ? nullptr : static_cast<const char *>(memchr(bytes.data(), 0, bytes.size()));
    if (!end)
        return false;
    payload = {bytes.data(), bytes.subspan(static_cast<size_t>(end + 1 - bytes.data()))};
    return true;
}

SInt16 menuBarCount(std::span<const char> payloadData)
{
    constexpr size_t wordSize = sizeof(SInt16);
    return static_cast<SInt16>(payloadData.size() < wordSize ? 0 : payloadData.size() / wordSize - 1);
}

} // namespace resources
