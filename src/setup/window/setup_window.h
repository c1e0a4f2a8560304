#pragma once
// The window of Setup: says what will be done where, does it, and says how it went.

#include "setup/window/worker.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;
class QStackedWidget;

class SetupWindow final : public QDialog {
public:
    explicit SetupWindow(SetupPlaces places);

    /// Does at once what the command line asked for, if anything.
    void Begin(Task task);
    /// Cancels what can be cancelled, and closes when that is over.
    void End();
    /// False if something failed or was cancelled.
    bool HasSucceeded() const { return m_hasSucceeded; }

    void reject() override { End(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Build();
    QWidget* BuildProgress();
    QLayout* BuildHead();
    QLayout* BuildFacts();
    QLayout* BuildButtons();
    QPushButton* AddButton(QLayout& row, char const* text, void (SetupWindow::*clicked)());

    void Install_Click();
    void Uninstall_Click();
    void Start_Click();
    void Cancel_Click() { m_worker.Cancel(); }

    void Work(Task task);
    void Work_End(Outcome<SetupReport> const& outcome);
    void ShowState();
    void FitHeight();
    void Say(QString const& text, bool isFault);

    SetupPlaces m_places;
    bool const m_runsFromCopy; ///< even if the copy has been removed since
    Outcome<CopyPlan> m_plan;
    Task m_task = Task::Ask; ///< the latest one begun
    bool m_isInstalledNow = false; ///< by this window, so that the program can be started
    bool m_hasSucceeded = true;
    bool m_isEnding = false;
    QLabel *m_copy, *m_size, *m_file, *m_message;
    QProgressBar* m_bar;
    QStackedWidget* m_stage; ///< the message, or the progress
    QPushButton *m_uninstall, *m_install, *m_start, *m_cancel, *m_close;
    Worker m_worker;
};
