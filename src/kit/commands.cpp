#include "kit/commands.h"

#include "base/nearest_code_page.h"
#include "base/printable.h"
#include "kit/bible/bible_import.h"
#include "kit/bible/canon.h"
#include "kit/common/files.h"
#include "kit/common/progress.h"
#include "kit/study/general_texts_source.h"
#include "kit/study/scramble.h"
#include "kit/study/study_check.h"
#include "kit/study/study_source.h"
#include "kit/study/study_writer.h"

#include <algorithm>
#include <functional>
#include <iostream>

namespace {

/// Of one run. Nobody reads more.
constexpr std::size_t mostFaultsShown = 100;

int Fail(Faults const& faults)
{
    for (std::size_t i = 0; i < std::min(faults.size(), mostFaultsShown); ++i)
        std::cerr << ToString(faults[i]) << '\n';
    if (faults.size() > mostFaultsShown)
        std::cerr << "... and " << faults.size() - mostFaultsShown << " more\n";
    return 1;
}

/// Writes the files of a subcommand if it has no faults, and reports the result.
int Deliver(OutputFiles const& files, std::filesystem::path const& to, Faults const& faults)
{
    if (!faults.empty())
        return Fail(faults);
    auto const replaced = ReplaceFiles(to, files);
    if (!replaced)
        return Fail({ ToFault(replaced.failure()) });
    std::cout << Printable(to.string()) << ": " << replaced->written << " files written, "
              << replaced->unchanged << " were up to date.\n";
    return 0;
}

std::string Joined(std::vector<std::string> const& words)
{
    std::string text;
    for (auto const& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return Printable(text);
}

void Describe(BibleImport const& import)
{
    std::cout << bookCount << " books, " << import.chapters << " chapters, " << import.verses
              << " verses, " << import.paragraphs << " of them with a paragraph mark; "
              << import.replaced << " characters replaced by their nearest form.\n";
    if (!import.absent.empty())
        std::cout << "Not in this text: " << Joined(import.absent) << ".\n";
    if (import.innerParagraphs > 0)
        std::cout << "Paragraphs inside of a verse, which run on: " << import.innerParagraphs
                  << ".\n";
    if (!import.furtherBooks.empty())
        std::cout << "Further books left out: " << Joined(import.furtherBooks) << ".\n";
}

/// Filters lines; line ends stay as they are, the missing one of a last line included.
int Filter(std::function<std::string(std::string_view, std::size_t)> const& change)
{
    std::ios::sync_with_stdio(false);
    std::string line;
    for (std::size_t n = 0; std::getline(std::cin, line); ++n) {
        bool const hasEnd = !std::cin.eof();
        bool const hasReturn = hasEnd && line.ends_with('\r');
        if (hasReturn)
            line.pop_back();
        std::cout << change(line, n) << (hasReturn ? "\r" : "") << (hasEnd ? "\n" : "");
    }
    return std::cin.bad() ? Fail({ { "standard input", 0, "it can't be read" } }) : 0;
}

} // namespace

int RunBibleImport(BibleImportArguments const& arguments)
{
    Faults faults;
    auto const bytes = ReadWhole(arguments.from, faults);
    if (!bytes)
        return Fail(faults);
    auto import = ImportBible(*bytes, arguments.from.string(), arguments.translation, faults);
    if (!import)
        return Fail(faults);
    auto const about = "bible" + arguments.translation + ".about";
    // The description of another text mustn't remain.
    std::error_code error;
    if (!arguments.about.empty() || std::filesystem::exists(arguments.to / about, error))
        import->files[about] = ToNearestCodePage(FromUtf8(arguments.about)).bytes + "\r\n";
    auto const status = Deliver(import->files, arguments.to, faults);
    if (status == 0)
        Describe(*import);
    return status;
}

int RunStudyMake(MakeArguments const& arguments)
{
    Faults faults;
    auto const name = arguments.source.stem().string();
    if (!IsStudyName(name))
        faults.push_back({ arguments.source.string(), 0,
            "expected a file name of letters, digits, “_” and “-”, without “-1” and no “V-” at "
            "the start: it is the name of the study" });
    auto const bytes = ReadWhole(arguments.source, faults);
    auto bible = BibleTexts::Open(arguments.bible, arguments.translation, faults);
    if (!bytes || !bible)
        return Fail(faults);
    auto const study = ReadStudySource(*bytes, arguments.source.string(), *bible, faults);
    if (!study)
        return Fail(faults);
    return Deliver(WriteStudy(*study, name, arguments.isPlain, arguments.source.string(), faults),
        arguments.to, faults);
}

int RunTextMake(MakeArguments const& arguments)
{
    Faults faults;
    auto const bytes = ReadWhole(arguments.source, faults);
    if (!bytes)
        return Fail(faults);
    return Deliver(WriteGeneralTexts(*bytes, arguments.source.string(), arguments.isPlain, faults),
        arguments.to, faults);
}

int RunStudyCheck(std::vector<std::filesystem::path> const& files)
{
    Faults faults;
    Progress progress("Checking", files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        CheckFile(files[i], faults);
        progress.At(i + 1);
    }
    if (!faults.empty())
        return Fail(faults);
    std::cout << files.size() << (files.size() == 1 ? " file" : " files") << ", no fault.\n";
    return 0;
}

int RunTextScramble(std::optional<char> shiftLetter)
{
    return Filter([shiftLetter](std::string_view line, std::size_t n) {
        return ScrambleLine(line, shiftLetter.value_or(ChangingShiftLetter(n)));
    });
}

int RunTextDecode()
{
    return Filter([](std::string_view line, std::size_t) { return DescrambleLine(line); });
}
