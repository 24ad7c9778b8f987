// The files in which resource forks travel.
#pragma once

#include "byte_view.h"
#include "problem.h"

#include <variant>

namespace forks {

enum class Container { Raw, AppleSingle, AppleDouble, MacBinary };

const char *nameOf(Container container);

struct FoundFork {
    Container container;
    ByteView fork;
};

// Finds the resource fork in a file of any of these kinds, told by its content. A fork that is not whole, and a
// file that holds none, is a problem.
std::variant<FoundFork, Problem> findFork(Bytes file);

} // namespace forks
