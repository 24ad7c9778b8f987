// Resource forks and the files in which they travel: reading stays inside the file, ends soon, and what becomes of
// the data in this system's form is in proportion to it.
#include "fork/container.h"
#include "fork/resource_fork.h"
#include "readable.h"
#include "system_forms.h"

#include "Resources/TypeName.h"

#include <cstdlib>
#include <variant>

namespace {

void check(bool holds)
{
    if (!holds)
        abort();
}

bool isInside(forks::Bytes part, forks::Bytes file)
{
    return part.empty() || (part.data() >= file.data() && part.data() + part.size() <= file.data() + file.size());
}

void convert(const forks::ForkResource &source, forks::Bytes file)
{
    auto result = tool::toSystemForm(source.type, source.data);
    if (auto problem = std::get_if<forks::Problem>(&result)) {
        check(problem->place <= file.size());
        return;
    }
    tool::Resource resource;
    resource.type = resources::TypeName(source.type).text();
    resource.isToolbox = true;
    resource.data = std::get<tool::Bytes>(result);
    check(resource.data.size() <= source.data.size() + 8);
    tool::readable(resource);
    tool::Resource read = resource;
    tool::setContents(read, tool::contentsOf(resource));
    check(read.isToolbox || resource.type.empty());
    check(!read.isToolbox || read.data == resource.data || resource.type == "MBAR");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<std::byte> file(reinterpret_cast<const std::byte *>(data),
                                reinterpret_cast<const std::byte *>(data) + size);
    auto found = forks::findFork(file);
    if (auto problem = std::get_if<forks::Problem>(&found)) {
        check(problem->place <= size);
        return 0;
    }
    const forks::ByteView &fork = std::get<forks::FoundFork>(found).fork;
    check(isInside(fork.bytes(), file));
    forks::ForkContents contents = forks::readFork(fork);
    check(contents.resources.size() <= size / 12);
    size_t total = 0;
    for (const forks::ForkResource &resource : contents.resources) {
        check(isInside(resource.data.bytes(), file));
        total += resource.data.bytes().size();
        convert(resource, file);
    }
    check(total <= size);
    for (const forks::Problem &problem : contents.problems)
        check(problem.place <= size);
    return 0;
}
