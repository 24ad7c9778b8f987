// Cuts a C or C++ source into tokens that together are the whole text. It knows no grammar: what it cannot read (text
// in a block that is compiled never, say) becomes punctuation and passes through.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace classic {

enum class TokenKind {
    Blank, // also the end of a line, and a line that goes on behind a backslash
    Comment,
    Identifier,
    Number,
    String,
    Character,
    RawString,
    Punctuation,
    Directive // a whole preprocessor line, but of a #define what stands before the macro's parameters and body
};

struct Token {
    TokenKind kind;
    size_t begin, end;
    unsigned line;       // where it begins, from 1
    unsigned definition; // counts the #define lines whose bodies hold it; 0 outside of them
    size_t content = 0;  // of a string or character constant: behind prefix and quote
    bool hasPrefix = false;

    std::string_view text(std::string_view source) const { return source.substr(begin, end - begin); }
    // Between the quotes.
    std::string_view contentText(std::string_view source) const { return source.substr(content, end - 1 - content); }
};

// Lines must end with line feeds. The views of the text are into the caller's.
std::vector<Token> tokenize(std::string_view text);

// How many bytes at the position join a line with the next: a backslash, blanks, the line's end; 0 if none do.
size_t spliceLength(std::string_view text, size_t position);

// The end of the escape sequence at a backslash.
size_t escapeEnd(std::string_view text, size_t backslash);

} // namespace classic
