// Replays: any text is either refused with a reason and its line, or its steps are written and read again as the same.
#include "screen/replay_script.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using namespace win32::screen;

static void require(bool condition)
{
    if (!condition)
        abort();
}

static std::string written(const Script &script)
{
    std::string text;
    for (const Step &step : script.steps)
        text += writeStep(step) + "\n";
    return text;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Script script = readScript({reinterpret_cast<const char *>(data), size});
    if (!script.problem.empty()) {
        require(script.problemLine > 0);
        return 0;
    }
    std::string text = written(script);
    Script again = readScript(text);
    require(again.problem.empty() && again.steps.size() == script.steps.size());
    require(written(again) == text);
    for (size_t i = 0; i < script.steps.size(); ++i) {
        const Step &one = script.steps[i], &other = again.steps[i];
        require(one.kind == other.kind && one.text == other.text && one.keys == other.keys
                && one.number == other.number);
        require(one.point.x == other.point.x && one.point.y == other.point.y && one.color == other.color);
        require(one.button == other.button && one.flag == other.flag);
    }
    return 0;
}
