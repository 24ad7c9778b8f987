// Sources written for the Macintosh: any text has a result with as many lines, whose length grows by what its literals
// need, and tokens are the whole of it.
#include "conversion.h"
#include "lexer.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void check(bool holds)
{
    if (!holds)
        abort();
}

size_t lineCount(std::string_view text)
{
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string text(reinterpret_cast<const char *>(data), size);
    std::replace(text.begin(), text.end(), '\r', '\n');
    size_t end = 0, wanted = size;
    for (const classic::Token &token : classic::tokenize(text)) {
        check(token.begin == end && token.end > end && token.end <= size);
        end = token.end;
        wanted += token.kind == classic::TokenKind::String ? 32 : 0;
    }
    check(end == size);

    size_t lines = lineCount(text) + lineCount(classic::convert("", {}).text);
    for (auto encoding : {classic::Encoding::Unchanged, classic::Encoding::MacRoman, classic::Encoding::Utf8}) {
        classic::Options options;
        options.encoding = encoding;
        options.narrowsLong = encoding != classic::Encoding::Unchanged;
        std::string result = classic::convert(text, options).text;
        check(lineCount(result) == lines && result.size() < 1000 + 4 * wanted);
    }
    classic::findPascalLiterals(text);
    return 0;
}
