// The profile calls, as programs of either platform see them.
#include "TemporaryFile.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <random>
#include <string>

namespace {

class Profile : public testing::Test {
protected:
    Profile() : file_("profile") {}

    std::string get(const char *section, const char *key, const char *otherwise = "(none)")
    {
        char buffer[1000];
        DWORD length = GetPrivateProfileStringA(section, key, otherwise, buffer, sizeof buffer, file_.path());
        // A list of names ends in two terminators, of which the length counts one less than none.
        return std::string(buffer, length);
    }
    bool set(const char *section, const char *key, const char *text)
    {
        return WritePrivateProfileStringA(section, key, text, file_.path());
    }
    UINT number(const char *key, INT otherwise = -1)
    {
        return GetPrivateProfileIntA("S", key, otherwise, file_.path());
    }

    TemporaryFile file_;
};

TEST_F(Profile, FindsKeysWithoutRegardToCaseAndBlanks)
{
    file_.write("; comment\r\n[Section]\r\nKey=value\r\n  Spaced key  =  spaced value \t\r\nEmpty=\r\n"
                "Quoted=\" in quotes \"\r\nSingle='it'\r\n;Hidden=1\r\n[Other]\r\nKey=other\r\n");
    EXPECT_EQ(get("Section", "Key"), "value");
    EXPECT_EQ(get("sECTION", "kEY"), "value");
    EXPECT_EQ(get("Other", "Key"), "other");
    EXPECT_EQ(get("Section", "Spaced key"), "spaced value");
    EXPECT_EQ(get("Section", "Empty"), "");
    EXPECT_EQ(get("Section", "Quoted"), " in quotes ");
    EXPECT_EQ(get("Section", "Single"), "it");
    EXPECT_EQ(get("Section", "Hidden"), "(none)");
    EXPECT_EQ(get("Missing", "Key"), "(none)");
    EXPECT_EQ(get("Section", "Missing", "trailing blanks go   "), "trailing blanks go");
    EXPECT_EQ(get("Section", "Missing", nullptr), "");
}

TEST_F(Profile, ListsSectionsAndKeysInTheOrderOfTheFile)
{
    using namespace std::string_literals;
    file_.write("[Two]\r\nb=1\r\na=2\r\n[One]\r\n[Empty]\r\n");
    EXPECT_EQ(get(nullptr, nullptr), "Two\0One\0Empty\0"s);
    EXPECT_EQ(get("Two", nullptr), "b\0a\0"s);
    EXPECT_EQ(get("Empty", nullptr), "(none)") << "no names: the default text";
    EXPECT_EQ(get("Missing", nullptr), "(none)");
}

TEST_F(Profile, CutsWhatDoesNotFit)
{
    file_.write("[S]\r\nlong=0123456789\r\nother=1\r\n");
    char buffer[20];
    memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileStringA("S", "long", "", buffer, 5, file_.path()), 4u);
    EXPECT_EQ(std::string(buffer, 6), std::string("0123\0x", 6));
    memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(GetPrivateProfileStringA("S", nullptr, "", buffer, 8, file_.path()), 6u);
    EXPECT_EQ(std::string(buffer, 7), std::string("long\0o\0", 7));
    EXPECT_EQ(buffer[8], 'x');
    EXPECT_EQ(GetPrivateProfileStringA("S", "none", "default", buffer, 4, file_.path()), 3u);
    EXPECT_STREQ(buffer, "def");
}

TEST_F(Profile, ReadsNumbersAsTheyStart)
{
    file_.write("[S]\r\na=42\r\nb=-7\r\nc=12abc\r\nd=abc\r\ne=\r\nf=0x1f\r\ng=4294967297\r\nh=\"8\"\r\n"
                "i=\" 12 \"\r\n");
    EXPECT_EQ(number("a"), 42u);
    EXPECT_EQ(number("b"), static_cast<UINT>(-7));
    EXPECT_EQ(number("c"), 12u);
    EXPECT_EQ(number("d"), 0u);
    EXPECT_EQ(number("missing", 99), 99u);
    EXPECT_EQ(number("g"), 1u);
    EXPECT_EQ(number("h"), 8u);
    EXPECT_EQ(number("i"), 12u);
}

TEST_F(Profile, WritesChangeOneLineOnly)
{
    file_.write("; head\r\n\r\n[A]\r\n; about x\r\nx=1\r\nnot an assignment\r\n\r\n[B]\r\ny=2\r\n");
    EXPECT_TRUE(set("A", "x", "new value"));
    EXPECT_EQ(get("A", "x"), "new value");
    EXPECT_TRUE(set("a", "X", "changed"));
    EXPECT_EQ(get("A", "x"), "changed");
    EXPECT_TRUE(set("B", "z", "3"));
    EXPECT_TRUE(set("C", "first", "in a new section"));
    EXPECT_EQ(get("C", "first"), "in a new section");
    std::string content = file_.read();
    for (const char *kept : {"; head", "; about x", "not an assignment", "y=2"})
        EXPECT_NE(content.find(kept), std::string::npos) << kept << " in " << content;
    EXPECT_TRUE(set("A", "x", nullptr));
    EXPECT_EQ(get("A", "x"), "(none)");
    EXPECT_TRUE(set("B", nullptr, nullptr));
    EXPECT_EQ(get("B", "y"), "(none)");
    EXPECT_EQ(get("C", "first"), "in a new section");
    EXPECT_TRUE(set("A", "never there", nullptr)) << "what is missing is already removed";
}

TEST_F(Profile, MakesAFileThatIsMissing)
{
    EXPECT_EQ(get("S", "k"), "(none)");
    EXPECT_TRUE(set("S", "k", "v"));
    EXPECT_EQ(file_.read(), "[S]\r\nk=v\r\n");
}

TEST_F(Profile, SeesChangesMadeByOthers)
{
    file_.write("[S]\r\nk=1\r\n");
    EXPECT_EQ(get("S", "k"), "1");
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, file_.path());
    file_.write("[S]\r\nk=a longer value\r\n");
    EXPECT_EQ(get("S", "k"), "a longer value");
}

TEST_F(Profile, TakesAnyLineEndsAndAMissingLast)
{
    file_.write("[S]\na=1\nb=2");
    EXPECT_EQ(get("S", "a"), "1");
    EXPECT_EQ(get("S", "b"), "2");
    EXPECT_TRUE(set("S", "c", "3"));
    EXPECT_EQ(get("S", "b"), "2");
    EXPECT_EQ(get("S", "c"), "3");
}

TEST_F(Profile, KeepsLongValues)
{
    std::string longValue(30000, 'v');
    EXPECT_TRUE(set("S", "long", longValue.c_str()));
    std::string read(65536, 0);
    DWORD length = GetPrivateProfileStringA("S", "long", "", read.data(), 65536, file_.path());
    EXPECT_EQ(read.substr(0, length), longValue);
}

TEST_F(Profile, StructsCarryALengthAndASum)
{
    BYTE data[5] = {0x00, 0x12, 0xab, 0xff, 0x7f};
    EXPECT_TRUE(WritePrivateProfileStructA("S", "data", data, sizeof data, file_.path()));
    EXPECT_EQ(get("S", "data"), "0012ABFF7F3B");
    BYTE read[5] = {};
    EXPECT_TRUE(GetPrivateProfileStructA("S", "data", read, sizeof read, file_.path()));
    EXPECT_EQ(memcmp(read, data, sizeof data), 0);
    BYTE longer[6];
    EXPECT_FALSE(GetPrivateProfileStructA("S", "data", longer, sizeof longer, file_.path()));
    for (const char *broken : {"0012ABFF7F3C", "0012ABFF7F3", "0012ABFF7G3B", ""}) {
        set("S", "data", broken);
        BYTE untouched[5] = {9, 9, 9, 9, 9};
        EXPECT_FALSE(GetPrivateProfileStructA("S", "data", untouched, sizeof untouched, file_.path())) << broken;
    }
    EXPECT_FALSE(GetPrivateProfileStructA("S", "missing", read, sizeof read, file_.path()));
    EXPECT_TRUE(WritePrivateProfileStructA("S", "data", nullptr, 0, file_.path()));
    EXPECT_EQ(get("S", "data"), "(none)");
}

// Random writes and removals against a plain map.
TEST_F(Profile, RandomChangesAgreeWithAMap)
{
    constexpr unsigned seed = 7;
    std::mt19937 random(seed);
    std::map<std::pair<int, int>, std::string> model;
    for (int step = 0; step < 400; ++step) {
        int section = static_cast<int>(random() % 4), key = static_cast<int>(random() % 6);
        std::string sectionName = "Section" + std::to_string(section), keyName = "Key" + std::to_string(key);
        unsigned action = random() % 10;
        if (action == 0) {
            set(sectionName.c_str(), nullptr, nullptr);
            for (int other = 0; other < 6; ++other)
                model.erase({section, other});
        } else if (action < 3) {
            set(sectionName.c_str(), keyName.c_str(), nullptr);
            model.erase({section, key});
        } else {
            std::string value = std::to_string(random());
            set(sectionName.c_str(), keyName.c_str(), value.c_str());
            model[{section, key}] = value;
        }
        for (int which = 0; which < 24; ++which) {
            auto expected = model.find({which / 6, which % 6});
            std::string name = "Section" + std::to_string(which / 6), k = "Key" + std::to_string(which % 6);
            ASSERT_EQ(get(name.c_str(), k.c_str()), expected == model.end() ? "(none)" : expected->second)
                << "seed " << seed << " step " << step;
        }
    }
}

} // namespace
