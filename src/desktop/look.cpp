#include "desktop/look.h"

#include "desktop/peers/access.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>

static QPalette LightPalette()
{
    QColor const face(240, 240, 240);
    QColor const grey(109, 109, 109);
    QPalette palette(face, face);
    for (auto const role :
        { QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText }) {
        palette.setColor(role, Qt::black);
        palette.setColor(QPalette::Disabled, role, grey);
    }
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(247, 247, 247));
    palette.setColor(QPalette::Disabled, QPalette::Base, face);
    palette.setColor(QPalette::ToolTipBase, QColor(255, 255, 225));
    palette.setColor(QPalette::Highlight, QColor(49, 106, 197));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(200, 200, 200));
    palette.setColor(QPalette::PlaceholderText, grey);
    palette.setColor(QPalette::Link, QColor(0, 0, 192));
    palette.setColor(QPalette::Light, Qt::white);
    palette.setColor(QPalette::Midlight, QColor(227, 227, 227));
    palette.setColor(QPalette::Mid, QColor(160, 160, 160));
    palette.setColor(QPalette::Dark, QColor(160, 160, 160));
    palette.setColor(QPalette::Shadow, QColor(105, 105, 105));
    return palette;
}

void SetLook(QApplication& application)
{
    // The fonts that the forms name, where the machine lacks them, by one of the same widths.
    for (auto const* const name : { "Tahoma", "MS Sans Serif", "Verdana" })
        QFont::insertSubstitution(QString::fromLatin1(name), QStringLiteral("Liberation Sans"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Windows")));
    QApplication::setPalette(LightPalette());
    QToolTip::setPalette(LightPalette());
    TellRoles();
    QFont const font(QStringLiteral("Tahoma"), 8);
    QApplication::setFont(font);
    QToolTip::setFont(font);
    application.setQuitOnLastWindowClosed(false);
}
