#include "container.h"

#include <optional>

namespace forks {
namespace {

using Found = std::variant<FoundFork, Problem>;

constexpr uint32_t appleSingleMagic = 0x00051600;
constexpr uint32_t appleDoubleMagic = 0x00051607;
constexpr uint32_t resourceForkEntry = 2;

// A list of entries: what each is, where it stands and how long it is.
Found findAppleEntry(const ByteView &file, Container container)
{
    constexpr uint64_t countOffset = 24, entriesOffset = 26, entrySize = 12;
    auto count = file.word(countOffset);
    if (!count)
        return Problem{file.size(), "the header ends here"};
    for (uint64_t number = 0; number < *count; ++number) {
        uint64_t entry = entriesOffset + number * entrySize;
        auto kind = file.longWord(entry), offset = file.longWord(entry + 4), size = file.longWord(entry + 8);
        if (!size)
            return Problem{file.size(), "the list of entries ends here"};
        if (*kind != resourceForkEntry)
            continue;
        if (auto fork = file.part(*offset, *size))
            return FoundFork{container, *fork};
        return Problem{entry, "the resource fork is said to stand outside the file"};
    }
    return Problem{entriesOffset, "no entry is a resource fork"};
}

constexpr uint64_t macBinaryBlock = 128;

constexpr uint64_t toBlocks(uint64_t size)
{
    return (size + macBinaryBlock - 1) / macBinaryBlock * macBinaryBlock;
}

// There is no mark in a header of the first version, so all that a header fixes is looked at.
bool isMacBinary(const ByteView &file)
{
    constexpr uint64_t nameLengthOffset = 1, longestName = 63;
    auto nameLength = file.byte(nameLengthOffset);
    if (file.size() < macBinaryBlock || *nameLength < 1 || *nameLength > longestName)
        return false;
    for (uint64_t zero : {0, 74, 82}) {
        if (*file.byte(zero) != 0)
            return false;
    }
    for (uint64_t place = 2; place < 2u + *nameLength; ++place) {
        if (*file.byte(place) == 0)
            return false;
    }
    constexpr uint32_t longestFork = 0x7fffffff;
    return *file.longWord(83) <= longestFork && *file.longWord(87) <= longestFork;
}

Found findMacBinaryFork(const ByteView &file)
{
    constexpr uint64_t dataSizeOffset = 83, resourceSizeOffset = 87, secondHeaderOffset = 120;
    uint64_t secondHeader = toBlocks(*file.word(secondHeaderOffset));
    uint64_t start = macBinaryBlock + secondHeader + toBlocks(*file.longWord(dataSizeOffset));
    if (auto fork = file.part(start, *file.longWord(resourceSizeOffset)))
        return FoundFork{Container::MacBinary, *fork};
    return Problem{resourceSizeOffset, "the resource fork is said to stand outside the file"};
}

// The header of a fork names two parts that lie behind it and inside it.
bool isFork(const ByteView &file)
{
    constexpr uint32_t headerSize = 16;
    auto data = file.longWord(0), map = file.longWord(4), dataSize = file.longWord(8), mapSize = file.longWord(12);
    return mapSize && *data >= headerSize && *map >= headerSize && file.part(*data, *dataSize)
           && file.part(*map, *mapSize);
}

} // namespace

const char *nameOf(Container container)
{
    switch (container) {
    case Container::AppleSingle: return "AppleSingle file";
    case Container::AppleDouble: return "AppleDouble file";
    case Container::MacBinary: return "MacBinary file";
    default: return "resource fork";
    }
}

Found findFork(Bytes bytes)
{
    ByteView file(bytes);
    auto magic = file.longWord(0);
    if (magic == appleSingleMagic)
        return findAppleEntry(file, Container::AppleSingle);
    if (magic == appleDoubleMagic)
        return findAppleEntry(file, Container::AppleDouble);
    // A fork's header begins with an offset, whose first byte is 0 as that of the other file is.
    if (isFork(file))
        return FoundFork{Container::Raw, file};
    if (isMacBinary(file))
        return findMacBinaryFork(file);
    if (bytes.empty())
        return FoundFork{Container::Raw, file};
    return Problem{0, "this is no resource fork, AppleSingle, AppleDouble or MacBinary file"};
}

} // namespace forks
