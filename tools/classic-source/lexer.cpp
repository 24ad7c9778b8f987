#include "lexer.h"

#include <algorithm>
#include <iterator>

namespace classic {
namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}
bool isLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '$';
}
bool isWordPart(char c)
{
    return isLetter(c) || isDigit(c);
}
// 0xCA is the space of a Macintosh's Option key, which editors put into sources unseen.
bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\xCA';
}

template <size_t count> bool isOneOf(std::string_view word, const std::string_view (&words)[count])
{
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

class Lexer {
public:
    explicit Lexer(std::string_view text) : text_(text) {}

    std::vector<Token> run()
    {
        while (position_ < text_.size())
            next();
        return std::move(tokens_);
    }

private:
    char at(size_t position) const { return position < text_.size() ? text_[position] : '\0'; }
    bool startsWith(size_t position, std::string_view what) const
    {
        return text_.substr(std::min(position, text_.size()), what.size()) == what;
    }

    Token &add(TokenKind kind, size_t end)
    {
        tokens_.push_back({kind, position_, end, line_, definition_});
        line_ += static_cast<unsigned>(std::count(text_.begin() + position_, text_.begin() + end, '\n'));
        position_ = end;
        if (kind != TokenKind::Blank && kind != TokenKind::Comment)
            isLineStart_ = false;
        return tokens_.back();
    }

    void next()
    {
        char c = at(position_);
        if (c == '\n') {
            endLine();
        } else if (size_t end = blankEnd(position_); end != position_) {
            add(TokenKind::Blank, end);
        } else if (startsWith(position_, "//") || startsWith(position_, "/*")) {
            add(TokenKind::Comment, commentEnd(position_));
        } else if (c == '#' && isLineStart_) {
            directive();
        } else if (isLetter(c)) {
            word();
        } else if (isDigit(c) || (c == '.' && isDigit(at(position_ + 1)))) {
            add(TokenKind::Number, numberEnd());
        } else if (c == '"' || c == '\'') {
            quoted(position_);
        } else {
            add(TokenKind::Punctuation, position_ + 1);
        }
    }

    void endLine()
    {
        definition_ = 0;
        add(TokenKind::Blank, position_ + 1);
        isLineStart_ = true;
    }

    size_t blankEnd(size_t position) const
    {
        for (;;) {
            if (isBlank(at(position)) && position < text_.size())
                ++position;
            else if (size_t length = spliceLength(text_, position))
                position += length;
            else
                return position;
        }
    }

    size_t commentEnd(size_t position) const
    {
        if (at(position + 1) == '*') {
            size_t end = text_.find("*/", position + 2);
            return end == std::string_view::npos ? text_.size() : end + 2;
        }
        return lineEnd(position, [](size_t here) { return here; });
    }

    // The line's end, with the lines that backslashes join to it. skip gives the end of what is passed as a whole.
    template <typename Skip> size_t lineEnd(size_t position, Skip skip) const
    {
        while (position < text_.size() && text_[position] != '\n') {
            if (size_t length = spliceLength(text_, position))
                position += length;
            else if (size_t end = skip(position); end != position)
                position = end;
            else
                ++position;
        }
        return position;
    }

    void directive()
    {
        size_t name = blankEnd(position_ + 1), end = wordEnd(name);
        std::string_view word = text_.substr(name, end - name);
        if (word == "define") {
            definition_ = ++definitionCount_;
            // With the macro's name, which is nobody's business.
            add(TokenKind::Directive, wordEnd(blankEnd(end)));
            return;
        }
        if (word == "if" && isZero(blankEnd(end))) {
            add(TokenKind::Directive, disabledEnd(end));
            return;
        }
        size_t header = blankEnd(end);
        if (at(header) == '<' && (word == "include" || word == "import")) {
            size_t close = text_.find_first_of(">\n", header);
            end = close == std::string_view::npos ? text_.size() : close;
        }
        add(TokenKind::Directive, proseEnd(end));
    }

    // The end of a line whose apostrophes and quotes need not match.
    size_t proseEnd(size_t position) const
    {
        return lineEnd(position, [this](size_t here) {
            if (startsWith(here, "/*") || startsWith(here, "//"))
                return commentEnd(here);
            size_t quote = at(here) == '"' ? quotedEnd(here) : 0;
            return quote ? quote : here;
        });
    }

    bool isZero(size_t position) const
    {
        size_t end = blankEnd(position + 1);
        return at(position) == '0' && (at(end) == '\n' || startsWith(end, "//") || startsWith(end, "/*"));
    }

    // The end of the last line that an #if 0 keeps from the compiler.
    size_t disabledEnd(size_t position) const
    {
        unsigned depth = 0;
        for (;;) {
            size_t end = proseEnd(position), line = blankEnd(end + 1);
            if (end >= text_.size())
                return end;
            if (at(line) == '#') {
                size_t name = blankEnd(line + 1);
                std::string_view word = text_.substr(name, wordEnd(name) - name);
                if (depth == 0 && (word == "else" || word.starts_with("elif") || word == "endif"))
                    return end;
                depth = depth + word.starts_with("if") - (word == "endif");
            }
            position = end + 1;
        }
    }

    size_t wordEnd(size_t position) const
    {
        while (isWordPart(at(position)))
            ++position;
        return position;
    }

    void word()
    {
        static const std::string_view prefixes[] = {"L", "u", "U", "u8"},
                                      rawPrefixes[] = {"R", "LR", "uR", "UR", "u8R"};
        size_t end = wordEnd(position_);
        std::string_view word = text_.substr(position_, end - position_);
        if (at(end) == '"' && isOneOf(word, rawPrefixes)) {
            if (size_t rawEnd = rawStringEnd(end)) {
                add(TokenKind::RawString, rawEnd);
                return;
            }
        }
        if ((at(end) == '"' || at(end) == '\'') && isOneOf(word, prefixes) && quotedEnd(end))
            quoted(end);
        else
            add(TokenKind::Identifier, end);
    }

    // 0 if there is no such string at the quote.
    size_t rawStringEnd(size_t quote) const
    {
        size_t open = text_.find_first_of("() \\\n\t\v\f\"", quote + 1);
        if (open == std::string_view::npos || text_[open] != '(' || open - quote > 17)
            return 0;
        std::string close = ')' + std::string(text_.substr(quote + 1, open - quote - 1)) + '"';
        size_t end = text_.find(close, open);
        return end == std::string_view::npos ? 0 : end + close.size();
    }

    // Behind the closing quote; 0 if the line ends first.
    size_t quotedEnd(size_t quote) const
    {
        for (size_t position = quote + 1; position < text_.size() && text_[position] != '\n';) {
            if (size_t length = spliceLength(text_, position))
                position += length;
            else if (text_[position] == '\\')
                position += 2;
            else if (text_[position++] == text_[quote])
                return position;
        }
        return 0;
    }

    void quoted(size_t quote)
    {
        size_t end = quotedEnd(quote);
        if (!end) {
            // The rest of the line is no code.
            add(TokenKind::Punctuation, lineEnd(quote, [](size_t here) { return here; }));
            return;
        }
        bool hasPrefix = quote != position_;
        Token &token = add(text_[quote] == '"' ? TokenKind::String : TokenKind::Character, end);
        token.content = quote + 1;
        token.hasPrefix = hasPrefix;
    }

    size_t numberEnd() const
    {
        size_t position = position_;
        for (;;) {
            char c = at(position), following = at(position + 1);
            bool isExponent = c == 'e' || c == 'E' || c == 'p' || c == 'P';
            if ((isExponent && (following == '+' || following == '-')) || (c == '\'' && isWordPart(following)))
                position += 2;
            else if (isWordPart(c) || c == '.')
                ++position;
            else
                return position;
        }
    }

    std::string_view text_;
    std::vector<Token> tokens_;
    size_t position_ = 0;
    unsigned line_ = 1;
    bool isLineStart_ = true;
    unsigned definition_ = 0, definitionCount_ = 0;
};

} // namespace

std::vector<Token> tokenize(std::string_view text)
{
    return Lexer(text).run();
}

size_t spliceLength(std::string_view text, size_t position)
{
    if (position >= text.size() || text[position] != '\\')
        return 0;
    size_t end = text.find_first_not_of(" \t\v\f", position + 1);
    return end != std::string_view::npos && text[end] == '\n' ? end + 1 - position : 0;
}

size_t escapeEnd(std::string_view text, size_t backslash)
{
    static const char hexadecimal[] = "0123456789abcdefABCDEF", octal[] = "01234567";
    size_t first = backslash + 1;
    auto digitsEnd = [&](const char *digits, size_t start, size_t most) {
        size_t end = std::min(text.find_first_not_of(digits, start), text.size());
        return std::min(end, start + most);
    };
    if (first >= text.size())
        return text.size();
    switch (text[first]) {
    case 'x': return digitsEnd(hexadecimal, first + 1, text.size());
    case 'u': return digitsEnd(hexadecimal, first + 1, 4);
    case 'U': return digitsEnd(hexadecimal, first + 1, 8);
    default: return std::max(digitsEnd(octal, first, 3), first + 1);
    }
}

} // namespace classic
