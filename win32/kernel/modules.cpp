// Loading and naming of modules, and the functions that they offer.
#include "modules.h"

#include "control_state.h"
#include "embedded_resources.h"
#include "handle_table.h"
#include "kernel_internal.h"
#include "paths.h"

#include <malloc.h>
#include <mbstring.h>
#include <psapi.h>
#include <unistd.h>
#include <winnetwk.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>

#include "module_functions.inc"

namespace win32 {
namespace {

constexpr char systemFolder[] = "c:\\windows\\system32\\";

std::mutex moduleMutex;

Module &program()
{
    static Module module{nullptr, nullptr, 0};
    return module;
}

// With the mutex held. The handle stays valid as long as the process lives.
HMODULE handleOf(Module &module)
{
    if (!module.handle)
        module.handle = static_cast<HMODULE>(handles::insert(HandleKind::Module, &module));
    return module.handle;
}

// Lower case, without the system folder and ".dll".
std::string plainName(LPCSTR name)
{
    std::string result;
    for (; *name; ++name)
        result += *name == '/' ? '\\' : lowerAscii(*name);
    if (result.starts_with(systemFolder))
        result.erase(0, sizeof systemFolder - 1);
    if (result.ends_with(".dll"))
        result.resize(result.size() - 4);
    return result;
}

HMODULE moduleNamed(LPCSTR name)
{
    return guarded(HMODULE{}, [&] {
        std::string wanted = plainName(name);
        std::lock_guard lock(moduleMutex);
        for (Module &module : layerModules) {
            if (wanted == module.name && !control::hides(module.name, nullptr))
                return handleOf(module);
        }
        return fail(ERROR_MOD_NOT_FOUND, HMODULE{});
    });
}

} // namespace

Module *findModule(HMODULE handle)
{
    return handle ? static_cast<Module *>(handles::find(handle, HandleKind::Module)) : &program();
}

} // namespace win32

using namespace win32;

HMODULE LoadLibraryA(LPCSTR name)
{
    return name ? moduleNamed(name) : fail(ERROR_INVALID_PARAMETER, HMODULE{});
}

HMODULE GetModuleHandleA(LPCSTR name)
{
    if (name)
        return moduleNamed(name);
    std::lock_guard lock(moduleMutex);
    return handleOf(program());
}

BOOL FreeLibrary(HMODULE module)
{
    return handles::find(module, HandleKind::Module) != nullptr;
}

FARPROC GetProcAddress(HMODULE handle, LPCSTR name)
{
    Module *module = findModule(handle);
    if (!module)
        return nullptr;
    if (IS_INTRESOURCE(name) || !module->functions || control::hides(module->name, name))
        return fail(ERROR_PROC_NOT_FOUND, FARPROC{});
    const ModuleFunction *end = module->functions + module->functionCount;
    auto before = [](const ModuleFunction &function, LPCSTR wanted) { return strcmp(function.name, wanted) < 0; };
    const ModuleFunction *found = std::lower_bound(module->functions, end, name, before);
    if (found == end || strcmp(found->name, name) != 0)
        return fail(ERROR_PROC_NOT_FOUND, FARPROC{});
    return found->address;
}

DWORD GetModuleFileNameA(HMODULE handle, LPSTR buffer, DWORD size)
{
    return guarded(DWORD{0}, [&]() -> DWORD {
        Module *module = findModule(handle);
        if (!module)
            return 0;
        std::string path;
        if (module->name) {
            path = std::string("C:\\windows\\system32\\") + module->name + ".dll";
        } else {
            char target[PATH_MAX];
            ssize_t length = readlink("/proc/self/exe", target, sizeof target);
            if (length <= 0)
                return fail(ERROR_GEN_FAILURE, DWORD{0});
            path = win32Path(std::string(target, static_cast<size_t>(length)));
        }
        if (!buffer || size == 0)
            return fail(ERROR_INSUFFICIENT_BUFFER, DWORD{0});
        // A name that does not fit is cut, and the result is then the size of the buffer.
        DWORD copied = static_cast<DWORD>(std::min<size_t>(path.size(), size - 1));
        memcpy(buffer, path.data(), copied);
        buffer[copied] = 0;
        return path.size() < size ? copied : fail(ERROR_INSUFFICIENT_BUFFER, size);
    });
}

BOOL DisableThreadLibraryCalls(HMODULE module)
{
    return findModule(module) != nullptr;
}

void Win32_AddProgramResources(const void *resFile, size_t size)
{
    guarded(0, [&] {
        program().resources.add({static_cast<const std::byte *>(resFile), size});
        return 0;
    });
}
