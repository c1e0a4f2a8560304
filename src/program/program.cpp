#include "program/program.h"

Program::Program(Host& host, FileSystem& files, SettingsStore& settings, Shell& shell)
    : m_screen(host)
    , m_answers(settings)
    , m_notes(files)
    , frmVideo(m_screen)
    , frmWelcome(m_screen, settings)
    , frmGettingStarted(m_screen)
    , frmFinalExam(m_screen)
    , frmAbout(m_screen)
    , frmSplash(m_screen, files, shell, frmVideo)
    , frmBible(m_screen, files, settings, m_notes)
    , frmMap(m_screen, files)
    , frmAnswer(m_screen)
    , frmMain(m_screen, files, m_answers, frmAnswer,
          { frmFinalExam, frmAbout, frmWelcome, frmGettingStarted, frmVideo, frmBible, frmMap })
    , frmContents(m_screen, files, settings, frmMain,
          { frmFinalExam, frmAbout, frmWelcome, frmGettingStarted, frmVideo, frmBible, frmMap })
{
    frmMain.ReturnTo(frmContents);
    frmSplash.LeadTo(frmContents);
    m_screen.KeepDesigns();
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
