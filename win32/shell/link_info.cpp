#include "link_info.h"

#include "bytes.h"
#include "kernel/code_pages.h"

namespace win32 {
namespace {

constexpr uint32_t hasLocalPath = 1, hasNetworkPath = 2;
constexpr uint32_t headerSize = 28, headerSizeWithUtf16 = 36;

struct Header {
    uint32_t size;
    uint32_t headerSize;
    uint32_t flags;
    uint32_t volume;
    uint32_t localPath;
    uint32_t network;
    uint32_t suffix;
    uint32_t utf16LocalPath; // from here on with the larger header only
    uint32_t utf16Suffix;
};
static_assert(sizeof(Header) == headerSizeWithUtf16);

struct Volume {
    uint32_t size = sizeof(Volume) + 1;
    uint32_t driveType = DRIVE_FIXED;
    uint32_t serialNumber = 0;
    uint32_t label = sizeof(Volume);
};
static_assert(sizeof(Volume) == 16);

struct Network {
    uint32_t size;
    uint32_t flags;
    uint32_t shareName;
    uint32_t deviceName;
    uint32_t provider;
};
static_assert(sizeof(Network) == 20);

// A text in the UTF-16 form if there is one.
bool readText(std::string_view bytes, uint32_t ansi, uint32_t utf16, std::u16string &text)
{
    if (utf16 != 0) {
        std::optional<std::u16string> found = terminatedUtf16At(bytes, utf16);
        text = found.value_or(std::u16string());
        return found.has_value();
    }
    std::optional<std::string_view> found = terminatedAt(bytes, ansi);
    text = utf16FromAnsi(found.value_or(std::string_view()));
    return found.has_value();
}

// A record that begins with its own size, cut to it.
bool takeSized(std::string_view info, uint32_t offset, size_t minimum, std::string_view &bytes)
{
    uint32_t size;
    if (!readAt(info, offset, size) || size < minimum || size > info.size() - offset)
        return false;
    bytes = info.substr(offset, size);
    return true;
}

bool readShareName(std::string_view info, uint32_t offset, std::u16string &name)
{
    std::string_view bytes;
    Network network;
    if (!takeSized(info, offset, sizeof network, bytes) || !readAt(bytes, 0, network))
        return false;
    uint32_t utf16Name = 0;
    if (network.shareName > sizeof network && !readAt(bytes, sizeof network, utf16Name))
        return false;
    return readText(bytes, network.shareName, utf16Name, name);
}

} // namespace

bool readLinkInfo(std::string_view info, std::u16string &path)
{
    path.clear();
    Header header{};
    if (!readAt(info, sizeof header.size, header.headerSize) || header.headerSize < headerSize
        || header.headerSize > info.size())
        return false;
    memcpy(&header, info.data(), header.headerSize >= headerSizeWithUtf16 ? headerSizeWithUtf16 : headerSize);
    if (!(header.flags & (hasLocalPath | hasNetworkPath)))
        return true;
    std::string_view volume;
    std::u16string suffix;
    if (!readText(info, header.suffix, header.utf16Suffix, suffix))
        return false;
    // With both, the share is where the local folder is seen by others.
    if (header.flags & hasLocalPath) {
        if (!takeSized(info, header.volume, sizeof(Volume), volume)
            || !readText(info, header.localPath, header.utf16LocalPath, path))
            return false;
    } else if (!readShareName(info, header.network, path)) {
        return false;
    }
    if (!suffix.empty() && !path.ends_with(u'\\'))
        path += u'\\';
    path += suffix;
    return true;
}

// Readers that know the ANSI form only find it where it always was.
std::string writeLinkInfo(std::u16string_view path)
{
    std::string ansi = ansiFromUtf16(path);
    Header header{};
    header.headerSize = sizeof header;
    header.flags = hasLocalPath;
    header.volume = sizeof header;
    header.localPath = header.volume + static_cast<uint32_t>(sizeof(Volume)) + 1;
    header.suffix = header.localPath + static_cast<uint32_t>(ansi.size()) + 1;
    header.utf16LocalPath = header.suffix + 1;
    header.utf16Suffix = header.utf16LocalPath + static_cast<uint32_t>((path.size() + 1) * sizeof(char16_t));
    header.size = header.utf16Suffix + static_cast<uint32_t>(sizeof(char16_t));
    std::string info;
    append(info, header);
    append(info, Volume());
    info += '\0'; // the label
    info += ansi + '\0';
    info += '\0'; // the suffix
    appendUtf16(info, path);
    info.append(2 * sizeof(char16_t), '\0');
    return info;
}

} // namespace win32
