// The host's command line: velmhost [OPTION]... [ADDIN]... [-- ARGUMENTS FOR ADD-INS]
#pragma once

#include <string>
#include <vector>

namespace velmhost
{

// What a step of an unattended run does. The argument of a path is its labels with bars between them.
enum class StepKind
{
    PressItem,   // click through the menus to an item: "Menu|Sub|Item"
    PressButton, // click a toolbar's button, if need be through fly-outs: "Toolbar|Flyout|Button"
    OpenMenu,    // open a menu or cascade and leave it open: "Menu|Sub"
    OpenFlyout,  // open a fly-out and leave it open: "Toolbar|Flyout"
    ClosePopups, // close open menus and fly-outs
    Type,        // type a text in the command line and press Enter
    WaitIdle,    // wait until nothing is left to do
    Screenshot,  // save a picture of the host's part of the screen in a file
    Exit         // close the host; later steps are not made
};

struct Step
{
    StepKind kind;
    std::wstring argument;
};

// The parsed command line.
struct ShellOptions
{
    // Parses the arguments that follow the program's name. Never fails: what cannot be understood leaves
    // its reason in `error`, and the rest is then not to be relied on.
    static ShellOptions Parse(const std::vector<std::wstring>& arguments);

    // The text of --help, lines ended by line feeds.
    static std::wstring HelpText();

    std::wstring error; // empty when all was understood
    bool help = false;
    bool version = false;
    bool tree = false;
    bool history = false;
    bool largeButtons = false;
    bool batch = false;
    bool noRegister = false;
    bool registerServer = false;
    bool unregisterServer = false;
    bool embedding = false; // started by the platform for an automation client
    int width = 0;          // of the main window in pixels; 0: the host's choice
    int height = 0;
    std::vector<std::wstring> addins;         // in the order in which they are loaded
    std::vector<std::wstring> addinArguments; // what stood after "--"
    std::vector<Step> steps;                  // in the order in which they are made
};

} // namespace velmhost
