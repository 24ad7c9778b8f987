// Settings in a file of 1,000 keys in 20 sections, beside the least that any such call must do.
#include "pairs.h"

#include <windows.h>

#include <benchmark/benchmark.h>

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr int sections = 20;
constexpr int keysInSection = 50;

// A file of its own for each user, gone at the end of the program.
class ProfileFile {
public:
    ProfileFile()
    {
        char folder[MAX_PATH];
        GetTempPathA(sizeof folder, folder);
        path = folder + std::string("mtbx-bench.ini");
        for (int section = 0; section < sections; ++section) {
            for (int key = 0; key < keysInSection; ++key)
                WritePrivateProfileStringA(("Section" + std::to_string(section)).c_str(),
                                           ("Key" + std::to_string(key)).c_str(), std::to_string(key * section).c_str(),
                                           path.c_str());
        }
        native = path.substr(2);
        for (char &character : native)
            character = character == '\\' ? '/' : character;
    }
    ~ProfileFile() { remove(native.c_str()); }

    std::string path, native;
};

ProfileFile &profile()
{
    static ProfileFile file;
    return file;
}

void readOurs(benchmark::State &state)
{
    const char *path = profile().path.c_str();
    for (auto _ : state)
        benchmark::DoNotOptimize(GetPrivateProfileIntA("Section13", "Key37", 0, path));
}

void readReference(benchmark::State &state)
{
    const char *path = profile().native.c_str();
    struct stat status;
    for (auto _ : state)
        benchmark::DoNotOptimize(stat(path, &status));
}

void writeOurs(benchmark::State &state)
{
    const char *path = profile().path.c_str();
    const char *values[] = {"42", "43"};
    unsigned round = 0;
    for (auto _ : state)
        WritePrivateProfileStringA("Section13", "Key37", values[++round % 2], path);
}

// The file's bytes written to a new file that is renamed over the old one.
void writeReference(benchmark::State &state)
{
    std::string path = profile().native + ".reference", temporary = path + ".tmp", content(12000, 'x');
    for (auto _ : state) {
        FILE *file = fopen(temporary.c_str(), "wb");
        fwrite(content.data(), 1, content.size(), file);
        fclose(file);
        rename(temporary.c_str(), path.c_str());
    }
    remove(path.c_str());
}

[[maybe_unused]] const bool targets[] = {
    pairs::within("GetPrivateProfileIntA, 1000 keys / stat", 2000),
    pairs::within("WritePrivateProfileStringA, 1000 keys / rewrite", 150000),
};

BENCHMARK(readOurs)->Name("GetPrivateProfileIntA, 1000 keys / stat/ours");
BENCHMARK(readReference)->Name("GetPrivateProfileIntA, 1000 keys / stat/reference");
BENCHMARK(writeOurs)->Name("WritePrivateProfileStringA, 1000 keys / rewrite/ours");
BENCHMARK(writeReference)->Name("WritePrivateProfileStringA, 1000 keys / rewrite/reference");

} // namespace
