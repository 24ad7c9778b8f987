// A white port in memory to draw on, and its pixels as text.
#pragma once

#include "Graphics.h"

#include <string>

class ShapeCanvas : public Graphics {
protected:
    static constexpr SInt16 side = 64;

    ShapeCanvas() : memory(side, side)
    {
        MacSetPort(memory.port());
        clear();
    }
    ~ShapeCanvas() override { MacSetPort(nullptr); }

    CGrafPtr port() { return memory.port(); }
    HDC context() { return memory.context(); }
    void clear() { memory.clear(0xFFFFFF); }
    bool isBlack(int x, int y) { return memory.pixel(x, y) == 0; }
    // The rows from the top left of a part: '#' for black, '.' for white, '?' for any other colour.
    std::string picture(int width, int height, int left = 0, int top = 0)
    {
        std::string text = "\n";
        for (int y = top; y < top + height; ++y, text += '\n')
            for (int x = left; x < left + width; ++x) {
                UInt32 pixel = memory.pixel(x, y);
                text += pixel == 0 ? '#' : pixel == 0xFFFFFF ? '.' : '?';
            }
        return text;
    }
    std::string whole() { return picture(side, side); }
    // What a drawing leaves on white.
    template <class Draw> std::string drawn(Draw draw)
    {
        clear();
        draw();
        return whole();
    }
    // The same by a call of GDI's on the port's context.
    std::string rectangles(std::initializer_list<Rect> rects)
    {
        clear();
        for (const Rect &rect : rects)
            PatBlt(context(), rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, BLACKNESS);
        return whole();
    }
    int countBlack()
    {
        int count = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                count += isBlack(x, y);
        return count;
    }

    PortInMemory memory;
};

// Hooks that note what they are called with; the port disposes them.
struct NotedHooks {
    static inline std::string calls;

    static void install(CGrafPtr port)
    {
        calls.clear();
        auto procs = reinterpret_cast<CQDProcsPtr>(NewPtr(sizeof(CQDProcs)));
        SetStdCProcs(procs);
        SetPortGrafProcs(port, procs);
    }
    static void note(const char *kind, int verb) { calls += kind + std::to_string(verb) + " "; }
};
