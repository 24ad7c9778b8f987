// Makes resource forks and the files in which they travel, byte by byte, independent of the code that reads them.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

struct ForkItem {
    std::string type; // four characters
    int id;
    std::string data;
    std::string name = {}; // empty: none
    int attributes = 0;
};

class ForkBuilder {
public:
    static std::string number(uint64_t value, int bytes)
    {
        std::string text;
        for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
            text += static_cast<char>(value >> shift);
        return text;
    }
    static std::string word(uint64_t value) { return number(value, 2); }
    static std::string longWord(uint64_t value) { return number(value, 4); }
    static std::string pascalString(const std::string &text) { return number(text.size(), 1) + text; }

    static std::string fork(const std::vector<ForkItem> &items)
    {
        constexpr uint64_t dataStart = 256, mapHeaderSize = 28;
        std::string data, names;
        std::vector<std::string> order;
        std::map<std::string, std::string> references;
        for (const ForkItem &item : items) {
            if (references.find(item.type) == references.end())
                order.push_back(item.type);
            std::string &list = references[item.type];
            list += word(static_cast<uint16_t>(item.id)) + word(item.name.empty() ? 0xffff : names.size());
            list += number(static_cast<unsigned>(item.attributes), 1) + number(data.size(), 3) + longWord(0);
            if (!item.name.empty())
                names += pascalString(item.name);
            data += longWord(item.data.size()) + item.data;
        }
        std::string types = word(order.size() - 1), lists;
        uint64_t listStart = 2 + order.size() * 8;
        for (const std::string &type : order) {
            types += type + word(references[type].size() / 12 - 1) + word(listStart + lists.size());
            lists += references[type];
        }
        std::string typeList = types + lists;
        std::string map = std::string(24, '\0') + word(mapHeaderSize) + word(mapHeaderSize + typeList.size());
        map += typeList + names;
        std::string header = longWord(dataStart) + longWord(dataStart + data.size());
        header += longWord(data.size()) + longWord(map.size());
        return header + std::string(dataStart - header.size(), '\0') + data + map;
    }

    static std::string appleDouble(const std::string &fork) { return apple(0x00051607, fork); }
    static std::string appleSingle(const std::string &fork) { return apple(0x00051600, fork); }

    static std::string macBinary(const std::string &fork, const std::string &dataFork)
    {
        std::string header(128, '\0');
        header.replace(1, 6, pascalString("Hello"));
        header.replace(65, 8, "APPLabcd");
        header.replace(83, 4, longWord(dataFork.size()));
        header.replace(87, 4, longWord(fork.size()));
        return header + inBlocks(dataFork) + inBlocks(fork);
    }

private:
    static std::string inBlocks(const std::string &text)
    {
        return text + std::string((128 - text.size() % 128) % 128, '\0');
    }

    // With an entry of Finder information before that of the fork.
    static std::string apple(uint64_t magic, const std::string &fork)
    {
        constexpr uint64_t headerSize = 26 + 2 * 12, informationSize = 32;
        std::string header = longWord(magic) + longWord(0x00020000) + std::string(16, '\0') + word(2);
        header += longWord(9) + longWord(headerSize) + longWord(informationSize);
        header += longWord(2) + longWord(headerSize + informationSize) + longWord(fork.size());
        return header + std::string(informationSize, 'f') + fork;
    }
};
