// The calls that convert and walk text of a code page.
#include "code_pages.h"

#include "code_page_table.h"
#include "kernel_internal.h"

#include <mbstring.h>

#include <cstring>
#include <optional>

namespace {

using namespace win32;

constexpr char16_t replacement = 0xfffd;
constexpr char16_t japaneseMiddleDot = 0x30fb; // what Windows puts for unknown bytes of page 932
constexpr char defaultCharacter = '?';

bool isHighSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}

bool isLowSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

// Takes one character off the front of UTF-8. Malformed bytes give nothing, and one byte is taken.
std::optional<char32_t> takeUtf8(std::string_view &text)
{
    auto byte = [&](size_t place) { return static_cast<unsigned char>(text[place]); };
    unsigned first = byte(0);
    size_t length = first < 0x80                    ? 1
                    : first >= 0xc2 && first < 0xe0 ? 2
                    : (first & 0xf0) == 0xe0        ? 3
                    : first >= 0xf0 && first < 0xf5 ? 4
                                                    : 0;
    char32_t character = length == 1 ? first : first & (0x7fu >> length);
    bool valid = length > 0 && length <= text.size();
    for (size_t place = 1; valid && place < length; ++place) {
        valid = (byte(place) & 0xc0) == 0x80;
        character = character << 6 | (byte(place) & 0x3f);
    }
    constexpr char32_t lowest[] = {0, 0, 0x80, 0x800, 0x10000};
    valid = valid && character >= lowest[length] && character <= 0x10ffff && (character & 0xfffff800) != 0xd800;
    text.remove_prefix(valid ? length : 1);
    return valid ? std::optional(character) : std::nullopt;
}

// Receives what a conversion produces; counts all of it and keeps what there is room for.
template <class Unit> class Output {
public:
    Output(Unit *buffer, int size) : buffer_(buffer), room_(size) {}

    void add(Unit unit)
    {
        if (count_ < room_)
            buffer_[count_] = unit;
        ++count_;
    }

    // The count, or 0 with an error when it did not fit. A size of 0 only asks for the count.
    int result() const { return room_ == 0 || count_ <= room_ ? count_ : fail(ERROR_INSUFFICIENT_BUFFER, 0); }

private:
    Unit *buffer_;
    int room_;
    int count_ = 0;
};

void addCharacter(Output<WCHAR> &output, char32_t character)
{
    if (character >= 0x10000) {
        output.add(static_cast<WCHAR>(0xd7c0 + (character >> 10)));
        output.add(static_cast<WCHAR>(0xdc00 | (character & 0x3ff)));
    } else {
        output.add(static_cast<WCHAR>(character));
    }
}

// False when there was a byte that stands for nothing.
bool decodeUtf8(std::string_view text, Output<WCHAR> &output)
{
    bool clean = true;
    while (!text.empty()) {
        auto character = takeUtf8(text);
        clean = clean && character;
        addCharacter(output, character.value_or(replacement));
    }
    return clean;
}

bool decodePage(const CodePage &page, std::string_view text, Output<WCHAR> &output)
{
    const CodePageTable &table = codePageTable(page);
    char16_t unknown = page.number == 932 ? japaneseMiddleDot : static_cast<char16_t>(defaultCharacter);
    bool clean = true;
    for (size_t place = 0; place < text.size(); ++place) {
        unsigned code = static_cast<unsigned char>(text[place]);
        if (page.isLeadByte(code) && place + 1 < text.size() && text[place + 1] != 0)
            code = code << 8 | static_cast<unsigned char>(text[++place]);
        char16_t character = table.fromCode[code];
        bool known = character != 0 || code == 0;
        clean = clean && known;
        output.add(known ? character : unknown);
    }
    return clean;
}

// False when there was a surrogate without its pair.
bool encodeUtf8(std::u16string_view text, Output<char> &output)
{
    bool clean = true;
    auto add = [&](unsigned byte) { output.add(static_cast<char>(byte)); };
    for (size_t place = 0; place < text.size(); ++place) {
        char32_t character = text[place];
        if (isHighSurrogate(text[place]) && place + 1 < text.size() && isLowSurrogate(text[place + 1])) {
            character = 0x10000 + ((character - 0xd800) << 10) + (text[++place] - 0xdc00u);
        } else if ((character & 0xf800) == 0xd800) {
            clean = false;
            character = replacement;
        }
        if (character < 0x80) {
            add(character);
            continue;
        }
        int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
        add((0xff00u >> (following + 1) & 0xff) | character >> (6 * following));
        while (following-- > 0)
            add(0x80 | (character >> (6 * following) & 0x3f));
    }
    return clean;
}

// False when a character had to be replaced.
bool encodePage(const CodePage &page, std::u16string_view text, Output<char> &output, const char *replaceBy)
{
    const CodePageTable &table = codePageTable(page);
    bool clean = true;
    for (size_t place = 0; place < text.size(); ++place) {
        char16_t character = text[place];
        unsigned code = table.toCode[character];
        if (code == 0 && character != 0) {
            clean = false;
            if (isHighSurrogate(character) && place + 1 < text.size() && isLowSurrogate(text[place + 1]))
                ++place;
            for (const char *byte = replaceBy; *byte; ++byte)
                output.add(*byte);
            continue;
        }
        if (code > 0xff)
            output.add(static_cast<char>(code >> 8));
        output.add(static_cast<char>(code));
    }
    return clean;
}

template <class Unit> size_t unitsIn(const Unit *text, int size)
{
    return size >= 0 ? static_cast<size_t>(size) : std::char_traits<Unit>::length(text) + 1;
}

std::string utf8Or(const CodePage &page, std::u16string_view text)
{
    auto encode = [&](Output<char> &output) {
        page.iconvName ? encodePage(page, text, output, "?") : encodeUtf8(text, output);
    };
    Output<char> measure(nullptr, 0);
    encode(measure);
    std::string result(static_cast<size_t>(measure.result()), 0);
    Output<char> output(result.data(), static_cast<int>(result.size()));
    encode(output);
    return result;
}

// Calls visit(place, character) for each character until it gives true.
template <class Visit> void eachCharacter(const unsigned char *text, Visit visit)
{
    const CodePage &page = activeCodePage();
    while (*text) {
        bool isDouble = page.isLeadByte(*text) && text[1];
        if (visit(text, isDouble ? static_cast<unsigned>(text[0] << 8 | text[1]) : text[0]))
            return;
        text += isDouble ? 2 : 1;
    }
    visit(text, 0u);
}

} // namespace

std::string win32::ansiFromUtf16(std::u16string_view text)
{
    return utf8Or(activeCodePage(), text);
}

std::string win32::utf8FromUtf16(std::u16string_view text)
{
    return utf8Or(*findCodePage(CP_UTF8), text);
}

std::u16string win32::utf16FromAnsi(std::string_view text)
{
    std::u16string result(text.size(), 0);
    Output<WCHAR> output(result.data(), static_cast<int>(result.size()));
    const CodePage &page = activeCodePage();
    page.iconvName ? decodePage(page, text, output) : decodeUtf8(text, output);
    result.resize(static_cast<size_t>(output.result()));
    return result;
}

bool win32::utf16FromUtf8(std::string_view text, std::u16string &result)
{
    result.resize(text.size());
    Output<WCHAR> output(result.data(), static_cast<int>(result.size()));
    bool clean = decodeUtf8(text, output);
    result.resize(static_cast<size_t>(output.result()));
    return clean;
}

UINT GetACP()
{
    return activeCodePage().number;
}

BOOL IsValidCodePage(UINT number)
{
    return number > CP_THREAD_ACP && findCodePage(number);
}

BOOL IsDBCSLeadByte(BYTE byte)
{
    return activeCodePage().isLeadByte(byte);
}

BOOL IsDBCSLeadByteEx(UINT number, BYTE byte)
{
    const CodePage *page = findCodePage(number);
    return page && page->isLeadByte(byte);
}

int MultiByteToWideChar(UINT number, DWORD flags, LPCSTR text, int textSize, LPWSTR buffer, int bufferSize)
{
    const CodePage *page = findCodePage(number);
    if (!page || !text || textSize == 0 || bufferSize < 0 || (bufferSize > 0 && !buffer))
        return fail(ERROR_INVALID_PARAMETER, 0);
    return guarded(0, [&] {
        std::string_view source(text, unitsIn(text, textSize));
        Output<WCHAR> output(buffer, bufferSize);
        bool clean = page->iconvName ? decodePage(*page, source, output) : decodeUtf8(source, output);
        if (!clean && (flags & MB_ERR_INVALID_CHARS))
            return fail(ERROR_NO_UNICODE_TRANSLATION, 0);
        return output.result();
    });
}

int WideCharToMultiByte(UINT number, DWORD flags, LPCWSTR text, int textSize, LPSTR buffer, int bufferSize,
                        LPCSTR replaceBy, LPBOOL replaced)
{
    const CodePage *page = findCodePage(number);
    bool isUtf8 = page && !page->iconvName;
    if (!page || !text || textSize == 0 || bufferSize < 0 || (bufferSize > 0 && !buffer)
        || (isUtf8 && (replaceBy || replaced)))
        return fail(ERROR_INVALID_PARAMETER, 0);
    return guarded(0, [&] {
        std::u16string_view source(text, unitsIn(text, textSize));
        Output<char> output(buffer, bufferSize);
        if (isUtf8) {
            bool clean = encodeUtf8(source, output);
            return !clean && (flags & WC_ERR_INVALID_CHARS) ? fail(ERROR_NO_UNICODE_TRANSLATION, 0) : output.result();
        }
        // A character of one or two bytes, without a terminator of its own.
        char bytes[3] = {defaultCharacter, 0, 0};
        if (replaceBy && replaceBy[0]) {
            bytes[0] = replaceBy[0];
            bytes[1] = page->isLeadByte(static_cast<unsigned char>(replaceBy[0])) ? replaceBy[1] : '\0';
        }
        bool clean = encodePage(*page, source, output, bytes);
        if (replaced)
            *replaced = !clean;
        return output.result();
    });
}

LPSTR CharNextExA(WORD number, LPCSTR text, DWORD)
{
    const CodePage *page = findCodePage(number);
    bool isDouble = page && page->isLeadByte(static_cast<unsigned char>(text[0])) && text[1];
    return const_cast<LPSTR>(text + (*text ? isDouble ? 2 : 1 : 0));
}

// Only a walk from the start tells whether the byte before is a second byte.
LPSTR CharPrevExA(WORD number, LPCSTR start, LPCSTR place, DWORD flags)
{
    LPCSTR previous = start;
    for (LPCSTR next = start; next < place && *next; next = CharNextExA(number, next, flags))
        previous = next;
    return const_cast<LPSTR>(previous);
}

LPSTR CharNextA(LPCSTR text)
{
    return CharNextExA(CP_ACP, text, 0);
}

LPSTR CharPrevA(LPCSTR start, LPCSTR place)
{
    return CharPrevExA(CP_ACP, start, place, 0);
}

// In a page of single bytes the C library's search does.
static bool isPlainSearch(unsigned int character)
{
    return character < 0x100 && !activeCodePage().isDoubleByte();
}

unsigned char *_mbschr(const unsigned char *text, unsigned int character)
{
    auto plain = reinterpret_cast<const char *>(text);
    if (isPlainSearch(character))
        return reinterpret_cast<unsigned char *>(const_cast<char *>(strchr(plain, static_cast<int>(character))));
    const unsigned char *found = nullptr;
    eachCharacter(text, [&](const unsigned char *place, unsigned here) {
        if (here == character)
            found = place;
        return found != nullptr;
    });
    return const_cast<unsigned char *>(found);
}

unsigned char *_mbsrchr(const unsigned char *text, unsigned int character)
{
    auto plain = reinterpret_cast<const char *>(text);
    if (isPlainSearch(character))
        return reinterpret_cast<unsigned char *>(const_cast<char *>(strrchr(plain, static_cast<int>(character))));
    const unsigned char *found = nullptr;
    eachCharacter(text, [&](const unsigned char *place, unsigned here) {
        if (here == character)
            found = place;
        return false;
    });
    return const_cast<unsigned char *>(found);
}
