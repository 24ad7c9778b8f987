// Comparing texts by their characters: signs before digits before letters, letters without regard to case.
#include "code_pages.h"
#include "kernel_internal.h"

#include <cwctype>

#include <locale.h>

namespace {

using namespace win32;

const locale_t characterLocale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);

// Signs, digits and letters apart; the letters in the order of their capitals.
unsigned weightOf(char16_t character)
{
    bool isLetter = false, isDigit = false;
    wint_t folded = character;
    if (character < 0x80) {
        isDigit = character >= '0' && character <= '9';
        char lower = lowerAscii(static_cast<char>(character));
        isLetter = lower >= 'a' && lower <= 'z';
        folded = isLetter ? static_cast<wint_t>(lower - ('a' - 'A')) : character;
    } else if (characterLocale) {
        isLetter = iswalpha_l(character, characterLocale);
        folded = towupper_l(character, characterLocale);
    }
    unsigned kind = isLetter ? 2 : isDigit ? 1 : 0;
    return kind << 24 | folded;
}

template <class Text> int compareFolded(const Text &left, const Text &right)
{
    size_t place = 0;
    for (; place < left.size() && place < right.size(); ++place) {
        unsigned first = weightOf(static_cast<char16_t>(left[place]));
        unsigned second = weightOf(static_cast<char16_t>(right[place]));
        if (first != second)
            return first < second ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

// Texts that differ in case only: a small letter comes before its capital, and has the higher number.
template <class Text> int compareCase(const Text &left, const Text &right)
{
    int order = left.compare(right);
    return order > 0 ? -1 : order < 0 ? 1 : 0;
}

template <class Text> int compareAll(const Text &left, const Text &right, bool withCase)
{
    int order = compareFolded(left, right);
    return order == 0 && withCase ? compareCase(left, right) : order;
}

bool isAscii(std::string_view text)
{
    for (char character : text) {
        if (static_cast<signed char>(character) < 0)
            return false;
    }
    return true;
}

int compare(LPCSTR left, LPCSTR right, bool withCase)
{
    if (!left || !right)
        return left ? 1 : right ? -1 : 0;
    std::string_view first = left, second = right;
    if (isAscii(first) && isAscii(second))
        return compareAll(first, second, withCase);
    // Without memory for the characters the bytes still tell equal from unequal.
    return guarded(first.compare(second),
                   [&] { return compareAll(utf16FromAnsi(first), utf16FromAnsi(second), withCase); });
}

} // namespace

int lstrcmpA(LPCSTR left, LPCSTR right)
{
    return compare(left, right, true);
}

int lstrcmpiA(LPCSTR left, LPCSTR right)
{
    return compare(left, right, false);
}
