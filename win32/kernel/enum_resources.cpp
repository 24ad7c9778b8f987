// Walks through the resources of a module: texts come before numbers, each once, in ascending order.
#include "code_pages.h"
#include "kernel_internal.h"
#include "modules.h"

#include <string>
#include <vector>

namespace {

using namespace win32;

// A type or name as call-backs are given it. The text lives as long as the object.
class Argument {
public:
    explicit Argument(const ResourceName &name) : text_(ansiFromUtf16(name.text)), number_(name.number) {}

    LPSTR pointer() { return text_.empty() ? MAKEINTRESOURCEA(number_) : text_.data(); }

private:
    std::string text_;
    WORD number_;
};

// The distinct types or names of a run of resources, copied: the call-back may free the module.
template <class Member> std::vector<ResourceName> distinct(std::span<const Resource> resources, Member member)
{
    std::vector<ResourceName> names;
    for (const Resource &resource : resources) {
        if (names.empty() || !(names.back() == resource.*member))
            names.push_back(resource.*member);
    }
    return names;
}

BOOL stoppedByCaller()
{
    return fail(ERROR_RESOURCE_ENUM_USER_STOP, FALSE);
}

} // namespace

BOOL EnumResourceTypesA(HMODULE handle, ENUMRESTYPEPROCA procedure, LONG_PTR parameter)
{
    return guarded(FALSE, [&]() -> BOOL {
        Module *module = findModule(handle);
        if (!module)
            return FALSE;
        if (module->resources.all().empty())
            return fail(ERROR_RESOURCE_DATA_NOT_FOUND, FALSE);
        for (const ResourceName &type : distinct(module->resources.all(), &Resource::type)) {
            if (!procedure(handle, Argument(type).pointer(), parameter))
                return stoppedByCaller();
        }
        return TRUE;
    });
}

BOOL EnumResourceNamesA(HMODULE handle, LPCSTR type, ENUMRESNAMEPROCA procedure, LONG_PTR parameter)
{
    return guarded(FALSE, [&]() -> BOOL {
        Module *module = findModule(handle);
        if (!module)
            return FALSE;
        std::span<const Resource> resources = module->resources.ofType(ResourceName::fromArgument(type));
        if (resources.empty())
            return fail(ERROR_RESOURCE_TYPE_NOT_FOUND, FALSE);
        for (const ResourceName &name : distinct(resources, &Resource::name)) {
            if (!procedure(handle, type, Argument(name).pointer(), parameter))
                return stoppedByCaller();
        }
        return TRUE;
    });
}

BOOL EnumResourceLanguagesA(HMODULE handle, LPCSTR type, LPCSTR name, ENUMRESLANGPROCA procedure, LONG_PTR parameter)
{
    return guarded(FALSE, [&]() -> BOOL {
        Module *module = findModule(handle);
        if (!module)
            return FALSE;
        ResourceName wantedType = ResourceName::fromArgument(type);
        std::span<const Resource> resources = module->resources.ofName(wantedType, ResourceName::fromArgument(name));
        if (resources.empty()) {
            bool hasType = !module->resources.ofType(wantedType).empty();
            return fail(hasType ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND, FALSE);
        }
        std::vector<WORD> languages;
        for (const Resource &resource : resources)
            languages.push_back(resource.language);
        for (WORD language : languages) {
            if (!procedure(handle, type, name, language, parameter))
                return stoppedByCaller();
        }
        return TRUE;
    });
}
