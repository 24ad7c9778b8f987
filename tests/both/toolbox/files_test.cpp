// The File Manager on real folders.
#include "Pascal.h"
#include "TemporaryFolder.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace {

class FileManager : public testing::Test {
protected:
    FileManager() : folder_("mtbx-files"), directory_(GetDirectoryID(folder_.path().c_str())) {}
    ~FileManager() override { MTBX_ClearIndexedFileNameCache(); }

    SInt16 open(const std::string &name, SInt8 permission = fsRdWrPerm, bool overlapped = false)
    {
        SInt16 refNum = -1;
        EXPECT_EQ(MTBX_HOpen(0, directory_, Pascal(name), permission, overlapped, &refNum), noErr) << name;
        return refNum;
    }

    CInfoPBRec catalog(SInt16 index, const std::string &name = "")
    {
        Pascal buffer(name);
        CInfoPBRec block{};
        block.hFileInfo.ioFDirIndex = index;
        block.hFileInfo.ioDirID = directory_;
        block.hFileInfo.ioNamePtr = buffer;
        PBGetCatInfoSync(&block);
        name_ = buffer.text();
        return block;
    }

    std::vector<std::string> walk()
    {
        std::vector<std::string> names;
        for (SInt16 index = 1; catalog(index).hFileInfo.ioResult == noErr; ++index)
            names.push_back(name_);
        return names;
    }

    TemporaryFolder folder_;
    SInt32 directory_;
    std::string name_; // told by the last catalog call
};

TEST_F(FileManager, ParentsOfPaths)
{
    SInt32 drive = GetDirectoryID("C:");
    EXPECT_EQ(GetParentDirectoryID("C:\\dir"), drive);
    EXPECT_EQ(GetParentDirectoryID("C:\\"), drive);
    EXPECT_EQ(GetParentDirectoryID("C:\\dir\\sub"), GetDirectoryID("C:\\dir"));
    EXPECT_EQ(GetParentDirectoryID("bare.txt"), 2);
    EXPECT_EQ(GetParentDirectoryID("C:"), 2);
    EXPECT_EQ(GetParentDirectoryID("\\\\server\\share"), GetDirectoryID("\\\\server"));
    EXPECT_EQ(GetParentDirectoryID("\\\\server"), 2);
    EXPECT_EQ(GetParentDirectoryID("\\\\server\\share\\a"), GetDirectoryID("\\\\server\\share"));
}

TEST_F(FileManager, ABackslashAloneIsTheRootOfTheDrive)
{
    FSSpec spec;
    char path[260];
    FSMakeFSSpec(0, GetDirectoryID("\\"), Pascal("x"), &spec);
    EXPECT_EQ(MTBX_FSSpecToCPathName(&spec, path, 260), noErr);
    EXPECT_STREQ(path, "\\x");
}

TEST_F(FileManager, SpecsAndPathsStandForEachOther)
{
    FSSpec spec;
    EXPECT_EQ(FSMakeFSSpec(7, directory_, Pascal("not there"), &spec), noErr);
    EXPECT_EQ(+spec.vRefNum, 7);
    EXPECT_EQ(+spec.parID, directory_);
    char path[260];
    EXPECT_EQ(MTBX_FSSpecToCPathName(&spec, path, 260), noErr);
    EXPECT_EQ(path, folder_.path("not there"));
    EXPECT_EQ(PathNameToFSSpec(path, &spec), noErr);
    EXPECT_EQ(pascalText(spec.name), "not there");
    EXPECT_EQ(+spec.parID, directory_);
    EXPECT_GE(+spec.vRefNum, 1);

    Pascal pascalPath;
    FSSpecToPathName(&spec, pascalPath, 255);
    EXPECT_EQ(pascalPath.text(), folder_.path("not there"));
    EXPECT_EQ(PathNameToFSSpec("bare.txt", &spec), -43);

    FSMakeFSSpec(0, directory_, nullptr, &spec);
    EXPECT_EQ(+spec.parID, GetParentDirectoryID(folder_.path().c_str())) << "without a name, the directory itself";
    EXPECT_EQ(pascalText(spec.name), folder_.path().substr(folder_.path().rfind('\\') + 1));
    FSMakeFSSpec(0, 30000, nullptr, &spec);
    EXPECT_EQ(pascalText(spec.name), "");
    EXPECT_EQ(+spec.parID, 2);

    FSMakeFSSpec(0, 30000, Pascal("x"), &spec);
    EXPECT_EQ(MTBX_FSSpecToCPathName(&spec, path, 260), -120);
    FSSpecToPathName(&spec, pascalPath, 255);
    EXPECT_EQ(pascalPath.text(), "");
    FSMakeFSSpec(0, 2, Pascal("C:\\a\\b.txt"), &spec);
    EXPECT_EQ(MTBX_FSSpecToCPathName(&spec, path, 260), noErr);
    EXPECT_STREQ(path, "C:\\a\\b.txt");

    FSMakeFSSpec(0, directory_, Pascal("a long name"), &spec);
    char shortPath[12];
    memset(shortPath, 'x', sizeof shortPath);
    EXPECT_EQ(MTBX_FSSpecToCPathName(&spec, shortPath, 10), noErr);
    EXPECT_EQ(shortPath, folder_.path().substr(0, 9)) << "cut without a report";
    EXPECT_EQ(shortPath[10], 'x');
    spec.name[0] = 0;
    MTBX_FSSpecToCPathName(&spec, path, 260);
    EXPECT_EQ(path, folder_.path() + "\\");
}

TEST_F(FileManager, WorkingDirectoriesAndVolumesAreNumbers)
{
    SInt16 working = -7, volume = -7;
    SInt32 directory = -7, procedure = -7;
    EXPECT_EQ(OpenWD(0, 30000, 0, &working), noErr);
    EXPECT_EQ(working, -7);
    OpenWD(0, directory_, 0, &working);
    EXPECT_EQ(working, static_cast<SInt16>(directory_));
    EXPECT_EQ(GetWDInfo(working, &volume, &directory, &procedure), noErr);
    EXPECT_EQ(directory, directory_);
    EXPECT_EQ(procedure, 0);
    Pascal name;
    SInt16 defaultVolume = 0;
    EXPECT_EQ(GetVol(name, &defaultVolume), noErr);
    EXPECT_GE(defaultVolume, 1);
    char current[260];
    GetCurrentDirectoryA(sizeof current, current);
    EXPECT_EQ(name.text(), std::string(current, 2));
    EXPECT_EQ(FlushVol(nullptr, 0), noErr);
}

TEST_F(FileManager, ReadsWritesAndSeeks)
{
    EXPECT_EQ(HCreate(0, directory_, Pascal("f"), 0, 0), noErr);
    EXPECT_EQ(HCreate(0, directory_, Pascal("F"), 0, 0), -48);
    for (bool overlapped : {false, true}) {
        SInt16 file = open("f", fsRdWrPerm, overlapped);
        SInt32 count = 10, position = -1;
        EXPECT_EQ(FSWrite(file, &count, "0123456789"), noErr);
        EXPECT_EQ(count, 10);
        EXPECT_EQ(GetFPos(file, &position), noErr);
        EXPECT_EQ(position, 10);
        char buffer[20];
        count = 10;
        EXPECT_EQ(FSRead(file, &count, buffer), -39) << "at the end";
        EXPECT_EQ(count, 0);
        EXPECT_EQ(SetFPos(file, fsFromLEOF, -4), noErr);
        count = 10;
        EXPECT_EQ(FSRead(file, &count, buffer), -39);
        EXPECT_EQ(std::string(buffer, static_cast<size_t>(count)), "6789");
        EXPECT_EQ(SetFPos(file, fsFromStart, 2), noErr);
        EXPECT_EQ(SetFPos(file, fsAtMark, 1234), noErr);
        EXPECT_EQ(SetFPos(file, fsFromMark, 1), noErr);
        count = 2;
        EXPECT_EQ(FSRead(file, &count, buffer), noErr);
        EXPECT_EQ(std::string(buffer, 2), "34");
        EXPECT_EQ(SetEOF(file, 3), noErr);
        GetFPos(file, &position);
        EXPECT_EQ(position, 3);
        EXPECT_NE(SetFPos(file, fsFromStart, -1), noErr);
        count = -1;
        EXPECT_EQ(FSRead(file, &count, buffer), -50);
        SetFPos(file, fsFromStart, 0);
        EXPECT_EQ(FSClose(file), noErr);
        EXPECT_EQ(folder_.read("f"), "012");
        EXPECT_EQ(FSClose(file), -51);
        EXPECT_EQ(MTBX_GetFileHandle(file), nullptr);
        EXPECT_EQ(GetFPos(file, &position), -51);
        EXPECT_EQ(SetEOF(file, 0), -51);
        EXPECT_EQ(FSRead(file, &count, buffer), -51);
        SetLastError(ERROR_SHARING_VIOLATION);
        EXPECT_EQ(SetFPos(file, fsFromStart, 0), -47) << "an unknown number gives the last error";
    }
}

TEST_F(FileManager, OpeningFollowsPermissionAndFallsBack)
{
    folder_.write("f", "x");
    SInt16 refNum = 5, second = 5;
    EXPECT_EQ(HOpen(0, directory_, Pascal("none"), fsRdPerm, &refNum), -43);
    EXPECT_EQ(refNum, 0);
    EXPECT_EQ(HOpen(0, 30000, Pascal("f"), fsRdPerm, &refNum), -120);
    EXPECT_EQ(HOpen(0, directory_, Pascal("f"), fsRdWrPerm, &refNum), noErr);
    EXPECT_EQ(HOpen(0, directory_, Pascal("f"), fsRdPerm, &second), -47);
    FSClose(refNum);
    SetFileAttributesA(folder_.path("f").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(MTBX_FSOpen(Pascal(folder_.path("f")), 0, false, &refNum), noErr) << "a read-only file still opens";
    char byte = 0;
    SInt32 count = 1;
    EXPECT_EQ(FSRead(refNum, &count, &byte), noErr);
    EXPECT_EQ(byte, 'x');
    EXPECT_NE(MTBX_GetFileHandle(refNum), nullptr);
    FSClose(refNum);
}

TEST_F(FileManager, SixtyFourFilesCanBeOpen)
{
    folder_.write("f", "x");
    std::vector<SInt16> files;
    for (int number = 0; number < 64; ++number)
        files.push_back(open("f", fsRdPerm));
    std::vector<SInt16> sorted = files;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(std::unique(sorted.begin(), sorted.end()), sorted.end());
    EXPECT_EQ(sorted.front(), 1);
    EXPECT_EQ(sorted.back(), 64);
    SInt16 refNum;
    EXPECT_EQ(HOpen(0, directory_, Pascal("f"), fsRdPerm, &refNum), -42);
    for (SInt16 file : files)
        EXPECT_EQ(FSClose(file), noErr);
    EXPECT_TRUE(DeleteFileA(folder_.path("f").c_str())) << "the refused open left no handle";
}

int completions;
ParmBlkPtr completed;

void noteCompletion(ParmBlkPtr block)
{
    ++completions;
    completed = block;
}

TEST_F(FileManager, AsynchronousWritesCompleteInAlertableWaits)
{
    folder_.write("f", "0123456789");
    completions = 0;
    SInt16 file = open("f", fsRdWrPerm, true);
    SetFPos(file, fsFromStart, 5);
    char data[] = "ABC";
    ParamBlockRec block{};
    block.ioParam.ioRefNum = file;
    block.ioParam.ioBuffer = data;
    block.ioParam.ioReqCount = 3;
    block.ioParam.ioResult = 1;
    block.ioParam.ioPosMode = fsFromStart; // not read: the write starts at the position
    block.ioParam.ioCompletion = NewIOCompletionUPP(noteCompletion);
    EXPECT_EQ(PBWriteAsync(&block), noErr);
    EXPECT_EQ(completions, 0);
    for (int wait = 0; wait < 50 && completions == 0; ++wait)
        SleepEx(100, TRUE);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(completed, &block);
    EXPECT_EQ(+block.ioParam.ioResult, noErr);
    EXPECT_EQ(+block.ioParam.ioActCount, 3);
    SInt32 position;
    GetFPos(file, &position);
    EXPECT_EQ(position, 8);
    FSClose(file);
    EXPECT_EQ(folder_.read("f"), "01234ABC89");

    block.ioParam.ioRefNum = 60;
    EXPECT_EQ(PBWriteAsync(&block), -51);
    file = open("f", fsRdWrPerm, false);
    block.ioParam.ioRefNum = file;
    EXPECT_EQ(PBWriteAsync(&block), -51) << "not opened overlapped";
    FSClose(file);
}

TEST_F(FileManager, LargeAsynchronousWritesGoInPieces)
{
    constexpr SInt32 size = 0x2000000 + 1000;
    folder_.write("f", "");
    completions = 0;
    SInt16 file = open("f");
    std::string data(size, 'd');
    data.back() = 'e';
    ParamBlockRec block{};
    block.ioParam.ioRefNum = file;
    block.ioParam.ioBuffer = data.data();
    block.ioParam.ioReqCount = size;
    block.ioParam.ioCompletion = noteCompletion;
    EXPECT_EQ(PBWriteAsync(&block), noErr);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(+block.ioParam.ioActCount, size);
    EXPECT_EQ(+block.ioParam.ioReqCount, 1000);
    Ptr buffer = block.ioParam.ioBuffer;
    EXPECT_EQ(buffer, data.data());
    FSClose(file);
    EXPECT_TRUE(folder_.read("f") == data);
}

TEST_F(FileManager, CatalogWalksByIndexAndByName)
{
    for (const char *name : {"b.txt", "A.txt", "c"})
        folder_.write(name, std::string(name));
    CreateDirectoryA(folder_.path("Sub").c_str(), nullptr);
    EXPECT_EQ(walk(), std::vector<std::string>({"A.txt", "b.txt", "c", "Sub"}));
    catalog(3);
    EXPECT_EQ(name_, "c") << "a jump starts over";
    catalog(3);
    EXPECT_EQ(name_, "c");
    EXPECT_EQ(+catalog(5).hFileInfo.ioResult, -43);
    EXPECT_EQ(+catalog(1).hFileInfo.ioFlLgLen, 5);

    CInfoPBRec file = catalog(0, "A.txt");
    EXPECT_EQ(+file.hFileInfo.ioResult, noErr);
    EXPECT_EQ(+file.hFileInfo.ioFlAttrib, 0);
    EXPECT_EQ(+file.hFileInfo.ioFlLgLen, 5);
    EXPECT_EQ(+file.hFileInfo.ioFlPyLen, 5);
    EXPECT_EQ(+file.hFileInfo.ioFlRLgLen, 0);
    EXPECT_EQ(+file.hFileInfo.ioFlParID, directory_);
    UInt32 now, written = file.hFileInfo.ioFlMdDat;
    GetDateTime(&now);
    EXPECT_LE(written, now + 2);
    EXPECT_GE(written, now - 120);
    EXPECT_EQ(+catalog(0, folder_.path("b.txt")).hFileInfo.ioResult, noErr) << "a full path by itself";
    EXPECT_EQ(name_, "b.txt");
    EXPECT_EQ(+catalog(0, "none").hFileInfo.ioResult, -43);

    CInfoPBRec sub = catalog(0, "Sub");
    EXPECT_EQ(+sub.dirInfo.ioFlAttrib, 16);
    EXPECT_EQ(+sub.dirInfo.ioDrDirID, GetDirectoryID(folder_.path("Sub").c_str()));
    EXPECT_EQ(+sub.dirInfo.ioDrParID, directory_);
    EXPECT_EQ(+sub.dirInfo.ioDrNmFls, 0);
    CInfoPBRec self = catalog(-1);
    EXPECT_EQ(+self.dirInfo.ioResult, noErr);
    EXPECT_EQ(+self.dirInfo.ioDrDirID, directory_);
    EXPECT_EQ(+self.dirInfo.ioDrNmFls, 4);
    EXPECT_EQ(MTBX_ClearIndexedFileNameCache(), noErr);
}

TEST_F(FileManager, CatalogOfAnUnknownDirectoryIsThatOfTheRoot)
{
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA("\\*", &found);
    while (strcmp(found.cFileName, ".") == 0 || strcmp(found.cFileName, "..") == 0)
        FindNextFileA(search, &found);
    FindClose(search);
    directory_ = 30000;
    EXPECT_EQ(+catalog(1).hFileInfo.ioResult, noErr);
    EXPECT_EQ(name_, found.cFileName);
    EXPECT_EQ(+catalog(0, found.cFileName).hFileInfo.ioResult, noErr);
    char current[260];
    GetCurrentDirectoryA(sizeof current, current);
    SetCurrentDirectoryA(folder_.path().c_str());
    folder_.write("only here", "");
    EXPECT_EQ(+catalog(0, "only here").hFileInfo.ioResult, -43);
    SetCurrentDirectoryA(current);
}

TEST_F(FileManager, DirectoryShowsTheTimeOfItsNewestFile)
{
    folder_.write("f", "x");
    SYSTEMTIME later{2037, 5, 0, 6, 7, 8, 9, 0};
    FILETIME local, time;
    SystemTimeToFileTime(&later, &local);
    LocalFileTimeToFileTime(&local, &time);
    HANDLE file = CreateFileA(folder_.path("f").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    SetFileTime(file, nullptr, nullptr, &time);
    CloseHandle(file);
    DateTimeRec date;
    SecondsToDate(catalog(-1).dirInfo.ioDrMdDat, &date);
    EXPECT_EQ(date.year, 2037);
    EXPECT_EQ(date.hour, 7);
    EXPECT_EQ(date.second, 9);
}

TEST_F(FileManager, MakesRenamesAndDeletes)
{
    Pascal name("Sub");
    HParamBlockRec block{};
    block.fileParam.ioDirID = directory_;
    block.fileParam.ioNamePtr = name;
    EXPECT_EQ(PBDirCreateSync(&block), noErr);
    EXPECT_EQ(+block.fileParam.ioDirID, GetDirectoryID(folder_.path("Sub").c_str()));
    block.fileParam.ioDirID = directory_;
    EXPECT_EQ(PBDirCreateSync(&block), -48);
    EXPECT_EQ(+block.fileParam.ioResult, -48);
    EXPECT_EQ(HRename(0, directory_, Pascal("Sub"), Pascal("Other")), noErr);
    EXPECT_EQ(HRename(0, directory_, Pascal("Sub"), Pascal("Third")), -43);
    folder_.write("Other\\f", "x");
    Pascal other("Other"), inner("f");
    block.fileParam.ioNamePtr = other;
    EXPECT_EQ(PBHDeleteSync(&block), ERROR_DIR_NOT_EMPTY);
    block.fileParam.ioDirID = GetDirectoryID(folder_.path("Other").c_str());
    block.fileParam.ioNamePtr = inner;
    EXPECT_EQ(PBHDeleteSync(&block), noErr);
    EXPECT_EQ(PBHDeleteSync(&block), noErr) << "what is missing is already deleted";
    block.fileParam.ioDirID = directory_;
    block.fileParam.ioNamePtr = other;
    EXPECT_EQ(PBHDeleteSync(&block), noErr);
    EXPECT_EQ(walk(), std::vector<std::string>());
}

TEST_F(FileManager, TypesGoByExtensionAndPrograms)
{
    std::map<std::string, std::string> types = {{"a.TXT", "TEXT"}, {"a.b.bmp", "BMP "}, {"x.wav", ".AVI"},
                                                {"noext", ""},     {"dot.", ""},        {"a.zpp", "ZpfP"},
                                                {"a.tsd", "8BPS"}, {"a.none", ""},      {"C:\\a.txt\\b", ""}};
    for (auto &[name, type] : types) {
        FInfo info;
        memset(&info, 0x55, sizeof info);
        EXPECT_EQ(GetFInfo(Pascal(name), 0, &info), noErr);
        std::string found;
        for (int shift = 24; shift >= 0 && info.fdType; shift -= 8)
            found += static_cast<char>(info.fdType >> shift);
        EXPECT_EQ(found, type) << name;
        EXPECT_EQ(+info.fdCreator, 0u);
        EXPECT_EQ(+info.fdFldr, 0x5555) << "the rest is left alone";
    }
    char program[260], extension[260];
    GetModuleFileNameA(nullptr, program, sizeof program);
    FSSpec spec;
    PathNameToFSSpec(program, &spec);
    FInfo info;
    memset(&info, 0x55, sizeof info);
    EXPECT_EQ(FSpGetFInfo(&spec, &info), noErr);
    EXPECT_EQ(+info.fdType, 0x4150504Cu);
    EXPECT_EQ(+info.fdCreator, 0x55555555u);
    FSMakeFSSpec(0, directory_, Pascal("a.txt"), &spec);
    FSpGetFInfo(&spec, &info);
    EXPECT_EQ(+info.fdType, 0x54455854u);
    EXPECT_EQ(+info.fdFldr, 0);
    MTBX_GetExtensionFromFilename("C:\\a.b\\c", extension);
    EXPECT_STREQ(extension, "");
    MTBX_GetExtensionFromFilename("C:\\a\\C.TAR.Gz", extension);
    EXPECT_STREQ(extension, ".gz");
    char beside[260];
    MTBX_BuildAppRelativePath("data\\x", beside);
    EXPECT_EQ(beside, std::string(program).substr(0, std::string(program).rfind('\\') + 1) + "data\\x");
    EXPECT_EQ(HSetFInfo(0, 0, nullptr, nullptr), -4);
}

TEST_F(FileManager, OpenFilesTellWhereTheyAre)
{
    folder_.write("f.txt", "hello");
    SInt16 file = open("f.txt");
    Pascal name;
    FCBPBRec block{};
    block.ioRefNum = file;
    block.ioNamePtr = name;
    EXPECT_EQ(PBGetFCBInfoSync(&block), noErr);
    EXPECT_EQ(name.text(), "f.txt");
    EXPECT_EQ(+block.ioFCBParID, directory_);
    FSClose(file);
    EXPECT_EQ(PBGetFCBInfoSync(&block), -43);
    InitResources();
    block.ioRefNum = 1000;
    EXPECT_EQ(PBGetFCBInfoSync(&block), noErr);
    EXPECT_EQ(name.text().substr(0, 10), "mtbx_tests");
    MTBX_ShutdownResources();

    Pascal byName("f.txt");
    HParamBlockRec information{};
    information.fileParam.ioDirID = directory_;
    information.fileParam.ioNamePtr = byName;
    EXPECT_EQ(PBHGetFInfoSync(&information), noErr);
    EXPECT_EQ(+information.fileParam.ioFlLgLen, 5);
    EXPECT_EQ(+information.fileParam.ioFlFndrInfo.fdType, 0x54455854u);
}

TEST_F(FileManager, TheTypeOfALongPathStillGoesByItsEnd)
{
    std::string folder = folder_.path() + "\\";
    folder += std::string(240 - folder.size(), 'd');
    ASSERT_TRUE(CreateDirectoryA(folder.c_str(), nullptr));
    folder_.write(folder.substr(folder_.path().size() + 1) + "\\twelve-chars.txt", "x");
    Pascal name("twelve-chars.txt");
    HParamBlockRec block{};
    block.fileParam.ioDirID = GetDirectoryID(folder.c_str());
    block.fileParam.ioNamePtr = name;
    EXPECT_EQ(PBHGetFInfoSync(&block), noErr);
    EXPECT_EQ(+block.fileParam.ioFlLgLen, 1);
    EXPECT_EQ(+block.fileParam.ioFlFndrInfo.fdType, 0x54455854u);
}

TEST_F(FileManager, VolumesTellTheirRoom)
{
    Pascal name;
    HParamBlockRec block{};
    block.volumeParam.ioNamePtr = name;
    block.volumeParam.ioVolIndex = 1;
    EXPECT_EQ(PBHGetVInfoSync(&block), noErr);
    EXPECT_EQ(name.text().substr(1), ":");
    EXPECT_EQ(+block.volumeParam.ioVNmAlBlks, 0) << "no sizes by index";
    block.volumeParam.ioVolIndex = 30;
    EXPECT_EQ(PBHGetVInfoSync(&block), -35);
    Pascal drive("C:");
    block.volumeParam.ioNamePtr = drive;
    block.volumeParam.ioVolIndex = -1;
    EXPECT_EQ(PBHGetVInfoSync(&block), noErr);
    block.volumeParam.ioNamePtr = name;
    block.volumeParam.ioVolIndex = 0;
    EXPECT_EQ(PBHGetVInfoSync(&block), noErr);
    EXPECT_EQ(name.text(), "C:");
    ULARGE_INTEGER freeToCaller, total;
    GetDiskFreeSpaceExA("C:\\", &freeToCaller, &total, nullptr);
    UInt64 told = UInt64{block.volumeParam.ioVNmAlBlks} * block.volumeParam.ioVAlBlkSiz;
    EXPECT_GT(told, total.QuadPart / 10 * 9);
    EXPECT_LE(told, total.QuadPart);
    Pascal share("\\\\no such server\\share\\folder");
    block.volumeParam.ioNamePtr = share;
    block.volumeParam.ioVolIndex = -1;
    PBHGetVInfoSync(&block);
    EXPECT_EQ(share.text(), "\\\\no such server\\share");
    block.volumeParam.ioVolIndex = 0;
    EXPECT_NE(PBHGetVInfoSync(&block), noErr);
}

TEST_F(FileManager, PreferencesFolderIsFoundAndMade)
{
    SInt16 volume = -7;
    SInt32 directory = -7;
    EXPECT_EQ(FindFolder(0, kPreferencesFolderType, true, &volume, &directory), -4);
    EXPECT_EQ(FindFolder(kOnSystemDisk, 0x64657374, true, &volume, &directory), -4);
    EXPECT_EQ(directory, -7);
    EXPECT_EQ(FindFolder(kOnSystemDisk, kPreferencesFolderType, true, &volume, &directory), noErr);
    EXPECT_GE(directory, 3);
    EXPECT_GE(volume, 1);

    char base[260], path[260], again[260];
    EXPECT_EQ(FindAndCreatePrefsFolder(base, false, nullptr, nullptr, nullptr), noErr);
    std::string sub = "mtbx-test-" + std::to_string(GetCurrentProcessId());
    EXPECT_EQ(FindAndCreatePrefsFolder(path, false, sub.c_str(), "inner", nullptr), -120);
    EXPECT_EQ(FindAndCreatePrefsFolder(path, true, sub.c_str(), nullptr, "inner"), noErr);
    EXPECT_EQ(path, std::string(base) + "\\" + sub + "\\inner");
    EXPECT_EQ(FindAndCreatePrefsFolder(again, false, ("\\" + sub).c_str(), "\\inner", nullptr), noErr);
    EXPECT_STREQ(again, path);
    EXPECT_EQ(FindAndCreatePrefsFolder(again, true, sub.c_str(), std::string(250, 'x').c_str(), nullptr), -120)
        << "too long";
    EXPECT_TRUE(RemoveDirectoryA(path));
    HANDLE file = CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    CloseHandle(file);
    EXPECT_EQ(FindAndCreatePrefsFolder(again, true, sub.c_str(), "inner", nullptr), -120) << "a file in its place";
    DeleteFileA(path);
    EXPECT_TRUE(RemoveDirectoryA((std::string(base) + "\\" + sub).c_str())) << "nothing else was made in it";
}

TEST(DateTime, ConvertsBothWays)
{
    DateTimeRec date;
    SecondsToDate(0, &date);
    EXPECT_EQ(date.year, 1904);
    EXPECT_EQ(date.month, 1);
    EXPECT_EQ(date.day, 1);
    EXPECT_EQ(date.dayOfWeek, 6);
    SecondsToDate(86400u * 59, &date);
    EXPECT_EQ(date.month, 2);
    EXPECT_EQ(date.day, 29);
    for (UInt64 seconds = 0; seconds < 0xffffffffu; seconds += 86399 * 7 + 3) {
        UInt32 back;
        SecondsToDate(static_cast<UInt32>(seconds), &date);
        DateToSeconds(&date, &back);
        ASSERT_EQ(back, seconds);
    }
    SecondsToDate(0xffffffffu, &date);
    EXPECT_EQ(date.year, 2040);
    date = {2004, 2, 30, 25, 0, 0, 0};
    UInt32 seconds;
    DateToSeconds(&date, &seconds);
    SecondsToDate(seconds, &date);
    EXPECT_EQ(date.month, 3) << "30 February 25 h is 2 March 1 h";
    EXPECT_EQ(date.day, 2);
    EXPECT_EQ(date.hour, 1);
    EXPECT_EQ(date.dayOfWeek, 3) << "a Tuesday";
    GetTime(&date);
    SYSTEMTIME now;
    GetLocalTime(&now);
    EXPECT_EQ(date.year, now.wYear);
    EXPECT_EQ(date.dayOfWeek, now.wDayOfWeek + 1);
}

} // namespace
