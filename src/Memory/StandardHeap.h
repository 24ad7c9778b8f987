// The one heap class of the library: blocks of the C heap with a header, counted.
#pragma once

#include <mtbx/MTBXMemory.h>

#include <cstdlib>

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

    static MEMp_BlockHeader *headerOf(Ptr p) { return reinterpret_cast<MEMp_BlockHeader *>(p) - 1; }
};

// Bytes in the blocks of all heaps and in the heap objects themselves.
extern UInt64 heapTotal;
