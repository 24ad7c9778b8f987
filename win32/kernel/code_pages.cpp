#include "code_pages.h"

#include "kernel_internal.h"

#include <iconv.h>
#include <mbstring.h>

#include <cerrno>
#include <cstdlib>

namespace {

struct ByteRange {
    BYTE first;
    BYTE last;
};

struct CodePage {
    UINT number;
    const char *name; // as iconv knows it
    ByteRange leadBytes[2];
};

constexpr ByteRange none{1, 0};

constexpr CodePage codePages[] = {
    {874, "CP874", {none, none}},
    {932, "CP932", {{0x81, 0x9f}, {0xe0, 0xfc}}},
    {936, "CP936", {{0x81, 0xfe}, none}},
    {949, "CP949", {{0x81, 0xfe}, none}},
    {950, "BIG5", {{0x81, 0xfe}, none}},
    {1250, "CP1250", {none, none}},
    {1251, "CP1251", {none, none}},
    {1252, "CP1252", {none, none}},
    {1253, "CP1253", {none, none}},
    {1254, "CP1254", {none, none}},
    {1255, "CP1255", {none, none}},
    {1256, "CP1256", {none, none}},
    {1257, "CP1257", {none, none}},
    {1258, "CP1258", {none, none}},
    {CP_UTF8, "UTF-8", {none, none}},
};

const CodePage *codePage(UINT number)
{
    for (const CodePage &page : codePages) {
        if (page.number == number)
            return &page;
    }
    return nullptr;
}

const CodePage &activePage()
{
    static const CodePage &active = [] () -> const CodePage & {
        const char *setting = getenv("WIN32_CODEPAGE");
        const CodePage *page = setting ? codePage(static_cast<UINT>(atoi(setting))) : nullptr;
        return page ? *page : *codePage(1252);
    }();
    return active;
}

bool isLeadByte(const CodePage &page, unsigned byte)
{
    for (const ByteRange &range : page.leadBytes) {
        if (byte >= range.first && byte <= range.last)
            return true;
    }
    return false;
}

// Calls visit(place, character) for each character until it gives true.
template <class Visit> void eachCharacter(const unsigned char *text, Visit visit)
{
    const CodePage &page = activePage();
    while (*text) {
        bool isDouble = isLeadByte(page, *text) && text[1];
        if (visit(text, isDouble ? static_cast<unsigned>(text[0] << 8 | text[1]) : text[0]))
            return;
        text += isDouble ? 2 : 1;
    }
    visit(text, 0u);
}

} // namespace

UINT GetACP()
{
    return activePage().number;
}

BOOL IsDBCSLeadByte(BYTE byte)
{
    return isLeadByte(activePage(), byte);
}

BOOL IsDBCSLeadByteEx(UINT number, BYTE byte)
{
    const CodePage *page = number == CP_ACP || number == CP_THREAD_ACP ? &activePage() : codePage(number);
    return page && isLeadByte(*page, byte);
}

unsigned char *_mbschr(const unsigned char *text, unsigned int character)
{
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
    const unsigned char *found = nullptr;
    eachCharacter(text, [&](const unsigned char *place, unsigned here) {
        if (here == character)
            found = place;
        return false;
    });
    return const_cast<unsigned char *>(found);
}

std::string win32::ansiFromUtf16(std::u16string_view text)
{
    std::string result;
    iconv_t converter = iconv_open(activePage().name, "UTF-16LE");
    if (converter == reinterpret_cast<iconv_t>(-1))
        return std::string(text.size(), '?');
    auto *source = const_cast<char *>(reinterpret_cast<const char *>(text.data()));
    size_t sourceLeft = text.size() * sizeof(char16_t);
    while (sourceLeft > 0) {
        char converted[256];
        char *destination = converted;
        size_t destinationLeft = sizeof converted;
        size_t outcome = iconv(converter, &source, &sourceLeft, &destination, &destinationLeft);
        result.append(converted, sizeof converted - destinationLeft);
        if (outcome == static_cast<size_t>(-1) && errno != E2BIG) {
            // One code unit that cannot be converted; the second half of a pair follows it.
            bool isPair = sourceLeft >= 4 && (static_cast<unsigned char>(source[1]) & 0xfc) == 0xd8;
            size_t skipped = sourceLeft < 2 ? sourceLeft : isPair ? 4 : 2;
            source += skipped;
            sourceLeft -= skipped;
            result += '?';
        }
    }
    iconv_close(converter);
    return result;
}
