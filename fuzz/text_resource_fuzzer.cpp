// Text files as resource files: whatever stands in one, what is written is read back, what is removed is gone, and
// no other resource changes.
#include <mtbx/MTBX.h>

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr ResType types[] = {0x41424344, 0x38414243, 0x4F4D7072}; // one of a sister file among them
constexpr SInt16 ids[] = {1, 2, -1};

void require(bool condition)
{
    if (!condition)
        abort();
}

struct PascalName {
    explicit PascalName(const char *text)
    {
        bytes[0] = static_cast<unsigned char>(strlen(text));
        memcpy(bytes + 1, text, bytes[0]);
    }
    Str255 bytes;
};

// The text file and its sister, both with the same content, while the object lives. They lie in memory where the
// system has room for files there, since each input is written many times.
class Files {
public:
    Files(const uint8_t *data, size_t size)
        : base_((access("/dev/shm", W_OK) == 0 ? "Z:/dev/shm/" : "Z:/tmp/") + std::string("text-resource-fuzzer-")
                + std::to_string(getpid()))
    {
        for (const char *end : {".txt", "_.txt"}) {
            FILE *file = fopen((base_ + end).c_str(), "wb");
            require(file);
            fwrite(data, 1, size, file);
            fclose(file);
        }
    }
    ~Files()
    {
        CloseResFile(1001);
        remove((base_ + ".txt").c_str());
        remove((base_ + "_.txt").c_str());
    }

    // Forgets all that is in memory.
    SInt16 reopen() const
    {
        CloseResFile(1001);
        return OpenResFile(PascalName((base_ + ".txt").c_str()).bytes);
    }

private:
    std::string base_;
};

std::string everythingBut(ResType changedType, SInt16 changedID)
{
    std::string all;
    for (ResType type : types) {
        for (SInt16 id : ids) {
            if (type == changedType && id == changedID)
                continue;
            Handle h = Get1Resource(type, id);
            all += h && *h ? "+" + std::string(*h, static_cast<size_t>(GetHandleSize(h))) : "-";
        }
    }
    return all;
}

void initialize()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    gWin32S = true; // refuses handles of 16 MB, which a file may ask for
    MTBX_InitializeMemorySubsystem();
    InitResources();
    MTBX_BeginEnableSearchResourcesInTextFiles();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    initialize();
    if (size < 1)
        return 0;
    ResType type = types[data[0] % 3];
    SInt16 id = ids[data[0] / 3 % 3];
    Files files(data + 1, size - 1);
    require(files.reopen() == 1001);
    Count1Resources(type);
    Get1NamedResource(type, PascalName("Foo").bytes);
    std::string others = everythingBut(type, id);

    if (Handle old = Get1Resource(type, id))
        ReleaseResource(old);
    Handle h = NewHandle(5);
    memcpy(*h, "fresh", 5);
    AddResource(h, type, id, PascalName("Fresh").bytes);
    if (ResError() != noErr)
        return 0; // UTF-16, or a folder that is gone
    files.reopen();
    h = Get1Resource(type, id);
    require(h && GetHandleSize(h) == 5 && memcmp(*h, "fresh", 5) == 0);
    require(id == -1 || Get1NamedResource(type, PascalName("Fresh").bytes) == h);
    require(everythingBut(type, id) == others);

    RemoveResource(h);
    require(ResError() == noErr);
    DisposeHandle(h);
    files.reopen();
    require(everythingBut(type, id) == others);
    return 0;
}
