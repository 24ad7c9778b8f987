// "long" becomes "int", which is as wide as the Toolbox's SInt32 on every system that the library knows.
#include "edits.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

namespace classic {
namespace {

enum class Word { Other, Long, Int, Floating, Neutral };

Word kindOf(std::string_view word)
{
    static const std::string_view neutral[] = {"unsigned", "signed", "short",    "const",  "volatile",
                                               "static",   "extern", "register", "inline", "typedef"};
    if (word == "long")
        return Word::Long;
    if (word == "int")
        return Word::Int;
    if (word == "double" || word == "float")
        return Word::Floating;
    return std::find(std::begin(neutral), std::end(neutral), word) != std::end(neutral) ? Word::Neutral : Word::Other;
}

// The words that together name one type, such as "const unsigned long int".
struct TypeWords {
    std::vector<size_t> longs; // places of tokens
    bool hasInt = false, isFloating = false;

    void add(size_t place, Word word)
    {
        if (word == Word::Long)
            longs.push_back(place);
        hasInt |= word == Word::Int;
        isFloating |= word == Word::Floating;
    }
};

void narrow(Source &source, const TypeWords &words)
{
    if (words.longs.size() != 1 || words.isFloating)
        return;
    const Token &token = source.tokens[words.longs.front()];
    source.edits.push_back({token.begin, token.end, words.hasInt ? "" : "int"});
}

// 10L is as wide as long was. One that does not fit in 32 bits keeps its letter.
void narrowNumber(Source &source, const Token &token)
{
    std::string_view text = token.text(source.text);
    bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    size_t digits = isHexadecimal ? 2 : 0;
    size_t suffix =
        std::min(text.find_first_not_of(isHexadecimal ? "0123456789abcdefABCDEF" : "0123456789", digits), text.size());
    std::string letters(text.substr(suffix));
    std::transform(letters.begin(), letters.end(), letters.begin(), [](char c) { return c == 'l' ? 'L' : c; });
    if (letters != "L" && letters != "uL" && letters != "UL" && letters != "Lu" && letters != "LU")
        return;
    uint32_t value;
    int base = isHexadecimal ? 16 : text[0] == '0' ? 8 : 10;
    auto [end, error] = std::from_chars(text.data() + digits, text.data() + suffix, value, base);
    if (error != std::errc() || end != text.data() + suffix)
        return;
    size_t letter = token.begin + suffix + letters.find('L');
    source.edits.push_back({letter, letter + 1, ""});
}

bool isHash(const Source &source, const std::vector<size_t> &places, size_t i)
{
    return i < places.size() && source.tokens[places[i]].text(source.text) == "#";
}

} // namespace

void narrowLong(Source &source)
{
    std::vector<size_t> places = source.significantTokens();
    TypeWords words;
    unsigned definition = 0;
    auto endType = [&] {
        narrow(source, words);
        words = {};
    };
    for (size_t i = 0; i < places.size(); ++i) {
        const Token &token = source.tokens[places[i]];
        Word word = token.kind == TokenKind::Identifier ? kindOf(token.text(source.text)) : Word::Other;
        bool isPasted = isHash(source, places, i + 1) || (i > 0 && isHash(source, places, i - 1));
        if (word == Word::Other || isPasted || token.definition != definition)
            endType();
        definition = token.definition;
        if (word != Word::Other && !isPasted)
            words.add(places[i], word);
        else if (token.kind == TokenKind::Number && !isPasted)
            narrowNumber(source, token);
    }
    endType();
}

} // namespace classic
