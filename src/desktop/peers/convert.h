#pragma once
// The model's values as Qt's, and back.

#include "base/text.h"
#include "controls/canvas.h"
#include "controls/colour.h"
#include "controls/host.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

/// Character for character: unlike QString::fromUtf16, which takes a byte order mark out.
inline QString ToQString(TextView text)
{
    return QString(
        reinterpret_cast<QChar const*>(text.data()), static_cast<qsizetype>(text.size()));
}

/// A tool tip that shows the text as it is, even if Qt would take it for markup.
QString ToToolTip(TextView text);

inline Text ToText(QStringView text)
{
    return Text(text.utf16(), static_cast<std::size_t>(text.size()));
}

inline QColor ToQColor(Colour colour)
{
    auto const plain = ResolvedColour(colour);
    return QColor(plain & 0xFF, (plain >> 8) & 0xFF, (plain >> 16) & 0xFF);
}

/// The font as the screen shows it, at 96 pixels to the inch.
QFont ToQFont(Font const& font);

/// Pixels in the container for bounds in a scale of `unit` twips.
QRect ToPixels(Bounds const& bounds, float unit);

inline float ToTwips(int pixels)
{
    return static_cast<float>(pixels) * 15;
}
