// The desktop's looks where the layer fixes what other platforms leave open.
#include "Canvas.h"

#include <win32/control.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Rows = std::vector<std::string>;

class Desktop : public testing::Test {
protected:
    // A control, with a mark for each of the plain colours.
    Rows control(UINT type, UINT state, int width, int height, int depth = 32)
    {
        Canvas canvas(width, height, depth);
        RECT rect{0, 0, width, height};
        canvas.clear(0x123456);
        EXPECT_TRUE(DrawFrameControl(canvas.dc, &rect, type, state));
        return canvas.rows(
            {{0x123456, '.'}, {0xd4d0c8, '-'}, {0x808080, 's'}, {0xffffff, 'h'}, {0x404040, 'd'}, {0, '#'}});
    }
};

TEST_F(Desktop, CaptionButtonsHaveTheirSigns)
{
    EXPECT_EQ(control(DFC_CAPTION, DFCS_CAPTIONCLOSE, 16, 14),
              (Rows{"hhhhhhhhhhhhhhhd", "h-------------sd", "h-------------sd", "h---##----##--sd", "h----##--##---sd",
                    "h-----####----sd", "h------##-----sd", "h-----####----sd", "h----##--##---sd", "h---##----##--sd",
                    "h-------------sd", "h-------------sd", "hssssssssssssssd", "dddddddddddddddd"}));
    EXPECT_EQ(control(DFC_CAPTION, DFCS_CAPTIONMAX | DFCS_PUSHED, 16, 14),
              (Rows{"dddddddddddddddh", "dsssssssssssss-h", "ds-------------h", "ds--#########--h", "ds--#########--h",
                    "ds--#-------#--h", "ds--#-------#--h", "ds--#-------#--h", "ds--#-------#--h", "ds--#-------#--h",
                    "ds--#-------#--h", "ds--#########--h", "d--------------h", "hhhhhhhhhhhhhhhh"}));
    Rows restore = control(DFC_CAPTION, DFCS_CAPTIONRESTORE, 16, 14);
    EXPECT_EQ(restore[2], "h-----######--sd");
    EXPECT_EQ(restore[5], "h--######--#--sd");
    EXPECT_EQ(restore[10], "h--######-----sd");
    Rows minimize = control(DFC_CAPTION, DFCS_CAPTIONMIN, 16, 14);
    EXPECT_EQ(minimize[9], "h--######-----sd");
    Rows disabled = control(DFC_CAPTION, DFCS_CAPTIONMIN | DFCS_INACTIVE, 16, 14);
    EXPECT_EQ(disabled[9], "h--ssssss-----sd");
    EXPECT_EQ(disabled[11], "h---hhhhhh----sd");
}

TEST_F(Desktop, MarksStandInTheirFields)
{
    EXPECT_EQ(control(DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED, 13, 13),
              (Rows{"ssssssssssssh", "sdddddddddd-h", "sdhhhhhhhhh-h", "sdhhhhhhh#h-h", "sdhhhhhh##h-h",
                    "sdh#hhh###h-h", "sdh##h###hh-h", "sdh#####hhh-h", "sdhh###hhhh-h", "sdhhh#hhhhh-h",
                    "sdhhhhhhhhh-h", "s-----------h", "hhhhhhhhhhhhh"}));
    EXPECT_EQ(control(DFC_BUTTON, DFCS_BUTTONRADIO | DFCS_CHECKED, 13, 13),
              (Rows{"....ssss.....", "..ssddddss...", ".ssdhhhhdsh..", ".sdhhhhhh-h..", "sdhhh##hhh-h.",
                    "sdhh####hh-h.", "sdhh####hh-h.", "sdhhh##hhh-h.", ".sdhhhhhh-h..", ".ss-hhhh-hh..",
                    "..hh----hh...", "....hhhh.....", "............."}));
    Rows mixed = control(DFC_BUTTON, DFCS_BUTTON3STATE | DFCS_CHECKED, 13, 13);
    EXPECT_EQ(mixed[2], "sd-h-h-h-h--h");
    EXPECT_EQ(control(DFC_MENU, DFCS_MENUARROW, 9, 7),
              (Rows{"hhhhhhhhh", "hhh#hhhhh", "hhh##hhhh", "hhh###hhh", "hhh##hhhh", "hhh#hhhhh", "hhhhhhhhh"}));
}

TEST_F(Desktop, SizeGripsLieInTheirCorner)
{
    Rows grip = {"-------s", "------s-", "-----s-h", "----s-hs", "---s-hss", "--s-hss-"};
    EXPECT_EQ(control(DFC_SCROLL, DFCS_SCROLLSIZEGRIP, 8, 6), grip);
    for (std::string &row : grip)
        std::reverse(row.begin(), row.end());
    EXPECT_EQ(control(DFC_SCROLL, DFCS_SCROLLSIZEGRIPRIGHT, 8, 6), grip);
}

TEST_F(Desktop, RefusesWhatIsNoContext)
{
    RECT rect{0, 0, 9, 9};
    EXPECT_FALSE(DrawEdge(nullptr, &rect, EDGE_RAISED, BF_RECT));
    EXPECT_FALSE(DrawFrameControl(nullptr, &rect, DFC_BUTTON, DFCS_BUTTONPUSH));
    EXPECT_FALSE(FillRect(nullptr, &rect, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1)));
    Canvas canvas(9, 9);
    EXPECT_FALSE(FillRect(canvas.dc, &rect, nullptr));
    EXPECT_FALSE(FillRect(canvas.dc, nullptr, GetSysColorBrush(COLOR_WINDOW)));
    EXPECT_FALSE(DrawEdge(canvas.dc, nullptr, EDGE_RAISED, BF_RECT));
}

TEST_F(Desktop, SystemBrushesAreTheSameBeforeAndAfterAChange)
{
    INT index = COLOR_HIGHLIGHT;
    COLORREF before = GetSysColor(index), red = RGB(255, 0, 0);
    HBRUSH brush = GetSysColorBrush(index);
    Canvas canvas(2, 1);
    SelectObject(canvas.dc, brush);
    SetSysColors(1, &index, &red);
    EXPECT_EQ(GetSysColorBrush(index), brush);
    PatBlt(canvas.dc, 0, 0, 2, 1, PATCOPY);
    EXPECT_EQ(canvas.pixel(0, 0), 0xff0000u);
    SetSysColors(1, &index, &before);
}

TEST_F(Desktop, MetricsFollowTheScreen)
{
    ASSERT_TRUE(Win32Control_SetScreenMode("800x600x8,640x480"));
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), 800);
    EXPECT_EQ(GetSystemMetrics(SM_CYFULLSCREEN), 600 - GetSystemMetrics(SM_CYCAPTION));
    EXPECT_EQ(GetSystemMetrics(SM_CXVIRTUALSCREEN), 1440);
    EXPECT_EQ(GetSystemMetrics(SM_CYVIRTUALSCREEN), 600);
    EXPECT_EQ(GetSystemMetrics(SM_CMONITORS), 2);
    EXPECT_EQ(GetSystemMetrics(SM_CXMAXIMIZED), 808);
    Win32Control_SetScreenMode("1024x768x32");
    EXPECT_EQ(GetSystemMetrics(SM_DBCSENABLED), 0);
}

} // namespace
