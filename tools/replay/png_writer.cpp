#include "png_writer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

namespace replay {
namespace {

using Bytes = std::vector<uint8_t>;

constexpr std::array<uint32_t, 256> crcTable()
{
    std::array<uint32_t, 256> table{};
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = value >> 1 ^ (value & 1 ? 0xedb88320 : 0);
        table[i] = value;
    }
    return table;
}

uint32_t crc(const uint8_t *bytes, size_t count)
{
    static constexpr std::array<uint32_t, 256> table = crcTable();
    uint32_t value = ~0u;
    for (size_t i = 0; i < count; ++i)
        value = value >> 8 ^ table[(value ^ bytes[i]) & 0xff];
    return ~value;
}

uint32_t adler(const Bytes &bytes)
{
    uint32_t low = 1, high = 0;
    for (uint8_t byte : bytes) {
        low = (low + byte) % 65521;
        high = (high + low) % 65521;
    }
    return high << 16 | low;
}

void addBigEndian(Bytes &bytes, uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<uint8_t>(value >> shift));
}

// Deflate with the fixed codes and matches at distance 1 only: runs of a byte, which rows less the row above are.
class RunDeflater {
public:
    Bytes deflated(const Bytes &source)
    {
        addBits(1, 1); // the last block
        addBits(1, 2); // with the fixed codes
        for (size_t place = 0; place < source.size();) {
            size_t run = runAt(source, place);
            if (run < shortestMatch) {
                addSymbol(source[place++]);
            } else {
                addMatch(static_cast<int>(run));
                place += run;
            }
        }
        addSymbol(endOfBlock);
        if (bitCount_ > 0)
            result_.push_back(static_cast<uint8_t>(bits_));
        return std::move(result_);
    }

private:
    static constexpr int endOfBlock = 256, shortestMatch = 3, longestMatch = 258;

    // How many bytes are the same as the one before.
    static size_t runAt(const Bytes &source, size_t place)
    {
        size_t end = std::min(source.size(), place + longestMatch), next = place;
        while (place > 0 && next < end && source[next] == source[place - 1])
            ++next;
        return next - place;
    }

    // The lowest bit first.
    void addBits(unsigned value, int count)
    {
        bits_ |= value << bitCount_;
        for (bitCount_ += count; bitCount_ >= 8; bitCount_ -= 8, bits_ >>= 8)
            result_.push_back(static_cast<uint8_t>(bits_));
    }

    // The highest bit first.
    void addCode(unsigned code, int count)
    {
        while (count-- > 0)
            addBits(code >> count & 1, 1);
    }

    void addSymbol(int symbol)
    {
        auto code = static_cast<unsigned>(symbol);
        if (symbol < 144)
            addCode(0x30 + code, 8);
        else if (symbol < 256)
            addCode(0x190 + code - 144, 9);
        else if (symbol < 280)
            addCode(code - 256, 7);
        else
            addCode(0xc0 + code - 280, 8);
    }

    // Symbols come in groups of four, each group with a bit more behind it; the longest match has one of its own.
    void addMatch(int length)
    {
        constexpr int firstSymbol = 257, longestSymbol = 285;
        int rest = length - shortestMatch, extraBits = 0;
        while (rest >> extraBits >= 8)
            ++extraBits;
        int symbol = firstSymbol + 4 * extraBits + (rest >> extraBits);
        if (length == longestMatch) {
            addSymbol(longestSymbol);
        } else {
            addSymbol(symbol);
            addBits(static_cast<unsigned>(rest & ((1 << extraBits) - 1)), extraBits);
        }
        addCode(0, 5); // distance 1
    }

    Bytes result_;
    unsigned bits_ = 0;
    int bitCount_ = 0;
};

// Each row less the one above, behind the byte that says so.
Bytes filtered(int width, int height, const Bytes &rgb)
{
    constexpr uint8_t lessAbove = 2;
    size_t rowSize = static_cast<size_t>(width) * 3;
    Bytes result;
    result.reserve((rowSize + 1) * static_cast<size_t>(height));
    for (size_t i = 0; i < rowSize * static_cast<size_t>(height); ++i) {
        if (i % rowSize == 0)
            result.push_back(lessAbove);
        result.push_back(static_cast<uint8_t>(rgb[i] - (i < rowSize ? 0 : rgb[i - rowSize])));
    }
    return result;
}

void addChunk(Bytes &file, const char (&type)[5], const Bytes &content)
{
    addBigEndian(file, static_cast<uint32_t>(content.size()));
    size_t start = file.size();
    file.insert(file.end(), type, type + 4);
    file.insert(file.end(), content.begin(), content.end());
    addBigEndian(file, crc(file.data() + start, file.size() - start));
}

Bytes pngFile(int width, int height, const Bytes &rgb)
{
    Bytes rows = filtered(width, height, rgb);
    Bytes compressed{0x78, 0x01};
    Bytes deflated = RunDeflater().deflated(rows);
    compressed.insert(compressed.end(), deflated.begin(), deflated.end());
    addBigEndian(compressed, adler(rows));

    Bytes header;
    addBigEndian(header, static_cast<uint32_t>(width));
    addBigEndian(header, static_cast<uint32_t>(height));
    header.insert(header.end(), {8, 2, 0, 0, 0}); // 8 bits each of red, green and blue

    Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    addChunk(file, "IHDR", header);
    addChunk(file, "IDAT", compressed);
    addChunk(file, "IEND", {});
    return file;
}

} // namespace

bool writePng(const std::string &path, int width, int height, const Bytes &rgb)
{
    Bytes content = pngFile(width, height, rgb);
    FILE *file = fopen(path.c_str(), "wb");
    if (!file)
        return false;
    bool isWritten = fwrite(content.data(), 1, content.size(), file) == content.size();
    isWritten = fclose(file) == 0 && isWritten;
    if (!isWritten) {
        remove(path.c_str());
        errno = ENOSPC;
    }
    return isWritten;
}

} // namespace replay
