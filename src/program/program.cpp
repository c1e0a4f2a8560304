#include "program/program.h"

Program::Program(
    Host& host, FileSystem& files, SettingsStore& settings, Writer& writer, Shell& shell)
    : m_screen(host)
    , m_settings(settings, writer)
    , m_answers(m_settings, writer)
    , m_notes(files, writer)
    , frmVideo(m_screen)
    , frmWelcome(m_screen, m_settings)
    , frmGettingStarted(m_screen)
    , frmFinalExam(m_screen)
    , frmAbout(m_screen)
    , frmSplash(m_screen, files, shell, frmVideo)
    , frmBible(m_screen, files, m_settings, m_notes)
    , frmMap(m_screen, files)
    , frmAnswer(m_screen)
    , frmMain(m_screen, files, m_answers, frmAnswer,
          { frmFinalExam, frmAbout, frmWelcome, frmGettingStarted, frmVideo, frmBible, frmMap })
    , frmContents(m_screen, files, m_settings, frmMain,
          { frmFinalExam, frmAbout, frmWelcome, frmGettingStarted, frmVideo, frmBible, frmMap })
{
    frmMain.ReturnTo(frmContents);
    frmSplash.LeadTo(frmContents);
    m_screen.handlersEnded = [this] { TellOfStore(); };
    m_screen.handlerFailed = [this] { TellOfMemory(); };
    m_screen.KeepDesigns();
}

/// Where an operation found the settings store damaged, whoever asked for it, what is on show goes
/// into the new one, and the user is told.
void Program::TellOfStore()
{
    auto const report = m_settings.TakeReport();
    if (!report)
        return;
    frmMain.StoreAnew();
    m_screen.Message(report->Message());
}

void Program::TellOfMemory()
{
    frmMain.StoreTyped();
    frmBible.StoreTyped();
    m_screen.Message(
        u"There isn't enough memory for this, and it was left unfinished. What you have typed is "
        u"stored.");
}

void Program::Start(std::optional<Failure> const& report)
{
    frmSplash.Show();
    if (report)
        m_screen.Message(report->Message());
}

void Program::Finish()
{
    m_screen.CloseAll();
    static_cast<void>(m_answers.RetryPending()); // There is no one left to tell.
    static_cast<void>(m_notes.RetryPending());
}
