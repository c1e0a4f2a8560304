// The subcommands about a user's own work.

#include "base/printable.h"
#include "bible/note_file.h"
#include "kit/answers/answer_documents.h"
#include "kit/answers/user_work.h"
#include "kit/commands.h"
#include "kit/common/files.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/user_folders.h"
#include "platform/posix/whole_file.h"
#include "study/answer_keys.h"

#include <algorithm>
#include <cassert>
#include <iostream>

namespace fs = std::filesystem;

static int Fail(Failure const& failure)
{
    std::cerr << ToUtf8(Printable(failure.Message())) << '\n';
    return 1;
}

static fs::path UserFolder(fs::path const& given)
{
    return given.empty() ? UserDataFolder() : fs::absolute(given);
}

static std::string Counted(std::size_t count, char const* thing)
{
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

static std::string Counted(UserWork const& work)
{
    auto const answers
        = static_cast<std::size_t>(std::count_if(work.entries.begin(), work.entries.end(),
            [](auto const& entry) { return IsAnswerKey(entry.key) && !entry.value.empty(); }));
    auto const notes = static_cast<std::size_t>(
        std::count_if(work.notes.begin(), work.notes.end(), [](auto const& note) {
            return ChapterOfNote(FromUtf8(note.first)) && !note.second.empty();
        }));
    return Counted(answers, "answer") + " and " + Counted(notes, "note");
}

static std::size_t QuestionsIn(std::vector<Document> const& documents)
{
    std::size_t questions = 0;
    for (auto const& document : documents)
        for (auto const& section : document.sections)
            questions += section.pages.size();
    return questions;
}

int RunAnswersExport(AnswersArguments const& arguments)
{
    auto const user = UserFolder(arguments.user);
    auto const to = fs::absolute(arguments.file);
    auto const work = LoadUserWork(user);
    if (!work)
        return Fail(work.failure());
    std::error_code error;
    fs::current_path(arguments.disc, error); // Study files are found by their bare names.
    if (error)
        return Fail(FileFailure(arguments.disc, error.value()));
    PosixFileSystem files({ fs::current_path(), DriveFolder(user) });
    auto documents = BuildAnswerDocuments(*work, files, arguments.withPublisher);
    auto const answers = QuestionsIn(documents);
    auto notesDocument = BuildNotesDocument(*work, files);
    auto const notes = notesDocument.sections.size();
    if (notes > 0)
        documents.push_back(std::move(notesDocument));
    auto const format = arguments.format == "json" ? DocumentFormat::Json
        : arguments.format == "markdown"           ? DocumentFormat::Markdown
                                                   : DocumentFormat::Html;
    char const* const ending = format == DocumentFormat::Json ? ".json"
        : format == DocumentFormat::Markdown                  ? ".md"
                                                              : ".html";
    OutputFiles outputs;
    for (auto const& document : documents)
        outputs[document.name + ending] = Render(document, format);
    assert(outputs.size() == documents.size());
    if (auto const replaced = ReplaceFiles(to, outputs, Readers::Owner); !replaced)
        return Fail(replaced.failure());
    std::cout << Printable(to.string()) << ": " << Counted(documents.size(), "document") << " with "
              << Counted(answers, "answer") << " and " << Counted(notes, "note") << ".\n";
    return 0;
}

int RunAnswersBackup(AnswersArguments const& arguments)
{
    auto const present = fs::symlink_status(arguments.file);
    if (fs::exists(present) && !fs::is_regular_file(present))
        return Fail(FileFailure(arguments.file, u"it is not a regular file"));
    if (!arguments.replaces && fs::exists(present))
        return Fail(FileFailure(arguments.file, u"it already exists; --replace overwrites it"));
    auto const work = LoadUserWork(UserFolder(arguments.user));
    if (!work)
        return Fail(work.failure());
    if (auto const written = WriteBackup(*work, arguments.file); !written)
        return Fail(written.failure());
    std::cout << Printable(arguments.file.string()) << ": " << Counted(*work) << ", "
              << fs::file_size(arguments.file) << " bytes.\n";
    return 0;
}

int RunAnswersRestore(AnswersArguments const& arguments)
{
    auto const backup = ReadBackup(arguments.file);
    if (!backup)
        return Fail(backup.failure());
    auto const user = UserFolder(arguments.user);
    auto const present = LoadUserWork(user);
    if (!present)
        return Fail(present.failure());
    auto const plan = PlanRestore(*present, *backup, arguments.replaces);
    if (!plan.differing.empty() && !arguments.replaces) {
        for (auto const& name : plan.differing)
            std::cerr << Printable(name) << ": it has a different text now\n";
        std::cerr << "Nothing was restored. With --replace the texts of the backup replace these "
                  << plan.differing.size() << ".\n";
        return 1;
    }
    if (!plan.differing.empty()) {
        fs::path const copy = FirstFreeName((user / "before-restore-").string(), ".backup");
        if (auto const written = WriteBackup(*present, copy); !written)
            return Fail(written.failure());
        std::cout << "The present work was first saved in " << Printable(copy.string()) << ".\n";
    }
    if (auto const restored = Restore(plan, user, arguments.replaces); !restored)
        return Fail(restored.failure());
    std::cout << Printable(user.string()) << ": restored from " << Counted(*backup) << "; "
              << plan.same << " of them were there already, " << plan.differing.size()
              << " replaced a different text.\n";
    return 0;
}
