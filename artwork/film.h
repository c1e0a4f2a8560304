#pragma once
// The frames of the welcome video.

#include <QDir>

/// Frames a second, and the size of each in pixels.
inline constexpr int filmRate = 20;
inline constexpr int filmWidth = 640;
inline constexpr int filmHeight = 480;
inline constexpr double filmSeconds = 30;

/// Writes frame-0000.png and so on. The screenshots are those of the program in use: catalogue.png,
/// lesson.png, answer.png. False if one is missing or a frame can't be written.
bool WriteFilm(QDir const& screenshots, QDir const& frames);
