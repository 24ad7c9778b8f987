// Writes whole files for the cursor target to begin with: cursor_seed FOLDER
#include "CursorFiles.h"

#include <fstream>

int main(int, char **arguments)
{
    using namespace cursor_files;
    std::string folder = arguments[1];
    auto write = [&](const char *name, const std::string &bytes) { std::ofstream(folder + "/" + name, std::ios::binary) << bytes; };
    std::string small = file(2, {{picture(16, 8, 0x111111), 16, 1, 1}});
    write("picture8", picture(16, 8, 0x222222));
    write("picture32", picture(8, 32, 0x80222222));
    write("cursor", small);
    write("icon", file(1, {{picture(8, 24, 0x111111), 8, 1, 24}, {picture(16, 32, 0xFF222222), 16, 1, 32}}));
    write("animation", animation({small, small}, 6));
    return 0;
}
