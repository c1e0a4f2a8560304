#pragma once
// What the benchmarks of the desktop program share: the program on Qt's offscreen platform in a
// folder of its own, and figures compared with their targets.

#include "controls/input.h"
#include "desktop/desktop_host.h"
#include "desktop/look.h"
#include "platform/posix/background_writer.h"
#include "platform/posix/path_rules.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/sqlite_settings_store.h"
#include "program/program.h"

#include <QAbstractEventDispatcher>
#include <QApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

inline double MillisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

inline double Median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

/// Runs the event loop until nothing is left to do: everything is laid out and painted then.
inline void ServeAll()
{
    auto* const dispatcher = QAbstractEventDispatcher::instance();
    do
        QCoreApplication::sendPostedEvents();
    while (dispatcher->processEvents(QEventLoop::AllEvents));
    // Closed windows are deleted by an event loop, and none runs here.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

struct Bench {
    PosixFileSystem files { { fs::current_path(), fs::absolute("user/drive_c") } };
    DesktopHost host { files, [](TextView path) { return Text(path); } };
    bool const isPrepared = (host.PrepareFirstScreen(), true); // early, as the program does it
    SqliteSettingsStore settings { fs::absolute("user/settings.db") };
    BackgroundWriter writer;
    PosixShell shell;
    Program program { host, files, settings, writer, shell };
    Input input { program.GetScreen() };

    template <class Kind> Kind& Get(char const* form, char const* control)
    {
        return dynamic_cast<Kind&>(*program.GetScreen().Find(form)->FindControl(control));
    }
};

inline double ResidentMegabytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:"))
            return std::stod(line.substr(6)) / 1024;
    return 0;
}

inline void Print(char const* about, double value, char const* unit, double atMost)
{
    std::printf("%-52s %7.1f %s, at most %g: %s\n", about, value, unit, atMost,
        value <= atMost ? "met" : "MISSED");
}

inline void GoToCatalogue(Bench& bench)
{
    static_cast<void>(bench.settings.Write(u"Parameters", u"showhelp", u"false"));
    bench.program.Start({});
    ServeAll();
    auto const leaving = Clock::now();
    bench.input.KeyPress(*bench.program.GetScreen().Find("frmSplash"), u' ');
    ServeAll();
    Print("from the start-up screen to the catalogue", MillisecondsSince(leaving), "ms", 150);
}
