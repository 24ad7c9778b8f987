#include "pe_image.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace win32 {
namespace {

constexpr uint16_t dosSignature = 0x5a4d;
constexpr uint32_t peSignature = 0x00004550;
constexpr uint16_t optionalHeader32 = 0x10b;
constexpr uint16_t optionalHeader64 = 0x20b;
constexpr uint32_t resourceDirectoryNumber = 2;

class Image {
public:
    explicit Image(std::span<const std::byte> bytes) : bytes_(bytes), entriesLeft_(bytes.size() / 8) {}

    template <class Number> std::optional<Number> number(uint64_t offset) const
    {
        Number value;
        if (offset > bytes_.size() || bytes_.size() - offset < sizeof value)
            return std::nullopt;
        memcpy(&value, bytes_.data() + offset, sizeof value);
        return value;
    }

    std::optional<std::span<const std::byte>> part(uint64_t offset, uint64_t size) const
    {
        if (offset > bytes_.size() || bytes_.size() - offset < size)
            return std::nullopt;
        return bytes_.subspan(static_cast<size_t>(offset), static_cast<size_t>(size));
    }

    // Finds the sections and the resource tree; false when this is no PE file.
    bool readHeaders();

    bool hasResources() const { return tree_ != 0; }
    void addResources(ResourceDirectory &directory);
    std::optional<uint64_t> damage() const { return damage_; }

private:
    struct Section {
        uint32_t address, size, offset;
    };

    // The place in the file of an address of the loaded module.
    std::optional<uint64_t> offsetOf(uint32_t address) const
    {
        for (const Section &section : sections_) {
            if (address >= section.address && address - section.address < section.size)
                return uint64_t{section.offset} + (address - section.address);
        }
        return std::nullopt;
    }

    std::optional<ResourceName> name(uint32_t field);
    void addLeaf(uint32_t offset, const ResourceName &type, const ResourceName &resourceName, WORD language,
                 ResourceDirectory &directory);

    void noteDamage(uint64_t place)
    {
        if (!damage_)
            damage_ = place;
    }

    // Visits the entries of a directory of the tree. A damaged tree may name one directory many times
    // over, so no more entries are visited in all than the file has room for.
    template <class Visit> void eachEntry(uint32_t offset, Visit visit)
    {
        constexpr uint32_t countsOffset = 12, headerSize = 16, entrySize = 8;
        auto named = number<uint16_t>(tree_ + uint64_t{offset} + countsOffset);
        auto numbered = number<uint16_t>(tree_ + uint64_t{offset} + countsOffset + 2);
        if (!numbered)
            return noteDamage(tree_ + offset);
        uint32_t count = uint32_t{*named} + *numbered;
        for (uint32_t place = 0; place < count; ++place) {
            uint64_t entry = tree_ + uint64_t{offset} + headerSize + place * entrySize;
            auto nameField = number<uint32_t>(entry);
            auto target = number<uint32_t>(entry + 4);
            if (!target || entriesLeft_ == 0)
                return noteDamage(entry);
            --entriesLeft_;
            visit(*nameField, *target & ~subdirectory, (*target & subdirectory) != 0);
        }
    }

    static constexpr uint32_t subdirectory = 0x80000000;

    std::span<const std::byte> bytes_;
    std::vector<Section> sections_;
    uint64_t tree_ = 0; // offset in the file; 0 when there are no resources
    size_t entriesLeft_;
    std::optional<uint64_t> damage_;
};

bool Image::readHeaders()
{
    constexpr uint64_t newHeaderField = 0x3c, sectionSize = 40;
    auto signature = number<uint16_t>(0);
    auto header = number<uint32_t>(newHeaderField);
    if (signature != dosSignature || !header || number<uint32_t>(*header) != peSignature)
        return false;
    auto sectionCount = number<uint16_t>(uint64_t{*header} + 6);
    auto optionalSize = number<uint16_t>(uint64_t{*header} + 20);
    uint64_t optional = uint64_t{*header} + 24;
    auto magic = number<uint16_t>(optional);
    if (!optionalSize || (magic != optionalHeader32 && magic != optionalHeader64))
        return false;
    for (uint32_t place = 0; place < *sectionCount; ++place) {
        uint64_t section = optional + *optionalSize + place * sectionSize;
        auto address = number<uint32_t>(section + 12), size = number<uint32_t>(section + 16),
             offset = number<uint32_t>(section + 20);
        if (!offset)
            break;
        sections_.push_back({*address, *size, *offset});
    }
    uint64_t directories = optional + (magic == optionalHeader64 ? 112 : 96);
    auto directoryCount = number<uint32_t>(directories - 4);
    auto address = number<uint32_t>(directories + resourceDirectoryNumber * 8);
    if (directoryCount && *directoryCount > resourceDirectoryNumber && address && *address != 0) {
        tree_ = offsetOf(*address).value_or(0);
        if (tree_ == 0)
            noteDamage(directories + resourceDirectoryNumber * 8);
    }
    return true;
}

// A number, or the offset of a counted text within the tree.
std::optional<ResourceName> Image::name(uint32_t field)
{
    ResourceName result;
    if (!(field & subdirectory)) {
        result.number = static_cast<WORD>(field);
        return result;
    }
    uint64_t offset = tree_ + (field & ~subdirectory);
    auto length = number<uint16_t>(offset);
    auto text = length ? part(offset + 2, uint64_t{*length} * 2) : std::nullopt;
    if (!text || *length == 0) {
        noteDamage(offset);
        return std::nullopt;
    }
    result.text.resize(*length);
    memcpy(result.text.data(), text->data(), text->size());
    std::transform(result.text.begin(), result.text.end(), result.text.begin(), ResourceName::upper);
    return result;
}

void Image::addLeaf(uint32_t leaf, const ResourceName &type, const ResourceName &resourceName, WORD language,
                    ResourceDirectory &directory)
{
    auto address = number<uint32_t>(tree_ + leaf);
    auto size = number<uint32_t>(tree_ + uint64_t{leaf} + 4);
    auto offset = address && size ? offsetOf(*address) : std::nullopt;
    auto data = offset ? part(*offset, *size) : std::nullopt;
    if (!data)
        return noteDamage(tree_ + leaf);
    directory.addResource({type, resourceName, language, *data});
}

// Three levels: types, names, languages.
void Image::addResources(ResourceDirectory &directory)
{
    eachEntry(0, [&](uint32_t typeField, uint32_t names, bool hasNames) {
        auto type = hasNames ? name(typeField) : std::nullopt;
        if (!type)
            return;
        eachEntry(names, [&](uint32_t nameField, uint32_t languages, bool hasLanguages) {
            auto resourceName = hasLanguages ? name(nameField) : std::nullopt;
            if (!resourceName)
                return;
            eachEntry(languages, [&](uint32_t language, uint32_t leaf, bool isDirectory) {
                if (!isDirectory && !(language & subdirectory))
                    addLeaf(leaf, *type, *resourceName, static_cast<WORD>(language), directory);
            });
        });
    });
}

} // namespace

bool addPeResources(std::span<const std::byte> file, ResourceDirectory &directory, std::optional<uint64_t> *damage)
{
    Image image(file);
    if (!image.readHeaders())
        return false;
    if (image.hasResources())
        image.addResources(directory);
    directory.sort();
    if (damage)
        *damage = image.damage();
    return true;
}

bool isResFile(std::span<const std::byte> file)
{
    constexpr std::array<unsigned char, 16> start = {0, 0, 0, 0, 0x20, 0, 0, 0, 0xff, 0xff, 0, 0, 0xff, 0xff, 0, 0};
    return file.size() >= start.size() && memcmp(file.data(), start.data(), start.size()) == 0;
}

} // namespace win32
