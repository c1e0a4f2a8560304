#include "desktop/peers/player_widgets.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

VideoWidget::VideoWidget(QWidget* parent)
    : QWidget(parent)
{
    connect(&m_sink, &QVideoSink::videoFrameChanged, this, [this](QVideoFrame const& frame) {
        m_frame = frame.toImage();
        update();
    });
}

void VideoWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (m_frame.isNull())
        return;
    QSize size = m_frame.size();
    bool const isTooLarge = size.width() > width() || size.height() > height();
    if (isTooLarge || stretched)
        size.scale(this->size(), Qt::KeepAspectRatio);
    QRect place({}, size);
    place.moveCenter(rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, m_frame);
}

PlayerBar::PlayerBar(QWidget* parent)
    : QWidget(parent)
    , m_place(Qt::Horizontal)
    , m_volume(Qt::Horizontal)
{
    setAutoFillBackground(true);
    m_play.setObjectName(QStringLiteral("PlayPause"));
    m_place.setObjectName(QStringLiteral("Position"));
    m_place.setAccessibleName(tr("Position"));
    m_volume.setObjectName(QStringLiteral("Volume"));
    m_volume.setAccessibleName(tr("Volume"));
    m_volume.setToolTip(tr("Volume"));
    m_volume.setRange(0, 100);
    m_volume.setMaximumWidth(90);
    m_mute.setObjectName(QStringLiteral("Mute"));
    m_time.setObjectName(QStringLiteral("Time"));
    for (QToolButton* button : { &m_play, &m_mute })
        button->setAutoRaise(true);
    for (QWidget* part : std::initializer_list<QWidget*> { &m_play, &m_place, &m_mute, &m_volume })
        part->setFocusPolicy(Qt::NoFocus); // The keys belong to the player as a whole.
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    row->addWidget(&m_play);
    row->addWidget(&m_place, 1);
    row->addWidget(&m_time);
    row->addWidget(&m_mute);
    row->addWidget(&m_volume);
    ShowPlaying(false);
    ShowTime(0, 0);
    ShowMuted(false);
}

void PlayerBar::ShowPlaying(bool playing)
{
    m_play.setIcon(style()->standardIcon(playing ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
    m_play.setAccessibleName(playing ? tr("Pause") : tr("Play"));
    m_play.setToolTip(m_play.accessibleName());
}

static QString Clock(qint64 milliseconds)
{
    auto const seconds = milliseconds / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

void PlayerBar::ShowTime(qint64 place, qint64 length)
{
    m_time.setText(Clock(place) + QStringLiteral(" / ") + Clock(length));
}

void PlayerBar::ShowMuted(bool muted)
{
    m_mute.setIcon(
        style()->standardIcon(muted ? QStyle::SP_MediaVolumeMuted : QStyle::SP_MediaVolume));
    m_mute.setAccessibleName(muted ? tr("Sound on") : tr("Mute"));
    m_mute.setToolTip(m_mute.accessibleName());
}
