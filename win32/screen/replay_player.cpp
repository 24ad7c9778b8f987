#include "replay_player.h"

#include "injection.h"
#include "kernel/code_pages.h"
#include "picture.h"
#include "replay_script.h"
#include "screen.h"
#include "user/input.h"
#include "user/watching.h"

#include <climits>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>

namespace win32::screen {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds lookInterval{2};
// How long a step waits for the program to take in the one before. A program that looks at keys and buttons without
// reading its messages goes on then.
constexpr milliseconds settlingTime{100};

bool readFile(const std::string &path, std::string &content)
{
    FILE *file = fopen(path.c_str(), "re");
    if (!file)
        return false;
    char buffer[4096];
    for (size_t count; (count = fread(buffer, 1, sizeof buffer, file)) > 0;)
        content.append(buffer, count);
    bool isRead = ferror(file) == 0;
    fclose(file);
    return isRead;
}

// Ends the process at once: the program's own threads may be anywhere.
[[noreturn]] void endProcess(const std::string &message, ReplayStatus status)
{
    fflush(stdout);
    fprintf(stderr, "%s\n", message.c_str());
    _exit(status);
}

std::string place(const std::string &file, int line, const std::string &source)
{
    return file + ":" + std::to_string(line) + ": " + source + ": ";
}

std::string currentFolder()
{
    char path[PATH_MAX];
    return getcwd(path, sizeof path) ? path : "";
}

// Why a step cannot be done.
struct Failure {
    std::string text;
};

template <class Condition> bool waitFor(Condition isMet, milliseconds longest)
{
    for (Clock::time_point end = Clock::now() + longest; !isMet();) {
        if (Clock::now() >= end)
            return false;
        std::this_thread::sleep_for(lookInterval);
    }
    return true;
}

bool waitForIdle(milliseconds longest)
{
    user::IdleWatch watch;
    return waitFor([&] { return watch.isIdle(); }, longest);
}

std::string listOfWindows()
{
    std::string list;
    for (const std::string &title : user::shownTitles())
        list += (list.empty() ? "\"" : ", \"") + title + "\"";
    return list.empty() ? "there is none" : "there is " + list;
}

std::string colorText(COLORREF color)
{
    char text[8];
    snprintf(text, sizeof text, "%02x%02x%02x", GetRValue(color), GetGValue(color), GetBValue(color));
    return text;
}

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
        for (const Step &step : script_.steps) {
            current_ = &step;
            try {
                play(step);
            } catch (const Failure &failure) {
                endProcess(place(file_, step.line, step.source) + failure.text, ReplayFailed);
            } catch (const std::bad_alloc &) {
                endProcess(place(file_, step.line, step.source) + "out of memory", ReplayFailed);
            }
        }
        current_ = nullptr;
    }

    // When the program ends by itself. The last step may be what made it end, and be over in a moment.
    void programEnds()
    {
        const Step *last = &script_.steps.back();
        waitFor([&] { return current_.load() == nullptr; }, current_ == last ? milliseconds(200) : milliseconds(0));
        const Step *step = current_;
        if (step && step->kind != Step::Kind::Quit)
            endProcess(place(file_, step->line, step->source) + "the program ended before this was done",
                       ReplayUnfinished);
    }

private:
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
            if (!waitFor([&] { return user::isWindowShown(step.text); }, limit_))
                throw Failure{"no such window after " + limitText() + "; " + listOfWindows()};
            break;
        case Step::Kind::WaitGone:
            if (!waitFor([&] { return !user::isWindowShown(step.text); }, limit_))
                throw Failure{"the window is still there after " + limitText()};
            break;
        case Step::Kind::Screenshot:
            waitForIdle(limit_);
            saveScreenshot(step);
            break;
        case Step::Kind::ExpectPixel:
            waitForIdle(limit_);
            checkPixel(step);
            break;
        case Step::Kind::Quit: quit(); break;
        default: waitForIdle(settlingTime); inject(step);
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
        constexpr short withShift = 0x100;
        SHORT found = unit == '\n' ? SHORT{VK_RETURN} : unit < 0x7f ? VkKeyScanA(static_cast<CHAR>(unit)) : SHORT{-1};
        const Key *key = found == -1 ? nullptr : keyOfVirtualKey(static_cast<BYTE>(found), false);
        bool isTurnedByLock = key && key->virtualKey >= 'A' && key->virtualKey <= 'Z' && user::isToggled(VK_CAPITAL);
        if (!key)
            injectCharacter(unit);
        else if (((found & withShift) != 0) != isTurnedByLock)
            stroke({keyNamed("Shift"), key});
        else
            stroke({key});
    }

    static void type(const std::string &text)
    {
        std::u16string units;
        if (!utf16FromUtf8(text, units))
            throw Failure{"the text is not UTF-8"};
        constexpr size_t unitsAtOnce = 100; // the program's queue has an end
        for (size_t i = 0; i < units.size(); ++i) {
            if (i % unitsAtOnce == unitsAtOnce - 1)
                waitForIdle(settlingTime);
            typeUnit(units[i]);
        }
    }

    static void checkScreen(const std::string &mode)
    {
        if (!isScreenMode(mode))
            throw Failure{"the screen is " + modeText() + "; WIN32_SCREEN chooses another"};
    }

    void saveScreenshot(const Step &step)
    {
        std::string path = step.text.front() == '/' ? step.text : folder_ + "/" + step.text;
        Size size = screenSize();
        errno = 0;
        if (!savePicture(path, {0, 0, size.width, size.height}, step.flag ? WithCursor::No : WithCursor::Yes))
            throw Failure{"cannot write " + path + (errno ? std::string(": ") + strerror(errno) : "")};
    }

    static void checkPixel(const Step &step)
    {
        gdi::Surface surface = surfaceNow();
        bool isInside =
            step.point.x >= 0 && step.point.y >= 0 && step.point.x < surface.width && step.point.y < surface.height;
        if (!isInside)
            throw Failure{"the pixel is not on the screen"};
        COLORREF found = gdi::colorOf(surface, gdi::readPixel(surface, step.point.x, step.point.y));
        if (found != step.color)
            throw Failure{"the pixel is " + colorText(found)};
    }

    void quit()
    {
        waitForIdle(settlingTime);
        user::quitThreadsWithWindows();
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
    const std::string folder_; // where the process began
    std::chrono::seconds limit_{10};
    std::atomic<const Step *> current_{&script_.steps.front()};
};

std::unique_ptr<Player> load()
{
    const char *name = getenv("WIN32_REPLAY");
    if (!name || !*name)
        return nullptr;
    std::string text;
    errno = 0;
    if (!readFile(name, text))
        endProcess(std::string("WIN32_REPLAY: cannot read ") + name + ": " + strerror(errno), ReplayUnreadable);
    Script script = readScript(text);
    if (!script.problem.empty())
        endProcess(place(name, script.problemLine, script.problemSource) + script.problem, ReplayUnreadable);
    return script.steps.empty() ? nullptr : std::make_unique<Player>(name, std::move(script));
}

// Never destroyed: it plays until the process ends.
Player *player()
{
    static Player *loaded = load().release();
    return loaded;
}

void runInBackground(Player *played)
{
    // Signals are the program's threads' business.
    sigset_t all, old;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &old);
    try {
        std::thread([played] { played->run(); }).detach();
    } catch (const std::exception &error) {
        endProcess(std::string("WIN32_REPLAY: cannot be played: ") + error.what(), ReplayUnreadable);
    }
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
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
        Player *played = player();
        if (!played)
            return false;
        atexit([] { player()->programEnds(); });
        runInBackground(played);
        return true;
    }();
    static_cast<void>(isStarted);
}

} // namespace win32::screen
