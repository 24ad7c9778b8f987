#include "share_locks.h"

#include "descriptor.h"

#include <fcntl.h>

namespace win32 {
namespace {

// One byte for each thing that a holder can say of itself.
enum Statement : int { Reads, Writes, DeniesReading, DeniesWriting, DeniesDeletion, StatementCount };

constexpr off_t firstByte = off_t{1} << 62;

struct flock lockOn(Statement statement, short type)
{
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = firstByte + statement;
    lock.l_len = 1;
    return lock;
}

void state(int file, Statement statement)
{
    struct flock lock = lockOn(statement, F_RDLCK);
    fcntl(file, F_OFD_SETLK, &lock);
}

bool isStatedByOthers(int file, Statement statement)
{
    struct flock lock = lockOn(statement, F_WRLCK);
    return fcntl(file, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

bool isStatedOfPath(const char *path, Statement statement)
{
    Descriptor file(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    return file >= 0 && isStatedByOthers(file, statement);
}

} // namespace

// Stating comes before looking: of two that open at the same time both may be refused, but never are
// both let in. The locks go with the descriptor.
bool enterShareModes(int file, DWORD access, DWORD share)
{
    bool reads = access & (GENERIC_READ | GENERIC_ALL);
    bool writes = access & (GENERIC_WRITE | GENERIC_ALL);
    if (!reads && !writes)
        return true;
    bool deniesReading = !(share & FILE_SHARE_READ);
    bool deniesWriting = !(share & FILE_SHARE_WRITE);
    const bool statements[StatementCount] = {reads, writes, deniesReading, deniesWriting, !(share & FILE_SHARE_DELETE)};
    for (int statement = 0; statement < StatementCount; ++statement) {
        if (statements[statement])
            state(file, static_cast<Statement>(statement));
    }
    return !(reads && isStatedByOthers(file, DeniesReading)) && !(writes && isStatedByOthers(file, DeniesWriting))
           && !(deniesReading && isStatedByOthers(file, Reads)) && !(deniesWriting && isStatedByOthers(file, Writes));
}

bool deniesDeletion(const char *unixPath)
{
    return isStatedOfPath(unixPath, DeniesDeletion);
}

bool deniesWriting(const char *unixPath)
{
    return isStatedOfPath(unixPath, DeniesWriting);
}

} // namespace win32
