// Reading and writing, at once or with a completion routine.
#include "OpenFiles_internal.h"

#include <mtbx/MacErrors.h>

#include <algorithm>
#include <type_traits>

namespace {

using namespace files;

static_assert(std::is_standard_layout_v<Transfer>, "the completion finds the transfer by its first member");

constexpr SInt32 largestAsynchronousWrite = 0x2000000;

enum class Direction { Read, Write };

BOOL startNative(Direction direction, HANDLE file, void *buffer, DWORD size, DWORD *count, OVERLAPPED *overlapped)
{
    return direction == Direction::Read ? ReadFile(file, buffer, size, count, overlapped)
                                        : WriteFile(file, buffer, size, count, overlapped);
}

class Event {
public:
    Event() : handle_(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
    ~Event()
    {
        if (handle_)
            CloseHandle(handle_);
    }
    Event(const Event &) = delete;
    Event &operator=(const Event &) = delete;

    HANDLE handle() const { return handle_; }

private:
    HANDLE handle_;
};

// Waits for a transfer that goes on by itself; its count, or the error that it ended with.
OSErr awaitTransfer(HANDLE file, OVERLAPPED &overlapped, DWORD &count)
{
    WaitForSingleObject(overlapped.hEvent, INFINITE);
    bool ended = GetOverlappedResult(file, &overlapped, &count, TRUE);
    if (ended)
        return noErr;
    count = 0;
    return convertedLastError();
}

void setOffset(OVERLAPPED &overlapped, UInt64 position)
{
    overlapped.Offset = static_cast<DWORD>(position);
    overlapped.OffsetHigh = static_cast<DWORD>(position >> 32);
}

// The position goes behind what was moved, at full width: 32 bits would end at 4 GB.
OSErr moveBehind(HANDLE file, const OVERLAPPED &overlapped, DWORD count)
{
    LARGE_INTEGER position;
    position.LowPart = overlapped.Offset;
    position.HighPart = static_cast<LONG>(overlapped.OffsetHigh);
    position.QuadPart += count;
    return SetFilePointerEx(file, position, nullptr, FILE_BEGIN) ? OSErr{noErr} : convertedLastError();
}

// On an overlapped file the position does not move by itself, so it is read before and set after. The
// native record is the call's own: that of the file may belong to a write under way.
OSErr transferOverlapped(Direction direction, FileSlot &file, void *buffer, DWORD size, DWORD &count)
{
    UInt64 position;
    if (!nativePosition(file, position))
        return rfNumErr;
    Event event;
    if (!event.handle())
        return convertedLastError();
    OVERLAPPED overlapped{};
    setOffset(overlapped, position);
    overlapped.hEvent = event.handle();
    OSErr result = noErr;
    if (!startNative(direction, file.file, buffer, size, &count, &overlapped))
        result =
            GetLastError() == ERROR_IO_PENDING ? awaitTransfer(file.file, overlapped, count) : convertedLastError();
    if (result == noErr)
        return moveBehind(file.file, overlapped, count);
    count = 0;
    return result;
}

OSErr transferNow(Direction direction, SInt16 refNum, void *buffer, SInt32 *count)
{
    FileSlot *file = findOpenFile(refNum);
    if (!file)
        return rfNumErr;
    auto asked = static_cast<DWORD>(*count);
    bool isNegative = *count < 0;
    *count = 0;
    // A negative count would ask for more than any buffer holds.
    if (isNegative)
        return paramErr;
    DWORD moved = 0;
    OSErr result = noErr;
    if (file->isOverlapped)
        result = transferOverlapped(direction, *file, buffer, asked, moved);
    else if (!startNative(direction, file->file, buffer, asked, &moved, nullptr))
        return convertedLastError();
    *count = static_cast<SInt32>(moved);
    return result;
}

// Called by the system in an alertable wait of the host's thread.
void CALLBACK completeWrite(DWORD error, DWORD count, LPOVERLAPPED overlapped)
{
    auto transfer = reinterpret_cast<Transfer *>(overlapped);
    ParmBlkPtr paramBlock = transfer->paramBlock;
    OSErr result = noErr;
    if (error != NO_ERROR) {
        result = static_cast<OSErr>(MTBX_ConvertError(error));
    } else {
        if (transfer->file->file)
            result = moveBehind(transfer->file->file, *overlapped, count);
        if (count != transfer->size)
            result = eofErr;
    }
    *transfer = {};
    paramBlock->ioParam.ioResult = result;
    paramBlock->ioParam.ioActCount = static_cast<SInt32>(count);
    InvokeIOCompletionUPP(paramBlock, paramBlock->ioParam.ioCompletion);
}

OSErr writeInBackground(IOParam &parameters, ParmBlkPtr paramBlock)
{
    FileSlot *file = findOpenFile(parameters.ioRefNum);
    if (!file || !file->isOverlapped)
        return rfNumErr;
    // One at a time: a second write would overwrite the record that the first one needs to end.
    if (file->transfer.inUse)
        return fBsyErr;
    UInt64 position;
    if (!nativePosition(*file, position))
        return rfNumErr;
    file->transfer = {};
    file->transfer.inUse = true;
    file->transfer.size = static_cast<UInt32>(parameters.ioReqCount);
    file->transfer.file = file;
    file->transfer.paramBlock = paramBlock;
    setOffset(file->transfer.overlapped, position);
    Ptr buffer = parameters.ioBuffer;
    if (WriteFileEx(file->file, buffer, file->transfer.size, &file->transfer.overlapped, completeWrite))
        return noErr;
    file->transfer = {};
    return convertedLastError();
}

// One piece of a large write: the fields of the block tell of it alone.
OSErr writePiece(IOParam &parameters)
{
    SInt32 count = parameters.ioReqCount;
    OSErr result = transferNow(Direction::Write, parameters.ioRefNum, parameters.ioBuffer, &count);
    parameters.ioActCount = result == noErr ? count : 0;
    bool isShort = result == noErr && count < parameters.ioReqCount;
    parameters.ioResult = isShort ? OSErr{eofErr} : result;
    return parameters.ioResult;
}

OSErr writeInPieces(IOParam &parameters)
{
    Ptr buffer = parameters.ioBuffer;
    SInt32 total = parameters.ioReqCount;
    OSErr result = noErr;
    for (SInt32 done = 0; done < total && result == noErr;) {
        parameters.ioBuffer = buffer + done;
        parameters.ioReqCount = std::min(total - done, largestAsynchronousWrite);
        result = writePiece(parameters);
        if (result == noErr)
            parameters.ioActCount = done += parameters.ioActCount;
    }
    parameters.ioBuffer = buffer;
    return result;
}

} // namespace

OSErr FSRead(SInt16 refNum, SInt32 *count, void *buffer)
{
    SInt32 asked = *count;
    OSErr result = transferNow(Direction::Read, refNum, buffer, count);
    return result == noErr && *count < asked ? OSErr{eofErr} : result;
}

OSErr FSWrite(SInt16 refNum, SInt32 *count, const void *buffer)
{
    return transferNow(Direction::Write, refNum, const_cast<void *>(buffer), count);
}

OSErr PBWriteAsync(ParmBlkPtr paramBlock)
{
    IOParam &parameters = paramBlock->ioParam;
    if (parameters.ioReqCount < 0)
        return paramErr;
    if (parameters.ioReqCount < largestAsynchronousWrite)
        return writeInBackground(parameters, paramBlock);
    OSErr result = writeInPieces(parameters);
    if (result == noErr)
        InvokeIOCompletionUPP(paramBlock, parameters.ioCompletion);
    return result;
}

IOCompletionUPP NewIOCompletionUPP(IOCompletionProcPtr procedure)
{
    return procedure;
}

void DisposeIOCompletionUPP(IOCompletionUPP)
{
}

void InvokeIOCompletionUPP(ParmBlkPtr paramBlock, IOCompletionUPP procedure)
{
    if (procedure)
        procedure(paramBlock);
}
