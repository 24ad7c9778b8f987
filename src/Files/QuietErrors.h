// A missing disk in a drive is an error like any other, not a question to the user.
#pragma once

#include <windows.h>

class QuietErrors {
public:
    QuietErrors() : mode_(SetErrorMode(SEM_FAILCRITICALERRORS)) {}
    ~QuietErrors() { SetErrorMode(mode_); }
    QuietErrors(const QuietErrors &) = delete;
    QuietErrors &operator=(const QuietErrors &) = delete;

private:
    UINT mode_;
};
