// Big-endian fields of a file's bytes; every read is checked against the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace forks {

using Bytes = std::span<const std::byte>;

// A part of a file that knows its place in it, so that errors can name the place.
class ByteView {
public:
    ByteView() = default;
    explicit ByteView(Bytes file) : bytes_(file) {}

    uint64_t size() const { return bytes_.size(); }
    Bytes bytes() const { return bytes_; }
    // The place in the file of an offset in this part.
    uint64_t placeOf(uint64_t offset) const { return place_ + offset; }

    std::optional<ByteView> part(uint64_t offset, uint64_t size) const
    {
        if (offset > bytes_.size() || size > bytes_.size() - offset)
            return std::nullopt;
        return ByteView(bytes_.subspan(static_cast<size_t>(offset), static_cast<size_t>(size)), place_ + offset);
    }

    // From an offset to the end.
    std::optional<ByteView> from(uint64_t offset) const
    {
        return offset <= bytes_.size() ? part(offset, bytes_.size() - offset) : std::nullopt;
    }

    std::optional<uint8_t> byte(uint64_t offset) const { return number<uint8_t, 1>(offset); }
    std::optional<uint16_t> word(uint64_t offset) const { return number<uint16_t, 2>(offset); }
    std::optional<uint32_t> triple(uint64_t offset) const { return number<uint32_t, 3>(offset); }
    std::optional<uint32_t> longWord(uint64_t offset) const { return number<uint32_t, 4>(offset); }

private:
    ByteView(Bytes bytes, uint64_t place) : bytes_(bytes), place_(place) {}

    template <class Number, size_t count> std::optional<Number> number(uint64_t offset) const
    {
        auto found = part(offset, count);
        if (!found)
            return std::nullopt;
        Number value = 0;
        for (std::byte byte : found->bytes())
            value = static_cast<Number>(value << 8 | std::to_integer<Number>(byte));
        return value;
    }

    Bytes bytes_;
    uint64_t place_ = 0;
};

} // namespace forks
