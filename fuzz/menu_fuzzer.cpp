// Menu templates from anywhere: nothing is read behind them, and what is read is a whole tree of menus.
#include "user/menu_template.h"

#include <cstdint>
#include <cstdlib>

using namespace win32::user;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<TemplateItem> items;
    if (!readMenuTemplate(reinterpret_cast<const char *>(data), size, items))
        return 0;
    // A menu is open for the root and for each pop-up until its last item, and all close with the last of all.
    std::vector<bool> open{true};
    for (const TemplateItem &item : items) {
        if (open.empty())
            abort();
        if (item.isPopup) {
            open.push_back(item.isLast);
            continue;
        }
        for (bool isLast = item.isLast; isLast && !open.empty(); open.pop_back())
            isLast = open.back();
    }
    if (!open.empty())
        abort();
    return 0;
}
