#include "item_list.h"

#include "bytes.h"
#include "kernel/code_pages.h"
#include "kernel/kernel_internal.h"

#include <algorithm>

namespace win32 {
namespace {

constexpr size_t maximumListSize = 0xffff;

constexpr uint8_t rootItem = 0x1f, driveItem = 0x2f, folderItem = 0x31, fileItem = 0x32;
constexpr uint8_t kindMask = 0x70, driveKind = 0x20, fileKind = 0x30, utf16Flag = 0x04;
constexpr unsigned char computer[] = {0xe0, 0x4f, 0xd0, 0x20, 0xea, 0x3a, 0x69, 0x10,
                                      0xa2, 0xd8, 0x08, 0x00, 0x2b, 0x30, 0x30, 0x9d};
constexpr size_t computerOffset = 4, letterOffset = 3, nameOffset = 14, driveItemSize = 25;

// Behind the short name of a file stands a block with its long one. The last two bytes of the item are the
// block's offset.
constexpr uint32_t longNameSignature = 0xbeef0004;
constexpr uint16_t longNameVersion = 3;
constexpr size_t signatureOffset = 4, longNameOffsetOffset = 16;
constexpr uint16_t longNameOffset = 20;

bool isComputer(std::string_view item)
{
    return item.size() >= computerOffset + sizeof computer && static_cast<uint8_t>(item[2]) == rootItem
           && memcmp(item.data() + computerOffset, computer, sizeof computer) == 0;
}

bool isDrive(std::string_view item)
{
    if (item.size() <= letterOffset + 1 || (item[2] & kindMask) != driveKind || item[letterOffset + 1] != ':')
        return false;
    char letter = lowerAscii(item[letterOffset]);
    return letter >= 'a' && letter <= 'z';
}

std::u16string longName(std::string_view item)
{
    uint16_t block, offset;
    uint32_t signature;
    if (!readAt(item, item.size() - sizeof block, block) || block < nameOffset
        || !readAt(item, size_t{block} + signatureOffset, signature) || signature != longNameSignature
        || !readAt(item, size_t{block} + longNameOffsetOffset, offset) || offset < longNameOffsetOffset + sizeof offset)
        return {};
    return terminatedUtf16At(item, size_t{block} + offset).value_or(std::u16string());
}

std::u16string fileName(std::string_view item)
{
    if (item.size() <= nameOffset || (item[2] & kindMask) != fileKind)
        return {};
    std::u16string name = longName(item);
    if (!name.empty())
        return name;
    if (item[2] & utf16Flag)
        return terminatedUtf16At(item, nameOffset).value_or(std::u16string());
    return utf16FromAnsi(terminatedAt(item, nameOffset).value_or(std::string_view()));
}

// Days, months and years from 1980 in one word, two-second steps in the other.
uint32_t dosTime(const FILETIME &time)
{
    SYSTEMTIME parts;
    if (!FileTimeToSystemTime(&time, &parts) || parts.wYear < 1980 || parts.wYear > 2107)
        return 0;
    unsigned date = (parts.wYear - 1980u) << 9 | static_cast<unsigned>(parts.wMonth) << 5 | parts.wDay;
    unsigned ofDay =
        static_cast<unsigned>(parts.wHour) << 11 | static_cast<unsigned>(parts.wMinute) << 5 | parts.wSecond / 2u;
    return ofDay << 16 | date;
}

void appendItem(std::string &list, std::string item)
{
    append(list, static_cast<uint16_t>(item.size() + sizeof(uint16_t)));
    list += item;
}

void appendRoot(std::string &list, char drive)
{
    std::string item = {static_cast<char>(rootItem), 0x50};
    item.append(reinterpret_cast<const char *>(computer), sizeof computer);
    appendItem(list, item);
    item = {static_cast<char>(driveItem), drive, ':', '\\'};
    item.resize(driveItemSize - sizeof(uint16_t));
    appendItem(list, item);
}

void appendFile(std::string &list, std::u16string_view name, const ItemFacts &facts)
{
    std::string item;
    bool isFolder = (facts.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    append(item, static_cast<uint16_t>(isFolder ? folderItem : fileItem));
    append(item, facts.size);
    append(item, dosTime(facts.written));
    append(item, static_cast<uint16_t>(facts.attributes));
    item += ansiFromUtf16(name);
    item.append(item.size() % 2 ? 1 : 2, '\0');

    auto block = static_cast<uint16_t>(item.size() + sizeof(uint16_t));
    append(item, static_cast<uint16_t>(longNameOffset + (name.size() + 1) * sizeof(char16_t) + sizeof block));
    append(item, longNameVersion);
    append(item, longNameSignature);
    append(item, dosTime(facts.written));
    append(item, dosTime(facts.written));
    append(item, longNameOffset);
    append(item, uint16_t{0}); // no localized name
    appendUtf16(item, name);
    append(item, char16_t{0});
    append(item, block);
    appendItem(list, item);
}

} // namespace

std::string_view leadingItemList(std::string_view bytes)
{
    size_t end = 0;
    uint16_t size;
    while (end < maximumListSize && readAt(bytes, end, size)) {
        if (size == 0)
            return bytes.substr(0, end + sizeof size);
        if (size <= sizeof size || size > bytes.size() - end)
            break;
        end += size;
    }
    return {};
}

std::u16string pathOfItemList(std::string_view list)
{
    std::u16string path;
    uint16_t size;
    for (size_t place = 0; readAt(list, place, size) && size != 0; place += size) {
        std::string_view item = list.substr(place, size);
        if (path.empty() && isComputer(item))
            continue;
        if (path.empty()) {
            if (!isDrive(item))
                return {};
            path = {static_cast<char16_t>(item[letterOffset]), u':'};
            continue;
        }
        std::u16string name = fileName(item);
        if (name.empty())
            return {};
        path += u'\\' + name;
    }
    return path.size() == 2 ? path + u'\\' : path;
}

std::string itemListOfPath(std::u16string_view path, const ItemFacts &facts)
{
    std::string list;
    if (path.size() < 3 || path[0] >= 0x80 || path[1] != ':' || path[2] != '\\')
        return list;
    appendRoot(list, static_cast<char>(path[0]));
    path.remove_prefix(3);
    while (!path.empty()) {
        size_t end = std::min(path.find(u'\\'), path.size());
        bool isLast = end == path.size();
        ItemFacts folder;
        folder.attributes = FILE_ATTRIBUTE_DIRECTORY;
        appendFile(list, path.substr(0, end), isLast ? facts : folder);
        path.remove_prefix(isLast ? end : end + 1);
    }
    append(list, uint16_t{0});
    return list.size() <= maximumListSize ? list : std::string();
}

} // namespace win32
