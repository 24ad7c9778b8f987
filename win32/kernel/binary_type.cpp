// Whether a file is a program.
#include "descriptor.h"
#include "kernel_internal.h"
#include "paths.h"

#include <elf.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstring>

namespace {

using namespace win32;

constexpr DWORD noProgram = ~DWORD{0};

class HeaderReader {
public:
    explicit HeaderReader(int file) : file_(file) {}

    template <class Number> bool read(off_t offset, Number &value) const
    {
        return pread(file_, &value, sizeof value, offset) == static_cast<ssize_t>(sizeof value);
    }

private:
    int file_;
};

// Behind the DOS header stands the offset of the real one.
DWORD windowsType(const HeaderReader &header)
{
    constexpr off_t newHeaderOffset = 0x3c, machineOffset = 4, characteristicsOffset = 22;
    constexpr WORD machine64[] = {0x8664, 0xaa64, 0x0200};
    constexpr WORD isLibrary = 0x2000;
    uint32_t start, signature;
    WORD machine, characteristics;
    if (!header.read(newHeaderOffset, start) || !header.read(start, signature))
        return SCS_DOS_BINARY;
    if ((signature & 0xffff) == 0x454e) // "NE"
        return SCS_WOW_BINARY;
    if (signature != 0x00004550) // "PE"
        return SCS_DOS_BINARY;
    if (!header.read(start + machineOffset, machine) || !header.read(start + characteristicsOffset, characteristics))
        return noProgram;
    if (characteristics & isLibrary)
        return noProgram;
    for (WORD wide : machine64) {
        if (machine == wide)
            return SCS_64BIT_BINARY;
    }
    return SCS_32BIT_BINARY;
}

// A program with an entry point; shared libraries have the same type, but nobody may run them or they
// begin nowhere.
DWORD elfType(int file, const HeaderReader &header)
{
    Elf64_Ehdr start;
    if (!header.read(0, start) || (start.e_type != ET_EXEC && start.e_type != ET_DYN) || start.e_entry == 0)
        return noProgram;
    std::string self = "/proc/self/fd/" + std::to_string(file);
    if (access(self.c_str(), X_OK) != 0)
        return noProgram;
    return start.e_ident[EI_CLASS] == ELFCLASS64 ? SCS_64BIT_BINARY : SCS_32BIT_BINARY;
}

DWORD typeOf(int file)
{
    HeaderReader header(file);
    unsigned char magic[4] = {};
    header.read(0, magic);
    if (magic[0] == 'M' && magic[1] == 'Z')
        return windowsType(header);
    return memcmp(magic, ELFMAG, SELFMAG) == 0 ? elfType(file, header) : noProgram;
}

} // namespace

BOOL GetBinaryTypeA(LPCSTR path, LPDWORD type)
{
    return guarded(FALSE, [&]() -> BOOL {
        Descriptor file(
            onPath(path, [](const char *unixName) { return open(unixName, O_RDONLY | O_CLOEXEC | O_NONBLOCK); }));
        if (file < 0)
            return FALSE;
        DWORD found = typeOf(file);
        if (found == noProgram)
            return fail(ERROR_BAD_EXE_FORMAT, FALSE);
        *type = found;
        return TRUE;
    });
}
