// Handles and pointers as a host uses them.
#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

std::string contents(Handle h)
{
    return std::string(*h, static_cast<size_t>(GetHandleSize(h)));
}

Handle handleWith(const std::string &text)
{
    Handle h = nullptr;
    EXPECT_EQ(PtrToHand(text.data(), &h, static_cast<Size>(text.size())), noErr);
    return h;
}

// Fails the test when the blocks made in it are not all freed.
class MemoryManager : public testing::Test {
protected:
    void SetUp() override { before_ = MEM_GetMemUsage(); }
    void TearDown() override
    {
        gWin32S = 0;
        SetGrowZoneEx(nullptr);
        EXPECT_EQ(MEM_GetMemUsage(), before_);
    }

private:
    UInt64 before_ = 0;
};

TEST_F(MemoryManager, SizeZeroGivesAnEmptyHandleButARealPointer)
{
    for (Handle h : {NewHandle(0), NewHandleClear(0), NewEmptyHandle()}) {
        ASSERT_NE(h, nullptr);
        EXPECT_EQ(*h, nullptr);
        EXPECT_EQ(GetHandleSize(h), 0);
        DisposeHandle(h);
    }
    Ptr p = NewPtr(0);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(GetPtrSize(p), 0);
    DisposePtr(p);
}

TEST_F(MemoryManager, ClearCallsGiveZeroes)
{
    Handle handles[] = {NewHandleClear(5000), NewHandleClearDebug(5000, __FILE__, __LINE__),
                        NewHandleSysClearDebug(5000, __FILE__, __LINE__)};
    for (Handle h : handles) {
        EXPECT_EQ(contents(h), std::string(5000, '\0'));
        DisposeHandle(h);
    }
    for (Ptr p : {NewPtrClear(300), NewPtrClearDebug(300, __FILE__, __LINE__)}) {
        EXPECT_EQ(std::string(p, 300), std::string(300, '\0'));
        DisposePtr(p);
    }
}

TEST_F(MemoryManager, SetHandleSizeKeepsContentsAndMovesOnEveryRealChange)
{
    Handle h = handleWith("0123456789");
    Ptr before = *h;
    SetHandleSize(h, 10);
    EXPECT_EQ(*h, before) << "an equal size changes nothing";
    SetHandleSize(h, 4);
    EXPECT_NE(*h, before);
    EXPECT_EQ(contents(h), "0123");
    before = *h;
    SetHandleSize(h, 3000);
    EXPECT_NE(*h, before);
    EXPECT_EQ(contents(h).substr(0, 4), "0123");
    ReallocateHandle(h, 2);
    EXPECT_EQ(contents(h), "01");
    SetHandleSize(h, 0);
    EXPECT_EQ(*h, nullptr);
    SetHandleSize(h, 0);
    EXPECT_EQ(MemError(), noErr);
    SetHandleSize(h, 10);
    ASSERT_NE(*h, nullptr);
    EXPECT_EQ(GetHandleSize(h), 10);
    EmptyHandle(h);
    EXPECT_EQ(*h, nullptr);
    EmptyHandle(h);
    EXPECT_EQ(MemError(), noErr);
    DisposeHandle(h);
}

TEST_F(MemoryManager, DataIsAlignedAsTheCHeapAlignsIt)
{
    for (Size size = 1; size < 200; ++size) {
        Ptr p = NewPtr(size);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % (2 * sizeof(void *)), 0u);
        DisposePtr(p);
    }
}

TEST_F(MemoryManager, CopiesAreTheCallersOwn)
{
    Handle original = handleWith("contents");
    Handle copy = original;
    EXPECT_EQ(HandToHand(&copy), noErr);
    ASSERT_NE(copy, original);
    (*copy)[0] = 'C';
    EXPECT_EQ(contents(original), "contents");
    EXPECT_EQ(contents(copy), "Contents");
    DisposeHandle(copy);
    DisposeHandle(original);

    Handle empty = NewHandle(0);
    Handle copyOfEmpty = empty;
    EXPECT_EQ(HandToHand(&copyOfEmpty), noErr);
    EXPECT_NE(copyOfEmpty, empty);
    EXPECT_EQ(*copyOfEmpty, nullptr);
    DisposeHandle(empty);
    DisposeHandle(copyOfEmpty);

    char text[] = "abcdefgh";
    BlockMove(text, text + 2, 6);
    EXPECT_STREQ(text, "ababcdef");
}

TEST_F(MemoryManager, NullArgumentsSetTheDocumentedErrors)
{
    DisposeHandle(nullptr);
    EXPECT_EQ(MemError(), noErr);
    DisposePtr(nullptr);
    EXPECT_EQ(MemError(), -111);
    EXPECT_EQ(GetHandleSize(nullptr), 0);
    EXPECT_EQ(MemError(), -111) << "reading a size leaves the error";
    EmptyHandle(nullptr);
    EXPECT_EQ(MemError(), -109);
    SetHandleSizeDebug(nullptr, 10, __FILE__, __LINE__);
    EXPECT_EQ(MemError(), -111);
    Handle h = NewHandle(1);
    EXPECT_EQ(MemError(), noErr);
    HLock(nullptr);
    EXPECT_EQ(MemError(), -111);
    HLock(h);
    EXPECT_EQ(MemError(), -111) << "HLock does not clear the error";
    HUnlock(h);
    EXPECT_EQ(MemError(), noErr);
    HUnlock(nullptr);
    EXPECT_EQ(MemError(), -111);
    EXPECT_EQ(NewPtrSys(1), nullptr);
    Handle empty = NewEmptyHandle();
    EXPECT_EQ(MemError(), -111) << "NewEmptyHandle and the stubs leave it";
    DisposeHandle(empty);
    DisposeHandle(h);
}

TEST_F(MemoryManager, LockingAndPurgingChangeNothing)
{
    Handle h = handleWith("still here");
    Ptr before = *h;
    for (SInt8 state : {0x20, 0x40, -1}) {
        HSetState(h, state);
        EXPECT_EQ(HGetState(h), 0);
    }
    HPurge(h);
    MoveHHi(h);
    HLockHi(h);
    SInt32 total = 1, contiguous = 1;
    PurgeSpace(&total, &contiguous);
    EXPECT_EQ(total, 0);
    EXPECT_EQ(contiguous, 0);
    EXPECT_EQ(FreeMem(), 0);
    EXPECT_EQ(*h, before);
    EXPECT_EQ(contents(h), "still here");
    DisposeHandle(h);
}

TEST_F(MemoryManager, SmallMemoryModeRefusesLargeHandlesOnly)
{
    gWin32S = 1;
    DisposePtr(nullptr);
    EXPECT_EQ(NewHandle(0xFE0000), nullptr);
    EXPECT_EQ(MemError(), -111) << "the refusal leaves the error as it was";
    Handle h = NewHandle(0xFE0000 - 1);
    ASSERT_NE(h, nullptr);
    SetHandleSize(h, 0xFE0000);
    EXPECT_EQ(MemError(), noErr);
    SetHandleSize(h, 0xFE0001);
    EXPECT_EQ(MemError(), -108);
    EXPECT_EQ(GetHandleSize(h), 0xFE0000);
    DisposeHandle(h);
    Ptr p = NewPtr(0xFE0001);
    EXPECT_NE(p, nullptr);
    DisposePtr(p);
}

TEST_F(MemoryManager, NegativeSizeFailsWithoutPurging)
{
    static int calls;
    calls = 0;
    SetGrowZoneEx([](UInt64) -> SInt32 { return ++calls; });
    EXPECT_EQ(NewHandle(-1), nullptr);
    EXPECT_EQ(MemError(), -108);
    EXPECT_EQ(NewPtr(INT32_MIN), nullptr);
    EXPECT_EQ(MemError(), -108);
    Handle h = handleWith("abc");
    SetHandleSize(h, -5);
    EXPECT_EQ(MemError(), -108);
    EXPECT_EQ(contents(h), "abc");
    DisposeHandle(h);
    EXPECT_EQ(calls, 0);
}

TEST_F(MemoryManager, UsageCountsBlocksWithEightBytesEachAndNoHandles)
{
    UInt64 base = MEM_GetMemUsage();
    Ptr p = NewPtr(100);
    EXPECT_EQ(MEM_GetMemUsage(), base + 108);
    Handle h = NewHandle(100);
    EXPECT_EQ(MEM_GetMemUsage(), base + 216);
    SetHandleSize(h, 50);
    EXPECT_EQ(MEM_GetMemUsage(), base + 166);
    EmptyHandle(h);
    EXPECT_EQ(MEM_GetMemUsage(), base + 108);
    DisposeHandle(h);
    DisposePtr(p);
    EXPECT_EQ(MEM_GetMemUsage(), base);
}

// Random sizes against a plain model: the contents are the model's, and so is the usage.
TEST_F(MemoryManager, RandomChangesKeepEveryHandlesContents)
{
    constexpr unsigned seed = 20240611;
    std::mt19937 random(seed);
    std::vector<std::pair<Handle, std::string>> live;
    UInt64 base = MEM_GetMemUsage();
    for (int step = 0; step < 20000; ++step) {
        size_t which = live.empty() ? 0 : random() % live.size();
        Size size = static_cast<Size>(random() % (random() % 8 == 0 ? 20000 : 200));
        if (live.size() < 50 && random() % 3 == 0) {
            std::string text(static_cast<size_t>(size), static_cast<char>(random()));
            live.emplace_back(handleWith(text), text);
        } else if (!live.empty() && random() % 4 == 0) {
            DisposeHandle(live[which].first);
            live.erase(live.begin() + static_cast<ptrdiff_t>(which));
        } else if (!live.empty()) {
            auto &[h, text] = live[which];
            size_t oldSize = text.size();
            SetHandleSize(h, size);
            text.resize(static_cast<size_t>(size), static_cast<char>(step));
            if (text.size() > oldSize)
                memset(*h + oldSize, static_cast<char>(step), text.size() - oldSize);
            ASSERT_EQ(contents(h), text) << "seed " << seed << " step " << step;
        }
    }
    UInt64 expected = base;
    for (auto &[h, text] : live) {
        EXPECT_EQ(contents(h), text);
        expected += text.empty() ? 0 : text.size() + 8;
    }
    EXPECT_EQ(MEM_GetMemUsage(), expected);
    for (auto &[h, text] : live)
        DisposeHandle(h);
}

// A host's own heap class is reached through the exported functions.
class CountingHeap : public _MEMp_BasicHeap {
public:
    ~CountingHeap() override { ++destroyed; }
    Ptr NewPtr(Size, const char *name, const char *, SInt32 line) override
    {
        return note(name ? name : "NewPtr", line);
    }
    void DisposePtr(Ptr) override { note("DisposePtr"); }
    Size GetPtrSize(Ptr) override { return 11; }
    Ptr ResizePtr(Ptr, Size, const char *, const char *, SInt32) override { return note("ResizePtr"); }
    Handle NewHandle(Size, const char *, const char *, SInt32) override
    {
        note("NewHandle");
        return nullptr;
    }
    Size GetHandleSize(Handle) override { return 22; }
    void DisposeHandle(Handle) override { note("DisposeHandle"); }
    SInt32 SetHandleSize(Handle, Size, const char *, const char *, SInt32) override { return 4; }
    SInt32 CheckHandleFromHeap(Handle) override { return 1; }
    SInt32 ExemptPtrFromLeakCheck(Ptr) override { return 2; }
    SInt32 ExemptHandleFromLeakCheck(Handle) override { return 3; }
    void SetBaseline() override { note("SetBaseline"); }
    void Report(SInt32 what) override { note("Report", what); }
    void DumpLeaks() override { note("DumpLeaks"); }

    static inline int destroyed = 0;
    std::vector<std::string> calls;

private:
    Ptr note(const char *call, SInt32 number = 0)
    {
        calls.push_back(call + std::to_string(number));
        return nullptr;
    }
};

TEST_F(MemoryManager, HeapFunctionsForwardToTheHeapTheyAreGiven)
{
    auto heap = new CountingHeap;
    MEM_NewPtr(heap, 1);
    MEM_NewPtrDebug(heap, 1, "named", __FILE__, 7);
    MEM_ResizePtr(heap, nullptr, 1);
    MEM_DisposePtr(heap, nullptr);
    MEM_NewHandle(heap, 1);
    MEM_DisposeHandle(heap, nullptr);
    MEM_SetBaseline(heap);
    MEM_Report(heap, 5);
    MEM_DumpLeaks(heap);
    std::vector<std::string> expected = {"NewPtr0",        "named7",       "ResizePtr0", "DisposePtr0", "NewHandle0",
                                         "DisposeHandle0", "SetBaseline0", "Report5",    "DumpLeaks0"};
    EXPECT_EQ(heap->calls, expected);
    EXPECT_EQ(MEM_GetPtrSize(heap, nullptr), 11);
    EXPECT_EQ(MEM_GetHandleSize(heap, nullptr), 22);
    EXPECT_EQ(MEM_SetHandleSize(heap, nullptr, 1), 4);
    EXPECT_EQ(MEM_CheckHandleFromHeap(heap, nullptr), 1);
    EXPECT_EQ(MEM_ExemptPtrFromLeakCheck(heap, nullptr), 2);
    EXPECT_EQ(MEM_ExemptHandleFromLeakCheck(heap, nullptr), 3);
    MEM_DisposeHeap(heap);
    EXPECT_EQ(CountingHeap::destroyed, 1);
}

TEST_F(MemoryManager, HeapObjectsCountFourBytesAndOutliveTheirBlocks)
{
    UInt64 base = MEM_GetMemUsage();
    MEM_HeapRef heap = MEM_NewHeap();
    EXPECT_EQ(MEM_GetMemUsage(), base + 4);
    Ptr p = MEM_ResizePtr(heap, nullptr, 20);
    EXPECT_EQ(MEM_GetMemUsage(), base + 4 + 28) << "a null pointer gives a new block";
    memcpy(p, "kept", 4);
    p = MEM_ResizePtrDebug(heap, p, 100000, "name", __FILE__, __LINE__);
    EXPECT_EQ(std::string(p, 4), "kept");
    EXPECT_EQ(MEM_GetPtrSize(heap, p), 100000);
    EXPECT_EQ(MEM_GetMemUsage(), base + 4 + 100008);
    EXPECT_EQ(MEM_SetHandleSize(heap, nullptr, 0), 0);
    EXPECT_EQ(MEM_CheckHandleFromHeap(heap, nullptr), 0);
    MEM_DisposeHeap(heap);
    MEM_DisposeHeap(nullptr);
    EXPECT_EQ(MEM_GetMemUsage(), base + 100008);
    DisposePtr(p);
}

} // namespace
