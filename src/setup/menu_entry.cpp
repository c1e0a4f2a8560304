#include "setup/menu_entry.h"

#include "platform/posix/folders.h"
#include "platform/posix/whole_file.h"

#include <cerrno>
#include <unistd.h>

namespace fs = std::filesystem;

/// The text of packaging/sparrowfield.desktop, without paths.
extern char const* const entryTemplate;

namespace {

constexpr char const* entryName = "sparrowfield.desktop";

struct Icon {
    fs::path from; ///< below the installed copy
    fs::path folder; ///< below the user's icons
    std::string name;
};

std::vector<Icon> Icons()
{
    std::vector<Icon> icons { { "icons/sparrowfield.svg", "scalable/apps", "sparrowfield.svg" } };
    for (char const* size : { "16", "22", "24", "32", "48", "64", "128", "256" })
        icons.push_back({ std::string("icons/sparrowfield-") + size + ".png",
            fs::path(std::string(size) + "x" + size) / "apps", "sparrowfield.png" });
    return icons;
}

/// A text, escaped as the value of a key.
std::string Value(std::string_view text)
{
    constexpr std::string_view special = "\\\n\r\t", letters = "\\nrt";
    std::string value;
    for (char const character : text)
        if (auto const which = special.find(character); which != special.npos)
            (value += '\\') += letters[which];
        else
            value += character;
    return value;
}

/// A quoted word of a command line.
std::string Quoted(std::string_view word)
{
    std::string quoted = "\"";
    for (char const character : word) {
        if (character == '"' || character == '`' || character == '$' || character == '\\')
            quoted += '\\';
        quoted += character;
    }
    return quoted + '"';
}

/// The command that starts the program of a folder, in that folder.
std::string Command(fs::path const& folder)
{
    auto const program = (folder / installedProgram).string();
    // The path of a program must not contain "=", and desktops don't find one that contains "%",
    // however it is escaped.
    if (program.find_first_of("=%") != std::string::npos)
        return std::string("sh -c \"exec ./") + installedProgram + '"';
    return Quoted(program);
}

/// True if a folder between `base` and the file is a link.
bool IsReachedThroughLink(fs::path const& file, fs::path const& base)
{
    std::error_code ignored;
    for (auto folder = file.parent_path(); folder != base && folder.has_relative_path();
         folder = folder.parent_path())
        if (fs::is_symlink(fs::symlink_status(folder, ignored)))
            return true;
    return false;
}

/// True if the entry is a file that starts a program in the folder.
bool PointsTo(fs::path const& entry, fs::path const& folder)
{
    auto const text = IsOwnedByUser(entry, fs::file_type::regular)
        ? ReadWholeFile(entry)
        : Outcome<std::string>(Failure());
    return text
        && ('\n' + *text + '\n').find("\nPath=" + Value(folder.string()) + '\n')
        != std::string::npos;
}

/// True for a link into the copy, and for a file with the same bytes as the copy's.
bool IsIconOfCopy(fs::path const& icon, fs::path const& copys, bool hasOwnEntry)
{
    std::error_code error;
    if (auto const link = fs::read_symlink(icon, error); !error)
        return (icon.parent_path() / link).lexically_normal() == copys;
    if (!IsOwnedByUser(icon, fs::file_type::regular))
        return false;
    if (!fs::exists(copys, error))
        return hasOwnEntry;
    auto const bytes = ReadWholeFile(icon), original = ReadWholeFile(copys);
    return bytes && original && *bytes == *original;
}

void RemoveFile(fs::path const& file, fs::path const& base, std::vector<Failure>& faults)
{
    if (IsReachedThroughLink(file, base))
        faults.push_back(FileFailure(file, u"it is reached through a link and was left alone"));
    else if (::unlink(file.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR)
        faults.push_back(FileFailure(file));
}

/// Marks the theme's folder as changed, so that desktops look for new icons.
void Touch(fs::path const& icons)
{
    std::error_code ignored;
    fs::last_write_time(icons, fs::file_time_type::clock::now(), ignored);
}

} // namespace

std::string MenuEntry(fs::path const& folder)
{
    std::string entry = entryTemplate;
    auto const start = entry.find("\nExec=") + 1;
    return entry.replace(start, entry.find('\n', start) - start,
        "Exec=" + Value(Command(folder)) + "\nPath=" + Value(folder.string()));
}

std::vector<Failure> AddToMenu(SetupPlaces const& places)
{
    std::vector<Failure> faults;
    if (auto const target = places.target.string(); ToUtf8(FromUtf8(target)) != target) {
        faults.push_back(
            { FromUtf8(target), 0, u"its path isn't UTF-8, so no menu entry was made" });
        return faults;
    }
    auto const put
        = [&faults](fs::path const& folder, std::string const& name, std::string_view bytes) {
              auto const made = MakeFolders(folder);
              auto const done = made ? ReplaceFile(folder / name, bytes) : made;
              if (!done)
                  faults.push_back(done.failure());
          };
    for (auto const& icon : Icons()) {
        if (auto const bytes = ReadWholeFile(places.target / icon.from))
            put(places.icons / icon.folder, icon.name, *bytes);
    }
    Touch(places.icons);
    put(places.menu, entryName, MenuEntry(places.target));
    return faults;
}

std::vector<fs::path> FindMenuFiles(SetupPlaces const& places)
{
    std::vector<fs::path> files;
    auto const entry = places.menu / entryName;
    bool const hasOwnEntry = PointsTo(entry, places.target);
    if (hasOwnEntry)
        files.push_back(entry);
    for (auto const& icon : Icons())
        if (auto const file = places.icons / icon.folder / icon.name;
            IsIconOfCopy(file, places.target / icon.from, hasOwnEntry))
            files.push_back(file);
    return files;
}

std::vector<Failure> RemoveFromMenu(SetupPlaces const& places, std::vector<fs::path> const& files)
{
    std::vector<Failure> faults;
    for (auto const& file : files) {
        RemoveFile(file, places.menu.parent_path(), faults);
        auto const folder = file.parent_path();
        if (folder != places.menu && !IsReachedThroughLink(file, places.menu.parent_path())
            && ::rmdir(folder.c_str()) == 0)
            ::rmdir(folder.parent_path().c_str());
    }
    Touch(places.icons);
    return faults;
}
