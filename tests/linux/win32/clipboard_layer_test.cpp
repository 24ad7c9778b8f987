// The clipboard where the layer is stricter than other platforms, and when memory is short.
#include <win32/control.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

HGLOBAL blockOf(const char *bytes, size_t size)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    memcpy(GlobalLock(block), bytes, size);
    GlobalUnlock(block);
    return block;
}

std::string textIn(UINT format)
{
    HANDLE block = GetClipboardData(format);
    if (!block)
        return "(none)";
    std::string text = static_cast<const char *>(GlobalLock(block));
    GlobalUnlock(block);
    return text;
}

class ClipboardLayer : public testing::Test {
protected:
    ClipboardLayer()
    {
        OpenClipboard(nullptr);
        EmptyClipboard();
    }
    ~ClipboardLayer() override
    {
        Win32Control_Reset();
        EmptyClipboard();
        CloseClipboard();
    }
    static void reopen()
    {
        CloseClipboard();
        OpenClipboard(nullptr);
    }
};

TEST_F(ClipboardLayer, ANewTextTakesThePlaceOfAllThatWasMadeOfTheOldOne)
{
    SetClipboardData(CF_TEXT, blockOf("old", 4));
    reopen();
    EXPECT_EQ(textIn(CF_OEMTEXT), "old");
    SetClipboardData(CF_TEXT, blockOf("new", 3)); // its end is the block's
    reopen();
    EXPECT_EQ(textIn(CF_OEMTEXT), "new");
}

TEST_F(ClipboardLayer, HoldsNothingOnceItIsEmptied)
{
    SIZE_T bytes, blocks, bytesNow, blocksNow;
    Win32Control_HeldMemory(&bytes, &blocks);
    SetClipboardData(CF_TEXT, blockOf("text", 5));
    SetClipboardData(CF_TEXT, blockOf("again", 6));
    SetClipboardData(CF_BITMAP, CreateBitmap(8, 8, 1, 1, nullptr));
    reopen();
    textIn(CF_UNICODETEXT);
    EmptyClipboard();
    Win32Control_HeldMemory(&bytesNow, &blocksNow);
    EXPECT_EQ(bytesNow, bytes);
    EXPECT_EQ(blocksNow, blocks);
}

TEST_F(ClipboardLayer, AConversionThatFindsNoMemoryCanBeAskedForAgain)
{
    SetClipboardData(CF_TEXT, blockOf("text", 5));
    reopen();
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_GLOBAL, 1, WIN32_WITHOUT_END, 0);
    EXPECT_EQ(textIn(CF_OEMTEXT), "(none)");
    Win32Control_AllowAllocations(WIN32_ALLOCATION_GLOBAL);
    EXPECT_EQ(textIn(CF_OEMTEXT), "text");
}

} // namespace
