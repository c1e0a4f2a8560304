#pragma once
// The command line of Setup.exe.

#include <optional>
#include <span>
#include <string>

enum class Task { Ask, Install, Uninstall, Help };

struct SetupOptions {
    Task task = Task::Ask;
    bool isConsole = false; ///< no window, though there is a screen
};

/// The words behind the program's name; nothing if they make no sense.
std::optional<SetupOptions> ReadOptions(std::span<char const* const> words);

/// What --help shows.
std::string HelpText();
