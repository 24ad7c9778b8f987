#include "replay_player.h"

#include "injection.h"
#include "replay_script.h"
#include "replayed_program.h"
#include "title_pattern.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <new>

namespace win32::screen {
namespace {

using std::chrono::milliseconds;

// How long a step waits for the program to take in the one before. A program that looks at keys without reading its
// messages goes on then.
constexpr milliseconds settlingTime{100};

bool readFile(const std::string &path, std::string &content)
{
    FILE *file = fopen(path.c_str(), "rb");
    if (!file)
        return false;
    char buffer[4096];
    for (size_t count; (count = fread(buffer, 1, sizeof buffer, file)) > 0;)
        content.append(buffer, count);
    bool isRead = ferror(file) == 0;
    fclose(file);
    return isRead;
}

[[noreturn]] void endWith(const std::string &message, ReplayStatus status)
{
    fflush(stdout);
    fprintf(stderr, "%s\n", message.c_str());
    fflush(stderr);
    endProcess(status);
}

std::string place(const std::string &file, int line, const std::string &source)
{
    return file + ":" + std::to_string(line) + ": " + source + ": ";
}

std::filesystem::path currentFolder()
{
    std::error_code error;
    return std::filesystem::current_path(error);
}

// Why a step cannot be done.
struct Failure {
    std::string text;
};

bool isShown(const std::string &titlePattern)
{
    std::vector<std::string> titles = shownTitles();
    return std::any_of(titles.begin(), titles.end(),
                       [&](const std::string &title) { return matchesTitle(titlePattern, title); });
}

std::string listOfWindows()
{
    constexpr size_t most = 20;
    std::vector<std::string> titles = shownTitles();
    std::string list;
    for (size_t i = 0; i < titles.size() && i < most; ++i)
        list += (list.empty() ? "\"" : ", \"") + titles[i] + "\"";
    if (titles.size() > most)
        list += " and " + std::to_string(titles.size() - most) + " more";
    return list.empty() ? "there is none" : "there is " + list;
}

std::string colorText(COLORREF color)
{
    char text[8];
    snprintf(text, sizeof text, "%02x%02x%02x", GetRValue(color), GetGValue(color), GetBValue(color));
    return text;
}

std::basic_string<WCHAR> wideFromUtf8(const std::string &text)
{
    auto size = static_cast<int>(text.size());
    int count = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
    if (count == 0)
        throw Failure{"the text is not UTF-8"};
    std::basic_string<WCHAR> result(static_cast<size_t>(count), 0);
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), count);
    return result;
}

// A repeat whose steps are being played.
struct Loop {
    int round;
    int rounds;
};

class Player {
public:
    // The script has a step.
    Player(std::string file, Script script)
        : file_(std::move(file)), script_(std::move(script)), folder_(currentFolder())
    {
    }

    const Script &script() const { return script_; }

    void run()
    {
        for (size_t i = 0; i < script_.steps.size();) {
            const Step &step = script_.steps[i];
            isOnLast_ = isLast(i);
            current_ = &step;
            i = step.kind == Step::Kind::Repeat ? enter(step, i)
                : step.kind == Step::Kind::End  ? leave(step, i)
                                                : play(step, i);
        }
        current_ = nullptr;
    }

    // When the program ends by itself. The last step may be what made it end, and be over in a moment.
    void programEnds()
    {
        const Step *step = current_;
        if (step && step->kind == Step::Kind::Quit)
            return;
        if (isOnLast_)
            waitFor([&] { return current_.load() == nullptr; }, milliseconds(200));
        step = current_;
        if (step)
            endWith(place(file_, step->line, step->source) + "the program ended before this was done",
                    ReplayUnfinished);
    }

private:
    // Whether nothing will be done after a step.
    bool isLast(size_t index) const
    {
        auto loop = loops_.rbegin();
        for (size_t i = index + 1; i < script_.steps.size(); ++i, ++loop) {
            if (script_.steps[i].kind != Step::Kind::End || loop == loops_.rend() || loop->round != loop->rounds)
                return false;
        }
        return true;
    }

    // These give the step that comes next.
    size_t enter(const Step &repeat, size_t index)
    {
        loops_.push_back({1, repeat.number});
        return index + 1;
    }

    size_t leave(const Step &end, size_t index)
    {
        Loop &loop = loops_.back();
        if (loop.round++ < loop.rounds)
            return end.partner + 1;
        loops_.pop_back();
        return index + 1;
    }

    size_t play(const Step &step, size_t index)
    {
        try {
            play(step);
        } catch (const Failure &failure) {
            endWith(place(file_, step.line, step.source) + failure.text + roundText(), ReplayFailed);
        } catch (const std::bad_alloc &) {
            endWith(place(file_, step.line, step.source) + "out of memory", ReplayFailed);
        }
        return index + 1;
    }

    std::string roundText() const
    {
        std::string text;
        for (auto loop = loops_.rbegin(); loop != loops_.rend(); ++loop)
            text += (text.empty() ? " (round " : ", of round ") + std::to_string(loop->round) + " of "
                    + std::to_string(loop->rounds);
        return text.empty() ? text : text + ")";
    }

    void play(const Step &step)
    {
        switch (step.kind) {
        case Step::Kind::Screen: checkScreen(step.text); break;
        case Step::Kind::Limit: limit_ = std::chrono::seconds(step.number); break;
        case Step::Kind::WaitTime: std::this_thread::sleep_for(milliseconds(step.number)); break;
        case Step::Kind::WaitIdle:
            if (!waitForIdle(limit_))
                throw Failure{"the program is still busy after " + limitText()};
            break;
        case Step::Kind::WaitWindow:
            if (!waitFor([&] { return isShown(step.text); }, limit_))
                throw Failure{"no such window after " + limitText() + "; " + listOfWindows()};
            break;
        case Step::Kind::WaitGone:
            if (!waitFor([&] { return !isShown(step.text); }, limit_))
                throw Failure{"the window is still there after " + limitText()};
            break;
        case Step::Kind::Screenshot:
        case Step::Kind::ExpectPixel:
        case Step::Kind::ExpectFront:
        case Step::Kind::ExpectCount:
            waitForIdle(limit_);
            look(step);
            break;
        case Step::Kind::Quit: quit(); break;
        default: waitForIdle(settlingTime); inject(step);
        }
    }

    void look(const Step &step)
    {
        switch (step.kind) {
        case Step::Kind::Screenshot: saveScreenshot(step); break;
        case Step::Kind::ExpectPixel: checkPixel(step); break;
        case Step::Kind::ExpectFront: checkFront(step.text); break;
        case Step::Kind::ExpectCount: checkCount(step); break;
        default: break;
        }
    }

    void inject(const Step &step)
    {
        switch (step.kind) {
        case Step::Kind::Move: injectMove(step.point); break;
        case Step::Kind::Press: injectButton(step.button, Press::Down); break;
        case Step::Kind::Release: injectButton(step.button, Press::Up); break;
        case Step::Kind::Click:
            injectMove(step.point);
            click(step.button);
            break;
        case Step::Kind::DoubleClick:
            injectMove(step.point);
            click(step.button);
            waitForIdle(settlingTime);
            click(step.button);
            break;
        case Step::Kind::Wheel: injectWheel(step.number); break;
        case Step::Kind::Key: stroke(step.keys); break;
        case Step::Kind::KeyDown: injectKey(*step.keys.front(), Press::Down); break;
        case Step::Kind::KeyUp: injectKey(*step.keys.front(), Press::Up); break;
        case Step::Kind::Type: type(step.text); break;
        case Step::Kind::Close: injectClose(); break;
        default: break;
        }
    }

    // The program takes in the press before the button goes up, as it would from a hand.
    void click(MouseButton button)
    {
        waitForIdle(settlingTime);
        injectButton(button, Press::Down);
        waitForIdle(settlingTime);
        injectButton(button, Press::Up);
    }

    static void stroke(const std::vector<const Key *> &keys)
    {
        for (const Key *key : keys)
            injectKey(*key, Press::Down);
        for (size_t i = keys.size(); i > 0; --i)
            injectKey(*keys[i - 1], Press::Up);
    }

    static void typeUnit(char16_t unit)
    {
        constexpr int withShift = 0x100;
        int found = unit == '\n' ? VK_RETURN : unit < 0x7f ? VkKeyScanA(static_cast<CHAR>(unit)) : -1;
        bool needsOtherModifier = (found & ~(withShift | 0xff)) != 0; // as -1 does
        const Key *key = needsOtherModifier ? nullptr : keyOfVirtualKey(static_cast<BYTE>(found), false);
        bool isTurnedByLock = key && key->virtualKey >= 'A' && key->virtualKey <= 'Z' && isLockOn(VK_CAPITAL);
        if (!key)
            injectCharacter(unit);
        else if (((found & withShift) != 0) != isTurnedByLock)
            stroke({keyNamed("Shift"), key});
        else
            stroke({key});
    }

    static void type(const std::string &text)
    {
        std::basic_string<WCHAR> units = wideFromUtf8(text);
        constexpr size_t unitsAtOnce = 100; // the program's queue has an end
        for (size_t i = 0; i < units.size(); ++i) {
            if (i % unitsAtOnce == unitsAtOnce - 1)
                waitForIdle(settlingTime);
            typeUnit(static_cast<char16_t>(units[i]));
        }
    }

    static void checkScreen(const std::string &mode)
    {
        std::string problem = screenProblem(mode);
        if (!problem.empty())
            throw Failure{problem};
    }

    void saveScreenshot(const Step &step)
    {
        std::string path = (folder_ / step.text).string();
        errno = 0;
        if (!saveScreen(path, step.flag ? WithCursor::No : WithCursor::Yes))
            throw Failure{"cannot write " + path + (errno ? std::string(": ") + strerror(errno) : "")};
    }

    static void checkPixel(const Step &step)
    {
        std::optional<COLORREF> found = pixelAt(step.point);
        if (!found)
            throw Failure{"the pixel is not on the screen"};
        if (*found != step.color)
            throw Failure{"the pixel is " + colorText(*found)};
    }

    static void checkFront(const std::string &titlePattern)
    {
        std::string title = frontTitle();
        if (!matchesTitle(titlePattern, title))
            throw Failure{"in front is \"" + title + "\""};
    }

    static void checkCount(const Step &step)
    {
        std::vector<std::string> titles = shownTitles();
        auto count = std::count_if(titles.begin(), titles.end(),
                                   [&](const std::string &title) { return matchesTitle(step.text, title); });
        if (count != step.number)
            throw Failure{"the count is " + std::to_string(count) + "; " + listOfWindows()};
    }

    void quit()
    {
        waitForIdle(settlingTime);
        quitProgram();
        std::this_thread::sleep_for(limit_);
        throw Failure{"the program did not end within " + limitText()};
    }

    std::string limitText() const
    {
        auto seconds = limit_.count();
        return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
    }

    const std::string file_;
    const Script script_;
    const std::filesystem::path folder_; // where the process began
    std::chrono::seconds limit_{10};
    std::vector<Loop> loops_; // innermost last
    std::atomic<const Step *> current_{&script_.steps.front()};
    std::atomic<bool> isOnLast_{false};
};

std::unique_ptr<Player> load()
{
    const char *name = getenv("WIN32_REPLAY");
    if (!name || !*name)
        return nullptr;
    std::string text;
    errno = 0;
    if (!readFile(name, text))
        endWith(std::string("WIN32_REPLAY: cannot read ") + name + ": " + strerror(errno), ReplayUnreadable);
    Script script = readScript(text);
    if (!script.problem.empty())
        endWith(place(name, script.problemLine, script.problemSource) + script.problem, ReplayUnreadable);
    return script.steps.empty() ? nullptr : std::make_unique<Player>(name, std::move(script));
}

// Never destroyed: it plays until the process ends.
Player *player()
{
    static Player *loaded = load().release();
    return loaded;
}

void runInBackground()
{
    try {
        startPlayerThread([] { player()->run(); });
    } catch (const std::exception &error) {
        endWith(std::string("WIN32_REPLAY: cannot be played: ") + error.what(), ReplayUnreadable);
    }
}

} // namespace

std::string replayedScreenMode()
{
    Player *played = player();
    bool givesMode = played && played->script().steps.front().kind == Step::Kind::Screen;
    return givesMode ? played->script().steps.front().text : std::string();
}

void startReplay()
{
    static bool isStarted = [] {
        if (!player())
            return false;
        atexit([] { player()->programEnds(); });
        runInBackground();
        return true;
    }();
    static_cast<void>(isStarted);
}

} // namespace win32::screen
