#include "commands.h"

#include "conversion.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

namespace classic {
namespace {

namespace files = std::filesystem;

const char usage[] = "usage: mtbx-classic-source [OPTION ...] SOURCE RESULT\n"
                     "       mtbx-classic-source --check SOURCE ...\n"
                     "Makes of a C or C++ source written for the Macintosh one that any compiler takes: \"\\pText\"\n"
                     "gets its length byte, lines end with line feeds.\n"
                     "  --macroman   the source is in Mac OS Roman; text in literals goes to the code page 1252\n"
                     "  --utf8       the same for a source in UTF-8\n"
                     "  --long=32    long becomes int\n"
                     "  --name=NAME  of the source in compilers' messages (otherwise SOURCE)\n"
                     "  --check      only tells of the literals that need it; exit status 1 if there are any\n";

struct Request {
    Options options;
    bool checksOnly = false;
    std::vector<std::string> paths;
};

std::optional<Request> parse(const std::vector<std::string> &arguments)
{
    Request request;
    for (const std::string &argument : arguments) {
        if (argument == "--macroman")
            request.options.encoding = Encoding::MacRoman;
        else if (argument == "--utf8")
            request.options.encoding = Encoding::Utf8;
        else if (argument == "--long=32")
            request.options.narrowsLong = true;
        else if (argument.starts_with("--name="))
            request.options.name = argument.substr(7);
        else if (argument == "--check")
            request.checksOnly = true;
        else if (argument.starts_with("--"))
            return {};
        else
            request.paths.push_back(argument);
    }
    if (request.checksOnly ? request.paths.empty() : request.paths.size() != 2)
        return {};
    return request;
}

std::optional<std::string> readFile(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad())
        return {};
    return text;
}

// The result is there as a whole or not at all.
bool writeFile(const std::string &path, const std::string &text)
{
    std::error_code error;
    if (files::path folder = files::path(path).parent_path(); !folder.empty())
        files::create_directories(folder, error);
    std::string unfinished = path + ".part";
    std::ofstream file(unfinished, std::ios::binary);
    file << text;
    file.close();
    if (file)
        files::rename(unfinished, path, error);
    if (!file || error) {
        files::remove(unfinished, error);
        return false;
    }
    return true;
}

void print(std::ostream &stream, const std::string &path, const std::vector<Problem> &problems)
{
    for (const Problem &problem : problems)
        stream << path << ':' << problem.line << ": " << problem.text << '\n';
}

int check(const Request &request, std::ostream &output, std::ostream &errors)
{
    int code = exitDone;
    for (const std::string &path : request.paths) {
        std::optional<std::string> text = readFile(path);
        if (!text) {
            errors << "mtbx-classic-source: " << path << " cannot be read\n";
            code = exitFailed;
            continue;
        }
        std::vector<Problem> problems = findPascalLiterals(*text);
        print(output, path, problems);
        if (!problems.empty())
            code = exitFailed;
    }
    return code;
}

int convertFile(const Request &request, std::ostream &errors)
{
    const std::string &source = request.paths[0], &result = request.paths[1];
    Options options = request.options;
    if (options.name.empty())
        options.name = source;
    std::optional<std::string> text = readFile(source);
    if (!text) {
        errors << "mtbx-classic-source: " << source << " cannot be read\n";
        return exitFailed;
    }
    Conversion conversion = convert(*text, options);
    if (!conversion.problems.empty()) {
        print(errors, options.name, conversion.problems);
        return exitFailed;
    }
    if (!writeFile(result, conversion.text)) {
        errors << "mtbx-classic-source: " << result << " cannot be written\n";
        return exitFailed;
    }
    return exitDone;
}

} // namespace

int run(const std::vector<std::string> &arguments, std::ostream &output, std::ostream &errors)
{
    std::optional<Request> request = parse(arguments);
    if (!request) {
        errors << usage;
        return exitUsage;
    }
    return request->checksOnly ? check(*request, output, errors) : convertFile(*request, errors);
}

} // namespace classic
