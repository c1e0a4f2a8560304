#include "setup/window/setup_window.h"

#include "platform/posix/posix_shell.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>

static QString Message(Failure const& failure)
{
    return QString::fromStdU16String(failure.Message());
}

SetupWindow::SetupWindow(SetupPlaces places)
    : m_places(std::move(places))
    , m_runsFromCopy(RunsFromCopy(m_places))
    , m_plan(PlanCopy(m_places.disc))
    , m_worker({ [this](int permille, QString const& file) {
                    m_bar->setValue(permille);
                    m_file->setText(file);
                },
          [this](Outcome<SetupReport> const& outcome) { Work_End(outcome); } })
{
    Build();
    ShowState();
    if (m_runsFromCopy)
        Say(tr("This is the installed copy. To repair it, start Setup.exe on the disc."), false);
    else if (!m_plan)
        Say(Message(m_plan.failure()), true);
}

void SetupWindow::Begin(Task task)
{
    if (task == Task::Install)
        Install_Click();
    else if (task == Task::Uninstall)
        Work(Task::Uninstall);
}

void SetupWindow::End()
{
    m_isEnding = true;
    if (auto* const question = findChild<QMessageBox*>())
        question->reject();
    m_worker.Cancel();
    if (!m_worker.IsBusy())
        done(0);
}

void SetupWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    End();
}

void SetupWindow::Install_Click()
{
    if (m_plan)
        Work(Task::Install);
    else {
        m_hasSucceeded = false;
        Say(Message(m_plan.failure()), true);
    }
}

void SetupWindow::Uninstall_Click()
{
    QMessageBox question(QMessageBox::Question, windowTitle(),
        tr("Remove the installed copy from this computer?"), QMessageBox::NoButton, this);
    question.setInformativeText(tr(
        "Your answers and notes are kept, and so are files that you have put into it yourself."));
    auto* const remove = question.addButton(tr("&Uninstall"), QMessageBox::AcceptRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    question.exec();
    if (question.clickedButton() == remove)
        Work(Task::Uninstall);
}

void SetupWindow::Start_Click()
{
    std::error_code error;
    std::filesystem::current_path(m_places.target, error);
    if (!error && PosixShell().Execute(u"open", FromUtf8(installedProgram)))
        return End();
    auto const program = m_places.target / installedProgram;
    Say(tr("%1: it couldn't be started.").arg(QString::fromStdU16String(program.u16string())),
        true);
}

void SetupWindow::Work(Task task)
{
    m_task = task;
    m_isInstalledNow = false;
    m_hasSucceeded = false;
    Say({}, false);
    m_bar->setValue(0);
    // A removal has no measure.
    m_bar->setRange(0, task == Task::Install ? 1000 : 0);
    m_worker.Start([places = m_places, plan = m_plan, task](Watcher const& shouldContinue) {
        return task == Task::Install ? Install(places, *plan, shouldContinue) : Uninstall(places);
    });
    ShowState();
}

void SetupWindow::Work_End(Outcome<SetupReport> const& outcome)
{
    bool const wasInstalling = m_task == Task::Install;
    m_file->clear();
    if (!outcome)
        Say(Message(outcome.failure()), true);
    else if (outcome->ending == Ending::Cancelled)
        Say(tr("Cancelled; nothing was changed."), false);
    else {
        m_isInstalledNow = wasInstalling;
        m_hasSucceeded = wasInstalling || outcome->menuFaults.empty();
        QString text = wasInstalling
            ? tr("Sparrowfield is installed. You can start it here, or from your application menu.")
            : tr("The copy was removed. Your answers and notes are still there.");
        if (!outcome->menuFaults.empty())
            text = wasInstalling
                ? tr("Sparrowfield is installed, but its menu entry isn't complete:")
                : tr("The copy was removed, but part of its menu entry wasn't:");
        for (auto const& fault : outcome->menuFaults)
            text += u'\n' + Message(fault);
        if (!outcome->kept.empty())
            text += u'\n'
                + tr("Your own files in it were moved to %1.")
                      .arg(QString::fromStdU16String(FromUtf8(outcome->kept.string())));
        Say(text, !outcome->menuFaults.empty());
    }
    ShowState();
    if (m_isEnding)
        End();
}
