// sparrowfield-artwork: draws the pictures of the program and of the disc, and the frames of the
// welcome video.

#include "film.h"
#include "map_table.h"
#include "maps.h"
#include "pictures.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

static int GiveUp(QString const& what)
{
    std::fprintf(stderr, "sparrowfield-artwork: %s\n", qPrintable(what));
    return 1;
}

static bool WritePictures(QDir const& folder)
{
    for (auto const& picture : ProgramPictures()) {
        QString const name = QString::fromLatin1(picture.name);
        if (!Write(Draw(picture, 1), folder.filePath(name + QStringLiteral(".png")))
            || !Write(Draw(picture, 2), folder.filePath(name + QStringLiteral("@2x.png"))))
            return false;
    }
    return true;
}

static bool WriteIcons(QDir const& folder)
{
    for (auto const& icon : Icons()) {
        QString const name = QString::fromLatin1(icon.name);
        for (int const size : { 16, 22, 24, 32, 48, 64, 128, 256 })
            if (!Write(Draw(icon, size / 64.0),
                    folder.filePath(QStringLiteral("%1-%2.png").arg(name).arg(size))))
                return false;
        if (!WriteVector(icon, folder.filePath(name + QStringLiteral(".svg"))))
            return false;
    }
    return true;
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    auto const words = application.arguments();
    if (words.size() == 4 && words[1] == QStringLiteral("pictures")) {
        QDir const program(words[2]);
        QDir const disc(words[3]);
        if (!program.mkpath(QStringLiteral(".")) || !disc.mkpath(QStringLiteral(".")))
            return GiveUp(QStringLiteral("the folders can't be made"));
        bool const written = WritePictures(program) && WriteIcons(program)
            && Write(Draw(PagePicture(), 1), disc.filePath(QStringLiteral("bg.jpg")));
        return written ? 0 : GiveUp(QStringLiteral("a picture can't be written"));
    }
    if (words.size() == 4 && words[1] == QStringLiteral("film"))
        return WriteFilm(QDir(words[2]), QDir(words[3]))
            ? 0
            : GiveUp(QStringLiteral("a frame can't be read or written"));
    if ((words.size() == 5 || words.size() == 6) && words[1] == QStringLiteral("maps")) {
        try {
            DrawMaps(QDir(words[2]), QDir(words[3]), QDir(words[4]), words.value(5).toInt());
        } catch (TableMistake const& mistake) {
            return GiveUp(QString::fromUtf8(mistake.what()));
        }
        return 0;
    }
    std::fprintf(stderr,
        "sparrowfield-artwork maps TABLE_FOLDER SHORE_FOLDER DISC_FOLDER [NUMBER]   draws the "
        "maps, or one\n"
        "sparrowfield-artwork pictures PROGRAM_FOLDER DISC_FOLDER   draws all pictures\n"
        "sparrowfield-artwork film SCREENSHOT_FOLDER FRAME_FOLDER   draws the frames of the "
        "welcome video\n");
    return 2;
}
