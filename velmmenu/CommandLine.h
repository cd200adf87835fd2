// velmmenu's command line.
#pragma once

#include <string>
#include <vector>

namespace velmmenu
{

enum class Command
{
    Help, // of `topic`, or of the whole program when that is empty
    Version,
    Check,
    Show,
    Picture,
    New
};

struct CommandLine
{
    Command command = Command::Help;
    std::wstring topic;
    std::wstring file;    // empty only for New
    std::wstring picture; // for Picture
    std::wstring bitmaps; // empty when not given

    // Parses the arguments that follow the program's name. Throws Failure for a wrong one.
    static CommandLine Parse(const std::vector<std::wstring>& arguments);
};

// The text of --help for a command, or for all when `topic` is empty. Lines end with line feeds.
std::wstring HelpText(const std::wstring& topic);

} // namespace velmmenu
