// Resources when memory, the disk or the host's call-back fail them.
#include "ResourceChain.h"

#include <win32/control.h>

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <functional>

namespace {

std::function<void()> onGrowZone;

SInt32 growZone(UInt64)
{
    // One refusal, one answer.
    Win32Control_AllowAllocations(WIN32_ALLOCATION_C_HEAP);
    onGrowZone();
    return 1;
}

class ResourceFaults : public ResourceChain {
protected:
    ResourceFaults() { MTBX_BeginEnableSearchResourcesInTextFiles(); }
    ~ResourceFaults() override
    {
        Win32Control_Reset();
        SetGrowZoneEx(nullptr);
        MTBX_EndEnableSearchResourcesInTextFiles();
    }

    static Handle handleOf(const std::string &data)
    {
        Handle h = NewHandle(static_cast<Size>(data.size()));
        if (h)
            memcpy(*h, data.data(), data.size());
        return h;
    }

    // The given allocation fails at the first try and for good, unless the host's function frees memory.
    static void refuse(Win32Allocation kind, DWORD first) { Win32Control_RefuseAllocations(kind, first, 2, 0); }

    SInt16 openText() const { return open(folder_.path("r.txt")); }

    static std::string shown(Handle h) { return h && GetHandleSize(h) > 0 ? data(h) + "," : "-,"; }

    static void addNew(SInt16 id, const std::string &name)
    {
        Handle h = handleOf("new");
        AddResource(h, abcd, id, Pascal(name));
        if (HomeResFile(h) < 0)
            DisposeHandle(h);
    }

    // What every call that reads makes of the two files.
    std::string readAll() const
    {
        SInt16 module = open(modulePath()), text = openText();
        UseResFile(module);
        std::string found = shown(Get1Resource(abcd, 129));
        found += shown(Get1NamedResource(abcd, Pascal("Bar")));
        found += shown(Get1IndResource(abcd, 1));
        found += shown(Get1Resource(typeNamed("LStr"), 200));
        found += std::to_string(Count1Resources(abcd)) + ",";
        Get1Resource(typeNamed("PICT"), 300); // a bitmap
        for (SInt16 id = 1000; id < 1070; ++id) // in memory only, and enough for the lists to grow
            addNew(id, "");
        UseResFile(text);
        found += shown(Get1Resource(abcd, 1));
        found += shown(Get1NamedResource(abcd, Pascal("Second")));
        CloseResFile(text);
        CloseResFile(module);
        return found;
    }

    std::string writeAll() const
    {
        prepare();
        openText();
        addNew(10, "New");
        if (Handle h = Get1Resource(abcd, 2)) {
            SetHandleSize(h, 7);
            WriteResource(h);
            RemoveResource(h);
            DisposeHandle(h);
        }
        std::string found = shown(Get1Resource(abcd, 1)) + std::to_string(Unique1ID(abcd));
        CloseResFile(1001);
        return found;
    }

    // Refuses one allocation after the other; the step is for kinds of which there are many alike.
    template <class Scenario> void sweep(Win32Allocation kind, DWORD step, Scenario scenario)
    {
        Win32Control_RefuseAllocations(kind, 0, 0, 0);
        std::string whole = scenario();
        DWORD total = Win32Control_AllocationsCounted(kind);
        Win32Control_Reset();
        ASSERT_GT(total, step);
        UInt64 usage = MEM_GetMemUsage();
        DWORD handles = Win32Control_OpenHandles();
        for (DWORD refused = 1; refused <= total; refused += step) {
            refuse(kind, refused);
            scenario();
            Win32Control_Reset();
            ASSERT_EQ(MEM_GetMemUsage(), usage) << "refused " << refused;
            ASSERT_EQ(Win32Control_OpenHandles(), handles) << "refused " << refused;
            ASSERT_EQ(scenario(), whole) << "refused " << refused;
        }
    }

    void prepare() const
    {
        folder_.write("r.txt", "[ABCD]\r\n1_Size=3\r\n1=6F6E6542\r\n2_Size=3\r\n2=74776F5A\r\n2_Name=Second\r\n"
                               "Name_Second=2\r\n");
    }
};

TEST_F(ResourceFaults, EveryRefusedAllocationOfReadingIsCleanAndTheNextCallWorks)
{
    prepare();
    EXPECT_EQ(readAll(), "second,third,first,english,9,one,two,");
    sweep(WIN32_ALLOCATION_C_HEAP, 1, [this] { return readAll(); });
    sweep(WIN32_ALLOCATION_LAYER, 3, [this] { return readAll(); });
}

TEST_F(ResourceFaults, EveryRefusedAllocationOfWritingIsCleanAndTheNextCallWorks)
{
    EXPECT_EQ(writeAll(), "one,128");
    sweep(WIN32_ALLOCATION_C_HEAP, 1, [this] { return writeAll(); });
    sweep(WIN32_ALLOCATION_LAYER, 50, [this] { return writeAll(); });
}

TEST_F(ResourceFaults, AShortageIsToldAndLeavesNoResource)
{
    SInt16 module = open(modulePath());
    for (DWORD refused = 1; refused <= 7; ++refused) {
        refuse(WIN32_ALLOCATION_C_HEAP, refused);
        Handle h = Get1Resource(abcd, 129);
        bool reached = Win32Control_AllocationsCounted(WIN32_ALLOCATION_C_HEAP) > refused;
        Win32Control_Reset();
        EXPECT_EQ(h == nullptr, reached);
        EXPECT_EQ(ResError(), reached ? OSErr{memFullErr} : OSErr{noErr}) << refused;
        if (h)
            ReleaseResource(h);
        CloseResFile(module);
        open(modulePath());
    }
}

TEST_F(ResourceFaults, AnEmptiedHandleWithoutRoomForItsDataStaysEmpty)
{
    open(modulePath());
    Handle h = Get1Resource(abcd, 129);
    EmptyHandle(h);
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 1, WIN32_WITHOUT_END, 0);
    EXPECT_EQ(Get1Resource(abcd, 129), h);
    EXPECT_EQ(ResError(), memFullErr);
    EXPECT_EQ(*h, nullptr);
    Win32Control_Reset();
    EXPECT_EQ(data(Get1Resource(abcd, 129)), "second");
}

TEST_F(ResourceFaults, AUniqueIDIsNoneThatOnlyLacksMemory)
{
    prepare();
    openText();
    AddResource(handleOf("x"), abcd, 128, Pascal());
    CloseResFile(1001);
    openText();
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 1, WIN32_WITHOUT_END, 0);
    EXPECT_EQ(Unique1ID(abcd), 129);
}

TEST_F(ResourceFaults, TheHostMayCloseTheFileWhileItMakesRoom)
{
    SetGrowZoneEx(growZone);
    prepare();
    for (bool isText : {false, true}) {
        for (DWORD refused = 1; refused <= 8; ++refused) {
            SInt16 file = isText ? openText() : open(modulePath());
            onGrowZone = [=, this] {
                CloseResFile(file);
                EXPECT_EQ(open(folder_.path("other.txt")), file) << "another one in its place";
            };
            refuse(WIN32_ALLOCATION_C_HEAP, refused);
            Handle h = Get1Resource(abcd, isText ? 2 : 129);
            bool reached = Win32Control_AllocationsCounted(WIN32_ALLOCATION_C_HEAP) > refused;
            Win32Control_Reset();
            EXPECT_EQ(h == nullptr, reached) << refused;
            CloseResFile(file);
        }
    }
}

TEST_F(ResourceFaults, TheHostMayGetTheSameResourceWhileItMakesRoom)
{
    SetGrowZoneEx(growZone);
    SInt16 module = open(modulePath());
    for (DWORD refused = 1; refused <= 8; ++refused) {
        Handle nested = nullptr;
        onGrowZone = [&] { nested = Get1Resource(abcd, 129); };
        refuse(WIN32_ALLOCATION_C_HEAP, refused);
        Handle h = Get1Resource(abcd, 129);
        Win32Control_Reset();
        EXPECT_EQ(data(h), "second");
        EXPECT_TRUE(!nested || nested == h) << "one handle for one resource";
        EXPECT_EQ(HomeResFile(h), module);
        CloseResFile(module);
        open(modulePath());
    }
}

TEST_F(ResourceFaults, AFailedWriteLeavesTheOldFile)
{
    prepare();
    openText();
    Handle h = Get1Resource(abcd, 2);
    std::string before = folder_.read("r.txt");
    memcpy(*h, "TWO", 3);
    for (DWORD failing = 1; failing <= 4; ++failing) {
        // The fourth write is that of the name, which is in the file already.
        Win32Control_FailCalls("WritePrivateProfileStringA", ERROR_DISK_FULL, failing, 1);
        WriteResource(h);
        Win32Control_Reset();
        EXPECT_EQ(ResError(), dskFulErr) << failing;
        EXPECT_EQ(folder_.read("r.txt"), before) << failing;
    }
    SetHandleSize(h, 2000);
    for (DWORD failing = 1; failing <= 4; ++failing) {
        Win32Control_FailCalls("WritePrivateProfileStringA", ERROR_WRITE_PROTECT, failing, 1);
        WriteResource(h);
        Win32Control_Reset();
        EXPECT_EQ(ResError(), wPrErr) << failing;
        EXPECT_EQ(folder_.read("r.txt"), before) << failing;
    }
    Handle added = handleOf("new");
    Win32Control_FailCalls("WritePrivateProfileStringA", ERROR_DISK_FULL, 3, 1);
    AddResource(added, abcd, 5, Pascal("Name"));
    Win32Control_Reset();
    EXPECT_EQ(folder_.read("r.txt"), before);
    EXPECT_EQ(Get1Resource(abcd, 5), added);
    WriteResource(added);
    EXPECT_EQ(ResError(), noErr);
}

TEST_F(ResourceFaults, AFailedRemovalLeavesTheResourceInTheFile)
{
    prepare();
    std::string before = folder_.read("r.txt");
    for (DWORD failing = 1; failing <= 4; ++failing) {
        openText();
        Handle h = Get1Resource(abcd, 2);
        Win32Control_FailCalls("WritePrivateProfileStringA", ERROR_DISK_FULL, failing, 1);
        RemoveResource(h);
        Win32Control_Reset();
        EXPECT_EQ(ResError(), dskFulErr);
        EXPECT_EQ(data(h), "two");
        DisposeHandle(h);
        EXPECT_EQ(data(Get1Resource(abcd, 2)), "two");
        std::string lines = folder_.read("r.txt");
        EXPECT_EQ(lines.size(), before.size()) << "the same lines, maybe in another order";
        CloseResFile(1001);
    }
}

TEST_F(ResourceFaults, AModuleThatShrinksUnderItsNamesIsReadToItsEnd)
{
    openCopy("m.dll");
    std::string path = folder_.path("m.dll").substr(2);
    std::replace(path.begin(), path.end(), '\\', '/');
    ASSERT_EQ(truncate(path.c_str(), 1000), 0);
    for (SInt16 id : {128, 129, 131})
        Get1Resource(abcd, id);
    Get1NamedResource(abcd, Pascal("Foo"));
    EXPECT_GT(Count1Resources(abcd), 0);
}

} // namespace
