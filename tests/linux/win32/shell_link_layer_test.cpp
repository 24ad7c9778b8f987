// Link files as other programs write them, damaged ones, and what the layer makes of them on its disk.
#include "ShellLink.h"
#include "TemporaryFolder.h"

#include <win32/control.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr size_t flagsOffset = 20, headerSize = 76;

template <class Value> std::string bytesOf(Value value)
{
    return std::string(reinterpret_cast<const char *>(&value), sizeof value);
}

class LinkLayer : public testing::Test {
protected:
    LinkLayer() : folder_("layer-links"), target_(folder_.path("target.txt"))
    {
        native_ = folder_.path().substr(2) + "/";
        std::replace(native_.begin(), native_.end(), '\\', '/');
        folder_.write("target.txt", "content");
    }
    ~LinkLayer() override { Win32Control_Reset(); }

    // A link with every part that the layer writes.
    std::string fullLink()
    {
        ShellLink link;
        link->SetPath(target_.c_str());
        link->SetDescription("description");
        link->SetArguments("arguments");
        link->SetWorkingDirectory("C:\\windows");
        link->SetIconLocation("C:\\icon", 1);
        EXPECT_EQ(link.save(folder_.path("full.lnk")), S_OK);
        return folder_.read("full.lnk");
    }

    HRESULT loadBytes(const ShellLink &link, const std::string &bytes)
    {
        folder_.write("bytes.lnk", bytes);
        return link.load(folder_.path("bytes.lnk"));
    }

    // The header of a link file with other flags, and nothing behind it.
    std::string header(DWORD flags) { return fullLink().substr(0, headerSize).replace(flagsOffset, 4, bytesOf(flags)); }

    ComThread com_;
    TemporaryFolder folder_;
    std::string target_, native_;
};

// The place of the info: behind the header and the item list.
size_t infoOffset(const std::string &bytes)
{
    uint16_t listSize;
    memcpy(&listSize, &bytes[headerSize], sizeof listSize);
    return headerSize + sizeof listSize + listSize;
}

TEST_F(LinkLayer, AnsiFormsAreRead)
{
    std::string path = "C:\\\xe4.txt";
    path += '\0';
    std::string volume = bytesOf(17u) + bytesOf(3u) + bytesOf(0u) + bytesOf(16u) + std::string(1, '\0');
    DWORD suffix = static_cast<DWORD>(28 + volume.size() + path.size());
    std::string info = bytesOf(suffix + 1) + bytesOf(28u) + bytesOf(1u) + bytesOf(28u)
                       + bytesOf(static_cast<DWORD>(28 + volume.size())) + bytesOf(0u) + bytesOf(suffix) + volume + path
                       + '\0';
    std::string texts = bytesOf(uint16_t{3}) + "d\xfcr" + bytesOf(uint16_t{2}) + "-x";
    ShellLink link;
    ASSERT_EQ(loadBytes(link, header(2 | 4 | 0x20) + info + texts), S_OK);
    EXPECT_EQ(link.path(), "C:\\\xe4.txt");
    EXPECT_EQ(link.text(&IShellLinkA::GetDescription), "d\xfcr");
    EXPECT_EQ(link.text(&IShellLinkA::GetArguments), "-x");
}

// A value that is none of the three counts as the first.
TEST_F(LinkLayer, TheShowCommandIsReadBack)
{
    constexpr size_t showCommandOffset = 60;
    for (auto [written, expected] : {std::pair(1, 1), {3, 3}, {7, 7}, {99, 1}}) {
        ShellLink link;
        int command = 0;
        EXPECT_EQ(loadBytes(link, fullLink().replace(showCommandOffset, 4, bytesOf(written))), S_OK);
        EXPECT_EQ(link->GetShowCmd(&command), S_OK);
        EXPECT_EQ(command, expected);
    }
}

TEST_F(LinkLayer, ANetworkTargetIsItsShareAndThePathBelow)
{
    std::string share = std::string("\\\\server\\share") + '\0';
    std::string network =
        bytesOf(static_cast<DWORD>(20 + share.size())) + bytesOf(0u) + bytesOf(20u) + bytesOf(0u) + bytesOf(0u) + share;
    DWORD suffix = static_cast<DWORD>(28 + network.size());
    std::string info = bytesOf(suffix + 6) + bytesOf(28u) + bytesOf(2u) + bytesOf(0u) + bytesOf(0u) + bytesOf(28u)
                       + bytesOf(suffix) + network + "a\\b.c" + '\0';
    ShellLink link;
    ASSERT_EQ(loadBytes(link, header(2) + info), S_OK);
    EXPECT_EQ(link.path(), "\\\\server\\share\\a\\b.c");
    EXPECT_EQ(link->Resolve(nullptr, SLR_NO_UI), HRESULT_FROM_WIN32(ERROR_BAD_NETPATH));
}

TEST_F(LinkLayer, AnItemListAloneTellsThePath)
{
    std::string bytes = fullLink(), list = bytes.substr(headerSize, infoOffset(bytes) - headerSize);
    ShellLink link;
    ASSERT_EQ(loadBytes(link, header(1) + list), S_OK);
    EXPECT_EQ(link.path(), target_);
    // Without the block of the long name the short one serves.
    for (size_t place = 0; (place = list.find("\x04\x00\xef\xbe", place, 4)) != std::string::npos;)
        list[place] = 0;
    ASSERT_EQ(loadBytes(link, header(1) + list), S_OK);
    EXPECT_EQ(link.path(), target_);
    constexpr size_t driveLetterOffset = 25;
    list[driveLetterOffset] = 0;
    ASSERT_EQ(loadBytes(link, header(1) + list), S_OK);
    EXPECT_EQ(link.path(), "") << "a list that starts elsewhere names no file";
}

TEST_F(LinkLayer, VariablesAreReplacedUnlessAskedForRaw)
{
    setenv("LINK_TEST_FOLDER", folder_.path().c_str(), 1);
    ShellLink link, read;
    ASSERT_EQ(link->SetPath("%LINK_TEST_FOLDER%\\target.txt"), S_OK);
    ASSERT_EQ(link.save(folder_.path("v.lnk")), S_OK);
    ASSERT_EQ(read.load(folder_.path("v.lnk")), S_OK);
    EXPECT_EQ(read.path(), target_);
    EXPECT_EQ(read.path(SLGP_RAWPATH), "%LINK_TEST_FOLDER%\\target.txt");
    link->SetPath("%windir%\\%no such%\\50%");
    EXPECT_EQ(link.path(), "C:\\windows\\%no such%\\50%");
    std::string bytes = folder_.read("v.lnk");
    bytes.replace(bytes.find(bytesOf(0xa0000001u)) - 4, 4, bytesOf(0x300u));
    EXPECT_EQ(loadBytes(read, bytes), E_FAIL) << "this block has one size";
}

TEST_F(LinkLayer, AMissingTargetFailsUnlessItMovedWithTheLink)
{
    fullLink();
    ShellLink link;
    ASSERT_EQ(link.load(folder_.path("full.lnk")), S_OK);
    DeleteFileA(target_.c_str());
    EXPECT_EQ(link->Resolve(nullptr, SLR_ANY_MATCH), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(link->Resolve(nullptr, 1000 << 16 | SLR_NO_UI), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(link.path(), target_);

    CreateDirectoryA(folder_.path("sub").c_str(), nullptr);
    folder_.write("sub\\target.txt", "moved");
    folder_.write("sub\\full.lnk", folder_.read("full.lnk"));
    ASSERT_EQ(link.load(folder_.path("sub\\full.lnk")), S_OK);
    EXPECT_EQ(link->Resolve(nullptr, SLR_NO_UI | SLR_UPDATE), S_OK);
    EXPECT_EQ(link.path(), folder_.path("sub\\target.txt"));
    ShellLink updated;
    ASSERT_EQ(updated.load(folder_.path("sub\\full.lnk")), S_OK);
    EXPECT_EQ(updated.path(), folder_.path("sub\\target.txt"));
    EXPECT_EQ(updated.text(&IShellLinkA::GetDescription), "description");
}

TEST_F(LinkLayer, TargetsThatWin32CannotSpellStillOpen)
{
    std::ofstream(native_ + "\xe4\xb8\xad.txt") << "odd";
    ShellLink link, read;
    ASSERT_EQ(link->SetPath(folder_.path("%E4%B8%AD.txt").c_str()), S_OK);
    ASSERT_EQ(link.save(folder_.path("odd.lnk")), S_OK);
    EXPECT_NE(folder_.read("odd.lnk").find(std::string("\x2d\x4e.\0t\0", 6)), std::string::npos)
        << "others see the true name";
    ASSERT_EQ(read.load(folder_.path("odd.lnk")), S_OK);
    EXPECT_EQ(read->Resolve(nullptr, SLR_NO_UI), S_OK);
    EXPECT_EQ(read.path(), folder_.path("%E4%B8%AD.txt"));
}

TEST_F(LinkLayer, WhatOthersPutIntoTheFileStaysThere)
{
    std::string block = bytesOf(12u) + bytesOf(0xa0000002u) + "data",
                place = bytesOf(12u) + bytesOf(0xa0000003u) + "here";
    std::string bytes = fullLink();
    bytes.insert(bytes.size() - 4, block + place);
    ShellLink link;
    ASSERT_EQ(loadBytes(link, bytes), S_OK);
    ASSERT_EQ(link.save(folder_.path("bytes.lnk")), S_OK);
    EXPECT_EQ(folder_.read("bytes.lnk"), bytes);
    link->SetPath("C:\\windows");
    ASSERT_EQ(link.save(folder_.path("bytes.lnk")), S_OK);
    std::string changed = folder_.read("bytes.lnk");
    EXPECT_NE(changed.find(block), std::string::npos);
    EXPECT_EQ(changed.find(place), std::string::npos) << "this one told of the old target";
}

TEST_F(LinkLayer, WrongLengthsAndOffsetsFail)
{
    std::string whole = fullLink();
    size_t info = infoOffset(whole);
    struct {
        size_t offset;
        DWORD value;
    } const damages[] = {
        {0, 75},
        {4, 0},
        {headerSize, 0xffff},
        {headerSize + 2, 0xffff},
        {headerSize + 2, 1},
        {info, 3},
        {info, 0x7fffffff},
        {info + 4, 27},
        {info + 4, 0xffffffff},
        {info + 12, 0xfffffff0},
        {info + 28, 0xffffffff},
        {info + 32, 0x10000},
        {info + 36, 0xffffff},
        {info + 36, 4},
    };
    ShellLink link;
    ASSERT_EQ(loadBytes(link, whole), S_OK);
    for (auto &[offset, value] : damages) {
        std::string damaged = whole;
        bool isShort = offset == headerSize || offset == headerSize + 2;
        damaged.replace(offset, isShort ? 2 : 4, bytesOf(value).substr(0, isShort ? 2 : 4));
        EXPECT_EQ(loadBytes(link, damaged), E_FAIL) << offset << ' ' << value;
        EXPECT_EQ(link.path(), target_) << "the object stays as it was";
    }
    // The mark at the end may be missing, nothing else.
    EXPECT_EQ(loadBytes(link, whole.substr(0, whole.size() - 4)), S_OK);
    for (size_t length = 0; length < whole.size() - 4; length += 1 + length / 100)
        ASSERT_EQ(loadBytes(link, whole.substr(0, length)), E_FAIL) << length;
}

TEST_F(LinkLayer, RandomDamageIsSurvived)
{
    std::string whole = fullLink();
    std::minstd_rand random(1);
    for (int round = 0; round < 500; ++round) {
        std::string damaged = whole;
        for (int change = 0; change < 3; ++change)
            damaged[random() % damaged.size()] = static_cast<char>(random() % 3 ? random() : 0xff);
        ShellLink link;
        if (FAILED(loadBytes(link, damaged)))
            continue;
        link.path();
        link->Resolve(nullptr, SLR_NO_UI);
        EXPECT_TRUE(SUCCEEDED(link.save(folder_.path("again.lnk"))));
        ASSERT_EQ(link.load(folder_.path("again.lnk")), S_OK) << "round " << round;
    }
}

TEST_F(LinkLayer, AFailingWriteLeavesTheOldFile)
{
    std::string whole = fullLink();
    ShellLink link;
    ASSERT_EQ(link.load(folder_.path("full.lnk")), S_OK);
    link->SetDescription("changed");
    SetFileAttributesA(folder_.path("full.lnk").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(link.file()->Save(nullptr, TRUE), E_ACCESSDENIED);
    SetFileAttributesA(folder_.path("full.lnk").c_str(), FILE_ATTRIBUTE_NORMAL);

    rlimit old, small;
    getrlimit(RLIMIT_FSIZE, &old);
    small = {100, old.rlim_max};
    auto handler = signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    HRESULT result = link.file()->Save(nullptr, TRUE);
    setrlimit(RLIMIT_FSIZE, &old);
    signal(SIGXFSZ, handler);
    EXPECT_TRUE(FAILED(result));
    EXPECT_EQ(link.file()->IsDirty(), S_OK);
    EXPECT_EQ(folder_.read("full.lnk"), whole);
    WIN32_FIND_DATAA data;
    EXPECT_EQ(FindFirstFileA(folder_.path("*.tmp").c_str(), &data), INVALID_HANDLE_VALUE);
}

TEST_F(LinkLayer, RefusedMemoryFailsCleanly)
{
    fullLink();
    std::string path = folder_.path("full.lnk"), copy = folder_.path("copy.lnk");
    std::vector<WCHAR> wide = wideText(path), wideCopy = wideText(copy);
    bool wasRefused = true;
    for (DWORD refused = 1; wasRefused; ++refused) {
        ShellLink link;
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, 1, 0);
        HRESULT loaded = link.file()->Load(wide.data(), 0);
        HRESULT set = link->SetPath("C:\\windows");
        HRESULT saved = link.file()->Save(wideCopy.data(), TRUE);
        wasRefused = Win32Control_AllocationsCounted(WIN32_ALLOCATION_LAYER) >= refused;
        Win32Control_Reset();
        for (HRESULT result : {loaded, set, saved})
            EXPECT_TRUE(SUCCEEDED(result) || result == E_OUTOFMEMORY
                        || result == HRESULT_FROM_WIN32(ERROR_NOT_ENOUGH_MEMORY))
                << std::hex << result;
        EXPECT_EQ(FAILED(loaded) || FAILED(set) || FAILED(saved), wasRefused) << refused;
        EXPECT_EQ(link.path(), SUCCEEDED(set) ? "C:\\windows" : SUCCEEDED(loaded) ? target_ : "") << refused;
        ASSERT_LT(refused, 1000u);
    }
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, 1, 1, 0);
    void *object;
    EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object), E_OUTOFMEMORY);
}

TEST_F(LinkLayer, AFolderOfTheShellIsMissingUntilItIsMade)
{
    char path[MAX_PATH], made[MAX_PATH];
    ASSERT_EQ(SHGetFolderPathA(nullptr, CSIDL_FONTS | CSIDL_FLAG_CREATE, nullptr, 0, made), S_OK);
    ASSERT_TRUE(RemoveDirectoryA(made));
    EXPECT_EQ(SHGetFolderPathA(nullptr, CSIDL_FONTS, nullptr, 0, path), S_FALSE);
    EXPECT_STREQ(path, "");
    EXPECT_EQ(SHGetFolderPathA(nullptr, CSIDL_FONTS | CSIDL_FLAG_DONT_VERIFY, nullptr, 0, path), S_OK);
    EXPECT_STREQ(path, made);
    EXPECT_EQ(SHGetFolderPathA(nullptr, CSIDL_FONTS | CSIDL_FLAG_CREATE, nullptr, 0, path), S_OK);
    EXPECT_EQ(SHGetFolderPathA(nullptr, CSIDL_FONTS, nullptr, 0, path), S_OK);
}

} // namespace
