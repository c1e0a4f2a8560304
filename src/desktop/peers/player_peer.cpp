#include "desktop/peers/player_peer.h"

#include "desktop/peers/access.h"
#include "desktop/peers/convert.h"
#include "desktop/peers/player_widgets.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMediaDevices>
#include <QMediaMetaData>
#include <QMediaPlayer>
#include <QUrl>

#include <algorithm>
#include <cmath>

PlayerPeer::PlayerPeer(PeerContext& context, WindowsMediaPlayer& control, QWidget& ground)
    : Peer(context, control, new QWidget(&ground))
    , m_control(control)
    , m_picture(*new VideoWidget(Widget()))
    , m_bar(*new PlayerBar(Widget()))
    , m_player(*new QMediaPlayer(this))
{
    SetRole(*Widget(), QAccessible::Grouping);
    SetRole(m_picture, QAccessible::Animation);
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
            m_control.playing.AssignSilently(state == QMediaPlayer::PlayingState);
            m_bar.ShowPlaying(m_control.playing);
        });
    connect(&m_player, &QMediaPlayer::durationChanged, this, [this](qint64 length) {
        m_bar.Place().setRange(0, static_cast<int>(length));
        m_bar.ShowTime(m_player.position(), length);
    });
    connect(&m_player, &QMediaPlayer::positionChanged, this, [this](qint64 place) {
        m_control.currentPosition.AssignSilently(static_cast<float>(place) / 1000);
        m_bar.ShowTime(place, m_player.duration());
        if (!m_bar.Place().isSliderDown())
            m_bar.Place().setValue(static_cast<int>(place));
    });
    connect(&m_bar.Play(), &QToolButton::clicked, this, [this] { TogglePlay(); });
    connect(&m_bar.Mute(), &QToolButton::clicked, this, [this] { ToggleMute(); });
    // valueChanged comes from the video's own progress too.
    connect(&m_bar.Place(), &QSlider::sliderMoved, this,
        [this](int place) { m_player.setPosition(place); });
    connect(&m_bar.Volume(), &QSlider::valueChanged, this, [this](int volume) {
        m_control.volume.AssignSilently(volume);
        if (m_sound)
            m_sound->setVolume(static_cast<float>(volume) / 100);
    });
}

bool PlayerPeer::eventFilter(QObject* watched, QEvent* event)
{
    bool const isKey = watched == Widget() && event->type() == QEvent::KeyPress;
    return (isKey && UseKey(static_cast<QKeyEvent&>(*event).key()))
        || Peer::eventFilter(watched, event);
}

/// Space plays and halts, left and right go 5 seconds, up and down change the volume, M the sound.
bool PlayerPeer::UseKey(int key)
{
    constexpr qint64 step = 5000;
    switch (key) {
    case Qt::Key_Space:
        TogglePlay();
        return true;
    case Qt::Key_Left:
        Seek(m_player.position() - step);
        return true;
    case Qt::Key_Right:
        Seek(m_player.position() + step);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        m_bar.Volume().setValue(m_bar.Volume().value() + (key == Qt::Key_Up ? 10 : -10));
        return true;
    case Qt::Key_M:
        ToggleMute();
        return true;
    default:
        return false;
    }
}

void PlayerPeer::TogglePlay()
{
    if (m_present)
        m_control.playing ? m_player.pause() : m_player.play();
}

void PlayerPeer::ToggleMute()
{
    m_control.mute.AssignSilently(!m_control.mute);
    m_bar.ShowMuted(m_control.mute);
    if (m_sound)
        m_sound->setMuted(m_control.mute);
}

void PlayerPeer::Seek(qint64 place)
{
    if (m_present)
        m_player.setPosition(std::clamp<qint64>(place, 0, m_player.duration()));
}

void PlayerPeer::PropertyAssigned(PropertyBase const& property)
{
    m_playWanted |= &property == &m_control.playing && m_control.playing;
    m_seekWanted |= &property == &m_control.currentPosition;
}

/// False for a damaged file with a frame rate of 0, by which the back end (Qt 6.4) divides.
static bool HasFrameRates(QMediaPlayer const& player)
{
    auto const tracks = player.videoTracks();
    return std::all_of(tracks.begin(), tracks.end(), [](QMediaMetaData const& track) {
        double const rate = track.value(QMediaMetaData::VideoFrameRate).toDouble();
        return std::isfinite(rate) && rate > 0;
    });
}

/// True for a Windows Media file, by the identifier of its header object (Advanced Systems Format,
/// 10.1). The player would also open playlists, which name other files and addresses.
static bool IsWindowsMedia(QString const& place)
{
    static constexpr char headerObject[] = { '\x30', '\x26', '\xB2', '\x75', '\x8E', '\x66', '\xCF',
        '\x11', '\xA6', '\xD9', '\x00', '\xAA', '\x00', '\x62', '\xCE', '\x6C' };
    if (!QFileInfo(place).isFile()) // Opening a pipe would wait.
        return false;
    QFile file(place);
    return file.open(QIODevice::ReadOnly)
        && file.read(sizeof headerObject) == QByteArrayView(headerObject, sizeof headerObject);
}

void PlayerPeer::Open()
{
    m_opened = m_control.URL;
    auto const place = m_context.placeOf ? m_context.placeOf(m_opened) : m_opened;
    // Without a file the player would go on "playing" for ever.
    m_present = IsWindowsMedia(ToQString(place));
    m_player.setSource(
        m_present ? QUrl::fromLocalFile(QFileInfo(ToQString(place)).absoluteFilePath()) : QUrl());
    if (!HasFrameRates(m_player)) {
        m_present = false;
        m_player.setSource({});
    }
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
    m_bar.ShowMuted(m_control.mute);
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
