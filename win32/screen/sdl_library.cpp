#include "sdl_library.h"

#include <dlfcn.h>

namespace win32::screen {
namespace {

template <class Function> bool find(void *library, const char *name, Function &function)
{
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

} // namespace

const Sdl *loadSdl(std::string &problem)
{
    static Sdl sdl;
    void *library = dlopen("libSDL2-2.0.so.0", RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        problem = dlerror();
        return nullptr;
    }
#define WIN32_SDL_FIND(name)                                                                                           \
    if (!find(library, "SDL_" #name, sdl.name)) {                                                                      \
        problem = "libSDL2 lacks SDL_" #name;                                                                          \
        return nullptr;                                                                                                \
    }
    WIN32_SDL_FUNCTIONS(WIN32_SDL_FIND)
#undef WIN32_SDL_FIND
    return &sdl;
}

} // namespace win32::screen
