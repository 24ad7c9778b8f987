// Writes that go on by themselves, beside other calls on their file and at positions that are hard to reach.
#include "Pascal.h"
#include "TemporaryFolder.h"

#include <mtbx/Files.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

int completions;

class BackgroundWrites : public testing::Test {
protected:
    BackgroundWrites() : folder_("mtbx-transfers"), directory_(GetDirectoryID(folder_.path().c_str()))
    {
        completions = 0;
        folder_.write("f", "0123456789");
        EXPECT_EQ(MTBX_HOpen(0, directory_, Pascal("f"), fsRdWrPerm, true, &file_), noErr);
    }
    ~BackgroundWrites() override { FSClose(file_); }

    OSErr start(ParamBlockRec &block, char *data, SInt32 size)
    {
        block = {};
        block.ioParam.ioRefNum = file_;
        block.ioParam.ioBuffer = data;
        block.ioParam.ioReqCount = size;
        block.ioParam.ioCompletion = [](ParmBlkPtr) { ++completions; };
        return PBWriteAsync(&block);
    }

    void await(int count)
    {
        for (int wait = 0; wait < 50 && completions < count; ++wait)
            SleepEx(100, TRUE);
        ASSERT_EQ(completions, count);
    }

    std::string readAt(UInt64 position, DWORD size)
    {
        HANDLE file = CreateFileA(folder_.path("f").c_str(), GENERIC_READ, 7, nullptr, OPEN_EXISTING, 0, nullptr);
        LARGE_INTEGER distance;
        distance.QuadPart = static_cast<LONGLONG>(position);
        SetFilePointerEx(file, distance, nullptr, FILE_BEGIN);
        std::string text(size, 0);
        ReadFile(file, text.data(), size, &size, nullptr);
        CloseHandle(file);
        return text.substr(0, size);
    }

    TemporaryFolder folder_;
    SInt32 directory_;
    SInt16 file_ = 0;
};

TEST_F(BackgroundWrites, AreNotDisturbedByReadingMeanwhile)
{
    char data[] = "ABC", buffer[4];
    ParamBlockRec block;
    ASSERT_EQ(start(block, data, 3), noErr);
    SInt32 count = 4;
    EXPECT_EQ(FSRead(file_, &count, buffer), noErr);
    EXPECT_EQ(count, 4);
    await(1);
    EXPECT_EQ(+block.ioParam.ioResult, noErr);
    EXPECT_EQ(+block.ioParam.ioActCount, 3);
    FSClose(file_);
    EXPECT_EQ(folder_.read("f"), "ABC3456789");
}

TEST_F(BackgroundWrites, CrossTwoAndFourGigabytes)
{
    char data[] = "high";
    for (UInt64 start : {UInt64{0x7ffffffe}, UInt64{0xfffffffe}}) {
        SetFPos(file_, fsFromStart, 0);
        for (UInt64 left = start; left > 0; left -= std::min<UInt64>(left, 0x40000000))
            SetFPos(file_, fsFromMark, static_cast<SInt32>(std::min<UInt64>(left, 0x40000000)));
        ParamBlockRec block;
        int before = completions;
        ASSERT_EQ(this->start(block, data, 4), noErr);
        await(before + 1);
        EXPECT_EQ(+block.ioParam.ioResult, noErr);
        SInt32 count = 4;
        EXPECT_EQ(FSWrite(file_, &count, "more"), noErr) << "behind it";
        FSClose(file_);
        EXPECT_EQ(readAt(start, 8), "highmore");
        EXPECT_EQ(readAt(0, 10), "0123456789");
        MTBX_HOpen(0, directory_, Pascal("f"), fsRdWrPerm, true, &file_);
    }
}

TEST_F(BackgroundWrites, AFailingPieceOfALargeOneCountsNothing)
{
    constexpr SInt32 large = 0x2000000;
    std::string data(large, 'd');
    FSClose(file_);
    ParamBlockRec block;
    EXPECT_EQ(start(block, data.data(), large), -51);
    EXPECT_EQ(+block.ioParam.ioResult, -51);
    EXPECT_EQ(+block.ioParam.ioActCount, 0);
    EXPECT_EQ(completions, 0);
}

} // namespace
