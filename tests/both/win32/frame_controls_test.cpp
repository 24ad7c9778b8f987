// Edges and controls in system colours, of which each has a mark of its own here.
#include "Canvas.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Rows = std::vector<std::string>;

constexpr struct {
    INT index;
    char mark;
} marked[] = {{COLOR_3DFACE, '-'},      {COLOR_3DSHADOW, 's'},   {COLOR_3DHILIGHT, 'h'},
              {COLOR_3DDKSHADOW, 'd'},  {COLOR_3DLIGHT, 'l'},    {COLOR_WINDOW, '_'},
              {COLOR_WINDOWFRAME, 'F'}, {COLOR_WINDOWTEXT, '#'}, {COLOR_BTNTEXT, '#'}};

class FrameControls : public testing::Test {
protected:
    FrameControls()
    {
        uint32_t blue = 16;
        for (auto [index, mark] : marked) {
            indices_.push_back(index);
            before_.push_back(GetSysColor(index));
            marks_.push_back({blue, mark});
            COLORREF color = RGB(0, 0, blue);
            SetSysColors(1, &index, &color);
            blue += 8;
        }
        marks_.push_back({0, '.'});
    }
    ~FrameControls() override { SetSysColors(static_cast<int>(before_.size()), indices_.data(), before_.data()); }

    Rows edge(UINT edge, UINT flags, RECT rect = {1, 1, 9, 6})
    {
        canvas_.clear();
        isDrawn_ = DrawEdge(canvas_.dc, &rect, edge, flags);
        rest_ = rect;
        return canvas_.rows(marks_);
    }
    // The control in a canvas of its size.
    Rows control(UINT type, UINT state, int width, int height)
    {
        Canvas canvas(width, height);
        RECT rect{0, 0, width, height};
        isDrawn_ = DrawFrameControl(canvas.dc, &rect, type, state);
        rest_ = rect;
        return canvas.rows(marks_);
    }
    Rows restOf() const
    {
        return {std::to_string(rest_.left), std::to_string(rest_.top), std::to_string(rest_.right),
                std::to_string(rest_.bottom)};
    }

    Canvas canvas_{10, 7};
    std::vector<std::pair<uint32_t, char>> marks_;
    BOOL isDrawn_ = FALSE;
    RECT rest_{};

private:
    std::vector<INT> indices_;
    std::vector<COLORREF> before_;
};

TEST_F(FrameControls, EdgesAreRaisedSunkenEtchedAndSoft)
{
    EXPECT_EQ(edge(EDGE_RAISED, BF_RECT | BF_MIDDLE | BF_ADJUST),
              (Rows{"..........", ".llllllld.", ".lhhhhhsd.", ".lh----sd.", ".lssssssd.", ".dddddddd.", ".........."}));
    EXPECT_EQ(restOf(), (Rows{"3", "3", "7", "4"}));
    EXPECT_EQ(edge(EDGE_SUNKEN, BF_RECT | BF_SOFT),
              (Rows{"..........", ".dddddddh.", ".dssssslh.", ".ds....lh.", ".dllllllh.", ".hhhhhhhh.", ".........."}));
    EXPECT_EQ(edge(EDGE_ETCHED, BF_TOP | BF_RIGHT),
              (Rows{"..........", ".sssssssh.", ".hhhhhhsh.", ".......sh.", ".......sh.", ".......sh.", ".........."}));
    EXPECT_EQ(edge(BDR_SUNKENINNER, BF_LEFT | BF_BOTTOM | BF_ADJUST),
              (Rows{"..........", ".d........", ".d........", ".d........", ".d........", ".llllllll.", ".........."}));
    EXPECT_EQ(restOf(), (Rows{"2", "1", "9", "5"}));
    EXPECT_EQ(edge(EDGE_BUMP, BF_RECT | BF_FLAT),
              (Rows{"..........", ".ssssssss.", ".s------s.", ".s-....-s.", ".s------s.", ".ssssssss.", ".........."}));
    EXPECT_EQ(edge(EDGE_BUMP, BF_RECT | BF_MONO | BF_MIDDLE),
              (Rows{"..........", ".FFFFFFFF.", ".F______F.", ".F______F.", ".F______F.", ".FFFFFFFF.", ".........."}));
    EXPECT_TRUE(isDrawn_);
}

TEST_F(FrameControls, EdgesThatContradictThemselvesOnlyTakeRoom)
{
    Rows blank(7, "..........");
    EXPECT_EQ(edge(BDR_OUTER | BDR_RAISEDINNER, BF_RECT | BF_MIDDLE | BF_ADJUST), blank);
    EXPECT_FALSE(isDrawn_);
    EXPECT_EQ(restOf(), (Rows{"3", "3", "7", "4"}));
}

TEST_F(FrameControls, DiagonalEdgesHaveTheirMiddleOnOneSide)
{
    RECT square{2, 1, 7, 6};
    EXPECT_EQ(edge(EDGE_RAISED, BF_DIAGONAL_ENDTOPRIGHT | BF_MIDDLE, square),
              (Rows{"..........", "......l...", ".....lh...", "....lh-...", "...lh--...", "..lh---...", ".........."}));
    EXPECT_EQ(edge(EDGE_RAISED, BF_DIAGONAL_ENDBOTTOMRIGHT | BF_MIDDLE, square),
              (Rows{"..........", "..d.......", "..sd......", "..-sd.....", "..--sd....", "..---sd...", ".........."}));
    EXPECT_EQ(edge(EDGE_RAISED, BF_DIAGONAL_ENDTOPLEFT, square),
              (Rows{"..........", "..lh......", "...lh.....", "....lh....", ".....lh...", "......l...", ".........."}));
    EXPECT_EQ(edge(EDGE_RAISED, BF_DIAGONAL_ENDBOTTOMLEFT, square),
              (Rows{"..........", ".....sd...", "....sd....", "...sd.....", "..sd......", "..d.......", ".........."}));
}

TEST_F(FrameControls, PushButtonsShowTheirState)
{
    EXPECT_EQ(control(DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_ADJUSTRECT, 8, 6),
              (Rows{"hhhhhhhd", "hlllllsd", "hl----sd", "hl----sd", "hssssssd", "dddddddd"}));
    EXPECT_EQ(restOf(), (Rows{"2", "2", "6", "4"}));
    EXPECT_EQ(control(DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED, 8, 6),
              (Rows{"dddddddh", "dssssslh", "ds----lh", "ds----lh", "dllllllh", "hhhhhhhh"}));
    EXPECT_EQ(restOf(), (Rows{"0", "0", "8", "6"}));
    EXPECT_EQ(control(DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_FLAT, 8, 6),
              (Rows{"ssssssss", "s------s", "s------s", "s------s", "s------s", "ssssssss"}));
}

TEST_F(FrameControls, CheckBoxesHaveASunkenField)
{
    EXPECT_EQ(control(DFC_BUTTON, DFCS_BUTTONCHECK, 8, 8),
              (Rows{"sssssssh", "sdddddlh", "sd____lh", "sd____lh", "sd____lh", "sd____lh", "sllllllh", "hhhhhhhh"}));
    EXPECT_EQ(control(DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_PUSHED, 6, 6),
              (Rows{"sssssh", "sdddlh", "sd--lh", "sd--lh", "sllllh", "hhhhhh"}));
    // In a wide rectangle the box is a square in the middle.
    EXPECT_EQ(control(DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_FLAT, 8, 6),
              (Rows{".ssssss.", ".s----s.", ".s-__-s.", ".s-__-s.", ".s----s.", ".ssssss."}));
}

TEST_F(FrameControls, ScrollBarsHaveArrows)
{
    EXPECT_EQ(control(DFC_SCROLL, DFCS_SCROLLUP, 16, 16),
              (Rows{"llllllllllllllld", "lhhhhhhhhhhhhhsd", "lh------------sd", "lh------------sd", "lh------------sd",
                    "lh-----#------sd", "lh----###-----sd", "lh---#####----sd", "lh--#######---sd", "lh------------sd",
                    "lh------------sd", "lh------------sd", "lh------------sd", "lh------------sd", "lssssssssssssssd",
                    "dddddddddddddddd"}));
    Rows right = control(DFC_SCROLL, DFCS_SCROLLRIGHT, 16, 16);
    EXPECT_EQ(right[4], "lh----#-------sd");
    EXPECT_EQ(right[7], "lh----####----sd");
    EXPECT_EQ(right[10], "lh----#-------sd");
    EXPECT_EQ(control(DFC_SCROLL, DFCS_SCROLLCOMBOBOX, 16, 16), control(DFC_SCROLL, DFCS_SCROLLDOWN, 16, 16));
    EXPECT_FALSE(DrawFrameControl(canvas_.dc, &rest_, 9, 0));
}

TEST(SystemColors, HaveBrushesThatFollowThem)
{
    INT index = COLOR_INFOBK;
    COLORREF before = GetSysColor(index), changed = RGB(7, 8, 9);
    GetSysColorBrush(index);
    ASSERT_TRUE(SetSysColors(1, &index, &changed));
    EXPECT_EQ(GetSysColor(index), changed);
    HBRUSH brush = GetSysColorBrush(index);
    LOGBRUSH description{};
    GetObjectA(brush, sizeof description, &description);
    EXPECT_EQ(description.lbColor, changed);
    DeleteObject(brush); // in vain: it is the system's
    EXPECT_EQ(GetObjectType(brush), DWORD{OBJ_BRUSH});
    SetSysColors(1, &index, &before);
    EXPECT_EQ(GetSysColor(1000), 0u);
    EXPECT_FALSE(GetSysColorBrush(-1));
}

TEST(SystemMetrics, DescribeTheScreenAndItsParts)
{
    EXPECT_GT(GetSystemMetrics(SM_CXSCREEN), 0);
    EXPECT_GE(GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CXSCREEN));
    EXPECT_GE(GetSystemMetrics(SM_CMONITORS), 1);
    EXPECT_EQ(GetSystemMetrics(SM_CXICON), 32);
    EXPECT_EQ(GetSystemMetrics(SM_CXBORDER), 1);
    EXPECT_EQ(GetSystemMetrics(SM_CXEDGE), 2);
    EXPECT_EQ(GetSystemMetrics(SM_CXFRAME), 4);
    EXPECT_EQ(GetSystemMetrics(99999), 0);
}

} // namespace
