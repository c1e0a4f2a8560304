#pragma once
// The commands of a script, without those that control the run itself (driver.h).

#include "drive/arguments.h"
#include "drive/machine.h"

/// Carries a command out and gives its answer. Throws CommandError if it can't be carried out.
Json Execute(Machine& machine, std::span<Word const> words);

/// A command's work: its arguments in, its answer out.
using CommandWork = Json (*)(Machine& machine, Arguments const& arguments);

struct Command {
    char const* name;
    std::size_t fewest, most; ///< how many words it takes after its name
    CommandWork work;
};

/// Commands that only ask.
std::span<Command const> Questions();
/// Commands that do what a user does, and those that change the machine.
std::span<Command const> Actions();
