#include "readable.h"

#include "system_forms.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace tool {
namespace {

// Takes fields in this system's form one after the other. After the first that is not whole the rest is empty.
class Reader {
public:
    explicit Reader(std::span<const std::byte> data) : data_(data) {}

    bool isWhole() const { return isWhole_; }
    bool atEnd() const { return data_.empty(); }

    uint8_t byte()
    {
        auto bytes = take(1);
        return bytes.empty() ? uint8_t{0} : std::to_integer<uint8_t>(bytes[0]);
    }
    int16_t word()
    {
        unsigned low = byte(), high = byte();
        return static_cast<int16_t>(low | high << 8);
    }
    uint32_t longWord()
    {
        uint32_t low = static_cast<uint16_t>(word()), high = static_cast<uint16_t>(word());
        return low | high << 16;
    }
    uint32_t highWordLong()
    {
        uint32_t high = static_cast<uint16_t>(word()), low = static_cast<uint16_t>(word());
        return low | high << 16;
    }
    std::string text(size_t length)
    {
        auto bytes = take(length);
        return std::string(reinterpret_cast<const char *>(bytes.data()), bytes.size());
    }
    std::string cString()
    {
        auto end = std::find(data_.begin(), data_.end(), std::byte{0});
        isWhole_ = isWhole_ && end != data_.end();
        std::string result = text(static_cast<size_t>(end - data_.begin()));
        byte();
        return result;
    }
    std::string pascalString() { return text(byte()); }
    std::string rectangle()
    {
        int top = word(), left = word(), bottom = word(), right = word();
        return "top " + std::to_string(top) + ", left " + std::to_string(left) + ", bottom " + std::to_string(bottom)
               + ", right " + std::to_string(right);
    }

private:
    std::span<const std::byte> take(size_t count)
    {
        isWhole_ = isWhole_ && count <= data_.size();
        if (!isWhole_)
            return {};
        auto taken = data_.first(count);
        data_ = data_.subspan(count);
        return taken;
    }

    std::span<const std::byte> data_;
    bool isWhole_ = true;
};

std::string inQuotes(const std::string &text)
{
    return '"' + printable(text) + '"';
}

std::string hex(unsigned value)
{
    char text[16];
    snprintf(text, sizeof text, "0x%x", value);
    return text;
}

std::string fieldText(Reader &reader, FieldKind kind)
{
    switch (kind) {
    case FieldKind::Word:
    case FieldKind::Flag: return std::to_string(reader.word());
    case FieldKind::FlagByte: {
        unsigned flag = reader.byte();
        reader.byte();
        return std::to_string(flag);
    }
    case FieldKind::Long: return hex(reader.longWord());
    case FieldKind::HighWordLong: return hex(reader.highWordLong());
    case FieldKind::Rectangle: return reader.rectangle();
    case FieldKind::CTitle: return inQuotes(reader.cString());
    case FieldKind::PascalTitle: return inQuotes(reader.pascalString());
    case FieldKind::PaddedTitle: {
        size_t length = reader.byte();
        reader.byte();
        return inQuotes(reader.text(length));
    }
    }
    return "";
}

void record(Reader &reader, const RecordForm &form, std::string &text)
{
    for (const Field &field : form.fields)
        text += std::string(field.name) + ": " + fieldText(reader, field.kind) + '\n';
}

void string(Reader &reader, std::string &text)
{
    text = inQuotes(reader.pascalString()) + '\n';
}

void stringList(Reader &reader, std::string &text)
{
    unsigned count = static_cast<uint16_t>(reader.word());
    for (unsigned number = 1; number <= count && reader.isWhole(); ++number)
        text += std::to_string(number) + ": " + inQuotes(reader.cString()) + '\n';
}

// Lines of plain text end in carriage returns.
void plainText(Reader &reader, std::string &text)
{
    std::string line;
    while (!reader.atEnd()) {
        std::string character = reader.text(1);
        if (character != "\r") {
            line += character;
            continue;
        }
        text += printable(line) + '\n';
        line.clear();
    }
    text += line.empty() ? "" : printable(line) + '\n';
}

void menuBar(Reader &reader, std::string &text)
{
    for (int left = reader.word(); left > 0 && reader.isWhole(); --left)
        text += "menu " + std::to_string(reader.word()) + '\n';
}

void menu(Reader &reader, std::string &text)
{
    int count = reader.word();
    for (int number = 1; number <= count && reader.isWhole(); ++number) {
        text += std::to_string(number) + ": " + inQuotes(reader.cString());
        for (const char *name : {"icon", "command", "mark", "style", "number", "number2"})
            text += std::string(" ") + name + ' ' + std::to_string(reader.word());
        text += '\n';
    }
}

void alert(Reader &reader, std::string &text)
{
    text += "bounds: " + reader.rectangle() + '\n';
    int count = reader.word();
    for (int number = 1; number <= count && reader.isWhole(); ++number) {
        std::string className = reader.cString(), label = reader.cString();
        text += std::to_string(number) + ": " + printable(className) + ' ' + inQuotes(label);
        text += " icon " + std::to_string(reader.word()) + ", " + reader.rectangle();
        text += ", style " + hex(reader.longWord()) + '\n';
    }
}

void itemList(Reader &reader, std::string &text)
{
    int count = reader.word() + 1;
    for (int number = 1; number <= count && reader.isWhole(); ++number) {
        constexpr size_t handleSize = 4;
        reader.text(handleSize);
        std::string bounds = reader.rectangle();
        unsigned type = reader.byte(), length = reader.byte();
        text += std::to_string(number) + ": type " + std::to_string(type & itemTypeMask);
        text += (type & ~itemTypeMask ? " disabled, " : ", ") + bounds;
        if (itemHoldsID(type)) {
            text += ", resource " + std::to_string(reader.word()) + '\n';
            continue;
        }
        text += ", " + inQuotes(reader.text(length)) + '\n';
        if (length % 2 != 0 && !reader.atEnd())
            reader.byte();
    }
}

// Rows of the picture: "#" black, "." white, "x" inverted, blank outside.
void cursor(Reader &reader, std::string &text)
{
    constexpr int rows = 16;
    uint16_t image[rows], mask[rows];
    for (uint16_t &row : image)
        row = static_cast<uint16_t>(reader.word());
    for (uint16_t &row : mask)
        row = static_cast<uint16_t>(reader.word());
    for (int row = 0; row < rows; ++row) {
        for (unsigned bit = 0x8000; bit != 0; bit >>= 1)
            text += image[row] & bit ? (mask[row] & bit ? '#' : 'x') : (mask[row] & bit ? '.' : ' ');
        text += '\n';
    }
    int v = reader.word(), h = reader.word();
    text += "hot spot: v " + std::to_string(v) + ", h " + std::to_string(h) + '\n';
}

void colorTable(Reader &reader, std::string &text)
{
    text += "seed " + hex(reader.longWord());
    text += ", flags " + hex(static_cast<uint16_t>(reader.word())) + '\n';
    int count = reader.word() + 1;
    for (int entry = 0; entry < count && reader.isWhole(); ++entry) {
        text += std::to_string(reader.word()) + ':';
        for (const char *name : {"red", "green", "blue"})
            text += std::string(" ") + name + ' ' + std::to_string(static_cast<uint16_t>(reader.word()));
        text += '\n';
    }
}

void picture(Reader &reader, std::string &text)
{
    reader.word();
    text += "frame: " + reader.rectangle() + '\n';
    constexpr uint32_t headerSize = 40;
    if (reader.longWord() != headerSize) {
        text += "no device-independent bitmap follows\n";
        return;
    }
    auto width = static_cast<int32_t>(reader.longWord()), height = static_cast<int32_t>(reader.longWord());
    reader.word();
    text += "bitmap: " + std::to_string(width) + " by " + std::to_string(height);
    text += ", " + std::to_string(reader.word()) + " bits a pixel\n";
}

struct KnownType {
    const char *typeName;
    void (*print)(Reader &, std::string &);
};

constexpr KnownType knownTypes[] = {
    {"STR", string}, {"STR#", stringList}, {"TEXT", plainText}, {"MBAR", menuBar},    {"MNUU", menu},    {"CMNU", menu},
    {"ALRT", alert}, {"DITL", itemList},   {"CURS", cursor},    {"clut", colorTable}, {"PICT", picture},
};

} // namespace

std::string readable(const Resource &resource)
{
    if (!resource.isToolbox)
        return "";
    Reader reader(resource.data);
    std::string text;
    if (const RecordForm *form = findRecordForm(resource.type)) {
        record(reader, *form, text);
        return reader.isWhole() ? text : "";
    }
    for (const KnownType &known : knownTypes) {
        // Modules keep types in upper case.
        if (_stricmp(known.typeName, resource.type.c_str()) == 0) {
            known.print(reader, text);
            return reader.isWhole() ? text : "";
        }
    }
    return "";
}

std::string hexLines(std::span<const std::byte> data)
{
    constexpr size_t bytesOnLine = 16;
    std::string lines;
    for (size_t place = 0; place < data.size(); place += bytesOnLine) {
        auto bytes = data.subspan(place, std::min(bytesOnLine, data.size() - place));
        char field[24];
        snprintf(field, sizeof field, "%08zx ", place);
        lines += field;
        std::string characters;
        for (size_t column = 0; column < bytesOnLine; ++column) {
            if (column < bytes.size())
                snprintf(field, sizeof field, " %02x", std::to_integer<unsigned>(bytes[column]));
            lines += column < bytes.size() ? field : "   ";
        }
        for (std::byte byte : bytes) {
            auto character = std::to_integer<char>(byte);
            characters += character >= ' ' && character < 0x7f ? character : '.';
        }
        lines += "  " + characters + '\n';
    }
    return lines;
}

} // namespace tool
