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
    auto operator<=>(const ResourceName &) const = default;

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
    // what stands before it remains usable.
    void add(std::span<const std::byte> resFile);

    static constexpr int anyLanguage = -1;

    // The place of a resource in the index, counted from 0; -1 with the last error when there is
    // none. With no language asked for, a neutral one goes before English, English before others.
    int find(const ResourceName &type, const ResourceName &name, int language) const;

    const Resource *at(size_t place) const { return place < resources_.size() ? &resources_[place] : nullptr; }

private:
    std::vector<Resource> resources_; // sorted by type, name, language
};

} // namespace win32
