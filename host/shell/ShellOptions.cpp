#include "shell/ShellOptions.h"

#include <cwchar>

namespace velmhost
{

namespace
{

struct Flag
{
    const wchar_t* name;
    bool ShellOptions::*member;
};

const Flag kFlags[] = {
    {L"--help", &ShellOptions::help},
    {L"--version", &ShellOptions::version},
    {L"--tree", &ShellOptions::tree},
    {L"--history", &ShellOptions::history},
    {L"--large-buttons", &ShellOptions::largeButtons},
    {L"--batch", &ShellOptions::batch},
    {L"--no-register", &ShellOptions::noRegister},
    {L"--register", &ShellOptions::registerServer},
    {L"--unregister", &ShellOptions::unregisterServer},
    // The platform's own way to say that an automation client wants a server.
    {L"-Embedding", &ShellOptions::embedding},
    {L"/Embedding", &ShellOptions::embedding},
};

struct StepOption
{
    const wchar_t* name;
    StepKind kind;
    bool takesArgument;
};

const StepOption kSteps[] = {
    {L"--press-item", StepKind::PressItem, true},
    {L"--press-button", StepKind::PressButton, true},
    {L"--open-menu", StepKind::OpenMenu, true},
    {L"--open-flyout", StepKind::OpenFlyout, true},
    {L"--type", StepKind::Type, true},
    {L"--screenshot", StepKind::Screenshot, true},
    {L"--close-popups", StepKind::ClosePopups, false},
    {L"--wait-idle", StepKind::WaitIdle, false},
    {L"--exit", StepKind::Exit, false},
};

// "WxH" in pixels. The bounds keep the window usable and within what GDI can draw.
bool ParseSize(const std::wstring& text, ShellOptions& options)
{
    wchar_t* end = nullptr;
    const long width = std::wcstol(text.c_str(), &end, 10);
    if (*end != L'x' && *end != L'X')
        return false;
    const wchar_t* rest = end + 1;
    const long height = std::wcstol(rest, &end, 10);
    if (end == rest || *end != 0)
        return false;
    if (width < 320 || width > 16384 || height < 240 || height > 16384)
        return false;
    options.width = static_cast<int>(width);
    options.height = static_cast<int>(height);
    return true;
}

// Walks through the arguments; an option's value is what follows "=" or the next argument.
class ArgumentReader
{
public:
    explicit ArgumentReader(const std::vector<std::wstring>& arguments) : m_arguments(arguments) {}

    bool Next()
    {
        if (m_next == m_arguments.size())
            return false;
        m_name = m_arguments[m_next++];
        m_hasInlineValue = false;
        if (m_name.starts_with(L"--")) {
            const std::size_t equals = m_name.find(L'=');
            if (equals != std::wstring::npos) {
                m_inlineValue = m_name.substr(equals + 1);
                m_name.resize(equals);
                m_hasInlineValue = true;
            }
        }
        return true;
    }

    bool TakeValue(std::wstring& value)
    {
        if (m_hasInlineValue) {
            value = m_inlineValue;
            return true;
        }
        if (m_next == m_arguments.size())
            return false;
        value = m_arguments[m_next++];
        return true;
    }

    const std::wstring& Name() const { return m_name; }
    bool HasInlineValue() const { return m_hasInlineValue; }
    std::vector<std::wstring> Rest()
    {
        std::vector<std::wstring> rest(m_arguments.begin() + static_cast<std::ptrdiff_t>(m_next),
                                       m_arguments.end());
        m_next = m_arguments.size();
        return rest;
    }

private:
    const std::vector<std::wstring>& m_arguments;
    std::size_t m_next = 0;
    std::wstring m_name;
    std::wstring m_inlineValue;
    bool m_hasInlineValue = false;
};

bool TakeFlag(const ArgumentReader& reader, ShellOptions& options)
{
    for (const Flag& flag : kFlags) {
        if (reader.Name() == flag.name) {
            options.*flag.member = true;
            return true;
        }
    }
    return false;
}

const StepOption* FindStep(const std::wstring& name)
{
    for (const StepOption& step : kSteps) {
        if (name == step.name)
            return &step;
    }
    return nullptr;
}

} // namespace

ShellOptions ShellOptions::Parse(const std::vector<std::wstring>& arguments)
{
    ShellOptions options;
    ArgumentReader reader(arguments);
    while (options.error.empty() && reader.Next()) {
        const std::wstring name = reader.Name();
        if (name == L"--") {
            options.addinArguments = reader.Rest();
        } else if (const StepOption* step = FindStep(name)) {
            std::wstring value;
            if (step->takesArgument ? !reader.TakeValue(value) : reader.HasInlineValue())
                options.error = name + (step->takesArgument ? L" needs an argument" : L" takes no argument");
            options.steps.push_back({step->kind, value});
        } else if (name == L"--size") {
            std::wstring value;
            if (!reader.TakeValue(value) || !ParseSize(value, options))
                options.error = L"--size needs WIDTHxHEIGHT in pixels, at least 320x240";
        } else if (name.starts_with(L"-") || name == L"/Embedding") {
            if (!TakeFlag(reader, options))
                options.error = L"unknown option " + name;
            else if (reader.HasInlineValue())
                options.error = name + L" takes no argument";
        } else if (!name.empty()) {
            options.addins.push_back(name);
        }
    }
    if (options.error.empty() && options.registerServer && options.unregisterServer)
        options.error = L"--register and --unregister exclude each other";
    return options;
}

std::wstring ShellOptions::HelpText()
{
    return L"velmhost [OPTION]... [ADDIN]... [-- ARGUMENTS FOR ADD-INS]\n"
           L"\n"
           L"A small CAD shell. It loads the add-ins named (.arx or .dll) in their order, calls AddInStart\n"
           L"of those that export it, AddInCommand for each command, and AddInStop in reverse order at the end.\n"
           L"\n"
           L"  --help, --version      print this text, or the version, and exit\n"
           L"  --register             write the automation server's registry entries and exit\n"
           L"  --unregister           remove them and exit\n"
           L"  --no-register          do not announce this instance to automation clients\n"
           L"  --large-buttons        toolbars with the large bitmaps\n"
           L"  --size WxH             size of the main window in pixels\n"
           L"  --batch                ask the user nothing: make the steps, then exit\n"
           L"  --tree                 print all menus and toolbars once the add-ins are loaded\n"
           L"  --history              print what was sent to the command line, once the steps are made\n"
           L"\n"
           L"Steps, made with real mouse and keyboard input in the order given, after loading:\n"
           L"  --press-item \"Menu|Sub|Item\"            click an item of a menu\n"
           L"  --press-button \"Toolbar|Flyout|Button\"  click a button, if need be through fly-outs\n"
           L"  --open-menu \"Menu|Sub\"                  open a menu and leave it open\n"
           L"  --open-flyout \"Toolbar|Flyout\"          open a fly-out and leave it open\n"
           L"  --close-popups                          close open menus and fly-outs\n"
           L"  --type \"TEXT\"                           type into the command line, then Enter\n"
           L"  --wait-idle                             wait until nothing is left to do\n"
           L"  --screenshot FILE                       save what the host shows (.png or .bmp)\n"
           L"  --exit                                  close the host\n"
           L"Labels match with or without their ampersands, and without regard to case. A bar in a label\n"
           L"is written twice.\n"
           L"\n"
           L"Exit status: 0 all well; 1 bad option, or registering failed; 2 an add-in could not be loaded\n"
           L"(with --batch); 3 a step could not be made.\n";
}

} // namespace velmhost
