#include "desktop/player_widgets.h"

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
    for (QWidget* part : std::initializer_list<QWidget*> { &m_play, &m_place, &m_volume })
        part->setFocusPolicy(Qt::NoFocus);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    row->addWidget(&m_play);
    row->addWidget(&m_place, 1);
    row->addWidget(&m_volume);
    ShowPlaying(false);
}

void PlayerBar::ShowPlaying(bool playing)
{
    m_play.setIcon(style()->standardIcon(playing ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
    m_play.setAccessibleName(playing ? tr("Pause") : tr("Play"));
    m_play.setToolTip(m_play.accessibleName());
}
