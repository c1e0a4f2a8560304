#include "setup/options.h"

#include <string_view>

std::optional<SetupOptions> ReadOptions(std::span<char const* const> words)
{
    SetupOptions options;
    for (std::string_view const word : words) {
        auto task = Task::Ask;
        if (word == "--install")
            task = Task::Install;
        else if (word == "--uninstall")
            task = Task::Uninstall;
        else if (word == "--help" || word == "-h")
            task = Task::Help;
        else if (word != "--console")
            return std::nullopt;
        if (task == Task::Ask)
            options.isConsole = true;
        else if (options.task == Task::Ask || options.task == task)
            options.task = task;
        else
            return std::nullopt;
    }
    return options;
}

std::string HelpText()
{
    return "Setup.exe: installs Sparrowfield Interactive Bible Study from its disc\n"
           "\n"
           "  Setup.exe              opens a window that offers what can be done\n"
           "  Setup.exe --install    installs the disc for this user, or repairs the copy\n"
           "  Setup.exe --uninstall  removes the copy; answers and notes stay\n"
           "  Setup.exe --help       shows this text\n"
           "\n"
           "  --console              tells what is done as text, without a window; so does a\n"
           "                         missing screen\n"
           "\n"
           "Exit status: 0 done, 1 failed or cancelled, 2 wrong options.\n";
}
