// Loading and naming of modules, and the functions that they offer.
#include "modules.h"

#include "control_state.h"
#include "embedded_resources.h"
#include "handle_table.h"
#include "kernel_internal.h"
#include "paths.h"
#include "pe_image.h"

#include <dlfcn.h>
#include <malloc.h>
#include <mbstring.h>
#include <psapi.h>
#include <commdlg.h>
#include <shlobj.h>
#include <sys/stat.h>
#include <unistd.h>
#include <winnetwk.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <list>
#include <mutex>

#include "module_functions.inc"

namespace win32 {
namespace {

constexpr char systemFolder[] = "c:\\windows\\system32\\";

// Recursive: the start-up code of a shared object may load modules itself.
std::recursive_mutex moduleMutex;
std::list<Module> loadedModules;

Module &program()
{
    static Module module;
    return module;
}

// With the mutex held. A module of the layer and the program keep their handle as long as the process
// lives.
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

// With the mutex held.
Module *layerModule(LPCSTR name)
{
    std::string wanted = plainName(name);
    for (Module &module : layerModules) {
        if (wanted == module.name && !control::hides(module.name, nullptr))
            return &module;
    }
    return nullptr;
}

std::string programPath()
{
    char target[PATH_MAX];
    ssize_t length = readlink("/proc/self/exe", target, sizeof target);
    return length > 0 ? win32Path(std::string(target, static_cast<size_t>(length))) : std::string();
}

std::string pathOf(const Module &module)
{
    if (module.name)
        return std::string("C:\\windows\\system32\\") + module.name + ".dll";
    return module.path.empty() ? programPath() : module.path;
}

bool isFile(const std::string &unixName)
{
    struct stat status;
    return stat(unixName.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// The file of a module's name: as it stands when it has a folder, otherwise beside the program, in the
// current directory, in the system folder. A name without an extension is one of a ".dll".
bool findModuleFile(LPCSTR name, std::string &unixName)
{
    std::string file = name;
    size_t separator = file.find_last_of("\\/:");
    if (file.find('.', separator == std::string::npos ? 0 : separator) == std::string::npos)
        file += ".dll";
    if (separator != std::string::npos)
        return unixPath(file.c_str(), unixName) && isFile(unixName);
    std::string beside = programPath();
    beside.resize(beside.rfind('\\') + 1);
    for (const std::string &folder : {beside, std::string(), std::string("C:\\windows\\system32\\")}) {
        if (unixPath((folder + file).c_str(), unixName) && isFile(unixName))
            return true;
    }
    return false;
}

bool isElf(std::span<const std::byte> bytes)
{
    return bytes.size() > 4 && memcmp(bytes.data(), "\177ELF", 4) == 0;
}

// The code of a Windows module cannot run here, so it is loaded for its resources either way; a shared
// object of this system is loaded for its code only.
bool readModule(Module &module, const std::string &unixName, bool asData)
{
    if (!module.file.map(unixName.c_str()))
        return fail(errno == ENODEV || errno == EINVAL ? DWORD{ERROR_BAD_EXE_FORMAT} : errorFromErrno(errno), false);
    std::span<const std::byte> bytes = module.file.bytes();
    if (isResFile(bytes)) {
        module.resources.add(bytes);
        return true;
    }
    if (isElf(bytes) && !asData) {
        module.sharedObject = dlopen(unixName.c_str(), RTLD_NOW | RTLD_LOCAL);
        return module.sharedObject || fail(ERROR_BAD_EXE_FORMAT, false);
    }
    return addPeResources(bytes, module.resources) || fail(ERROR_BAD_EXE_FORMAT, false);
}

// With the mutex held.
Module *loadedFile(const std::string &unixName)
{
    struct stat status;
    if (stat(unixName.c_str(), &status) != 0)
        return nullptr;
    for (Module &module : loadedModules) {
        if (module.file.isFile(status.st_dev, status.st_ino))
            return &module;
    }
    return nullptr;
}

HMODULE loadModule(LPCSTR name, bool asData)
{
    std::lock_guard lock(moduleMutex);
    if (Module *module = layerModule(name))
        return handleOf(*module);
    std::string unixName;
    if (!findModuleFile(name, unixName))
        return fail(asData ? ERROR_FILE_NOT_FOUND : ERROR_MOD_NOT_FOUND, HMODULE{});
    if (Module *module = loadedFile(unixName)) {
        ++module->loads;
        return module->handle;
    }
    std::list<Module> made(1);
    Module &module = made.front();
    module.path = win32Path(unixName);
    module.loads = 1;
    if (!readModule(module, unixName, asData))
        return nullptr;
    if (!handleOf(module)) {
        if (module.sharedObject)
            dlclose(module.sharedObject);
        return nullptr;
    }
    loadedModules.splice(loadedModules.end(), made);
    return module.handle;
}

// With the mutex held: the last one who loaded a file ends it.
void unload(Module &module)
{
    if (module.loads == 0 || --module.loads > 0)
        return;
    handles::remove(module.handle, HandleKind::Module);
    if (module.sharedObject)
        dlclose(module.sharedObject);
    loadedModules.remove_if([&](const Module &loaded) { return &loaded == &module; });
}

HMODULE presentModule(LPCSTR name)
{
    std::lock_guard lock(moduleMutex);
    if (Module *module = layerModule(name))
        return handleOf(*module);
    std::string wanted = plainName(name);
    for (Module &module : loadedModules) {
        std::string path = plainName(module.path.c_str());
        if (path == wanted || path.substr(path.rfind('\\') + 1) == wanted)
            return module.handle;
    }
    return fail(ERROR_MOD_NOT_FOUND, HMODULE{});
}

FARPROC layerFunction(const Module &module, LPCSTR name)
{
    const ModuleFunction *end = module.functions + module.functionCount;
    auto before = [](const ModuleFunction &function, LPCSTR wanted) { return strcmp(function.name, wanted) < 0; };
    const ModuleFunction *found = std::lower_bound(module.functions, end, name, before);
    return found != end && strcmp(found->name, name) == 0 ? found->address : nullptr;
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
    if (!name)
        return fail(ERROR_INVALID_PARAMETER, HMODULE{});
    return guarded(HMODULE{}, [&] { return loadModule(name, false); });
}

HMODULE LoadLibraryExA(LPCSTR name, HANDLE, DWORD flags)
{
    if (!name)
        return fail(ERROR_INVALID_PARAMETER, HMODULE{});
    return guarded(HMODULE{}, [&] { return loadModule(name, flags & LOAD_LIBRARY_AS_DATAFILE); });
}

HMODULE GetModuleHandleA(LPCSTR name)
{
    if (name)
        return guarded(HMODULE{}, [&] { return presentModule(name); });
    std::lock_guard lock(moduleMutex);
    return handleOf(program());
}

BOOL FreeLibrary(HMODULE handle)
{
    std::lock_guard lock(moduleMutex);
    auto module = static_cast<Module *>(handles::find(handle, HandleKind::Module));
    if (module)
        unload(*module);
    return module != nullptr;
}

FARPROC GetProcAddress(HMODULE handle, LPCSTR name)
{
    Module *module = findModule(handle);
    if (!module)
        return nullptr;
    FARPROC found = nullptr;
    if (IS_INTRESOURCE(name) || (module->name && control::hides(module->name, name)))
        found = nullptr;
    else if (module->functions)
        found = layerFunction(*module, name);
    else if (module->sharedObject)
        found = reinterpret_cast<FARPROC>(dlsym(module->sharedObject, name));
    return found ? found : fail(ERROR_PROC_NOT_FOUND, FARPROC{});
}

DWORD GetModuleFileNameA(HMODULE handle, LPSTR buffer, DWORD size)
{
    return guarded(DWORD{0}, [&]() -> DWORD {
        Module *module = findModule(handle);
        if (!module)
            return 0;
        std::string path = pathOf(*module);
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
