// Answers the message boxes of this thread while the object lives, and keeps what they said.
#pragma once

#include <deque>
#include <ostream>
#include <string>
#include <vector>

class MessageBoxes {
public:
    struct Box {
        std::string title, text;
        bool operator==(const Box &) const = default;
        friend void PrintTo(const Box &box, std::ostream *out) { *out << box.title << ": " << box.text; }
    };

    // The answers, such as IDNO, of the boxes to come; IDOK for further ones.
    explicit MessageBoxes(std::deque<int> answers = {});
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes &) = delete;
    MessageBoxes &operator=(const MessageBoxes &) = delete;

    std::vector<Box> shown;
    std::deque<int> answers;
};
