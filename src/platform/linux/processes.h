// Starting other programs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

// The folder of the running program, with a slash at its end; empty when the system doesn't tell.
std::string ProgramFolder();

// Whether there is a file of that name that can be run.
bool IsProgram(const std::string& nativePath);

// The full native path of a program in PATH; empty when there is none.
std::string FindInPath(const std::string& name);

// Starts a program that goes on by itself: a child of a child that has ended, with nothing on its standard streams. False when
// the system didn't start it.
bool StartDetached(const std::string& program, const std::vector<std::string>& arguments);

// A program run to its end: what it is given on its standard input, and what it wrote. `variables` ("NAME=value") come before
// those of this process.
struct Finished {
    bool ended = false;  // by itself and in time; else `code` means nothing
    int code = 0;
    std::string output;
    std::string errors;
};
Finished RunToEnd(const std::string& program, const std::vector<std::string>& arguments, std::string_view input,
                  const std::vector<std::string>& variables);

}  // namespace qv
