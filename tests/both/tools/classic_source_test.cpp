// mtbx-classic-source: what it makes of Pascal literals, of long and of characters, and that all else stays.
#include "commands.h"
#include "conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

namespace {

using namespace classic;

// What follows the lines that every result begins with.
std::string body(const Conversion &conversion)
{
    const std::string mark = "\n#line 1 \"old.c\"\n";
    size_t position = conversion.text.find(mark);
    return position == std::string::npos ? "(no #line)" : conversion.text.substr(position + mark.size());
}

Options named(Options options)
{
    options.name = "old.c";
    return options;
}

// The result, or the first problem with its line.
std::string converted(std::string_view source, const Options &options = {})
{
    Conversion conversion = convert(source, named(options));
    if (conversion.problems.empty())
        return body(conversion);
    return std::to_string(conversion.problems[0].line) + ": " + conversion.problems[0].text;
}

struct Case {
    const char *source, *result;
};

template <size_t count> void expectConverted(const Case (&cases)[count], const Options &options = {})
{
    for (const Case &c : cases)
        EXPECT_EQ(converted(c.source, options), c.result) << c.source;
}

TEST(PascalLiterals, GetTheLengthOfWhatTheCompilerMakesOfThem)
{
    const Case cases[] = {
        {R"(f("\p");)", R"(f(MTBX_PASCAL_(2, "\000"));)"},
        {R"(f("\pText");)", R"(f(MTBX_PASCAL_(6, "\004Text"));)"},
        {R"(f("\p1\t\"\\\1012\x41g");)", R"(f(MTBX_PASCAL_(10, "\0101\t\"\\\1012\x41g"));)"},
        {"f(\"\\pone\\\ntwo\");", "f(MTBX_PASCAL_(8, \"\\006one\\\ntwo\"));"},
        {"f(\"\\pone\" /* \"no\" */\n  \"two\", \"three\");",
         "f(MTBX_PASCAL_(8, \"\\006one\" /* \"no\" */\n  \"two\"), \"three\");"},
        {R"(f("\pé\u00e9");)", R"(f(MTBX_PASCAL_(6, "\004é\u00e9"));)"},
        {"#define A \"\\pone\" \\\n  \"two\"\nchar *b = \"c\";",
         "#define A MTBX_PASCAL_(8, \"\\006one\" \\\n  \"two\")\nchar *b = \"c\";"},
        {"#define A \"\\pone\"\n#define B \"two\"\n", "#define A MTBX_PASCAL_(5, \"\\003one\")\n#define B \"two\"\n"},
        {"x = {\n#if A\n\"\\pa\",\n#else\n\"\\pb\"\n#endif\n};",
         "x = {\n#if A\nMTBX_PASCAL_(3, \"\\001a\"),\n#else\nMTBX_PASCAL_(3, \"\\001b\")\n#endif\n};"},
    };
    expectConverted(cases);
}

TEST(PascalLiterals, StandAloneWhereTheyInitialiseArrays)
{
    const Case cases[] = {
        {R"(Str255 a = "\pa", b = "\pb";)", R"(Str255 a = "\001a", b = "\001b";)"},
        {R"(static const unsigned char a[] = "\pa";)", R"(static const unsigned char a[] = "\001a";)"},
        {R"(Byte a[4] = "\pa", b[4] = "\pb";)", R"(Byte a[4] = "\001a", b[4] = "\001b";)"},
        {R"(const Str31 a[] = {"\pa", "\pb"};)", R"(const Str31 a[] = {"\001a", "\001b"};)"},
        {R"(char a[2][8] = {"\pa", "\pb"};)", R"(char a[2][8] = {"\001a", "\001b"};)"},
        {R"(StringPtr a[] = {"\pa"};)", R"(StringPtr a[] = {MTBX_PASCAL_(3, "\001a")};)"},
        {R"(unsigned char *a[] = {"\pa"};)", R"(unsigned char *a[] = {MTBX_PASCAL_(3, "\001a")};)"},
        {R"(Str255 *a = "\pa"; b[1] = "\pb";)",
         R"(Str255 *a = MTBX_PASCAL_(3, "\001a"); b[1] = MTBX_PASCAL_(3, "\001b");)"},
        {R"(void f(const Str255 a = "\pa") { return "\pb"; })",
         R"(void f(const Str255 a = MTBX_PASCAL_(3, "\001a")) { return MTBX_PASCAL_(3, "\001b"); })"},
    };
    expectConverted(cases);
}

TEST(PascalLiterals, AreRefusedWhereTheirLengthCannotBeRight)
{
    std::string longest(255, 'x');
    EXPECT_EQ(converted("f(\"\\p" + longest + "\");"), "f(MTBX_PASCAL_(257, \"\\377" + longest + "\"));");
    EXPECT_EQ(converted("\n\nf(\"\\p" + longest + "\" \"y\");"),
              "3: a Pascal string of 256 characters; 255 is the most");
    const Case cases[] = {
        {"f(\"\\pa\"\n\"\\pb\");", "2: \\p does not begin the string, another literal does"},
        {R"(f("a" "\pb");)", "1: \\p does not begin the string, another literal does"},
        {"\r#define P(x) \"\\p\" x", "2: a Pascal string is joined to x, so its length cannot be told"},
        {R"(#define P(x) "\p" #x)", "1: a Pascal string is joined to #, so its length cannot be told"},
        {R"(f("\p" L"b");)", "1: a Pascal string is joined to L\"b\", so its length cannot be told"},
        {"f(\"\\pa\"\n#if B\n\"b\"\n#endif\n);",
         "3: a Pascal string goes on behind a preprocessor line, so its length depends on that"},
    };
    expectConverted(cases);
}

TEST(ClassicSource, IsLeftAloneOutsideOfPascalLiterals)
{
    const char *sources[] = {
        R"(/* "\pa" */ // "\pb")",
        "// goes on \\\n\"\\pa\"",
        R"(L"\pa" u8"\pb" U'\p' '\p' "a\pb")",
        "R\"x(\"\\pa\" )\" )x\" R\"(\n\"\\pb)\"",
        "#include \"\\pa.h\"\n#include <a//\"\\pb.h>",
        "#pragma mark Don't \"\\pa\"\n",
        "#if 0\nit's \"\\pa\"\n#if 1\n\"\\pb\" prose\n#endif\n/*\n#endif */\n#endif\n",
        "#error can't /*\n\"\\pa\" */\n",
        R"('"' "\pa)",
        "1'000'0\"\\pa",
        "",
        "\\",
        "\"\\",
        "'",
        "/*",
        "#",
        "R\"(",
        "#if 0",
    };
    for (const char *source : sources)
        EXPECT_EQ(converted(source), source);
    EXPECT_EQ(converted("\xEF\xBB\xBF"
                        "a\rb\r\nc\n\rd\r"),
              "a\nb\nc\n\nd\n");
}

TEST(ClassicSource, TellsTheCompilerItsName)
{
    Options options;
    options.name = "C:\\old\\\"x\".c";
    EXPECT_NE(convert("", options).text.find("\n#line 1 \"C:\\\\old\\\\\\\"x\\\".c\"\n"), std::string::npos);
}

TEST(ClassicSource, KeepsLongWhereItDoesNotNarrowIt)
{
    EXPECT_EQ(converted("long a = 1L;"), "long a = 1L;");
}

TEST(Long, BecomesIntWithTheWordsAroundIt)
{
    const Case cases[] = {
        {"long a; unsigned long b; long unsigned c;", "int a; unsigned int b; int unsigned c;"},
        {"const long int a; int unsigned long b;", "const  int a; int unsigned  b;"},
        {"unsigned/* c */long\n*a; sizeof(long)", "unsigned/* c */int\n*a; sizeof(int)"},
        {"long long a; long double b; double long c; unsigned long const long d;",
         "long long a; long double b; double long c; unsigned long const long d;"},
        {"#define A long\nlong b;", "#define A int\nint b;"},
        {"#define long int\n#ifdef long\n#pragma long\n", "#define long int\n#ifdef long\n#pragma long\n"},
        {"#define T(x) x##long #long", "#define T(x) x##long #long"},
        {"\"long\" 'long' /* long */ belong long_", "\"long\" 'long' /* long */ belong long_"},
    };
    Options options;
    options.narrowsLong = true;
    expectConverted(cases, options);
}

TEST(Long, TakesItsLetterFromNumbers)
{
    const Case cases[] = {
        {"0L 12l 0x1FuL 017LU", "0 12 0x1Fu 017U"},
        {"0xFFFFFFFFL 4294967295L 037777777777L", "0xFFFFFFFF 4294967295 037777777777"},
        {"0x100000000L 4294967296L 040000000000L 99999999999999999999L 08L 0xL",
         "0x100000000L 4294967296L 040000000000L 99999999999999999999L 08L 0xL"},
        {"1.0L 1e5L 0x1p3L 1LL 1ULL 1_L a1L", "1.0L 1e5L 0x1p3L 1LL 1ULL 1_L a1L"},
    };
    Options options;
    options.narrowsLong = true;
    expectConverted(cases, options);
}

TEST(Characters, OfAMacintoshAreThoseOfTheCodePageInLiteralsAndUtf8Elsewhere)
{
    const Case cases[] = {
        {"f(\"\\p\x8E\xC9"
         "1\", '\xA5'); // \xA9",
         "f(MTBX_PASCAL_(5, \"\\003\\351\\2051\"), '\\225'); // ©"},
        {"t = '\xB5"
         "TYP'; a\xCA= L\"\x8E\";\n#include \"\x8E.h\"",
         "t = '\\265TYP'; a = L\"é\";\n#include \"é.h\""},
        {"\n\"\xAD\"", "2: the character ≠ is not in the code page 1252"},
    };
    Options options;
    options.encoding = Encoding::MacRoman;
    expectConverted(cases, options);
}

TEST(Characters, OfUtf8AreTakenWhole)
{
    const Case cases[] = {
        {"f(\"\\pé…1\", '•'); // ©", "f(MTBX_PASCAL_(5, \"\\003\\351\\2051\"), '\\225'); // ©"},
        {"t = 'µTYP';", "t = '\\265TYP';"},
        {"'≠' \"\x8E\"", "1: the character ≠ is not in the code page 1252"},
        {"\"\xC3\"", "1: the character \xEF\xBF\xBD is not in the code page 1252"},
    };
    Options options;
    options.encoding = Encoding::Utf8;
    expectConverted(cases, options);
}

// Pieces that stand beside each other in any order, with what becomes of each; and some that may not.
class RandomSource {
public:
    explicit RandomSource(unsigned seed) : random_(seed) {}

    // A source and its result.
    std::pair<std::string, std::string> make()
    {
        static const char *const pieces[] = {
            "/* it's \"\\pno\" \n*/",
            "x = 'a\\'\"';",
            "\"\\\\\" \"\\\"p\";",
            "\n#define M(a) f(a, \"b\")\n",
            "\n#pragma mark don't\n",
            "\n#include <\\p\"'.h>\n",
            "R\"y(\"\\pz\")\" )y\";",
            "1.5e+3'0;",
            "\\\n",
            "{",
            "}",
            "a[3];",
            ")",
            "(\n",
            "// \"\\pno\\\n'\n",
            "L\"\\pno\";",
            "\n#if 0\n'\"\\pno\n#endif\n",
            "\t\v\f ",
            "; #",
            "\x80\xFF;",
        };
        std::string source, result;
        for (size_t i = 0; i < 40; ++i) {
            if (random_() % 4 == 0) {
                addLiteral(source, result);
            } else {
                const char *piece = pieces[random_() % std::size(pieces)];
                source += piece;
                result += piece;
            }
        }
        return {source, result};
    }

    std::string noise()
    {
        static const char alphabet[] = "\"\"\"'\\\n \t/*#()RLu8abx17L;={}[],.\x80\xFF";
        std::string text(random_() % 60, 0);
        std::generate(text.begin(), text.end(), [this] { return alphabet[random_() % (sizeof alphabet - 1)]; });
        return text;
    }

private:
    void addLiteral(std::string &source, std::string &result)
    {
        std::string text(random_() % 256, 0);
        for (char &c : text)
            c = "ab17 '/*#p\x8E"[random_() % 11];
        char length[5];
        snprintf(length, sizeof length, "\\%03o", static_cast<unsigned>(text.size()));
        source += " f(\"\\p" + text + "\");";
        result += " f(MTBX_PASCAL_(" + std::to_string(text.size() + 2) + ", \"" + length + text + "\"));";
    }

    std::mt19937 random_;
};

TEST(ClassicSource, IsKeptByteForByteWhateverStandsAroundItsLiterals)
{
    unsigned seed = std::random_device()();
    RandomSource random(seed);
    for (int i = 0; i < 2000; ++i) {
        auto [source, result] = random.make();
        ASSERT_EQ(converted(source), result) << "seed " << seed;
        std::string noise = random.noise();
        ASSERT_EQ(converted(noise), noise) << "seed " << seed; // without \p nothing changes
        Options everything;
        everything.encoding = i % 2 ? Encoding::MacRoman : Encoding::Utf8;
        everything.narrowsLong = true;
        convert(noise + "\"\\p" + noise, everything);
    }
}

class ClassicSourceTool : public testing::Test {
protected:
    ClassicSourceTool()
        : folder_(std::filesystem::temp_directory_path() / ("classic" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directories(folder_);
    }
    ~ClassicSourceTool() override { std::filesystem::remove_all(folder_); }

    std::string path(const std::string &name) const { return (folder_ / name).string(); }
    void write(const std::string &name, const std::string &text) const
    {
        std::ofstream(path(name), std::ios::binary) << text;
    }
    std::string read(const std::string &name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        return file ? std::string{std::istreambuf_iterator<char>(file), {}} : "(missing)";
    }

    int run(const std::vector<std::string> &arguments)
    {
        output_.str("");
        return classic::run(arguments, output_, output_);
    }

    std::filesystem::path folder_;
    std::ostringstream output_;
};

TEST_F(ClassicSourceTool, WritesTheResultIntoAFolderThatItMakes)
{
    write("old.c", "long a;\rchar *b = \"\\pb\";\r");
    EXPECT_EQ(run({"--name=old.c", path("old.c"), path("new/folder/old.c")}), exitDone);
    EXPECT_EQ(body({read("new/folder/old.c"), {}}), "long a;\nchar *b = MTBX_PASCAL_(3, \"\\001b\");\n");
    EXPECT_EQ(run({"--long=32", "--name=old.c", path("old.c"), path("new/folder/old.c")}), exitDone);
    EXPECT_EQ(body({read("new/folder/old.c"), {}}), "int a;\nchar *b = MTBX_PASCAL_(3, \"\\001b\");\n");
    EXPECT_EQ(output_.str(), "");
}

TEST_F(ClassicSourceTool, LeavesTheResultAsItWasWhenASourceHasProblems)
{
    write("old.c", "\rf(\"\\pa\" B);\r");
    write("new.c", "before");
    EXPECT_EQ(run({path("old.c"), path("new.c")}), exitFailed);
    EXPECT_EQ(output_.str(), path("old.c") + ":2: a Pascal string is joined to B, so its length cannot be told\n");
    EXPECT_EQ(read("new.c"), "before");
    EXPECT_EQ(run({path("missing.c"), path("new.c")}), exitFailed);
    EXPECT_EQ(run({path("old.c"), "--long=16", path("new.c")}), exitUsage);
    EXPECT_EQ(run({path("old.c")}), exitUsage);
}

TEST_F(ClassicSourceTool, ChecksForLiteralsThatCompilersTakeWrongly)
{
    write("old.c", "/* \"\\pa\" */\rf(\"\\pb\");\r\r#define C \"\\pc\"\r");
    write("new.c", "f(\"\\004Text\");");
    const std::string problem = ": a Pascal string, whose length byte not every compiler makes\n";
    EXPECT_EQ(run({"--check", path("new.c"), path("old.c")}), exitFailed);
    EXPECT_EQ(output_.str(), path("old.c") + ":2" + problem + path("old.c") + ":4" + problem);
    EXPECT_EQ(run({"--check", path("new.c")}), exitDone);
    EXPECT_EQ(run({"--check", path("new.c"), path("missing.c")}), exitFailed);
}

} // namespace
