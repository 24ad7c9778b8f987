// Finding and reading a module's resources. A resource handle is its place in the module's index
// plus 1; resource data lies in the module's memory and is never copied or freed.
#include "kernel_internal.h"
#include "modules.h"

namespace {

using namespace win32;

HRSRC findResource(HMODULE handle, LPCSTR type, LPCSTR name, int language)
{
    return guarded(HRSRC{}, [&] {
        Module *module = findModule(handle);
        if (!module)
            return HRSRC{};
        int place =
            module->resources.find(ResourceName::fromArgument(type), ResourceName::fromArgument(name), language);
        return reinterpret_cast<HRSRC>(static_cast<LONG_PTR>(place) + 1);
    });
}

const Resource *resourceOf(HMODULE handle, HRSRC resource)
{
    Module *module = findModule(handle);
    if (!module)
        return nullptr;
    const Resource *found = module->resources.at(reinterpret_cast<ULONG_PTR>(resource) - 1);
    return found ? found : fail(ERROR_INVALID_HANDLE, static_cast<const Resource *>(nullptr));
}

} // namespace

HRSRC FindResourceA(HMODULE module, LPCSTR name, LPCSTR type)
{
    return findResource(module, type, name, ResourceDirectory::anyLanguage);
}

HRSRC FindResourceExA(HMODULE module, LPCSTR type, LPCSTR name, WORD language)
{
    return findResource(module, type, name, language);
}

HGLOBAL LoadResource(HMODULE module, HRSRC resource)
{
    const Resource *found = resourceOf(module, resource);
    return found ? const_cast<std::byte *>(found->data.data()) : nullptr;
}

LPVOID LockResource(HGLOBAL data)
{
    return data;
}

DWORD SizeofResource(HMODULE module, HRSRC resource)
{
    const Resource *found = resourceOf(module, resource);
    return found ? static_cast<DWORD>(found->data.size()) : 0;
}
