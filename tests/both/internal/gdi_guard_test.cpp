// The GDI guard, under refusals made by the test and under real ones.
#include "DebugOutput.h"
#include "ExactBudget.h"
#include "Journal.h"

#include "Quickdraw/GdiGuard_internal.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Ask {
    UInt64 bytes;
    bool outOfObjects;
    bool operator==(const Ask &) const = default;
};
std::vector<Ask> asked;

SInt32 growZone(UInt64 bytesWanted)
{
    asked.push_back({bytesWanted, MTBX_OutOfGDIResources()});
    return 0;
}

class GdiGuard : public ExactBudget {
protected:
    GdiGuard()
    {
        asked.clear();
        MTBX_GetMemUsageLimits(&softBefore_, &hardBefore_);
        MTBX_SetMemUsageLimits(1000000000, 40000000);
        SetGrowZoneEx(growZone);
    }
    ~GdiGuard()
    {
        SetGrowZoneEx(nullptr);
        MTBX_SetMemUsageLimits(softBefore_, hardBefore_);
        gdiPurgeBytes = 4000000;
        newLowGDIHandling = 1;
        newLowGDIHandlingRead = false;
        gWin95 = 0;
    }

    // A creation that works at the given try only; the result is the number of tries.
    int triesUntil(int workingTry)
    {
        int tries = 0;
        object_ = createGuarded("Create(a)", [&] { return ++tries == workingTry ? &tries : nullptr; });
        return tries;
    }

    std::vector<Journal::Record> record(const char *subject, const char *megabytes)
    {
        return {{0, "MTBX", subject, std::string("Create(a)\t") + megabytes + "\tmem purged MB"}};
    }

    UInt64 softBefore_, hardBefore_;
    const void *object_ = nullptr;
    Journal journal_;
    DebugOutput output_;
};

TEST_F(GdiGuard, FirstSuccessCostsNothing)
{
    EXPECT_EQ(triesUntil(1), 1);
    EXPECT_TRUE(object_);
    EXPECT_TRUE(asked.empty() && journal_.records.empty() && output_.texts().empty());
    EXPECT_EQ(settings_.value("NewLowGDIHandling"), "(none)") << "the setting is read at the first failure";
}

TEST_F(GdiGuard, SuccessAfterAPurgeIsRecorded)
{
    UInt64 headroom = MaxBlockEx();
    EXPECT_EQ(triesUntil(2), 2);
    EXPECT_TRUE(object_);
    EXPECT_EQ(asked, std::vector<Ask>({{headroom + 4000000, false}}));
    EXPECT_EQ(journal_.records, record("GDI_Purge_OK", "3.814697"));
    EXPECT_EQ(output_.texts(),
              std::vector<std::string>{"ZP: apparently out of GDI objects or memory is fragmented, purging...\n"});
    EXPECT_EQ(settings_.value("NewLowGDIHandling"), "1");
}

TEST_F(GdiGuard, TriesPurgeTheWholeBudgetAtMost)
{
    EXPECT_EQ(triesUntil(0), 10);
    EXPECT_FALSE(object_);
    EXPECT_EQ(asked.size(), 10u) << "the last failure purges too";
    EXPECT_EQ(journal_.records, record("GDI_Purge_FAILED", "34.332275"));
}

TEST_F(GdiGuard, SuccessOnTheLastTryIsRecordedAsFailure)
{
    EXPECT_EQ(triesUntil(10), 10);
    EXPECT_TRUE(object_);
    EXPECT_EQ(journal_.records, record("GDI_Purge_FAILED", "34.332275"));
}

TEST_F(GdiGuard, BudgetBelowOnePurgeAllowsOneTry)
{
    MTBX_SetMemUsageLimits(1000000000, 3999999);
    EXPECT_EQ(triesUntil(0), 1);
    EXPECT_EQ(asked.size(), 1u);
    EXPECT_TRUE(journal_.records.empty());
}

TEST_F(GdiGuard, WithoutAPurgeSizeItTriesSeventeenTimesInSilence)
{
    gdiPurgeBytes = 0;
    EXPECT_EQ(triesUntil(0), 17);
    EXPECT_TRUE(asked.empty() && output_.texts().empty());
    EXPECT_EQ(journal_.records, record("GDI_Purge_FAILED", "0.000000"));
    EXPECT_EQ(settings_.value("NewLowGDIHandling"), "1") << "the setting is read all the same";
}

TEST_F(GdiGuard, WithoutAHardLimitItTriesSeventeenTimes)
{
    MTBX_SetMemUsageLimits(1000000000, 0);
    EXPECT_EQ(triesUntil(0), 17);
    EXPECT_EQ(asked.size(), 17u);
}

TEST_F(GdiGuard, OlderHandlingPurgesWhateverTheHeadroom)
{
    MTBX_SetProfileInt("NewLowGDIHandling", 0);
    EXPECT_EQ(triesUntil(3), 3);
    EXPECT_EQ(asked, std::vector<Ask>(2, {4000000, true}));
    EXPECT_FALSE(MTBX_OutOfGDIResources());
    MTBX_SetProfileInt("NewLowGDIHandling", 1);
    EXPECT_EQ(triesUntil(2), 2);
    EXPECT_EQ(asked.back(), (Ask{4000000, true})) << "the setting is read once";
}

// GDI itself refuses these: each wrapper hands the refusal to the guard under its own label.
TEST_F(GdiGuard, WrappersRecordTheCallThatFailed)
{
    MTBX_SetMemUsageLimits(1000000000, 8000000);
    BITMAP noBitmap = {};
    noBitmap.bmType = 1;
    BITMAPINFO noInfo = {};
    LOGBRUSH noBrush = {77, 0, 0};
    RGNDATA noData = {};
    EXPECT_FALSE(MTBX_CreatePatternBrush(nullptr));
    EXPECT_FALSE(MTBX_CreateBrushIndirect(&noBrush));
    EXPECT_FALSE(MTBX_CreateBitmapIndirect(&noBitmap));
    EXPECT_FALSE(MTBX_CreateCompatibleBitmap(nullptr, 10, 10));
    EXPECT_FALSE(MTBX_CreateDIBSection(nullptr, &noInfo, DIB_RGB_COLORS, nullptr, nullptr, 0));
    EXPECT_FALSE(MTBX_ExtCreateRegion(nullptr, 0, &noData));
    EXPECT_FALSE(MTBX_ExtCreatePen(PS_GEOMETRIC | 15, 1, &noBrush, 0, nullptr));
    EXPECT_FALSE(MTBX_CreateDC("NO SUCH DRIVER", nullptr, nullptr, nullptr));
    std::vector<std::string> labels;
    for (const Journal::Record &entry : journal_.records)
        labels.push_back(entry.text.substr(0, entry.text.find('\t')));
    EXPECT_EQ(labels, std::vector<std::string>({"CreatePatternBrush(hbmp)", "CreateBrushIndirect(a)",
                                                "CreateBitmapIndirect(a)", "CreateCompatibleBitmap(a, b, c)",
                                                "CreateDIBSection(a, b, c, d, e, f)", "ExtCreateRegion(a, b, c)",
                                                "ExtCreatePen(a, b, c, d, e)", "CreateDC(a, b, c, d)"}));
}

TEST_F(GdiGuard, PensOfTheOldSystemAreNotGuarded)
{
    LOGBRUSH noBrush = {77, 0, 0};
    gWin95 = 1;
    EXPECT_FALSE(MTBX_ExtCreatePen(PS_GEOMETRIC | 15, 1, &noBrush, 0, nullptr));
    EXPECT_TRUE(asked.empty() && journal_.records.empty());
}

TEST_F(GdiGuard, WrappersMakeTheObjectsAskedFor)
{
    HRGN region = MTBX_CreateRectRgn(1, 2, 30, 40);
    RECT box;
    GetRgnBox(region, &box);
    EXPECT_TRUE(box.left == 1 && box.top == 2 && box.right == 30 && box.bottom == 40);
    HBITMAP bitmap = MTBX_CreateBitmap(8, 4, 1, 1, nullptr);
    BITMAP shape;
    GetObjectA(bitmap, sizeof shape, &shape);
    EXPECT_TRUE(shape.bmWidth == 8 && shape.bmHeight == 4 && shape.bmBitsPixel == 1);
    HPEN pen = MTBX_CreatePen(PS_SOLID, 3, 0x112233);
    LOGPEN penShape;
    GetObjectA(pen, sizeof penShape, &penShape);
    EXPECT_TRUE(penShape.lopnWidth.x == 3 && penShape.lopnColor == 0x112233);
    for (HGDIOBJ object : {HGDIOBJ{region}, HGDIOBJ{bitmap}, HGDIOBJ{pen}})
        EXPECT_TRUE(DeleteObject(object));
    EXPECT_TRUE(journal_.records.empty());
}

} // namespace
