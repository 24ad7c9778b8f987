// The keys of a keyboard: their names in replays, their numbers for programs, their places on the board.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace win32::screen {

struct Key {
    const char *name;
    BYTE virtualKey;
    BYTE scanCode;
    bool isExtended;
    uint16_t usage; // the key's number on the keyboard page of USB, which displays use too
};

std::span<const Key> allKeys();
// In any case of letters. Null for none.
const Key *keyNamed(std::string_view name);
const Key *keyOfUsage(int usage);
// The key at the place for a virtual key; null for none.
const Key *keyOfVirtualKey(BYTE virtualKey, bool isExtended);

inline bool isModifier(const Key &key)
{
    return key.virtualKey >= VK_LSHIFT && key.virtualKey <= VK_RMENU;
}

} // namespace win32::screen
