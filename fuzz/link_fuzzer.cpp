// Link files: reading stays inside the file, and what is written reads back as the same link.
#include "shell/item_list.h"
#include "shell/link_file.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace win32;

static void require(bool condition)
{
    if (!condition)
        abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string_view bytes(reinterpret_cast<const char *>(data), size);
    // Bytes that are no link file may begin with an item list.
    pathOfItemList(leadingItemList(bytes));
    LinkFile link, again;
    if (!readLinkFile(bytes, link))
        return 0;
    std::string written = writeLinkFile(link);
    require(readLinkFile(written, again));
    require(again.texts == link.texts && again.itemList == link.itemList && again.info == link.info);
    require(again.blocks == link.blocks && again.target == link.target);
    require(again.targetWithVariables() == link.targetWithVariables());
    require(writeLinkFile(again) == written);

    // A path that a file gave serves for a new target.
    link.setTarget(again.target, {});
    require(readLinkFile(writeLinkFile(link), again) && again.target == link.target);
    std::string list = itemListOfPath(link.target, {});
    require(list.empty() || leadingItemList(list).size() == list.size());
    return 0;
}
