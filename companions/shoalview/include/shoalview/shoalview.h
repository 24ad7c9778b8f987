/* shoalview: monitors, and the modal window of an interface that has windows of its own.

   All calls come on the thread of the user interface. */
#ifndef SHOALVIEW_SHOALVIEW_H
#define SHOALVIEW_SHOALVIEW_H

#include <windows.h>

#if defined(_WIN32)
#if defined(SHOALVIEW_BUILD)
#define SHOALVIEW_API __declspec(dllexport)
#else
#define SHOALVIEW_API __declspec(dllimport)
#endif
#else
#define SHOALVIEW_API __attribute__((visibility("default")))
#endif

template <class T> struct PointT {
    T x, y;
};

template <class T> struct RectT {
    T left, top, width, height;
};

class SHOALVIEW_API OS_MonitorInfo {
public:
    OS_MonitorInfo();
    ~OS_MonitorInfo();

    /* The rectangle of the monitor nearest to the point, both in screen coordinates; without what task
       bars take of it if that is asked for. Empty when the system tells nothing. */
    RectT<long> GetMonitorRectFromPoint(const PointT<long> &point, bool workAreaOnly) const;
};

/* A window of the interface. */
class OS_Window {
public:
    virtual ~OS_Window() {}
    /* The native window of a layer of it, 0 for the window itself; null while there is none. */
    virtual HWND GetNativeWindow(int layer) = 0;
};

/* The interface's windows. A program that has such windows makes one manager and keeps it for as long as
   they live. */
class SHOALVIEW_API UI_NodeManager {
public:
    UI_NodeManager();
    ~UI_NodeManager();
    UI_NodeManager(const UI_NodeManager &) = delete;
    UI_NodeManager &operator=(const UI_NodeManager &) = delete;

    /* The latest of the living managers, null when there is none. */
    static UI_NodeManager *Get();

    /* The window that is modal now; null for none. */
    OS_Window *GetModalWindow() const { return modalWindow_; }
    /* The caller keeps the window and takes it out before it dies. */
    void SetModalWindow(OS_Window *window) { modalWindow_ = window; }

private:
    UI_NodeManager *previous_;
    OS_Window *modalWindow_;
};

#endif
