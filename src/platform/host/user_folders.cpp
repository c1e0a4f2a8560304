#include "platform/host/user_folders.h"

#include <cstdlib>

namespace fs = std::filesystem;

static fs::path DataHome()
{
    char const* const named = std::getenv("XDG_DATA_HOME");
    if (named && *named == '/') // A relative path is invalid and counts for nothing.
        return named;
    char const* const home = std::getenv("HOME");
    return fs::path(home && *home ? home : "/") / ".local" / "share";
}

fs::path UserDataFolder()
{
    fs::path const folder = DataHome() / "sparrowfield";
    if (fs::create_directories(folder))
        fs::permissions(folder, fs::perms::owner_all);
    return folder;
}

fs::path ProgramFolder()
{
    return fs::read_symlink("/proc/self/exe").parent_path();
}
