// Any path stays below drive C:, the root or the current directory, wherever it claims to lead; the
// note on any chapter is a file of its folder, which a backup takes up.

#include "base/code_page.h"
#include "bible/note_file.h"
#include "check.h"
#include "kit/answers/user_work.h"
#include "platform/posix/path_rules.h"

#include <algorithm>

namespace fs = std::filesystem;

static fs::path const drive = "/nowhere/drive_c";

static void CheckPlace(Text const& path)
{
    auto const place = PlaceOf(path, drive);
    if (!place)
        return;
    CHECK(std::none_of(
        place->begin(), place->end(), [](fs::path const& name) { return name == ".."; }));
    CHECK(place->string().find('\0') == std::string::npos);
    bool const isOnDrive = path[0] != u'/' && path.size() > 1 && path[1] == u':';
    CHECK(place->is_absolute() == (isOnDrive || path[0] == u'/'));
    if (!isOnDrive)
        return;
    CHECK(place->string().starts_with(drive.string()));
    Text const back = PathOf(*place, drive);
    CHECK(back.starts_with(u"C:") && PlaceOf(back, drive) == place);
}

static void CheckNote(Text const& book, Text const& chapter)
{
    static Text const folder = u"C:\\notes\\";
    auto const note = NoteFile(folder, book, chapter);
    if (!note)
        return;
    CheckPlace(*note);
    auto const place = PlaceOf(*note, drive);
    CHECK(place && place->parent_path() == drive / "notes");
    auto const name = place->filename().string();
    CHECK(name == ToUtf8(book + chapter) + ".dat" && (IsNoteName(name) || name.size() > 255));
}

/// Lines of UTF-8: a path, a book, a chapter.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    auto const text = FromUtf8({ reinterpret_cast<char const*>(data), size });
    auto lines = Split(text, u'\n');
    lines.resize(3);
    for (TextView const start : { u"", u"C:\\", u"/nowhere/" })
        CheckPlace(Text(start).append(lines[0]));
    CheckNote(Text(lines[1]), Text(lines[2]));
    return 0;
}
