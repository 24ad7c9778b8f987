// Profile text: whatever the file holds, changes are found again, nothing else changes, and what is
// written reads back as the same file.
#include "kernel/profile_file.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using win32::ProfileFile;

static void require(bool condition)
{
    if (!condition)
        abort();
}

// All that a program can read of a file, in one text.
static std::string everything(const ProfileFile &file)
{
    std::string result;
    file.eachSection([&](std::string_view section) {
        result.append("[").append(section).append("]");
        file.eachKey(section, [&](std::string_view key) {
            result.append(key).append("=").append(file.value(section, key)).append("\n");
        });
    });
    return result;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const std::string_view names[] = {"Zephant", "other", "k", "", " Name ", "a=b", "x\ny", "[z]"};
    if (size < 1)
        return 0;
    uint8_t choice = data[0];
    std::string_view content(reinterpret_cast<const char *>(data) + 1, size - 1);
    ProfileFile file(content);
    require(file.content() == content);
    std::string_view section = names[choice & 7], key = names[(choice >> 3) & 7];
    switch (choice >> 6) {
    case 0: file.removeKey(section, key); break;
    case 1: file.removeSection(section); break;
    default:
        file.setValue(section, key, "new value");
        if (!file.isStale())
            require(file.value(section, key) == "new value");
        break;
    }
    if (!file.isStale())
        require(everything(ProfileFile(file.content())) == everything(file));
    return 0;
}
