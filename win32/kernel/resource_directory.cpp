#include "resource_directory.h"

#include "kernel_internal.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <tuple>

namespace win32 {
namespace {

constexpr WORD languageNeutral = 0x0000;
constexpr WORD languageEnglishUs = 0x0409;

// Reads little-endian fields; every read is checked against the end.
class Reader {
public:
    explicit Reader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    template <class Number> std::optional<Number> number()
    {
        Number value;
        if (bytes_.size() - place_ < sizeof value)
            return std::nullopt;
        memcpy(&value, bytes_.data() + place_, sizeof value);
        place_ += sizeof value;
        return value;
    }

    std::optional<ResourceName> name()
    {
        ResourceName result;
        auto character = number<WORD>();
        if (character == 0xffff) {
            auto id = number<WORD>();
            if (!id)
                return std::nullopt;
            result.number = *id;
            return result;
        }
        for (; character && *character != 0; character = number<WORD>())
            result.text += ResourceName::upper(static_cast<char16_t>(*character));
        return character ? std::optional(result) : std::nullopt;
    }

    void align() { place_ = std::min((place_ + 3) & ~size_t{3}, bytes_.size()); }

    std::optional<std::span<const std::byte>> take(size_t count)
    {
        if (bytes_.size() - place_ < count)
            return std::nullopt;
        place_ += count;
        return bytes_.subspan(place_ - count, count);
    }

    bool atEnd() const { return place_ == bytes_.size(); }
    size_t place() const { return place_; }

private:
    std::span<const std::byte> bytes_;
    size_t place_ = 0;
};

std::optional<Resource> readHeader(std::span<const std::byte> header)
{
    Reader reader(header);
    auto type = reader.name();
    auto name = type ? reader.name() : std::nullopt;
    if (!name)
        return std::nullopt;
    reader.align();
    constexpr size_t versionAndFlags = sizeof(DWORD) + sizeof(WORD);
    auto language = reader.take(versionAndFlags) ? reader.number<WORD>() : std::nullopt;
    if (!language)
        return std::nullopt;
    return Resource{std::move(*type), std::move(*name), *language, {}};
}

// A record is the size of its data, the size of its header, the rest of the header, the data.
std::optional<Resource> readResource(Reader &reader)
{
    auto dataSize = reader.number<DWORD>();
    auto headerSize = reader.number<DWORD>();
    constexpr DWORD sizeFields = 2 * sizeof(DWORD);
    if (!headerSize || *headerSize < sizeFields)
        return std::nullopt;
    auto header = reader.take(*headerSize - sizeFields);
    auto data = header ? reader.take(*dataSize) : std::nullopt;
    auto resource = data ? readHeader(*header) : std::nullopt;
    if (resource)
        resource->data = *data;
    reader.align();
    return resource;
}

bool comesBefore(const Resource &left, const Resource &right)
{
    return std::tie(left.type, left.name, left.language) < std::tie(right.type, right.name, right.language);
}

int rank(WORD language)
{
    return language == languageNeutral ? 0 : language == languageEnglishUs ? 1 : 2;
}

} // namespace

ResourceName ResourceName::fromArgument(LPCSTR argument)
{
    ResourceName result;
    if (IS_INTRESOURCE(argument)) {
        result.number = static_cast<WORD>(reinterpret_cast<ULONG_PTR>(argument));
    } else if (argument[0] == '#') {
        result.number = static_cast<WORD>(strtoul(argument + 1, nullptr, 10));
    } else {
        for (; *argument; ++argument)
            result.text += ResourceName::upper(static_cast<unsigned char>(*argument));
    }
    return result;
}

size_t ResourceDirectory::add(std::span<const std::byte> resFile)
{
    Reader reader(resFile);
    size_t place = 0;
    for (; !reader.atEnd(); place = reader.place()) {
        auto resource = readResource(reader);
        if (!resource)
            break;
        // A .res file begins with an empty record of type 0 that marks the format.
        if (!resource->type.text.empty() || resource->type.number != 0)
            resources_.push_back(std::move(*resource));
    }
    sort();
    return place;
}

void ResourceDirectory::sort()
{
    std::stable_sort(resources_.begin(), resources_.end(), comesBefore);
    typeStarts_.clear();
    for (size_t place = 0; place < resources_.size(); ++place) {
        if (place == 0 || !(resources_[place].type == resources_[place - 1].type))
            typeStarts_.push_back(place);
    }
}

std::span<const Resource> ResourceDirectory::ofType(const ResourceName &type) const
{
    auto start =
        std::lower_bound(typeStarts_.begin(), typeStarts_.end(), type,
                         [this](size_t place, const ResourceName &wanted) { return resources_[place].type < wanted; });
    if (start == typeStarts_.end() || !(resources_[*start].type == type))
        return {};
    size_t end = start + 1 == typeStarts_.end() ? resources_.size() : start[1];
    return std::span(resources_).subspan(*start, end - *start);
}

std::span<const Resource> ResourceDirectory::ofName(const ResourceName &type, const ResourceName &name) const
{
    return named(ofType(type), name);
}

std::span<const Resource> ResourceDirectory::named(std::span<const Resource> ofOneType, const ResourceName &name)
{
    auto first =
        std::lower_bound(ofOneType.begin(), ofOneType.end(), name,
                         [](const Resource &resource, const ResourceName &wanted) { return resource.name < wanted; });
    // A name has one resource for each language, so there are few.
    auto last = first;
    while (last != ofOneType.end() && last->name == name)
        ++last;
    return {first, last};
}

int ResourceDirectory::find(const ResourceName &type, const ResourceName &name, int language) const
{
    std::span<const Resource> ofThisType = ofType(type);
    if (ofThisType.empty())
        return fail(ERROR_RESOURCE_TYPE_NOT_FOUND, -1);
    std::span<const Resource> candidates = named(ofThisType, name);
    const Resource *best = nullptr;
    for (const Resource &candidate : candidates) {
        bool fits = language == anyLanguage || candidate.language == language;
        if (fits && (!best || rank(candidate.language) < rank(best->language)))
            best = &candidate;
    }
    if (!best)
        return fail(candidates.empty() ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_LANG_NOT_FOUND, -1);
    return static_cast<int>(best - resources_.data());
}

} // namespace win32
