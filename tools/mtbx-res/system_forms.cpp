#include "system_forms.h"

#include "Resources/TypeName.h"

#include <algorithm>
#include <optional>

namespace tool {
namespace {

using forks::ByteView;
using forks::Problem;

constexpr uint32_t code(const char (&text)[5])
{
    uint32_t value = 0;
    for (int place = 0; place < 4; ++place)
        value = value << 8 | static_cast<unsigned char>(text[place]);
    return value;
}

constexpr Field windowFields[] = {
    {"bounds", FieldKind::Rectangle}, {"procID", FieldKind::Word}, {"visible", FieldKind::Flag},
    {"goAwayFlag", FieldKind::Flag},  {"refCon", FieldKind::Long}, {"title", FieldKind::CTitle},
};

constexpr Field dialogFields[] = {
    {"bounds", FieldKind::Rectangle},    {"procID", FieldKind::Word}, {"visible", FieldKind::FlagByte},
    {"goAwayFlag", FieldKind::FlagByte}, {"refCon", FieldKind::Long}, {"itemsID", FieldKind::Word},
    {"title", FieldKind::PascalTitle},
};

constexpr Field controlFields[] = {
    {"bounds", FieldKind::Rectangle},
    {"value", FieldKind::Word},
    {"visible", FieldKind::Flag},
    {"max", FieldKind::Word},
    {"min", FieldKind::Word},
    {"procID", FieldKind::Word},
    {"refCon", FieldKind::HighWordLong},
    {"title", FieldKind::PaddedTitle},
};

const RecordForm recordForms[] = {{"WIND", windowFields}, {"DLOG", dialogFields}, {"CNTL", controlFields}};

// Takes published fields one after the other and writes them in this system's form. After the first field
// that is not whole nothing more is taken.
class Converter {
public:
    explicit Converter(const ByteView &data) : data_(data) {}

    bool isWhole() const { return !problem_; }
    uint64_t place() const { return place_; }
    bool atEnd() const { return place_ >= data_.size(); }

    uint16_t takeWord() { return take(data_.word(place_), 2); }
    uint8_t takeByte() { return take(data_.byte(place_), 1); }

    void addByte(uint8_t byte) { result_.push_back(static_cast<std::byte>(byte)); }
    void addWord(uint16_t word)
    {
        addByte(static_cast<uint8_t>(word));
        addByte(static_cast<uint8_t>(word >> 8));
    }

    void words(size_t count)
    {
        for (; count > 0; --count)
            addWord(takeWord());
    }

    void bytes(uint64_t count)
    {
        auto part = isWhole() ? data_.part(place_, count) : std::nullopt;
        if (!part) {
            stop("the data ends within a text");
            return;
        }
        result_.insert(result_.end(), part->bytes().begin(), part->bytes().end());
        place_ += count;
    }

    void longWord()
    {
        uint16_t high = takeWord(), low = takeWord();
        addWord(low);
        addWord(high);
    }

    // The characters of a Pascal string and the terminator of a C string.
    void cString(uint8_t length)
    {
        auto part = isWhole() ? data_.part(place_, length) : std::nullopt;
        if (part && std::find(part->bytes().begin(), part->bytes().end(), std::byte{0}) != part->bytes().end())
            stop("a text has a NUL in it, which a C string cannot hold");
        bytes(length);
        addByte(0);
    }

    void field(FieldKind kind);

    // The first problem is the one that counts.
    void stop(const char *text)
    {
        if (!problem_)
            problem_ = Problem{data_.placeOf(place_), text};
    }

    std::variant<Bytes, Problem> result()
    {
        if (problem_)
            return *problem_;
        return std::move(result_);
    }

private:
    template <class Number> Number take(std::optional<Number> number, uint64_t size)
    {
        if (!isWhole() || !number) {
            stop("the data ends within a field");
            return 0;
        }
        place_ += size;
        return *number;
    }

    ByteView data_;
    uint64_t place_ = 0;
    Bytes result_;
    std::optional<Problem> problem_;
};

void Converter::field(FieldKind kind)
{
    switch (kind) {
    case FieldKind::Word: return words(1);
    case FieldKind::Rectangle: return words(4);
    case FieldKind::HighWordLong: return words(2);
    case FieldKind::Long: return longWord();
    case FieldKind::FlagByte: return bytes(2);
    case FieldKind::Flag: return addWord(takeWord() != 0);
    case FieldKind::CTitle: return cString(takeByte());
    case FieldKind::PascalTitle: {
        uint8_t length = takeByte();
        addByte(length);
        return bytes(length);
    }
    case FieldKind::PaddedTitle: {
        uint8_t length = takeByte();
        addByte(length);
        addByte(0);
        return cString(length);
    }
    }
}

void convertRecord(Converter &converter, const RecordForm &form)
{
    for (const Field &field : form.fields)
        converter.field(field.kind);
}

void convertStringList(Converter &converter)
{
    uint16_t count = converter.takeWord();
    converter.addWord(count);
    for (; count > 0 && converter.isWhole(); --count)
        converter.cString(converter.takeByte());
}

// A menu bar keeps its count, as a handle of it shows it, and has a word of 0 at its end.
void convertMenuBar(Converter &converter)
{
    uint16_t count = converter.takeWord();
    converter.addWord(count);
    for (; count > 0 && converter.isWhole(); --count)
        converter.words(1);
    converter.addWord(0);
}

void convertItemList(Converter &converter)
{
    uint16_t last = converter.takeWord();
    converter.addWord(last);
    for (unsigned left = static_cast<uint16_t>(last + 1); left > 0 && converter.isWhole(); --left) {
        constexpr uint64_t handleSize = 4;
        converter.bytes(handleSize);
        converter.words(4);
        uint8_t type = converter.takeByte(), length = converter.takeByte();
        converter.addByte(type);
        converter.addByte(length);
        if (itemHoldsID(type)) {
            converter.words(1);
            continue;
        }
        converter.bytes(length);
        if (length % 2 != 0 && !(left == 1 && converter.atEnd()))
            converter.bytes(1);
    }
}

// The image, the mask and the point of 16 rows each of one word.
void convertCursor(Converter &converter)
{
    constexpr size_t cursorWords = 16 + 16 + 2;
    converter.words(cursorWords);
}

void convertColorTable(Converter &converter)
{
    constexpr size_t entryWords = 4;
    converter.longWord();
    converter.words(1);
    uint16_t last = converter.takeWord();
    converter.addWord(last);
    for (unsigned left = static_cast<uint16_t>(last + 1); left > 0 && converter.isWhole(); --left)
        converter.words(entryWords);
}

struct Conversion {
    uint32_t type;
    void (*convert)(Converter &);
};

constexpr Conversion conversions[] = {
    {code("STR#"), convertStringList}, {code("MBAR"), convertMenuBar},    {code("DITL"), convertItemList},
    {code("CURS"), convertCursor},     {code("clut"), convertColorTable},
};

} // namespace

const RecordForm *findRecordForm(const std::string &typeName)
{
    for (const RecordForm &form : recordForms) {
        if (typeName == form.typeName)
            return &form;
    }
    return nullptr;
}

std::variant<Bytes, Problem> toSystemForm(uint32_t type, const ByteView &data)
{
    Converter converter(data);
    const RecordForm *form = findRecordForm(resources::TypeName(type).text());
    if (form) {
        convertRecord(converter, *form);
        return converter.result();
    }
    for (const Conversion &conversion : conversions) {
        if (conversion.type == type) {
            conversion.convert(converter);
            return converter.result();
        }
    }
    return Bytes(data.bytes().begin(), data.bytes().end());
}

const char *foreignForm(uint32_t type)
{
    switch (type) {
    case code("ALRT"): return "alerts have a form of their own here, with their items in it; the data is kept as it is";
    case code("MENU"): return "menus are MNUU and CMNU resources here, of another form; the data is kept as it is";
    case code("PICT"):
        return "pictures are device-independent bitmaps here, without opcodes; the data is kept as it is";
    default: return nullptr;
    }
}

} // namespace tool
