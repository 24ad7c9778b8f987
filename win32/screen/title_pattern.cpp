#include "title_pattern.h"

namespace win32::screen {

bool matchesTitle(std::string_view pattern, std::string_view title)
{
    constexpr size_t none = std::string_view::npos;
    size_t inPattern = 0, inTitle = 0, star = none, resume = 0;
    while (inTitle < title.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == '*') {
            star = inPattern++;
            resume = inTitle;
        } else if (inPattern < pattern.size() && pattern[inPattern] == title[inTitle]) {
            ++inPattern;
            ++inTitle;
        } else if (star != none) {
            inPattern = star + 1;
            inTitle = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', inPattern) == none;
}

} // namespace win32::screen
