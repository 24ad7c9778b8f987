#include "recorder.h"

#include "kernel/code_pages.h"
#include "screen.h"
#include "user/watching.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>

namespace win32::screen {
namespace {

using Clock = std::chrono::steady_clock;

// One step is kept back, since the next may belong to it.
class Recorder {
public:
    explicit Recorder(FILE *file) : file_(file)
    {
        Step screen;
        screen.kind = Step::Kind::Screen;
        screen.text = modeText();
        write(screen);
    }

    void add(Step step)
    {
        std::lock_guard lock(mutex_);
        if (step.kind == Step::Kind::Move && isAt(step.point))
            return;
        int gap = gapSinceLast();
        if (hasKept_ && joins(step, gap))
            return;
        writeKept();
        if (isAction(step))
            writeFrontWindow();
        if (gap >= shortestWait)
            writeWait(gap);
        keep(std::move(step));
    }

    void addCharacter(char16_t unit)
    {
        std::lock_guard lock(mutex_);
        gapSinceLast();
        bool continues = hasKept_ && kept_.kind == Step::Kind::Type;
        if (!continues) {
            writeKept();
            Step step;
            step.kind = Step::Kind::Type;
            text_.clear();
            keep(std::move(step));
        }
        text_.push_back(unit);
        kept_.text = utf8FromUtf16(text_);
    }

    // At the end of the process.
    void finish()
    {
        std::lock_guard lock(mutex_);
        writeKept();
    }

private:
    static constexpr int shortestWait = 30, longestWait = 2000; // ms; nobody wants to see a person think
    static constexpr int longestStroke = 400;
    static constexpr int restOfMouse = 100;

    static bool isAction(const Step &step) { return step.kind != Step::Kind::Move && step.kind != Step::Kind::Release; }

    // Whether the mouse is there already; it is from now on.
    bool isAt(POINT point)
    {
        bool isThere = mouse_.x == point.x && mouse_.y == point.y;
        mouse_ = point;
        return isThere;
    }

    int gapSinceLast()
    {
        Clock::time_point now = Clock::now();
        auto gap = std::chrono::duration_cast<std::chrono::milliseconds>(now - last_).count();
        last_ = now;
        return static_cast<int>(std::min<long>(gap, longestWait));
    }

    // A mouse that goes somewhere with no button down leaves the place where it arrives. A key that is let go soon is
    // one stroke.
    bool joins(const Step &step, int gap)
    {
        bool movesOn =
            step.kind == Step::Kind::Move && kept_.kind == Step::Kind::Move && buttonsDown_ == 0 && gap < restOfMouse;
        if (movesOn) {
            kept_ = step;
            return true;
        }
        bool isStroke = step.kind == Step::Kind::KeyUp && kept_.kind == Step::Kind::KeyDown && kept_.keys == step.keys
                        && gap < longestStroke;
        if (isStroke)
            kept_.kind = Step::Kind::Key;
        return isStroke;
    }

    void keep(Step step)
    {
        if (step.kind == Step::Kind::Press)
            ++buttonsDown_;
        else if (step.kind == Step::Kind::Release && buttonsDown_ > 0)
            --buttonsDown_;
        kept_ = std::move(step);
        hasKept_ = true;
    }

    void writeFrontWindow()
    {
        std::string title = user::activeTitle();
        if (title.empty() || title == frontTitle_ || title.find('*') != std::string::npos)
            return;
        frontTitle_ = title;
        Step step;
        step.kind = Step::Kind::WaitWindow;
        step.text = title;
        write(step);
    }

    void writeWait(int milliseconds)
    {
        Step step;
        step.kind = Step::Kind::WaitTime;
        step.number = milliseconds / 10 * 10;
        write(step);
    }

    void writeKept()
    {
        if (std::exchange(hasKept_, false))
            write(kept_);
    }

    void write(const Step &step)
    {
        fprintf(file_, "%s\n", writeStep(step).c_str());
        fflush(file_);
    }

    std::mutex mutex_;
    FILE *file_;
    Clock::time_point last_ = Clock::now();
    Step kept_;
    bool hasKept_ = false;
    int buttonsDown_ = 0;
    POINT mouse_{-1, -1};
    std::u16string text_;
    std::string frontTitle_;
};

// Never destroyed: the display may bring input to the end of the process.
Recorder *recorder()
{
    static Recorder *made = []() -> Recorder * {
        const char *name = getenv("WIN32_RECORD");
        if (!name || !*name)
            return nullptr;
        FILE *file = fopen(name, "we");
        if (!file) {
            fprintf(stderr, "WIN32_RECORD: cannot write %s: %s\n", name, strerror(errno));
            return nullptr;
        }
        auto *result = new Recorder(file);
        atexit([] { recorder()->finish(); });
        return result;
    }();
    return made;
}

} // namespace

bool isRecording()
{
    return recorder() != nullptr;
}

void record(Step step)
{
    recorder()->add(std::move(step));
}

void noteCharacter(char16_t unit)
{
    if (isRecording())
        recorder()->addCharacter(unit);
}

} // namespace win32::screen
