#include "map_labels.h"

#include "palette.h"

#include <QFontMetricsF>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

QFont FontOf(Lettering const& lettering)
{
    QFont font(
        lettering.serif ? QStringLiteral("Liberation Serif") : QStringLiteral("Liberation Sans"));
    font.setPixelSize(static_cast<int>(lettering.size));
    font.setBold(lettering.bold);
    font.setItalic(lettering.italic);
    font.setLetterSpacing(QFont::AbsoluteSpacing, lettering.spacing);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

static QString Spelled(QString const& text, Lettering const& lettering)
{
    return lettering.capitals ? text.toUpper() : text;
}

void PaintText(
    QPainter& painter, QString const& text, Lettering const& lettering, QPointF const& from)
{
    QPainterPath outline;
    outline.addText(from, FontOf(lettering), Spelled(text, lettering));
    if (lettering.hasHalo) {
        QPen const halo(Faint(palette::paper, 0.82 * lettering.opacity), lettering.size / 5,
            Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        painter.strokePath(outline, halo);
    }
    painter.fillPath(outline, Faint(lettering.colour, lettering.opacity));
}

bool Labels::IsFree(QRectF const& area, QPointF const* sign) const
{
    return m_room.contains(area)
        && std::none_of(m_taken.begin(), m_taken.end(), [&](QRectF const& taken) {
               return taken.intersects(area) && !(sign && taken.contains(*sign));
           });
}

bool Labels::Write(QPainter& painter, QString const& text, Lettering const& lettering,
    QPointF const& centre, qreal angle)
{
    QFontMetricsF const metrics(FontOf(lettering));
    auto const spelled = Spelled(text, lettering);
    qreal const width = metrics.horizontalAdvance(spelled) - lettering.spacing;
    qreal const height = metrics.capHeight();
    auto const turn = QTransform().translate(centre.x(), centre.y()).rotate(angle);
    // A turned text takes a chain of small squares, letter by letter.
    bool isFree = true;
    std::vector<QRectF> letters;
    qreal x = -width / 2;
    for (auto const letter : spelled) {
        qreal const advance = metrics.horizontalAdvance(letter) + lettering.spacing;
        QRectF const upright(
            x, -height / 2 - 1, std::max(1.0, advance - lettering.spacing), height + 2);
        if (!letter.isSpace()) {
            letters.push_back(turn.mapRect(upright));
            isFree &= IsFree(letters.back());
        }
        x += advance;
    }
    m_taken.insert(m_taken.end(), letters.begin(), letters.end());
    painter.save();
    painter.setTransform(turn, true);
    PaintText(painter, text, lettering, { -width / 2, height / 2 });
    painter.restore();
    return isFree;
}

bool Labels::WriteBeside(QPainter& painter, QString const& text, Lettering const& lettering,
    QPointF const& sign, qreal radius, QString const& side)
{
    QFontMetricsF const metrics(FontOf(lettering));
    auto const spelled = Spelled(text, lettering);
    qreal const width = metrics.horizontalAdvance(spelled), ascent = metrics.capHeight(),
                descent = metrics.descent() * 0.8;
    qreal const gap = radius + 4;
    struct Place {
        char const* side;
        qreal left, base;
    };
    qreal const slant = gap * 0.6;
    Place const places[] = { { "E", gap, ascent / 2 }, { "W", -gap - width, ascent / 2 },
        { "NE", slant, -slant }, { "SE", slant, slant + ascent }, { "NW", -slant - width, -slant },
        { "SW", -slant - width, slant + ascent }, { "N", -width / 2, -gap },
        { "S", -width / 2, gap + ascent } };
    for (auto const& place : places) {
        if (!side.isEmpty() && side != QLatin1String(place.side))
            continue;
        QPointF const from = sign + QPointF(place.left, place.base);
        QRectF const area(from.x() - 1, from.y() - ascent - 1, width + 2, ascent + descent + 2);
        if (!IsFree(area, &sign))
            continue;
        Take(area);
        PaintText(painter, text, lettering, from);
        return true;
    }
    return false;
}
