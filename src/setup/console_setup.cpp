#include "setup/console_setup.h"

#include "base/printable.h"
#include "platform/posix/console.h"
#include "setup/install.h"
#include "setup/size_text.h"

#include <chrono>
#include <cstdio>
#include <iostream>

namespace {

/// Shows the progress of the copying on one line, if standard error is a terminal.
class ProgressLine {
public:
    ~ProgressLine()
    {
        if (m_isTerminal)
            std::fputs("\r\x1B[K", stderr);
    }

    void Show(CopyProgress const& progress)
    {
        auto const now = Clock::now();
        if (!m_isTerminal || now < m_next)
            return;
        m_next = now + std::chrono::milliseconds(100);
        auto const percent = progress.total ? progress.done * 100 / progress.total : 100;
        std::fprintf(stderr, "\r\x1B[K%3u %%  %s", static_cast<unsigned>(percent),
            Printable(progress.file.string()).c_str());
        std::fflush(stderr);
    }

private:
    using Clock = std::chrono::steady_clock;

    bool const m_isTerminal = IsErrorTerminal();
    Clock::time_point m_next;
};

int Tell(Failure const& failure)
{
    std::cerr << ToUtf8(Printable(failure.Message())) << '\n';
    return 1;
}

void TellMenuFaults(SetupReport const& report, char const* what)
{
    if (!report.menuFaults.empty())
        std::cerr << what << '\n';
    for (auto const& fault : report.menuFaults)
        Tell(fault);
}

int RunInstall(SetupPlaces const& places, std::function<bool()> const& isEndRequested)
{
    auto const plan = PlanCopy(places.disc);
    if (!plan)
        return Tell(plan.failure());
    std::cout << (IsInstalled(places) ? "Repairing the copy of " : "Installing ")
              << "Sparrowfield Interactive Bible Study\n  from " << Printable(places.disc.string())
              << "\n  to   " << Printable(places.target.string()) << "\n  " << plan->files.size()
              << " files, " << ToUtf8(SizeText(plan->bytes)) << std::endl;
    auto const report = [&] {
        ProgressLine line;
        return Install(places, *plan, [&](CopyProgress const& progress) {
            line.Show(progress);
            return !isEndRequested();
        });
    }();
    if (!report)
        return Tell(report.failure());
    if (report->ending == Ending::Cancelled) {
        std::cerr << "Cancelled; nothing was changed.\n";
        return 1;
    }
    TellMenuFaults(*report, "The program is installed, but its menu entry isn't complete:");
    std::cout << "Installed: " << Printable((places.target / installedProgram).string()) << '\n';
    return 0;
}

int RunUninstall(SetupPlaces const& places)
{
    bool const wasInstalled = IsInstalled(places);
    auto const report = Uninstall(places);
    if (!report)
        return Tell(report.failure());
    std::cout << (wasInstalled ? "Removed: " : "No copy is installed: ")
              << Printable(places.target.string()) << '\n';
    if (!report->kept.empty())
        std::cout << "Your own files in it were moved to " << Printable(report->kept.string())
                  << '\n';
    TellMenuFaults(*report, "Part of its menu entry couldn't be removed:");
    return report->menuFaults.empty() ? 0 : 1;
}

} // namespace

int RunConsoleSetup(
    Task task, SetupPlaces const& places, std::function<bool()> const& isEndRequested)
{
    int const status
        = task == Task::Install ? RunInstall(places, isEndRequested) : RunUninstall(places);
    std::cout.flush();
    return status;
}
