// sparrowfield-kit: the command line of those who write studies and put discs together. Its manual
// is docs/kit.md.

#include "base/printable.h"
#include "kit/bible/bible_import.h"
#include "kit/commands.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <iostream>

namespace {

CLI::App* AddGroup(CLI::App& app, std::string const& name, std::string const& purpose)
{
    auto* const group = app.add_subcommand(name, purpose);
    group->require_subcommand(1);
    return group;
}

class CommandLine {
public:
    CommandLine()
    {
        m_app.require_subcommand(1);
        AddBible(*AddGroup(m_app, "bible", "Bible texts"));
        AddStudy(*AddGroup(m_app, "study", "Studies"));
        AddText(*AddGroup(m_app, "text", "General texts and scrambled lines"));
        AddAnswers(*AddGroup(m_app, "answers", "A user's own answers and notes"));
    }

    int Run(int count, char** words)
    {
        try {
            m_app.parse(count, words);
        } catch (CLI::ParseError const& error) {
            return m_app.exit(error) == 0 ? 0 : 2;
        }
        auto const status = m_run();
        if (std::cout.flush())
            return status;
        std::cerr << "standard output: it can't be written\n";
        return 1;
    }

private:
    void AddBible(CLI::App& group)
    {
        auto* const command = group.add_subcommand("import",
            "Makes the Bible files of a disc from the export of a SWORD module (mod2imp MODULE > "
            "FILE)");
        command->add_option("--from", m_import.from, "the export")->required();
        command
            ->add_option(
                "--as", m_import.translation, "the place of the text on the disc, kjv or nasb")
            ->required()
            ->check(CLI::IsMember({ "kjv", "nasb" }));
        command->add_option("--to", m_import.to, "the folder of the disc")->required();
        command
            ->add_option(
                "--about", m_import.about, "what the reader tells of the text, in one line")
            ->check(CLI::Validator(
                [](std::string& text) {
                    return std::string(
                        IsAboutText(text) ? "" : "not one line of 1 to 200 characters");
                },
                "TEXT"));
        command->callback([this] { m_run = [this] { return RunBibleImport(m_import); }; });
    }

    void AddStudy(CLI::App& group)
    {
        auto* const make = group.add_subcommand(
            "make", "Makes the study files and verse files of a readable source");
        make->add_option("SOURCE", m_make.source, "the source; its name is the name of the study")
            ->required();
        make->add_option("--bible", m_make.bible, "the folder with the Bible files")->required();
        make->add_option(
                "--translation", m_make.translation, "the text of the passages, kjv or nasb")
            ->capture_default_str()
            ->check(CLI::IsMember({ "kjv", "nasb" }));
        AddTarget(*make);
        make->callback([this] { m_run = [this] { return RunStudyMake(m_make); }; });

        auto* const check
            = group.add_subcommand("check", "Holds study and verse files against their grammar");
        check->add_option("FILE", m_files, "files of a disc")->required();
        check->callback([this] { m_run = [this] { return RunStudyCheck(m_files); }; });
    }

    void AddText(CLI::App& group)
    {
        auto* const make = group.add_subcommand(
            "make", "Makes introduction.txt and conclusion.txt of a readable source");
        make->add_option("SOURCE", m_make.source, "the source")->required();
        AddTarget(*make);
        make->callback([this] { m_run = [this] { return RunTextMake(m_make); }; });

        auto* const scramble
            = group.add_subcommand("scramble", "Scrambles each line of standard input");
        scramble
            ->add_option("--shift", m_shiftLetter,
                "the shift letter, a to z (left out: another one for each line)")
            ->check(CLI::Validator(
                [](std::string& text) {
                    bool const isLetter = text.size() == 1 && text[0] >= 'a' && text[0] <= 'z';
                    return std::string(isLetter ? "" : "not a letter from a to z: " + text);
                },
                "LETTER"));
        scramble->callback([this] {
            m_run = [this] {
                return RunTextScramble(
                    m_shiftLetter.empty() ? std::nullopt : std::optional(m_shiftLetter[0]));
            };
        });

        group.add_subcommand("decode", "Makes each scrambled line of standard input readable")
            ->callback([this] { m_run = RunTextDecode; });
    }

    void AddAnswers(CLI::App& group)
    {
        auto* const write = group.add_subcommand(
            "export", "Writes answers and notes as documents, one for each study");
        write->add_option("--to", m_answers.file, "the folder for the documents")->required();
        write->add_option("--disc", m_answers.disc, "the folder of the studies")
            ->capture_default_str();
        write->add_option("--format", m_answers.format, "html, markdown or json")
            ->capture_default_str()
            ->check(CLI::IsMember({ "html", "markdown", "json" }));
        write->add_flag("--with-publisher", m_answers.withPublisher, "add the publisher's answers");
        AddUser(*write);
        write->callback([this] { m_run = [this] { return RunAnswersExport(m_answers); }; });

        auto* const backup
            = group.add_subcommand("backup", "Puts all answers, notes and settings into one file");
        backup->add_option("FILE", m_answers.file, "the backup")->required();
        backup->add_flag("--replace", m_answers.replaces, "overwrite the file if it is there");
        AddUser(*backup);
        backup->callback([this] { m_run = [this] { return RunAnswersBackup(m_answers); }; });

        auto* const restore = group.add_subcommand("restore", "Brings back what a backup holds");
        restore->add_option("FILE", m_answers.file, "the backup")->required();
        restore->add_flag("--replace", m_answers.replaces,
            "also replace texts that are different now; a backup of them is made first");
        AddUser(*restore);
        restore->callback([this] { m_run = [this] { return RunAnswersRestore(m_answers); }; });
    }

    void AddUser(CLI::App& command)
    {
        command.add_option("--user", m_answers.user, "the user's folder (left out: yours)");
    }

    void AddTarget(CLI::App& command)
    {
        command.add_option("--to", m_make.to, "the folder for the files")->required();
        command.add_flag("--plain", m_make.isPlain, "leave the lines readable");
    }

    CLI::App m_app { "For those who write studies and put discs together." };
    BibleImportArguments m_import;
    MakeArguments m_make;
    AnswersArguments m_answers;
    std::vector<std::filesystem::path> m_files;
    std::string m_shiftLetter;
    std::function<int()> m_run;
};

} // namespace

int main(int count, char** words)
{
    try {
        return CommandLine().Run(count, words);
    } catch (std::exception const& error) {
        std::cerr << "sparrowfield-kit: " << Printable(std::string_view(error.what())) << '\n';
        return 2;
    }
}
