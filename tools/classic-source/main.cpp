#include "commands.h"

#include <exception>
#include <iostream>

int main(int argc, char **argv)
{
    try {
        return classic::run({argv + 1, argv + argc}, std::cout, std::cerr);
    } catch (const std::exception &error) {
        std::cerr << "mtbx-classic-source: " << error.what() << '\n';
        return classic::exitFailed;
    }
}
