#include "file_names.h"

#include "code_page_table.h"
#include "code_pages.h"
#include "kernel_internal.h"

#include <algorithm>
#include <array>
#include <locale.h>
#include <wctype.h>

namespace win32::names {
namespace {

constexpr std::string_view forbidden = "<>:\"/\\|?*";

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

// By the characters' codes, since every name of every folder is held against it.
constexpr auto forbiddenTable = [] {
    std::array<bool, 256> table{};
    for (int code = 0; code < ' '; ++code)
        table[static_cast<size_t>(code)] = true;
    for (char character : forbidden)
        table[static_cast<unsigned char>(character)] = true;
    return table;
}();

bool isForbidden(char character)
{
    return forbiddenTable[static_cast<unsigned char>(character)];
}

// A trailing blank or dot would be dropped from a path; the names of the folder itself and of the one
// above it are no names of files.
bool endsAsNoNameDoes(std::string_view name)
{
    return name.ends_with(' ') || name.ends_with('.');
}

std::string escapedByte(char byte)
{
    constexpr char digits[] = "0123456789ABCDEF";
    auto value = static_cast<unsigned char>(byte);
    return {'%', digits[value >> 4], digits[value & 15]};
}

int hexDigit(char character)
{
    return character >= '0' && character <= '9'   ? character - '0'
           : character >= 'A' && character <= 'F' ? character - 'A' + 10
                                                  : -1;
}

// The length of the character at the start of UTF-8, and its ANSI spelling if it has one.
size_t takeCharacter(std::string_view text, std::string &ansi)
{
    std::u16string utf16;
    for (size_t length = 1; length <= 4 && length <= text.size(); ++length) {
        if (!utf16FromUtf8(text.substr(0, length), utf16))
            continue;
        ansi = ansiFromUtf16(utf16);
        return utf16FromAnsi(ansi) == utf16 ? length : 0;
    }
    return 0;
}

std::string escapedFromDisk(std::string_view name)
{
    std::string result;
    for (size_t place = 0; place < name.size();) {
        bool isLast = place + 1 == name.size();
        std::string ansi;
        size_t length = takeCharacter(name.substr(place), ansi);
        if (length == 0 || isForbidden(name[place]) || name[place] == '%' || (isLast && endsAsNoNameDoes(name))) {
            result += escapedByte(name[place++]);
        } else {
            result += ansi;
            place += length;
        }
    }
    return result;
}

wint_t foldedCharacter(char16_t character)
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale ? towupper_l(character, locale) : character;
}

// Characters of a pattern or a name that stand for one: a lead byte takes its trail byte along.
size_t characterLength(std::string_view text)
{
    return activeCodePage().isLeadByte(static_cast<unsigned char>(text[0])) && text.size() > 1 ? 2 : 1;
}

bool fits(std::string_view name, std::string_view pattern)
{
    // On a mismatch the last "*" takes one character more; earlier ones need no second look.
    std::string_view retryName, retryPattern;
    bool canRetry = false;
    while (!name.empty() || !pattern.empty()) {
        if (pattern.starts_with('*')) {
            pattern.remove_prefix(1);
            retryName = name;
            retryPattern = pattern;
            canRetry = true;
            continue;
        }
        if (pattern.starts_with('?') && (name.empty() || name[0] == '.')) {
            pattern.remove_prefix(1);
            continue;
        }
        if (!pattern.empty() && !name.empty()) {
            size_t length = characterLength(name);
            bool same = pattern[0] == '?' || name.substr(0, length) == pattern.substr(0, length);
            if (same) {
                pattern.remove_prefix(pattern[0] == '?' ? 1 : length);
                name.remove_prefix(length);
                continue;
            }
        }
        if (!canRetry || retryName.empty())
            return false;
        retryName.remove_prefix(characterLength(retryName));
        name = retryName;
        pattern = retryPattern;
    }
    return true;
}

std::string foldedAnsi(std::string_view name)
{
    if (isAscii(name)) {
        std::string result(name);
        std::transform(result.begin(), result.end(), result.begin(), lowerAscii);
        return result;
    }
    std::u16string utf16 = utf16FromAnsi(name);
    for (char16_t &character : utf16)
        character = static_cast<char16_t>(foldedCharacter(character));
    return ansiFromUtf16(utf16);
}

} // namespace

std::string diskFromAnsi(std::string_view name)
{
    if (isAscii(name))
        return std::string(name);
    return utf8FromUtf16(utf16FromAnsi(name));
}

void appendDisk(std::string &path, std::string_view ansiName)
{
    if (isAscii(ansiName))
        path += ansiName;
    else
        path += diskFromAnsi(ansiName);
}

std::string ansiFromDisk(std::string_view name)
{
    if (isAscii(name) && std::none_of(name.begin(), name.end(), isForbidden) && !endsAsNoNameDoes(name))
        return std::string(name);
    std::u16string utf16;
    if (utf16FromUtf8(name, utf16) && std::none_of(name.begin(), name.end(), isForbidden) && !endsAsNoNameDoes(name)) {
        std::string ansi = ansiFromUtf16(utf16);
        if (utf16FromAnsi(ansi) == utf16)
            return ansi;
    }
    return escapedFromDisk(name);
}

bool unescape(std::string_view ansiName, std::string &diskName)
{
    diskName.clear();
    bool found = false;
    size_t literal = 0;
    for (size_t place = 0; place + 2 < ansiName.size(); ++place) {
        int high = hexDigit(ansiName[place + 1]), low = hexDigit(ansiName[place + 2]);
        if (ansiName[place] != '%' || high < 0 || low < 0)
            continue;
        auto byte = static_cast<char>(high << 4 | low);
        if (byte == 0 || byte == '/')
            return false;
        diskName += diskFromAnsi(ansiName.substr(literal, place - literal));
        diskName += byte;
        literal = place + 3;
        place += 2;
        found = true;
    }
    diskName += diskFromAnsi(ansiName.substr(literal));
    return found && diskName != "." && diskName != "..";
}

std::string folded(std::string_view diskName)
{
    std::string result(diskName);
    if (isAscii(diskName)) {
        std::transform(result.begin(), result.end(), result.begin(), lowerAscii);
        return result;
    }
    std::u16string utf16;
    if (!utf16FromUtf8(diskName, utf16))
        return result;
    for (char16_t &character : utf16)
        character = static_cast<char16_t>(foldedCharacter(character));
    result = utf8FromUtf16(utf16);
    std::transform(result.begin(), result.end(), result.begin(), lowerAscii);
    return result;
}

bool isAllowed(std::string_view ansiName)
{
    for (size_t place = 0; place < ansiName.size(); place += characterLength(ansiName.substr(place))) {
        if (isForbidden(ansiName[place]))
            return false;
    }
    return true;
}

bool fitsPattern(std::string_view ansiName, std::string_view pattern)
{
    if (pattern == "*" || pattern == "*.*")
        return true;
    std::string name = foldedAnsi(ansiName);
    if (pattern.ends_with('.') && pattern.size() > 1) {
        bool hasDot = ansiName.find('.') != std::string_view::npos;
        return !hasDot && fits(name, foldedAnsi(pattern.substr(0, pattern.size() - 1)));
    }
    return fits(name, foldedAnsi(pattern));
}

} // namespace win32::names
