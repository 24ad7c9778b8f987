// Menus from resources, in both of their forms. Everything in a template is checked against its end.
#include "kernel/code_pages.h"
#include "kernel/kernel_internal.h"
#include "menu.h"

#include <cstring>
#include <optional>

namespace win32::user {
namespace {

constexpr WORD oldVersion = 0, extendedVersion = 1, lastOfMenu = 0x80;

class TemplateReader {
public:
    TemplateReader(const char *bytes, size_t size) : bytes_(bytes), size_(size) {}

    template <class Number> std::optional<Number> number()
    {
        if (size_ - at_ < sizeof(Number))
            return std::nullopt;
        Number value;
        memcpy(&value, bytes_ + at_, sizeof value);
        at_ += sizeof value;
        return value;
    }

    std::optional<std::string> text()
    {
        std::u16string text;
        while (std::optional<char16_t> unit = number<char16_t>()) {
            if (*unit == 0)
                return ansiFromUtf16(text);
            text += *unit;
        }
        return std::nullopt;
    }

    bool skip(size_t count)
    {
        if (size_ - at_ < count)
            return false;
        at_ += count;
        return true;
    }
    bool align() { return skip((4 - at_ % 4) % 4); }

private:
    const char *bytes_;
    size_t size_;
    size_t at_ = 0;
};

struct TemplateItem {
    MenuItem item;
    bool isPopup = false;
    bool isLast = false;
};

std::optional<TemplateItem> readOld(TemplateReader &reader)
{
    constexpr UINT typeBits = MF_MENUBARBREAK | MF_MENUBREAK | MF_OWNERDRAW | MF_RIGHTJUSTIFY;
    constexpr UINT stateBits = MF_GRAYED | MF_DISABLED | MF_CHECKED;
    std::optional<WORD> flags = reader.number<WORD>();
    if (!flags)
        return std::nullopt;
    TemplateItem read;
    read.isPopup = (*flags & MF_POPUP) != 0;
    read.isLast = (*flags & lastOfMenu) != 0;
    read.item.type = *flags & typeBits;
    read.item.state = *flags & stateBits;
    if (!read.isPopup) {
        std::optional<WORD> id = reader.number<WORD>();
        if (!id)
            return std::nullopt;
        read.item.id = *id;
    }
    std::optional<std::string> text = reader.text();
    if (!text)
        return std::nullopt;
    if (text->empty() && !read.isPopup && !(read.item.type & MF_OWNERDRAW))
        read.item.type |= MFT_SEPARATOR;
    read.item.text = std::move(*text);
    return read;
}

std::optional<TemplateItem> readExtended(TemplateReader &reader)
{
    constexpr UINT typeBits = MFT_MENUBARBREAK | MFT_MENUBREAK | MFT_OWNERDRAW | MFT_RADIOCHECK | MFT_SEPARATOR
                              | MFT_RIGHTORDER | MFT_RIGHTJUSTIFY;
    constexpr UINT stateBits = MFS_GRAYED | MFS_CHECKED | MFS_DEFAULT;
    constexpr WORD popupBit = 1;
    std::optional<DWORD> type = reader.number<DWORD>(), state = reader.number<DWORD>(), id = reader.number<DWORD>();
    std::optional<WORD> kind = reader.number<WORD>();
    std::optional<std::string> text = kind ? reader.text() : std::nullopt;
    if (!text || !reader.align())
        return std::nullopt;
    TemplateItem read;
    read.isPopup = (*kind & popupBit) != 0;
    read.isLast = (*kind & lastOfMenu) != 0;
    read.item.type = *type & typeBits;
    read.item.state = *state & stateBits;
    read.item.id = *id;
    if (text->empty() && !read.isPopup && !(read.item.type & MFT_OWNERDRAW))
        read.item.type |= MFT_SEPARATOR;
    read.item.text = std::move(*text);
    constexpr size_t helpIdSize = 4;
    if (read.isPopup && !reader.skip(helpIdSize))
        return std::nullopt;
    return read;
}

class TemplateMenu {
public:
    TemplateMenu(TemplateReader reader, bool isExtended) : reader_(reader), isExtended_(isExtended) {}

    // Null for a broken template, and then nothing is left of it. Throws bad_alloc.
    HMENU make() { return makeMenu(false, 0); }

private:
    HMENU makeMenu(bool isPopup, int depth)
    {
        constexpr int mostDepth = 64;
        auto menu = std::make_unique<Menu>(isPopup);
        bool isWhole = false;
        try {
            isWhole = depth < mostDepth && fill(*menu, depth);
        } catch (...) {
            endSubMenus(*menu);
            throw;
        }
        if (!isWhole) {
            endSubMenus(*menu);
            return nullptr;
        }
        if (!enterObject(menu.get())) {
            endSubMenus(*menu);
            return nullptr;
        }
        return menu.release()->hmenu();
    }

    bool fill(Menu &menu, int depth)
    {
        for (;;) {
            std::optional<TemplateItem> read = isExtended_ ? readExtended(reader_) : readOld(reader_);
            if (!read)
                return false;
            menu.items.push_back(std::move(read->item));
            if (read->isPopup) {
                HMENU subMenu = makeMenu(true, depth + 1);
                if (!subMenu)
                    return false;
                menu.items.back().subMenu = subMenu;
            }
            if (read->isLast)
                return true;
        }
    }

    static void endSubMenus(const Menu &menu)
    {
        for (const MenuItem &item : menu.items)
            destroyMenuTree(item.subMenu);
    }

    TemplateReader reader_;
    bool isExtended_;
};

HMENU menuFrom(const char *bytes, size_t size)
{
    TemplateReader reader(bytes, size);
    std::optional<WORD> version = reader.number<WORD>(), offset = reader.number<WORD>();
    bool isKnown = version && offset && (*version == oldVersion || *version == extendedVersion) && reader.skip(*offset);
    UserLock lock;
    HMENU menu = isKnown ? TemplateMenu(reader, *version == extendedVersion).make() : nullptr;
    return menu || !isKnown ? menu : fail(ERROR_INVALID_DATA, menu);
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
