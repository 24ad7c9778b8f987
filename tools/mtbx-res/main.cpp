#include "commands.h"
#include "diagnostics.h"
#include "native_path.h"

#include <iostream>
#include <new>

int main(int argc, char **argv)
{
    tool::preparePlatform();
    try {
        int code = tool::run({argv + 1, argv + argc}, std::cout, std::cerr);
        std::cout.flush();
        if (!std::cout) {
            std::cerr << "mtbx-res: the output cannot be written\n";
            return tool::exitFailed;
        }
        return code;
    } catch (const std::bad_alloc &) {
        std::cerr << "mtbx-res: there is not enough memory\n";
        return tool::exitFailed;
    }
}
