#include "program/program.h"

Program::Program(Host& host, FileSystem& files, SettingsStore& settings, Shell&)
    : m_screen(host)
    , m_answers(settings)
    , frmWelcome(m_screen, settings)
    , frmAnswer(m_screen)
    , frmMain(m_screen, files, m_answers, frmAnswer, frmWelcome)
    , frmContents(m_screen, files, settings, frmMain, frmWelcome)
{
    frmMain.ReturnTo(frmContents);
    m_screen.KeepDesigns();
}

void Program::Start(std::optional<Failure> const& report)
{
    frmContents.Show();
    if (report)
        m_screen.Message(report->Message());
}

void Program::Finish()
{
    m_screen.CloseAll();
    static_cast<void>(m_answers.RetryPending()); // There is no one left to tell.
}
