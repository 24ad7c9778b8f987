// Menus made of resources.
#include "kernel/code_pages.h"
#include "kernel/kernel_internal.h"
#include "menu.h"
#include "menu_template.h"

namespace win32::user {
namespace {

// The menu under the hands of the builder, with all its submenus: gone unless it is released.
class BuiltMenu {
public:
    explicit BuiltMenu(HMENU menu) : menu_(menu) {}
    ~BuiltMenu() { destroyMenuTree(menu_); }
    BuiltMenu(const BuiltMenu &) = delete;
    BuiltMenu &operator=(const BuiltMenu &) = delete;

    HMENU get() const { return menu_; }
    HMENU release() { return std::exchange(menu_, nullptr); }

private:
    HMENU menu_;
};

struct OpenMenu {
    HMENU menu;
    bool isLast; // of the menu that it is in
};

MenuItem itemFrom(const TemplateItem &read)
{
    MenuItem item;
    item.type = read.type;
    item.state = read.state;
    item.id = read.id;
    item.text = ansiFromUtf16(read.text);
    return item;
}

HMENU build(const std::vector<TemplateItem> &items)
{
    BuiltMenu root(enterMenu(std::make_unique<Menu>(false)));
    std::vector<OpenMenu> open{{root.get(), true}};
    for (const TemplateItem &read : items) {
        Menu *menu = findMenuQuietly(open.back().menu);
        if (!menu)
            return nullptr;
        menu->items.push_back(itemFrom(read));
        if (read.isPopup) {
            HMENU popup = enterMenu(std::make_unique<Menu>(true));
            menu->items.back().subMenu = popup;
            open.push_back({popup, read.isLast});
            continue;
        }
        for (bool isLast = read.isLast; isLast && open.size() > 1; open.pop_back())
            isLast = open.back().isLast;
    }
    return root.release();
}

HMENU menuFrom(const char *bytes, size_t size)
{
    std::vector<TemplateItem> items;
    if (!readMenuTemplate(bytes, size, items))
        return fail(ERROR_INVALID_DATA, HMENU{});
    UserLock lock;
    return build(items);
}

} // namespace
} // namespace win32::user

using namespace win32;
using namespace win32::user;

HMENU LoadMenuA(HINSTANCE module, LPCSTR name)
{
    return guarded(HMENU{}, [&]() -> HMENU {
        HRSRC resource = FindResourceA(module, name, RT_MENU);
        HGLOBAL loaded = resource ? LoadResource(module, resource) : nullptr;
        auto bytes = static_cast<const char *>(loaded ? LockResource(loaded) : nullptr);
        return bytes ? menuFrom(bytes, SizeofResource(module, resource)) : nullptr;
    });
}

HMENU LoadMenuIndirectA(const MENUTEMPLATEA *menuTemplate)
{
    if (!menuTemplate)
        return fail(ERROR_INVALID_PARAMETER, HMENU{});
    // Its end is where it says.
    return guarded(HMENU{}, [&] { return menuFrom(static_cast<const char *>(menuTemplate), SIZE_MAX); });
}
