// sparrowfield: the program on the desktop. It reads no command line and no environment of its own.

#include "controls/canvas.h"
#include "desktop/desktop_host.h"
#include "desktop/look.h"
#include "desktop/orderly_end.h"
#include "desktop/scale.h"
#include "desktop/single_instance.h"
#include "platform/posix/background_writer.h"
#include "platform/posix/leftover_pages.h"
#include "platform/posix/path_rules.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/running_copy.h"
#include "platform/posix/sqlite_settings_store.h"
#include "platform/posix/user_folders.h"
#include "program/program.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QScreen>

#include <filesystem>
#include <functional>
#include <memory>
#include <new>

namespace {

/// If memory runs out outside of any form's handler, drops the event and tells the user. No
/// exception may pass through Qt's event loop.
class Application final : public QApplication {
public:
    using QApplication::QApplication;

    std::function<void()> outOfMemory;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (std::bad_alloc const&) {
            if (outOfMemory)
                outOfMemory();
        }
        return false;
    }
};

} // namespace

static std::unique_ptr<Application> MakeApplication(char** words)
{
    static int count = 1; // Qt's own options aren't for the user
    return std::make_unique<Application>(count, words);
}

/// The part of the system's scale at which every window fits the screen.
static double PartThatFits()
{
    auto const* const screen = QGuiApplication::primaryScreen();
    return FittingPart({ Pixels(roomForAllWindows.width), Pixels(roomForAllWindows.height) },
        screen->availableSize(), screen->devicePixelRatio());
}

static void RunProgram(Application& application, double partOfScale)
{
    auto const user = UserDataFolder();
    RunningCopy copy(
        RunningCopiesFolder(user), InstanceName(FolderIdentity(user), FolderIdentity(".")));
    if (copy.HasRaisedAnother())
        return;
    auto const drive = DriveFolder(user);
    PosixFileSystem files({ ProgramFolder(), drive });
    DesktopHost host(
        files,
        [&drive](TextView path) {
            auto const place = PlaceOf(path, drive);
            return place ? place->u16string() : Text();
        },
        static_cast<float>(1 / partOfScale));
    host.PrepareFirstScreen();
    RemoveLeftoverPages(drive / "Temp");
    SqliteSettingsStore settings(SettingsFile(user));
    BackgroundWriter writer;
    PosixShell shell;
    Program program(host, files, settings, writer, shell);
    application.outOfMemory = [&program] { program.ReportOutOfMemory(); };
    OrderlyEnd const end(application, [&] { program.Finish(); });
    SingleInstance const instance(
        copy, [&] { return host.MayComeUp(); }, [&] { host.ComeUp(); });
    program.Start(settings.OpeningReport());
    host.Run();
    program.Finish();
    application.outOfMemory = {};
}

int main(int, char** words)
{
    // The player's other back end lacks what most machines need for the video's format.
    qputenv("QT_MEDIA_BACKEND", "ffmpeg");
    // What the player says of its codecs and of a missing sound device helps no user.
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\nqt.multimedia.*=false"));
    auto application = MakeApplication(words);
    double const part = PartThatFits();
    if (part < 1) { // Qt doesn't change the scale of an application
        application.reset();
        PartOfScale const smaller(part);
        application = MakeApplication(words);
    }
    application->setApplicationName(QStringLiteral("Sparrowfield"));
    SetLook(*application);
    try {
        RunProgram(*application, part);
    } catch (std::filesystem::filesystem_error const& error) {
        QMessageBox box(QMessageBox::Critical, QStringLiteral("Sparrowfield"), {}, QMessageBox::Ok);
        box.setTextFormat(Qt::PlainText); // it names files
        box.setText(QString::fromLocal8Bit(error.what()));
        box.exec();
        return 1;
    }
    return 0;
}
