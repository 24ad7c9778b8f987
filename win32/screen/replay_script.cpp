#include "replay_script.h"

#include <charconv>
#include <iterator>

namespace win32::screen {
namespace {

// What stands behind the words of a step.
enum class Argument : uint8_t { None, Point, Button, Number, Color, Text, Key, Chord, CursorFlag };

struct Form {
    Step::Kind kind;
    const char *words;
    const char *form; // all of it, for messages
    Argument arguments[2];
    int least; // of a number
    int most;
};

constexpr int longestWait = 600000;
constexpr int mostRounds = 100000;
constexpr Form forms[] = {
    {Step::Kind::Screen, "screen", "screen WIDTHxHEIGHTxDEPTH", {Argument::Text}, 0, 0},
    {Step::Kind::Limit, "limit", "limit SECONDS", {Argument::Number}, 1, 3600},
    {Step::Kind::Move, "move", "move X Y", {Argument::Point}, 0, 0},
    {Step::Kind::Press, "press", "press [left | right | middle]", {Argument::Button}, 0, 0},
    {Step::Kind::Release, "release", "release [left | right | middle]", {Argument::Button}, 0, 0},
    {Step::Kind::Click, "click", "click X Y [left | right | middle]", {Argument::Point, Argument::Button}, 0, 0},
    {Step::Kind::DoubleClick,
     "doubleclick",
     "doubleclick X Y [left | right | middle]",
     {Argument::Point, Argument::Button},
     0,
     0},
    {Step::Kind::Wheel, "wheel", "wheel NOTCHES", {Argument::Number}, -100, 100},
    {Step::Kind::Key, "key", "key [MODIFIER+...]KEY", {Argument::Chord}, 0, 0},
    {Step::Kind::KeyDown, "keydown", "keydown KEY", {Argument::Key}, 0, 0},
    {Step::Kind::KeyUp, "keyup", "keyup KEY", {Argument::Key}, 0, 0},
    {Step::Kind::Type, "type", "type \"TEXT\"", {Argument::Text}, 0, 0},
    {Step::Kind::WaitIdle, "wait idle", "wait idle", {}, 0, 0},
    {Step::Kind::WaitWindow, "wait window", "wait window \"TITLE\"", {Argument::Text}, 0, 0},
    {Step::Kind::WaitGone, "wait gone", "wait gone \"TITLE\"", {Argument::Text}, 0, 0},
    {Step::Kind::WaitTime,
     "wait",
     "wait MILLISECONDS, wait idle, wait window \"TITLE\" or wait gone \"TITLE\"",
     {Argument::Number},
     0,
     longestWait},
    {Step::Kind::Screenshot,
     "screenshot",
     "screenshot NAME.png [nocursor]",
     {Argument::Text, Argument::CursorFlag},
     0,
     0},
    {Step::Kind::ExpectPixel, "expect pixel", "expect pixel X Y RRGGBB", {Argument::Point, Argument::Color}, 0, 0},
    {Step::Kind::ExpectFront, "expect front", "expect front \"TITLE\"", {Argument::Text}, 0, 0},
    {Step::Kind::ExpectCount,
     "expect count",
     "expect count NUMBER \"TITLE\"",
     {Argument::Number, Argument::Text},
     0,
     mostRounds},
    {Step::Kind::Repeat, "repeat", "repeat NUMBER", {Argument::Number}, 1, mostRounds},
    {Step::Kind::End, "end", "end", {}, 0, 0},
    {Step::Kind::Close, "close", "close", {}, 0, 0},
    {Step::Kind::Quit, "quit", "quit", {}, 0, 0},
};
constexpr const char *buttonNames[] = {"left", "right", "middle"};

struct Word {
    std::string text;
    bool isQuoted = false;
};

// What is wrong with a line; thrown within this file only.
struct Problem {
    std::string text;
};

std::string quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\r';
}

char meantBy(char escaped)
{
    switch (escaped) {
    case 'n': return '\n';
    case 't': return '\t';
    case '"':
    case '\\': return escaped;
    default: throw Problem{"\"\\" + std::string(1, escaped) + "\" is not among \\n, \\t, \\\" and \\\\"};
    }
}

Word quotedWord(std::string_view line, size_t &place)
{
    Word word{"", true};
    for (++place; place < line.size(); ++place) {
        char character = line[place];
        if (character == '"') {
            ++place;
            if (place < line.size() && !isBlank(line[place]))
                throw Problem{"a blank is missing behind the quotation"};
            return word;
        }
        if (character == '\\' && place + 1 < line.size())
            character = meantBy(line[++place]);
        word.text.push_back(character);
    }
    throw Problem{"the quotation has no end"};
}

std::vector<Word> wordsOf(std::string_view line)
{
    std::vector<Word> words;
    size_t place = 0;
    for (;;) {
        while (place < line.size() && isBlank(line[place]))
            ++place;
        if (place == line.size() || line[place] == '#')
            return words;
        if (line[place] == '"') {
            words.push_back(quotedWord(line, place));
            continue;
        }
        size_t end = place;
        while (end < line.size() && !isBlank(line[end]))
            ++end;
        words.push_back({std::string(line.substr(place, end - place))});
        place = end;
    }
}

bool isTitle(Step::Kind kind)
{
    return kind == Step::Kind::WaitWindow || kind == Step::Kind::WaitGone || kind == Step::Kind::ExpectFront
           || kind == Step::Kind::ExpectCount;
}

// Reads one line by its form.
class StepReader {
public:
    explicit StepReader(std::vector<Word> words) : words_(std::move(words)) {}

    Step read()
    {
        form_ = findForm();
        Step step;
        step.kind = form_->kind;
        for (Argument argument : form_->arguments)
            readArgument(step, argument);
        if (place_ < words_.size())
            throw Problem{quoted(words_[place_].text) + " is too much; expected: " + form_->form};
        return step;
    }

private:
    const Form *findForm()
    {
        for (const Form &form : forms) {
            size_t count = matchingWords(form.words);
            if (count == 0)
                continue;
            place_ = count;
            return &form;
        }
        const std::string &first = words_.front().text;
        if (!words_.front().isQuoted && first == "expect")
            throw Problem{"expected: expect pixel X Y RRGGBB, expect front \"TITLE\" or expect count NUMBER \"TITLE\""};
        throw Problem{quoted(first) + " is no step"};
    }

    // How many words of the line are those of the form; 0 unless all are.
    size_t matchingWords(std::string_view expected) const
    {
        size_t count = 0;
        while (!expected.empty()) {
            size_t length = expected.find(' ');
            if (count == words_.size() || words_[count].isQuoted || words_[count].text != expected.substr(0, length))
                return 0;
            ++count;
            expected = length == std::string_view::npos ? std::string_view() : expected.substr(length + 1);
        }
        return count;
    }

    const Word &next()
    {
        if (place_ == words_.size())
            throw Problem{std::string("expected: ") + form_->form};
        return words_[place_++];
    }

    int nextNumber(int least, int most)
    {
        const std::string &text = next().text;
        int number = 0;
        auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error == std::errc::invalid_argument || end != text.data() + text.size())
            throw Problem{quoted(text) + " is no number; expected: " + form_->form};
        if (error != std::errc() || number < least || number > most)
            throw Problem{text + " is not between " + std::to_string(least) + " and " + std::to_string(most)};
        return number;
    }

    MouseButton nextButton()
    {
        if (place_ == words_.size())
            return MouseButton::Left;
        const std::string &text = next().text;
        for (size_t i = 0; i < std::size(buttonNames); ++i) {
            if (text == buttonNames[i])
                return static_cast<MouseButton>(i);
        }
        throw Problem{quoted(text) + " is no button; expected: " + form_->form};
    }

    COLORREF nextColor()
    {
        const std::string &text = next().text;
        unsigned value = 0;
        auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
        if (text.size() != 6 || error != std::errc() || end != text.data() + text.size())
            throw Problem{quoted(text) + " is no colour of six digits; expected: " + form_->form};
        return RGB(value >> 16, value >> 8 & 0xff, value & 0xff);
    }

    static const Key *keyOf(std::string_view name)
    {
        const Key *key = keyNamed(name);
        return key ? key : throw Problem{quoted(name) + " is no key"};
    }

    void readChord(Step &step)
    {
        std::string_view text = next().text;
        for (;;) {
            size_t plus = text.find('+');
            step.keys.push_back(keyOf(text.substr(0, plus)));
            if (plus == std::string_view::npos)
                return;
            if (!isModifier(*step.keys.back()))
                throw Problem{quoted(step.keys.back()->name)
                              + " is no modifier; they are Ctrl, Shift, Alt and the right ones"};
            text.remove_prefix(plus + 1);
        }
    }

    void readArgument(Step &step, Argument argument)
    {
        constexpr int farthest = 32767;
        switch (argument) {
        case Argument::None: break;
        case Argument::Point:
            step.point.x = nextNumber(-farthest, farthest);
            step.point.y = nextNumber(-farthest, farthest);
            break;
        case Argument::Button: step.button = nextButton(); break;
        case Argument::Number: step.number = nextNumber(form_->least, form_->most); break;
        case Argument::Color: step.color = nextColor(); break;
        case Argument::Text:
            step.text = next().text;
            if (step.text.empty() && !isTitle(step.kind))
                throw Problem{std::string("the text is empty; expected: ") + form_->form};
            break;
        case Argument::Key: step.keys.push_back(keyOf(next().text)); break;
        case Argument::Chord: readChord(step); break;
        case Argument::CursorFlag:
            step.flag = place_ < words_.size() && words_[place_].text == "nocursor";
            place_ += step.flag;
            break;
        }
    }

    std::vector<Word> words_;
    size_t place_ = 0;
    const Form *form_ = nullptr;
};

void checkPlace(const Step &step, const std::vector<Step> &before, bool isInLoop)
{
    if (step.kind == Step::Kind::End && !isInLoop)
        throw Problem{"there is no repeat to end"};
    if (!before.empty() && before.back().kind == Step::Kind::Quit)
        throw Problem{"nothing can follow quit"};
    if (step.kind == Step::Kind::Screen && !before.empty())
        throw Problem{"the screen can be given by the first step only"};
}

// Ties a repeat and its end together. open: the repeats that have none yet, innermost last.
void tieLoop(std::vector<Step> &steps, std::vector<size_t> &open)
{
    size_t last = steps.size() - 1;
    if (steps[last].kind == Step::Kind::Repeat) {
        open.push_back(last);
    } else if (steps[last].kind == Step::Kind::End) {
        steps[last].partner = open.back();
        steps[open.back()].partner = last;
        open.pop_back();
    }
}

std::string_view trimmed(std::string_view line)
{
    while (!line.empty() && isBlank(line.front()))
        line.remove_prefix(1);
    while (!line.empty() && isBlank(line.back()))
        line.remove_suffix(1);
    return line;
}

std::string escaped(std::string_view text)
{
    std::string result = "\"";
    for (char character : text) {
        if (character == '\n' || character == '\t' || character == '"' || character == '\\')
            result.push_back('\\');
        result.push_back(character == '\n' ? 'n' : character == '\t' ? 't' : character);
    }
    return result + "\"";
}

void writeArgument(std::string &result, const Step &step, Argument argument)
{
    char color[8];
    switch (argument) {
    case Argument::None: break;
    case Argument::Point: result += " " + std::to_string(step.point.x) + " " + std::to_string(step.point.y); break;
    case Argument::Button: result += std::string(" ") + buttonNames[static_cast<int>(step.button)]; break;
    case Argument::Number: result += " " + std::to_string(step.number); break;
    case Argument::Color:
        snprintf(color, sizeof color, "%02x%02x%02x", GetRValue(step.color), GetGValue(step.color),
                 GetBValue(step.color));
        result += std::string(" ") + color;
        break;
    case Argument::Text: result += " " + escaped(step.text); break;
    case Argument::Key:
    case Argument::Chord:
        for (size_t i = 0; i < step.keys.size(); ++i)
            result += (i ? "+" : " ") + std::string(step.keys[i]->name);
        break;
    case Argument::CursorFlag: result += step.flag ? " nocursor" : ""; break;
    }
}

} // namespace

Script readScript(std::string_view text)
{
    Script script;
    std::vector<size_t> open;
    int number = 0;
    while (!text.empty()) {
        size_t length = text.find('\n');
        std::string_view line = trimmed(text.substr(0, length));
        text = length == std::string_view::npos ? std::string_view() : text.substr(length + 1);
        ++number;
        try {
            std::vector<Word> words = wordsOf(line);
            if (words.empty())
                continue;
            Step step = StepReader(std::move(words)).read();
            checkPlace(step, script.steps, !open.empty());
            step.line = number;
            step.source = line;
            script.steps.push_back(std::move(step));
            tieLoop(script.steps, open);
        } catch (const Problem &problem) {
            script.problem = problem.text;
            script.problemLine = number;
            script.problemSource = line;
            return script;
        }
    }
    if (!open.empty()) {
        const Step &step = script.steps[open.back()];
        script.problem = "the repeat has no end";
        script.problemLine = step.line;
        script.problemSource = step.source;
    }
    return script;
}

std::string writeStep(const Step &step)
{
    for (const Form &form : forms) {
        if (form.kind != step.kind)
            continue;
        std::string result = form.words;
        for (Argument argument : form.arguments)
            writeArgument(result, step, argument);
        return result;
    }
    return {};
}

} // namespace win32::screen
