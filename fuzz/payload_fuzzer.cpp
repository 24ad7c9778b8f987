// Payloads of module resources: the name ends within the bytes, and what follows it is the data.
#include "Resources/Payload.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

static void require(bool condition)
{
    if (!condition)
        abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<char> bytes(data, data + size); // a block of its own, so that reading behind it is noticed
    resources::Payload payload;
    bool isNamed = size >= 2 && (data[0] & 2);
    if (!resources::readPayload(bytes, payload)) {
        require(size < 2 || (isNamed && !memchr(data + 2, 0, size - 2)));
        return 0;
    }
    size_t nameSize = isNamed ? strlen(payload.name) + 1 : 0;
    require(isNamed ? payload.name == bytes.data() + 2 : !*payload.name);
    require(payload.data.size() == size - 2 - nameSize);
    require(payload.data.empty() || payload.data.data() == bytes.data() + 2 + nameSize);
    return 0;
}
