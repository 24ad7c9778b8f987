// Resources whose form differs from the published one here: multi-byte fields in the order of the processor,
// C strings for Pascal strings.
#pragma once

#include "fork/byte_view.h"
#include "fork/problem.h"
#include "resource.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace tool {

// How a record's field is published, and how it is kept here.
enum class FieldKind {
    Word,
    Flag,     // a byte and a filler; here a word
    FlagByte, // a byte and a filler, in both
    Long,
    HighWordLong, // here its high word comes first
    Rectangle,    // four words
    CTitle,       // a Pascal string; here a C string
    PascalTitle,  // a Pascal string, in both
    PaddedTitle   // a Pascal string; here with a byte of 0 behind its length and one behind its text
};

struct Field {
    const char *name;
    FieldKind kind;
};

struct RecordForm {
    const char *typeName; // as modules name it
    std::span<const Field> fields;
};

// Null for a type that is no plain record.
const RecordForm *findRecordForm(const std::string &typeName);

// Items of a dialog's list.
constexpr unsigned itemTypeMask = 0x7f;
constexpr bool itemHoldsID(unsigned type)
{
    return (type & itemTypeMask) == 32 || (type & itemTypeMask) == 64;
}

// The data of a published resource in the form of this system; of a type without a form of its own it is the
// same. A problem's place is in the file.
std::variant<Bytes, forks::Problem> toSystemForm(uint32_t type, const forks::ByteView &data);

// What to tell of a type whose form here cannot be made from the published one; null for any other.
const char *foreignForm(uint32_t type);

} // namespace tool
