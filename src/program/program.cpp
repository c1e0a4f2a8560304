#include "program/program.h"

#include "platform/settings.h"

#include <algorithm>
#include <cstdint>

static constexpr TextView settingsSection = u"Parameters", textSizeKey = u"textsize";

Program::Program(
    Host& host, FileSystem& files, SettingsStore& settings, Writer& writer, Shell& shell)
    : m_screen(host)
    , m_settings(settings, writer)
    , m_answers(m_settings, writer)
    , m_notes(files, writer)
    , m_video(m_screen)
    , m_welcome(m_screen, m_settings)
    , m_gettingStarted(m_screen)
    , m_finalExam(m_screen)
    , m_about(m_screen)
    , m_splash(m_screen, files, shell, m_video)
    , m_reader(m_screen, files, m_settings, m_notes)
    , m_map(m_screen, files)
    , m_answerForm(m_screen)
    , m_lesson(m_screen, files, m_answers, m_answerForm,
          { m_finalExam, m_about, m_welcome, m_gettingStarted, m_video, m_reader, m_map })
    , m_catalogue(m_screen, files, m_settings, m_lesson,
          { m_finalExam, m_about, m_welcome, m_gettingStarted, m_video, m_reader, m_map })
{
    m_lesson.SetCatalogue(m_catalogue);
    m_splash.SetCatalogue(m_catalogue);
    m_screen.handlersEnded = [this] { ReportStore(); };
    m_screen.handlerFailed = [this] { ReportOutOfMemory(); };
    m_screen.textSizeStepped = [this] { TextSizeStepped(); };
    m_screen.SaveDesigns();
}

void Program::TextSizeStepped()
{
    WriteSetting(m_settings, settingsSection, textSizeKey, FromNumber(m_screen.TextSize()));
    m_answerForm.FitText();
}

/// If any operation found the settings store damaged, writes what is shown into the new one, and
/// tells the user.
void Program::ReportStore()
{
    auto const report = m_settings.TakeReport();
    if (!report)
        return;
    m_lesson.RestoreInNewStore();
    m_screen.Message(report->Message());
}

void Program::ReportOutOfMemory()
{
    m_lesson.StoreTyped();
    m_reader.StoreTyped();
    m_screen.Message(
        u"There isn't enough memory for this, and it was left unfinished. What you have typed is "
        u"stored.");
}

void Program::Start(std::optional<Failure> const& report)
{
    m_splash.Show();
    auto const size = ReadSetting(m_settings, settingsSection, textSizeKey, u"100");
    m_screen.SetTextSize(
        static_cast<int>(std::clamp<std::int64_t>(ToInteger(size).value_or(100), 0, 1000)));
    if (report)
        m_screen.Message(report->Message());
}

void Program::Finish()
{
    m_screen.CloseAll();
    static_cast<void>(m_answers.RetryPending()); // There is no one left to tell.
    static_cast<void>(m_notes.RetryPending());
}
