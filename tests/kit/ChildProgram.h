// Runs another program and collects what it prints.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace testkit
{

struct ProgramResult
{
    unsigned exitCode = 0;
    std::string output; // standard output and standard error together, line ends as "\n"
    bool ended = false; // false: it did not start, or was ended because it took too long
};

// Starts `program` with the arguments, waits until it ends, and ends it after `milliseconds`. The
// arguments must not contain quotation marks.
ProgramResult RunProgram(const std::filesystem::path& program, const std::vector<std::wstring>& arguments,
                         unsigned milliseconds = 45000);

// The file of the running program, to start it anew with other arguments.
std::filesystem::path ThisProgram();

} // namespace testkit
