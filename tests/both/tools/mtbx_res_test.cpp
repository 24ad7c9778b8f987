// mtbx-res: what its commands make of files, and how they tell of files that are damaged.
#include "ForkBuilder.h"
#include "RunProgram.h"
#include "TemporaryFolder.h"

#include "commands.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace {

using namespace std::string_literals;

struct Outcome {
    int code;
    std::string output, errors;
};

class ResourceTool : public testing::Test {
protected:
    ResourceTool() : folder_("mtbx-res") {}

    static Outcome run(const std::vector<std::string> &arguments)
    {
        std::ostringstream output, errors;
        int code = tool::run(arguments, output, errors);
        return {code, output.str(), errors.str()};
    }

    std::string path(const std::string &name) const { return folder_.path(name); }
    Outcome list(const std::string &name) const { return run({"list", path(name)}); }
    Outcome convert(const std::string &from, const std::string &to) const
    {
        return run({"convert", path(from), path(to)});
    }

    Outcome import(const std::vector<ForkItem> &items, const std::string &to) const
    {
        folder_.write("fork.rsrc", ForkBuilder::fork(items));
        return run({"import", "--force", path("fork.rsrc"), path(to)});
    }

    // What the system reads of a resource in a text file.
    std::string textData(const std::string &file, const char *section, int id) const
    {
        std::string key = std::to_string(id),
                    text(GetPrivateProfileIntA(section, (key + "_Size").c_str(), 0, path(file).c_str()), 0);
        bool isRead = GetPrivateProfileStructA(section, key.c_str(), text.data(), static_cast<UINT>(text.size()),
                                               path(file).c_str());
        return isRead ? text : "(none)";
    }
    std::string textValue(const std::string &file, const char *section, const std::string &key) const
    {
        char value[256];
        GetPrivateProfileStringA(section, key.c_str(), "(none)", value, sizeof value, path(file).c_str());
        return value;
    }

    TemporaryFolder folder_;
};

// Published data and the same in the form of this system.
struct FormCase {
    const char *type;
    std::string published, here;
};

const FormCase formCases[] = {
    {"STR ", "\5Hello"s, "\5Hello"s},
    {"STR#", "\0\2\3One\0"s, "\2\0One\0\0"s},
    {"WIND", "\0\1\0\2\0\3\0\4\0\x10\1\0\1\0\x11\x22\x33\x44\5Title\0"s,
     "\1\0\2\0\3\0\4\0\x10\0\1\0\1\0\x44\x33\x22\x11Title\0"s},
    {"DLOG", "\0\1\0\2\0\3\0\4\0\1\1\0\0\0\x11\x22\x33\x44\0\x80\2Hi"s,
     "\1\0\2\0\3\0\4\0\1\0\1\0\0\0\x44\x33\x22\x11\x80\0\2Hi"s},
    {"CNTL", "\0\1\0\2\0\3\0\4\0\5\1\0\0\7\0\6\0\0\x11\x22\x33\x44\2OK"s,
     "\1\0\2\0\3\0\4\0\5\0\1\0\7\0\6\0\0\0\x22\x11\x44\x33\2\0OK\0"s},
    {"DITL", "\0\1....\0\1\0\2\0\3\0\4\x04\3Yes\0....\0\1\0\2\0\3\0\4\xa0\2\0\x81"s,
     "\1\0....\1\0\2\0\3\0\4\0\x04\3Yes\0....\1\0\2\0\3\0\4\0\xa0\2\x81\0"s},
    {"MBAR", "\0\2\0\x80\0\x81"s, "\2\0\x80\0\x81\0\0\0"s},
    {"CURS", "\x80\1"s + std::string(62, '\0') + "\0\3\0\4"s, "\1\x80"s + std::string(62, '\0') + "\3\0\4\0"s},
    {"clut", "\0\0\4\xd2\0\0\0\0\0\1\x11\x22\x33\x44\x55\x66"s, "\xd2\4\0\0\0\0\0\0\1\0\x22\x11\x44\x33\x66\x55"s},
    {"TEXT", "\0\1plain"s, "\0\1plain"s},
};

TEST_F(ResourceTool, ImportMakesTheFormsOfThisSystem)
{
    std::vector<ForkItem> items;
    for (const FormCase &form : formCases)
        items.push_back({form.type, 128, form.published});
    Outcome outcome = import(items, "out.txt");
    EXPECT_EQ(outcome.code, 0) << outcome.errors;
    for (const FormCase &form : formCases) {
        std::string section = form.type;
        section.erase(section.find_last_not_of(' ') + 1);
        EXPECT_EQ(textData("out.txt", section.c_str(), 128), form.here) << form.type;
    }
    run({"import", "--raw", path("fork.rsrc"), path("raw.txt")});
    EXPECT_EQ(textData("raw.txt", "STR#", 128), formCases[1].published);
}

TEST_F(ResourceTool, ForksAreReadFromEveryKindOfFile)
{
    std::string fork =
        ForkBuilder::fork({{"TEXT", -5, "text", "a name"}, {"8ABC", 128, "digit"}, {"AB  ", 1, "blank"}});
    const std::pair<std::string, std::string> files[] = {
        {"raw", fork},
        {"single", ForkBuilder::appleSingle(fork)},
        {"double", ForkBuilder::appleDouble(fork)},
        {"binary", ForkBuilder::macBinary(fork, "data fork")},
    };
    for (auto &[name, content] : files) {
        folder_.write(name, content);
        Outcome outcome = run({"import", "--force", path(name), path("out.ini")});
        EXPECT_EQ(outcome.code, 0) << name << outcome.errors;
        EXPECT_EQ(textData("out.ini", "TEXT", -5), "text") << name;
        EXPECT_EQ(textData("out.ini", "_8ABC", 128), "digit") << name;
        EXPECT_EQ(textData("out.ini", "AB", 1), "blank") << name;
        EXPECT_EQ(textValue("out.ini", "TEXT", "-5_Name"), "a name") << name;
        EXPECT_EQ(textValue("out.ini", "TEXT", "Name_a name"), "-5") << name;
        EXPECT_EQ(list(name).output, list("out.ini").output) << name;
    }
    folder_.write("empty", "");
    EXPECT_EQ(run({"import", path("empty"), path("empty.txt")}).code, 0);
}

TEST_F(ResourceTool, SomeTypesGoToASecondTextFile)
{
    EXPECT_EQ(import({{"OMpr", 1, "second"}, {"ABCD", 1, "first"}}, "out.txt").code, 0);
    EXPECT_EQ(textData("out.txt", "OMpr", 1), "(none)");
    EXPECT_EQ(textData("out_.txt", "OMpr", 1), "second");
    EXPECT_EQ(list("out.txt").output, "ABCD       1         5\nOMpr       1         6\n");
    EXPECT_EQ(run({"import", path("fork.rsrc"), path("out.txt")}).code, 1);
    EXPECT_EQ(import({{"ABCD", 2, "other"}}, "out.txt").code, 0);
    EXPECT_EQ(list("out.txt").output, "ABCD       2         5\n") << "nothing is left of before";
    EXPECT_EQ(import({{"OMpr", 1, "same"}}, "out.ini").code, 0);
    EXPECT_EQ(textData("out.ini", "OMpr", 1), "same");
}

TEST_F(ResourceTool, ConvertingThereAndBackChangesNothing)
{
    std::vector<ForkItem> items = {{"ABCD", 128, "data", "a name"}, {"ABCD", -1, "\0\xff"s, "\"quoted\""},
                                   {"8ABC", 5, "x", " blanks "},    {"AB  ", 32767, "12345", "=equal"},
                                   {"OMpr", -32768, "second"},      {"MBAR", 128, "\0\2\0\x80\0\x81"s, "bar"}};
    EXPECT_EQ(import(items, "first.txt").code, 3) << "\"=\" cannot stand in a name";
    for (const char *kind : {"middle.res", "middle.txt", "middle.ini"}) {
        Outcome outcome = convert("first.txt", kind);
        EXPECT_EQ(outcome.code, 0) << outcome.errors;
        outcome = run({"convert", "--force", path(kind), path("last.txt")});
        EXPECT_EQ(outcome.code, 0) << outcome.errors;
        EXPECT_EQ(list("last.txt").output.size(), list("first.txt").output.size()) << kind;
        for (const char *section : {"ABCD", "_8ABC", "AB", "MBAR"}) {
            for (int id : {128, -1, 5, 32767})
                EXPECT_EQ(textData("last.txt", section, id), textData("first.txt", section, id))
                    << kind << section << id;
        }
        EXPECT_EQ(textData("last_.txt", "OMpr", -32768), kind == "middle.res"s ? "(none)" : "second");
        EXPECT_EQ(textValue("last.txt", "ABCD", "-1_Name"), "\"quoted\"");
        EXPECT_EQ(textValue("last.txt", "_8ABC", "5_Name"), " blanks ");
    }
    EXPECT_EQ(textData("last.txt", "MBAR", 128), "\2\0\x80\0\x81\0\0\0"s) << "the count is made on loading";
}

TEST_F(ResourceTool, AModuleHoldsFlagsNameAndData)
{
    import({{"ABCD", 7, "data", "Name"}, {"ABCD", 8, "more"}, { "MBAR", 1, "\0\1\0\x80"s }}, "out.res");
    std::string content = folder_.read("out.res");
    for (const std::string &payload : {"\2\0Name\0data"s, "\0\0more"s, "\0\0\x80\0\0\0"s})
        EXPECT_NE(content.find(payload), std::string::npos) << payload;
    EXPECT_NE(content.find("A\0B\0C\0D\0\0\0\xff\xff\7\0"s), std::string::npos);
    EXPECT_EQ(content.size() % 4, 0u);
}

TEST_F(ResourceTool, ListsAndDumpsResources)
{
    import({{"STR#", 128, "\0\2\3One\3Two"s, "List"},
            { "CURS",
              1,
              "\x80\0"s + std::string(30, '\0') + "\xc0\0"s + std::string(34, '\0') }},
           "out.txt");
    EXPECT_EQ(list("out.txt").output, "STR#     128        10  \"List\"\n"
                                      "CURS       1        68\n");
    Outcome strings = run({"dump", path("out.txt"), "STR#", "128"});
    EXPECT_EQ(strings.code, 0);
    EXPECT_EQ(strings.output, "STR# 128, 10 bytes, \"List\"\n1: \"One\"\n2: \"Two\"\n"
                              "00000000  02 00 4f 6e 65 00 54 77 6f 00                    ..One.Two.\n");
    EXPECT_NE(run({"dump", path("out.txt"), "curs", "1"}).output.find("\n#.              \n"), std::string::npos);
    Outcome none = run({"dump", path("out.txt"), "STR#", "129"});
    EXPECT_EQ(none.code, 1);
    EXPECT_NE(none.errors.find("out.txt: there is no resource STR# 129"), std::string::npos) << none.errors;
}

TEST_F(ResourceTool, ReadsModules)
{
    std::string module = folderOfProgram() + "resource_module.dll";
    Outcome listed = run({"list", module});
    EXPECT_EQ(listed.code, 0);
    for (const char *line : {"ABCD      128         5\n", "ABCD    NAMED         5\n", "#42         7        13\n"})
        EXPECT_NE(listed.output.find(line), std::string::npos) << line << listed.output;
    EXPECT_NE(run({"dump", module, "#42", "7"}).output.find("numbered type"), std::string::npos);
    Outcome converted = run({"convert", module, path("out.txt")});
    EXPECT_EQ(converted.code, 3);
    EXPECT_EQ(textData("out.txt", "ABCD", 129), "second resource");
    EXPECT_NE(converted.errors.find("ABCD NAMED"), std::string::npos);
    EXPECT_EQ(textData("out.txt", "LSTR", 200), "glish") << "English goes before German";
}

TEST_F(ResourceTool, WhatIsDamagedIsToldWithItsPlaceAndTheRestIsKept)
{
    Outcome outcome = import({{"STR#", 128, "\0\2\3One\7Two"s}, {"ABCD", 1, "whole"}}, "out.txt");
    EXPECT_EQ(outcome.code, 3);
    EXPECT_NE(outcome.errors.find("fork.rsrc: at 0x10b: STR# 128: the data ends within a text"), std::string::npos)
        << outcome.errors;
    EXPECT_EQ(list("out.txt").output, "ABCD       1         5\n");

    folder_.write("bad.txt", "[ABCD]\r\n1_Size=2\r\n1=000000\r\n2_Size=2\r\n2=000001\r\n3_Size=9\r\n3=0000\r\n");
    outcome = list("bad.txt");
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(outcome.output, "ABCD       1         2\n");
    EXPECT_NE(outcome.errors.find("section [ABCD], key 2"), std::string::npos) << outcome.errors;

    import({{"ABCD", 1, "first"}, { "ABCD", 2, "second" }}, "out.res");
    std::string compiled = folder_.read("out.res");
    folder_.write("cut.res", compiled.substr(0, compiled.size() - 4));
    outcome = list("cut.res");
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(outcome.output, "ABCD       1         5\n");
    EXPECT_NE(outcome.errors.find("cut.res: at 0x50: "), std::string::npos) << outcome.errors;
}

TEST_F(ResourceTool, DamagedForksFailAtTheirPlace)
{
    std::string fork = ForkBuilder::fork({{"ABCD", 1, "data", "name"}});
    size_t map = 256 + 8;
    struct {
        size_t place;
        std::string bytes;
        int code;
        const char *told;
    } const cases[] = {
        {0, "\x7f", 1, "at 0x0: this is no resource fork"},
        {map + 24, "\x7f", 3, "at 0x120: the list of types"},
        {map + 28, "\0\3"s, 3, "ends within an entry"},
        {map + 28 + 6, "\0\2"s, 3, "at 0x126: ABCD: the list reaches behind the end of the map"},
        {map + 28 + 10 + 2, "\x7f", 3, "ABCD 1: the name is said to stand outside the map"},
        {map + 28 + 10 + 5, "\x7f", 3, "ABCD 1: the data is said to stand outside"},
        {256, "\0\0\0\5"s, 3, "at 0x100: ABCD 1: the data reaches behind"},
    };
    for (auto &[place, bytes, code, told] : cases) {
        std::string damaged = fork;
        damaged.replace(place, bytes.size(), bytes);
        folder_.write("damaged", damaged);
        Outcome outcome = run({"import", "--force", path("damaged"), path("out.txt")});
        EXPECT_EQ(outcome.code, code) << told;
        EXPECT_NE(outcome.errors.find(told), std::string::npos) << told << '\n' << outcome.errors;
    }
    folder_.write("cut", ForkBuilder::appleDouble(fork).substr(0, 100));
    EXPECT_NE(run({"import", path("cut"), path("x.txt")}).errors.find("at 0x26: "), std::string::npos);
}

TEST_F(ResourceTool, RandomDamageNeverBreaksIt)
{
    std::vector<ForkItem> items;
    for (const FormCase &form : formCases)
        items.push_back({form.type, 128, form.published, "name"});
    std::string fork = ForkBuilder::fork(items);
    unsigned seed = 20240917;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    for (int round = 0; round < 300; ++round) {
        std::string damaged = round % 2 ? fork : ForkBuilder::macBinary(fork, "data");
        for (int change = 0; change < 3; ++change)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        folder_.write("damaged", damaged);
        Outcome outcome = list("damaged");
        EXPECT_TRUE(outcome.code == 0 || !outcome.errors.empty());
    }
}

TEST_F(ResourceTool, AnOutputIsReplacedOnlyWhenAsked)
{
    folder_.write("fork", ForkBuilder::fork({{"ABCD", 1, "data"}}));
    folder_.write("out.res", "old");
    Outcome refused = run({"import", path("fork"), path("out.res")});
    EXPECT_EQ(refused.code, 1);
    EXPECT_NE(refused.errors.find("--force"), std::string::npos);
    EXPECT_EQ(folder_.read("out.res"), "old");
    EXPECT_EQ(run({"import", path("none"), path("new.res")}).code, 1);
    EXPECT_EQ(folder_.read("new.res"), "(missing)");
    folder_.write("fork", "no fork");
    EXPECT_EQ(run({"import", "--force", path("fork"), path("out.res")}).code, 1);
    EXPECT_EQ(folder_.read("out.res"), "old") << "a failure leaves it";
    WIN32_FIND_DATAA found;
    EXPECT_EQ(FindFirstFileA(path("*.new*").c_str(), &found), INVALID_HANDLE_VALUE);
}

TEST_F(ResourceTool, TypesThatDifferInCaseOnlyAreNotMixed)
{
    Outcome outcome = import({{"Abcd", 1, "first"}, {"ABCD", 1, "second"}}, "out.txt");
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(textData("out.txt", "ABCD", 1), "first");
    EXPECT_NE(outcome.errors.find("ABCD 1: there is another"), std::string::npos);
}

TEST_F(ResourceTool, WrongUseIsToldFromFailure)
{
    EXPECT_EQ(run({}).code, 2);
    EXPECT_EQ(run({"frobnicate"}).code, 2);
    EXPECT_EQ(run({"list"}).code, 2);
    EXPECT_EQ(run({"list", "--force", "x"}).code, 2);
    EXPECT_EQ(run({"list", "--", "--force"}).code, 1);
    EXPECT_EQ(run({"convert", "x.txt", "y.exe"}).code, 1);
    EXPECT_EQ(run({"convert", "x.rc", path("y.res")}).code, 1);
    Outcome help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.output.find("mtbx-res import"), std::string::npos);
}

TEST_F(ResourceTool, RunsFromACommandLine)
{
    import({{ "ABCD", 1, "data", "Name" }}, "out.txt");
    auto command = [&](const std::vector<std::string> &arguments) {
        return runProgram("mtbx-res", arguments, path("printed"));
    };
    EXPECT_EQ(command({"list", path("out.txt")}), 0);
    EXPECT_EQ(folder_.read("printed").substr(0, 30), "ABCD       1         4  \"Name\"");
    EXPECT_EQ(command({"list", path("none.txt")}), 1);
    EXPECT_NE(folder_.read("printed").find("none.txt: no such file"), std::string::npos);
    EXPECT_EQ(command({"nonsense"}), 2);
}

} // namespace
