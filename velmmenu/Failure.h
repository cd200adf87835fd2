// What ends the tool's work.
#pragma once

#include <string>

namespace velmmenu
{

// Thrown when a file cannot be read or written, or when the command line is wrong. The program prints the
// text and ends with ExitUnreadable.
struct Failure
{
    std::wstring text;
};

enum ExitStatus
{
    ExitClean = 0,
    ExitFindings = 1,
    ExitUnreadable = 2
};

} // namespace velmmenu
