#include "atoms.h"

#include "kernel/kernel_internal.h"

#include <cstring>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace win32::user::atoms {
namespace {

constexpr unsigned firstAtom = 0xc000;
constexpr size_t mostAtoms = 0x10000 - firstAtom;
constexpr size_t longestName = 255;

struct Table {
    std::mutex mutex;
    std::unordered_map<std::string, ATOM> byFoldedName;
    std::vector<std::string> names;
};

Table &table()
{
    static Table *made = new Table;
    return *made;
}

std::string folded(LPCSTR name)
{
    std::string result(name);
    for (char &character : result)
        character = lowerAscii(character);
    return result;
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
        std::string key = folded(name);
        std::lock_guard lock(table().mutex);
        auto found = table().byFoldedName.find(key);
        if (found != table().byFoldedName.end())
            return found->second;
        if (table().names.size() == mostAtoms)
            return fail(ERROR_NOT_ENOUGH_MEMORY, ATOM{0});
        auto atom = static_cast<ATOM>(firstAtom + table().names.size());
        table().names.emplace_back(name);
        try {
            table().byFoldedName.emplace(std::move(key), atom);
        } catch (...) {
            table().names.pop_back();
            throw;
        }
        return atom;
    });
}

ATOM find(LPCSTR name)
{
    return guarded(ATOM{0}, [&]() -> ATOM {
        std::string key = folded(name);
        std::lock_guard lock(table().mutex);
        auto found = table().byFoldedName.find(key);
        return found != table().byFoldedName.end() ? found->second : ATOM{0};
    });
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
