// Memory, modules and small calls of the kernel, as programs of either platform see them.
#include <windows.h>

#include <malloc.h>
#include <mbstring.h>
#include <psapi.h>

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

TEST(GlobalMemory, MovableBlocksLockAndUnlock)
{
    HGLOBAL memory = GlobalAlloc(GHND, 100);
    ASSERT_NE(memory, nullptr);
    EXPECT_GE(GlobalSize(memory), 100u);
    auto data = static_cast<char *>(GlobalLock(memory));
    ASSERT_NE(data, nullptr);
    EXPECT_NE(static_cast<void *>(data), memory);
    EXPECT_EQ(std::string(data, 100), std::string(100, '\0'));
    EXPECT_EQ(GlobalLock(memory), data);
    EXPECT_EQ(GlobalFlags(memory) & GMEM_LOCKCOUNT, 2u);
    EXPECT_EQ(GlobalHandle(data), memory);
    EXPECT_TRUE(GlobalUnlock(memory));
    EXPECT_FALSE(GlobalUnlock(memory));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(NO_ERROR));
    EXPECT_FALSE(GlobalUnlock(memory));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_LOCKED));
    EXPECT_EQ(GlobalFree(memory), nullptr);
}

TEST(GlobalMemory, GrowingKeepsContentsAndClearsTheRest)
{
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 10);
    memcpy(GlobalLock(memory), "0123456789", 10);
    GlobalUnlock(memory);
    memory = GlobalReAlloc(memory, 5000, GMEM_MOVEABLE | GMEM_ZEROINIT);
    ASSERT_NE(memory, nullptr);
    auto data = static_cast<char *>(GlobalLock(memory));
    EXPECT_EQ(std::string(data, 10), "0123456789");
    EXPECT_EQ(std::string(data + 16, 4984), std::string(4984, '\0'));
    GlobalUnlock(memory);
    GlobalFree(memory);
}

TEST(GlobalMemory, FixedBlocksAreTheirOwnHandle)
{
    HGLOBAL memory = GlobalAlloc(GPTR, 64);
    EXPECT_EQ(GlobalLock(memory), memory);
    EXPECT_EQ(GlobalHandle(memory), memory);
    EXPECT_EQ(GlobalFlags(memory), 0u);
    memset(memory, 1, 64);
    HGLOBAL moved = GlobalReAlloc(memory, 100000, GMEM_MOVEABLE);
    ASSERT_NE(moved, nullptr);
    EXPECT_EQ(static_cast<char *>(moved)[63], 1);
    EXPECT_EQ(GlobalFree(moved), nullptr);
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
}

TEST(GlobalMemory, MovableBlockOfSizeZeroIsDiscarded)
{
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 0);
    ASSERT_NE(memory, nullptr);
    EXPECT_TRUE(GlobalFlags(memory) & GMEM_DISCARDED);
    EXPECT_EQ(GlobalLock(memory), nullptr);
    EXPECT_EQ(GlobalReAlloc(memory, 20, GMEM_MOVEABLE), memory);
    EXPECT_NE(GlobalLock(memory), nullptr);
    GlobalUnlock(memory);
    GlobalFree(memory);
}

TEST(Heaps, GiveZeroedMemoryAndFreeAllOfItAtTheEnd)
{
    HANDLE heap = HeapCreate(0, 0, 0);
    ASSERT_NE(heap, nullptr);
    for (SIZE_T size : {1u, 100u, 100000u}) {
        auto block = static_cast<char *>(HeapAlloc(heap, HEAP_ZERO_MEMORY, size));
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(std::string(block, size), std::string(size, '\0'));
        EXPECT_EQ(HeapSize(heap, 0, block), size);
        memset(block, 'x', size);
        block = static_cast<char *>(HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, size * 2));
        EXPECT_EQ(std::string(block, size * 2), std::string(size, 'x') + std::string(size, '\0'));
    }
    EXPECT_TRUE(HeapDestroy(heap));
    auto block = HeapAlloc(GetProcessHeap(), 0, 10);
    EXPECT_TRUE(HeapFree(GetProcessHeap(), 0, block));
}

TEST(Heaps, WithAMaximumRefuseWhatGoesBeyondIt)
{
    HANDLE heap = HeapCreate(0, 4096, 65536);
    ASSERT_NE(heap, nullptr);
    EXPECT_EQ(HeapAlloc(heap, 0, 100000), nullptr);
    EXPECT_NE(HeapAlloc(heap, 0, 20000), nullptr);
    EXPECT_TRUE(HeapDestroy(heap));
}

TEST(Memory, FiguresAgreeWithEachOther)
{
    MEMORYSTATUSEX status{};
    status.dwLength = 3;
    EXPECT_FALSE(GlobalMemoryStatusEx(&status));
    status.dwLength = sizeof status;
    ASSERT_TRUE(GlobalMemoryStatusEx(&status));
    EXPECT_GT(status.ullTotalPhys, 64u << 20);
    EXPECT_LE(status.ullAvailPhys, status.ullTotalPhys);
    EXPECT_GE(status.ullTotalPageFile, status.ullTotalPhys);
    EXPECT_LE(status.dwMemoryLoad, 100u);

    PROCESS_MEMORY_COUNTERS counters{};
    EXPECT_FALSE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, 8));
    ASSERT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    EXPECT_GT(counters.PagefileUsage, 0u);
    SIZE_T before = counters.PagefileUsage;
    std::vector<char> touched(64 << 20, 1);
    ASSERT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    EXPECT_GT(counters.PagefileUsage, before + (48 << 20));
    EXPECT_GE(counters.PeakPagefileUsage, counters.PagefileUsage);
    EXPECT_EQ(touched[1000], 1);
    _heapmin();
}

TEST(Modules, AreFoundByNameInAnyCase)
{
    HMODULE kernel = GetModuleHandleA("kernel32");
    ASSERT_NE(kernel, nullptr);
    EXPECT_EQ(GetModuleHandleA("Kernel32.DLL"), kernel);
    EXPECT_EQ(reinterpret_cast<void *>(GetProcAddress(kernel, "GlobalMemoryStatusEx")),
              reinterpret_cast<void *>(&GlobalMemoryStatusEx));
    EXPECT_EQ(GetProcAddress(kernel, "NoSuchFunction"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
    HMODULE status = LoadLibraryA("psapi.DLL");
    ASSERT_NE(status, nullptr);
    EXPECT_NE(GetProcAddress(status, "GetProcessMemoryInfo"), nullptr);
    EXPECT_TRUE(FreeLibrary(status));
    EXPECT_EQ(LoadLibraryA("no such library.dll"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
}

TEST(Modules, NamesOfFilesAreCutToTheBuffer)
{
    char path[MAX_PATH], shorter[10];
    DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    EXPECT_EQ(strlen(path), length);
    EXPECT_NE(strstr(path, "win32_tests"), nullptr) << path;
    EXPECT_EQ(path[1], ':');
    EXPECT_EQ(GetModuleFileNameA(nullptr, shorter, sizeof shorter), sizeof shorter);
    EXPECT_EQ(std::string(shorter, 9), std::string(path, 9));
}

TEST(Resources, OfTheProgramAreFound)
{
    HRSRC resource = FindResourceA(nullptr, MAKEINTRESOURCEA(128), "DATA");
    ASSERT_NE(resource, nullptr);
    EXPECT_EQ(SizeofResource(nullptr, resource), 6u);
    EXPECT_EQ(memcmp(LockResource(LoadResource(nullptr, resource)), "\1\2abc", 6), 0);
    EXPECT_EQ(FindResourceA(nullptr, "#128", "data"), resource);
    EXPECT_NE(FindResourceA(nullptr, "NAMED", "DATA"), nullptr);
    EXPECT_EQ(FindResourceA(nullptr, MAKEINTRESOURCEA(129), "DATA"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_NAME_NOT_FOUND));
    EXPECT_EQ(FindResourceA(nullptr, MAKEINTRESOURCEA(128), "NONE"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_TYPE_NOT_FOUND));
}

TEST(Resources, StringsAreConvertedAndCut)
{
    char text[40];
    EXPECT_EQ(LoadStringA(GetModuleHandleA(nullptr), 17, text, sizeof text), 20);
    EXPECT_STREQ(text, "A string of the host");
    EXPECT_EQ(LoadStringA(nullptr, 18, text, sizeof text), 7);
    EXPECT_STREQ(text, "Gr\xf6\xdf"
                       "e \x80");
    EXPECT_EQ(LoadStringA(nullptr, 17, text, 5), 4);
    EXPECT_STREQ(text, "A st");
    EXPECT_EQ(LoadStringA(nullptr, 19, text, sizeof text), 0);
    EXPECT_EQ(LoadStringA(nullptr, 60000, text, sizeof text), 0);
}

TEST(System, VersionAndFolders)
{
    OSVERSIONINFOA version{};
    EXPECT_FALSE(GetVersionExA(&version));
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(GetVersionExA(&version));
    EXPECT_EQ(version.dwPlatformId, static_cast<DWORD>(VER_PLATFORM_WIN32_NT));
    char folder[MAX_PATH];
    UINT length = GetSystemDirectoryA(folder, sizeof folder);
    EXPECT_EQ(strlen(folder), length);
    EXPECT_EQ(GetSystemDirectoryA(folder, 3), length + 1);
    EXPECT_EQ(_stricmp(folder + length - 9, "\\system32"), 0);
    length = GetTempPathA(sizeof folder, folder);
    EXPECT_EQ(folder[length - 1], '\\');
}

TEST(System, TickCountGoesOn)
{
    DWORD before = GetTickCount();
    Sleep(50);
    DWORD passed = GetTickCount() - before;
    EXPECT_GE(passed, 30u);
    EXPECT_LT(passed, 10000u);
}

TEST(System, LastErrorIsKept)
{
    SetLastError(12345);
    EXPECT_EQ(GetLastError(), 12345u);
}

TEST(Strings, CompareCopyAndScale)
{
    EXPECT_EQ(_stricmp("ABC", "abc"), 0);
    EXPECT_LT(_stricmp("abc", "ABD"), 0);
    EXPECT_NE(_stricmp("\xc4", "\xe4"), 0) << "letters A to Z only";
    EXPECT_EQ(_strnicmp("ABCx", "abcy", 3), 0);
    EXPECT_GT(_strnicmp("ABCy", "abcx", 4), 0);
    char text[8];
    EXPECT_STREQ(lstrcpynA(text, "0123456789", 5), "0123");
    EXPECT_STREQ(lstrcatA(text, "ab"), "0123ab");
    EXPECT_EQ(lstrlenA(nullptr), 0);
    EXPECT_EQ(MulDiv(7, 3, 2), 11);
    EXPECT_EQ(MulDiv(-7, 3, 2), -11);
    EXPECT_EQ(MulDiv(7, 3, -2), -11);
    EXPECT_EQ(MulDiv(1, 1, 0), -1);
    EXPECT_EQ(MulDiv(0x7fffffff, 0x7fffffff, 1), -1);
    EXPECT_EQ(MulDiv(0x7fffffff, 1000, 2000), 0x40000000);
}

TEST(Strings, AreOrderedAsWords)
{
    const char *ordered[] = {"", "#", "1", "1a", "a", "A", "aa", "Ab", "b", "B", "b "};
    for (size_t left = 0; left < std::size(ordered); ++left) {
        for (size_t right = left + 1; right < std::size(ordered); ++right) {
            EXPECT_LT(lstrcmpA(ordered[left], ordered[right]), 0) << ordered[left] << " and " << ordered[right];
            EXPECT_GT(lstrcmpA(ordered[right], ordered[left]), 0);
        }
        EXPECT_EQ(lstrcmpA(ordered[left], ordered[left]), 0);
    }
    EXPECT_EQ(lstrcmpiA("C:\\Folder\\File.TXT", "c:\\folder\\fILE.txt"), 0);
    EXPECT_EQ(lstrcmpiA("\xe9t\xe9", "\xc9T\xc9"), 0) << "letters of the code page too";
    EXPECT_LT(lstrcmpA("\xe9", "\xc9"), 0);
    EXPECT_NE(lstrcmpiA("\xe9", "e"), 0);
    EXPECT_LT(lstrcmpiA("abc", "ABCD"), 0);
    EXPECT_LT(lstrcmpA(nullptr, ""), 0);
    EXPECT_EQ(lstrcmpiA(nullptr, nullptr), 0);
}

TEST(CodePages, OneByteSearches)
{
    auto text = reinterpret_cast<const unsigned char *>("C:\\a\\b");
    EXPECT_EQ(_mbschr(text, '\\'), text + 2);
    EXPECT_EQ(_mbsrchr(text, '\\'), text + 4);
    EXPECT_EQ(_mbschr(text, 'x'), nullptr);
    EXPECT_EQ(_mbschr(text, 0), text + 6);
    EXPECT_TRUE(IsDBCSLeadByteEx(932, 0x81));
    EXPECT_FALSE(IsDBCSLeadByteEx(932, 0xa0));
    EXPECT_FALSE(IsDBCSLeadByteEx(1252, 0x81));
    EXPECT_TRUE(IsDBCSLeadByteEx(949, 0xfe));
}

} // namespace
