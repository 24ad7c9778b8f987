// What a display must be able to do.
#include "MessageBoxes.h"

#include "Display/DisplayCapabilities_internal.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr UInt16 everything = 0xFFFF;

TEST(DisplayCheck, NamesTheFirstCapabilityThatIsMissing)
{
    struct {
        int missing;
        const char *name;
    } const cases[] = {{0x0001, "RC_BITBLT"},  {0x0080, "RC_DI_BITMAP"}, {0x0200, "DIBTODEV"}, {0x0008, "BITMAP > 64K"},
                       {0x0800, "STRETCHBLT"}, {0x2000, "STRETCHDIB"},   {0x2A08, "DIBTODEV"}};
    for (auto &[missing, name] : cases) {
        MessageBoxes boxes;
        EXPECT_FALSE(judgeDisplay(static_cast<UInt16>(everything & ~missing), 8, false));
        EXPECT_EQ(boxes.shown, std::vector<MessageBoxes::Box>(
                                   {{"Zephant Fatal Error", std::string("Display driver does not support ") + name
                                                                + " as required by Zephant.  \n\nShutting down."}}));
    }
}

TEST(DisplayCheck, ShortCheckLooksNeitherAtStretchingNorAtDepth)
{
    MessageBoxes boxes;
    EXPECT_TRUE(judgeDisplay(0x0289, 1, true));
    EXPECT_TRUE(judgeDisplay(everything, 24, false));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST(DisplayCheck, FewColorsAreTheUsersChoice)
{
    MessageBoxes boxes({IDNO, IDYES});
    EXPECT_FALSE(judgeDisplay(everything, 8, false));
    EXPECT_EQ(boxes.shown.size(), 1u) << "no further box";
    EXPECT_EQ(boxes.shown.at(0).title, "Zephant Warning");
    EXPECT_TRUE(judgeDisplay(everything, 8, false));
}

TEST(DisplayCheck, SixteenColorsAreTooFew)
{
    MessageBoxes boxes;
    EXPECT_FALSE(judgeDisplay(everything, 4, false));
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].title, "Zephant Fatal Error");
    EXPECT_EQ(boxes.shown[0].text,
              "Orvane Zephant requires your display be reconfigured to support more than 256-colors.");
}

TEST(DisplayCheck, TranslatedTextIsNoFormat)
{
    MessageBoxes boxes;
    MTBX_SetStringConstant(9, "100%% %s %d %n %");
    EXPECT_FALSE(judgeDisplay(0, 32, true));
    MTBX_SetStringConstant(9, "Display driver does not support %s as required by Zephant.  \n\nShutting down.");
    EXPECT_EQ(boxes.shown.at(0).text, "100% RC_BITBLT %d %n %");
}

TEST(DisplayCheck, ThisDisplayWillDo)
{
    MessageBoxes boxes;
    EXPECT_TRUE(MTBX_VerifyDisplayCapabilities(false));
    EXPECT_TRUE(boxes.shown.empty());
}

} // namespace
