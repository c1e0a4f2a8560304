#include "platform/posix/user_folders.h"

#include "platform/posix/folders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace fs = std::filesystem;

static fs::path Home()
{
    char const* const home = std::getenv("HOME");
    if (home && *home == '/')
        return home;
    auto const* const user = ::getpwuid(::getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

static fs::path DataHome()
{
    char const* const named = std::getenv("XDG_DATA_HOME");
    if (named && *named == '/') // A relative path is invalid and is ignored.
        return named;
    return Home() / ".local" / "share";
}

fs::path UserDataFolder()
{
    fs::path folder = DataHome() / "sparrowfield";
    // Where this fails, so does what is to be stored there, with its reason.
    static_cast<void>(MakeFolders(folder));
    return folder;
}

fs::path SettingsFile(fs::path const& userFolder)
{
    return userFolder / "settings.db";
}

fs::path DriveFolder(fs::path const& userFolder)
{
    return userFolder / "drive_c";
}

fs::path ProgramFolder()
{
    return fs::read_symlink("/proc/self/exe").parent_path();
}
