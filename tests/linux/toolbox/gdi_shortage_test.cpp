// Regions and guarded creations while the layer refuses graphics objects.
#include "Journal.h"
#include "PixelSet.h"
#include "Rectangles.h"

#include <mtbx/MTBX.h>

#include <win32/control.h>

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

std::vector<HBRUSH> hostBrushes;
int hostCalls;

// A host that keeps brushes for later and gives one back whenever it is asked.
SInt32 growZone(UInt64)
{
    ++hostCalls;
    if (hostBrushes.empty())
        return 0;
    DeleteObject(hostBrushes.back());
    hostBrushes.pop_back();
    return 1;
}

class GdiShortage : public testing::Test {
protected:
    void SetUp() override
    {
        hostCalls = 0;
        MTBX_GetMemUsageLimits(&soft_, &hard_);
        MTBX_SetMemUsageLimits(UINT64_MAX / 2, 12000000); // three tries
        SetGrowZoneEx(growZone);
        BitMapToRegion(nullptr, nullptr);
        objectsBefore_ = Win32Control_GdiObjects();
        BitMapToRegion(nullptr, nullptr); // the buffer of earlier tests would go with the first purge
        memoryBefore_ = MEM_GetMemUsage();
    }
    void TearDown() override
    {
        Win32Control_Reset();
        for (HBRUSH brush : hostBrushes)
            DeleteObject(brush);
        hostBrushes.clear();
        SetGrowZoneEx(nullptr);
        MTBX_SetMemUsageLimits(soft_, hard_);
        BitMapToRegion(nullptr, nullptr);
        EXPECT_EQ(Win32Control_GdiObjects(), objectsBefore_);
        EXPECT_EQ(MEM_GetMemUsage(), memoryBefore_);
    }

    Journal journal_;

private:
    UInt64 soft_ = 0, hard_ = 0, memoryBefore_ = 0;
    DWORD objectsBefore_ = 0;
};

// All region calls that create native regions, on two regions that the caller has made.
void useRegions(RgnHandle a, RgnHandle b)
{
    std::array<UInt8, 8> bits = {0xF0, 0x0F, 0xAA, 0x55, 0xFF, 0x00, 0x18, 0x81};
    BitMap bitmap = {reinterpret_cast<Ptr>(bits.data()), 2, ltrb(3, 4, 19, 8)};
    Rect whole = ltrb(0, 0, 10, 10), twice = ltrb(0, 0, 20, 20);
    BitMapToRegion(a, &bitmap);
    MacSetRectRgn(b, 5, 5, 40, 30);
    MacXorRgn(a, b, a);
    InsetRgn(b, 2, 2);
    InsetRgn(b, -3, -3);
    MapRgn(b, &whole, &twice);
    RgnHandle c = NewRgn();
    MacUnionRgn(a, b, c);
    DisposeRgn(c);
}

TEST_F(GdiShortage, WhateverIsRefusedNothingLeaksAndTheNextCallsAreRight)
{
    RgnHandle a = NewRgn(), b = NewRgn();
    useRegions(a, b);
    PixelSet expectedA = PixelSet::of(a), expectedB = PixelSet::of(b);
    DWORD objects = Win32Control_GdiObjects();
    Win32Control_RefuseGdiCreations(0, 0);
    useRegions(a, b);
    DWORD creations = Win32Control_GdiCreationsCounted();
    ASSERT_GT(creations, 8u);
    for (DWORD first = 1; first <= creations; ++first)
        for (DWORD count : {DWORD{1}, DWORD{3}, WIN32_WITHOUT_END}) {
            Win32Control_RefuseGdiCreations(first, count);
            useRegions(a, b);
            Win32Control_RefuseGdiCreations(0, 0);
            ASSERT_EQ(Win32Control_GdiObjects(), objects) << first << ", " << count;
            useRegions(a, b);
            ASSERT_EQ(PixelSet::of(a), expectedA) << first << ", " << count;
            ASSERT_EQ(PixelSet::of(b), expectedB) << first << ", " << count;
        }
    DisposeRgn(a);
    DisposeRgn(b);
}

TEST_F(GdiShortage, RefusedCallsLeaveTheirRegionsAsTheyWere)
{
    RgnHandle a = NewRgn(), b = NewRgn();
    MacSetRectRgn(a, 0, 0, 20, 20);
    MacSetRectRgn(b, 10, 10, 30, 30);
    UInt8 bits[4] = {0xFF, 0xFF, 0xFF, 0xFF};
    BitMap bitmap = {reinterpret_cast<Ptr>(bits), 2, ltrb(0, 0, 16, 2)};
    Rect whole = ltrb(0, 0, 10, 10), twice = ltrb(0, 0, 20, 20);
    Win32Control_RefuseGdiCreations(1, WIN32_WITHOUT_END);
    EXPECT_EQ(BitMapToRegion(a, &bitmap), rgnTooBigErr);
    MacXorRgn(a, b, a);
    InsetRgn(a, 1, 1);
    MapRgn(a, &whole, &twice);
    EXPECT_EQ((*a)->rgnBBox, ltrb(0, 0, 20, 20));
    EXPECT_EQ((*a)->rgnTag, kRegionTag);
    EXPECT_FALSE(NewRgn());
    Rect rect = ltrb(5, 5, 6, 6);
    EXPECT_TRUE(RectInRgn(&rect, a)) << "a question needs no object";
    Win32Control_Reset();
    DisposeRgn(a);
    DisposeRgn(b);
}

TEST_F(GdiShortage, ObjectsThatTheHostGivesBackServeTheNextTry)
{
    for (int i = 0; i < 2; ++i)
        hostBrushes.push_back(CreateSolidBrush(RGB(i, 0, 0)));
    Win32Control_LimitGdiObjects(Win32Control_GdiObjects());
    RgnHandle a = NewRgn(), b = NewRgn();
    EXPECT_TRUE(a && b);
    EXPECT_EQ(hostCalls, 3) << "one purge asks as long as the host frees something";
    EXPECT_FALSE(NewRgn()) << "the host has nothing left";
    std::vector<std::string> subjects;
    for (const Journal::Record &entry : journal_.records)
        subjects.push_back(entry.subject);
    EXPECT_EQ(subjects, std::vector<std::string>({"GDI_Purge_OK", "GDI_Purge_FAILED"}));
    Win32Control_Reset();
    DisposeRgn(a);
    DisposeRgn(b);
}

TEST_F(GdiShortage, BitmapScanWithoutItsBufferSaysSo)
{
    RgnHandle rgn = NewRgn();
    MacSetRectRgn(rgn, 1, 2, 3, 4);
    UInt8 bits[4] = {0xFF, 0, 0xFF, 0};
    BitMap bitmap = {reinterpret_cast<Ptr>(bits), 2, ltrb(0, 0, 16, 2)};
    BitMapToRegion(nullptr, nullptr);
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 1, WIN32_WITHOUT_END, 1000);
    EXPECT_EQ(BitMapToRegion(rgn, &bitmap), memFullErr);
    EXPECT_EQ((*rgn)->rgnBBox, ltrb(1, 2, 3, 4));
    Win32Control_Reset();
    EXPECT_EQ(BitMapToRegion(rgn, &bitmap), noErr);
    EXPECT_EQ((*rgn)->rgnBBox, ltrb(0, 0, 8, 2));
    DisposeRgn(rgn);
}

} // namespace
