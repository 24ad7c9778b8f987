// Resources in text files.
#include "ResourceChain.h"

#include <cstring>

namespace {

class TextSearch {
public:
    TextSearch() { MTBX_BeginEnableSearchResourcesInTextFiles(); }
    ~TextSearch() { MTBX_EndEnableSearchResourcesInTextFiles(); }
};

class TextResources : public ResourceChain {
protected:
    static Handle handleOf(const std::string &data)
    {
        Handle h = NewHandle(static_cast<Size>(data.size()));
        memcpy(*h, data.data(), data.size());
        return h;
    }

    static Handle add(ResType type, SInt16 id, const std::string &name, const std::string &data)
    {
        Handle h = handleOf(data);
        AddResource(h, type, id, Pascal(name));
        return h;
    }

    std::string value(const std::string &file, const char *section, const char *key) const
    {
        char text[100];
        GetPrivateProfileStringA(section, key, "(none)", text, sizeof text, folder_.path(file).c_str());
        return text;
    }

    SInt16 openText(const std::string &name) const { return open(folder_.path(name)); }

    // Everything that is in memory is gone.
    void reopen(const std::string &name) const
    {
        CloseResFile(openText(name));
        openText(name);
    }
};

TEST_F(TextResources, AResourceIsFourKeysInTheSectionOfItsType)
{
    openText("r.txt");
    add(typeNamed("Abcd"), 128, "Foo", "\x01\x02\xfe\xff");
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(value("r.txt", "Abcd", "128"), "0102FEFF00");
    EXPECT_EQ(value("r.txt", "Abcd", "128_Size"), "4");
    EXPECT_EQ(value("r.txt", "Abcd", "128_Name"), "Foo");
    EXPECT_EQ(value("r.txt", "Abcd", "Name_Foo"), "128");
    add(typeNamed("8ABC"), -2, "", "x");
    add(typeNamed("AB  "), 0, "", "y");
    EXPECT_EQ(value("r.txt", "_8ABC", "-2_Size"), "1");
    EXPECT_EQ(value("r.txt", "_8ABC", "-2_Name"), "(none)");
    EXPECT_EQ(value("r.txt", "AB", "0"), "7979");
}

TEST_F(TextResources, WhatWasWrittenIsReadWithinTheSearchOnly)
{
    std::string bytes;
    for (int value = 0; value < 1000; ++value)
        bytes += static_cast<char>(value * 7);
    openText("r.ini");
    Handle written = add(abcd, -1, "a name", bytes);
    add(abcd, 300, "", "x");
    EXPECT_EQ(Get1Resource(abcd, -1), written) << "listed handles need no search";
    reopen("r.ini");
    EXPECT_EQ(Get1Resource(abcd, -1), nullptr);
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(Count1Resources(abcd), 2);
    {
        TextSearch search, nested;
    }
    EXPECT_EQ(Get1Resource(abcd, -1), nullptr);
    TextSearch search;
    Handle h = Get1Resource(abcd, -1);
    EXPECT_EQ(data(h), bytes);
    EXPECT_EQ(name(h), "a name");
    UseResFile(1000);
    EXPECT_EQ(GetResource(abcd, -1), h);
    EXPECT_EQ(data(GetResource(abcd, 300)), "x");
    EXPECT_EQ(ResError(), noErr);
}

TEST_F(TextResources, NamesLeadToIDsByTheirIndex)
{
    SInt16 file = openText("r.txt");
    Handle listed = add(abcd, 128, "Foo", "one");
    add(abcd, -1, "Minus", "two");
    EXPECT_EQ(Get1NamedResource(abcd, Pascal("Foo")), listed);
    TextSearch search;
    reopen("r.txt");
    EXPECT_EQ(data(Get1NamedResource(abcd, Pascal("Foo"))), "one");
    UseResFile(1000);
    EXPECT_EQ(HomeResFile(GetNamedResource(abcd, Pascal("Foo"))), file);
    EXPECT_EQ(GetNamedResource(abcd, Pascal("Minus")), nullptr) << "-1 stands for no ID";
    EXPECT_EQ(GetNamedResource(abcd, Pascal("Bar")), nullptr);
    UseResFile(file);
    EXPECT_EQ(Get1IndResource(abcd, 1), nullptr) << "text files have no order";
    EXPECT_EQ(Get1NamedResource(abcd, Pascal("")), nullptr);
    EXPECT_EQ(ResError(), noErr);
}

TEST_F(TextResources, WriteResourceWritesTheHandleAsItIs)
{
    openText("r.txt");
    Handle h = add(abcd, 128, "Foo", "old");
    SetHandleSize(h, 5);
    memcpy(*h, "newer", 5);
    ChangedResource(h);
    UpdateResFile(CurResFile());
    EXPECT_EQ(value("r.txt", "ABCD", "128_Size"), "3") << "only WriteResource writes";
    UseResFile(1000);
    WriteResource(h);
    EXPECT_EQ(ResError(), noErr);
    TextSearch search;
    reopen("r.txt");
    EXPECT_EQ(data(Get1Resource(abcd, 128)), "newer");
    h = Get1Resource(abcd, 128);
    SetHandleSize(h, 0);
    WriteResource(h);
    EXPECT_EQ(value("r.txt", "ABCD", "128_Size"), "0");
    reopen("r.txt");
    EXPECT_EQ(Get1Resource(abcd, 128), nullptr) << "a size of 0 is no resource";
}

TEST_F(TextResources, SomeTypesLiveInASisterFile)
{
    TextSearch search;
    for (const char *file : {"r.txt", "r.TXT"}) {
        openText(file);
        add(typeNamed("OMpr"), 128, "Foo", "sister");
        reopen(file);
        EXPECT_EQ(data(Get1NamedResource(typeNamed("OMpr"), Pascal("Foo"))), "sister");
        EXPECT_EQ(Count1Resources(typeNamed("OMpr")), 1);
        EXPECT_EQ(value("r_.txt", "OMpr", "128_Size"), "6");
        EXPECT_EQ(value("r.txt", "OMpr", "128_Size"), "(none)");
        Handle h = Get1Resource(typeNamed("OMpr"), 128);
        RemoveResource(h);
        DisposeHandle(h);
        EXPECT_EQ(value("r_.txt", "OMpr", "128_Size"), "(none)");
        CloseResFile(CurResFile());
    }
    openText("r.ini");
    add(typeNamed("RSpr"), 1, "", "x");
    EXPECT_EQ(value("r.ini", "RSpr", "1_Size"), "1");
}

TEST_F(TextResources, RemovingLeavesTheHandleAndTheOtherResources)
{
    openText("r.txt");
    Handle h = add(abcd, 128, "Foo", "one");
    add(abcd, 1128, "Bar", "two");
    RemoveResource(h);
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(data(h), "one");
    EXPECT_EQ(HomeResFile(h), -1);
    for (const char *key : {"128", "128_Size", "128_Name", "Name_Foo"})
        EXPECT_EQ(value("r.txt", "ABCD", key), "(none)") << key;
    EXPECT_EQ(value("r.txt", "ABCD", "Name_Bar"), "1128");
    RemoveResource(h);
    EXPECT_EQ(ResError(), rmvResFailed);
    DisposeHandle(h);
    Handle last = Get1Resource(abcd, 1128);
    RemoveResource(last);
    DisposeHandle(last);
    EXPECT_NE(folder_.read("r.txt").find("[ABCD]"), std::string::npos);
}

TEST_F(TextResources, RemovingFromElsewhereOnlyDetaches)
{
    open(modulePath());
    Handle ofModule = Get1Resource(abcd, 128);
    RemoveResource(ofModule);
    EXPECT_EQ(ResError(), rmvResFailed);
    EXPECT_EQ(HomeResFile(ofModule), -1);
    openText("r.txt");
    Handle h = add(abcd, 128, "", "one");
    openText("s.txt");
    RemoveResource(h);
    EXPECT_EQ(ResError(), rmvResFailed);
    EXPECT_EQ(HomeResFile(h), -1);
    EXPECT_EQ(value("r.txt", "ABCD", "128_Size"), "3");
    DisposeHandle(ofModule);
    DisposeHandle(h);
}

TEST_F(TextResources, OnlyTextFilesTakeResources)
{
    SInt16 module = open(modulePath());
    Handle h = add(abcd, 500, "", "in memory");
    EXPECT_EQ(ResError(), addResFailed);
    EXPECT_EQ(HomeResFile(h), module) << "the module owns it nevertheless";
    EXPECT_EQ(Get1Resource(abcd, 500), h);
    WriteResource(h);
    EXPECT_EQ(ResError(), addResFailed);
    Handle own = NewHandle(1);
    WriteResource(own);
    EXPECT_EQ(ResError(), addResFailed);
    UseResFile(1005);
    AddResource(own, abcd, 1, Pascal());
    EXPECT_EQ(ResError(), addResFailed);
    EXPECT_EQ(HomeResFile(own), -1);
    DisposeHandle(own);
    AddResource(nullptr, abcd, 1, Pascal());
    EXPECT_EQ(ResError(), noErr);
}

TEST_F(TextResources, APairOrAHandleIsAddedOnce)
{
    SInt16 first = openText("r.txt");
    Handle h = add(abcd, 128, "Foo", "one"), other = add(abcd, 128, "Bar", "two");
    EXPECT_EQ(ResError(), addResFailed);
    EXPECT_EQ(HomeResFile(other), -1);
    EXPECT_EQ(value("r.txt", "ABCD", "128_Name"), "Foo");
    DisposeHandle(other);
    // A handle in two lists would be disposed twice.
    openText("s.txt");
    AddResource(h, abcd, 129, Pascal());
    EXPECT_EQ(ResError(), addResFailed);
    EXPECT_EQ(HomeResFile(h), first);
    EXPECT_EQ(value("s.txt", "ABCD", "129_Size"), "(none)");
}

TEST_F(TextResources, NamesThatWouldBreakTheFileAreNotWritten)
{
    openText("r.txt");
    add(abcd, 129, "", "safe");
    add(abcd, 128, "evil\r\n129_Size=1", "x");
    EXPECT_EQ(ResError(), addResFailed);
    add(0x410A5D0A, 1, "", "x"); // a type with line ends
    EXPECT_EQ(ResError(), addResFailed);
    EXPECT_EQ(value("r.txt", "ABCD", "129_Size"), "4");
    EXPECT_EQ(Count1Resources(abcd), 1);
}

TEST_F(TextResources, ANameWithAnEqualsSignIsKeptButLeadsToNoOtherResource)
{
    openText("r.txt");
    Handle h = add(abcd, 128, "a=b", "x");
    WriteResource(h);
    EXPECT_EQ(ResError(), noErr);
    TextSearch search;
    reopen("r.txt");
    EXPECT_EQ(name(Get1Resource(abcd, 128)), "a=b");
    EXPECT_EQ(Get1NamedResource(abcd, Pascal("a")), nullptr);
    EXPECT_EQ(value("r.txt", "ABCD", "Name_a"), "(none)");
}

TEST_F(TextResources, ALongNameIsWrittenWholeAndReadInPart)
{
    openText("r.txt");
    add(abcd, 128, std::string(255, 'n'), "x");
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(name(Get1Resource(abcd, 128)), std::string(255, 'n'));
    TextSearch search;
    reopen("r.txt");
    EXPECT_EQ(name(Get1Resource(abcd, 128)), std::string(63, 'n'));
    EXPECT_EQ(Get1NamedResource(abcd, Pascal(std::string(64, 'n'))), nullptr);
    EXPECT_EQ(ResError(), paramErr);
}

TEST_F(TextResources, AFailedWriteIsToldAndTheHandleStaysListed)
{
    openText("none\\r.txt");
    Handle h = add(abcd, 128, "", "one");
    EXPECT_EQ(ResError(), fnfErr);
    EXPECT_EQ(Get1Resource(abcd, 128), h);
    CreateDirectoryA(folder_.path("none").c_str(), nullptr);
    WriteResource(h);
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(value("none\\r.txt", "ABCD", "128_Size"), "3");
}

TEST_F(TextResources, WhatCannotBeReadIsZeros)
{
    folder_.write("r.txt", "[ABCD]\r\n1=010203FF\r\n1_Size=3\r\n2=0102\r\n2_Size=3\r\n3_Size=3\r\n"
                           "4=01020306\r\n4_Size=-3\r\n5_Size=2000000000\r\n6_Size=x\r\n");
    openText("r.txt");
    TextSearch search;
    for (SInt16 bad : {2, 3})
        EXPECT_EQ(data(Get1Resource(abcd, bad)), std::string(3, '\0'));
    EXPECT_EQ(GetHandleSize(Get1Resource(abcd, 1)), 3) << "a wrong sum is not looked at";
    EXPECT_EQ(Get1Resource(abcd, 4), nullptr);
    EXPECT_EQ(ResError(), memFullErr);
    Get1Resource(abcd, 5); // whether there is room for it depends on the machine
    EXPECT_EQ(Get1Resource(abcd, 6), nullptr);
    EXPECT_EQ(ResError(), noErr);
}

TEST_F(TextResources, ALongListOfKeysIsCountedInPart)
{
    openText("r.txt");
    std::string content = "[ABCD]\r\n";
    for (int number = 1000; number < 1300; ++number)
        content += std::to_string(number) + "_Size=1\r\n";
    folder_.write("r.txt", content);
    EXPECT_GE(Count1Resources(abcd), 2047 / 10);
    EXPECT_LE(Count1Resources(abcd), 2047 / 10 + 1);
}

TEST_F(TextResources, UniqueIDsSeeWhatGet1ResourceSees)
{
    openText("r.txt");
    add(abcd, 128, "", "x");
    add(abcd, 129, "", "x");
    EXPECT_EQ(Unique1ID(abcd), 130);
    reopen("r.txt");
    EXPECT_EQ(Unique1ID(abcd), 128);
    TextSearch search;
    EXPECT_EQ(Unique1ID(abcd), 130);
}

} // namespace
