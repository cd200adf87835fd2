// Runs another program and collects what it prints.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace testkit
{

// What stands for the exit code of a program that could not be started.
inline constexpr unsigned NotStarted = 0xffffffff;

struct ProgramResult
{
    unsigned exitCode = NotStarted;
    std::string
        output; // standard output and standard error together, line ends as "\n"; or why it did not start
    bool ended = false; // false: it did not start, or was ended because it took too long
};

// Starts `program` with the arguments, waits until it ends, and ends it after `milliseconds`. The
// arguments must not contain quotation marks.
ProgramResult RunProgram(const std::filesystem::path& program, const std::vector<std::wstring>& arguments,
                         unsigned milliseconds = 45000);

// The file of the running program, to start it anew with other arguments.
std::filesystem::path ThisProgram();

} // namespace testkit
