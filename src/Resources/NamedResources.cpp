// Getting resources by name and by index, and counting them.
#include "Lookup.h"
#include "TextResources.h"

#include "Files/Files_internal.h"

#include <mtbx/MacErrors.h>

#include <new>

namespace resources {
namespace {

// Runs a question to the index of a module, which may need memory.
template <class Question, class Answer> Answer askIndex(Answer none, Question question)
{
    try {
        return question();
    } catch (const std::bad_alloc &) {
        resError = memFullErr;
        return none;
    }
}

// The C string of a name that is to be looked for; false, with ResError set, for one that no file can hold.
bool copyWantedName(ConstStr255Param name, char (&text)[textNameSize])
{
    char whole[256];
    files::copyName(name, whole);
    bool fits = !name || name[0] < sizeof text;
    resError = fits ? OSErr{noErr} : OSErr{paramErr};
    lstrcpynA(text, whole, sizeof text);
    return fits;
}

// The name leads to an ID only, and the resource is then the one that GetResource finds.
Handle findNamedInModule(ResourceFile &file, ResType type, const char *name)
{
    resError = resNotFound;
    const SInt16 *id =
        askIndex(static_cast<const SInt16 *>(nullptr), [&] { return file.index.findName(file.module, type, name); });
    return id ? GetResource(type, *id) : nullptr;
}

Handle findNamed(ResourceFile &file, ResType type, const char *name)
{
    if (!file.isOpen())
        return nullptr;
    if (file.isModule)
        return findNamedInModule(file, type, name);
    SInt16 id;
    return findNameInText(file, type, name, id) ? lookUp(file, type, id) : nullptr;
}

} // namespace
} // namespace resources

using namespace resources;

Handle GetNamedResource(ResType type, ConstStr255Param name)
{
    char text[textNameSize];
    Handle found = nullptr;
    if (!copyWantedName(name, text))
        return nullptr;
    for (size_t place = std::size(places); !found && place-- > 0;)
        found = findNamed(places[place], type, text);
    return found;
}

Handle Get1NamedResource(ResType type, ConstStr255Param name)
{
    char text[textNameSize];
    ResourceFile *current = currentPlace();
    return copyWantedName(name, text) && current ? findNamed(*current, type, text) : nullptr;
}

Handle Get1IndResource(ResType type, SInt16 index)
{
    resError = noErr;
    ResourceFile *current = currentPlace();
    if (!current || !current->isModule)
        return nullptr;
    resError = resNotFound;
    SInt32 id = askIndex(SInt32{INT32_MIN}, [&]() -> SInt32 {
        const std::vector<SInt16> &ids = current->index.ids(current->module, type);
        auto place = static_cast<size_t>(static_cast<UInt16>(index)) - 1;
        return place < ids.size() ? ids[place] : INT32_MIN;
    });
    return id != INT32_MIN ? GetResource(type, static_cast<SInt16>(id)) : nullptr;
}

UInt16 Count1Resources(ResType type)
{
    resError = noErr;
    ResourceFile *current = currentPlace();
    if (!current || !current->isOpen())
        return 0;
    if (!current->isModule)
        return countInText(*current, type);
    return askIndex(UInt16{0}, [&] { return static_cast<UInt16>(current->index.ids(current->module, type).size()); });
}
