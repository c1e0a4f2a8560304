#pragma once
// The subcommands of sparrowfield-kit, with their arguments read. Each gives the exit status: 0, or
// 1 where its input is wrong, and then every fault stands on standard error.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

struct BibleImportArguments {
    std::filesystem::path from, to;
    std::string translation; ///< "kjv" or "nasb"
    std::string about; ///< what the reader tells of the text, as IsAboutText; empty for nothing
};
int RunBibleImport(BibleImportArguments const& arguments);

struct MakeArguments {
    std::filesystem::path source, to;
    bool isPlain = false;
    std::filesystem::path bible; ///< of a study alone, as the next one
    std::string translation = "kjv";
};
int RunStudyMake(MakeArguments const& arguments);
/// The general texts.
int RunTextMake(MakeArguments const& arguments);

int RunStudyCheck(std::vector<std::filesystem::path> const& files);

struct AnswersArguments {
    std::filesystem::path user; ///< the user's folder; empty for that of this user
    std::filesystem::path file; ///< the backup, or the folder of an export
    std::filesystem::path disc = "."; ///< of an export, as the next two
    std::string format = "html"; ///< "html", "markdown" or "json"
    bool withPublisher = false;
    bool replaces = false; ///< a file that is there, or texts that differ
};
int RunAnswersExport(AnswersArguments const& arguments);
int RunAnswersBackup(AnswersArguments const& arguments);
int RunAnswersRestore(AnswersArguments const& arguments);

/// Filters from standard input to standard output. Without a letter it changes from line to line.
int RunTextScramble(std::optional<char> shiftLetter);
int RunTextDecode();
