// Modules that hold resources, loaded by path.
#include "TemporaryFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string name(LPCSTR argument)
{
    return IS_INTRESOURCE(argument) ? "#" + std::to_string(reinterpret_cast<ULONG_PTR>(argument)) : argument;
}

BOOL CALLBACK noteType(HMODULE, LPSTR type, LONG_PTR list)
{
    reinterpret_cast<std::vector<std::string> *>(list)->push_back(name(type));
    return TRUE;
}

BOOL CALLBACK noteName(HMODULE, LPCSTR, LPSTR resource, LONG_PTR list)
{
    reinterpret_cast<std::vector<std::string> *>(list)->push_back(name(resource));
    return TRUE;
}

BOOL CALLBACK stopAtOnce(HMODULE, LPCSTR, LPSTR, LONG_PTR)
{
    return FALSE;
}

BOOL CALLBACK noteLanguage(HMODULE, LPCSTR, LPCSTR, WORD language, LONG_PTR list)
{
    reinterpret_cast<std::vector<std::string> *>(list)->push_back(std::to_string(language));
    return TRUE;
}

class ResourceModule : public testing::Test {
protected:
    void SetUp() override
    {
        module_ =
            LoadLibraryExA((folderOfProgram() + "resource_module.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_NE(module_, nullptr) << GetLastError();
    }
    void TearDown() override { EXPECT_TRUE(FreeLibrary(module_)); }

    std::string data(HRSRC resource)
    {
        if (!resource)
            return "error " + std::to_string(GetLastError());
        return std::string(static_cast<const char *>(LockResource(LoadResource(module_, resource))),
                           SizeofResource(module_, resource));
    }

    using List = std::vector<std::string>;
    HMODULE module_ = nullptr;
};

TEST_F(ResourceModule, DataIsFoundByTypeNameAndLanguage)
{
    using namespace std::string_literals;
    EXPECT_EQ(data(FindResourceA(module_, MAKEINTRESOURCEA(128), "ABCD")), "\0\0first"s);
    EXPECT_EQ(data(FindResourceA(module_, "#129", "abcd")), "\0\0second resource"s);
    EXPECT_EQ(data(FindResourceA(module_, MAKEINTRESOURCEA(1000), "ABCD")), "\1\0\3\2\7\6\5\4"s);
    EXPECT_EQ(data(FindResourceA(module_, "named", "ABCD")), "named");
    EXPECT_EQ(data(FindResourceA(module_, MAKEINTRESOURCEA(7), MAKEINTRESOURCEA(42))), "numbered type");
    EXPECT_EQ(data(FindResourceExA(module_, "LSTR", MAKEINTRESOURCEA(200), 0x0407)), "deutsch");
    EXPECT_EQ(data(FindResourceExA(module_, "LSTR", MAKEINTRESOURCEA(200), 0x0409)), "english");
    EXPECT_EQ(data(FindResourceA(module_, MAKEINTRESOURCEA(201), "LSTR")), "nur deutsch")
        << "any language rather than none";
    EXPECT_EQ(data(FindResourceA(module_, MAKEINTRESOURCEA(130), "ABCD")), "error 1814");
    EXPECT_EQ(data(FindResourceA(module_, MAKEINTRESOURCEA(128), "NONE")), "error 1813");
    char text[20];
    EXPECT_EQ(LoadStringA(module_, 5, text, sizeof text), 4);
    EXPECT_EQ(LoadStringA(module_, 300, text, sizeof text), 13);
    EXPECT_STREQ(text, "three hundred");
}

TEST_F(ResourceModule, WalksGoThroughTextsThenNumbers)
{
    List types, names, languages;
    EXPECT_TRUE(EnumResourceTypesA(module_, noteType, reinterpret_cast<LONG_PTR>(&types)));
    EXPECT_EQ(types, List({"ABCD", "LSTR", "#6", "#42"}));
    EXPECT_TRUE(EnumResourceNamesA(module_, "ABCD", noteName, reinterpret_cast<LONG_PTR>(&names)));
    EXPECT_EQ(names, List({"ANOTHER", "NAMED", "#128", "#129", "#1000"}));
    EXPECT_TRUE(EnumResourceLanguagesA(module_, "LSTR", MAKEINTRESOURCEA(200), noteLanguage,
                                       reinterpret_cast<LONG_PTR>(&languages)));
    EXPECT_EQ(languages, List({"1031", "1033"}));
    EXPECT_FALSE(EnumResourceNamesA(module_, "NONE", noteName, reinterpret_cast<LONG_PTR>(&names)));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_TYPE_NOT_FOUND));
    EXPECT_FALSE(EnumResourceNamesA(module_, "ABCD", stopAtOnce, 0));
}

TEST(LoadingModules, FailsForWhatIsNoModule)
{
    TemporaryFolder folder("win32-modules");
    folder.write("text.dll", "this is no module, however long the text may be that stands in this file");
    folder.write("dos.dll", std::string("MZ") + std::string(200, '\0'));
    EXPECT_EQ(LoadLibraryA(folder.path("none.dll").c_str()), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    EXPECT_EQ(LoadLibraryExA(folder.path("none.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    for (const char *bad : {"text.dll", "dos.dll"}) {
        EXPECT_EQ(LoadLibraryA(folder.path(bad).c_str()), nullptr) << bad;
        EXPECT_EQ(LoadLibraryExA(folder.path(bad).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE), nullptr) << bad;
    }
}

} // namespace
