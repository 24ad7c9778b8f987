// The content of a link file.
//
// What is not understood is kept as it is, so that a link that is read, changed and written loses nothing
// that another program has put there.
#pragma once

#include <guiddef.h>
#include <windows.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace win32 {

enum LinkFlags : uint32_t {
    linkHasItemList = 1 << 0,
    linkHasInfo = 1 << 1,
    linkHasFirstText = 1 << 2, // and so on, in the order of LinkText
    linkIsUtf16 = 1 << 7,
    linkIgnoresInfo = 1 << 8,
    linkHasVariables = 1 << 9,
    linkHasInstallerId = 1 << 12,
    linkHasIconVariables = 1 << 14,
};

// In the order of the file.
enum class LinkText { Description, RelativePath, WorkingFolder, Arguments, IconPath, Count };

struct LinkHeader {
    uint32_t size;
    GUID classId;
    uint32_t flags;
    uint32_t attributes;
    FILETIME created, accessed, written;
    uint32_t targetSize;
    int32_t iconIndex;
    uint32_t showCommand;
    uint16_t hotkey;
    uint16_t reserved[5];
};
static_assert(sizeof(LinkHeader) == 76);

struct LinkBlock {
    uint32_t signature;
    std::string data;

    bool operator==(const LinkBlock &) const = default;
};

constexpr uint32_t variablesBlock = 0xa0000001;
constexpr uint32_t iconVariablesBlock = 0xa0000007;
constexpr size_t maximumLinkText = 0xffff;

struct LinkFile {
    LinkFile();

    std::u16string &text(LinkText which) { return texts[static_cast<size_t>(which)]; }
    const std::u16string &text(LinkText which) const { return texts[static_cast<size_t>(which)]; }

    // The target with names of environment variables in it; empty when the link has none.
    std::u16string targetWithVariables() const;

    // Replaces all that the link knows of its target. The second path may have names of variables in it,
    // and is then what the link goes by; it is empty otherwise.
    void setTarget(const std::u16string &path, const std::u16string &pathWithVariables);
    void setItemList(std::string_view list);

    void removeBlock(uint32_t signature);

    LinkHeader header{};
    std::string itemList; // with its end mark; empty when there is none
    std::string info;     // the same way
    std::array<std::u16string, static_cast<size_t>(LinkText::Count)> texts;
    std::vector<LinkBlock> blocks;
    std::u16string target; // told by the info or by the item list
};

// False when the bytes are no link file or a length in them is wrong.
bool readLinkFile(std::string_view bytes, LinkFile &link);

std::string writeLinkFile(const LinkFile &link);

} // namespace win32
