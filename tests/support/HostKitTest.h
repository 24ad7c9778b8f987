// The host kit, started once for a whole test program, and what its tests ask of it.
#pragma once

#include "Input.h"
#include "Pascal.h"
#include "Rectangles.h"

#include <hostkit/hostkit.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

// The options of all tests.
HostKitOptions testOptions();

class HostKitTest : public testing::Test {
protected:
    HostKitTest()
    {
        POINT outside = {600, 500};
        ClientToScreen(hWndMain, &outside);
        SetCursorPos(outside.x, outside.y);
        drain();
    }
    ~HostKitTest() override
    {
        HostKitSetEventProc(nullptr);
        HostKitSetWheelProc(nullptr);
        while (gFrontWindow && gFrontWindow != gDesktopWindow)
            DisposeWindow(gFrontWindow);
        while (!palettes.empty())
            dispose(palettes.back());
        input = nullptr;
        drain();
    }

    WindowPtr open(const Rect &bounds, SInt16 procID = documentProc, bool isVisible = true, bool hasGoAway = true)
    {
        WindowPtr window = HostKitNewWindow(nullptr, &bounds, Pascal("Window"), isVisible, procID,
                                            reinterpret_cast<WindowPtr>(-1), hasGoAway, 0);
        EXPECT_TRUE(window);
        if (procID > 16)
            palettes.push_back(window);
        return window;
    }
    void dispose(WindowPtr window)
    {
        std::erase(palettes, window);
        DisposeWindow(window);
    }

    // All that waits, updates served; what it was, such as "update 2" for the window with refCon 2.
    std::vector<std::string> drain(EventMask mask = everyEvent)
    {
        std::vector<std::string> kinds;
        EventRecord event;
        for (int i = 0; i < 1000 && HostKitWaitNextEvent(mask, &event, 0, nullptr); ++i) {
            kinds.push_back(nameOf(event));
            serve(event);
        }
        return kinds;
    }
    static void serve(const EventRecord &event)
    {
        if (event.what != updateEvt)
            return;
        BeginUpdate(windowOf(event));
        EndUpdate(windowOf(event));
    }
    static WindowPtr windowOf(const EventRecord &event) { return reinterpret_cast<WindowPtr>(event.message); }
    static std::string nameOf(const EventRecord &event)
    {
        auto ofWindow = [&](const char *name) { return name + std::to_string(GetWRefCon(windowOf(event))); };
        switch (event.what) {
        case mouseDown: return "press";
        case mouseUp: return "release";
        case keyDown: return "key " + std::string(1, static_cast<char>(event.message & charCodeMask));
        case autoKey: return "repeat";
        case updateEvt: return ofWindow("update ");
        case activateEvt: return ofWindow((event.modifiers & activeFlag) ? "activate " : "deactivate ");
        case osEvt: return (event.message >> 24) == mouseMovedMessage ? "move" : (event.message & resumeFlag) ? "resume" : "suspend";
        default: return "other " + std::to_string(event.what);
        }
    }
    // The next event of the kind; everything else stays.
    static EventRecord waitFor(EventMask mask)
    {
        EventRecord event = {};
        EXPECT_TRUE(HostKitWaitNextEvent(mask, &event, 120, nullptr)) << "mask " << mask;
        return event;
    }

    // The mouse, in global coordinates.
    static void moveTo(Point global)
    {
        POINT point = {global.h, global.v};
        ClientToScreen(hWndMain, &point);
        SetCursorPos(point.x, point.y);
    }
    EventRecord pressAt(Point global)
    {
        moveTo(global);
        mouse().pressButton();
        return waitFor(mDownMask);
    }
    void release()
    {
        mouse().releaseButton();
        waitFor(mUpMask);
    }
    // While the call runs, the mouse goes through the points and lets go at the last.
    template <class Call> void whileDragging(std::vector<Point> points, Call call)
    {
        std::thread user([this, points] {
            for (Point point : points) {
                Sleep(30);
                moveTo(point);
            }
            Sleep(30);
            mouse().releaseButton();
        });
        call();
        user.join();
        drain(mUpMask);
    }
    Input &mouse()
    {
        if (!input)
            input = std::make_unique<Input>();
        return *input;
    }

    static HWND nativeOf(WindowPtr window) { return GetMacWindowPtrHwnd(window); }
    static WindowRecord &recordOf(WindowPtr window) { return *reinterpret_cast<WindowPeek>(window); }
    static Rect contentOf(WindowPtr window)
    {
        Rect content = {};
        GetWindowBounds(window, kWindowContentRgn, &content);
        return content;
    }
    static Rect structureOf(WindowPtr window)
    {
        Rect structure = {};
        GetWindowBounds(window, kWindowStructureRgn, &structure);
        return structure;
    }
    static Point inTitleOf(WindowPtr window)
    {
        Rect structure = structureOf(window), content = contentOf(window);
        return {static_cast<SInt16>((structure.top + content.top) / 2 + 2), static_cast<SInt16>(content.left + 30)};
    }
    // Of the first point in a frame that the system takes for this.
    static Point pointOf(WindowPtr window, int hit)
    {
        Rect structure = structureOf(window);
        for (SInt16 v = structure.top; v < structure.bottom; ++v) {
            for (SInt16 h = structure.left; h < structure.right; ++h) {
                POINT point = {h, v};
                ClientToScreen(hWndMain, &point);
                if (SendMessageA(nativeOf(window), WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y)) == hit)
                    return {static_cast<SInt16>(v + 2), static_cast<SInt16>(h + 2)};
            }
        }
        ADD_FAILURE() << "no part " << hit;
        return {};
    }

    std::vector<WindowPtr> palettes;

private:
    std::unique_ptr<Input> input;
};
