// Sources of another time, compiled through mtbx_classic_sources: C with every habit that compilers no longer take, and
// C++. They are in Mac OS Roman, with carriage returns.
#include "OldNotes.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <string>

extern "C" short LengthOfLabels(void);

namespace {

std::string text(ConstStr255Param string)
{
    return {reinterpret_cast<const char *>(string + 1), string[0]};
}

TEST(ClassicSources, HavePascalStringsInTheCodePageOfTheirHost)
{
    EXPECT_EQ(text(NoteKindName(0)), "Memo");
    EXPECT_EQ(text(NoteKindName(1)), "To do\x85");
    EXPECT_EQ(text(NoteKindName(2)), "Letter \xE0 la carte");
    EXPECT_EQ(text(NoteKindName(3)), "No kind");
    EXPECT_EQ(PasswordBullet(), '\x95');
}

TEST(ClassicSources, UseTheToolboxByItsOldHeaders)
{
    NoteHandle note = NewNote(70000, kUntitled);
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(text((**note).title), "Untitled");
    EXPECT_EQ(GetHandleSize(reinterpret_cast<Handle>(note)), 40);
    unsigned char empty = 0;
    NoteHandle other = NewNote(-1, &empty);
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(text((**other).title), "\x97");
    DisposeHandle(reinterpret_cast<Handle>(note));
    DisposeHandle(reinterpret_cast<Handle>(other));
}

TEST(ClassicSources, CountInLongsOf32Bits)
{
    EXPECT_EQ(SizeOfCheck(), 4);
    Note first{}, second{};
    first.number = 0x12345678;
    second.number = -2;
    NotePtr pointers[] = {&first, &second};
    NoteHandle notes[] = {&pointers[0], &pointers[1]};
    uint32_t check = 0xFFFFFFFF;
    for (uint32_t number : {0xFFFFFFFEu, 0x12345678u})
        check = (check << 5) + (check >> 27) + number;
    EXPECT_EQ(CheckOfNotes(notes, 2), check);
}

TEST(ClassicSources, OfCplusplusTakeLiteralsAsPointersAndAsArrays)
{
    EXPECT_EQ(LengthOfLabels(), (5 * 100 + 3) + 8 * 100 + 'a' + 5 + 5 + 0xB5);
}

} // namespace
