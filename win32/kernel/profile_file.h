// The text of a profile file: sections of "key=value" lines, found by name without regard to
// case. Lines that are no assignment keep their place and their bytes.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace win32 {

// Names are matched without regard to the case of the letters A to Z.
struct FoldedHash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const;
};

struct FoldedEqual {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const;
};

class ProfileFile {
public:
    explicit ProfileFile(std::string_view content = {});

    // Blanks around names do not count, in the file and in the arguments. Lines above all sections are
    // those of the section with an empty name.

    // The value behind the first assignment to the key in the first section of the name, without the
    // blanks around it. A null data pointer when there is none.
    std::string_view value(std::string_view section, std::string_view key) const;

    // Calls visit with each section name that is not empty, or each key of a section, in the order of the
    // file.
    template <class Visit> void eachSection(Visit visit) const
    {
        for (const Section &section : sections_) {
            if (!section.name.empty())
                visit(std::string_view(section.name));
        }
    }

    template <class Visit> void eachKey(std::string_view section, Visit visit) const
    {
        const Section *found = find(section);
        for (size_t place = 0; found && place < found->lines.size(); ++place) {
            if (found->lines[place].isAssignment())
                visit(found->lines[place].key());
        }
    }

    void setValue(std::string_view section, std::string_view key, std::string_view value);
    void removeKey(std::string_view section, std::string_view key);
    // Comments at the end of the section stay: they stand above the next section and belong to it.
    void removeSection(std::string_view section);

    std::string content() const;

    // A text with a line end or a bracket in it makes another structure than the one kept here; the
    // content then has to be read anew.
    bool isStale() const { return stale_; }

private:
    struct Line {
        std::string text; // with its line end
        size_t keyBegin = 0;
        size_t keyLength = 0; // 0: not an assignment
        size_t valueBegin = 0;
        size_t valueLength = 0;

        bool isAssignment() const { return keyLength > 0; }
        bool isComment() const;
        bool isBlank() const;
        std::string_view key() const { return std::string_view(text).substr(keyBegin, keyLength); }
        std::string_view value() const { return std::string_view(text).substr(valueBegin, valueLength); }
    };

    using NameIndex = std::unordered_map<std::string, size_t, FoldedHash, FoldedEqual>;

    struct Section {
        std::string name;
        std::string header; // the line with the name, with its line end
        std::vector<Line> lines;
        NameIndex lineOfKey;
    };

    static Line readLine(std::string_view text);
    static bool readHeader(std::string_view text, std::string_view &name);
    void addLine(Section &section, Line line);
    void indexKeys(Section &section);
    void indexSections();
    void endLastLine();
    const Section *find(std::string_view section) const;
    Section &findOrAdd(std::string_view section);

    std::string_view lineEnd_ = "\r\n"; // of the file's first line
    std::string mark_;                  // the UTF-8 mark, if the file begins with one
    std::vector<Section> sections_;     // the first has no header and no name
    NameIndex sectionOfName_;
    bool stale_ = false;
};

} // namespace win32
