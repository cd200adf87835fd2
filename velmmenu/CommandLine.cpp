#include "CommandLine.h"

#include <algorithm>
#include <iterator>

#include "Failure.h"

namespace velmmenu
{

namespace
{

struct CommandFacts
{
    const wchar_t* name;
    Command command;
    std::size_t fewestFiles;
    std::size_t mostFiles;
    bool takesBitmaps;
    const wchar_t* usage;
    const wchar_t* summary;
    const wchar_t* details;
};

constexpr CommandFacts Commands[] = {
    {L"check", Command::Check, 1, 1, true, L"check FILE [--bitmaps FOLDER]",
     L"tells of every entry that does not do what it seems to",
     L"Prints FILE:LINE: TEXT for every entry that does not do what its author most likely expects:\n"
     L"entries that add nothing, that are ignored or that become something else, names and mnemonics used\n"
     L"twice, attributes that are never read, bitmaps that are missing or have a wrong size. Prints nothing\n"
     L"when there is nothing to tell.\n"
     L"\n"
     L"  --bitmaps FOLDER   where the bitmaps lie; else the folder Bmps beside FILE if there is one, and\n"
     L"                     without that bitmaps are not looked for\n"
     L"\n"
     L"Exit status: 0 nothing found, 1 something found, 2 FILE cannot be read or the command line is "
     L"wrong.\n"},
    {L"show", Command::Show, 1, 1, false, L"show FILE", L"prints the menu and the toolbar that the host gets",
     L"Prints the menu and the toolbar that the host gets: labels, macros, help texts, tips and bitmaps. A\n"
     L"macro is shown as the host gets it: ^C stands for one control character, and the blank at its end\n"
     L"was added.\n"
     L"\n"
     L"Exit status: 0 all built, 1 the host refused something, 2 FILE cannot be read or the command line is\n"
     L"wrong.\n"},
    {L"picture", Command::Picture, 2, 2, true, L"picture FILE OUT.png [--bitmaps FOLDER]",
     L"draws the menu with all its cascades, and the toolbar",
     L"Draws the menu with all cascades open, and the toolbar with small and large bitmaps and all its\n"
     L"fly-outs, into a PNG file, which is replaced if there is one. A bitmap that cannot be read is shown\n"
     L"as a crossed box.\n"
     L"\n"
     L"  --bitmaps FOLDER   where the bitmaps lie; else the folder Bmps beside FILE if there is one\n"
     L"\n"
     L"Exit status: 0 all built, 1 the host refused something, 2 FILE cannot be read, OUT.png cannot be\n"
     L"written or the command line is wrong.\n"},
    {L"new", Command::New, 0, 1, false, L"new [FILE]", L"writes a description to begin with",
     L"Writes a small description with comments, to FILE or, without one, to the output. An existing file "
     L"is\n"
     L"never touched.\n"
     L"\n"
     L"Exit status: 0 written, 2 FILE exists or cannot be written, or the command line is wrong.\n"},
};

constexpr wchar_t SeeHelp[] = L"; see velmmenu --help";

const CommandFacts* FindCommand(const std::wstring& name)
{
    const auto found = std::find_if(std::begin(Commands), std::end(Commands),
                                    [&](const CommandFacts& facts) { return name == facts.name; });
    return found != std::end(Commands) ? found : nullptr;
}

// The arguments behind a command: files and options.
class ArgumentReader
{
public:
    ArgumentReader(const std::vector<std::wstring>& arguments, const CommandFacts& facts)
        : m_arguments(arguments), m_facts(facts)
    {
    }

    CommandLine Read()
    {
        CommandLine line;
        line.command = m_facts.command;
        while (m_next < m_arguments.size()) {
            const std::wstring argument = m_arguments[m_next++];
            if (m_onlyFiles || argument.size() < 2 || argument.front() != L'-')
                m_files.push_back(argument);
            else if (argument == L"--")
                m_onlyFiles = true;
            else if (argument == L"--help" || argument == L"-h")
                return AskForHelp();
            else if (!TakeBitmaps(argument, line))
                throw Failure{m_facts.name + (L": unknown option " + argument) + SeeHelp};
        }
        if (m_files.size() < m_facts.fewestFiles || m_files.size() > m_facts.mostFiles ||
            std::any_of(m_files.begin(), m_files.end(), [](const auto& file) { return file.empty(); }))
            throw Failure{std::wstring(L"the command is: velmmenu ") + m_facts.usage};
        if (!m_files.empty())
            line.file = m_files.front();
        if (m_files.size() > 1)
            line.picture = m_files.back();
        return line;
    }

private:
    CommandLine AskForHelp() const
    {
        CommandLine line;
        line.topic = m_facts.name;
        return line;
    }

    bool TakeBitmaps(const std::wstring& argument, CommandLine& line)
    {
        constexpr std::wstring_view option = L"--bitmaps";
        if (!m_facts.takesBitmaps || !argument.starts_with(option))
            return false;
        if (argument.size() > option.size()) {
            if (argument[option.size()] != L'=')
                return false;
            line.bitmaps = argument.substr(option.size() + 1);
        } else if (m_next < m_arguments.size()) {
            line.bitmaps = m_arguments[m_next++];
        }
        if (line.bitmaps.empty())
            throw Failure{std::wstring(m_facts.name) + L": --bitmaps needs a folder" + SeeHelp};
        return true;
    }

    const std::vector<std::wstring>& m_arguments;
    const CommandFacts& m_facts;
    std::size_t m_next = 1;
    bool m_onlyFiles = false;
    std::vector<std::wstring> m_files;
};

} // namespace

CommandLine CommandLine::Parse(const std::vector<std::wstring>& arguments)
{
    if (arguments.empty())
        throw Failure{std::wstring(L"a command is missing") + SeeHelp};
    const std::wstring& first = arguments.front();
    CommandLine line;
    if (first == L"--help" || first == L"-h")
        return line;
    if (first == L"--version") {
        line.command = Command::Version;
        return line;
    }
    const CommandFacts* const facts = FindCommand(first);
    if (facts == nullptr)
        throw Failure{L"unknown command " + first + SeeHelp};
    return ArgumentReader(arguments, *facts).Read();
}

std::wstring HelpText(const std::wstring& topic)
{
    if (const CommandFacts* const facts = FindCommand(topic))
        return std::wstring(L"velmmenu ") + facts->usage + L"\n\n" + facts->details;
    constexpr std::size_t column = 44;
    std::wstring text = L"velmmenu COMMAND ...\n"
                        L"\n"
                        L"For writers of menu and toolbar descriptions.\n"
                        L"\n";
    for (const CommandFacts& facts : Commands) {
        std::wstring line = std::wstring(L"  ") + facts.usage;
        line.resize(std::max(column, line.size() + 1), L' ');
        text += line + facts.summary + L"\n";
    }
    return text + L"  COMMAND --help                            tells more about a command\n"
                  L"  --help, --version                         prints this text, or the version\n";
}

} // namespace velmmenu
