// The File Manager beside the plain system calls for the same work.
#include "pairs.h"

#include <mtbx/MTBX.h>

#include <benchmark/benchmark.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr SInt32 fileSize = 64 << 20;
constexpr SInt32 pieceSize = 4096;
constexpr SInt32 largePiece = 1 << 20;

// A folder below the temporary one, gone at the end of the program.
class Workplace {
public:
    Workplace()
    {
        char name[] = "/tmp/mtbx-bench-XXXXXX";
        native = mkdtemp(name);
    }
    ~Workplace()
    {
        std::string command = "rm -rf '" + native + "'";
        if (system(command.c_str()) != 0)
            fprintf(stderr, "could not remove %s\n", native.c_str());
    }

    std::string win32(const std::string &name) const
    {
        std::string path = "Z:" + native + (name.empty() ? "" : "/" + name);
        for (char &character : path)
            character = character == '/' ? '\\' : character;
        return path;
    }

    std::string native;
};

Workplace &workplace()
{
    static Workplace place;
    return place;
}

const std::string &largeFile()
{
    static const std::string path = [] {
        std::string made = workplace().native + "/large";
        std::vector<char> content(static_cast<size_t>(fileSize), 'x');
        FILE *file = fopen(made.c_str(), "wb");
        fwrite(content.data(), 1, content.size(), file);
        fclose(file);
        return made;
    }();
    return path;
}

std::vector<SInt32> randomOffsets()
{
    std::mt19937 random(3);
    std::vector<SInt32> offsets(4096);
    for (SInt32 &offset : offsets)
        offset = static_cast<SInt32>(random() % (fileSize - pieceSize));
    return offsets;
}

SInt16 openOurs()
{
    largeFile();
    Str255 path;
    std::string text = workplace().win32("large");
    path[0] = static_cast<unsigned char>(text.size());
    memcpy(path + 1, text.data(), text.size());
    SInt16 file = 0;
    MTBX_FSOpen(path, 0, false, &file);
    return file;
}

void randomReadsOurs(benchmark::State &state)
{
    static const std::vector<SInt32> offsets = randomOffsets();
    static char buffer[pieceSize];
    SInt16 file = openOurs();
    size_t step = 0;
    for (auto _ : state) {
        SInt32 count = pieceSize;
        SetFPos(file, fsFromStart, offsets[step++ % offsets.size()]);
        if (FSRead(file, &count, buffer) != noErr)
            state.SkipWithError("read failed");
    }
    FSClose(file);
}

void randomReadsReference(benchmark::State &state)
{
    static const std::vector<SInt32> offsets = randomOffsets();
    static char buffer[pieceSize];
    int file = open(largeFile().c_str(), O_RDONLY);
    size_t step = 0;
    for (auto _ : state) {
        if (pread(file, buffer, pieceSize, offsets[step++ % offsets.size()]) != pieceSize)
            state.SkipWithError("read failed");
    }
    close(file);
}

void sequentialReadsOurs(benchmark::State &state)
{
    static std::vector<char> buffer(largePiece);
    SInt16 file = openOurs();
    for (auto _ : state) {
        SInt32 count = largePiece;
        if (FSRead(file, &count, buffer.data()) != noErr)
            SetFPos(file, fsFromStart, 0);
    }
    FSClose(file);
}

void sequentialReadsReference(benchmark::State &state)
{
    static std::vector<char> buffer(largePiece);
    int file = open(largeFile().c_str(), O_RDONLY);
    for (auto _ : state) {
        if (read(file, buffer.data(), largePiece) != largePiece)
            lseek(file, 0, SEEK_SET);
    }
    close(file);
}

// A folder of empty files with names as programs give them.
template <int count> const std::string &folderOf()
{
    static const std::string name = [] {
        std::string made = "folder" + std::to_string(count);
        std::string path = workplace().native + "/" + made;
        mkdir(path.c_str(), 0777);
        for (int number = 0; number < count; ++number)
            close(open((path + "/Picture " + std::to_string(number) + ".bmp").c_str(), O_CREAT | O_WRONLY, 0666));
        return made;
    }();
    return name;
}

template <int count> void walkOurs(benchmark::State &state)
{
    SInt32 directory = GetDirectoryID(workplace().win32(folderOf<count>()).c_str());
    for (auto _ : state) {
        int found = 0;
        Str255 name;
        CInfoPBRec block{};
        block.hFileInfo.ioNamePtr = name;
        for (SInt16 index = 1;; ++index, ++found) {
            block.hFileInfo.ioFDirIndex = index;
            block.hFileInfo.ioDirID = directory;
            if (PBGetCatInfoSync(&block) != noErr)
                break;
        }
        if (found != (count > 32767 ? 32767 : count))
            state.SkipWithError("entries are missing");
    }
}

template <int count> void walkReference(benchmark::State &state)
{
    std::string path = workplace().native + "/" + folderOf<count>();
    for (auto _ : state) {
        DIR *directory = opendir(path.c_str());
        struct stat status;
        while (const dirent *entry = readdir(directory))
            benchmark::DoNotOptimize(fstatat(dirfd(directory), entry->d_name, &status, 0));
        closedir(directory);
    }
}

void directoryIDOurs(benchmark::State &state)
{
    static const std::vector<std::string> paths = [] {
        std::vector<std::string> made;
        for (int number = 0; number < 10000; ++number)
            made.push_back("C:\\Documents\\Project " + std::to_string(number % 100) + "\\Layer "
                           + std::to_string(number));
        return made;
    }();
    for (const std::string &path : paths)
        GetDirectoryID(path.c_str());
    size_t step = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(GetDirectoryID(paths[step++ * 7919 % paths.size()].c_str()));
}

[[maybe_unused]] const bool targets[] = {
    pairs::ratio("FSRead 4 KiB at random / pread", 1.3),
    pairs::ratio("FSRead 1 MiB in sequence / read", 1 / 0.9),
    pairs::ratio("PBGetCatInfoSync, 10000 files / readdir+stat", 4),
    pairs::ratio("PBGetCatInfoSync, 30000 files / readdir+stat", 4),
    pairs::within("GetDirectoryID, 10000 known", 1000),
};

BENCHMARK(randomReadsOurs)->Name("FSRead 4 KiB at random / pread/ours");
BENCHMARK(randomReadsReference)->Name("FSRead 4 KiB at random / pread/reference");
BENCHMARK(sequentialReadsOurs)->Name("FSRead 1 MiB in sequence / read/ours");
BENCHMARK(sequentialReadsReference)->Name("FSRead 1 MiB in sequence / read/reference");
BENCHMARK(walkOurs<10000>)->Name("PBGetCatInfoSync, 10000 files / readdir+stat/ours");
BENCHMARK(walkReference<10000>)->Name("PBGetCatInfoSync, 10000 files / readdir+stat/reference");
BENCHMARK(walkOurs<30000>)->Name("PBGetCatInfoSync, 30000 files / readdir+stat/ours");
BENCHMARK(walkReference<30000>)->Name("PBGetCatInfoSync, 30000 files / readdir+stat/reference");
BENCHMARK(directoryIDOurs)->Name("GetDirectoryID, 10000 known/ours");

} // namespace
