// Windows modules: reading stays inside the file, ends soon, and what the index holds is found.
#include "kernel/pe_image.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace win32;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<std::byte> file(reinterpret_cast<const std::byte *>(data),
                                reinterpret_cast<const std::byte *>(data) + size);
    ResourceDirectory directory;
    if (!addPeResources(file, directory))
        return 0;
    if (directory.all().size() > size / 8)
        abort();
    unsigned sum = 0;
    for (const Resource &resource : directory.all()) {
        int found = directory.find(resource.type, resource.name, resource.language);
        if (found < 0 || directory.at(static_cast<size_t>(found))->language != resource.language)
            abort();
        if (!resource.data.empty())
            sum += static_cast<unsigned>(resource.data.front()) + static_cast<unsigned>(resource.data.back());
    }
    // The sum is used, so that the bytes are really read.
    return sum == 0x7fffffff ? -1 : 0;
}
