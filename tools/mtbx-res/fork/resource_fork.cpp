#include "resource_fork.h"

#include <cstdio>
#include <optional>
#include <utility>

namespace forks {
namespace {

constexpr uint64_t typeEntrySize = 8, referenceSize = 12;

class Reader {
public:
    explicit Reader(const ByteView &fork) : fork_(fork) {}

    ForkContents read()
    {
        if (fork_.size() > 0 && findParts())
            readTypes();
        return std::move(contents_);
    }

private:
    bool findParts();
    void readTypes();
    void readReferences(uint64_t entry, uint32_t type, uint64_t offset, uint64_t count);
    void readResource(uint32_t type, const ByteView &reference);
    void readName(const ByteView &reference, ForkResource &resource);
    bool readData(const ByteView &reference, ForkResource &resource);

    bool problem(uint64_t place, std::string text)
    {
        contents_.problems.push_back({place, std::move(text)});
        return false;
    }

    bool problem(uint64_t place, const ForkResource &resource, const char *text)
    {
        return problem(place, textOfType(resource.type) + " " + std::to_string(resource.id) + ": " + text);
    }

    ByteView fork_, data_, map_, types_;
    uint64_t nameListOffset_ = 0;
    // Damaged lists may overlap; no more is taken in all than there is room for.
    uint64_t referencesLeft_ = 0, dataLeft_ = 0;
    ForkContents contents_;
};

bool Reader::findParts()
{
    auto dataOffset = fork_.longWord(0), mapOffset = fork_.longWord(4);
    auto dataSize = fork_.longWord(8), mapSize = fork_.longWord(12);
    if (!mapSize)
        return problem(fork_.placeOf(0), "the header of the fork is not whole");
    auto data = fork_.part(*dataOffset, *dataSize);
    if (!data)
        return problem(fork_.placeOf(0), "the resource data is said to stand outside the fork");
    auto map = fork_.part(*mapOffset, *mapSize);
    if (!map)
        return problem(fork_.placeOf(4), "the resource map is said to stand outside the fork");
    constexpr uint64_t typeListField = 24, nameListField = 26;
    auto typeList = map->word(typeListField), nameList = map->word(nameListField);
    if (!nameList)
        return problem(map->placeOf(map->size()), "the resource map ends here");
    auto types = map->from(*typeList);
    if (!types)
        return problem(map->placeOf(typeListField), "the list of types is said to stand outside the map");
    data_ = *data;
    map_ = *map;
    types_ = *types;
    nameListOffset_ = *nameList;
    referencesLeft_ = map_.size() / referenceSize;
    dataLeft_ = data_.size();
    return true;
}

void Reader::readTypes()
{
    auto last = types_.word(0);
    if (!last) {
        problem(types_.placeOf(0), "the list of types is missing");
        return;
    }
    // The counts are those less 1, so that of an empty list wraps.
    uint64_t count = static_cast<uint16_t>(*last + 1);
    for (uint64_t number = 0; number < count; ++number) {
        uint64_t entry = 2 + number * typeEntrySize;
        auto type = types_.longWord(entry);
        auto lastReference = types_.word(entry + 4), offset = types_.word(entry + 6);
        if (!offset) {
            problem(types_.placeOf(entry), "the list of types ends within an entry");
            return;
        }
        readReferences(entry, *type, *offset, uint64_t{*lastReference} + 1);
    }
}

// The problems of a list are told where its count and place stand, at the type's entry.
void Reader::readReferences(uint64_t entry, uint32_t type, uint64_t offset, uint64_t count)
{
    for (uint64_t number = 0; number < count; ++number) {
        uint64_t place = offset + number * referenceSize;
        auto reference = types_.part(place, referenceSize);
        if (!reference) {
            problem(types_.placeOf(entry), textOfType(type) + ": the list reaches behind the end of the map");
            return;
        }
        if (referencesLeft_ == 0) {
            problem(types_.placeOf(entry), textOfType(type) + ": the map has no room for so many resources");
            return;
        }
        --referencesLeft_;
        readResource(type, *reference);
    }
}

void Reader::readResource(uint32_t type, const ByteView &reference)
{
    ForkResource resource{};
    resource.type = type;
    resource.id = static_cast<int16_t>(*reference.word(0));
    resource.attributes = *reference.byte(4);
    readName(reference, resource);
    if (readData(reference, resource))
        contents_.resources.push_back(std::move(resource));
}

// A resource whose name is damaged is kept without it.
void Reader::readName(const ByteView &reference, ForkResource &resource)
{
    constexpr uint16_t noName = 0xffff;
    uint16_t offset = *reference.word(2);
    if (offset == noName)
        return;
    uint64_t place = nameListOffset_ + offset;
    auto length = map_.byte(place);
    auto name = length ? map_.part(place + 1, *length) : std::nullopt;
    if (!name) {
        problem(reference.placeOf(2), resource, "the name is said to stand outside the map");
        return;
    }
    resource.isNamed = true;
    resource.name.assign(reinterpret_cast<const char *>(name->bytes().data()), name->bytes().size());
}

bool Reader::readData(const ByteView &reference, ForkResource &resource)
{
    constexpr uint64_t sizeField = 4;
    uint32_t offset = *reference.triple(5);
    auto size = data_.longWord(offset);
    if (!size)
        return problem(reference.placeOf(5), resource, "the data is said to stand outside the data of the fork");
    auto data = data_.part(offset + sizeField, *size);
    if (!data)
        return problem(data_.placeOf(offset), resource, "the data reaches behind the end of the data of the fork");
    if (*size > dataLeft_)
        return problem(data_.placeOf(offset), resource, "the data overlaps that of others");
    dataLeft_ -= *size;
    resource.data = *data;
    return true;
}

} // namespace

std::string textOfType(uint32_t type)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        auto character = static_cast<unsigned char>(type >> shift);
        char escaped[4];
        snprintf(escaped, sizeof escaped, "\\%02x", character);
        text += character >= ' ' && character < 0x7f ? std::string(1, static_cast<char>(character)) : escaped;
    }
    return text;
}

ForkContents readFork(const ByteView &fork)
{
    return Reader(fork).read();
}

} // namespace forks
