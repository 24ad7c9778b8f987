// The clipboard: formats, owners, promises, text in its forms.
#include "TestWindows.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstring>
#include <string>
#include <thread>

namespace {

HGLOBAL blockOf(const void *bytes, size_t size)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, size);
    memcpy(GlobalLock(block), bytes, size);
    GlobalUnlock(block);
    return block;
}

HGLOBAL textBlock(const std::string &text)
{
    return blockOf(text.c_str(), text.size() + 1);
}

std::string textOf(HANDLE block)
{
    if (!block)
        return "(none)";
    std::string text = static_cast<const char *>(GlobalLock(block));
    GlobalUnlock(block);
    return text;
}

std::vector<UINT> formats()
{
    std::vector<UINT> result;
    for (UINT format = EnumClipboardFormats(0); format; format = EnumClipboardFormats(format))
        result.push_back(format);
    return result;
}

class Clipboard : public testing::Test {
protected:
    ~Clipboard() override
    {
        CloseClipboard();
        OpenClipboard(nullptr);
        EmptyClipboard();
        CloseClipboard();
    }

    void put(HWND owner, UINT format, HANDLE data)
    {
        ASSERT_TRUE(OpenClipboard(owner));
        ASSERT_TRUE(EmptyClipboard());
        SetClipboardData(format, data);
        ASSERT_TRUE(CloseClipboard());
    }
    // Answers requests for what was promised with a text.
    void keepPromises(const std::string &text)
    {
        windows_.handler = [text](const TestWindows::Noted &noted, LRESULT &) {
            if (noted.message == WM_RENDERFORMAT)
                SetClipboardData(static_cast<UINT>(noted.wParam), textBlock(text));
            return noted.message == WM_RENDERFORMAT;
        };
    }
    std::vector<UINT> notedOf(HWND window)
    {
        return windows_.notedOf(window, {WM_RENDERFORMAT, WM_RENDERALLFORMATS, WM_DESTROYCLIPBOARD, WM_DESTROY});
    }

    TestWindows windows_;
    HWND first_ = windows_.make(WS_POPUP, {0, 0, 20, 20});
    HWND second_ = windows_.make(WS_POPUP, {0, 0, 20, 20});
    UINT own_ = RegisterClipboardFormatA("Clipboard test");
};

TEST_F(Clipboard, IsOpenForOneWindowAtATime)
{
    EXPECT_FALSE(CloseClipboard());
    EXPECT_EQ(GetLastError(), DWORD{ERROR_CLIPBOARD_NOT_OPEN});
    EXPECT_FALSE(EmptyClipboard());
    HGLOBAL block = textBlock("x");
    EXPECT_EQ(SetClipboardData(CF_TEXT, block), nullptr);
    EXPECT_EQ(GlobalFree(block), nullptr); // still the caller's
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr);
    EXPECT_EQ(EnumClipboardFormats(0), 0u);

    EXPECT_TRUE(OpenClipboard(first_));
    EXPECT_TRUE(OpenClipboard(first_));
    EXPECT_EQ(GetOpenClipboardWindow(), first_);
    EXPECT_FALSE(OpenClipboard(second_));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_FALSE(OpenClipboard(nullptr));
    std::thread([] { EXPECT_FALSE(OpenClipboard(nullptr)); }).join();
    EXPECT_TRUE(CloseClipboard());
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    EXPECT_FALSE(OpenClipboard(reinterpret_cast<HWND>(uintptr_t{0x123456})));
}

TEST_F(Clipboard, BelongsToWhoEmptiedItAndTellsTheOneBefore)
{
    put(first_, own_, textBlock("one"));
    EXPECT_EQ(GetClipboardOwner(), first_);
    ASSERT_TRUE(OpenClipboard(second_));
    EXPECT_EQ(textOf(GetClipboardData(own_)), "one");
    EXPECT_EQ(GetClipboardOwner(), first_);
    EmptyClipboard();
    EXPECT_EQ(notedOf(first_), std::vector<UINT>{WM_DESTROYCLIPBOARD});
    EXPECT_EQ(GetClipboardOwner(), second_);
    EXPECT_FALSE(IsClipboardFormatAvailable(own_));
    CloseClipboard();
    put(nullptr, own_, textBlock("nobody's"));
    EXPECT_EQ(GetClipboardOwner(), nullptr);
    EXPECT_TRUE(IsClipboardFormatAvailable(own_));
}

TEST_F(Clipboard, TextInOneFormatCanBeHadInAll)
{
    put(first_, CF_TEXT, textBlock("caf\xe9"));
    EXPECT_EQ(CountClipboardFormats(), 4);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_EQ(formats(), (std::vector<UINT>{CF_TEXT, CF_LOCALE, CF_OEMTEXT, CF_UNICODETEXT}));
    HANDLE wide = GetClipboardData(CF_UNICODETEXT);
    ASSERT_TRUE(wide);
    const WCHAR expected[] = {'c', 'a', 'f', 0xe9, 0};
    EXPECT_EQ(memcmp(GlobalLock(wide), expected, sizeof expected), 0);
    GlobalUnlock(wide);
    EXPECT_EQ(GetClipboardData(CF_UNICODETEXT), wide);
    EXPECT_EQ(GetClipboardData(CF_DIB), nullptr);
}

TEST_F(Clipboard, PromisesAreKeptWhenTheyAreAskedFor)
{
    put(first_, CF_TEXT, nullptr);
    keepPromises("late");
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
    EXPECT_TRUE(notedOf(first_).empty());
    ASSERT_TRUE(OpenClipboard(nullptr));
    HANDLE wide = GetClipboardData(CF_UNICODETEXT);
    ASSERT_TRUE(wide);
    EXPECT_EQ(*static_cast<const WCHAR *>(GlobalLock(wide)), L'l');
    GlobalUnlock(wide);
    EXPECT_EQ(textOf(GetClipboardData(CF_TEXT)), "late");
    EXPECT_EQ(notedOf(first_), std::vector<UINT>{WM_RENDERFORMAT});
    EXPECT_EQ(windows_.noted.back().wParam, WPARAM{CF_TEXT});
}

TEST_F(Clipboard, ABrokenPromiseIsNoData)
{
    put(first_, own_, nullptr);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_EQ(GetClipboardData(own_), nullptr);
    EXPECT_EQ(notedOf(first_), std::vector<UINT>{WM_RENDERFORMAT});
}

TEST_F(Clipboard, AnOwnerKeepsItsPromisesBeforeItEnds)
{
    ASSERT_TRUE(OpenClipboard(first_));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, nullptr);
    SetClipboardData(own_, nullptr);
    CloseClipboard();
    windows_.handler = [](const TestWindows::Noted &noted, LRESULT &) {
        if (noted.message != WM_RENDERALLFORMATS)
            return false;
        OpenClipboard(noted.window);
        SetClipboardData(CF_TEXT, textBlock("last words"));
        CloseClipboard();
        return true;
    };
    DestroyWindow(first_);
    EXPECT_EQ(notedOf(first_), (std::vector<UINT>{WM_RENDERALLFORMATS, WM_DESTROY}));
    EXPECT_EQ(GetClipboardOwner(), nullptr);
    EXPECT_FALSE(IsClipboardFormatAvailable(own_));
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_EQ(textOf(GetClipboardData(CF_TEXT)), "last words");
}

} // namespace
