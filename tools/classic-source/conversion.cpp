#include "edits.h"

#include <algorithm>

namespace classic {
namespace {

// A Pascal literal becomes MTBX_PASCAL_(its size, the literal). In C++ that has the type that its users expect; C is
// not so strict. One that initialises an array stands alone, since only a plain literal may.
const char prelude[] = "#ifndef MTBX_CLASSIC_SOURCE\n"
                       "#define MTBX_CLASSIC_SOURCE\n"
                       "#ifdef __cplusplus\n"
                       "#define MTBX_PASCAL_(size, text) ((unsigned char(&)[size])text)\n"
                       "#else\n"
                       "#define MTBX_PASCAL_(size, text) text\n"
                       "#endif\n"
                       "#endif\n";

std::string withLineFeeds(std::string_view text)
{
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    std::string result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r')
            result += text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            result += '\n';
    }
    return result;
}

std::string lineDirective(std::string_view name)
{
    std::string result = "#line 1 \"";
    for (char c : name) {
        if (c == '\\' || c == '"')
            result += '\\';
        result += c;
    }
    return result + "\"\n";
}

std::string applied(std::string_view text, std::vector<Edit> &edits)
{
    std::stable_sort(edits.begin(), edits.end(), [](const Edit &a, const Edit &b) { return a.begin < b.begin; });
    std::string result;
    size_t position = 0;
    for (const Edit &edit : edits) {
        result += text.substr(position, edit.begin - position);
        result += edit.replacement;
        position = edit.end;
    }
    result += text.substr(position);
    return result;
}

} // namespace

std::vector<size_t> Source::significantTokens() const
{
    std::vector<size_t> places;
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].kind != TokenKind::Blank && tokens[i].kind != TokenKind::Comment)
            places.push_back(i);
    }
    return places;
}

std::string octalEscape(unsigned char byte)
{
    auto digit = [byte](int shift) { return static_cast<char>('0' + (byte >> shift & 7)); };
    return {'\\', digit(6), digit(3), digit(0)}; // all three, as another digit may follow
}

Conversion convert(std::string_view original, const Options &options)
{
    std::string text = withLineFeeds(original);
    Source source{text, tokenize(text), {}, {}};
    convertPascalLiterals(source, options.encoding);
    if (options.encoding != Encoding::Unchanged)
        convertCharacters(source, options.encoding);
    if (options.narrowsLong)
        narrowLong(source);
    std::stable_sort(source.problems.begin(), source.problems.end(),
                     [](const Problem &a, const Problem &b) { return a.line < b.line; });
    return {prelude + lineDirective(options.name) + applied(text, source.edits), std::move(source.problems)};
}

std::vector<Problem> findPascalLiterals(std::string_view original)
{
    std::string text = withLineFeeds(original);
    Source source{text, tokenize(text), {}, {}};
    for (const Token &token : source.tokens) {
        if (isPascalLiteral(source, token))
            source.report(token, "a Pascal string, whose length byte not every compiler makes");
    }
    return std::move(source.problems);
}

} // namespace classic
