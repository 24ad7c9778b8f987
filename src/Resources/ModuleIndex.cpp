#include "ModuleIndex.h"

#include "ModuleResources.h"
#include "Payload.h"
#include "TypeName.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace resources {
namespace {

struct Walk {
    std::vector<SInt16> *ids;
    bool isOutOfMemory;
};

void throwIfShort()
{
    if (GetLastError() == ERROR_NOT_ENOUGH_MEMORY)
        throw std::bad_alloc();
}

// A resource with a text for a name has no ID, so the Toolbox does not know it. No exception may pass through the
// walk of Win32.
BOOL CALLBACK noteID(HMODULE, LPCSTR, LPSTR name, LONG_PTR parameter)
{
    auto walk = reinterpret_cast<Walk *>(parameter);
    if (!IS_INTRESOURCE(name))
        return TRUE;
    try {
        walk->ids->push_back(static_cast<SInt16>(reinterpret_cast<ULONG_PTR>(name)));
    } catch (const std::bad_alloc &) {
        walk->isOutOfMemory = true;
    }
    return !walk->isOutOfMemory;
}

std::vector<SInt16> readIDs(HMODULE module, ResType type)
{
    std::vector<SInt16> ids;
    Walk walk{&ids, false};
    SetLastError(NO_ERROR);
    EnumResourceNamesA(module, TypeName(type).text(), noteID, reinterpret_cast<LONG_PTR>(&walk));
    throwIfShort();
    if (walk.isOutOfMemory)
        throw std::bad_alloc();
    return ids;
}

} // namespace

// Types that the module lacks are not kept: a host may ask for any number of them.
const std::vector<SInt16> &ModuleIndex::ids(HMODULE module, ResType type)
{
    static const std::vector<SInt16> none;
    auto known = types_.find(type);
    if (known != types_.end())
        return known->second.ids;
    Type read{readIDs(module, type)};
    return read.ids.empty() ? none : types_.emplace(type, std::move(read)).first->second.ids;
}

void ModuleIndex::readNames(HMODULE module, ResType type, Type &found)
{
    TypeName typeName(type);
    found.texts.clear();
    found.names.clear();
    for (SInt16 id : found.ids) {
        Payload payload;
        SetLastError(NO_ERROR);
        std::span<const char> bytes = findInModule(module, typeName.text(), id);
        throwIfShort();
        if (!readPayload(bytes, payload) || !*payload.name)
            continue;
        found.names.push_back({found.texts.size(), id});
        found.texts.insert(found.texts.end(), payload.name, payload.name + strlen(payload.name) + 1);
    }
    const char *texts = found.texts.data();
    // Names are added in order, so of equal ones the first has the lowest place.
    std::sort(found.names.begin(), found.names.end(), [texts](const Name &left, const Name &right) {
        int order = lstrcmpA(texts + left.text, texts + right.text);
        return order != 0 ? order < 0 : left.text < right.text;
    });
    found.hasNames = true;
}

const SInt16 *ModuleIndex::findName(HMODULE module, ResType type, const char *name)
{
    if (!*name || ids(module, type).empty())
        return nullptr;
    Type &found = types_.find(type)->second;
    if (!found.hasNames)
        readNames(module, type, found);
    const char *texts = found.texts.data();
    auto before = [texts](const Name &left, const char *wanted) { return lstrcmpA(texts + left.text, wanted) < 0; };
    auto place = std::lower_bound(found.names.begin(), found.names.end(), name, before);
    bool isFound = place != found.names.end() && lstrcmpA(texts + place->text, name) == 0;
    return isFound ? &place->id : nullptr;
}

} // namespace resources
