#pragma once
// The list of all pictures that the program and the disc carry, and the drawing of them into files.

#include <QImage>
#include <QSize>
#include <QString>

#include <span>

class QPainter;

struct Picture {
    char const* name; ///< the file's name without its ending
    QSize size; ///< in pixels, at single size
    void (*paint)(QPainter&);
};

std::span<Picture const> ProgramPictures();
std::span<Picture const> Icons();
Picture const& PagePicture();

/// The picture at a multiple of its size, clear where nothing is painted.
QImage Draw(Picture const& picture, qreal scale);
/// Writes a PNG or JPEG file, by the ending; false if that fails.
bool Write(QImage const& image, QString const& file);
/// Writes the picture as vector graphics; false if that fails.
bool WriteVector(Picture const& picture, QString const& file);
