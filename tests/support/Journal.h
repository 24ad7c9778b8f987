// Collects the journal's records while the object lives.
#pragma once

#include <jrnl/jrnl.h>

#include <string>
#include <vector>

class Journal {
public:
    struct Record {
        int level;
        std::string channel, subject, text;
        bool operator==(const Record &) const = default;
    };

    Journal()
    {
        JRNL_SetReceiver(
            [](int level, const char *channel, const char *subject, const char *text, void *context) {
                static_cast<Journal *>(context)->records.push_back({level, channel, subject, text});
            },
            this);
    }
    ~Journal() { JRNL_SetReceiver(nullptr, nullptr); }
    Journal(const Journal &) = delete;
    Journal &operator=(const Journal &) = delete;

    std::vector<Record> records;
};
