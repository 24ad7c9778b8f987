// The one heap class of the library: blocks of the C heap with a header, counted.
#pragma once

#include <mtbx/MTBXMemory.h>

#include <cstdlib>

// The figures that all heaps share, in one place so that a usage query costs a few loads.
struct MEMp_Account {
    UInt64 heapTotal; // bytes in the blocks of all heaps and in the heap objects themselves
    SInt64 accounted; // native memory that was declared, never below 0
    UInt64 softLimit;
    UInt64 hardLimit;

    SInt64 usage() const { return static_cast<SInt64>(heapTotal) + accounted; }
};

extern MEMp_Account memoryAccount;

// Ahead of each block's data. Its size keeps the data aligned as the C heap aligns blocks.
struct MEMp_BlockHeader {
    UInt32 logicalSize;
    _MEMp_BasicHeap *owner;
};
static_assert(sizeof(MEMp_BlockHeader) == 2 * sizeof(void *));

class MEMp_StandardHeap final : public _MEMp_BasicHeap {
public:
    // What a block and a heap object count for beyond the bytes asked for, on all platforms.
    static constexpr UInt32 accountedHeader = 8;
    static constexpr UInt32 accountedHeap = 4;

    constexpr MEMp_StandardHeap() = default;
    ~MEMp_StandardHeap() override;

    Ptr NewPtr(Size byteCount, const char *name, const char *file, SInt32 line) override;
    void DisposePtr(Ptr p) override;
    Size GetPtrSize(Ptr p) override;
    Ptr ResizePtr(Ptr p, Size byteCount, const char *name, const char *file, SInt32 line) override;
    Handle NewHandle(Size byteCount, const char *name, const char *file, SInt32 line) override;
    Size GetHandleSize(Handle h) override;
    void DisposeHandle(Handle h) override;
    SInt32 SetHandleSize(Handle h, Size byteCount, const char *name, const char *file, SInt32 line) override;
    SInt32 CheckHandleFromHeap(Handle h) override;
    SInt32 ExemptPtrFromLeakCheck(Ptr p) override;
    SInt32 ExemptHandleFromLeakCheck(Handle h) override;
    void SetBaseline() override;
    void Report(SInt32 what) override;
    void DumpLeaks() override;

    // Cleared memory is asked for as such: the C heap has large blocks of it at no cost.
    enum class Contents { Undefined, Cleared };

    // The work of NewPtr and DisposePtr, in line for the calls that every program makes most.
    Ptr makeBlock(Size byteCount, Contents contents = Contents::Undefined)
    {
        if (byteCount < 0)
            return nullptr;
        auto size = static_cast<UInt32>(byteCount);
        size_t wholeSize = size + sizeof(MEMp_BlockHeader);
        auto header =
            static_cast<MEMp_BlockHeader *>(contents == Contents::Cleared ? calloc(1, wholeSize) : malloc(wholeSize));
        if (!header)
            return nullptr;
        header->logicalSize = size;
        header->owner = this;
        memoryAccount.heapTotal += UInt64{size} + accountedHeader;
        return reinterpret_cast<Ptr>(header + 1);
    }

    static void freeBlock(Ptr p)
    {
        if (!p)
            return;
        MEMp_BlockHeader *header = headerOf(p);
        memoryAccount.heapTotal -= UInt64{header->logicalSize} + accountedHeader;
        free(header);
    }

    Handle makeHandle(Size byteCount, Contents contents = Contents::Undefined)
    {
        auto cell = static_cast<Handle>(malloc(sizeof(Ptr)));
        if (!cell)
            return nullptr;
        *cell = nullptr;
        if (byteCount == 0)
            return cell;
        *cell = makeBlock(byteCount, contents);
        if (*cell)
            return cell;
        free(cell);
        return nullptr;
    }

    static void freeHandle(Handle h)
    {
        if (!h)
            return;
        freeBlock(*h);
        free(h);
    }

    static MEMp_BlockHeader *headerOf(Ptr p) { return reinterpret_cast<MEMp_BlockHeader *>(p) - 1; }
};
