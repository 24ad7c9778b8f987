// What the parts of a conversion want changed in the text.
#pragma once

#include "conversion.h"
#include "lexer.h"

namespace classic {

struct Edit {
    size_t begin, end;
    std::string replacement;
};

// A text in tokens, with what is found and to be changed.
struct Source {
    std::string_view text;
    std::vector<Token> tokens;
    std::vector<Edit> edits; // none overlaps another
    std::vector<Problem> problems;

    void report(const Token &token, std::string problem) { problems.push_back({token.line, std::move(problem)}); }
    // The tokens without blanks and comments, by their places in tokens.
    std::vector<size_t> significantTokens() const;
};

bool isPascalLiteral(const Source &source, const Token &token);

void convertPascalLiterals(Source &source, Encoding encoding);
void convertCharacters(Source &source, Encoding encoding);
void narrowLong(Source &source);

std::string octalEscape(unsigned char byte);

} // namespace classic
