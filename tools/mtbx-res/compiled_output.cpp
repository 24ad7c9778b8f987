// Compiled resource files and resource scripts.
#include "resource_output.h"

#include <algorithm>
#include <cstdio>

namespace tool {
namespace {

class Record {
public:
    void word(unsigned value)
    {
        bytes_.push_back(static_cast<std::byte>(value & 0xff));
        bytes_.push_back(static_cast<std::byte>(value >> 8 & 0xff));
    }
    void longWord(size_t value)
    {
        word(static_cast<unsigned>(value & 0xffff));
        word(static_cast<unsigned>(value >> 16 & 0xffff));
    }
    void align()
    {
        while (bytes_.size() % 4 != 0)
            bytes_.push_back({});
    }
    // Text as resource compilers store it: in upper case, which look-ups rely on.
    void name(const std::string &text, unsigned number)
    {
        if (text.empty()) {
            word(0xffff);
            return word(number);
        }
        for (char character : text) {
            bool isLower = character >= 'a' && character <= 'z';
            word(static_cast<unsigned char>(isLower ? character - 32 : character));
        }
        word(0);
    }
    void append(const Bytes &bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }

    size_t size() const { return bytes_.size(); }
    const Bytes &bytes() const { return bytes_; }

private:
    Bytes bytes_;
};

void appendRecord(Record &file, const Resource &resource, unsigned memoryFlags)
{
    Record header;
    header.name(resource.type, resource.typeNumber);
    header.name(resource.textName, static_cast<UInt16>(resource.id));
    header.align();
    header.longWord(0); // version of the data
    header.word(memoryFlags);
    header.word(resource.language);
    header.longWord(0); // version and characteristics
    header.longWord(0);
    constexpr size_t sizeFields = 8;
    Bytes contents = contentsOf(resource);
    file.longWord(contents.size());
    file.longWord(sizeFields + header.size());
    file.append(header.bytes());
    file.append(contents);
    file.align();
}

// A text in quotes, for a resource compiler.
std::string quoted(const std::string &text)
{
    std::string result = "\"";
    for (char character : text) {
        if (character == '"' || character == '\\')
            result += character;
        result += character;
    }
    return result + '"';
}

std::string formatted(const char *form, unsigned number)
{
    char text[16];
    snprintf(text, sizeof text, form, number);
    return text;
}

constexpr size_t bytesOnLine = 16;

// Words are the same to every resource compiler; a last single byte is a text of one character.
std::string line(std::span<const std::byte> bytes, bool isLast)
{
    constexpr size_t commentColumn = 4 + bytesOnLine / 2 * 8;
    std::string numbers = "   ", characters;
    auto at = [&](size_t place) { return std::to_integer<unsigned>(bytes[place]); };
    for (size_t place = 0; place < bytes.size(); place += 2) {
        bool isPair = place + 1 < bytes.size();
        numbers += isPair ? formatted(" 0x%04X", at(place) | at(place + 1) << 8) : formatted(" \"\\%03o\"", at(place));
        numbers += isLast && place + 2 >= bytes.size() ? "" : ",";
    }
    for (std::byte byte : bytes) {
        auto character = std::to_integer<char>(byte);
        // A backslash at the end of a comment would make the next line one too.
        characters += character >= ' ' && character < 0x7f && character != '\\' ? character : '.';
    }
    numbers.resize(std::max(numbers.size(), commentColumn), ' ');
    return numbers + "// " + characters + "\r\n";
}

std::string lines(std::span<const std::byte> bytes)
{
    std::string text;
    while (!bytes.empty()) {
        size_t count = std::min(bytes.size(), bytesOnLine);
        text += line(bytes.first(count), count == bytes.size());
        bytes = bytes.subspan(count);
    }
    return text;
}

std::string languageStatement(WORD language)
{
    constexpr unsigned primaryBits = 10;
    unsigned primary = language & ((1u << primaryBits) - 1), sublanguage = language >> primaryBits;
    return "\r\nLANGUAGE " + std::to_string(primary) + ", " + std::to_string(sublanguage) + "\r\n";
}

std::string statement(const Resource &resource)
{
    std::string text = "\r\n";
    if (!resource.name.empty())
        text += "// \"" + printable(resource.name) + "\"\r\n";
    text += resource.textName.empty() ? std::to_string(static_cast<UInt16>(resource.id)) : quoted(resource.textName);
    text += ' ' + (resource.type.empty() ? std::to_string(resource.typeNumber) : quoted(resource.type));
    return text + "\r\nBEGIN\r\n" + lines(contentsOf(resource)) + "END\r\n";
}

} // namespace

Bytes compiledContent(const std::vector<Resource> &resources)
{
    Record file;
    appendRecord(file, Resource{}, 0); // an empty record of number 0 marks the kind of file
    constexpr unsigned moveableAndPure = 0x30;
    for (const Resource &resource : resources)
        appendRecord(file, resource, moveableAndPure);
    return file.bytes();
}

std::string scriptContent(const std::vector<Resource> &resources)
{
    std::string text = "#pragma code_page(1252)\r\n";
    int language = -1;
    for (const Resource &resource : resources) {
        if (language != resource.language)
            text += languageStatement(resource.language);
        language = resource.language;
        text += statement(resource);
    }
    return text;
}

} // namespace tool
