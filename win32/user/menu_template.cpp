#include "menu_template.h"

#include <cstring>
#include <optional>

namespace win32::user {
namespace {

constexpr WORD oldVersion = 0, extendedVersion = 1, lastOfMenu = 0x80;

// Everything is checked against the end.
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
    bool text(std::u16string &result)
    {
        while (std::optional<char16_t> unit = number<char16_t>()) {
            if (*unit == 0)
                return true;
            result += *unit;
        }
        return false;
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

void noteSeparator(TemplateItem &item)
{
    if (item.text.empty() && !item.isPopup && !(item.type & MFT_OWNERDRAW))
        item.type |= MFT_SEPARATOR;
}

bool readOld(TemplateReader &reader, TemplateItem &item)
{
    constexpr UINT typeBits = MF_MENUBARBREAK | MF_MENUBREAK | MF_OWNERDRAW | MF_RIGHTJUSTIFY;
    constexpr UINT stateBits = MF_GRAYED | MF_DISABLED | MF_CHECKED;
    std::optional<WORD> flags = reader.number<WORD>();
    if (!flags)
        return false;
    item.isPopup = (*flags & MF_POPUP) != 0;
    item.isLast = (*flags & lastOfMenu) != 0;
    item.type = *flags & typeBits;
    item.state = *flags & stateBits;
    if (!item.isPopup) {
        std::optional<WORD> id = reader.number<WORD>();
        if (!id)
            return false;
        item.id = *id;
    }
    if (!reader.text(item.text))
        return false;
    noteSeparator(item);
    return true;
}

bool readExtended(TemplateReader &reader, TemplateItem &item)
{
    constexpr UINT typeBits = MFT_MENUBARBREAK | MFT_MENUBREAK | MFT_OWNERDRAW | MFT_RADIOCHECK | MFT_SEPARATOR
                              | MFT_RIGHTORDER | MFT_RIGHTJUSTIFY;
    constexpr UINT stateBits = MFS_GRAYED | MFS_CHECKED | MFS_DEFAULT;
    constexpr WORD popupBit = 1;
    constexpr size_t helpIdSize = 4;
    std::optional<DWORD> type = reader.number<DWORD>(), state = reader.number<DWORD>(), id = reader.number<DWORD>();
    std::optional<WORD> kind = reader.number<WORD>();
    if (!kind || !reader.text(item.text) || !reader.align())
        return false;
    item.isPopup = (*kind & popupBit) != 0;
    item.isLast = (*kind & lastOfMenu) != 0;
    item.type = *type & typeBits;
    item.state = *state & stateBits;
    item.id = *id;
    noteSeparator(item);
    return !item.isPopup || reader.skip(helpIdSize);
}

// Whether the last item of a menu was the last of the template: then so were all the pop-ups that it stands in, and
// those are struck.
bool endsTemplate(std::vector<bool> &popupsAreLast)
{
    while (!popupsAreLast.empty()) {
        bool isLast = popupsAreLast.back();
        popupsAreLast.pop_back();
        if (!isLast)
            return false;
    }
    return true;
}

} // namespace

bool readMenuTemplate(const char *bytes, size_t size, std::vector<TemplateItem> &items)
{
    TemplateReader reader(bytes, size);
    std::optional<WORD> version = reader.number<WORD>(), offset = reader.number<WORD>();
    bool isKnown = version && offset && (*version == oldVersion || *version == extendedVersion) && reader.skip(*offset);
    if (!isKnown)
        return false;
    std::vector<bool> popupsAreLast;
    for (;;) {
        TemplateItem item;
        if (!(*version == oldVersion ? readOld(reader, item) : readExtended(reader, item)))
            return false;
        bool endsMenu = item.isLast && !item.isPopup;
        if (item.isPopup)
            popupsAreLast.push_back(item.isLast);
        items.push_back(std::move(item));
        if (endsMenu && endsTemplate(popupsAreLast))
            return true;
    }
}

} // namespace win32::user
