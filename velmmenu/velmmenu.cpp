// A console tool for writers of menu and toolbar descriptions; CommandLine.cpp tells what it does.
#include <afxwin.h>
#include <comdef.h>

#include <shellapi.h>

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "Bitmaps.h"
#include "Check.h"
#include "CommandLine.h"
#include "Failure.h"
#include "Picture.h"
#include "ShowTree.h"
#include "SourceFile.h"
#include "Starter.h"
#include "ToolHost.h"
#include "shell/Console.h"

namespace
{

using namespace velmmenu;
using velmhost::PrintError;
using velmhost::PrintOutput;

std::vector<std::wstring> ProgramArguments()
{
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> list(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    std::vector<std::wstring> arguments;
    for (int i = 1; list && i < count; ++i)
        arguments.emplace_back(list.get()[i]);
    return arguments;
}

// A file that was read and built into the host.
struct BuiltFile
{
    std::unique_ptr<Description> description;
    std::vector<std::wstring> messages;
};

BuiltFile Build(const std::wstring& fileName)
{
    const std::wstring text = ReadDescriptionFile(fileName);
    BuiltFile built;
    try {
        built.description = std::make_unique<Description>(text);
    } catch (const Failure& failure) {
        throw Failure{fileName + L":" + failure.text};
    }
    built.messages = Host().Build(text);
    return built;
}

int ReportMessages(const std::wstring& fileName, const BuiltFile& built)
{
    for (const std::wstring& message : built.messages)
        PrintError(fileName + L": the host says: " + message + L"\n");
    return built.messages.empty() ? ExitClean : ExitFindings;
}

int RunCheck(const CommandLine& line)
{
    const auto bitmaps = FindBitmapFolder(line.file, line.bitmaps);
    const BuiltFile built = Build(line.file);
    const std::vector<Finding> findings = Check(*built.description, built.messages, bitmaps);
    std::wstring text;
    for (const Finding& finding : findings)
        text += line.file + L":" + std::to_wstring(finding.line) + L": " + finding.text + L"\n";
    PrintOutput(text);
    return findings.empty() ? ExitClean : ExitFindings;
}

int RunShow(const CommandLine& line)
{
    const BuiltFile built = Build(line.file);
    PrintOutput(ShowTree(Host().BuiltMenu(), Host().BuiltToolBar()));
    return ReportMessages(line.file, built);
}

int RunPicture(const CommandLine& line)
{
    const auto bitmaps = FindBitmapFolder(line.file, line.bitmaps);
    const BuiltFile built = Build(line.file);
    SavePicture(Host().BuiltMenu(), Host().BuiltToolBar(), bitmaps.value_or(std::wstring()), line.picture);
    return ReportMessages(line.file, built);
}

int RunNew(const CommandLine& line)
{
    if (line.file.empty())
        PrintOutput(StarterText);
    else
        WriteNewFile(line.file, StarterText);
    return ExitClean;
}

int Run(const CommandLine& line)
{
    switch (line.command) {
    case Command::Help:
        PrintOutput(HelpText(line.topic));
        return ExitClean;
    case Command::Version:
        PrintOutput(L"velmmenu " VELMMENU_VERSION L"\n");
        return ExitClean;
    case Command::Check:
        return RunCheck(line);
    case Command::Show:
        return RunShow(line);
    case Command::Picture:
        return RunPicture(line);
    case Command::New:
        return RunNew(line);
    }
    return ExitUnreadable;
}

int RunGuarded()
{
    std::wstring problem;
    try {
        return Run(CommandLine::Parse(ProgramArguments()));
    } catch (const Failure& failure) {
        PrintError(failure.text + L"\n");
        return ExitUnreadable;
    } catch (const _com_error& error) {
        problem = error.ErrorMessage();
    } catch (CException* exception) {
        wchar_t text[512] = L"";
        exception->GetErrorMessage(text, static_cast<UINT>(std::size(text)));
        exception->Delete();
        problem = text;
    } catch (const std::exception&) {
        problem = L"there is not enough memory, or the platform failed";
    }
    PrintError(L"velmmenu: " + problem + L"\n");
    return ExitUnreadable;
}

} // namespace

int main()
{
    if (!AfxWinInit(::GetModuleHandleW(nullptr), nullptr, ::GetCommandLine(), 0) ||
        FAILED(::CoInitialize(nullptr)))
    {
        PrintError(L"velmmenu: the platform's libraries do not start\n");
        return ExitUnreadable;
    }
    const int status = RunGuarded();
    ::CoUninitialize();
    return status;
}
