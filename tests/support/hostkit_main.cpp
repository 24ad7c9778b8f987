// Starts the host kit once for a whole test program: a main window takes seconds under Wine.
#include "HostKitTest.h"
#include "TemporaryFile.h"

namespace {

const TemporaryFile &settings()
{
    static TemporaryFile file("hostkit-tests");
    return file;
}

} // namespace

HostKitOptions testOptions()
{
    HostKitOptions options = {};
    options.title = "Tests";
    options.settingsFile = settings().path();
    options.width = 640;
    options.height = 520;
    return options;
}

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    constexpr UINT setDragFullWindows = 0x0025; // a window that moves is shown at each step
    SystemParametersInfoA(setDragFullWindows, TRUE, nullptr, 0);
    HostKitOptions options = testOptions();
    if (HostKitStart(&options) != noErr)
        return 1;
    int result = RUN_ALL_TESTS();
    HostKitStop();
    return result;
}
