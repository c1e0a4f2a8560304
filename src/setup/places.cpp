#include "setup/places.h"

#include "platform/posix/path_rules.h"
#include "platform/posix/user_folders.h"

namespace fs = std::filesystem;

SetupPlaces FindPlaces(fs::path const& disc, fs::path const& userData)
{
    auto const dataHome = userData.parent_path();
    auto const copy = PlaceOf(installedFolder, DriveFolder(userData)).value_or(fs::path());
    return { disc, copy, dataHome / "applications", dataHome / "icons" / "hicolor" };
}

bool IsInside(fs::path const& place, fs::path const& folder)
{
    auto const relative = place.lexically_relative(folder);
    return !relative.empty() && *relative.begin() != "..";
}

bool IsInstalled(SetupPlaces const& places)
{
    std::error_code error;
    return fs::exists(fs::symlink_status(places.target, error));
}

bool RunsFromCopy(SetupPlaces const& places)
{
    std::error_code error;
    return fs::equivalent(places.disc, places.target, error);
}
