#include "commands.h"

#include "file_access.h"
#include "readable.h"
#include "resource_output.h"
#include "resource_source.h"

#include <algorithm>
#include <cstdlib>

namespace tool {
namespace {

constexpr const char *usage = R"(usage:
  mtbx-res list FILE
  mtbx-res dump FILE TYPE ID
  mtbx-res convert [--force] FILE OUTPUT
  mtbx-res import [--force] [--raw] FORKFILE OUTPUT
  mtbx-res --help | --version

list      tells type, ID, size and name of every resource in FILE: a Windows module,
          a compiled .res file, a text file (.txt, .ini) or a resource fork.
dump      shows one resource, readable where its type is known, and in hexadecimal.
convert   writes the resources of a module, .res or text file into OUTPUT.
import    writes the resources of a classic resource fork into OUTPUT, in the forms
          of this system. FORKFILE is a raw fork, AppleSingle, AppleDouble or MacBinary.

OUTPUT is a text file (.txt, .ini), a compiled .res file or a script (.rc).
  --force   replace OUTPUT when it is there
  --raw     leave the data of all types as it is in the fork

Exit code: 0 done; 1 failed, nothing written; 2 wrong usage; 3 done, but something
was left out, which was told.
)";

struct Invocation {
    std::vector<std::string> operands;
    bool force = false;
    bool raw = false;
};

int wrongUsage(std::ostream &errors, const std::string &text)
{
    errors << "mtbx-res: " << text << "; \"mtbx-res --help\" tells how it is used\n";
    return exitUsage;
}

// The path of an operand; "" after telling that it names nothing.
std::string pathOf(const std::string &operand, Diagnostics &diagnostics)
{
    std::string path = pathOfArgument(operand);
    if (path.empty())
        diagnostics.fail(operand, "this is no name of a file");
    diagnostics.setShownName(path, operand);
    return path;
}

std::string padded(const std::string &text, size_t width)
{
    return text + std::string(width > text.size() ? width - text.size() : 0, ' ');
}

std::string aligned(const std::string &text, size_t width)
{
    return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

int list(const Invocation &invocation, std::ostream &output, Diagnostics &diagnostics)
{
    ResourceFile file;
    std::string path = pathOf(invocation.operands[0], diagnostics);
    if (path.empty() || !readResources(path, file, diagnostics))
        return diagnostics.exitCode();
    size_t typeWidth = 4, nameWidth = 6;
    for (const Resource &resource : file.resources) {
        typeWidth = std::max(typeWidth, shownType(resource).size());
        nameWidth = std::max(nameWidth, shownName(resource).size());
    }
    for (const Resource &resource : file.resources) {
        output << padded(shownType(resource), typeWidth) << "  " << aligned(shownName(resource), nameWidth) << "  "
               << aligned(std::to_string(resource.data.size()), 8);
        if (!resource.name.empty())
            output << "  \"" << printable(resource.name) << '"';
        if (resource.language != 0)
            output << "  (language " << resource.language << ')';
        output << '\n';
    }
    return diagnostics.exitCode();
}

// Whether a resource is the one that the user names, by number or text.
bool isNamed(const Resource &resource, const std::string &given)
{
    Resource wanted = resource;
    char *end = nullptr;
    long number = strtol(given.c_str(), &end, 10);
    bool isNumber = end != given.c_str() && *end == 0 && number >= -0x8000 && number <= 0xffff;
    wanted.id = isNumber ? static_cast<SInt16>(number) : SInt16{0};
    wanted.textName = isNumber ? "" : given;
    return lookupKey(wanted) == lookupKey(resource);
}

int dump(const Invocation &invocation, std::ostream &output, Diagnostics &diagnostics)
{
    const std::string &type = invocation.operands[1], &name = invocation.operands[2];
    ResourceFile file;
    std::string path = pathOf(invocation.operands[0], diagnostics);
    if (path.empty() || !readResources(path, file, diagnostics))
        return diagnostics.exitCode();
    bool found = false;
    for (const Resource &resource : file.resources) {
        Resource wanted = resourceOfType(type);
        wanted.id = resource.id;
        wanted.textName = resource.textName;
        if (lookupKey(wanted) != lookupKey(resource) || !isNamed(resource, name))
            continue;
        found = true;
        output << shownType(resource) << ' ' << shownName(resource) << ", " << resource.data.size() << " bytes";
        if (!resource.name.empty())
            output << ", \"" << printable(resource.name) << '"';
        if (resource.language != 0)
            output << ", language " << resource.language;
        // The fields of a fork's resources are in another order than those that can be read here.
        std::string text = file.kind == FileKind::Fork ? "" : readable(resource);
        output << '\n' << text << hexLines(resource.data);
    }
    if (!found)
        diagnostics.fail(path, "there is no resource " + printable(type) + ' ' + printable(name));
    return diagnostics.exitCode();
}

bool mayWrite(const std::string &path, bool force, Diagnostics &diagnostics)
{
    if (!canWrite(path))
        return diagnostics.fail(path, "the output must end in .txt, .ini, .res or .rc");
    for (const std::string &file : writtenFiles(path)) {
        if (!force && fileExists(file))
            return diagnostics.fail(file, "the file is there already; --force replaces it");
    }
    return true;
}

int convert(const Invocation &invocation, std::ostream &, Diagnostics &diagnostics)
{
    std::string path = pathOf(invocation.operands[0], diagnostics),
                target = pathOf(invocation.operands[1], diagnostics);
    ResourceFile file;
    if (path.empty() || target.empty() || !mayWrite(target, invocation.force, diagnostics))
        return diagnostics.exitCode();
    if (extensionOf(path) == ".rc")
        diagnostics.fail(path, "a script is compiled first: windres -O res FILE.rc FILE.res");
    else if (readResources(path, file, diagnostics) && file.kind == FileKind::Fork)
        diagnostics.fail(path, "this is a resource fork; \"mtbx-res import\" reads it");
    else if (diagnostics.exitCode() != exitFailed)
        writeResources(target, file.resources, diagnostics);
    return diagnostics.exitCode();
}

int import(const Invocation &invocation, std::ostream &, Diagnostics &diagnostics)
{
    std::string path = pathOf(invocation.operands[0], diagnostics),
                target = pathOf(invocation.operands[1], diagnostics);
    std::vector<Resource> resources;
    if (path.empty() || target.empty() || !mayWrite(target, invocation.force, diagnostics))
        return diagnostics.exitCode();
    Forms forms = invocation.raw ? Forms::AsPublished : Forms::OfThisSystem;
    if (readForkFile(path, forms, resources, diagnostics))
        writeResources(target, resources, diagnostics);
    return diagnostics.exitCode();
}

struct Command {
    const char *name;
    size_t operandCount;
    const char *operands;
    bool takesForce;
    bool takesRaw;
    int (*run)(const Invocation &, std::ostream &, Diagnostics &);
};

constexpr Command commands[] = {
    {"list", 1, "one operand", false, false, list},
    {"dump", 3, "three operands", false, false, dump},
    {"convert", 2, "two operands", true, false, convert},
    {"import", 2, "two operands", true, true, import},
};

} // namespace

int run(const std::vector<std::string> &arguments, std::ostream &output, std::ostream &errors)
{
    if (arguments.empty())
        return wrongUsage(errors, "no command is given");
    if (arguments[0] == "--help" || arguments[0] == "--version") {
        output << (arguments[0] == "--help" ? usage : "mtbx-res " MTBX_VERSION "\n");
        return exitDone;
    }
    auto command = std::find_if(std::begin(commands), std::end(commands),
                                [&](const Command &candidate) { return arguments[0] == candidate.name; });
    if (command == std::end(commands))
        return wrongUsage(errors, "there is no command \"" + arguments[0] + '"');
    Invocation invocation;
    bool onlyOperands = false;
    for (size_t place = 1; place < arguments.size(); ++place) {
        const std::string &argument = arguments[place];
        if (!onlyOperands && argument == "--")
            onlyOperands = true;
        else if (!onlyOperands && argument == "--force" && command->takesForce)
            invocation.force = true;
        else if (!onlyOperands && argument == "--raw" && command->takesRaw)
            invocation.raw = true;
        else if (!onlyOperands && argument.starts_with("--"))
            return wrongUsage(errors, arguments[0] + " does not know " + argument);
        else
            invocation.operands.push_back(argument);
    }
    if (invocation.operands.size() != command->operandCount)
        return wrongUsage(errors, arguments[0] + " takes " + command->operands);
    Diagnostics diagnostics(errors);
    return command->run(invocation, output, diagnostics);
}

} // namespace tool
