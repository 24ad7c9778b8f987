// "\pText" becomes "\004Text": the length takes the place of the \p, and nothing else moves.
#include "characters.h"
#include "edits.h"

namespace classic {
namespace {

const size_t longestPascalString = 255;

// The bytes that the compiler makes of what stands between the quotes.
size_t byteCount(std::string_view content, Encoding encoding)
{
    size_t count = 0;
    for (size_t position = 0; position < content.size();) {
        if (size_t length = spliceLength(content, position)) {
            position += length;
            continue;
        }
        size_t end = content[position] == '\\' ? escapeEnd(content, position) : position + 1;
        bool isUniversal = end > position + 2 && (content[position + 1] == 'u' || content[position + 1] == 'U');
        if (isUniversal)
            count += toUtf8(static_cast<char32_t>(
                                std::stoul(std::string(content.substr(position + 2, end - position - 2)), nullptr, 16)))
                         .size();
        else if (encoding != Encoding::Utf8 || (content[position] & 0xC0) != 0x80) // each character becomes one byte
            ++count;
        position = end;
    }
    return count;
}

bool isStringType(std::string_view word) // Str255, Str31, ...
{
    return word.size() > 3 && word.starts_with("Str")
           && word.find_first_not_of("0123456789", 3) == std::string_view::npos;
}

bool isCharacterType(std::string_view word)
{
    return word == "char" || word == "UInt8" || word == "SInt8" || word == "Byte" || word == "uint8_t";
}

bool isStatementKeyword(std::string_view word)
{
    return word == "return" || word == "else" || word == "do" || word == "case" || word == "goto" || word == "throw";
}

class PascalLiterals {
public:
    PascalLiterals(Source &source, Encoding encoding)
        : source_(source), encoding_(encoding), places_(source.significantTokens()), enclosing_(places_.size(), none),
          opening_(places_.size(), none)
    {
        matchBrackets();
    }

    void run()
    {
        for (size_t i = 0; i < places_.size(); ++i) {
            if (isPascalLiteral(source_, token(i)))
                i = convert(i);
        }
    }

private:
    static constexpr size_t none = static_cast<size_t>(-1);

    const Token &token(size_t i) const { return source_.tokens[places_[i]]; }
    std::string_view text(size_t i) const { return token(i).text(source_.text); }
    bool is(size_t i, std::string_view what) const { return i < places_.size() && text(i) == what; }
    bool isWord(size_t i) const { return i < places_.size() && token(i).kind == TokenKind::Identifier; }

    // The literal and those that the compiler joins to it. The place of the last.
    size_t convert(size_t first)
    {
        const Token &literal = token(first);
        if (first > 0 && token(first - 1).kind == TokenKind::String
            && token(first - 1).definition == literal.definition) {
            source_.report(literal, "\\p does not begin the string, another literal does");
            return first;
        }
        size_t count = byteCount(literal.contentText(source_.text).substr(2), encoding_), last = first;
        for (size_t next = first + 1; isJoined(last, next); ++next) {
            if (!canJoin(next))
                return next;
            count += byteCount(token(next).contentText(source_.text), encoding_);
            last = next;
        }
        if (count > longestPascalString) {
            source_.report(literal, "a Pascal string of " + std::to_string(count) + " characters; 255 is the most");
            return last;
        }
        replace(first, last, count);
        return last;
    }

    // Preprocessor lines may stand between the two.
    bool isJoined(size_t last, size_t &next)
    {
        unsigned definition = token(last).definition;
        bool hasCrossed = false;
        while (!definition && next < places_.size()
               && (token(next).kind == TokenKind::Directive || token(next).definition)) {
            hasCrossed = true;
            ++next;
        }
        if (next >= places_.size() || token(next).definition != definition)
            return false;
        TokenKind kind = token(next).kind;
        bool goesOn = kind == TokenKind::String || kind == TokenKind::RawString || kind == TokenKind::Identifier
                      || (definition && is(next, "#"));
        if (goesOn && hasCrossed)
            crossing_ = next;
        return goesOn;
    }

    bool canJoin(size_t next)
    {
        const Token &token = this->token(next);
        if (crossing_ == next)
            source_.report(token, "a Pascal string goes on behind a preprocessor line, so its length depends on that");
        else if (token.kind != TokenKind::String || token.hasPrefix)
            source_.report(token, "a Pascal string is joined to " + std::string(text(next))
                                      + ", so its length cannot be told");
        else if (isPascalLiteral(source_, token))
            source_.report(token, "\\p does not begin the string, another literal does");
        else
            return true;
        return false;
    }

    void replace(size_t first, size_t last, size_t count)
    {
        const Token &literal = token(first);
        bool isPlain = initialisesArray(first);
        if (!isPlain)
            source_.edits.push_back({literal.begin, literal.begin, "MTBX_PASCAL_(" + std::to_string(count + 2) + ", "});
        source_.edits.push_back({literal.content, literal.content + 2, octalEscape(static_cast<unsigned char>(count))});
        if (!isPlain)
            source_.edits.push_back({token(last).end, token(last).end, ")"});
    }

    // Whether an array of characters is initialised, as far as the declaration shows it. A mistake shows when the
    // source is compiled, as a type that does not fit.
    bool initialisesArray(size_t literal) const
    {
        size_t braces = 0, place = literal;
        while (place > 0 && !is(place - 1, "=")) {
            place = enclosingBrace(place);
            if (place == none)
                return false;
            ++braces;
        }
        return place > 0 && declaresArrays(place - 1, braces);
    }

    // The brace that holds an element of a list; none if another bracket does or there is none.
    size_t enclosingBrace(size_t element) const
    {
        if (!is(element - 1, "{") && !is(element - 1, ","))
            return none;
        size_t open = enclosing_[element];
        return open != none && is(open, "{") ? open : none;
    }

    // A closing bracket without its like (branches of #if may each have one) closes nothing; one that has closes what
    // was left open within.
    void matchBrackets()
    {
        std::vector<size_t> outside, inDefinition;
        unsigned definition = 0;
        for (size_t i = 0; i < places_.size(); ++i) {
            if (token(i).definition != definition) {
                definition = token(i).definition;
                inDefinition.clear();
            }
            std::vector<size_t> &open = definition ? inDefinition : outside;
            bool isOpening = is(i, "(") || is(i, "[") || is(i, "{");
            if (is(i, ")") || is(i, "]") || is(i, "}"))
                closeBracket(i, open);
            enclosing_[i] = open.empty() ? none : open.back();
            if (isOpening)
                open.push_back(i);
        }
    }

    void closeBracket(size_t place, std::vector<size_t> &open)
    {
        std::string_view like = is(place, ")") ? "(" : is(place, "]") ? "[" : "{";
        for (size_t i = open.size(); i-- > 0;) {
            if (is(open[i], like)) {
                opening_[place] = open[i];
                open.resize(i);
                return;
            }
        }
    }

    // Whether elements at a depth of braces behind the sign are arrays: char name[], char names[][32], Str255 name.
    bool declaresArrays(size_t equals, size_t braces) const
    {
        size_t name = equals, dimensions = 0;
        while (name > 1 && is(name - 1, "]")) {
            size_t open = opening_[name - 1];
            if (open == none)
                return false;
            name = open;
            ++dimensions;
        }
        if (name < 2 || !isWord(name - 1))
            return false;
        size_t before = name - 2;
        if (size_t open = enclosing_[name - 1]; open != none && is(open, "("))
            return false; // a parameter
        if (isCharacterType(text(before)))
            return dimensions > 0;
        bool isDeclared = is(before, ",") || (isWord(before) && !isStatementKeyword(text(before)));
        if (isDeclared && dimensions > braces)
            return true;
        return !is(before, "*") && !is(before, "&") && namesStringType(before);
    }

    // Looks through the declaration that the place is in.
    bool namesStringType(size_t place) const
    {
        for (;; --place) {
            if (is(place, ";") || is(place, "{") || is(place, "}") || is(place, ")")
                || token(place).kind == TokenKind::Directive)
                return false;
            if (isStringType(text(place)))
                return true;
            if (place == 0)
                return false;
        }
    }

    Source &source_;
    Encoding encoding_;
    std::vector<size_t> places_;
    std::vector<size_t> enclosing_; // the bracket that each stands in
    std::vector<size_t> opening_;   // of closing brackets
    size_t crossing_ = none;        // where a string goes on behind a preprocessor line
};

} // namespace

bool isPascalLiteral(const Source &source, const Token &token)
{
    return token.kind == TokenKind::String && !token.hasPrefix && token.contentText(source.text).starts_with("\\p");
}

void convertPascalLiterals(Source &source, Encoding encoding)
{
    PascalLiterals(source, encoding).run();
}

} // namespace classic
