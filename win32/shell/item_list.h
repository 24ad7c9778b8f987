// Lists of item identifiers, as far as they name files: the computer, a drive, and the names below it.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace win32 {

// What an item tells of a file beside its name.
struct ItemFacts {
    DWORD attributes = 0;
    DWORD size = 0;
    FILETIME written{};
};

// The list that the bytes begin with, its end mark included; empty when they end before it does.
std::string_view leadingItemList(std::string_view bytes);

// The path that a whole list names; empty when that is no file on a drive.
std::u16string pathOfItemList(std::string_view list);

// The list of a path that begins with a drive; empty for other paths. The facts are those of its last name.
std::string itemListOfPath(std::u16string_view path, const ItemFacts &facts);

} // namespace win32
