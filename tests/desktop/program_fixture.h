#pragma once
// The whole program on the desktop host, its files in memory, acted on through its windows.

#include "desktop/desktop_fixture.h"
#include "program/program.h"
#include "support/memory_settings_store.h"
#include "support/memory_shell.h"

#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

/// Counts the message boxes that come up, and answers them.
class MessageWatch final : public QObject {
public:
    MessageWatch() { qApp->installEventFilter(this); }
    int count = 0;
    QString last;
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const box
            = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(watched) : nullptr;
        if (box) {
            ++count;
            last = box->text();
            QTimer::singleShot(0, box, &QMessageBox::accept);
        }
        return false;
    }
};

/// The whole program, its video in a folder of its own.
class ProgramOnDesktop : public testing::Test {
protected:
    ~ProgramOnDesktop() override { program.Finish(); }

    static void Settle() { QTest::qWait(20); }
    static QWidget* Window(char const* form)
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QString::fromUtf8(form) && window->isVisible())
                return window;
        return nullptr;
    }
    static void ClickOn(char const* form, char const* control)
    {
        auto* const widget = Window(form)->findChild<QWidget*>(QString::fromUtf8(control));
        QTest::mouseClick(Window(form)->windowHandle(), Qt::LeftButton, {},
            widget->mapTo(Window(form), widget->rect().center()));
    }
    void WriteVideo(QByteArray const& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir folder;
    QString const path = folder.filePath(QStringLiteral("sparrowfield.wmv"));
    MessageWatch messages;
    MemoryFileSystem files;
    MemorySettingsStore settings;
    InlineWriter writer;
    MemoryShell shell;
    DesktopHost host { files, [this](TextView) { return path.toStdU16String(); } };
    Program program { host, files, settings, writer, shell };
};
