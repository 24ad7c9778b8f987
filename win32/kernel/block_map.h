// The blocks that a heap has handed out, found by address, so that a foreign or freed pointer is
// known before anything behind it is read.
//
// Open addressing with linear probing; removal moves later entries back, so no tombstones
// collect and a look-up stays short however often blocks come and go.
#pragma once

#include <windows.h>

#include <memory>
#include <new>

namespace win32 {

class BlockMap {
public:
    struct Block {
        void *address;
        size_t size;
        HANDLE handle; // of a movable block; null for any other
    };

    // False when the map would have to grow and cannot; nothing is changed then.
    bool insert(const Block &block)
    {
        if ((used_ + 1) * 4 > capacity_ * 3 && !grow())
            return false;
        Block *slot = &blocks_[firstFreeSlot(block.address)];
        *slot = block;
        ++used_;
        return true;
    }

    Block *find(const void *address)
    {
        if (used_ == 0 || !address)
            return nullptr;
        for (size_t slot = home(address); blocks_[slot].address; slot = next(slot)) {
            if (blocks_[slot].address == address)
                return &blocks_[slot];
        }
        return nullptr;
    }

    // The block must be one that find gave.
    void remove(Block *block)
    {
        size_t hole = static_cast<size_t>(block - blocks_.get());
        for (size_t slot = next(hole); blocks_[slot].address; slot = next(slot)) {
            size_t wanted = home(blocks_[slot].address);
            bool staysBehindHole = ((slot - wanted) & (capacity_ - 1)) < ((slot - hole) & (capacity_ - 1));
            if (staysBehindHole)
                continue;
            blocks_[hole] = blocks_[slot];
            hole = slot;
        }
        blocks_[hole].address = nullptr;
        --used_;
    }

    template <class Visit> void forEach(Visit visit)
    {
        for (size_t slot = 0; slot < capacity_; ++slot) {
            if (blocks_[slot].address)
                visit(blocks_[slot]);
        }
    }

    size_t count() const { return used_; }

private:
    size_t home(const void *address) const
    {
        uint64_t mixed = (reinterpret_cast<uintptr_t>(address) >> 4) * 0x9e3779b97f4a7c15u;
        return static_cast<size_t>(mixed >> 32) & (capacity_ - 1);
    }

    size_t next(size_t slot) const { return (slot + 1) & (capacity_ - 1); }

    size_t firstFreeSlot(const void *address) const
    {
        size_t slot = home(address);
        while (blocks_[slot].address)
            slot = next(slot);
        return slot;
    }

    bool grow()
    {
        size_t capacity = capacity_ ? capacity_ * 2 : 64;
        std::unique_ptr<Block[]> blocks(new (std::nothrow) Block[capacity]());
        if (!blocks)
            return false;
        std::swap(blocks, blocks_);
        std::swap(capacity, capacity_);
        for (size_t slot = 0; slot < capacity; ++slot) {
            if (blocks[slot].address)
                blocks_[firstFreeSlot(blocks[slot].address)] = blocks[slot];
        }
        return true;
    }

    std::unique_ptr<Block[]> blocks_;
    size_t capacity_ = 0;
    size_t used_ = 0;
};

} // namespace win32
