#include "desktop/player_peer.h"

#include "desktop/convert.h"
#include "desktop/player_widgets.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QFileInfo>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <QUrl>

PlayerPeer::PlayerPeer(Desk& desk, WindowsMediaPlayer& control, QWidget& ground)
    : Peer(desk, control, new QWidget(&ground))
    , m_control(control)
    , m_picture(*new VideoWidget(Widget()))
    , m_bar(*new PlayerBar(Widget()))
    , m_player(*new QMediaPlayer(this))
{
    m_player.setVideoSink(&m_picture.Sink());
    if (!QMediaDevices::defaultAudioOutput().isNull()) {
        m_sound = new QAudioOutput(this);
        m_player.setAudioOutput(m_sound);
    }
    Listen();
}

void PlayerPeer::Listen()
{
    connect(&m_player, &QMediaPlayer::playbackStateChanged, this,
        [this](QMediaPlayer::PlaybackState state) {
            m_control.playing.Keep(state == QMediaPlayer::PlayingState);
            m_bar.ShowPlaying(m_control.playing);
        });
    connect(&m_player, &QMediaPlayer::durationChanged, this,
        [this](qint64 length) { m_bar.Place().setRange(0, static_cast<int>(length)); });
    connect(&m_player, &QMediaPlayer::positionChanged, this, [this](qint64 place) {
        m_control.currentPosition.Keep(static_cast<float>(place) / 1000);
        if (!m_bar.Place().isSliderDown())
            m_bar.Place().setValue(static_cast<int>(place));
    });
    connect(&m_bar.Play(), &QToolButton::clicked, this, [this] {
        if (!m_present)
            return;
        m_control.playing ? m_player.pause() : m_player.play();
    });
    // valueChanged comes from the video's own progress too.
    connect(&m_bar.Place(), &QSlider::sliderMoved, this,
        [this](int place) { m_player.setPosition(place); });
    connect(&m_bar.Volume(), &QSlider::valueChanged, this, [this](int volume) {
        m_control.volume.Keep(volume);
        if (m_sound)
            m_sound->setVolume(static_cast<float>(volume) / 100);
    });
}

void PlayerPeer::Noted(PropertyBase const& property)
{
    m_playWanted |= &property == &m_control.playing && m_control.playing;
    m_seekWanted |= &property == &m_control.currentPosition;
}

void PlayerPeer::Open()
{
    m_opened = m_control.URL;
    auto const place = m_desk.placeOf ? m_desk.placeOf(m_opened) : m_opened;
    // Without a file the player would go on "playing" for ever.
    m_present = QFileInfo(ToQString(place)).isFile();
    m_player.setSource(
        m_present ? QUrl::fromLocalFile(QFileInfo(ToQString(place)).absoluteFilePath()) : QUrl());
    m_playWanted |= m_control.autoStart;
}

void PlayerPeer::Mirror()
{
    Peer::Mirror();
    Arrange();
    if (m_opened != m_control.URL())
        Open();
    m_picture.stretched = m_control.stretchToFit;
    m_player.setPlaybackRate(static_cast<double>(m_control.rate));
    m_player.setLoops(std::max(1, m_control.playCount()));
    m_bar.Volume().setValue(m_control.volume);
    if (m_sound) {
        m_sound->setVolume(static_cast<float>(m_control.volume) / 100);
        m_sound->setMuted(m_control.mute);
    }
    if (std::exchange(m_seekWanted, false) && m_present)
        m_player.setPosition(static_cast<qint64>(m_control.currentPosition * 1000));
    if (std::exchange(m_playWanted, false) && m_present)
        m_player.play();
}

void PlayerPeer::Arrange()
{
    bool const hasBar = m_control.uiMode() == u"full";
    int const barHeight = hasBar ? m_bar.sizeHint().height() : 0;
    int const width = Widget()->width();
    int const height = std::max(0, Widget()->height() - barHeight);
    m_picture.setGeometry(0, 0, width, height);
    m_bar.setGeometry(0, height, width, barHeight);
    m_bar.setVisible(hasBar);
}
