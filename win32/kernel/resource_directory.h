// An index of the resources in a compiled .res file, which stays where it is in memory.
#pragma once

#include <windows.h>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace win32 {

// A resource's type or name: a number, or text in upper case.
struct ResourceName {
    std::u16string text; // empty for a number
    WORD number = 0;

    bool operator==(const ResourceName &) const = default;
    // Texts come before numbers, as in the resource tree of a module.
    bool operator<(const ResourceName &other) const
    {
        if (text.empty() != other.text.empty())
            return !text.empty();
        return text != other.text ? text < other.text : number < other.number;
    }

    static char16_t upper(char16_t character)
    {
        return character >= u'a' && character <= u'z' ? static_cast<char16_t>(character - 32) : character;
    }

    // From a call's argument: a number in pointer form, "#" and a decimal number, or text.
    static ResourceName fromArgument(LPCSTR argument);
};

struct Resource {
    ResourceName type;
    ResourceName name;
    WORD language = 0;
    std::span<const std::byte> data;
};

class ResourceDirectory {
public:
    // Indexes the resources of a .res file. Reading stops at the first record that is not whole;
    // what stands before it remains usable. The result is the place of that record, or the size of
    // the file when all are whole.
    size_t add(std::span<const std::byte> resFile);

    // Adds one resource; the index is ready after the next sort.
    void addResource(Resource resource) { resources_.push_back(std::move(resource)); }
    void sort();

    static constexpr int anyLanguage = -1;

    // The place of a resource in the index, counted from 0; -1 with the last error when there is
    // none. With no language asked for, a neutral one goes before English, English before others.
    int find(const ResourceName &type, const ResourceName &name, int language) const;

    // All resources, ordered by type, name and language.
    std::span<const Resource> all() const { return resources_; }
    // Those of one type, and those of one name.
    std::span<const Resource> ofType(const ResourceName &type) const;
    std::span<const Resource> ofName(const ResourceName &type, const ResourceName &name) const;

    const Resource *at(size_t place) const { return place < resources_.size() ? &resources_[place] : nullptr; }

private:
    static std::span<const Resource> named(std::span<const Resource> ofOneType, const ResourceName &name);

    std::vector<Resource> resources_; // sorted by type, name, language
    std::vector<size_t> typeStarts_;  // the place of the first resource of each type
};

} // namespace win32
