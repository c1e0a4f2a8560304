// sparrowfield-setup, on the disc Setup.exe: installs the disc on which it lies. Its manual is
// docs/setup.md.

#include "base/printable.h"
#include "platform/posix/console.h"
#include "platform/posix/user_folders.h"
#include "setup/console_setup.h"
#ifdef SPARROWFIELD_SETUP_WINDOW
#include "setup/window/run_window.h"
#endif

#include <iostream>

static int Run(
    SetupOptions const& options, [[maybe_unused]] bool inWindow, [[maybe_unused]] char** words)
{
    DeferredInterrupt const end; // before the first thread, so that it holds for all
    auto const places = FindPlaces(ProgramFolder(), UserDataFolder());
    auto const isEndRequested = [&end] { return end.IsWished(); };
#ifdef SPARROWFIELD_SETUP_WINDOW
    if (inWindow)
        return RunSetupWindow(options.task, places, isEndRequested, words);
#endif
    return RunConsoleSetup(options.task, places, isEndRequested);
}

int main(int count, char** words)
{
    auto const options
        = ReadOptions({ words + 1, static_cast<std::size_t>(count > 0 ? count - 1 : 0) });
    if (options && options->task == Task::Help) {
        std::cout << HelpText();
        return std::cout.flush() ? 0 : 1;
    }
#ifdef SPARROWFIELD_SETUP_WINDOW
    bool const inWindow = options && !options->isConsole && HasDisplay();
#else
    bool const inWindow = false;
#endif
    if (!options || (options->task == Task::Ask && !inWindow)) {
        std::cerr << HelpText();
        return 2;
    }
    try {
        return Run(*options, inWindow, words);
    } catch (std::exception const& error) {
        std::cerr << "Setup.exe: " << Printable(std::string_view(error.what())) << '\n';
        return 1;
    }
}
