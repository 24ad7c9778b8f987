// <hostkit/byte_order.h>: numbers as a Macintosh writes them.
#include <hostkit/byte_order.h>

#include <gtest/gtest.h>

#include <cstring>

namespace {

template <typename Number> Number read(const char *bytes)
{
    Number number;
    memcpy(&number, bytes, sizeof number);
    return number;
}

TEST(ByteOrder, OfAMacintoshIsReadAndWritten)
{
    static_assert(EndianS16_NtoB(EndianS16_BtoN(-2)) == -2 && EndianU32_NtoB(EndianU32_BtoN(70000)) == 70000);
    EXPECT_EQ(EndianS16_BtoN(read<SInt16>("\xFF\xFE")), -2);
    EXPECT_EQ(EndianU16_BtoN(read<UInt16>("\xFF\xFE")), 0xFFFE);
    EXPECT_EQ(EndianS32_BtoN(read<SInt32>("\xFF\xFF\xFF\xFE")), -2);
    EXPECT_EQ(EndianU32_BtoN(read<UInt32>("TEXT")), 0x54455854u);
    EXPECT_EQ(EndianS64_BtoN(read<SInt64>("\0\0\0\0\0\1\0\2")), 0x10002);
    EXPECT_EQ(EndianU64_LtoN(read<UInt64>("\2\0\1\0\0\0\0\0")), 0x10002u);
    EXPECT_EQ(EndianS32_LtoN(read<SInt32>("\xFE\xFF\xFF\xFF")), -2);
}

} // namespace
