#include "resource_source.h"

#include "file_access.h"
#include "fork/container.h"
#include "fork/resource_fork.h"
#include "system_forms.h"

#include "Resources/TypeName.h"
#include "kernel/pe_image.h"

#include <optional>
#include <variant>

namespace tool {
namespace {

// Modules store names as UTF-16; the first 256 characters stand for bytes. Nothing for text beyond these.
std::optional<std::string> bytesOf(const std::u16string &text)
{
    std::string bytes;
    for (char16_t character : text) {
        if (character > 0xff)
            return std::nullopt;
        bytes += static_cast<char>(character);
    }
    return bytes;
}

void addIndexed(const win32::Resource &indexed, bool isFoundFirst, const std::string &path, ResourceFile &file,
                Diagnostics &diagnostics)
{
    Resource resource;
    resource.isFoundFirst = isFoundFirst;
    auto type = bytesOf(indexed.type.text), name = bytesOf(indexed.name.text);
    if (!type || !name) {
        diagnostics.leftOut(path, "a resource whose type or name has characters beyond Latin is left out");
        return;
    }
    resource.type = *type;
    resource.typeNumber = indexed.type.number;
    resource.textName = *name;
    resource.id = static_cast<SInt16>(indexed.name.number);
    resource.language = indexed.language;
    setContents(resource, indexed.data);
    file.resources.push_back(std::move(resource));
}

void addDirectory(const win32::ResourceDirectory &directory, const std::string &path, ResourceFile &file,
                  Diagnostics &diagnostics)
{
    for (const win32::Resource &resource : directory.all()) {
        int found = directory.find(resource.type, resource.name, win32::ResourceDirectory::anyLanguage);
        addIndexed(resource, directory.at(static_cast<size_t>(found)) == &resource, path, file, diagnostics);
    }
}

bool hasNul(uint32_t type)
{
    return !(type & 0xff) || !(type & 0xff00) || !(type & 0xff0000) || !(type & 0xff000000);
}

// The data in the wanted form; false when it cannot have that.
bool setData(Resource &resource, const forks::ForkResource &source, Forms forms, const std::string &title,
             const std::string &path, Diagnostics &diagnostics)
{
    auto bytes = source.data.bytes();
    resource.data.assign(bytes.begin(), bytes.end());
    if (source.attributes & forks::isCompressed) {
        diagnostics.note(path, forks::textOfType(source.type) + ": compressed data stays as it is");
        return true;
    }
    if (forms == Forms::AsPublished)
        return true;
    if (const char *form = foreignForm(source.type))
        diagnostics.note(path, forks::textOfType(source.type) + ": " + form);
    auto result = toSystemForm(source.type, source.data);
    if (auto problem = std::get_if<forks::Problem>(&result)) {
        diagnostics.leftOut(path, title + problem->text + "; it is left out", problem->place);
        return false;
    }
    resource.data = std::get<Bytes>(std::move(result));
    return true;
}

void addForkResource(const forks::ForkResource &source, Forms forms, const std::string &path,
                     std::vector<Resource> &resources, Diagnostics &diagnostics)
{
    std::string title = forks::textOfType(source.type) + ' ' + std::to_string(source.id) + ": ";
    if (hasNul(source.type)) {
        diagnostics.leftOut(path, title + "no module or text file can hold this type; it is left out");
        return;
    }
    Resource resource;
    resource.type = resources::TypeName(source.type).text();
    resource.id = source.id;
    resource.isToolbox = true;
    resource.name = source.name;
    if (size_t end = resource.name.find('\0'); end != std::string::npos) {
        diagnostics.leftOut(path, title + "the name is cut at a NUL in it");
        resource.name.resize(end);
    }
    if (setData(resource, source, forms, title, path, diagnostics))
        resources.push_back(std::move(resource));
}

bool readFork(const std::string &path, const Bytes &bytes, Forms forms, std::vector<Resource> &resources,
              Diagnostics &diagnostics)
{
    auto found = forks::findFork(bytes);
    if (auto problem = std::get_if<forks::Problem>(&found))
        return diagnostics.fail(path, problem->text, problem->place);
    forks::ForkContents contents = forks::readFork(std::get<forks::FoundFork>(found).fork);
    for (const forks::Problem &problem : contents.problems)
        diagnostics.leftOut(path, problem.text, problem.place);
    for (const forks::ForkResource &source : contents.resources)
        addForkResource(source, forms, path, resources, diagnostics);
    return true;
}

} // namespace

bool isTextPath(const std::string &path)
{
    std::string extension = extensionOf(path);
    return extension == ".txt" || extension == ".ini";
}

bool readForkFile(const std::string &path, Forms forms, std::vector<Resource> &resources, Diagnostics &diagnostics)
{
    Bytes bytes;
    return readFile(path, bytes, diagnostics) && readFork(path, bytes, forms, resources, diagnostics);
}

bool readResources(const std::string &path, ResourceFile &file, Diagnostics &diagnostics)
{
    if (isTextPath(path)) {
        file.kind = FileKind::Text;
        return readTextFile(path, file.resources, diagnostics);
    }
    Bytes bytes;
    if (!readFile(path, bytes, diagnostics))
        return false;
    win32::ResourceDirectory directory;
    std::optional<uint64_t> damage;
    if (win32::isResFile(bytes)) {
        file.kind = FileKind::Compiled;
        size_t whole = directory.add(bytes);
        if (whole < bytes.size())
            diagnostics.leftOut(path, "the record here is not whole; it and what follows are left out", whole);
    } else if (win32::addPeResources(bytes, directory, &damage)) {
        file.kind = FileKind::Module;
        if (damage)
            diagnostics.leftOut(path, "the resource tree is damaged here; what hangs on it is left out", *damage);
    } else {
        file.kind = FileKind::Fork;
        if (std::holds_alternative<forks::FoundFork>(forks::findFork(bytes)))
            return readFork(path, bytes, Forms::AsPublished, file.resources, diagnostics);
        return diagnostics.fail(path, "this is no module, compiled resource file or resource fork", 0);
    }
    addDirectory(directory, path, file, diagnostics);
    return true;
}

} // namespace tool
