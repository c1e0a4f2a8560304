// The services of the machine that go with a screen.

#include "desktop/convert.h"
#include "desktop/desktop_host.h"
#include "desktop/form_peer.h"

#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QMessageBox>
#include <QScreen>
#include <QTextLayout>

#include <cmath>

void DesktopHost::MessageBox(TextView text, TextView title)
{
    QMessageBox box(QMessageBox::NoIcon, ToQString(title), ToQString(text), QMessageBox::Ok, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

Text DesktopHost::ClipboardText() const
{
    return WithLineEnds(ToText(QApplication::clipboard()->text()));
}

void DesktopHost::SetClipboardText(TextView text)
{
    if (text.empty())
        QApplication::clipboard()->clear();
    else
        QApplication::clipboard()->setText(ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

/// How many lines a text without line ends takes, and how wide the widest is.
static int LinesOf(QString const& text, QFont const& font, double width, double& widest)
{
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(width > 0 ? QTextOption::WordWrap : QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    int lines = 0;
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        if (width > 0)
            line.setLineWidth(width);
        widest = std::max(widest, line.naturalTextWidth());
        ++lines;
    }
    layout.endLayout();
    return std::max(1, lines);
}

Size DesktopHost::MeasureText(Font const& font, TextView text, float wrapWidth) const
{
    auto const shown = ToQFont(font);
    auto const whole = ToQString(text).remove(u'\r');
    double widest = 0;
    int lines = 0;
    for (auto const& line : whole.split(u'\n'))
        lines += LinesOf(line, shown, Pixels(wrapWidth), widest);
    // In whole pixels, as a label sets its lines.
    return { ToTwips(static_cast<int>(std::ceil(widest))), ToTwips(lines * QFontMetrics(shown).lineSpacing()) };
}

Size DesktopHost::ScreenSize() const
{
    auto const size = QApplication::primaryScreen()->availableSize();
    return { ToTwips(size.width()), ToTwips(size.height()) };
}

Size DesktopHost::FrameSize(Form const& form) const
{
    Peer* const peer = PeerOf(form);
    return peer ? static_cast<FormPeer*>(peer)->FrameSize() : FormPeer::GuessFrameSize(form);
}

std::optional<Size> DesktopHost::PictureSize(TextView picture) const
{
    return m_desk.pictures.SizeOf(picture);
}
