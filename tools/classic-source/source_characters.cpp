// Text in literals goes to the code page 1252, written as escapes that no compiler takes for another encoding. All
// else becomes UTF-8, which is what compilers read.
#include "characters.h"
#include "edits.h"

namespace classic {
namespace {

struct Character {
    size_t begin, end;
    char32_t value;
};

char32_t takeCharacter(std::string_view &text, Encoding encoding)
{
    if (encoding == Encoding::Utf8)
        return takeUtf8(text);
    auto byte = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    return fromMacRoman(byte);
}

// What is not plain ASCII between two places.
std::vector<Character> foreignCharacters(std::string_view text, size_t begin, size_t end, Encoding encoding)
{
    std::vector<Character> found;
    for (size_t position = begin; position < end;) {
        std::string_view rest = text.substr(position, end - position);
        char32_t value = takeCharacter(rest, encoding);
        size_t next = end - rest.size();
        if (value >= 0x80)
            found.push_back({position, next, value});
        position = next;
    }
    return found;
}

// 'TEXT' and its like are numbers in files and resources, and stay what they were.
bool isCode(std::string_view content, Encoding encoding)
{
    size_t count = 0;
    for (; !content.empty(); ++count) {
        if (content.front() == '\\')
            content.remove_prefix(escapeEnd(content, 0));
        else
            takeCharacter(content, encoding);
    }
    return count > 1;
}

void convertLiteral(Source &source, const Token &token, Encoding encoding)
{
    bool isCodeConstant = token.kind == TokenKind::Character && isCode(token.contentText(source.text), encoding);
    for (const Character &character : foreignCharacters(source.text, token.begin, token.end, encoding)) {
        auto byte = isCodeConstant ? toMacRoman(character.value) : toWindows1252(character.value);
        if (byte)
            source.edits.push_back({character.begin, character.end, octalEscape(*byte)});
        else
            source.report(token, "the character " + toUtf8(character.value) + " is not in the code page "
                                     + (isCodeConstant ? "of a Macintosh" : "1252"));
    }
}

void convertOther(Source &source, const Token &token)
{
    for (const Character &character : foreignCharacters(source.text, token.begin, token.end, Encoding::MacRoman)) {
        bool isSpace = token.kind == TokenKind::Blank;
        source.edits.push_back({character.begin, character.end, isSpace ? " " : toUtf8(character.value)});
    }
}

} // namespace

void convertCharacters(Source &source, Encoding encoding)
{
    for (const Token &token : source.tokens) {
        bool isLiteral = token.kind == TokenKind::String || token.kind == TokenKind::Character;
        if (isLiteral && !token.hasPrefix)
            convertLiteral(source, token, encoding);
        else if (encoding == Encoding::MacRoman)
            convertOther(source, token);
    }
}

} // namespace classic
