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
OSErr awaitTransfer(FileSlot &file, DWORD &count)
{
    WaitForSingleObject(file.transfer.overlapped.hEvent, INFINITE);
    bool ended = GetOverlappedResult(file.file, &file.transfer.overlapped, &count, TRUE);
    if (ended)
        return noErr;
    count = 0;
    return convertedLastError();
}

// On an overlapped file the position does not move by itself, so it is read before and set after.
OSErr transferOverlapped(Direction direction, FileSlot &file, void *buffer, DWORD size, DWORD &count)
{
    SInt32 position;
    if (OSErr error = GetFPos(file.refNum, &position))
        return error;
    Event event;
    count = 0;
    if (!event.handle())
        return convertedLastError();
    file.transfer = {};
    file.transfer.inUse = true;
    file.transfer.size = size;
    file.transfer.file = &file;
    file.transfer.overlapped.Offset = static_cast<DWORD>(position);
    file.transfer.overlapped.hEvent = event.handle();
    OSErr result = noErr;
    if (!startNative(direction, file.file, buffer, size, &count, &file.transfer.overlapped))
        result = GetLastError() == ERROR_IO_PENDING ? awaitTransfer(file, count) : convertedLastError();
    file.transfer = {};
    return result ? result : SetFPos(file.refNum, fsFromMark, static_cast<SInt32>(count));
}

OSErr transferNow(Direction direction, SInt16 refNum, void *buffer, SInt32 *count)
{
    FileSlot *file = findOpenFile(refNum);
    if (!file)
        return rfNumErr;
    // A negative count would ask for more than any buffer holds.
    if (*count < 0) {
        *count = 0;
        return paramErr;
    }
    DWORD moved = 0;
    OSErr result = noErr;
    if (file->isOverlapped)
        result = transferOverlapped(direction, *file, buffer, static_cast<DWORD>(*count), moved);
    else if (!startNative(direction, file->file, buffer, static_cast<DWORD>(*count), &moved, nullptr))
        result = convertedLastError();
    *count = result == noErr ? static_cast<SInt32>(moved) : 0;
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
            result = SetFPos(transfer->file->refNum, fsFromStart, static_cast<SInt32>(overlapped->Offset + count));
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
    SInt32 position;
    if (OSErr error = GetFPos(parameters.ioRefNum, &position))
        return error;
    file->transfer = {};
    file->transfer.inUse = true;
    file->transfer.size = static_cast<UInt32>(parameters.ioReqCount);
    file->transfer.file = file;
    file->transfer.paramBlock = paramBlock;
    file->transfer.overlapped.Offset = static_cast<DWORD>(position);
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
    parameters.ioActCount = count;
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
