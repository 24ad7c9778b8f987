// Shell links in files, making them as objects, and the shell's folders.
#include "ShellLink.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr size_t showCommandOffset = 60;

class ShellLinks : public testing::Test {
protected:
    ShellLinks() : folder_("links") { folder_.write("target file.txt", "content"); }

    ComThread com_;
    TemporaryFolder folder_;
};

TEST_F(ShellLinks, WhatIsSavedIsReadBack)
{
    std::string target = folder_.path("target file.txt"), name = folder_.path("a.lnk");
    {
        ShellLink link;
        EXPECT_EQ(link->SetPath(target.c_str()), S_OK);
        link->SetDescription("\xfc"
                             "ber alles");
        link->SetArguments("-a \"b c\"");
        link->SetWorkingDirectory(folder_.path().c_str());
        link->SetIconLocation("C:\\icons.dll", -7);
        link->SetHotkey(0x0641);
        link->SetShowCmd(3);
        ASSERT_EQ(link.save(name), S_OK);
    }
    ShellLink link;
    ASSERT_EQ(link.load(name), S_OK);
    EXPECT_EQ(link.path(), target);
    EXPECT_EQ(link.text(&IShellLinkA::GetDescription), "\xfc"
                                                       "ber alles");
    EXPECT_EQ(link.text(&IShellLinkA::GetArguments), "-a \"b c\"");
    EXPECT_EQ(link.text(&IShellLinkA::GetWorkingDirectory), folder_.path());
    char icon[MAX_PATH];
    int index;
    WORD hotkey;
    EXPECT_EQ(link->GetIconLocation(icon, sizeof icon, &index), S_OK);
    EXPECT_STREQ(icon, "C:\\icons.dll");
    EXPECT_EQ(index, -7);
    EXPECT_EQ(link->GetHotkey(&hotkey), S_OK);
    EXPECT_EQ(hotkey, 0x0641);
    EXPECT_EQ(folder_.read("a.lnk")[showCommandOffset], 3);
    WIN32_FIND_DATAA data;
    EXPECT_EQ(link->GetPath(icon, sizeof icon, &data, 0), S_OK);
    EXPECT_STREQ(data.cFileName, "target file.txt");
    EXPECT_EQ(data.nFileSizeLow, 7u);
}

TEST_F(ShellLinks, SavingAgainReplacesTheFile)
{
    std::string name = folder_.path("a.lnk");
    ShellLink link;
    link->SetPath(folder_.path("target file.txt").c_str());
    link->SetDescription(std::string(500, 'x').c_str());
    ASSERT_EQ(link.save(name), S_OK);
    link->SetDescription("");
    link->SetPath(folder_.path().c_str());
    ASSERT_EQ(link.save(name), S_OK);
    ShellLink read;
    ASSERT_EQ(read.load(name), S_OK);
    EXPECT_EQ(read.path(), folder_.path());
    EXPECT_EQ(read.text(&IShellLinkA::GetDescription), "");
    EXPECT_EQ(read->Resolve(nullptr, SLR_NO_UI | SLR_ANY_MATCH), S_OK);
}

TEST_F(ShellLinks, PathsMayBeQuotedOrEmptyButNotNull)
{
    ShellLink link;
    char path[MAX_PATH] = "old";
    EXPECT_EQ(link->GetPath(path, sizeof path, nullptr, 0), S_FALSE);
    EXPECT_STREQ(path, "");
    EXPECT_EQ(link->SetPath(("\"" + folder_.path("target file.txt") + "\"").c_str()), S_OK);
    EXPECT_EQ(link.path(), folder_.path("target file.txt"));
    EXPECT_EQ(link->SetPath(nullptr), E_INVALIDARG);
    EXPECT_EQ(link.path(), folder_.path("target file.txt"));
    EXPECT_EQ(link->SetPath(""), S_OK);
    EXPECT_EQ(link->GetPath(path, sizeof path, nullptr, 0), S_FALSE);
}

TEST_F(ShellLinks, ItemListsCarryThePathToAnotherLink)
{
    ShellLink from, to;
    PIDLIST_ABSOLUTE list = nullptr;
    EXPECT_EQ(from->GetIDList(&list), S_FALSE);
    EXPECT_EQ(list, nullptr);
    from->SetPath(folder_.path("target file.txt").c_str());
    ASSERT_EQ(from->GetIDList(&list), S_OK);
    EXPECT_EQ(to->SetIDList(list), S_OK);
    CoTaskMemFree(list);
    EXPECT_EQ(to.path(), folder_.path("target file.txt"));
}

TEST_F(ShellLinks, TheCurrentFileIsTheOneLastLoadedOrSaved)
{
    ShellLink link;
    EXPECT_EQ(link.file()->IsDirty(), S_FALSE);
    EXPECT_EQ(link.currentFile(), "");
    link->SetPath(folder_.path().c_str());
    EXPECT_EQ(link.file()->IsDirty(), S_OK);
    ASSERT_EQ(link.save(folder_.path("a.lnk")), S_OK);
    EXPECT_EQ(link.file()->IsDirty(), S_FALSE);
    EXPECT_EQ(link.currentFile(), folder_.path("a.lnk"));
    EXPECT_EQ(link.save(folder_.path("copy.lnk"), FALSE), S_OK);
    EXPECT_EQ(link.currentFile(), folder_.path("a.lnk"));
    ASSERT_EQ(link.load(folder_.path("copy.lnk")), S_OK);
    EXPECT_EQ(link.currentFile(), folder_.path("copy.lnk"));
    std::string roundabout = folder_.path("..") + folder_.path().substr(folder_.path().rfind('\\')) + "/a.lnk";
    EXPECT_EQ(link.load(roundabout), S_OK) << roundabout;
    CLSID id;
    EXPECT_EQ(link.file()->GetClassID(&id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, CLSID_ShellLink));
}

TEST_F(ShellLinks, OtherFilesFail)
{
    folder_.write("empty.lnk", "");
    folder_.write("text.lnk", std::string(200, 'L'));
    ShellLink link;
    EXPECT_EQ(link.load(folder_.path("missing.lnk")), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_TRUE(FAILED(link.load(folder_.path("empty.lnk"))));
    EXPECT_TRUE(FAILED(link.load(folder_.path("text.lnk"))));
    EXPECT_TRUE(FAILED(link.load(folder_.path())));
    EXPECT_TRUE(FAILED(link.save(folder_.path("missing\\a.lnk"))));
}

TEST(Activation, GivesTheClassesThatThereAre)
{
    void *object = &object;
    EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA, &object),
              CO_E_NOTINITIALIZED);
    EXPECT_EQ(object, nullptr);
    ComThread com;
    EXPECT_EQ(CoCreateInstance(IID_IPersist, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object),
              REGDB_E_CLASSNOTREG);
    EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_LOCAL_SERVER, IID_IUnknown, &object),
              REGDB_E_CLASSNOTREG);
    EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, CLSID_ShellLink, &object),
              E_NOINTERFACE);
    ShellLink link;
    auto outer = static_cast<IUnknown *>(link.operator->());
    EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, outer, CLSCTX_INPROC_SERVER, IID_IUnknown, &object),
              CLASS_E_NOAGGREGATION);
    IUnknown *first, *second;
    link->QueryInterface(IID_IUnknown, reinterpret_cast<void **>(&first));
    link.file()->QueryInterface(IID_IUnknown, reinterpret_cast<void **>(&second));
    EXPECT_EQ(first, second) << "an object is known by this pointer";
    first->Release();
    second->Release();
}

TEST(Activation, AThreadStartsAndEndsAsOftenAsItAsks)
{
    EXPECT_EQ(CoInitialize(nullptr), S_OK);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
    CoUninitialize();
    EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
    CoUninitialize();
    CoUninitialize();
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    CoUninitialize();
}

TEST(Folders, AreThereWhenTheyAreToBeMade)
{
    char path[MAX_PATH];
    for (int folder : {CSIDL_APPDATA, CSIDL_LOCAL_APPDATA, CSIDL_PERSONAL, CSIDL_DESKTOPDIRECTORY, CSIDL_DESKTOP,
                       CSIDL_WINDOWS, CSIDL_SYSTEM, CSIDL_FONTS, CSIDL_PROGRAM_FILES, CSIDL_COMMON_APPDATA}) {
        ASSERT_EQ(SHGetFolderPathA(nullptr, folder | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path), S_OK)
            << folder;
        DWORD attributes = GetFileAttributesA(path);
        EXPECT_TRUE(attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) << path;
    }
    EXPECT_EQ(SHGetFolderPathA(nullptr, 0xff, nullptr, SHGFP_TYPE_CURRENT, path), E_INVALIDARG);
    EXPECT_STREQ(path, "");
    EXPECT_EQ(SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, 2, path), E_INVALIDARG);
}

} // namespace
