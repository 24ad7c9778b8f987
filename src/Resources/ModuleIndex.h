// The resources of a module by type: their IDs in order, and the IDs of their names. A module does not change
// while it is loaded, so each type is gone through once.
#pragma once

#include <mtbx/MacTypes.h>

#include <unordered_map>
#include <vector>

namespace resources {

class ModuleIndex {
public:
    // All resources of the type, in the order in which Win32 tells them. Throws std::bad_alloc.
    const std::vector<SInt16> &ids(HMODULE module, ResType type);

    // The first resource of the type whose name equals the C string; null when there is none, and for the empty
    // name, which no resource has. Throws std::bad_alloc.
    const SInt16 *findName(HMODULE module, ResType type, const char *name);

    void clear() { types_.clear(); }

private:
    struct Name {
        size_t text; // its place in texts
        SInt16 id;
    };
    struct Type {
        std::vector<SInt16> ids;
        bool hasNames = false;
        std::vector<char> texts{};
        std::vector<Name> names{}; // sorted; of equal names the first resource comes first
    };

    static void readNames(HMODULE module, ResType type, Type &found);

    std::unordered_map<ResType, Type> types_;
};

} // namespace resources
