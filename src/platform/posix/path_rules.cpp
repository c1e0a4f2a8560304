#include "platform/posix/path_rules.h"

#include <algorithm>

namespace fs = std::filesystem;

/// The entry of a folder that bears the name, exactly or but for its case (of several the first in
/// order); the name itself if there is none.
static fs::path Entry(fs::path const& folder, TextView name)
{
    fs::path exact = folder / fs::path(ToUtf8(name));
    std::error_code error;
    if (fs::exists(fs::symlink_status(exact, error)))
        return exact;
    Text const lower = ToLowerLatin(name);
    fs::path found;
    fs::directory_iterator entries(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        fs::path const entry = entries->path().filename();
        if (ToLowerLatin(FromUtf8(entry.string())) == lower && (found.empty() || entry < found))
            found = entry;
    }
    return found.empty() ? exact : folder / found;
}

/// Goes down from a folder by the names of a path; nothing if one leads up.
static std::optional<fs::path> Descend(fs::path place, TextView path)
{
    Text names(path);
    std::replace(names.begin(), names.end(), u'\\', u'/');
    for (TextView name : Split(names, u'/')) {
        if (name == u".." || Contains(name, u'\0'))
            return std::nullopt;
        if (!name.empty() && name != u".")
            place = Entry(place, name);
    }
    return place;
}

std::optional<fs::path> PlaceOf(TextView path, fs::path const& drive)
{
    if (path.empty() || path[0] == u'\\')
        return std::nullopt;
    if (path[0] == u'/')
        return Descend("/", path);
    if (path.size() >= 2 && path[1] == u':') {
        bool const isOurs = (path[0] == u'C' || path[0] == u'c')
            && (path.size() == 2 || path[2] == u'\\' || path[2] == u'/');
        return isOurs ? Descend(drive, path.substr(2)) : std::nullopt;
    }
    return Descend({}, path);
}

Text PathOf(fs::path const& place, fs::path const& drive)
{
    auto const below = place.lexically_relative(drive);
    if (below.empty() || *below.begin() == "..")
        return FromUtf8(place.string());
    Text path = below == "." ? Text(u"C:") : u"C:\\" + FromUtf8(below.string());
    std::replace(path.begin(), path.end(), u'/', u'\\');
    return path;
}
