#include "desktop/peers/convert.h"

#include <QTextDocument>

QString ToToolTip(TextView text)
{
    auto const tip = ToQString(text);
    return Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip;
}

QFont ToQFont(Font const& font)
{
    QFont result(ToQString(font.name));
    result.setPointSizeF(static_cast<double>(font.size));
    result.setBold(font.bold);
    return result;
}

QRect ToPixels(Bounds const& bounds, float unit)
{
    return { Pixels(bounds.left * unit), Pixels(bounds.top * unit), Pixels(bounds.width * unit),
        Pixels(bounds.height * unit) };
}
