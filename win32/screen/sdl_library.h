// SDL, loaded when a display is opened: a program that shows nothing never maps it.
#pragma once

#include <SDL.h>

#include <string>

namespace win32::screen {

#define WIN32_SDL_FUNCTIONS(EACH)                                                                                      \
    EACH(CreateColorCursor)                                                                                            \
    EACH(CreateRGBSurfaceWithFormat)                                                                                   \
    EACH(CreateRGBSurfaceWithFormatFrom)                                                                               \
    EACH(CreateWindow)                                                                                                 \
    EACH(DestroyWindow)                                                                                                \
    EACH(FillRect)                                                                                                     \
    EACH(FreeCursor)                                                                                                   \
    EACH(FreeSurface)                                                                                                  \
    EACH(GetClipboardText)                                                                                             \
    EACH(GetCurrentVideoDriver)                                                                                        \
    EACH(GetDisplayDPI)                                                                                                \
    EACH(GetDisplayUsableBounds)                                                                                       \
    EACH(GetError)                                                                                                     \
    EACH(GetModState)                                                                                                  \
    EACH(GetMouseState)                                                                                                \
    EACH(GetWindowDisplayIndex)                                                                                        \
    EACH(GetWindowDisplayMode)                                                                                         \
    EACH(GetWindowSize)                                                                                                \
    EACH(GetWindowSurface)                                                                                             \
    EACH(HasClipboardText)                                                                                             \
    EACH(Init)                                                                                                         \
    EACH(PollEvent)                                                                                                    \
    EACH(PushEvent)                                                                                                    \
    EACH(Quit)                                                                                                         \
    EACH(RegisterEvents)                                                                                               \
    EACH(SetClipboardText)                                                                                             \
    EACH(SetCursor)                                                                                                    \
    EACH(SetHint)                                                                                                      \
    EACH(SetWindowMinimumSize)                                                                                         \
    EACH(SetWindowSize)                                                                                                \
    EACH(ShowCursor)                                                                                                   \
    EACH(SoftStretchLinear)                                                                                            \
    EACH(StartTextInput)                                                                                               \
    EACH(UpdateWindowSurfaceRects)                                                                                     \
    EACH(UpperBlit)                                                                                                    \
    EACH(UpperBlitScaled)                                                                                              \
    EACH(WaitEventTimeout)                                                                                             \
    EACH(WarpMouseInWindow)                                                                                            \
    EACH(free)

struct Sdl {
#define WIN32_SDL_MEMBER(name) decltype(&SDL_##name) name = nullptr;
    WIN32_SDL_FUNCTIONS(WIN32_SDL_MEMBER)
#undef WIN32_SDL_MEMBER
};

// Null, with the reason, when it is not installed or lacks a function.
const Sdl *loadSdl(std::string &problem);

} // namespace win32::screen
