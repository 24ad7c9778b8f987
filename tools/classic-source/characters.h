// The characters of Mac OS Roman, and those of the code page 1252, in which the Toolbox here takes text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace classic {

char32_t fromMacRoman(unsigned char byte);
// Nothing if the set lacks the character.
std::optional<unsigned char> toMacRoman(char32_t character);
std::optional<unsigned char> toWindows1252(char32_t character);

std::string toUtf8(char32_t character);
// Takes one character from the front of the text. A byte that begins none is taken alone and is U+FFFD.
char32_t takeUtf8(std::string_view &text);

} // namespace classic
