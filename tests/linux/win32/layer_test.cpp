// What only the layer promises: stale handles, files on a Unix disk, refusals.
#include "TemporaryFile.h"

#include <windows.h>

#include <malloc.h>
#include <psapi.h>
#include <win32/control.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <random>
#include <thread>
#include <unordered_set>
#include <vector>

namespace {

HGLOBAL foreign(uintptr_t value)
{
    return reinterpret_cast<HGLOBAL>(value);
}

class Layer : public testing::Test {
protected:
    void SetUp() override
    {
        GetProcessHeap();
        GetModuleHandleA(nullptr);
        handles_ = Win32Control_OpenHandles();
        Win32Control_HeldMemory(&bytes_, &blocks_);
    }
    void TearDown() override
    {
        Win32Control_Reset();
        EXPECT_EQ(Win32Control_OpenHandles(), handles_);
        SIZE_T bytes, blocks;
        Win32Control_HeldMemory(&bytes, &blocks);
        EXPECT_EQ(bytes, bytes_);
        EXPECT_EQ(blocks, blocks_);
    }

private:
    DWORD handles_ = 0;
    SIZE_T bytes_ = 0, blocks_ = 0;
};

TEST_F(Layer, StaleAndForeignMemoryHandlesFailWithoutHarm)
{
    HGLOBAL movable = GlobalAlloc(GHND, 10), fixed = GlobalAlloc(GPTR, 10);
    EXPECT_LE(reinterpret_cast<uintptr_t>(movable), 0xffffffffu);
    HANDLE heap = HeapCreate(0, 0, 0);
    GlobalFree(movable);
    GlobalFree(fixed);
    HeapDestroy(heap);
    int local;
    for (HGLOBAL bad : {movable, fixed, foreign(0), foreign(1), foreign(2), foreign(6), foreign(0xfffffffe),
                        foreign(0x7fffffffffff0), static_cast<HGLOBAL>(&local), static_cast<HGLOBAL>(heap)}) {
        SetLastError(0);
        EXPECT_EQ(GlobalLock(bad), nullptr);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE)) << bad;
        EXPECT_EQ(GlobalFree(bad), bad);
        EXPECT_FALSE(GlobalUnlock(bad));
        EXPECT_EQ(GlobalSize(bad), 0u);
        EXPECT_EQ(GlobalReAlloc(bad, 10, GMEM_MOVEABLE), nullptr);
        EXPECT_EQ(GlobalFlags(bad), static_cast<UINT>(GMEM_INVALID_HANDLE));
        EXPECT_EQ(GlobalHandle(bad), nullptr);
        EXPECT_EQ(HeapAlloc(bad, 0, 10), nullptr);
        EXPECT_FALSE(HeapFree(bad, 0, &local));
        EXPECT_FALSE(HeapDestroy(bad));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    }
    for (HGLOBAL bad : {movable, foreign(4), foreign(0xffffffff)})
        EXPECT_EQ(GetProcAddress(static_cast<HMODULE>(bad), "x"), nullptr);
    EXPECT_FALSE(HeapFree(GetProcessHeap(), 0, &local));
    EXPECT_EQ(HeapSize(GetProcessHeap(), 0, &local), static_cast<SIZE_T>(-1));
    EXPECT_FALSE(HeapDestroy(GetProcessHeap()));
}

TEST_F(Layer, AHandleIsNotGivenAgainSoon)
{
    std::unordered_set<HGLOBAL> seen;
    for (int round = 0; round < 50000; ++round) {
        HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 1);
        ASSERT_TRUE(seen.insert(memory).second) << "round " << round;
        GlobalFree(memory);
    }
}

TEST_F(Layer, ManyBlocksAreFoundAmongEachOther)
{
    std::mt19937 random(5);
    std::vector<HGLOBAL> live;
    for (int step = 0; step < 100000; ++step) {
        if (live.empty() || random() % 5 < 3) {
            UINT flags = random() % 2 ? UINT{GMEM_FIXED} : UINT{GMEM_MOVEABLE};
            live.push_back(GlobalAlloc(flags, 1 + random() % 64));
            ASSERT_NE(live.back(), nullptr);
        } else {
            size_t which = random() % live.size();
            ASSERT_EQ(GlobalFree(live[which]), nullptr);
            live[which] = live.back();
            live.pop_back();
        }
    }
    for (HGLOBAL memory : live) {
        ASSERT_NE(GlobalSize(memory), 0u);
        ASSERT_EQ(GlobalFree(memory), nullptr);
    }
}

TEST_F(Layer, ThreadsShareTheTables)
{
    auto work = [] {
        for (int round = 0; round < 5000; ++round) {
            HGLOBAL memory = GlobalAlloc(GHND, 100);
            static_cast<char *>(GlobalLock(memory))[99] = 1;
            GlobalUnlock(memory);
            GlobalFree(memory);
            HANDLE heap = HeapCreate(0, 0, 0);
            HeapAlloc(heap, 0, 10);
            HeapDestroy(heap);
        }
    };
    std::thread other(work);
    work();
    other.join();
}

TEST_F(Layer, RefusedAllocationsFailCleanly)
{
    for (int kind : {WIN32_ALLOCATION_GLOBAL, WIN32_ALLOCATION_HEAP, WIN32_ALLOCATION_LAYER}) {
        for (DWORD refused = 1; refused <= 12; ++refused) {
            Win32Control_RefuseAllocations(static_cast<Win32Allocation>(kind), refused, 1, 0);
            HGLOBAL movable = GlobalAlloc(GHND, 10), fixed = GlobalAlloc(GPTR, 10);
            if (movable) {
                HGLOBAL larger = GlobalReAlloc(movable, 1000, GMEM_MOVEABLE);
                EXPECT_EQ(GlobalSize(movable), larger ? 1000u : 10u);
            }
            HANDLE heap = HeapCreate(0, 0, 0);
            void *block = heap ? HeapAlloc(heap, 0, 100) : nullptr;
            void *larger = block ? HeapReAlloc(heap, 0, block, 100000) : nullptr;
            if (block) {
                EXPECT_EQ(HeapSize(heap, 0, larger ? larger : block), larger ? 100000u : 100u);
            }
            Win32Control_Reset();
            GlobalFree(movable);
            GlobalFree(fixed);
            if (heap)
                HeapDestroy(heap);
        }
    }
}

TEST_F(Layer, CommitLimitFollowsPhysicalMemory)
{
    Win32Control_PretendPhysicalMemory(64 << 20);
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    GlobalMemoryStatusEx(&status);
    EXPECT_EQ(status.ullTotalPhys, 64u << 20);
    EXPECT_EQ(GlobalAlloc(GMEM_FIXED, status.ullTotalPageFile + 1), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_ENOUGH_MEMORY));
    HGLOBAL memory = GlobalAlloc(GMEM_FIXED, 32 << 20);
    EXPECT_NE(memory, nullptr);
    GlobalFree(memory);
    EXPECT_EQ(GlobalAlloc(GMEM_FIXED, static_cast<SIZE_T>(-1)), nullptr);
}

TEST_F(Layer, PretendedFiguresReachTheCalls)
{
    EXPECT_EQ(_heapmin(), 0);
    Win32Control_PretendProcessUsage(123456789);
    PROCESS_MEMORY_COUNTERS counters{};
    ASSERT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    EXPECT_EQ(counters.PagefileUsage, 123456789u);
    Win32Control_HideModule("PSAPI.DLL", nullptr);
    EXPECT_EQ(LoadLibraryA("psapi"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    EXPECT_FALSE(Win32Control_FailCalls("NoSuchCall", 5, 1, 1));
    EXPECT_TRUE(Win32Control_FailCalls("HeapCreate", 1234, 2, 1));
    HANDLE heap = HeapCreate(0, 0, 0);
    EXPECT_NE(heap, nullptr);
    EXPECT_EQ(HeapCreate(0, 0, 0), nullptr);
    EXPECT_EQ(GetLastError(), 1234u);
    HeapDestroy(heap);
}

class ProfileOnDisk : public Layer {
protected:
    ProfileOnDisk() : file_("layer-profile") {}

    std::string get(const char *key)
    {
        std::string buffer(1 << 21, 0);
        buffer.resize(GetPrivateProfileStringA("S", key, "(none)", buffer.data(), 1 << 21, file_.path()));
        return buffer;
    }
    bool set(const char *key, const char *text) { return WritePrivateProfileStringA("S", key, text, file_.path()); }

    TemporaryFile file_;
};

TEST_F(ProfileOnDisk, OddFilesKeepEveryByteThatIsNotChanged)
{
    std::string huge(1 << 20, 'h');
    struct {
        std::string before, after;
    } const cases[] = {
        {"\xef\xbb\xbf[S]\r\nk=1\r\n", "\xef\xbb\xbf[S]\r\nk=2\r\n"},
        {"[S]\nk=1\n", "[S]\nk=2\n"},
        {"[S]\r\nk=1", "[S]\r\nk=2\r\n"},
        {"[S]\r\nhuge=" + huge + "\r\nk=1\r\n", "[S]\r\nhuge=" + huge + "\r\nk=2\r\n"},
        {std::string("[S]\r\nz=a\0b\r\nk=1\r\n", 17), std::string("[S]\r\nz=a\0b\r\nk=2\r\n", 17)},
        {"no section\r\n[S\r\n]\r\n[S]\r\n\r\n;c\r\nk=1\r\n\r\n",
         "no section\r\n[S\r\n]\r\n[S]\r\n\r\n;c\r\nk=2\r\n\r\n"},
        {"[S]\r\n  k  = 1 \r\nk=first wins\r\n", "[S]\r\n  k=2\r\nk=first wins\r\n"},
        {"[S]\r\n\r\n[T]\r\n", "[S]\r\nk=2\r\n\r\n[T]\r\n"},
    };
    for (auto &[before, after] : cases) {
        file_.write(before);
        EXPECT_TRUE(set("k", "2"));
        EXPECT_TRUE(file_.read() == after) << before.substr(0, 60) << "\nbecame\n" << file_.read().substr(0, 80);
        EXPECT_EQ(get("k"), "2");
    }
    EXPECT_EQ(get("missing"), "(none)");
    file_.write("[S]\r\nhuge=" + huge + "\r\n");
    EXPECT_EQ(get("huge"), huge);
    file_.write(std::string("[S]\r\nz=a\0b\r\n", 12));
    EXPECT_EQ(get("z"), "a") << "a value ends at a NUL, as the caller's string does";
}

TEST_F(ProfileOnDisk, TextThatBreaksALineIsReadBackAsLines)
{
    EXPECT_TRUE(set("k", "1\r\nj=2\r\n[T]"));
    EXPECT_EQ(get("k"), "1");
    EXPECT_EQ(get("j"), "2");
    EXPECT_TRUE(set("a=b", "c"));
    EXPECT_EQ(get("a"), "b=c");
}

TEST_F(ProfileOnDisk, FailedWritesLeaveTheOldFile)
{
    file_.write("[S]\r\nk=1\r\n");
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit small = {4, old.rlim_max};
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_FALSE(set("k", "2"));
    DWORD error = GetLastError();
    setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_EQ(error, static_cast<DWORD>(ERROR_DISK_FULL));
    EXPECT_EQ(file_.read(), "[S]\r\nk=1\r\n");
    EXPECT_EQ(get("k"), "1");
    EXPECT_TRUE(set("k", "2"));
}

TEST_F(ProfileOnDisk, RefusedMemoryLeavesFileAndAnswersRight)
{
    file_.write("[S]\r\nk=1\r\nj=a value that is longer than a short string\r\n");
    std::string last = "1";
    for (DWORD refused = 1; refused < 60; ++refused) {
        std::string value = std::to_string(refused);
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, 1, 0);
        if (set("k", value.c_str()))
            last = value;
        Win32Control_Reset();
        ASSERT_EQ(get("k"), last) << refused;
        WritePrivateProfileStringA(nullptr, nullptr, nullptr, file_.path());
        ASSERT_EQ(get("k"), last) << refused;
    }
    EXPECT_EQ(get("j"), "a value that is longer than a short string");
}

TEST_F(ProfileOnDisk, DirectoriesAndUnreadableFilesAreNotOverwritten)
{
    mkdir(file_.native(), 0777);
    EXPECT_EQ(get("k"), "(none)");
    EXPECT_FALSE(set("k", "1"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    rmdir(file_.native());

    std::string utf16("\xff\xfe[\0S\0]\0", 8);
    file_.write(utf16);
    EXPECT_EQ(get("k"), "(none)");
    EXPECT_FALSE(set("k", "1"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_SUPPORTED));
    EXPECT_EQ(file_.read(), utf16);

    mkfifo((std::string(file_.native()) + ".fifo").c_str(), 0600);
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "1", (std::string(file_.path()) + ".fifo").c_str()));
    unlink((std::string(file_.native()) + ".fifo").c_str());
}

TEST_F(ProfileOnDisk, AListThatIsCutEndsInTwoTerminators)
{
    file_.write("[S]\r\nlong=1\r\nother=1\r\n");
    for (DWORD size = 1; size <= 13; ++size) {
        std::string names("long\0other\0\0", 12), buffer(20, 'x');
        DWORD length = GetPrivateProfileStringA("S", nullptr, "", buffer.data(), size, file_.path());
        bool whole = size >= 12;
        EXPECT_EQ(length, whole ? 11u : size > 2 ? size - 2 : 0) << size;
        std::string expected = whole ? names : names.substr(0, length) + std::string(size - length, '\0');
        EXPECT_EQ(buffer.substr(0, expected.size()), expected) << size;
        EXPECT_EQ(buffer[size], 'x') << size;
    }
}

TEST_F(ProfileOnDisk, LinksAndModesAreKept)
{
    std::string target = std::string(file_.native()) + ".target";
    file_.write("[S]\r\nk=1\r\n");
    rename(file_.native(), target.c_str());
    chmod(target.c_str(), 0640);
    ASSERT_EQ(symlink(target.c_str(), file_.native()), 0);
    EXPECT_TRUE(set("k", "2"));
    struct stat status;
    ASSERT_EQ(lstat(file_.native(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    ASSERT_EQ(stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
    EXPECT_EQ(get("k"), "2");
    unlink(target.c_str());
}

TEST_F(ProfileOnDisk, WritersInSeveralProcessesLoseNothing)
{
    constexpr int writers = 4, keys = 50;
    for (int writer = 0; writer < writers; ++writer) {
        if (fork() == 0) {
            for (int key = 0; key < keys; ++key)
                set(("w" + std::to_string(writer) + "-" + std::to_string(key)).c_str(), "here");
            _exit(0);
        }
    }
    while (wait(nullptr) > 0) {
    }
    for (int writer = 0; writer < writers; ++writer) {
        for (int key = 0; key < keys; ++key)
            EXPECT_EQ(get(("w" + std::to_string(writer) + "-" + std::to_string(key)).c_str()), "here");
    }
}

TEST_F(ProfileOnDisk, NamesWithoutAFolderLieInTheWindowsFolder)
{
    std::string name = "layer-test-" + std::to_string(getpid()) + ".ini";
    EXPECT_TRUE(WritePrivateProfileStringA("S", "k", "v", name.c_str()));
    char folder[MAX_PATH], value[10];
    GetWindowsDirectoryA(folder, sizeof folder);
    std::string full = std::string(folder) + "\\" + name;
    GetPrivateProfileStringA("S", "k", "", value, sizeof value, full.c_str());
    EXPECT_STREQ(value, "v");
    unlink((std::string(getenv("WIN32_DRIVE_C")) + "/windows/" + name).c_str());
}

} // namespace
