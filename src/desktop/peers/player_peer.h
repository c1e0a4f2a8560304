#pragma once
// The video player on the desktop: the picture, and a bar to play, halt, seek and set the volume.

#include "controls/media.h"
#include "desktop/peers/peer.h"

class PlayerBar;
class QAudioOutput;
class QMediaPlayer;
class VideoWidget;

class PlayerPeer final : public Peer {
public:
    PlayerPeer(PeerContext& context, WindowsMediaPlayer& control, QWidget& ground);
    void PropertyAssigned(PropertyBase const& property) override;
    void Mirror() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool UseKey(int key);
    void TogglePlay();
    void ToggleMute();
    void Seek(qint64 place);
    void Open();
    void Arrange();
    void Listen();

    WindowsMediaPlayer& m_control;
    VideoWidget& m_picture;
    PlayerBar& m_bar;
    QMediaPlayer& m_player;
    QAudioOutput* m_sound = nullptr; // none on a machine that can make no sound
    Text m_opened;
    bool m_present = false;
    bool m_playWanted = false;
    bool m_seekWanted = false;
};
