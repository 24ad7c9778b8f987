// What of a window is to be painted, and the calls around painting.
#include "TestWindows.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <ostream>

static bool operator==(const RECT &a, const RECT &b)
{
    return EqualRect(&a, &b) != FALSE;
}

static std::ostream &operator<<(std::ostream &out, const RECT &rect)
{
    return out << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}

namespace {

class Painting : public testing::Test {
protected:
    void SetUp() override { TestWindows::drain(); }

    // The update region as a test of each of its pixels.
    class Update {
    public:
        explicit Update(HWND window) { GetUpdateRgn(window, region_, FALSE); }
        ~Update() { DeleteObject(region_); }
        Update(const Update &) = delete;
        bool equals(std::initializer_list<RECT> added, std::initializer_list<RECT> taken = {})
        {
            HRGN expected = CreateRectRgn(0, 0, 0, 0);
            combine(expected, added, RGN_OR);
            combine(expected, taken, RGN_DIFF);
            bool areEqual = EqualRgn(region_, expected) != FALSE;
            DeleteObject(expected);
            return areEqual;
        }
        RECT box()
        {
            RECT result;
            GetRgnBox(region_, &result);
            return result;
        }

    private:
        static void combine(HRGN region, std::initializer_list<RECT> rects, int mode)
        {
            for (const RECT &rect : rects) {
                HRGN part = CreateRectRgnIndirect(&rect);
                CombineRgn(region, region, part, mode);
                DeleteObject(part);
            }
        }

        HRGN region_ = CreateRectRgn(0, 0, 0, 0);
    };

    void validate(HWND window) { RedrawWindow(window, nullptr, nullptr, RDW_VALIDATE | RDW_NOERASE | RDW_NOFRAME | RDW_ALLCHILDREN); }

    // Taking a window of its own from the screen is slow on some systems, so one serves all tests.
    static void SetUpTestSuite() { shared_ = new TestWindows; }
    static void TearDownTestSuite() { delete shared_; }
    void TearDown() override { windows_.forget(frame_); }

    static inline TestWindows *shared_;
    TestWindows &windows_ = *shared_;
    HWND frame_ = windows_.sharedPopup({0, 0, 300, 200});
    static constexpr UINT moveOnly = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
};

TEST_F(Painting, InvalidAreasAddUpWithinTheClientArea)
{
    validate(frame_);
    RECT first{10, 10, 30, 30}, second{20, 20, 50, 50}, outside{-20, 190, 40, 400};
    InvalidateRect(frame_, &first, FALSE);
    InvalidateRect(frame_, &second, TRUE);
    InvalidateRect(frame_, &outside, FALSE);
    EXPECT_TRUE(Update(frame_).equals({first, second, {0, 190, 40, 200}}));
    ValidateRect(frame_, &first);
    EXPECT_TRUE(Update(frame_).equals({second, {0, 190, 40, 200}}, {first}));
    ValidateRect(frame_, nullptr);
    EXPECT_TRUE(Update(frame_).equals({}));
}

TEST_F(Painting, BeginPaintTakesTheUpdateRegionAndClipsToIt)
{
    validate(frame_);
    RECT part{10, 10, 30, 40};
    InvalidateRect(frame_, &part, TRUE);
    windows_.noted.clear();
    PAINTSTRUCT paint;
    ASSERT_NE(BeginPaint(frame_, &paint), nullptr);
    EXPECT_EQ(paint.rcPaint, part);
    RECT clip;
    GetClipBox(paint.hdc, &clip);
    EXPECT_EQ(clip, part);
    EXPECT_TRUE(Update(frame_).equals({}));
    EXPECT_TRUE(paint.fErase); // the class has no background
    EndPaint(frame_, &paint);
    EXPECT_EQ(windows_.notedOf(frame_, {WM_ERASEBKGND}).size(), 1u);
}

TEST_F(Painting, PaintMessagesComeLastAndAsLongAsSomethingIsInvalid)
{
    validate(frame_);
    TestWindows::drain();
    InvalidateRect(frame_, nullptr, FALSE);
    PostMessageA(frame_, WM_APP, 0, 0);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_APP});
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(PeekMessageA(&message, frame_, 0, 0, PM_REMOVE));
        EXPECT_EQ(message.message, UINT{WM_PAINT});
    }
    DispatchMessageA(&message);
    EXPECT_FALSE(PeekMessageA(&message, frame_, WM_PAINT, WM_PAINT, PM_REMOVE));
}

TEST_F(Painting, MovingAChildAwayInvalidatesWhatItHid)
{
    HWND low = windows_.makeChild(frame_, {10, 10, 110, 110});
    HWND high = windows_.makeChild(frame_, {60, 60, 160, 160});
    SetWindowPos(high, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    TestWindows::drain();
    validate(frame_);
    SetWindowPos(high, nullptr, 70, 80, 0, 0, moveOnly);
    EXPECT_TRUE(Update(low).equals({{50, 50, 100, 100}}, {{60, 70, 100, 100}}));
    EXPECT_TRUE(Update(high).equals({})); // its pixels moved along
    EXPECT_TRUE(Update(frame_).equals({{60, 60, 160, 160}}, {{70, 80, 170, 180}}));
}

TEST_F(Painting, HidingShowingAndAnotherOrderInvalidateWhatAppears)
{
    HWND low = windows_.makeChild(frame_, {10, 10, 110, 110});
    HWND high = windows_.makeChild(frame_, {60, 60, 160, 160});
    SetWindowPos(high, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    TestWindows::drain();
    validate(frame_);
    SetWindowPos(low, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_TRUE(Update(low).equals({{50, 50, 100, 100}}));
    validate(frame_);
    ShowWindow(low, SW_HIDE);
    EXPECT_TRUE(Update(high).equals({{0, 0, 50, 50}}));
    validate(frame_);
    ShowWindow(low, SW_SHOWNA);
    EXPECT_TRUE(Update(low).equals({{0, 0, 100, 100}}));
    EXPECT_TRUE(Update(high).equals({}));
}

TEST_F(Painting, ParentsThatClipTheirChildrenDoNotReachThem)
{
    HWND clipping = windows_.makeChild(frame_, {0, 0, 100, 100}, WS_VISIBLE | WS_CLIPCHILDREN);
    HWND inner = windows_.makeChild(clipping, {20, 20, 60, 60});
    TestWindows::drain();
    validate(frame_);
    InvalidateRect(clipping, nullptr, FALSE);
    EXPECT_TRUE(Update(inner).equals({}));
    RedrawWindow(clipping, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    EXPECT_TRUE(Update(inner).equals({{0, 0, 40, 40}}));
}

TEST_F(Painting, ContextsAreClippedToWhatIsVisible)
{
    HWND low = windows_.makeChild(frame_, {10, 10, 110, 110});
    HWND high = windows_.makeChild(frame_, {60, 10, 160, 110});
    SetWindowPos(high, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    HDC context = GetDC(low);
    RECT box;
    EXPECT_EQ(GetClipBox(context, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{0, 0, 50, 100}));
    // The window behind a context may change while it is held.
    ShowWindow(high, SW_HIDE);
    GetClipBox(context, &box);
    EXPECT_EQ(box, (RECT{0, 0, 100, 100}));
    EXPECT_EQ(WindowFromDC(context), low);
    EXPECT_EQ(ReleaseDC(low, context), 1);
    ShowWindow(low, SW_HIDE);
    context = GetDC(low);
    EXPECT_EQ(GetClipBox(context, &box), NULLREGION);
    ReleaseDC(low, context);
}

TEST_F(Painting, SetRedrawKeepsAWindowQuiet)
{
    validate(frame_);
    SendMessageA(frame_, WM_SETREDRAW, FALSE, 0);
    InvalidateRect(frame_, nullptr, TRUE);
    EXPECT_FALSE(GetUpdateRect(frame_, nullptr, FALSE));
    SendMessageA(frame_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(frame_, nullptr, TRUE);
    EXPECT_TRUE(GetUpdateRect(frame_, nullptr, FALSE));
}

TEST_F(Painting, ScrollingMovesPixelsAndInvalidatesTheRest)
{
    TestWindows::drain();
    validate(frame_);
    HDC context = GetDC(frame_);
    RECT all{0, 0, 300, 200}, mark{50, 60, 60, 70};
    HBRUSH white = CreateSolidBrush(RGB(255, 255, 255)), red = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(context, &all, white);
    FillRect(context, &mark, red);
    HRGN exposed = CreateRectRgn(0, 0, 0, 0);
    EXPECT_NE(ScrollWindowEx(frame_, 10, 20, nullptr, nullptr, exposed, nullptr, SW_INVALIDATE), ERROR);
    EXPECT_EQ(GetPixel(context, 65, 85), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(context, 61, 79), RGB(255, 255, 255));
    EXPECT_TRUE(Update(frame_).equals({{0, 0, 300, 20}, {0, 0, 10, 200}}));
    DeleteObject(exposed);
    DeleteObject(white);
    DeleteObject(red);
    ReleaseDC(frame_, context);
}

TEST_F(Painting, AWindowThatMovesTakesItsPixelsAlong)
{
    HWND child = windows_.makeChild(frame_, {10, 10, 60, 60});
    TestWindows::drain();
    HDC context = GetDC(child);
    RECT all{0, 0, 50, 50};
    HBRUSH green = CreateSolidBrush(RGB(0, 200, 0));
    FillRect(context, &all, green);
    SetWindowPos(child, nullptr, 35, 25, 0, 0, moveOnly);
    EXPECT_EQ(GetPixel(context, 0, 0), RGB(0, 200, 0));
    EXPECT_EQ(GetPixel(context, 49, 49), RGB(0, 200, 0));
    DeleteObject(green);
    ReleaseDC(child, context);
}

} // namespace
