#include "display_clipboard.h"

#include "kernel/code_pages.h"
#include "user/clipboard.h"

#include <utility>

namespace win32::screen {
namespace {

std::string withLineFeeds(const std::u16string &text)
{
    std::u16string result;
    for (size_t i = 0; i < text.size(); ++i) {
        bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!isPair)
            result.push_back(text[i] == '\r' ? u'\n' : text[i]);
    }
    return utf8FromUtf16(result);
}

std::u16string withPairs(const std::u16string &text)
{
    std::u16string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            result.push_back('\r');
        result.push_back(text[i]);
    }
    return result;
}

} // namespace

void DisplayClipboard::give(const std::u16string &text)
{
    std::string outside = withLineFeeds(text);
    if (outside == common_)
        return;
    common_ = outside;
    sdl_.SetClipboardText(outside.c_str());
}

void DisplayClipboard::share()
{
    DWORD now = user::clipboard::generation();
    if (now == generation_)
        return;
    generation_ = now;
    std::u16string text;
    hasPromise_ = !user::clipboard::text(text, user::clipboard::Promises::Left);
    if (!hasPromise_)
        give(text);
}

void DisplayClipboard::sharePromised()
{
    share();
    std::u16string text;
    if (std::exchange(hasPromise_, false) && user::clipboard::text(text, user::clipboard::Promises::CalledIn))
        give(text);
}

bool DisplayClipboard::fetch()
{
    if (!sdl_.HasClipboardText())
        return true;
    char *found = sdl_.GetClipboardText();
    std::string outside = found ? found : "";
    sdl_.free(found);
    std::u16string text;
    if (outside.empty() || outside == common_ || !utf16FromUtf8(outside, text))
        return true;
    if (!user::clipboard::replaceByText(withPairs(text)))
        return false;
    common_ = outside;
    generation_ = user::clipboard::generation();
    hasPromise_ = false;
    return true;
}

} // namespace win32::screen
