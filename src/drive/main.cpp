// sparrowfield-drive: the whole program without a screen, driven line by line. Its manual is
// docs/drive.md.

#include "drive/driver.h"
#include "platform/posix/folders.h"
#include "platform/posix/leftover_pages.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/sqlite_settings_store.h"
#include "platform/posix/temporary_folder.h"
#include "platform/posix/user_folders.h"
#include "program/program.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>

namespace fs = std::filesystem;

namespace {

struct Options {
    std::string app, data, user, script;
    std::string screen = "1280x1024";
};

/// WIDTHxHEIGHT in pixels.
std::optional<Size> ParseScreen(std::string const& text)
{
    int width = 0, height = 0, length = 0;
    if (std::sscanf(text.c_str(), "%dx%d%n", &width, &height, &length) != 2)
        return std::nullopt;
    bool const isWhole = static_cast<std::size_t>(length) == text.size();
    if (!isWhole || width < 1 || height < 1 || width > 100000 || height > 100000)
        return std::nullopt;
    return Size { static_cast<float>(width), static_cast<float>(height) };
}

int RunScript(Options const& options, std::istream& script, Size screen)
{
    std::optional<TemporaryFolder> fresh; // for the user's data, unless a folder is named
    auto const user = options.user.empty() ? fresh.emplace().Path() : fs::absolute(options.user);
    if (user.empty())
        throw std::runtime_error("can't make a folder for the user's data");
    if (auto const made = MakeFolders(user); !made)
        throw std::runtime_error(ToUtf8(made.failure().Message()));
    auto const application = options.app.empty() ? ProgramFolder() : fs::absolute(options.app);
    if (!options.data.empty())
        fs::current_path(options.data);

    auto const drive = DriveFolder(user);
    PosixFileSystem files({ application, drive });
    RemoveLeftoverPages(drive / "Temp");
    SqliteSettingsStore settings(SettingsFile(user));
    InlineWriter writer; // so that what a command has stored is there when it is answered
    RecordingShell shell;
    HeadlessHost host(files, screen);
    Program program(host, files, settings, writer, shell);
    Machine machine { host, program.GetScreen(), settings, shell };
    Driver driver(machine, script, std::cout, [&fresh](int status) {
        fresh.reset();
        std::cout.flush();
        std::_Exit(status);
    });
    program.Start(settings.OpeningReport());
    driver.Run();
    program.Finish();
    return driver.Status();
}

} // namespace

int main(int count, char** words)
{
    CLI::App app {
        "Runs the whole program without a screen, driven by a script of one command a line."
    };
    Options options;
    app.add_option(
           "--app", options.app, "the application folder (left out: the folder of this program)")
        ->check(CLI::ExistingDirectory);
    app.add_option("--data", options.data, "the current directory of the run")
        ->check(CLI::ExistingDirectory);
    app.add_option("--user", options.user,
        "the user's own folder, kept for the next run (left out: a fresh one)");
    app.add_option("--screen", options.screen, "the screen in pixels, WIDTHxHEIGHT");
    app.add_option(
        "SCRIPT", options.script, "a file with one command a line (left out: standard input)");
    try {
        app.parse(count, words);
    } catch (CLI::ParseError const& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    auto const screen = ParseScreen(options.screen);
    if (!screen) {
        std::cerr << "--screen: not WIDTHxHEIGHT: " << options.screen << '\n';
        return 2;
    }
    std::ifstream file;
    if (!options.script.empty()) {
        file.open(options.script);
        if (!file || fs::is_directory(options.script)) {
            std::cerr << "can't read the script " << options.script << '\n';
            return 2;
        }
    }
    try {
        return RunScript(options, options.script.empty() ? std::cin : file, *screen);
    } catch (std::exception const& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
