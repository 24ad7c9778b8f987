#include "code_page_table.h"

#include <iconv.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <new>

namespace win32 {
namespace {

constexpr ByteRange none{1, 0};

constexpr CodePage codePages[] = {
    {874, "CP874", {none, none}},         {932, "CP932", {{0x81, 0x9f}, {0xe0, 0xfc}}},
    {936, "CP936", {{0x81, 0xfe}, none}}, {949, "CP949", {{0x81, 0xfe}, none}},
    {950, "CP950", {{0x81, 0xfe}, none}}, {1250, "CP1250", {none, none}},
    {1251, "CP1251", {none, none}},       {1252, "CP1252", {none, none}},
    {1253, "CP1253", {none, none}},       {1254, "CP1254", {none, none}},
    {1255, "CP1255", {none, none}},       {1256, "CP1256", {none, none}},
    {1257, "CP1257", {none, none}},       {1258, "CP1258", {none, none}},
    {CP_UTF8, nullptr, {none, none}},
};
constexpr size_t pageCount = sizeof codePages / sizeof *codePages;

// Ranges of codes that Windows leaves to the user's own characters, row by row, and the private
// character that the first of each stands for.
struct UserArea {
    UINT page;
    BYTE firstLead, lastLead, firstTrail, lastTrail;
    char16_t start;
};

constexpr UserArea userAreas[] = {
    {936, 0xaa, 0xaf, 0xa1, 0xfe, 0xe000}, {936, 0xf8, 0xfe, 0xa1, 0xfe, 0xe234}, {936, 0xa1, 0xa7, 0x40, 0xa0, 0xe4c6},
    {949, 0xc9, 0xc9, 0xa1, 0xfe, 0xe000}, {949, 0xfe, 0xfe, 0xa1, 0xfe, 0xe05e}, {950, 0xfa, 0xfe, 0x40, 0xfe, 0xe000},
    {950, 0x8e, 0xa0, 0x40, 0xfe, 0xe311}, {950, 0x81, 0x8d, 0x40, 0xfe, 0xeeb8}, {950, 0xc6, 0xc8, 0xa1, 0xfe, 0xf6b1},
};

// Single codes that Windows gives a character of its own, mostly a private one, so that every text
// survives the way to UTF-16 and back; iconv knows them not.
struct OddCodes {
    UINT page;
    uint16_t first, last;
    char16_t start;
};

constexpr OddCodes oddCodes[] = {
    {874, 0xdb, 0xde, 0xf8c1},  {874, 0xfc, 0xff, 0xf8c5},  {932, 0xa0, 0xa0, 0xf8f0},  {932, 0xfd, 0xff, 0xf8f1},
    {936, 0xff, 0xff, 0xf8f5},  {949, 0xff, 0xff, 0xf8f7},  {950, 0xff, 0xff, 0xf8f8},  {1253, 0xaa, 0xaa, 0xf8f9},
    {1253, 0xd2, 0xd2, 0xf8fa}, {1253, 0xff, 0xff, 0xf8fb}, {1255, 0xca, 0xca, 0x05ba}, {1255, 0xd9, 0xdf, 0xf88d},
    {1255, 0xfb, 0xfc, 0xf894}, {1255, 0xff, 0xff, 0xf896}, {1257, 0xa1, 0xa1, 0xf8fc}, {1257, 0xa5, 0xa5, 0xf8fd},
};

class Converter {
public:
    Converter(const char *to, const char *from) : converter_(iconv_open(to, from)) {}
    ~Converter()
    {
        if (isOpen())
            iconv_close(converter_);
    }
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;

    bool isOpen() const { return converter_ != reinterpret_cast<iconv_t>(-1); }

    // One character's bytes. The result is the number of bytes that came out, 0 when it has no
    // counterpart. Some converters hold a character back until they see that no accent follows.
    size_t convert(const void *source, size_t size, void *destination, size_t room)
    {
        char *in = const_cast<char *>(static_cast<const char *>(source));
        char *out = static_cast<char *>(destination);
        size_t left = room;
        iconv(converter_, nullptr, nullptr, nullptr, nullptr);
        bool converted = iconv(converter_, &in, &size, &out, &left) == 0 && size == 0
                         && iconv(converter_, nullptr, nullptr, &out, &left) == 0;
        return converted ? room - left : 0;
    }

private:
    iconv_t converter_;
};

void decode(const CodePage &page, CodePageTable &table, Converter &converter, unsigned code)
{
    unsigned char bytes[2] = {static_cast<unsigned char>(code >> 8), static_cast<unsigned char>(code)};
    char16_t characters[4];
    bool isPair = code > 0xff;
    if (converter.convert(isPair ? bytes : bytes + 1, isPair ? 2 : 1, characters, sizeof characters)
        == sizeof(char16_t))
        table.fromCode[code] = characters[0];
    else if (!isPair && !page.isLeadByte(code) && code < 0xa0)
        table.fromCode[code] = static_cast<char16_t>(code); // control characters that the page leaves open
}

void decodeAll(const CodePage &page, CodePageTable &table)
{
    Converter converter("UTF-16LE", page.iconvName);
    for (unsigned code = 0; code < 0x100; ++code) {
        if (converter.isOpen())
            decode(page, table, converter, code);
        else if (code < 0x80)
            table.fromCode[code] = static_cast<char16_t>(code);
    }
    for (unsigned code = 0x8140; page.isDoubleByte() && converter.isOpen() && code < 0x10000; ++code) {
        if (page.isLeadByte(code >> 8) && (code & 0xff) >= 0x40)
            decode(page, table, converter, code);
    }
}

// A trail byte 0x7f, and in Big5 also 0x80 to 0xa0, is no character.
bool isTrailByte(UINT page, unsigned trail)
{
    return trail != 0x7f && (page != 950 || trail < 0x7f || trail > 0xa0);
}

void addUserAreas(const CodePage &page, CodePageTable &table)
{
    for (const UserArea &area : userAreas) {
        if (area.page != page.number)
            continue;
        char16_t character = area.start;
        for (unsigned lead = area.firstLead; lead <= area.lastLead; ++lead) {
            for (unsigned trail = area.firstTrail; trail <= area.lastTrail; ++trail) {
                if (!isTrailByte(page.number, trail))
                    continue;
                char16_t &entry = table.fromCode[lead << 8 | trail];
                if (entry == 0)
                    entry = character;
                ++character;
            }
        }
    }
}

void addOddCodes(const CodePage &page, CodePageTable &table)
{
    for (const OddCodes &odd : oddCodes) {
        for (unsigned code = odd.first; odd.page == page.number && code <= odd.last; ++code) {
            if (table.fromCode[code] == 0)
                table.fromCode[code] = static_cast<char16_t>(odd.start + (code - odd.first));
        }
    }
}

// Of several codes for one character iconv says which one is written; where it is silent the first is.
void encodeAll(const CodePage &page, CodePageTable &table)
{
    Converter converter(page.iconvName, "UTF-16LE");
    for (unsigned code = 1; code < 0x10000; ++code) {
        char16_t character = table.fromCode[code];
        if (character == 0 || table.toCode[character] != 0)
            continue;
        unsigned char bytes[4];
        size_t size = converter.isOpen() ? converter.convert(&character, sizeof character, bytes, sizeof bytes) : 0;
        unsigned preferred = size == 1 ? bytes[0] : size == 2 ? bytes[0] << 8 | bytes[1] : 0u;
        bool readsBack = preferred != 0 && table.fromCode[preferred] == character;
        table.toCode[character] = static_cast<uint16_t>(readsBack ? preferred : code);
    }
}

} // namespace

const CodePage *findCodePage(UINT number)
{
    if (number == CP_ACP || number == CP_OEMCP || number == CP_THREAD_ACP)
        return &activeCodePage();
    for (const CodePage &page : codePages) {
        if (page.number == number)
            return &page;
    }
    return nullptr;
}

const CodePage &activeCodePage()
{
    static const CodePage &active = []() -> const CodePage & {
        const char *setting = getenv("WIN32_CODEPAGE");
        unsigned long number = setting ? strtoul(setting, nullptr, 10) : 0;
        const CodePage *page = number > CP_THREAD_ACP ? findCodePage(static_cast<UINT>(number)) : nullptr;
        return page ? *page : *findCodePage(1252);
    }();
    return active;
}

const CodePageTable &codePageTable(const CodePage &page)
{
    static std::atomic<CodePageTable *> tables[pageCount];
    static std::mutex mutex;
    std::atomic<CodePageTable *> &slot = tables[&page - codePages];
    if (CodePageTable *made = slot.load(std::memory_order_acquire))
        return *made;
    std::lock_guard lock(mutex);
    if (CodePageTable *made = slot.load(std::memory_order_relaxed))
        return *made;
    auto table = std::make_unique<CodePageTable>();
    decodeAll(page, *table);
    addUserAreas(page, *table);
    addOddCodes(page, *table);
    encodeAll(page, *table);
    slot.store(table.get(), std::memory_order_release);
    return *table.release();
}

} // namespace win32
