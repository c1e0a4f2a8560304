#include "setup/window/run_window.h"

#include "setup/window/setup_window.h"

#include <QApplication>
#include <QTimer>

int RunSetupWindow(
    Task task, SetupPlaces const& places, std::function<bool()> const& isEndRequested, char** words)
{
    int count = 1; // Qt's own options aren't for the user
    QApplication application(count, words);
    application.setApplicationName(QStringLiteral("Sparrowfield Setup"));
    SetupWindow window(places);
    window.show();
    window.Begin(task);
    QTimer asking;
    QObject::connect(&asking, &QTimer::timeout, &window, [&] {
        if (isEndRequested())
            window.End();
    });
    asking.start(200);
    application.exec();
    return window.HasSucceeded() ? 0 : 1;
}
