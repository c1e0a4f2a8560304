#include "setup/places.h"

#include "platform/posix/path_rules.h"

namespace fs = std::filesystem;

SetupPlaces FindPlaces(fs::path const& disc, fs::path const& userData)
{
    fs::path const drive = userData / "drive_c";
    auto const dataHome = userData.parent_path();
    return { disc, PlaceOf(installedFolder, drive).value_or(fs::path()), dataHome / "applications",
        dataHome / "icons" / "hicolor" };
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
