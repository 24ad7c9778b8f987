#include "link_file.h"

#include "bytes.h"
#include "item_list.h"
#include "kernel/code_pages.h"
#include "link_info.h"

#include <algorithm>

namespace win32 {
namespace {

constexpr GUID linkClass = {0x00021401, 0, 0, {0xc0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr uint32_t showNormal = 1, showMaximized = 3, showMinimized = 7;

constexpr size_t variablesAnsiSize = MAX_PATH, variablesUtf16Size = MAX_PATH * sizeof(char16_t);
constexpr size_t variablesSize = variablesAnsiSize + variablesUtf16Size;

// Blocks that say how the target is started and shown. All others tell where it was found, and go when
// the link gets another target.
constexpr uint32_t keptBlocks[] = {0xa0000002, 0xa0000004, iconVariablesBlock, 0xa0000008};

// Takes the parts of a file from its front.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    std::string_view rest() const { return rest_; }

    template <class Value> bool take(Value &value)
    {
        if (!readAt(rest_, 0, value))
            return false;
        rest_.remove_prefix(sizeof value);
        return true;
    }

    bool take(size_t size, std::string_view &bytes)
    {
        if (size > rest_.size())
            return false;
        bytes = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return true;
    }

private:
    std::string_view rest_;
};

bool takeHeader(Reader &reader, LinkHeader &header)
{
    if (!reader.take(header) || header.size != sizeof header || header.classId != linkClass)
        return false;
    bool isKnown = header.showCommand == showMaximized || header.showCommand == showMinimized;
    header.showCommand = isKnown ? header.showCommand : showNormal;
    return true;
}

bool takeItemList(Reader &reader, LinkFile &link)
{
    uint16_t size;
    std::string_view bytes;
    if (!reader.take(size) || !reader.take(size, bytes))
        return false;
    std::string_view list = leadingItemList(bytes);
    // A list of no items is none.
    link.itemList = list.size() > sizeof(uint16_t) ? list : std::string_view();
    return !list.empty();
}

bool takeInfo(Reader &reader, LinkFile &link)
{
    uint32_t size;
    std::string_view bytes;
    if (!readAt(reader.rest(), 0, size) || !reader.take(size, bytes))
        return false;
    link.info = bytes;
    return readLinkInfo(bytes, link.target);
}

bool takeText(Reader &reader, bool isUtf16, std::u16string &text)
{
    uint16_t length;
    std::string_view bytes;
    if (!reader.take(length) || !reader.take(isUtf16 ? length * sizeof(char16_t) : length, bytes))
        return false;
    text = isUtf16 ? utf16At(bytes, 0, length) : utf16FromAnsi(bytes);
    return true;
}

bool takeTexts(Reader &reader, LinkFile &link)
{
    uint32_t flag = linkHasFirstText;
    for (std::u16string &text : link.texts) {
        if ((link.header.flags & flag) && !takeText(reader, link.header.flags & linkIsUtf16, text))
            return false;
        flag <<= 1;
    }
    return true;
}

// A block whose size is below that of the size ends the file; so does the end of the bytes.
bool takeBlocks(Reader &reader, LinkFile &link)
{
    uint32_t size;
    while (reader.take(size) && size >= sizeof size) {
        std::string_view data;
        LinkBlock block{};
        if (!reader.take(block.signature) || size < sizeof size + sizeof block.signature
            || !reader.take(size - sizeof size - sizeof block.signature, data))
            return false;
        if (block.signature == variablesBlock && data.size() != variablesSize)
            return false;
        block.data = data;
        link.blocks.push_back(std::move(block));
    }
    return true;
}

LinkHeader headerToWrite(const LinkFile &link)
{
    LinkHeader header = link.header;
    auto set = [&](uint32_t flag, bool isSet) { header.flags = isSet ? header.flags | flag : header.flags & ~flag; };
    set(linkHasItemList, !link.itemList.empty());
    set(linkHasInfo, !link.info.empty());
    for (size_t index = 0; index < link.texts.size(); ++index)
        set(linkHasFirstText << index, !link.texts[index].empty());
    set(linkIsUtf16, true);
    return header;
}

// The texts of the block fill their space with zeros and need no terminator.
std::string variablesData(const std::u16string &path)
{
    std::string data = ansiFromUtf16(path);
    data.resize(variablesAnsiSize);
    appendUtf16(data, path);
    data.resize(variablesSize);
    return data;
}

} // namespace

LinkFile::LinkFile()
{
    header.size = sizeof header;
    header.classId = linkClass;
    header.flags = linkIsUtf16;
    header.showCommand = showNormal;
}

std::u16string LinkFile::targetWithVariables() const
{
    auto isVariables = [](const LinkBlock &block) { return block.signature == variablesBlock; };
    auto found = std::find_if(blocks.begin(), blocks.end(), isVariables);
    if (!(header.flags & linkHasVariables) || found == blocks.end())
        return {};
    std::u16string path = utf16At(found->data, variablesAnsiSize, MAX_PATH);
    path.resize(std::min(path.find(u'\0'), path.size()));
    return path.empty() ? utf16FromAnsi(found->data.substr(0, strnlen(found->data.data(), variablesAnsiSize))) : path;
}

void LinkFile::setTarget(const std::u16string &path, const std::u16string &pathWithVariables)
{
    target = path;
    itemList.clear();
    info = path.empty() ? std::string() : writeLinkInfo(path);
    header.flags &= ~(linkIgnoresInfo | linkHasVariables | linkHasInstallerId);
    std::erase_if(blocks, [](const LinkBlock &block) {
        return std::find(std::begin(keptBlocks), std::end(keptBlocks), block.signature) == std::end(keptBlocks);
    });
    if (!pathWithVariables.empty()) {
        header.flags |= linkHasVariables;
        blocks.push_back({variablesBlock, variablesData(pathWithVariables)});
    }
}

void LinkFile::setItemList(std::string_view list)
{
    setTarget(pathOfItemList(list), {});
    itemList = list;
}

void LinkFile::removeBlock(uint32_t signature)
{
    std::erase_if(blocks, [&](const LinkBlock &block) { return block.signature == signature; });
}

bool readLinkFile(std::string_view bytes, LinkFile &link)
{
    LinkFile read;
    Reader reader(bytes);
    if (!takeHeader(reader, read.header))
        return false;
    uint32_t flags = read.header.flags;
    bool isWhole = (!(flags & linkHasItemList) || takeItemList(reader, read))
                   && (!(flags & linkHasInfo) || takeInfo(reader, read)) && takeTexts(reader, read)
                   && takeBlocks(reader, read);
    if (!isWhole)
        return false;
    if (flags & linkIgnoresInfo)
        read.target.clear();
    if (read.target.empty())
        read.target = pathOfItemList(read.itemList);
    link = std::move(read);
    return true;
}

std::string writeLinkFile(const LinkFile &link)
{
    std::string bytes;
    append(bytes, headerToWrite(link));
    if (!link.itemList.empty()) {
        append(bytes, static_cast<uint16_t>(link.itemList.size()));
        bytes += link.itemList;
    }
    bytes += link.info;
    for (const std::u16string &text : link.texts) {
        if (text.empty())
            continue;
        append(bytes, static_cast<uint16_t>(text.size()));
        appendUtf16(bytes, text);
    }
    for (const LinkBlock &block : link.blocks) {
        append(bytes, static_cast<uint32_t>(sizeof(uint32_t) * 2 + block.data.size()));
        append(bytes, block.signature);
        bytes += block.data;
    }
    append(bytes, uint32_t{0});
    return bytes;
}

} // namespace win32
