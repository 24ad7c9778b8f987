// What every file of the layer uses: setting the last error and turning C++ failures into it.
#pragma once

#include <windows.h>

#include <new>
#include <utility>

namespace win32 {

// Sets the last error and gives back the value that the caller returns with it.
template <class Result> Result fail(DWORD error, Result result)
{
    SetLastError(error);
    return result;
}

DWORD errorFromErrno(int errnoValue);

// Runs an operation whose containers may need memory; a refusal becomes the documented error.
template <class Operation, class Result> Result guarded(Result failure, Operation operation)
{
    try {
        return operation();
    } catch (const std::bad_alloc &) {
        return fail(ERROR_NOT_ENOUGH_MEMORY, failure);
    }
}

// Lower case of the letters A to Z, as the "C" locale has it; all other bytes stay.
constexpr char lowerAscii(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

} // namespace win32
