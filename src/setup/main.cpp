// sparrowfield-setup, on the disc Setup.exe: installs the disc from which it was started. Its
// manual is docs/setup.md.

#include "base/printable.h"
#include "platform/posix/console.h"
#include "platform/posix/user_folders.h"
#include "setup/console_setup.h"
#ifdef SPARROWFIELD_SETUP_WINDOW
#include "setup/window/run_window.h"
#endif

#include <CLI/CLI.hpp>

#include <iostream>

static int Run(Task task, [[maybe_unused]] bool inWindow, [[maybe_unused]] char** words)
{
    DeferredInterrupt const end; // before the first thread, so that it applies to all
    auto const places = FindPlaces(ProgramFolder(), UserDataFolder());
    auto const isEndRequested = [&end] { return end.IsRequested(); };
#ifdef SPARROWFIELD_SETUP_WINDOW
    if (inWindow)
        return RunSetupWindow(task, places, isEndRequested, words);
#endif
    return RunConsoleSetup(task, places, isEndRequested);
}

int main(int count, char** words)
{
    CLI::App app("Installs Sparrowfield Interactive Bible Study from its disc. Without options a "
                 "window offers what can be done.",
        "Setup.exe");
    app.footer("Exit status: 0 done, 1 failed or cancelled, 2 wrong options.");
    app.failure_message(CLI::FailureMessage::help);
    bool installs = false, uninstalls = false, isConsole = false;
    auto* const install = app.add_flag(
        "--install", installs, "Installs the disc for this user, or repairs the installed copy");
    app.add_flag("--uninstall", uninstalls, "Removes the copy; answers and notes are kept")
        ->excludes(install);
    app.add_flag("--console", isConsole,
        "Reports as text, without a window, as it does without a screen; one of the other options "
        "must be given");
    try {
        app.parse(count, words);
    } catch (CLI::ParseError const& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    auto const task = installs ? Task::Install : uninstalls ? Task::Uninstall : Task::Ask;
#ifdef SPARROWFIELD_SETUP_WINDOW
    bool const inWindow = !isConsole && HasDisplay();
#else
    bool const inWindow = false;
#endif
    if (task == Task::Ask && !inWindow) {
        std::cerr << app.help();
        return 2;
    }
    try {
        return Run(task, inWindow, words);
    } catch (std::exception const& error) {
        std::cerr << "Setup.exe: " << Printable(std::string_view(error.what())) << '\n';
        return 1;
    }
}
