// The commands of the tool.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tool {

// Runs what the arguments behind the program's name ask for. Results go to output, errors to errors; the exit
// code is one of ExitCode.
int run(const std::vector<std::string> &arguments, std::ostream &output, std::ostream &errors);

} // namespace tool
