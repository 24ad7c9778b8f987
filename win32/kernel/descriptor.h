// A file descriptor that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace win32 {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor &&other) noexcept : number_(other.release()) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        if (this != &other) {
            close();
            number_ = other.release();
        }
        return *this;
    }
    ~Descriptor() { close(); }

    operator int() const { return number_; }
    int release() { return std::exchange(number_, -1); }

    // False when what was written did not reach the file.
    bool close()
    {
        int number = release();
        return number < 0 || ::close(number) == 0;
    }

private:
    int number_ = -1;
};

} // namespace win32
