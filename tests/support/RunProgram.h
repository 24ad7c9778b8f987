// Runs a program that lies beside that of the tests.
#pragma once

#include <string>
#include <vector>

// The exit code. What the program prints goes to a file, both named by Win32 paths.
int runProgram(const std::string &name, const std::vector<std::string> &arguments, const std::string &outputPath);
