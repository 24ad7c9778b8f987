#include "profile_file.h"

#include "kernel_internal.h"

#include <cstring>

namespace win32 {
namespace {

constexpr std::string_view utf8Mark = "\xef\xbb\xbf";

bool isBlankCharacter(char character)
{
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

std::string_view withoutBlanks(std::string_view text)
{
    while (!text.empty() && isBlankCharacter(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlankCharacter(text.back()))
        text.remove_suffix(1);
    return text;
}

// Whether texts written as a section's name, a key and a value are read back as these.
bool isReadBack(std::string_view section, std::string_view key, std::string_view value)
{
    bool sectionStands = section.find_first_of("\r\n") == std::string_view::npos;
    bool keyStands =
        !key.empty() && key.find_first_of("=\r\n") == std::string_view::npos && key[0] != ';' && key[0] != '[';
    return sectionStands && keyStands && value.find_first_of("\r\n") == std::string_view::npos;
}

} // namespace

size_t FoldedHash::operator()(std::string_view text) const
{
    size_t hash = 14695981039346656037u;
    for (char character : text)
        hash = (hash ^ static_cast<unsigned char>(lowerAscii(character))) * 1099511628211u;
    return hash;
}

bool FoldedEqual::operator()(std::string_view left, std::string_view right) const
{
    if (left.size() != right.size())
        return false;
    for (size_t place = 0; place < left.size(); ++place) {
        if (lowerAscii(left[place]) != lowerAscii(right[place]))
            return false;
    }
    return true;
}

bool ProfileFile::Line::isComment() const
{
    return withoutBlanks(text).starts_with(';');
}

bool ProfileFile::Line::isBlank() const
{
    return withoutBlanks(text).empty();
}

ProfileFile::ProfileFile(std::string_view content)
{
    if (content.starts_with(utf8Mark)) {
        mark_ = utf8Mark;
        content.remove_prefix(utf8Mark.size());
    }
    size_t firstEnd = content.find('\n');
    if (firstEnd != std::string_view::npos && (firstEnd == 0 || content[firstEnd - 1] != '\r'))
        lineEnd_ = "\n";
    sections_.emplace_back();
    while (!content.empty()) {
        size_t end = content.find('\n');
        std::string_view text = content.substr(0, end == std::string_view::npos ? end : end + 1);
        content.remove_prefix(text.size());
        std::string_view name;
        if (readHeader(text, name)) {
            Section &section = sections_.emplace_back();
            section.name = name;
            section.header = text;
        } else {
            addLine(sections_.back(), readLine(text));
        }
    }
    indexSections();
}

bool ProfileFile::readHeader(std::string_view text, std::string_view &name)
{
    std::string_view trimmed = withoutBlanks(text);
    if (!trimmed.starts_with('['))
        return false;
    size_t close = trimmed.rfind(']');
    if (close == std::string_view::npos)
        return false;
    name = withoutBlanks(trimmed.substr(1, close - 1));
    return true;
}

ProfileFile::Line ProfileFile::readLine(std::string_view text)
{
    Line line;
    line.text = text;
    size_t equals = text.find('=');
    if (equals == std::string_view::npos || withoutBlanks(text).starts_with(';'))
        return line;
    std::string_view key = withoutBlanks(text.substr(0, equals));
    std::string_view value = withoutBlanks(text.substr(equals + 1));
    line.keyBegin = static_cast<size_t>(key.data() - text.data());
    line.keyLength = key.size();
    line.valueBegin = static_cast<size_t>(value.data() - text.data());
    line.valueLength = value.size();
    return line;
}

void ProfileFile::addLine(Section &section, Line line)
{
    if (line.isAssignment())
        section.lineOfKey.try_emplace(std::string(line.key()), section.lines.size());
    section.lines.push_back(std::move(line));
}

void ProfileFile::indexKeys(Section &section)
{
    section.lineOfKey.clear();
    for (size_t place = 0; place < section.lines.size(); ++place) {
        if (section.lines[place].isAssignment())
            section.lineOfKey.try_emplace(std::string(section.lines[place].key()), place);
    }
}

void ProfileFile::indexSections()
{
    sectionOfName_.clear();
    for (size_t place = 0; place < sections_.size(); ++place)
        sectionOfName_.try_emplace(sections_[place].name, place);
}

const ProfileFile::Section *ProfileFile::find(std::string_view section) const
{
    auto found = sectionOfName_.find(withoutBlanks(section));
    return found == sectionOfName_.end() ? nullptr : &sections_[found->second];
}

std::string_view ProfileFile::value(std::string_view section, std::string_view key) const
{
    const Section *found = find(section);
    if (!found)
        return {};
    auto line = found->lineOfKey.find(withoutBlanks(key));
    return line == found->lineOfKey.end() ? std::string_view() : found->lines[line->second].value();
}

// A file may end without a line end; what is added behind its last line needs one.
void ProfileFile::endLastLine()
{
    Section &last = sections_.back();
    std::string &text = last.lines.empty() ? last.header : last.lines.back().text;
    if (text.ends_with('\r'))
        text += '\n';
    else if (!text.empty() && !text.ends_with('\n'))
        text += lineEnd_;
}

ProfileFile::Section &ProfileFile::findOrAdd(std::string_view section)
{
    auto found = sectionOfName_.find(section);
    if (found != sectionOfName_.end())
        return sections_[found->second];
    Section &added = sections_.emplace_back();
    added.name = section;
    added.header.append("[").append(section).append("]").append(lineEnd_);
    sectionOfName_.try_emplace(added.name, sections_.size() - 1);
    return added;
}

void ProfileFile::setValue(std::string_view sectionName, std::string_view key, std::string_view value)
{
    sectionName = withoutBlanks(sectionName);
    key = withoutBlanks(key);
    stale_ |= !isReadBack(sectionName, key, value);
    endLastLine();
    Section &section = findOrAdd(sectionName);
    auto existing = section.lineOfKey.find(key);
    if (existing != section.lineOfKey.end()) {
        Line &line = section.lines[existing->second];
        std::string text(line.text, 0, line.keyBegin + line.keyLength);
        text.append("=").append(value).append(lineEnd_);
        line = readLine(text);
        return;
    }
    // Behind the last line with text, so that blank lines go on parting the sections.
    size_t place = section.lines.size();
    while (place > 0 && section.lines[place - 1].isBlank())
        --place;
    std::string text;
    text.append(key).append("=").append(value).append(lineEnd_);
    section.lineOfKey.try_emplace(std::string(key), place);
    section.lines.insert(section.lines.begin() + static_cast<ptrdiff_t>(place), readLine(text));
}

void ProfileFile::removeKey(std::string_view sectionName, std::string_view key)
{
    auto found = sectionOfName_.find(withoutBlanks(sectionName));
    if (found == sectionOfName_.end())
        return;
    Section &section = sections_[found->second];
    auto existing = section.lineOfKey.find(withoutBlanks(key));
    if (existing == section.lineOfKey.end())
        return;
    section.lines.erase(section.lines.begin() + static_cast<ptrdiff_t>(existing->second));
    indexKeys(section);
}

void ProfileFile::removeSection(std::string_view sectionName)
{
    auto found = sectionOfName_.find(withoutBlanks(sectionName));
    if (found == sectionOfName_.end())
        return;
    size_t place = found->second;
    std::vector<Line> &lines = sections_[place].lines;
    if (place == 0) {
        std::erase_if(lines, [](const Line &line) { return line.isAssignment(); });
        indexKeys(sections_[0]);
        return;
    }
    size_t kept = lines.size();
    while (kept > 0 && (lines[kept - 1].isComment() || lines[kept - 1].isBlank()))
        --kept;
    while (kept < lines.size() && lines[kept].isBlank())
        ++kept;
    bool isLast = place + 1 == sections_.size();
    std::vector<Line> &before = sections_[place - 1].lines;
    if (!isLast)
        before.insert(before.end(), lines.begin() + static_cast<ptrdiff_t>(kept), lines.end());
    sections_.erase(sections_.begin() + static_cast<ptrdiff_t>(place));
    indexSections();
}

std::string ProfileFile::content() const
{
    std::string result = mark_;
    for (const Section &section : sections_) {
        result += section.header;
        for (const Line &line : section.lines)
            result += line.text;
    }
    return result;
}

} // namespace win32
