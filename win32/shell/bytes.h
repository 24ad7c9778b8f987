// Values and texts at places in the bytes of a file, each checked to lie inside.
#pragma once

#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace win32 {

template <class Value> bool readAt(std::string_view bytes, size_t offset, Value &value)
{
    if (offset > bytes.size() || bytes.size() - offset < sizeof value)
        return false;
    memcpy(&value, bytes.data() + offset, sizeof value);
    return true;
}

template <class Value> void append(std::string &bytes, Value value)
{
    bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
}

inline std::u16string utf16At(std::string_view bytes, size_t offset, size_t length)
{
    std::u16string text(length, 0);
    memcpy(text.data(), bytes.data() + offset, length * sizeof(char16_t));
    return text;
}

// A text with a terminator; nothing when that is missing.
inline std::optional<std::string_view> terminatedAt(std::string_view bytes, size_t offset)
{
    size_t end = offset < bytes.size() ? bytes.find('\0', offset) : std::string_view::npos;
    return end == std::string_view::npos ? std::nullopt : std::optional(bytes.substr(offset, end - offset));
}

inline std::optional<std::u16string> terminatedUtf16At(std::string_view bytes, size_t offset)
{
    char16_t unit;
    for (size_t end = offset; readAt(bytes, end, unit); end += sizeof unit) {
        if (unit == 0)
            return utf16At(bytes, offset, (end - offset) / sizeof unit);
    }
    return std::nullopt;
}

inline void appendUtf16(std::string &bytes, std::u16string_view text)
{
    bytes.append(reinterpret_cast<const char *>(text.data()), text.size() * sizeof(char16_t));
}

} // namespace win32
