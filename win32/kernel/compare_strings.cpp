// Comparing texts by their characters: signs before digits before letters, letters without regard to case.
#include "code_pages.h"
#include "kernel_internal.h"

#include <cstring>
#include <cwctype>
#include <optional>

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

// The order of two texts as it shows from their beginnings on.
class Order {
public:
    // False when the characters decide.
    bool areEqual(unsigned left, unsigned right)
    {
        if (left == right)
            return true;
        unsigned leftWeight = weightOf(static_cast<char16_t>(left)),
                 rightWeight = weightOf(static_cast<char16_t>(right));
        if (leftWeight != rightWeight) {
            byLetters_ = leftWeight < rightWeight ? -1 : 1;
            return false;
        }
        // A small letter comes before its capital, and has the higher number.
        if (byCase_ == 0)
            byCase_ = left > right ? -1 : 1;
        return true;
    }

    int result(bool withCase) const { return byLetters_ != 0 || !withCase ? byLetters_ : byCase_; }

private:
    int byLetters_ = 0;
    int byCase_ = 0;
};

int compareCharacters(const std::u16string &left, const std::u16string &right, bool withCase)
{
    Order order;
    for (size_t place = 0; order.areEqual(left[place], right[place]) && left.c_str()[place]; ++place) {
    }
    return order.result(withCase);
}

// ASCII texts need no conversion. Null when another character comes before the order is known.
std::optional<int> compareAscii(const char *left, const char *right, bool withCase)
{
    Order order;
    for (;; ++left, ++right) {
        auto first = static_cast<unsigned char>(*left), second = static_cast<unsigned char>(*right);
        if (first >= 0x80 || second >= 0x80)
            return std::nullopt;
        if (!order.areEqual(first, second) || first == 0)
            return order.result(withCase);
    }
}

int compare(LPCSTR left, LPCSTR right, bool withCase)
{
    if (!left || !right)
        return left ? 1 : right ? -1 : 0;
    if (auto order = compareAscii(left, right, withCase))
        return *order;
    // Without memory for the characters the bytes still tell equal from unequal.
    return guarded(strcmp(left, right),
                   [=] { return compareCharacters(utf16FromAnsi(left), utf16FromAnsi(right), withCase); });
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
