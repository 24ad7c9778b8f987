// On Windows debug output travels as an exception that a vectored handler sees first.
#include "DebugOutput.h"

#include <windows.h>

static std::vector<std::string> collected;
static void *handler;

static LONG CALLBACK collect(EXCEPTION_POINTERS *pointers)
{
    constexpr DWORD printException = 0x40010006;
    const EXCEPTION_RECORD &record = *pointers->ExceptionRecord;
    if (record.ExceptionCode != printException || record.NumberParameters < 2)
        return EXCEPTION_CONTINUE_SEARCH;
    collected.emplace_back(reinterpret_cast<const char *>(record.ExceptionInformation[1]));
    return EXCEPTION_CONTINUE_EXECUTION;
}

DebugOutput::DebugOutput()
{
    collected.clear();
    handler = AddVectoredExceptionHandler(1, collect);
}

DebugOutput::~DebugOutput()
{
    RemoveVectoredExceptionHandler(handler);
}

const std::vector<std::string> &DebugOutput::texts() const
{
    return collected;
}
