// Files and folders, as programs of either platform see them.
#include "TemporaryFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <thread>
#include <vector>

namespace {

class Files : public testing::Test {
protected:
    Files() : folder_("win32-files") {}

    HANDLE open(const std::string &name, DWORD disposition, DWORD access = GENERIC_READ | GENERIC_WRITE,
                DWORD share = 0, DWORD flags = FILE_ATTRIBUTE_NORMAL)
    {
        SetLastError(12345);
        return CreateFileA(folder_.path(name).c_str(), access, share, nullptr, disposition, flags, nullptr);
    }

    // The last error of opening, 0 or 183 when it works.
    DWORD openError(const std::string &name, DWORD disposition, DWORD access = GENERIC_READ | GENERIC_WRITE,
                    DWORD share = 0)
    {
        HANDLE file = open(name, disposition, access, share);
        DWORD error = GetLastError();
        EXPECT_EQ(file == INVALID_HANDLE_VALUE, error != 0 && error != ERROR_ALREADY_EXISTS) << name << ' ' << error;
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
        return error;
    }

    std::vector<std::string> find(const std::string &pattern)
    {
        std::vector<std::string> names;
        WIN32_FIND_DATAA data;
        HANDLE search = FindFirstFileA(folder_.path(pattern).c_str(), &data);
        if (search == INVALID_HANDLE_VALUE)
            return {"error " + std::to_string(GetLastError())};
        do
            names.push_back(data.cFileName);
        while (FindNextFileA(search, &data));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_MORE_FILES));
        EXPECT_TRUE(FindClose(search));
        return names;
    }

    TemporaryFolder folder_;
};

using Names = std::vector<std::string>;

TEST_F(Files, DispositionsDecideOnExistingAndMissingFiles)
{
    EXPECT_EQ(openError("a", OPEN_EXISTING), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(openError("none\\a", OPEN_EXISTING), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(openError("none\\a", CREATE_ALWAYS), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(openError("a", TRUNCATE_EXISTING), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(openError("a", CREATE_NEW), 0u);
    EXPECT_EQ(openError("A", CREATE_NEW), static_cast<DWORD>(ERROR_FILE_EXISTS));
    folder_.write("a", "content");
    EXPECT_EQ(openError("a", OPEN_ALWAYS), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(folder_.read("A"), "content");
    EXPECT_EQ(openError("A", TRUNCATE_EXISTING), 0u);
    EXPECT_EQ(folder_.read("a"), "");
    folder_.write("a", "content");
    EXPECT_EQ(openError("a", CREATE_ALWAYS), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(folder_.read("a"), "");
    EXPECT_EQ(openError("new", OPEN_ALWAYS), 0u);
    EXPECT_EQ(find("*"), Names({".", "..", "a", "new"}));
}

TEST_F(Files, PathsAreSettledBeforeTheDiskIsLookedAt)
{
    CreateDirectoryA(folder_.path("Sub").c_str(), nullptr);
    folder_.write("Sub\\File.txt", "x");
    for (const char *path :
         {"Sub\\File.txt", "SUB\\file.TXT", "sub/File.txt", "Sub\\..\\sub\\.\\File.txt", "Sub\\File.txt.",
          "Sub\\File.txt  ", "none\\..\\Sub\\File.txt", "Sub\\\\File.txt", "Sub.\\File.txt"})
        EXPECT_EQ(openError(path, OPEN_EXISTING), 0u) << path;
    EXPECT_EQ(openError("Sub\\File.txt\\x", OPEN_EXISTING), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(openError("Sub", OPEN_EXISTING), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    for (const char *name : {"*", "x?y", "x<y", "x|y", "x\x01y"})
        EXPECT_EQ(openError(name, CREATE_NEW), static_cast<DWORD>(ERROR_INVALID_NAME)) << name;
    EXPECT_EQ(openError(std::string(256, 'n'), CREATE_NEW), static_cast<DWORD>(ERROR_FILENAME_EXCED_RANGE));
    std::string longest = folder_.path("");
    std::string name(259 - longest.size() - 1, 'n');
    EXPECT_EQ(openError(name, CREATE_NEW), 0u);
    EXPECT_EQ(CreateFileA("", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    HANDLE null = CreateFileA("NUL", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(null, INVALID_HANDLE_VALUE);
    CloseHandle(null);
}

TEST_F(Files, ShareModesHoldBetweenOpens)
{
    folder_.write("f", "x");
    struct {
        DWORD access, share, access2, share2;
        bool allowed;
    } const cases[] = {
        {GENERIC_READ, 0, GENERIC_READ, FILE_SHARE_READ, false},
        {GENERIC_READ, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ, true},
        {GENERIC_READ, FILE_SHARE_READ, GENERIC_WRITE, FILE_SHARE_READ, false},
        {GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, GENERIC_WRITE, FILE_SHARE_READ, true},
        {GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, GENERIC_WRITE, 0, false},
        {GENERIC_WRITE, FILE_SHARE_WRITE, GENERIC_WRITE, FILE_SHARE_WRITE, true},
        {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ, false},
        {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, true},
    };
    for (auto &[access, share, access2, share2, allowed] : cases) {
        HANDLE first = open("f", OPEN_EXISTING, access, share);
        ASSERT_NE(first, INVALID_HANDLE_VALUE);
        EXPECT_EQ(openError("F", OPEN_EXISTING, access2, share2),
                  allowed ? 0u : static_cast<DWORD>(ERROR_SHARING_VIOLATION))
            << std::hex << access << ' ' << share << ' ' << access2 << ' ' << share2;
        EXPECT_FALSE(DeleteFileA(folder_.path("f").c_str()));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
        CloseHandle(first);
        EXPECT_EQ(openError("f", OPEN_EXISTING), 0u) << "closing ends the claim";
    }
    HANDLE deletable = open("f", OPEN_EXISTING, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE);
    EXPECT_TRUE(DeleteFileA(folder_.path("f").c_str()));
    CloseHandle(deletable);
}

TEST_F(Files, PositionFollowsReadsWritesAndSeeks)
{
    HANDLE file = open("f", CREATE_NEW);
    DWORD count;
    char buffer[20];
    EXPECT_TRUE(WriteFile(file, "0123456789", 10, &count, nullptr));
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 10u);
    EXPECT_TRUE(ReadFile(file, buffer, 5, &count, nullptr));
    EXPECT_EQ(count, 0u) << "at the end of the file";
    EXPECT_EQ(SetFilePointer(file, -4, nullptr, FILE_END), 6u);
    EXPECT_TRUE(ReadFile(file, buffer, 20, &count, nullptr));
    EXPECT_EQ(std::string(buffer, count), "6789");
    EXPECT_EQ(SetFilePointer(file, -3, nullptr, FILE_CURRENT), 7u);
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_EQ(GetFileSize(file, nullptr), 7u);
    EXPECT_EQ(SetFilePointer(file, -1, nullptr, FILE_BEGIN), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(SetFilePointer(file, 20, nullptr, FILE_BEGIN), 20u);
    EXPECT_TRUE(WriteFile(file, "x", 1, &count, nullptr));
    OVERLAPPED place{};
    place.Offset = 5;
    EXPECT_TRUE(ReadFile(file, buffer, 4, &count, &place));
    EXPECT_EQ(std::string(buffer, count), std::string("56\0\0", 4));
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 9u) << "a place given moves the position too";
    place.Offset = 100;
    EXPECT_FALSE(ReadFile(file, buffer, 4, &count, &place));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_HANDLE_EOF));
    LONG high = 1;
    EXPECT_EQ(SetFilePointer(file, 5, &high, FILE_BEGIN), 5u);
    EXPECT_EQ(high, 1);
    LARGE_INTEGER distance, position;
    distance.QuadPart = -5;
    EXPECT_TRUE(SetFilePointerEx(file, distance, &position, FILE_CURRENT));
    EXPECT_EQ(position.QuadPart, LONGLONG{1} << 32);
    EXPECT_TRUE(FlushFileBuffers(file));
    CloseHandle(file);
    EXPECT_FALSE(ReadFile(file, buffer, 1, &count, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
}

TEST_F(Files, AccessRightsHold)
{
    folder_.write("f", "x");
    DWORD count;
    char byte;
    HANDLE reader = open("f", OPEN_EXISTING, GENERIC_READ);
    EXPECT_FALSE(WriteFile(reader, "y", 1, &count, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_FALSE(SetEndOfFile(reader));
    CloseHandle(reader);
    HANDLE writer = open("f", OPEN_EXISTING, GENERIC_WRITE);
    EXPECT_FALSE(ReadFile(writer, &byte, 1, &count, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    CloseHandle(writer);
}

TEST_F(Files, OverlappedTransfersEndWithTheirEvent)
{
    HANDLE file = open("f", CREATE_NEW, GENERIC_READ | GENERIC_WRITE, 0, FILE_FLAG_OVERLAPPED);
    OVERLAPPED transfer{};
    transfer.hEvent = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::string data(1 << 20, 'd');
    DWORD count = 0;
    EXPECT_FALSE(ReadFile(file, data.data(), 1, &count, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER)) << "an overlapped file needs the record";
    for (DWORD piece = 0; piece < 4; ++piece) {
        transfer.Offset = piece << 20;
        if (!WriteFile(file, data.data(), 1 << 20, nullptr, &transfer)) {
            ASSERT_EQ(GetLastError(), static_cast<DWORD>(ERROR_IO_PENDING));
        }
        ASSERT_TRUE(GetOverlappedResult(file, &transfer, &count, TRUE));
        EXPECT_EQ(count, 1u << 20);
        EXPECT_EQ(WaitForSingleObject(transfer.hEvent, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    }
    EXPECT_EQ(GetFileSize(file, nullptr), 4u << 20);
    transfer.Offset = (4u << 20) - 3;
    std::string buffer(10, 0);
    ReadFile(file, buffer.data(), 10, nullptr, &transfer);
    EXPECT_TRUE(GetOverlappedResult(file, &transfer, &count, TRUE));
    EXPECT_EQ(buffer.substr(0, count), "ddd");
    transfer.Offset = 4u << 20;
    ReadFile(file, buffer.data(), 10, nullptr, &transfer);
    EXPECT_FALSE(GetOverlappedResult(file, &transfer, &count, TRUE));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_HANDLE_EOF));
    CloseHandle(transfer.hEvent);
    CloseHandle(file);
}

struct Completion {
    OVERLAPPED overlapped; // first, so that the routine finds the rest
    int calls;
    DWORD error, count, thread;
};

void CALLBACK noteCompletion(DWORD error, DWORD count, LPOVERLAPPED overlapped)
{
    auto completion = reinterpret_cast<Completion *>(overlapped);
    ++completion->calls;
    completion->error = error;
    completion->count = count;
    completion->thread = GetCurrentThreadId();
}

TEST_F(Files, CompletionRoutinesRunInAlertableWaitsOfTheirThreadOnly)
{
    HANDLE file = open("f", CREATE_NEW, GENERIC_READ | GENERIC_WRITE, 0, FILE_FLAG_OVERLAPPED);
    Completion completion{};
    ASSERT_TRUE(WriteFileEx(file, "0123456789", 10, &completion.overlapped, noteCompletion));
    Sleep(50);
    EXPECT_EQ(WaitForSingleObject(file, 1000), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(completion.calls, 0);
    std::thread([] { SleepEx(20, TRUE); }).join();
    EXPECT_EQ(completion.calls, 0) << "another thread's wait does not run it";
    EXPECT_EQ(SleepEx(5000, TRUE), static_cast<DWORD>(WAIT_IO_COMPLETION));
    EXPECT_EQ(completion.calls, 1);
    EXPECT_EQ(completion.error, 0u);
    EXPECT_EQ(completion.count, 10u);
    EXPECT_EQ(completion.thread, GetCurrentThreadId());
    EXPECT_EQ(SleepEx(0, TRUE), 0u);
    CloseHandle(file);
    EXPECT_EQ(folder_.read("f"), "0123456789");
}

TEST_F(Files, UnbufferedFilesTakeWholeSectorsOnly)
{
    folder_.write("f", std::string(4096, 's'));
    HANDLE file = open("f", OPEN_EXISTING, GENERIC_READ, 0, FILE_FLAG_NO_BUFFERING);
    alignas(4096) static char buffer[8192];
    DWORD count;
    EXPECT_TRUE(ReadFile(file, buffer, 4096, &count, nullptr));
    EXPECT_EQ(count, 4096u);
    CloseHandle(file);
}

TEST_F(Files, SearchesFollowTheOrderOfNamesAndThePattern)
{
    for (const char *name : {"z1", "Z2", "a1.txt", "B1.TXT", "_x", "m.tar.gz", "noext", ".dot", "two words"})
        folder_.write(name, name);
    EXPECT_EQ(find("*"),
              Names({".", "..", ".dot", "a1.txt", "B1.TXT", "m.tar.gz", "noext", "two words", "z1", "Z2", "_x"}));
    EXPECT_EQ(find("*.*"), find("*"));
    EXPECT_EQ(find("*.txt"), Names({"a1.txt", "B1.TXT"}));
    EXPECT_EQ(find("?1"), Names({"z1"}));
    EXPECT_EQ(find("m*z"), Names({"m.tar.gz"}));
    EXPECT_EQ(find("*.t*g*"), Names({"m.tar.gz"}));
    EXPECT_EQ(find("A1.TXT"), Names({"a1.txt"})) << "with the spelling on disk";
    EXPECT_EQ(find("none"), Names({"error 2"}));
    EXPECT_EQ(find("*.none"), Names({"error 2"}));
    EXPECT_EQ(find("none\\*"), Names({"error 3"}));
    EXPECT_EQ(find(""), Names({folder_.path().substr(folder_.path().rfind('\\') + 1)}));
    WIN32_FIND_DATAA data;
    HANDLE search = FindFirstFileA(folder_.path("NOEXT").c_str(), &data);
    EXPECT_EQ(data.nFileSizeLow, 5u);
    EXPECT_FALSE(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_TRUE(FindClose(search));
}

TEST_F(Files, FoldersAreMadeAndRemoved)
{
    std::string sub = folder_.path("Sub");
    EXPECT_TRUE(CreateDirectoryA(sub.c_str(), nullptr));
    EXPECT_FALSE(CreateDirectoryA(folder_.path("SUB").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_FALSE(CreateDirectoryA(folder_.path("none\\x").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    folder_.write("Sub\\f", "");
    EXPECT_FALSE(RemoveDirectoryA(sub.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DIR_NOT_EMPTY));
    EXPECT_FALSE(RemoveDirectoryA(folder_.path("Sub\\f").c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DIRECTORY));
    EXPECT_FALSE(DeleteFileA(sub.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_TRUE(DeleteFileA(folder_.path("sub\\F").c_str()));
    EXPECT_TRUE(RemoveDirectoryA(folder_.path("sub").c_str()));
    EXPECT_FALSE(RemoveDirectoryA(sub.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(DeleteFileA(sub.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
}

TEST_F(Files, AttributesAreToldAndSet)
{
    folder_.write("f", "x");
    std::string path = folder_.path("f");
    EXPECT_EQ(GetFileAttributesA(folder_.path().c_str()) & FILE_ATTRIBUTE_DIRECTORY,
              static_cast<DWORD>(FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_EQ(GetFileAttributesA(path.c_str())
                  & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN),
              0u);
    EXPECT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(DeleteFileA(path.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_FALSE(GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_READONLY);
    for (auto &[name, error] : std::vector<std::pair<std::string, DWORD>>{
             {"none", ERROR_FILE_NOT_FOUND}, {"none\\x", ERROR_PATH_NOT_FOUND}, {"*", ERROR_INVALID_NAME}}) {
        EXPECT_EQ(GetFileAttributesA(folder_.path(name).c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(GetLastError(), error) << name;
    }
}

TEST_F(Files, TextsThatNameNoFileAreRefused)
{
    folder_.write("f", "x");
    std::string asFolder = folder_.path("f\\"), wild = folder_.path("f*"), good = folder_.path("f");
    DWORD type;
    char buffer[MAX_PATH];
    WIN32_FIND_DATAA data;
    auto expectRefusals = [&](const char *path, DWORD error, DWORD folderError) {
        auto refused = [&](const char *call, bool failed, DWORD expected) {
            EXPECT_TRUE(failed) << call;
            EXPECT_EQ(GetLastError(), expected) << call << ' ' << (path ? path : "null");
        };
        refused("open", CreateFileA(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr) == INVALID_HANDLE_VALUE,
                error);
        refused("create", CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr) == INVALID_HANDLE_VALUE,
                error);
        refused("set attributes", !SetFileAttributesA(path, FILE_ATTRIBUTE_NORMAL), error);
        refused("delete", !DeleteFileA(path), error);
        refused("move", !MoveFileA(path, folder_.path("g").c_str()), error);
        refused("remove folder", !RemoveDirectoryA(path), folderError);
        refused("change folder", !SetCurrentDirectoryA(path), folderError);
    };
    expectRefusals(nullptr, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME);
    expectRefusals("", ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME);
    expectRefusals(wild.c_str(), ERROR_INVALID_NAME, ERROR_INVALID_NAME);
    EXPECT_FALSE(DeleteFileA(asFolder.c_str()));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_NAME));
    EXPECT_FALSE(MoveFileA(asFolder.c_str(), folder_.path("g").c_str()));
    EXPECT_EQ(GetFileAttributesA(asFolder.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_FALSE(MoveFileA(good.c_str(), ""));
    EXPECT_FALSE(CreateDirectoryA(nullptr, nullptr));
    EXPECT_FALSE(CreateDirectoryA(wild.c_str(), nullptr));
    EXPECT_EQ(GetFileAttributesA(nullptr), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetFullPathNameA(nullptr, sizeof buffer, buffer, nullptr), 0u);
    EXPECT_EQ(FindFirstFileA(nullptr, &data), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(GetBinaryTypeA(nullptr, &type));
    EXPECT_EQ(GetDriveTypeA("nosuch"), static_cast<UINT>(DRIVE_NO_ROOT_DIR));
    EXPECT_EQ(folder_.read("f"), "x");
}

TEST_F(Files, AFolderMarkedReadOnlyStillTakesFiles)
{
    std::string folder = folder_.path("d");
    CreateDirectoryA(folder.c_str(), nullptr);
    EXPECT_TRUE(SetFileAttributesA(folder.c_str(), FILE_ATTRIBUTE_READONLY));
    folder_.write("d\\in", "x");
    EXPECT_EQ(folder_.read("d\\in"), "x");
    EXPECT_TRUE(DeleteFileA(folder_.path("d\\in").c_str()));
    SetFileAttributesA(folder.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(RemoveDirectoryA(folder.c_str()));
}

TEST_F(Files, TimesOfAllOrNoBitsChangeNothing)
{
    HANDLE file = open("f", CREATE_ALWAYS);
    FILETIME before, after, none = {0, 0}, all = {0xffffffff, 0xffffffff};
    GetFileTime(file, nullptr, nullptr, &before);
    EXPECT_TRUE(SetFileTime(file, nullptr, &none, &none));
    EXPECT_TRUE(SetFileTime(file, nullptr, &all, &all));
    GetFileTime(file, nullptr, nullptr, &after);
    EXPECT_EQ(CompareFileTime(&before, &after), 0);
    CloseHandle(file);
}

TEST_F(Files, RenamingNeverReplaces)
{
    folder_.write("a", "A");
    folder_.write("b", "B");
    auto renameError = [&](const char *from, const char *to) {
        SetLastError(0);
        return rename(folder_.path(from).c_str(), folder_.path(to).c_str()) == 0 ? 0 : GetLastError();
    };
    EXPECT_EQ(renameError("a", "b"), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(renameError("none", "c"), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(renameError("a", "C"), 0u);
    EXPECT_EQ(folder_.read("c"), "A");
    EXPECT_EQ(renameError("C", "c"), 0u) << "a change of case alone";
    EXPECT_EQ(find("*").size(), 4u);
    EXPECT_EQ(folder_.read("c"), "A");
}

TEST_F(Files, CurrentDirectoryServesRelativePaths)
{
    char previous[MAX_PATH], now[MAX_PATH], full[MAX_PATH];
    GetCurrentDirectoryA(sizeof previous, previous);
    folder_.write("f", "x");
    EXPECT_TRUE(SetCurrentDirectoryA(folder_.path().c_str()));
    DWORD length = GetCurrentDirectoryA(sizeof now, now);
    EXPECT_EQ(_stricmp(now, folder_.path().c_str()), 0);
    EXPECT_EQ(GetCurrentDirectoryA(3, full), length + 1);
    EXPECT_NE(GetFileAttributesA("F"), INVALID_FILE_ATTRIBUTES);
    EXPECT_NE(GetFileAttributesA(".\\..\\."), INVALID_FILE_ATTRIBUTES);
    char *name = nullptr;
    GetFullPathNameA("x\\..\\f", sizeof full, full, &name);
    EXPECT_STREQ(full, (std::string(now) + "\\f").c_str());
    EXPECT_STREQ(name, "f");
    EXPECT_FALSE(SetCurrentDirectoryA("none"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(SetCurrentDirectoryA("f"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DIRECTORY));
    SetCurrentDirectoryA(previous);
}

TEST_F(Files, ProgramsAreRecognised)
{
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, sizeof program);
    DWORD type = 99;
    EXPECT_TRUE(GetBinaryTypeA(program, &type));
    EXPECT_EQ(type, static_cast<DWORD>(SCS_64BIT_BINARY));
    folder_.write("text", "MZ but no more");
    EXPECT_FALSE(GetBinaryTypeA(folder_.path("none").c_str(), &type));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    folder_.write("text", "no program");
    EXPECT_FALSE(GetBinaryTypeA(folder_.path("text").c_str(), &type));
}

TEST_F(Files, TimesArePreservedAndConverted)
{
    HANDLE file = open("f", CREATE_NEW);
    SYSTEMTIME given{2004, 2, 0, 29, 12, 34, 56, 0}, read{};
    FILETIME time, found, local;
    ASSERT_TRUE(SystemTimeToFileTime(&given, &time));
    EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
    EXPECT_TRUE(GetFileTime(file, nullptr, nullptr, &found));
    EXPECT_EQ(CompareFileTime(&time, &found), 0);
    CloseHandle(file);
    EXPECT_TRUE(FileTimeToSystemTime(&found, &read));
    EXPECT_EQ(read.wDayOfWeek, 0) << "a Sunday";
    EXPECT_EQ(read.wDay, 29);
    EXPECT_EQ(read.wSecond, 56);
    EXPECT_TRUE(FileTimeToLocalFileTime(&found, &local));
    EXPECT_TRUE(LocalFileTimeToFileTime(&local, &found));
    EXPECT_EQ(CompareFileTime(&time, &found), 0);
    SYSTEMTIME wrong = given;
    wrong.wMonth = 13;
    EXPECT_FALSE(SystemTimeToFileTime(&wrong, &time));
    SYSTEMTIME now{};
    GetLocalTime(&now);
    time_t seconds = ::time(nullptr);
    EXPECT_EQ(now.wYear, localtime(&seconds)->tm_year + 1900);
    SYSTEMTIME first{1601, 1, 0, 1, 0, 0, 0, 0};
    SystemTimeToFileTime(&first, &time);
    EXPECT_EQ(time.dwLowDateTime | time.dwHighDateTime, 0u);
}

TEST_F(Files, DrivesAreListedAndMeasured)
{
    DWORD mask = GetLogicalDrives();
    EXPECT_TRUE(mask & 1 << ('C' - 'A'));
    char strings[200];
    DWORD length = GetLogicalDriveStringsA(sizeof strings, strings);
    EXPECT_EQ(length % 4, 0u);
    EXPECT_EQ(strings[length], 0);
    EXPECT_EQ(GetLogicalDriveStringsA(2, strings), length + 1);
    ULARGE_INTEGER freeToCaller, total, free;
    EXPECT_TRUE(GetDiskFreeSpaceExA("C:\\", &freeToCaller, &total, &free));
    EXPECT_GT(total.QuadPart, 1u << 20);
    EXPECT_LE(free.QuadPart, total.QuadPart);
    DWORD sectors, bytes, freeClusters, clusters;
    EXPECT_TRUE(GetDiskFreeSpaceA("C:\\", &sectors, &bytes, &freeClusters, &clusters));
    EXPECT_EQ(bytes, 512u);
    EXPECT_FALSE(GetDiskFreeSpaceExA("Q:\\", &freeToCaller, &total, &free));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
}

TEST(Waits, EventsSignalAndReset)
{
    HANDLE manual = CreateEventA(nullptr, TRUE, FALSE, nullptr),
           automatic = CreateEventA(nullptr, FALSE, TRUE, nullptr);
    EXPECT_EQ(WaitForSingleObject(manual, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(WaitForSingleObject(automatic, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(WaitForSingleObject(automatic, 20), static_cast<DWORD>(WAIT_TIMEOUT)) << "one wait takes the signal";
    SetEvent(manual);
    EXPECT_EQ(WaitForSingleObject(manual, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(WaitForSingleObject(manual, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    HANDLE both[] = {automatic, manual};
    EXPECT_EQ(WaitForMultipleObjects(2, both, FALSE, 0), static_cast<DWORD>(WAIT_OBJECT_0 + 1));
    EXPECT_EQ(WaitForMultipleObjects(2, both, TRUE, 10), static_cast<DWORD>(WAIT_TIMEOUT));
    std::thread setter([&] {
        Sleep(20);
        SetEvent(automatic);
    });
    EXPECT_EQ(WaitForMultipleObjects(2, both, TRUE, 10000), static_cast<DWORD>(WAIT_OBJECT_0));
    setter.join();
    ResetEvent(manual);
    EXPECT_EQ(WaitForSingleObject(manual, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    CloseHandle(manual);
    CloseHandle(automatic);
    EXPECT_EQ(WaitForSingleObject(manual, 0), static_cast<DWORD>(WAIT_FAILED));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_FALSE(SetEvent(manual));
}

} // namespace
