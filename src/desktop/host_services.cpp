// The services of the machine that go with a screen.

#include "desktop/desktop_host.h"
#include "desktop/peers/convert.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QScreen>
#include <QTextLayout>
#include <QTimer>

#include <cmath>

void DesktopHost::MessageBox(TextView text, TextView title)
{
    // A box that came up while a mouse button is held would take the click.
    if (QApplication::mouseButtons() != Qt::NoButton) {
        QTimer::singleShot(50, this,
            [this, later = Text(text), caption = Text(title)] { MessageBox(later, caption); });
        return;
    }
    QMessageBox box(QMessageBox::NoIcon, ToQString(title), ToQString(text), QMessageBox::Ok,
        QApplication::activeWindow());
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
        QApplication::clipboard()->setText(
            ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

/// The size of a text without line ends, set as a label sets it.
static QSizeF Measure(QString const& text, QFont const& font, double width)
{
    constexpr double largest = 1 << 20;
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(width > 0 ? QTextOption::WordWrap : QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QSizeF size(0, 0);
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width > 0 ? width : largest);
        size = { std::max(size.width(), line.naturalTextWidth()), size.height() + line.height() };
    }
    layout.endLayout();
    return size;
}

Size DesktopHost::MeasureText(Font const& font, TextView text, float wrapWidth) const
{
    auto const shown = ToQFont(font);
    auto const whole = ToQString(text).remove(u'\r');
    QSizeF size(0, 0);
    for (auto const& line : whole.split(u'\n')) {
        // An empty line is as high as any other.
        auto const part
            = Measure(line.isEmpty() ? QStringLiteral(" ") : line, shown, Pixels(wrapWidth));
        size = { std::max(size.width(), part.width()), size.height() + part.height() };
    }
    return { ToTwips(static_cast<int>(std::ceil(size.width()))),
        ToTwips(static_cast<int>(std::ceil(size.height()))) };
}

Size DesktopHost::ScreenSize() const
{
    auto const size = QApplication::primaryScreen()->availableSize();
    return { ToTwips(size.width()), ToTwips(size.height()) };
}

std::optional<Size> DesktopHost::PictureSize(TextView picture)
{
    return m_context.pictures.SizeOf(picture);
}
