#include "drive/commands.h"

Json Execute(Machine& machine, std::span<Word const> words)
{
    std::string const& name = words.front().text;
    for (auto const& table : { Questions(), Actions() })
        for (Command const& command : table)
            if (command.name == name) {
                Arguments const arguments(machine.screen, words.subspan(1));
                arguments.ExpectCount(command.fewest, command.most);
                return command.work(machine, arguments);
            }
    throw CommandError("there is no command " + name);
}
