// Files as only the layer has them: on a Unix disk, with spellings and rights of its own.
#include "TemporaryFolder.h"

#include <windows.h>

#include <win32/control.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

class FileLayer : public testing::Test {
protected:
    FileLayer() : folder_("layer-files"), handles_(Win32Control_OpenHandles())
    {
        native_ = folder_.path().substr(2) + "/";
        std::replace(native_.begin(), native_.end(), '\\', '/');
    }
    ~FileLayer() override
    {
        Win32Control_Reset();
        EXPECT_EQ(Win32Control_OpenHandles(), handles_);
    }

    void make(const std::string &diskName, const std::string &content = "")
    {
        std::ofstream(native_ + diskName) << content;
    }
    bool onDisk(const std::string &diskName) { return access((native_ + diskName).c_str(), F_OK) == 0; }

    std::set<std::string> names()
    {
        std::set<std::string> found;
        WIN32_FIND_DATAA data;
        HANDLE search = FindFirstFileA(folder_.path("*").c_str(), &data);
        do
            found.insert(data.cFileName);
        while (FindNextFileA(search, &data));
        FindClose(search);
        EXPECT_FALSE(FindClose(search)) << "a closed search is no handle";
        found.erase(".");
        found.erase("..");
        return found;
    }

    TemporaryFolder folder_;
    std::string native_;
    DWORD handles_;
};

TEST_F(FileLayer, NamesAreUtf8OnDiskAndCodePageInWin32)
{
    folder_.write("Gr\xfc\xdf"
                  "e.txt",
                  "x");
    EXPECT_TRUE(onDisk("Gr\xc3\xbc\xc3\x9f"
                       "e.txt"));
    EXPECT_EQ(folder_.read("GR\xdc\xdf"
                           "E.TXT"),
              "x")
        << "letters beyond A to Z fold too";
    EXPECT_EQ(names(), std::set<std::string>({"Gr\xfc\xdf"
                                              "e.txt"}));
}

TEST_F(FileLayer, NamesThatWin32CannotSpellStillOpen)
{
    const char *odd[] = {"\xe4\xb8\xad.txt",
                         "bad\xff"
                         "byte",
                         "a:b",
                         "back\\slash",
                         "trailing.",
                         "trailing ",
                         "50%\xe4\xb8\xad",
                         "que?ry"};
    for (const char *name : odd)
        make(name, name);
    make("100%41.txt", "literal");
    std::set<std::string> found = names();
    EXPECT_EQ(found, std::set<std::string>({"%E4%B8%AD.txt", "bad%FFbyte", "a%3Ab", "back%5Cslash", "trailing%2E",
                                            "trailing%20", "50%25%E4%B8%AD", "que%3Fry", "100%41.txt"}));
    std::multiset<std::string> contents, expected(std::begin(odd), std::end(odd));
    expected.insert("literal");
    for (const std::string &name : found)
        contents.insert(folder_.read(name));
    EXPECT_EQ(contents, expected);
    for (const std::string &name : found)
        EXPECT_TRUE(DeleteFileA(folder_.path(name).c_str())) << name;
    EXPECT_TRUE(names().empty());
}

TEST_F(FileLayer, ExactCaseGoesBeforeOtherCase)
{
    make("readme", "lower");
    make("README", "upper");
    EXPECT_EQ(folder_.read("readme"), "lower");
    EXPECT_EQ(folder_.read("README"), "upper");
    std::string either = folder_.read("ReadMe");
    EXPECT_TRUE(either == "lower" || either == "upper");
}

// The cache of a folder sees what other programs do, at once.
TEST_F(FileLayer, ChangesByOthersAreSeen)
{
    for (int round = 0; round < 200; ++round) {
        std::string name = "File" + std::to_string(round);
        ASSERT_EQ(folder_.read("file" + std::to_string(round)), "(missing)");
        usleep(round % 3 * 100);
        make(name, name);
        usleep(25000 / (round < 20 ? 1 : 1000));
        if (round < 20) {
            ASSERT_EQ(folder_.read("FILE" + std::to_string(round)), name);
        }
    }
    usleep(25000);
    EXPECT_EQ(folder_.read("FILE199"), "File199");
}

TEST_F(FileLayer, HiddenFilesAreThoseWithADotOrAnAttribute)
{
    make(".dot");
    make("plain");
    auto isHidden = [&](const char *name) {
        return (GetFileAttributesA(folder_.path(name).c_str()) & FILE_ATTRIBUTE_HIDDEN) != 0;
    };
    EXPECT_TRUE(isHidden(".dot"));
    EXPECT_FALSE(isHidden("plain"));
    bool keepsAttributes = setxattr((native_ + "plain").c_str(), "user.test", "x", 1, 0) == 0;
    if (!keepsAttributes)
        GTEST_SKIP() << "this file system has no extended attributes";
    EXPECT_TRUE(SetFileAttributesA(folder_.path("plain").c_str(), FILE_ATTRIBUTE_HIDDEN));
    EXPECT_TRUE(isHidden("plain"));
    EXPECT_TRUE(SetFileAttributesA(folder_.path("plain").c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_FALSE(isHidden("plain"));
}

TEST_F(FileLayer, ReadOnlyHoldsForTheSuperuserToo)
{
    make("f", "x");
    chmod((native_ + "f").c_str(), 0444);
    HANDLE file = CreateFileA(folder_.path("f").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(file, INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    file = CreateFileA(folder_.path("f").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    EXPECT_EQ(file, INVALID_HANDLE_VALUE);
    EXPECT_EQ(folder_.read("f"), "x");
}

TEST_F(FileLayer, TheCLibraryFollowsTheRulesOfWin32)
{
    make("Old.txt", "old");
    FILE *file = fopen(folder_.path("OLD.TXT").c_str(), "w");
    ASSERT_TRUE(file);
    fclose(file);
    SetCurrentDirectoryA(folder_.path().c_str());
    file = fopen("oLD.txt", "a");
    fputs("more", file);
    fclose(file);
    SetCurrentDirectoryA("Z:\\");
    EXPECT_EQ(names(), std::set<std::string>({"Old.txt"}));
    EXPECT_EQ(folder_.read("Old.txt"), "more");
    HANDLE held = CreateFileA(folder_.path("old.txt").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(remove(folder_.path("Old.txt").c_str()), 0) << "it is held open";
    CloseHandle(held);
    chmod((native_ + "Old.txt").c_str(), 0444);
    EXPECT_NE(remove(folder_.path("Old.txt").c_str()), 0) << "it is read-only";
    EXPECT_NE(remove(folder_.path().c_str()), 0) << "it is a folder";
    chmod((native_ + "Old.txt").c_str(), 0644);
    EXPECT_EQ(remove(folder_.path("Old.txt").c_str()), 0);
}

TEST_F(FileLayer, FilesMoveToOtherDisksWithWhatTheyHave)
{
    std::string other = "/dev/shm/moved-" + std::to_string(getpid());
    struct stat here, there;
    if (stat("/dev/shm", &there) != 0 || stat(native_.c_str(), &here) != 0 || here.st_dev == there.st_dev)
        GTEST_SKIP() << "there is one disk only";
    make("f", std::string(200000, 'x'));
    stat((native_ + "f").c_str(), &here);
    EXPECT_TRUE(MoveFileA(folder_.path("f").c_str(), ("Z:" + other).c_str()));
    EXPECT_FALSE(onDisk("f"));
    ASSERT_EQ(stat(other.c_str(), &there), 0);
    EXPECT_EQ(there.st_size, 200000);
    EXPECT_EQ(there.st_mtim.tv_sec, here.st_mtim.tv_sec);
    make("g");
    EXPECT_FALSE(MoveFileA(folder_.path("g").c_str(), ("Z:" + other).c_str())) << "nothing is replaced";
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_TRUE(onDisk("g"));
    unlink(other.c_str());
}

TEST_F(FileLayer, AProfileIsReplacedAsItStands)
{
    make("p.ini", "[s]\nk=1\n");
    std::string path = folder_.path("p.ini");
    auto set = [&](const char *value) { return WritePrivateProfileStringA("s", "k", value, path.c_str()); };
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
    if (!(GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_HIDDEN))
        GTEST_SKIP() << "no extended attributes here";
    EXPECT_TRUE(set("2"));
    EXPECT_TRUE(GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_HIDDEN);
    HANDLE held = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(set("3"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    CloseHandle(held);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(set("4"));
    EXPECT_EQ(GetPrivateProfileIntA("s", "k", 0, path.c_str()), 2u);
    ASSERT_EQ(symlink("target.ini", (native_ + "link.ini").c_str()), 0);
    EXPECT_TRUE(WritePrivateProfileStringA("s", "k", "5", folder_.path("link.ini").c_str()));
    EXPECT_TRUE(onDisk("target.ini")) << "made where the link leads";
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileLayer, PositionsThatTheCallerCannotBeToldAreRefused)
{
    HANDLE file = CreateFileA(folder_.path("f").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    LONG high = 1;
    EXPECT_EQ(SetFilePointer(file, 5, &high, FILE_BEGIN), 5u);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    high = 0;
    EXPECT_EQ(SetFilePointer(file, 0, &high, FILE_CURRENT), 5u);
    EXPECT_EQ(high, 1) << "the position stays";
    CloseHandle(file);
}

TEST_F(FileLayer, ATrailByteIsNoSeparator)
{
    if (GetACP() != 932)
        GTEST_SKIP() << "runs with the active code page 932 only";
    folder_.write("a\x83\x5c", "x"); // the second byte of a letter is a backslash's
    EXPECT_TRUE(onDisk("a\xe3\x82\xbd"));
    EXPECT_EQ(names(), std::set<std::string>({"a\x83\x5c"}));
    EXPECT_TRUE(MoveFileA(folder_.path("a\x83\x5c").c_str(), folder_.path("b\x83\x5c").c_str()));
    char full[MAX_PATH], *name = nullptr;
    EXPECT_GT(GetFullPathNameA(folder_.path("b\x83\x5c").c_str(), sizeof full, full, &name), 0u);
    EXPECT_STREQ(name, "b\x83\x5c");
    EXPECT_TRUE(DeleteFileA(folder_.path("b\x83\x5c").c_str()));
    EXPECT_TRUE(WritePrivateProfileStringA("s", "k", "1", "\x83\x5c.ini")) << "a name alone lies with Windows";
    EXPECT_EQ(GetPrivateProfileIntA("s", "k", 0, "C:\\windows\\\x83\x5c.ini"), 1u);
    DeleteFileA("C:\\windows\\\x83\x5c.ini");
}

TEST_F(FileLayer, ShareModesHoldAgainstOtherProcesses)
{
    make("f", "x");
    auto openInChild = [&](DWORD access, DWORD share) {
        pid_t child = fork();
        if (child == 0) {
            HANDLE file = CreateFileA(folder_.path("f").c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr);
            _exit(file == INVALID_HANDLE_VALUE ? static_cast<int>(GetLastError()) : 0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WEXITSTATUS(status);
    };
    HANDLE file =
        CreateFileA(folder_.path("f").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(openInChild(GENERIC_READ, FILE_SHARE_READ), 0);
    EXPECT_EQ(openInChild(GENERIC_READ, 0), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(openInChild(GENERIC_WRITE, FILE_SHARE_READ), ERROR_SHARING_VIOLATION);
    CloseHandle(file);
    EXPECT_EQ(openInChild(GENERIC_WRITE, 0), 0);
}

TEST_F(FileLayer, UnbufferedTransfersMustBeAligned)
{
    make("f", std::string(8192, 's'));
    HANDLE file = CreateFileA(folder_.path("f").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                              FILE_FLAG_NO_BUFFERING, nullptr);
    alignas(512) static char buffer[4096];
    DWORD count;
    EXPECT_FALSE(ReadFile(file, buffer, 100, &count, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_FALSE(ReadFile(file, buffer + 1, 512, &count, nullptr));
    EXPECT_EQ(SetFilePointer(file, 100, nullptr, FILE_BEGIN), INVALID_SET_FILE_POINTER);
    EXPECT_TRUE(ReadFile(file, buffer, 512, &count, nullptr));
    CloseHandle(file);
}

int completions;
DWORD lastCompletionError;

void CALLBACK countCompletion(DWORD error, DWORD, LPOVERLAPPED)
{
    ++completions;
    lastCompletionError = error;
}

TEST_F(FileLayer, TransfersInFlightEndBeforeCloseHandleReturns)
{
    constexpr int transfers = 100;
    static char data[1 << 16];
    completions = 0;
    HANDLE file =
        CreateFileA(folder_.path("f").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_FLAG_OVERLAPPED, nullptr);
    std::vector<OVERLAPPED> records(transfers);
    for (int place = 0; place < transfers; ++place) {
        records[static_cast<size_t>(place)].Offset = static_cast<DWORD>(place) * sizeof data;
        ASSERT_TRUE(WriteFileEx(file, data, sizeof data, &records[static_cast<size_t>(place)], countCompletion));
    }
    CloseHandle(file);
    for (const OVERLAPPED &record : records)
        EXPECT_TRUE(HasOverlappedIoCompleted(&record));
    records.clear();
    while (completions < transfers && SleepEx(1000, TRUE) == WAIT_IO_COMPLETION) {
    }
    EXPECT_EQ(completions, transfers) << "each is told, done or cancelled";
}

TEST_F(FileLayer, FailuresReachTheirCallers)
{
    make("f", "x");
    HANDLE file = CreateFileA(folder_.path("f").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                              FILE_FLAG_OVERLAPPED, nullptr);
    Win32Control_FailCalls("WriteFile", ERROR_DISK_FULL, 1, 2);
    OVERLAPPED record{};
    completions = 0;
    ASSERT_TRUE(WriteFileEx(file, "y", 1, &record, countCompletion));
    SleepEx(INFINITE, TRUE);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(lastCompletionError, static_cast<DWORD>(ERROR_DISK_FULL));
    DWORD count;
    record = {};
    EXPECT_FALSE(WriteFile(file, "y", 1, nullptr, &record));
    EXPECT_FALSE(GetOverlappedResult(file, &record, &count, TRUE));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
    CloseHandle(file);
}

TEST_F(FileLayer, RefusedMemoryFailsCleanly)
{
    make("f", "content");
    for (DWORD refused = 1; refused < 40; ++refused) {
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, 1, 0);
        HANDLE file = CreateFileA(folder_.path("F").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_OVERLAPPED, nullptr);
        char buffer[10];
        OVERLAPPED record{};
        DWORD count;
        bool started = file != INVALID_HANDLE_VALUE
                       && (ReadFile(file, buffer, 10, nullptr, &record) || GetLastError() == ERROR_IO_PENDING);
        if (started) {
            EXPECT_TRUE(GetOverlappedResult(file, &record, &count, TRUE) || GetLastError() == ERROR_NOT_ENOUGH_MEMORY);
        }
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
        WIN32_FIND_DATAA data;
        HANDLE search = FindFirstFileA(folder_.path("*").c_str(), &data);
        if (search != INVALID_HANDLE_VALUE)
            FindClose(search);
        CreateDirectoryA(folder_.path("sub").c_str(), nullptr);
        RemoveDirectoryA(folder_.path("sub").c_str());
        Win32Control_Reset();
        RemoveDirectoryA(folder_.path("sub").c_str());
        ASSERT_EQ(Win32Control_OpenHandles(), handles_) << refused;
        ASSERT_EQ(folder_.read("f"), "content");
    }
}

TEST_F(FileLayer, ClosingWhileAnotherThreadReadsIsSafe)
{
    make("f", std::string(1000, 'x'));
    for (int round = 0; round < 300; ++round) {
        HANDLE file = CreateFileA(folder_.path("f").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        std::thread reader([file] {
            char buffer[100];
            DWORD count;
            while (SetFilePointer(file, 0, nullptr, FILE_BEGIN) == 0
                   && ReadFile(file, buffer, sizeof buffer, &count, nullptr)) {
            }
        });
        CloseHandle(file);
        reader.join();
    }
}

} // namespace
