#include "atoms.h"

#include "kernel/kernel_internal.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace win32::user::atoms {
namespace {

constexpr unsigned firstAtom = 0xc000;
constexpr size_t mostAtoms = 0x10000 - firstAtom;
constexpr size_t longestName = 255;

// Names are looked up as they come, in either case: a known one needs no memory.
struct FoldedHash {
    using is_transparent = void;
    size_t operator()(std::string_view name) const
    {
        uint64_t hash = 0xcbf29ce484222325;
        for (char character : name)
            hash = (hash ^ static_cast<unsigned char>(lowerAscii(character))) * 0x100000001b3;
        return static_cast<size_t>(hash);
    }
};
struct FoldedEqual {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
    }
};

struct Table {
    std::mutex mutex;
    std::unordered_map<std::string, ATOM, FoldedHash, FoldedEqual> byName;
    std::vector<std::string> names;

    ATOM find(std::string_view name) const
    {
        auto found = byName.find(name);
        return found != byName.end() ? found->second : ATOM{0};
    }
};

Table &table()
{
    static Table *made = new Table;
    return *made;
}

bool isAtom(LPCSTR name)
{
    return reinterpret_cast<uintptr_t>(name) < 0x10000;
}

} // namespace

ATOM add(LPCSTR name)
{
    if (!*name || strnlen(name, longestName + 1) > longestName)
        return fail(ERROR_INVALID_PARAMETER, ATOM{0});
    return guarded(ATOM{0}, [&]() -> ATOM {
        std::lock_guard lock(table().mutex);
        if (ATOM known = table().find(name))
            return known;
        if (table().names.size() == mostAtoms)
            return fail(ERROR_NOT_ENOUGH_MEMORY, ATOM{0});
        auto atom = static_cast<ATOM>(firstAtom + table().names.size());
        table().names.emplace_back(name);
        try {
            table().byName.emplace(name, atom);
        } catch (...) {
            table().names.pop_back();
            throw;
        }
        return atom;
    });
}

ATOM find(LPCSTR name)
{
    std::lock_guard lock(table().mutex);
    return table().find(name);
}

std::string nameOf(ATOM atom)
{
    std::lock_guard lock(table().mutex);
    size_t index = size_t{atom} - firstAtom;
    return atom >= firstAtom && index < table().names.size() ? table().names[index] : std::string();
}

ATOM addNameOrAtom(LPCSTR name)
{
    return isAtom(name) ? static_cast<ATOM>(reinterpret_cast<uintptr_t>(name)) : add(name);
}

ATOM findNameOrAtom(LPCSTR name)
{
    return isAtom(name) ? static_cast<ATOM>(reinterpret_cast<uintptr_t>(name)) : find(name);
}

} // namespace win32::user::atoms

UINT RegisterWindowMessageA(LPCSTR name)
{
    if (!name)
        return win32::fail(ERROR_INVALID_PARAMETER, UINT{0});
    return win32::user::atoms::add(name);
}

UINT RegisterClipboardFormatA(LPCSTR name)
{
    return RegisterWindowMessageA(name);
}
