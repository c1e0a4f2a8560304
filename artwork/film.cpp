#include "film.h"

#include "brushes.h"
#include "palette.h"
#include "scenes.h"
#include "things.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

struct Screens {
    QImage catalogue, lesson, answer;
};

/// Soft from 0 to 1 while the time goes from `begin` to `end`, in seconds.
qreal Rise(qreal time, qreal begin, qreal end)
{
    qreal const share = std::clamp((time - begin) / (end - begin), 0.0, 1.0);
    return share * share * (3 - 2 * share);
}

/// Full between the two moments, with half a second of rise and fall around them.
qreal Between(qreal time, qreal begin, qreal end)
{
    return Rise(time, begin, begin + 0.5) * (1 - Rise(time, end - 0.5, end));
}

/// The sway of a flame: never the same, never far.
qreal Flicker(qreal time)
{
    return 0.5 * std::sin(time * 9.1) + 0.3 * std::sin(time * 14.7 + 1)
        + 0.2 * std::sin(time * 23.3 + 2);
}

QRectF const whole(0, 0, filmWidth, filmHeight);

void PaintNightGround(QPainter& painter)
{
    QLinearGradient sky(0, 0, 0, filmHeight);
    sky.setColorAt(0, palette::night);
    sky.setColorAt(0.7, palette::deepBlue);
    sky.setColorAt(1, palette::blue);
    painter.fillRect(whole, sky);
    PaintStars(painter, whole, 160, 19);
}

/// The picture of the start-up screen, seen from nearer and nearer: `nearness` 1 fills the frame.
void PaintOpening(QPainter& painter, qreal time, qreal nearness, QPointF const& centre)
{
    painter.save();
    painter.translate(filmWidth / 2.0, filmHeight / 2.0);
    qreal const scale = filmHeight / 528.0 * nearness;
    painter.scale(scale, scale);
    painter.translate(-centre);
    PaintSill(painter, Flicker(time));
    painter.restore();
}

/// A title that rises a little while it comes.
void PaintTitle(QPainter& painter, QString const& text, qreal y, qreal size, qreal shown)
{
    if (shown <= 0)
        return;
    QPointF const place(filmWidth / 2.0, y + 14 * (1 - shown));
    PaintLettering(painter, text, place + QPointF(1.5, 1.5), size, Faint(Qt::black, 0.6 * shown));
    PaintLettering(painter, text, place, size, Faint({ 250, 238, 210 }, shown));
}

/// A screen of the program in a light frame; it drifts slowly from one place to the other.
void PaintScreen(QPainter& painter, QImage const& screen, QRectF const& from, QRectF const& to,
    qreal drift, qreal shown)
{
    if (shown <= 0)
        return;
    auto const mix = [&](qreal a, qreal b) { return a + (b - a) * drift; };
    QRectF const part(mix(from.x(), to.x()), mix(from.y(), to.y()), mix(from.width(), to.width()),
        mix(from.height(), to.height()));
    QRectF const place(64, 44 + 20 * (1 - shown), 512, 346);
    painter.save();
    painter.setOpacity(shown);
    for (int shade = 6; shade > 0; --shade)
        painter.fillRect(
            place.adjusted(-shade, -shade + 4, shade, shade + 4), Faint(Qt::black, 0.09));
    painter.drawImage(place, screen, part);
    painter.setPen(QPen(palette::panelHeader, 1.5));
    painter.drawRect(place);
    painter.restore();
}

void PaintFrame(QPainter& painter, Screens const& screens, qreal time)
{
    if (time < 6.4) {
        PaintOpening(painter, time, 1 + 0.03 * time, { 400, 264 + 2 * time });
        qreal const shown = Between(time, 0.8, 6.2);
        painter.setOpacity(shown);
        PaintName(painter, { filmWidth / 2.0, 130 + 10 * (1 - shown) }, 66);
        painter.setOpacity(1);
        PaintTitle(painter, QStringLiteral("Welcome!"), 220, 34, Between(time, 2.6, 6.2));
    } else if (time < 21) {
        PaintNightGround(painter);
        PaintScreen(painter, screens.catalogue, { 0, 0, 1024, 692 }, { 20, 60, 860, 581 },
            Rise(time, 6.4, 11), Between(time, 6.4, 11.2));
        PaintTitle(painter, QStringLiteral("Choose a study,"), 438, 32, Between(time, 7, 11.2));
        PaintScreen(painter, screens.lesson, { 0, 30, 1024, 692 }, { 0, 200, 760, 514 },
            Rise(time, 11.2, 16), Between(time, 11.2, 16.2));
        PaintTitle(painter, QStringLiteral("read, and write your own answers."), 438, 32,
            Between(time, 11.8, 16.2));
        PaintScreen(painter, screens.answer, { 0, 40, 1024, 692 }, { 220, 130, 760, 514 },
            Rise(time, 16.2, 20.6), Between(time, 16.2, 21));
        PaintTitle(painter, QStringLiteral("Then look what others found."), 438, 32,
            Between(time, 16.8, 21));
    } else {
        qreal const nearness = 1.75 - 0.75 * Rise(time, 21, 28);
        qreal const way = Rise(time, 21, 28);
        PaintOpening(painter, time, nearness, { 210 + 190 * way, 372 - 108 * way });
        PaintTitle(painter, QStringLiteral("\u201cThy word is a lamp unto my feet,"), 120, 30,
            Between(time, 22, 28.4));
        PaintTitle(painter, QStringLiteral("and a light unto my path.\u201d"), 160, 30,
            Between(time, 22.8, 28.4));
        PaintTitle(painter, QStringLiteral("Psalm 119:105"), 196, 19, Between(time, 23.6, 28.4));
    }
    // The parts begin and end in the dark.
    qreal const dark = 1
        - Rise(time, 0, 0.8) * (1 - Rise(time, 6, 6.4) * (1 - Rise(time, 6.4, 6.8)))
            * (1 - Rise(time, 20.7, 21) * (1 - Rise(time, 21, 21.6)))
            * (1 - Rise(time, filmSeconds - 1.2, filmSeconds - 0.1));
    painter.fillRect(whole, Faint(Qt::black, dark));
}

bool Read(QImage& image, QDir const& folder, char const* name)
{
    return image.load(folder.filePath(QString::fromLatin1(name)));
}

} // namespace

bool WriteFilm(QDir const& screenshots, QDir const& frames)
{
    Screens screens;
    if (!Read(screens.catalogue, screenshots, "catalogue.png")
        || !Read(screens.lesson, screenshots, "lesson.png")
        || !Read(screens.answer, screenshots, "answer.png") || !frames.mkpath(QStringLiteral(".")))
        return false;
    int const count = static_cast<int>(filmRate * filmSeconds);
    for (int number = 0; number < count; ++number) {
        QImage frame(filmWidth, filmHeight, QImage::Format_RGB32);
        QPainter painter(&frame);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        PaintFrame(painter, screens, static_cast<qreal>(number) / filmRate);
        painter.end();
        if (!frame.save(frames.filePath(
                QStringLiteral("frame-%1.png").arg(number, 4, 10, QLatin1Char('0')))))
            return false;
    }
    return true;
}
