#pragma once
// The two widgets of the video player.

#include <QLabel>
#include <QSlider>
#include <QToolButton>
#include <QVideoFrame>
#include <QVideoSink>
#include <QWidget>

/// Paints the frames in the middle, at their natural size or, if too large or stretched, to fit.
class VideoWidget final : public QWidget {
public:
    explicit VideoWidget(QWidget* parent);
    QVideoSink& Sink() { return m_sink; }
    bool stretched = false;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QVideoSink m_sink;
    QImage m_frame;
};

/// Play, place in milliseconds, time, mute, and volume from 0 to 100.
class PlayerBar final : public QWidget {
public:
    explicit PlayerBar(QWidget* parent);
    QToolButton& Play() { return m_play; }
    QSlider& Place() { return m_place; }
    QToolButton& Mute() { return m_mute; }
    QSlider& Volume() { return m_volume; }
    void ShowPlaying(bool playing);
    /// Of the place and of the whole video, in milliseconds.
    void ShowTime(qint64 place, qint64 length);
    void ShowMuted(bool muted);

private:
    QToolButton m_play, m_mute;
    QSlider m_place, m_volume;
    QLabel m_time;
};
