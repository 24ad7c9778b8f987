// Compiled resource files: reading stays inside the file, and what the index holds is found.
#include "kernel/resource_directory.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace win32;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<std::byte> file(reinterpret_cast<const std::byte *>(data),
                                reinterpret_cast<const std::byte *>(data) + size);
    ResourceDirectory directory;
    directory.add(file);
    unsigned sum = 0;
    for (size_t place = 0; const Resource *resource = directory.at(place); ++place) {
        int found = directory.find(resource->type, resource->name, resource->language);
        if (found < 0 || directory.at(static_cast<size_t>(found))->language != resource->language)
            abort();
        for (std::byte byte : resource->data)
            sum += static_cast<unsigned>(byte);
    }
    directory.find(ResourceName::fromArgument("#6"), ResourceName::fromArgument("NAME"),
                   ResourceDirectory::anyLanguage);
    // The sum is used, so that the bytes are really read.
    return sum == 0x7fffffff ? -1 : 0;
}
