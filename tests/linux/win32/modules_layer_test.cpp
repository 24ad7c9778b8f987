// Modules as only the layer has them: damaged and shrinking files, handles, shared objects.
#include "TemporaryFolder.h"

#include <windows.h>

#include <win32/control.h>

#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

class ModuleLayer : public testing::Test {
protected:
    ModuleLayer() : folder_("layer-modules")
    {
        GetModuleHandleA(nullptr);
        handles_ = Win32Control_OpenHandles();
        std::string path = folderOfProgram().substr(2) + "resource_module.dll";
        std::replace(path.begin(), path.end(), '\\', '/');
        FILE *file = fopen(path.c_str(), "rb");
        char buffer[65536];
        image_.assign(buffer, fread(buffer, 1, sizeof buffer, file));
        fclose(file);
    }
    ~ModuleLayer() override
    {
        Win32Control_Reset();
        EXPECT_EQ(Win32Control_OpenHandles(), handles_);
    }

    HMODULE load(const std::string &name)
    {
        return LoadLibraryExA(folder_.path(name).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    }

    static BOOL CALLBACK readOne(HMODULE module, LPCSTR type, LPSTR name, LONG_PTR sum)
    {
        HRSRC resource = FindResourceA(module, name, type);
        auto data = static_cast<const unsigned char *>(LockResource(LoadResource(module, resource)));
        for (DWORD place = 0; data && place < SizeofResource(module, resource); ++place)
            *reinterpret_cast<unsigned *>(sum) += data[place];
        return TRUE;
    }
    static BOOL CALLBACK readType(HMODULE module, LPSTR type, LONG_PTR sum)
    {
        EnumResourceNamesA(module, type, readOne, sum);
        return TRUE;
    }

    TemporaryFolder folder_;
    std::string image_;
    DWORD handles_;
};

TEST_F(ModuleLayer, OneFileIsOneModuleUntilItsLastLoadEnds)
{
    folder_.write("m.dll", image_);
    HMODULE first = load("m.dll"), second = load("M.DLL");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_EQ(GetModuleHandleA("m"), first);
    char path[MAX_PATH];
    GetModuleFileNameA(first, path, sizeof path);
    EXPECT_EQ(path, folder_.path("m.dll"));
    EXPECT_EQ(GetProcAddress(first, "Anything"), nullptr);
    HRSRC resource = FindResourceA(first, MAKEINTRESOURCEA(128), "ABCD");
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_EQ(SizeofResource(first, resource), 7u);
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_FALSE(FreeLibrary(first));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_EQ(FindResourceA(first, MAKEINTRESOURCEA(128), "ABCD"), nullptr);
    EXPECT_EQ(LoadResource(first, resource), nullptr);
    EXPECT_EQ(GetModuleHandleA("m"), nullptr);
}

TEST_F(ModuleLayer, AFileThatShrinksReadsAsZeros)
{
    folder_.write("m.dll", image_);
    HMODULE module = load("m.dll");
    HRSRC resource = FindResourceA(module, MAKEINTRESOURCEA(129), "ABCD");
    auto data = static_cast<const char *>(LockResource(LoadResource(module, resource)));
    std::string path = folder_.path("m.dll").substr(2);
    std::replace(path.begin(), path.end(), '\\', '/');
    ASSERT_EQ(truncate(path.c_str(), 0), 0);
    EXPECT_EQ(std::string(data, 5), std::string(5, '\0'));
    EXPECT_TRUE(FreeLibrary(module));
}

// Bytes changed at random: whatever comes out, reading all that is found stays inside the file.
TEST_F(ModuleLayer, DamagedFilesAreReadWithoutHarm)
{
    constexpr unsigned seed = 11;
    std::mt19937 random(seed);
    unsigned sum = 0;
    for (int round = 0; round < 600; ++round) {
        std::string damaged = image_;
        for (int change = 0; change < 1 + round % 8; ++change)
            damaged[random() % damaged.size()] = static_cast<char>(random() % 3 ? random() : 0xff);
        if (round % 10 == 0)
            damaged.resize(random() % damaged.size());
        folder_.write("m.dll", damaged);
        HMODULE module = load("m.dll");
        if (!module)
            continue;
        EnumResourceTypesA(module, readType, reinterpret_cast<LONG_PTR>(&sum));
        char text[50];
        LoadStringA(module, 5, text, sizeof text);
        FreeLibrary(module);
    }
    EXPECT_NE(sum, 0u) << "some of it was readable";
}

TEST_F(ModuleLayer, RefusedMemoryFailsCleanly)
{
    folder_.write("m.dll", image_);
    for (DWORD refused = 1; refused < 80; ++refused) {
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, 1, 0);
        HMODULE module = load("m.dll");
        unsigned sum = 0;
        if (module)
            EnumResourceTypesA(module, readType, reinterpret_cast<LONG_PTR>(&sum));
        Win32Control_Reset();
        if (module)
            FreeLibrary(module);
        ASSERT_EQ(Win32Control_OpenHandles(), handles_) << refused;
    }
}

TEST_F(ModuleLayer, SharedObjectsOfThisSystemOfferTheirFunctions)
{
    HMODULE library = LoadLibraryA((folderOfProgram() + "libwin32.so").c_str());
    ASSERT_NE(library, nullptr) << GetLastError();
    EXPECT_EQ(reinterpret_cast<void *>(GetProcAddress(library, "GetTickCount")),
              reinterpret_cast<void *>(&GetTickCount));
    EXPECT_EQ(GetProcAddress(library, "NoSuchFunction"), nullptr);
    EXPECT_TRUE(FreeLibrary(library));
}

} // namespace
