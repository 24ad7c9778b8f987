// The Resource Manager: handles that are listed, loads from a module and from text files, names and indices.
#include "pairs.h"

#include <mtbx/MTBX.h>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

constexpr ResType benchType = 0x42454E43; // 'BENC'
constexpr SInt16 entries = 5000;
constexpr Size dataSize = 64;

struct PascalName {
    explicit PascalName(const std::string &text)
    {
        bytes[0] = static_cast<unsigned char>(text.size());
        memcpy(bytes + 1, text.data(), text.size());
    }
    Str255 bytes;
};

std::string nativePath(const std::string &path)
{
    std::string native = path.substr(2);
    for (char &character : native)
        character = character == '\\' ? '/' : character;
    return native;
}

// A temporary file, gone at the end of the program.
class BenchFile {
public:
    BenchFile(const char *name, const std::string &content)
    {
        char folder[MAX_PATH];
        GetTempPathA(sizeof folder, folder);
        path = folder + std::string(name);
        native = nativePath(path);
        FILE *file = fopen(native.c_str(), "wb");
        fwrite(content.data(), 1, content.size(), file);
        fclose(file);
    }
    ~BenchFile() { remove(native.c_str()); }

    SInt16 open() const { return OpenResFile(PascalName(path).bytes); }
    // Another program has written it.
    void touch() const { utimensat(AT_FDCWD, native.c_str(), nullptr, 0); }

    std::string path, native;
};

template <class Number> void append(std::string &bytes, Number number)
{
    bytes.append(reinterpret_cast<const char *>(&number), sizeof number);
}

std::string nameOf(int number)
{
    return "Resource number " + std::to_string(number);
}

// One record of a compiled resource file: sizes, type, name, language, data.
void appendResource(std::string &file, const char *type, UInt16 id, const std::string &data)
{
    std::string header;
    for (const char *character = type; *character; ++character)
        append(header, static_cast<UInt16>(*character));
    append(header, UInt16{0});
    append(header, UInt16{0xffff});
    append(header, id);
    header.resize((header.size() + 3) & ~size_t{3});
    header.append(4 + 2 + 2 + 4 + 4, '\0');
    append(file, static_cast<UInt32>(data.size()));
    append(file, static_cast<UInt32>(header.size() + 8));
    file += header + data;
    file.resize((file.size() + 3) & ~size_t{3});
}

const BenchFile &moduleFile()
{
    static const BenchFile file("mtbx-bench-resources.res", [] {
        std::string content("\0\0\0\0\x20\0\0\0\xff\xff\0\0\xff\xff\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 32);
        for (UInt16 id = 0; id < entries; ++id)
            appendResource(content, "BENC", id,
                           std::string("\2\0", 2) + nameOf(id) + '\0' + std::string(size_t{dataSize}, 'x'));
        return content;
    }());
    return file;
}

std::string textResources(int count)
{
    std::string content = "[BENC]\r\n", data;
    for (int byte = 0; byte < dataSize; ++byte)
        data += "01";
    for (int id = 0; id < count; ++id) {
        std::string number = std::to_string(id), name = nameOf(id);
        content += number + "_Size=" + std::to_string(dataSize) + "\r\n" + number + "=" + data + "40\r\n" + number
                   + "_Name=" + name + "\r\nName_" + name + "=" + number + "\r\n";
    }
    return content;
}

const BenchFile &textFile(int count)
{
    static const BenchFile thousand("mtbx-bench-1000.txt", textResources(1000));
    static const BenchFile fourThousand("mtbx-bench-4000.txt", textResources(4000));
    return count == 1000 ? thousand : fourThousand;
}

// The chain, with the module of 5,000 resources open while the object lives.
class OpenModule {
public:
    OpenModule()
    {
        MTBX_InitializeMemorySubsystem();
        InitResources();
        if (moduleFile().open() < 0)
            abort();
    }
    ~OpenModule() { MTBX_ShutdownResources(); }

    void loadAll() const
    {
        for (SInt16 id = 0; id < entries; ++id) {
            if (!Get1Resource(benchType, id))
                abort();
        }
    }
};

SInt16 nextID(SInt16 id)
{
    return static_cast<SInt16>((id + 1237) % entries);
}

void listedOurs(benchmark::State &state)
{
    OpenModule module;
    module.loadAll();
    SInt16 id = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(GetResource(benchType, id = nextID(id)));
}

void listedReference(benchmark::State &state)
{
    std::unordered_map<UInt64, Handle> map;
    std::vector<Ptr> blocks(entries);
    for (SInt16 id = 0; id < entries; ++id)
        map[UInt64{benchType} << 16 | static_cast<UInt16>(id)] = &blocks[static_cast<size_t>(id)];
    SInt16 id = 0;
    for (auto _ : state) {
        id = nextID(id);
        benchmark::DoNotOptimize(map.find(UInt64{benchType} << 16 | static_cast<UInt16>(id))->second);
    }
}

// Released each time, so the time is that of a first load and a release.
void loadOurs(benchmark::State &state)
{
    OpenModule module;
    SInt16 id = 0;
    for (auto _ : state)
        ReleaseResource(Get1Resource(benchType, id = nextID(id)));
}

void loadReference(benchmark::State &state)
{
    std::string data(size_t{dataSize}, 'x');
    for (auto _ : state) {
        Handle h = NewHandle(dataSize);
        memcpy(*h, data.data(), data.size());
        DisposeHandle(h);
    }
}

void homeOurs(benchmark::State &state)
{
    OpenModule module;
    module.loadAll();
    std::vector<Handle> handles;
    for (SInt16 id = 0; id < entries; ++id)
        handles.push_back(Get1Resource(benchType, id));
    SInt16 id = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(HomeResFile(handles[static_cast<size_t>(id = nextID(id))]));
}

void namedOurs(benchmark::State &state)
{
    OpenModule module;
    module.loadAll();
    std::vector<PascalName> names;
    for (int id = 0; id < entries; ++id)
        names.emplace_back(nameOf(id));
    Get1NamedResource(benchType, names[0].bytes); // the first one reads them all
    SInt16 id = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(Get1NamedResource(benchType, names[static_cast<size_t>(id = nextID(id))].bytes));
}

// A walk through all resources of a type by index, from the module's opening on.
void indexOurs(benchmark::State &state)
{
    for (auto _ : state) {
        OpenModule module;
        for (SInt16 index = 1; index <= entries; ++index)
            benchmark::DoNotOptimize(Get1IndResource(benchType, index));
    }
}

void indexReference(benchmark::State &state)
{
    for (auto _ : state) {
        OpenModule module;
        module.loadAll();
    }
}

void readText(benchmark::State &state, int count)
{
    MTBX_InitializeMemorySubsystem();
    InitResources();
    MTBX_BeginEnableSearchResourcesInTextFiles();
    for (auto _ : state) {
        state.PauseTiming();
        textFile(count).touch();
        state.ResumeTiming();
        SInt16 file = textFile(count).open();
        for (SInt16 id = 0; id < count; ++id) {
            if (!Get1Resource(benchType, id))
                abort();
        }
        CloseResFile(file);
    }
    MTBX_EndEnableSearchResourcesInTextFiles();
    MTBX_ShutdownResources();
}

// The least that any reader does: the file's bytes, and a handle with a copy for each resource.
void readTextReference(benchmark::State &state)
{
    std::vector<Handle> handles(1000);
    for (auto _ : state) {
        FILE *file = fopen(textFile(1000).native.c_str(), "rb");
        std::string content(1 << 20, 0);
        content.resize(fread(content.data(), 1, content.size(), file));
        fclose(file);
        for (Handle &h : handles) {
            h = NewHandle(dataSize);
            memcpy(*h, content.data(), static_cast<size_t>(dataSize));
        }
        for (Handle h : handles)
            DisposeHandle(h);
    }
}

[[maybe_unused]] const bool targets[] = {
    pairs::within("GetResource, listed, 5000 entries / map", 60),
    pairs::beyond("GetResource, first load / the copy", 2000),
    pairs::within("HomeResFile, 5000 entries", 60),
    pairs::within("Get1NamedResource, 5000 names", 1000),
    pairs::ratio("Get1IndResource, 1 to 5000 / by ID", 1.5),
    pairs::within("Get1Resource, 1000 from text / copies", 20e6),
    pairs::ratio("Get1Resource, 4000 / 1000 from text", 4.8),
};

BENCHMARK(listedOurs)->Name("GetResource, listed, 5000 entries / map/ours");
BENCHMARK(listedReference)->Name("GetResource, listed, 5000 entries / map/reference");
BENCHMARK(loadOurs)->Name("GetResource, first load / the copy/ours");
BENCHMARK(loadReference)->Name("GetResource, first load / the copy/reference");
BENCHMARK(homeOurs)->Name("HomeResFile, 5000 entries/ours");
BENCHMARK(namedOurs)->Name("Get1NamedResource, 5000 names/ours");
BENCHMARK(indexOurs)->Name("Get1IndResource, 1 to 5000 / by ID/ours");
BENCHMARK(indexReference)->Name("Get1IndResource, 1 to 5000 / by ID/reference");
BENCHMARK_CAPTURE(readText, thousand, 1000)->Name("Get1Resource, 1000 from text / copies/ours");
BENCHMARK(readTextReference)->Name("Get1Resource, 1000 from text / copies/reference");
BENCHMARK_CAPTURE(readText, four_thousand, 4000)->Name("Get1Resource, 4000 / 1000 from text/ours");
BENCHMARK_CAPTURE(readText, thousand_again, 1000)->Name("Get1Resource, 4000 / 1000 from text/reference");

} // namespace
