#include "kit/answers/user_work.h"

#include "bible/note_file.h"
#include "platform/posix/folders.h"
#include "platform/posix/path_rules.h"
#include "platform/posix/sqlite_settings_store.h"
#include "platform/posix/user_folders.h"
#include "platform/posix/whole_file.h"
#include "study/answer_keys.h"
#include "study/study_key.h"

namespace fs = std::filesystem;

namespace {

bool IsWork(SettingsStore::Entry const& entry)
{
    return IsStudyKey(entry.section) && entry.key != currentPageKey;
}

/// How a message names an answer.
std::string NameOf(SettingsStore::Entry const& entry)
{
    return "the answer " + ToUtf8(entry.section) + ", " + ToUtf8(entry.key);
}

/// The folder of the notes in a user's folder.
fs::path NotesPlace(fs::path const& userFolder)
{
    auto const drive = DriveFolder(userFolder);
    return PlaceOf(NotesFolder(u"C"), drive).value_or(drive);
}

} // namespace

Outcome<UserWork> LoadUserWork(fs::path const& userFolder)
{
    UserWork work;
    if (auto const file = SettingsFile(userFolder); fs::exists(file)) {
        // The program itself renames a damaged one when it starts.
        SqliteSettingsStore const store(file, std::chrono::seconds(2), OnDamage::Fail);
        auto entries = store.All();
        if (!entries)
            return entries.failure();
        work.entries = std::move(*entries);
    }
    std::error_code missing;
    for (auto const& file : fs::directory_iterator(NotesPlace(userFolder), missing)) {
        auto const name = file.path().filename().string();
        if (!file.is_regular_file() || !IsNoteName(name))
            continue;
        auto bytes = ReadWholeFile(file.path());
        if (!bytes)
            return bytes.failure();
        work.notes.emplace(name, std::move(*bytes));
    }
    return work;
}

RestorePlan PlanRestore(UserWork const& present, UserWork const& backup, bool replaces)
{
    RestorePlan plan;
    std::map<std::pair<TextView, TextView>, TextView> there;
    for (auto const& entry : present.entries)
        there[{ entry.section, entry.key }] = entry.value;
    for (auto const& entry : backup.entries) {
        auto const found = there.find({ entry.section, entry.key });
        bool const isThere = found != there.end() && !found->second.empty();
        bool const isSame = found != there.end() && found->second == entry.value;
        if (!isSame && isThere && IsWork(entry))
            plan.differing.push_back(NameOf(entry));
        if (!isSame && (replaces || !isThere))
            plan.entries.push_back(entry);
        plan.same += isSame && IsWork(entry) && !entry.value.empty();
    }
    for (auto const& [name, bytes] : backup.notes) {
        auto const found = present.notes.find(name);
        bool const isThere = found != present.notes.end() && !found->second.empty();
        bool const isSame = found != present.notes.end() && found->second == bytes;
        if (!isSame && isThere)
            plan.differing.push_back("the note " + name);
        if (!isSame && (replaces || !isThere))
            plan.notes.emplace(name, bytes);
        plan.same += isSame;
    }
    return plan;
}

Outcome<Done> Restore(RestorePlan const& plan, fs::path const& userFolder, bool replaces)
{
    auto const notes = NotesPlace(userFolder);
    if (auto const made = MakeFolders(notes); !made)
        return made.failure();
    for (auto const& [name, bytes] : plan.notes)
        if (auto const written = ReplaceFile(notes / name, bytes); !written)
            return written.failure();
    SqliteSettingsStore store(SettingsFile(userFolder));
    return store.WriteAll(
        plan.entries, replaces ? SettingsStore::Existing::Goes : SettingsStore::Existing::Stays);
}
