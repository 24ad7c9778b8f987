// The chain of resource files, and resources in modules.
#include "ResourceChain.h"

#include <vector>

namespace {

using namespace std::string_literals;

class Resources : public ResourceChain {
protected:
    static SInt16 id(Handle h)
    {
        SInt16 id = 0;
        GetResInfo(h, &id, nullptr, nullptr);
        return id;
    }
};

TEST_F(Resources, OnePathIsOneFileInAnyCase)
{
    SInt16 module = open(modulePath()), text = open(folder_.path("a.txt"));
    EXPECT_EQ(module, 1001);
    EXPECT_EQ(text, 1002);
    EXPECT_EQ(open(folderOfProgram() + "TOOLBOX_Module.dll"), module);
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(CurResFile(), text) << "opening what is open makes nothing current";
    EXPECT_NE(GetResFileInst(module), nullptr);
    EXPECT_EQ(GetResFileInst(text), reinterpret_cast<HMODULE>(static_cast<INT_PTR>(-1)));
    EXPECT_EQ(GetResFileInst(1003), GetResFileInst(text));
    EXPECT_EQ(GetResFileInst(1010), nullptr);
    EXPECT_EQ(GetResFileInst(999), nullptr);
}

TEST_F(Resources, TenFilesAreTheMostAndPlacesServeAgain)
{
    for (int number = 1; number < 10; ++number)
        EXPECT_EQ(open(folder_.path(std::to_string(number) + ".ini")), 1000 + number);
    EXPECT_EQ(open(folder_.path("11.ini")), -1);
    EXPECT_EQ(ResError(), mFulErr);
    EXPECT_EQ(open(folder_.path("9.INI")), 1009);
    CloseResFile(1004);
    EXPECT_EQ(open(folder_.path("11.ini")), 1004);
}

TEST_F(Resources, WhatCannotBeOpenedTakesNoPlace)
{
    folder_.write("text.dll", "this is no module");
    EXPECT_EQ(open(folder_.path("none.dll")), -1);
    EXPECT_EQ(ResError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(open(folder_.path("text.dll")), -1);
    EXPECT_NE(ResError(), noErr);
    EXPECT_EQ(open(""), -1);
    MTBX_SetLoadLibraryLite(true);
    EXPECT_EQ(open(folder_.path("none.dll")), -1);
    EXPECT_EQ(ResError(), fnfErr);
    EXPECT_EQ(CurResFile(), 1000);
    EXPECT_EQ(open(modulePath()), 1001);
    EXPECT_EQ(data(Get1Resource(abcd, 128)), "first");
    EXPECT_TRUE(MTBX_GetLoadLibraryLite());
    MTBX_SetLoadLibraryLite(false);
}

TEST_F(Resources, FilesAreNamedByDirectoryAndSpec)
{
    folder_.write("m.dll", TemporaryFolder::readFile(modulePath()));
    SInt32 directory = GetDirectoryID(folder_.path().c_str());
    EXPECT_EQ(HOpenResFile(0, directory, Pascal("m.dll"), fsRdPerm), 1001);
    EXPECT_EQ(HOpenResFile(0, 0, Pascal(folder_.path("M.dll")), fsRdPerm), 1001);
    EXPECT_EQ(HOpenResFile(0, directory, Pascal(folder_.path("m.dll")), fsRdPerm), -1) << "a name, not a path";
    FSSpec spec;
    FSMakeFSSpec(0, directory, Pascal("new.txt"), &spec);
    EXPECT_EQ(FSpOpenResFile(&spec, fsRdPerm), 1002);
    EXPECT_EQ(HCreateResFile(0, directory, Pascal("new.txt")), 1002);
    EXPECT_EQ(folder_.read("new.txt"), "(missing)");
    Pascal name;
    FCBPBRec info = {};
    info.ioNamePtr = name;
    info.ioRefNum = 1001;
    EXPECT_EQ(PBGetFCBInfoSync(&info), noErr);
    EXPECT_EQ(name.text(), "m.dll");
    EXPECT_EQ(SInt32{info.ioFCBParID}, directory);
    CloseResFile(1001);
    EXPECT_EQ(PBGetFCBInfoSync(&info), fnfErr);
}

TEST_F(Resources, TheHostsFileStaysOpenUntilShutdown)
{
    EXPECT_EQ(data(GetResource(typeNamed("DATA"), 128)), "abc\0"s);
    CloseResFile(1000);
    EXPECT_EQ(GetResFileInst(1000), hResInst);
    EXPECT_EQ(LMGetCurApRefNum(), 1000);
    MTBX_ShutdownResources();
    EXPECT_NE(GetResFileInst(1000), hResInst);
    EXPECT_EQ(Get1Resource(typeNamed("DATA"), 128), nullptr);
}

TEST_F(Resources, TheModuleThatTheHostMakesItsOwnStaysLoaded)
{
    HINSTANCE program = hResInst;
    SInt16 module = open(modulePath());
    hResInst = GetResFileInst(module);
    CloseResFile(module);
    EXPECT_EQ(GetResFileInst(module), hResInst);
    MTBX_ShutdownResources();
    EXPECT_NE(FindResourceA(hResInst, MAKEINTRESOURCEA(128), "ABCD"), nullptr);
    FreeLibrary(hResInst);
    hResInst = program;
}

TEST_F(Resources, StartingAgainClosesWhatWasOpen)
{
    open(modulePath());
    EXPECT_NE(GetResource(abcd, 128), nullptr);
    InitResources();
    EXPECT_EQ(CurResFile(), 1000);
    EXPECT_EQ(GetResource(abcd, 128), nullptr);
}

TEST_F(Resources, TheApplicationFileFollowsAClosedCurrentFile)
{
    SInt16 first = openCopy("1.dll"), second = openCopy("2.dll"), third = openCopy("3.dll");
    CloseResFile(third);
    EXPECT_EQ(CurResFile(), 1000);
    MTBX_SetAppResFileRefNum(first);
    CloseResFile(1007); // is open to nobody, and not current
    EXPECT_EQ(CurResFile(), 1000);
    UseResFile(second);
    CloseResFile(second);
    EXPECT_EQ(CurResFile(), first);
}

TEST_F(Resources, NumbersAreCheckedForTheirRangeOnly)
{
    UseResFile(1005);
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(CurResFile(), 1005);
    MTBX_BeginEnableSearchResourcesInTextFiles();
    EXPECT_EQ(Get1Resource(abcd, 128), nullptr);
    EXPECT_EQ(Get1NamedResource(abcd, Pascal("Foo")), nullptr);
    EXPECT_EQ(Get1IndResource(abcd, 1), nullptr);
    EXPECT_EQ(Count1Resources(abcd), 0);
    MTBX_EndEnableSearchResourcesInTextFiles();
    EXPECT_EQ(ResError(), noErr);
    for (SInt16 number : {999, 1010, -1, 0}) {
        UseResFile(number);
        EXPECT_EQ(ResError(), rfNumErr);
        CloseResFile(number);
        EXPECT_EQ(ResError(), rfNumErr);
    }
    EXPECT_EQ(CurResFile(), 1005);
    EXPECT_EQ(ResError(), noErr);
}

TEST_F(Resources, PayloadsGiveDataAndNames)
{
    open(modulePath());
    EXPECT_EQ(data(GetResource(abcd, 128)), "first");
    EXPECT_EQ(name(GetResource(abcd, 128)), "");
    EXPECT_EQ(data(GetResource(abcd, 129)), "second");
    EXPECT_EQ(name(GetResource(abcd, 129)), "Foo");
    EXPECT_EQ(data(GetResource(abcd, 133)), "");
    EXPECT_NE(GetResource(abcd, 133), nullptr);
    EXPECT_EQ(data(GetResource(abcd, 141)), "all other flags");
    EXPECT_EQ(data(GetResource(abcd, -1)), "minus one");
    EXPECT_EQ(data(GetResource(typeNamed("AB  "), 1)), "two letters");
    EXPECT_EQ(data(GetResource(typeNamed("8ABC"), 1)), "a digit first");
    EXPECT_EQ(ResError(), noErr);
    for (SInt16 bad : {131, 132}) {
        EXPECT_EQ(Get1Resource(abcd, bad), nullptr);
        EXPECT_EQ(ResError(), badResFormat);
    }
    EXPECT_EQ(Get1Resource(abcd, 134), nullptr);
    EXPECT_EQ(ResError(), resNotFound);
}

TEST_F(Resources, AMenuBarBeginsWithItsCount)
{
    open(modulePath());
    EXPECT_EQ(data(GetResource(typeNamed("MBAR"), 128)), "\3\0\200\0\201\0\202\0\0\0"s);
    EXPECT_EQ(data(GetResource(typeNamed("MBAR"), 129)), "\0\0"s);
}

TEST_F(Resources, ALocalStringMustBeInTheThreadsLanguageOrNeutral)
{
    constexpr ResType localString = typeNamed("LStr");
    ASSERT_EQ(GetThreadLocale() & 0xffff, 0x0409);
    open(modulePath());
    EXPECT_EQ(data(GetResource(localString, 200)), "english");
    EXPECT_EQ(data(GetResource(localString, 202)), "neutral");
    EXPECT_EQ(GetResource(localString, 201), nullptr);
    EXPECT_EQ(ResError(), resNotFound);
}

TEST_F(Resources, TheCurrentFileIsAskedFirstThenTheOthersFromTheLast)
{
    SInt16 first = openCopy("1.dll"), second = openCopy("2.dll"), third = openCopy("3.dll");
    UseResFile(second);
    EXPECT_EQ(HomeResFile(GetResource(abcd, 128)), second);
    UseResFile(1000);
    EXPECT_EQ(HomeResFile(GetResource(abcd, 129)), third);
    CloseResFile(first);
    SInt16 reused = openCopy("4.dll");
    EXPECT_EQ(reused, first);
    UseResFile(1000);
    EXPECT_EQ(HomeResFile(GetResource(abcd, 130)), third) << "by place, not by age";
}

TEST_F(Resources, ResErrorTellsOfTheModulesThatWereAsked)
{
    open(modulePath());
    Handle h = GetResource(abcd, 128);
    EXPECT_EQ(ResError(), noErr);
    UseResFile(1000);
    EXPECT_EQ(GetResource(abcd, 128), h);
    EXPECT_EQ(ResError(), resNotFound) << "a listed handle leaves what the first module set";
    EXPECT_NE(GetResource(abcd, 129), nullptr);
    EXPECT_EQ(ResError(), noErr) << "a load sets it";
    EXPECT_EQ(GetResource(abcd, 999), nullptr);
    EXPECT_EQ(ResError(), resNotFound);
    open(folder_.path("a.txt"));
    EXPECT_EQ(Get1Resource(abcd, 128), nullptr);
    EXPECT_EQ(ResError(), noErr) << "a text file has no error for what it lacks";
    HomeResFile(nullptr);
    GetResFileInst(0);
    GetResInfo(nullptr, nullptr, nullptr, nullptr);
    MTBX_SetAppResFileRefNum(1000);
    EXPECT_EQ(HomeResFile(h), 1001);
    EXPECT_EQ(ResError(), resNotFound) << "these leave it, but for GetResInfo";
    EXPECT_EQ(GetResourceSize(h), 5);
    EXPECT_EQ(ResError(), noErr);
}

TEST_F(Resources, OneHandleServesAllUntilItIsReleased)
{
    open(modulePath());
    Handle h = GetResource(abcd, 128);
    EXPECT_EQ(GetResource(abcd, 128), h);
    (*h)[0] = 'F';
    EXPECT_EQ(data(Get1Resource(abcd, 128)), "First");
    ReleaseResource(h);
    EXPECT_EQ(data(GetResource(abcd, 128)), "first");
}

TEST_F(Resources, AnEmptiedHandleIsReadAgainInItsPlace)
{
    open(modulePath());
    Handle h = GetResource(abcd, 129), other = GetResource(abcd, 130);
    EmptyHandle(h);
    EXPECT_EQ(GetResource(abcd, 129), h);
    EXPECT_EQ(data(h), "second");
    EmptyHandle(h);
    EmptyHandle(other);
    MacLoadResource(h);
    EXPECT_EQ(data(h), "second");
    EXPECT_EQ(name(h), "Foo");
    EXPECT_EQ(*other, nullptr);
    Handle own = NewEmptyHandle();
    MacLoadResource(own);
    EXPECT_EQ(*own, nullptr);
    MacLoadResource(nullptr);
    EXPECT_EQ(ResError(), noErr);
    DisposeHandle(own);
}

TEST_F(Resources, ADetachedHandleIsTheCallers)
{
    SInt16 module = open(modulePath());
    Handle h = GetResource(abcd, 128), kept = GetResource(abcd, 129);
    DetachResource(h);
    DetachResource(kept);
    EXPECT_EQ(HomeResFile(h), -1);
    EXPECT_NE(GetResource(abcd, 128), h);
    ReleaseResource(h); // disposes what is no resource too
    CloseResFile(module);
    EXPECT_EQ(data(kept), "second");
    DisposeHandle(kept);
    ReleaseResource(nullptr);
    DetachResource(nullptr);
    EXPECT_EQ(ResError(), noErr);
}

TEST_F(Resources, GetResInfoTellsResourcesFromOtherHandles)
{
    open(modulePath());
    SInt16 id = 7;
    ResType type = 7;
    Pascal name("old");
    Handle other = NewHandle(4);
    GetResInfo(other, &id, &type, name);
    EXPECT_EQ(ResError(), resNotFound);
    EXPECT_EQ(id, -1);
    EXPECT_EQ(type, 0u);
    EXPECT_EQ(name.text(), "");
    DisposeHandle(other);
    GetResInfo(GetResource(abcd, 129), &id, &type, name);
    EXPECT_EQ(ResError(), noErr);
    EXPECT_EQ(id, 129);
    EXPECT_EQ(type, abcd);
    EXPECT_EQ(name.text(), "Foo");
}

TEST_F(Resources, NamesLeadToTheFirstResourceThatBearsThem)
{
    SInt16 module = open(modulePath());
    EXPECT_EQ(id(Get1NamedResource(abcd, Pascal("Foo"))), 129);
    EXPECT_EQ(id(GetNamedResource(abcd, Pascal("Bar"))), 130);
    EXPECT_EQ(ResError(), noErr);
    for (const char *absent : {"", "foo", "Fo", "Text", "a name without an end"}) {
        EXPECT_EQ(Get1NamedResource(abcd, Pascal(absent)), nullptr) << absent;
        EXPECT_EQ(ResError(), resNotFound);
    }
    EXPECT_EQ(GetNamedResource(abcd, Pascal(std::string(64, 'n'))), nullptr);
    EXPECT_EQ(ResError(), paramErr);
    EXPECT_EQ(Get1NamedResource(abcd, Pascal(std::string(255, 'n'))), nullptr);
    EXPECT_EQ(ResError(), paramErr);
    EXPECT_EQ(Get1NamedResource(abcd, Pascal(std::string(63, 'n'))), nullptr);
    EXPECT_EQ(ResError(), resNotFound);
    UseResFile(1000);
    EXPECT_EQ(Get1NamedResource(abcd, Pascal("Foo")), nullptr);
    EXPECT_EQ(HomeResFile(GetNamedResource(abcd, Pascal("Foo"))), module);
    // The name of one file leads to the resource of another.
    SInt16 other = openCopy("2.dll");
    EXPECT_EQ(HomeResFile(GetResource(abcd, 130)), other);
    UseResFile(module);
    EXPECT_EQ(HomeResFile(GetNamedResource(abcd, Pascal("Bar"))), module);
}

TEST_F(Resources, IndicesGoThroughAllResourcesOfATypeInOrder)
{
    open(modulePath());
    std::vector<SInt16> ids;
    EXPECT_EQ(Count1Resources(abcd), 9);
    for (SInt16 index = 1; index <= 9; ++index) {
        Handle h = Get1IndResource(abcd, index);
        if (h)
            ids.push_back(id(h));
    }
    EXPECT_EQ(ids, std::vector<SInt16>({128, 129, 130, 133, 140, 141, -1}));
    for (SInt16 outside : {0, 10, -1}) {
        EXPECT_EQ(Get1IndResource(abcd, outside), nullptr);
        EXPECT_EQ(ResError(), resNotFound);
    }
    EXPECT_EQ(Count1Resources(typeNamed("none")), 0);
    EXPECT_EQ(Get1IndResource(typeNamed("none"), 1), nullptr);
}

TEST_F(Resources, AUniqueIDIsTheFirstFrom128WithoutAResource)
{
    open(modulePath());
    EXPECT_EQ(Unique1ID(abcd), 131) << "the resource there cannot be read";
    EXPECT_EQ(Unique1ID(typeNamed("none")), 128);
}

} // namespace
