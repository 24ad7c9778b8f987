// Writes a resource fork in each kind of file, for the search of the fork fuzzer to begin with.
#include "ForkBuilder.h"

#include <cstdio>

using namespace std::string_literals;

namespace {

bool write(const std::string &path, const std::string &content)
{
    FILE *file = fopen(path.c_str(), "wb");
    bool isWritten = file && fwrite(content.data(), 1, content.size(), file) == content.size();
    return file && fclose(file) == 0 && isWritten;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5)
        return 2;
    std::string rectangle = "\0\1\0\2\0\3\0\4"s;
    std::string fork = ForkBuilder::fork({
        {"STR ", 128, "\5Hello", "a name"},
        {"STR#", -5, "\0\2\3One\3Two"s},
        {"WIND", 1, rectangle + "\0\4\1\0\1\0\0\0\0\7\5Title"s, "window"},
        {"DITL", 2, "\0\1....\0\1\0\2\0\3\0\4\x04\3Yes\0....\0\1\0\2\0\3\0\4\xa0\2\0\x81"s},
        {"DLOG", 2, rectangle + "\0\1\1\0\0\0\0\0\0\0\0\2\1X"s},
        {"CNTL", 3, rectangle + "\0\5\1\0\0\7\0\6\0\0\0\0\0\0\2OK"s},
        {"CURS", 4, std::string(68, '\x55'), "", 1},
        {"MBAR", 5, "\0\1\0\x80"s},
        {"clut", 6, "\0\0\0\1\0\0\0\0\0\0\1\2\3\4\5\6"s},
    });
    bool isWritten = write(argv[1], fork) && write(argv[2], ForkBuilder::appleSingle(fork))
                     && write(argv[3], ForkBuilder::appleDouble(fork))
                     && write(argv[4], ForkBuilder::macBinary(fork, "data fork"));
    return isWritten ? 0 : 1;
}
