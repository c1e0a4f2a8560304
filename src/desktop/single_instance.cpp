#include "desktop/single_instance.h"

#include "platform/posix/running_copy.h"

#include <QCryptographicHash>
#include <QGuiApplication>
#include <QSocketNotifier>

SingleInstance::SingleInstance(
    RunningCopy& copy, std::function<bool()> mayComeUp, std::function<void()> comeUp)
{
    if (copy.Socket() < 0)
        return;
    auto* const notifier = new QSocketNotifier(copy.Socket(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [=, &copy] {
        if (!mayComeUp()) {
            notifier->setEnabled(false);
            copy.Close();
        } else if (copy.Answer()) {
            comeUp();
        }
    });
}

/// The display as Qt's platform finds it, without the number of a screen on it.
static QByteArray DisplayName()
{
    auto const platform = QGuiApplication::platformName().toUtf8();
    bool const isX11 = platform == "xcb";
    auto name = qgetenv(isX11 ? "DISPLAY" : "WAYLAND_DISPLAY");
    auto const point = name.indexOf('.', name.lastIndexOf(':'));
    if (isX11 && point > 0)
        name.truncate(point);
    return platform + ' ' + name;
}

std::string InstanceName(
    std::string const& userFolderIdentity, std::string const& directoryIdentity)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (auto const& part : { QByteArray::fromStdString(userFolderIdentity),
             QByteArray::fromStdString(directoryIdentity), DisplayName() })
        hash.addData(part + '\n');
    constexpr int length = 16;
    return hash.result().toHex().left(length).toStdString();
}
