// Makes of a source written for the Macintosh one that any compiler takes. All that need not change stays as it is,
// byte for byte and line for line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace classic {

enum class Encoding {
    Unchanged,
    MacRoman, // of the source; the text in its literals is converted to the code page 1252
    Utf8      // the same
};

struct Options {
    std::string name; // of the source, for compilers' messages
    Encoding encoding = Encoding::Unchanged;
    bool narrowsLong = false; // long becomes int
};

struct Problem {
    unsigned line;
    std::string text;
};

struct Conversion {
    std::string text; // not to be used if there are problems
    std::vector<Problem> problems;
};

Conversion convert(std::string_view source, const Options &options);

// The literals that a compiler without Pascal strings takes wrongly.
std::vector<Problem> findPascalLiterals(std::string_view source);

} // namespace classic
