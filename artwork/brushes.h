#pragma once
// What several pictures share: skies, hills, light, lettering. Lengths are the pixels of the
// picture at its single size.

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QString>

/// The same numbers at each run, so that a picture that is drawn anew is the same picture.
class Chance {
public:
    explicit Chance(unsigned seed)
        : m_state(seed)
    {
    }
    qreal Between(qreal low, qreal high);

private:
    unsigned m_state;
};

/// Night above, dawn at the foot of the rectangle.
void PaintDawnSky(QPainter& painter, QRectF const& area);
/// Small stars that grow fewer towards the foot.
void PaintStars(QPainter& painter, QRectF const& area, int count, unsigned seed);
/// A range of hills whose crest runs about `crest`, filled down to `foot`; `height` is that of the
/// waves.
void PaintHills(QPainter& painter, qreal left, qreal right, qreal crest, qreal height, qreal foot,
    QColor const& top, QColor const& bottom, unsigned seed);
/// Light that spreads from a point and ends at the radius.
void PaintGlow(
    QPainter& painter, QPointF const& centre, qreal radius, QColor const& colour, qreal strength);
/// Text in the serif face, centred on a point of its base line; `size` in pixels.
void PaintLettering(QPainter& painter, QString const& text, QPointF const& centre, qreal size,
    QColor const& colour, qreal spacing = 0, bool italic = false);
/// The outline of that lettering, for shadows and gradients.
QPainterPath LetteringOutline(
    QString const& text, QPointF const& centre, qreal size, qreal spacing, bool italic, bool bold);
/// A soft darkening towards black: none at `from`, whole at `to`, across the whole area.
void FadeToBlack(QPainter& painter, QRectF const& area, QPointF const& from, QPointF const& to);
