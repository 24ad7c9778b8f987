// Win32 bitmaps that stand in for pictures.
#include "ResourceChain.h"

#include <cstring>

namespace {

class BitmapPictures : public ResourceChain {
protected:
    static constexpr ResType pict = typeNamed("PICT");

    static SInt16 word(Handle h, int place)
    {
        SInt16 value;
        memcpy(&value, *h + place * 2, sizeof value);
        return value;
    }
    static HBITMAP bitmap(Handle h)
    {
        SInt32 value;
        memcpy(&value, *h + 10, sizeof value);
        return reinterpret_cast<HBITMAP>(static_cast<INT_PTR>(value));
    }
    static bool isAlive(HBITMAP bitmap)
    {
        BITMAP description;
        return GetObjectA(bitmap, sizeof description, &description) != 0;
    }
};

TEST_F(BitmapPictures, ABitmapIsARecordOf14Bytes)
{
    open(modulePath());
    Handle h = GetResource(pict, 300);
    ASSERT_NE(h, nullptr);
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(name(h), "_BTMP_");
    ASSERT_EQ(GetHandleSize(h), 14);
    EXPECT_EQ(word(h, 0), 14);
    EXPECT_EQ(word(h, 1), 0);
    EXPECT_EQ(word(h, 2), 0);
    EXPECT_EQ(word(h, 3), 2) << "bottom";
    EXPECT_EQ(word(h, 4), 3) << "right";
    EXPECT_TRUE(isAlive(bitmap(h)));
    EXPECT_EQ(GetResource(pict, 300), h);
    EXPECT_EQ(data(GetResource(pict, 128)), "picture") << "a picture of its own goes before";
    EXPECT_EQ(GetResource(pict, 301), nullptr);
    EXPECT_EQ(ResError(), resNotFound);
    EXPECT_EQ(GetResource(typeNamed("ABCD"), 300), nullptr);
}

TEST_F(BitmapPictures, TheBitmapGoesWithItsRecord)
{
    SInt16 module = open(modulePath());
    HBITMAP released = bitmap(GetResource(pict, 300));
    ReleaseResource(GetResource(pict, 300));
    EXPECT_FALSE(isAlive(released));
    Handle h = GetResource(pict, 300);
    HBITMAP closed = bitmap(h);
    Handle detached = GetResource(pict, 128);
    DetachResource(detached);
    CloseResFile(module);
    EXPECT_FALSE(isAlive(closed));
    DisposeHandle(detached);
}

TEST_F(BitmapPictures, AnEmptiedRecordIsMadeAgain)
{
    open(modulePath());
    Handle h = GetResource(pict, 300);
    DeleteObject(bitmap(h));
    EmptyHandle(h);
    EXPECT_EQ(GetResource(pict, 300), h);
    EXPECT_TRUE(isAlive(bitmap(h)));
    DeleteObject(bitmap(h));
    EmptyHandle(h);
    ReleaseResource(h);
}

} // namespace
